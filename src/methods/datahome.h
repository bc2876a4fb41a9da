// The data home and the rules that turn a data set name into the path of a
// grid file below it.  A data set name is what follows "Dataset_" in the name
// of a transformation's data set parameter, possibly still carrying that
// prefix; it may name sub-directories with '/' or '\'.
#pragma once

#include <cstdio>

#include "gx_methods.h"

// Every path buffer handed to the functions below holds this many bytes.
#define GX_PATH_SIZE 512

// The home, or null while it is empty.  The first call before any set
// function reads GXDATAHOME through gx_getenv.
const char* gx_datahome_get();
// Returns the home to its state at load: empty, and GXDATAHOME not yet read.
// For tests, which need each case to start from there.
void gx_datahome_forget();
// The environment as the library sees it: getenv on this host.
const char* gx_getenv(const char* name);
// Asked before every open; 1 for every path, the open itself decides.
int gx_file_exists(const char* path);

// Paths of a NADCON-layout grid pair: <home>/<subdirectory>/<name>.los and
// .las.  Returns 1 when both are built; 0 (both empty) without a home, with an
// empty name, or when a path would not fit GX_PATH_SIZE.
int gx_grid_pair_paths(const char* dataset, const char* subdirectory, char* los_path,
                       char* las_path);
// Path of an NTv2 file, <home>/ntv2/<name>[.gsb]; `lower` lowers the name's
// letters first.  Returns 1 when built, 0 (path empty) as above.
int gx_ntv2_path(const char* dataset, int lower, char* path);
// Opens an NTv2 file for reading: the path as built, then with ".GSB", then
// with the name lowered, then that with ".GSB".  Null when none opens.
FILE* gx_ntv2_open(const char* dataset);
// Opens <home>/vertical/[<subdirectory>/]<name>.<extension> for reading, the
// name without a leading "DATASET_" (any case).  `path` receives the path;
// null uses a local buffer.  Null without a home or when the file won't open.
FILE* gx_vertical_open(char* path, const char* subdirectory, const char* name,
                       const char* extension);
