// The data home: one process-wide directory under which every grid file is
// found, and the rules that turn a data set name into a file path.
#include "methods/datahome.h"

#include <cctype>
#include <cstdlib>
#include <cstring>

#include "frame/text.h"

namespace {

char datahome[GX_DATAHOME_SIZE];
int datahome_known = 0;  // set once a set function ran or GXDATAHOME was read

const char kDatasetPrefix[] = "DATASET_";
const size_t kDatasetPrefixLength = 8;
const char kNtv2Directory[] = "ntv2";
const char kVerticalDirectory[] = "vertical";

// The name without a leading "DATASET_" in any case of letters.
const char* strip_dataset_prefix(const char* name) {
  for (size_t i = 0; i < kDatasetPrefixLength; ++i) {
    if (name[i] == '\0' || toupper(static_cast<unsigned char>(name[i])) != kDatasetPrefix[i]) {
      return name;
    }
  }
  return name + kDatasetPrefixLength;
}

// Appends one part to a path with gx_path_join, refusing what would not fit.
int join_part(char* path, const char* part) {
  if (strlen(path) + 1 + strlen(part) >= GX_PATH_SIZE) return 0;
  gx_path_join(path, part);
  return 1;
}

// A data set name comes from definition text that may not be trusted: it
// must stay below the data home.  A name that starts at the root, or that
// has a ".." component, could reach any file of the machine.  `name` has
// '/' for either separator already.
int climbs_out_of_home(const char* name) {
  if (name[0] == '/') return 1;
  for (const char* part = name; *part != '\0';) {
    const size_t length = strcspn(part, "/");
    if (length == 2 && part[0] == '.' && part[1] == '.') return 1;
    part += length;
    if (*part == '/') ++part;
  }
  return 0;
}

// A data set name as it goes into a path: prefix removed, either separator
// taken for this host's '/', optionally lowered.  0 if empty, too long, or
// naming a place outside the data home.
int clean_dataset_name(const char* dataset, int lower, char* name) {
  if (dataset == nullptr) return 0;
  const char* rest = strip_dataset_prefix(dataset);
  size_t length = strlen(rest);
  if (length == 0 || length >= GX_PATH_SIZE) return 0;
  for (size_t i = 0; i <= length; ++i) {
    char c = rest[i] == '\\' ? '/' : rest[i];
    name[i] = lower ? static_cast<char>(tolower(static_cast<unsigned char>(c))) : c;
  }
  return !climbs_out_of_home(name);
}

// <home>/<subdirectory>/<name>; 0 with an empty path when it can't be built.
int build_path(const char* subdirectory, const char* name, char* path) {
  path[0] = '\0';
  const char* home = gx_datahome_get();
  if (home == nullptr) return 0;
  gx_name_copy(path, home, GX_PATH_SIZE);
  if (join_part(path, subdirectory) && join_part(path, name)) return 1;
  path[0] = '\0';
  return 0;
}

int append_text(char* path, const char* text) {
  size_t length = strlen(path);
  if (length + strlen(text) >= GX_PATH_SIZE) return 0;
  memcpy(path + length, text, strlen(text) + 1);
  return 1;
}

FILE* open_for_reading(const char* path) {
  if (path[0] == '\0' || !gx_file_exists(path)) return nullptr;
  return fopen(path, "rb");
}

// The path, then the path with its last four characters made ".GSB".
FILE* open_ntv2_variants(char* path) {
  FILE* file = open_for_reading(path);
  size_t length = strlen(path);
  if (file == nullptr && length >= 4) {
    memcpy(path + length - 4, ".GSB", 4);
    file = open_for_reading(path);
  }
  return file;
}

}  // namespace

void gx_datahome_setdir(const char* directory) {
  datahome[0] = '\0';
  datahome_known = 1;
  if (directory == nullptr || directory[0] == '\0') return;
  if (strlen(directory) >= GX_DATAHOME_SIZE) return;
  gx_name_copy(datahome, directory, GX_DATAHOME_SIZE);
}

void gx_datahome_setdir_w(const gx_wchar* directory) {
  if (directory == nullptr) {
    gx_datahome_setdir(nullptr);
    return;
  }
  size_t length = 0;
  while (directory[length] != 0 && length < GX_DATAHOME_SIZE) ++length;
  if (length >= GX_DATAHOME_SIZE) {  // too long for the home: it stays empty
    gx_datahome_setdir(nullptr);
    return;
  }
  char narrow[GX_DATAHOME_SIZE];
  gx_narrow_from_wide(narrow, directory, sizeof narrow - 1);
  gx_datahome_setdir(narrow);
}

void gx_datahome_setfunc(const char* (*source)(void)) {
  gx_datahome_setdir(source != nullptr ? source() : nullptr);
}

const char* gx_datahome_get() {
  if (!datahome_known) gx_datahome_setdir(gx_getenv("GXDATAHOME"));
  return datahome[0] != '\0' ? datahome : nullptr;
}

void gx_datahome_forget() {
  datahome[0] = '\0';
  datahome_known = 0;
}

const char* gx_getenv(const char* name) { return getenv(name); }

int gx_file_exists(const char* path) { return 1; }

int gx_grid_pair_paths(const char* dataset, const char* subdirectory, char* los_path,
                       char* las_path) {
  char name[GX_PATH_SIZE];
  los_path[0] = '\0';
  las_path[0] = '\0';
  if (!clean_dataset_name(dataset, 0, name) || !build_path(subdirectory, name, los_path)) {
    return 0;
  }
  gx_name_copy(las_path, los_path, GX_PATH_SIZE);
  if (append_text(los_path, ".los") && append_text(las_path, ".las")) return 1;
  los_path[0] = '\0';
  las_path[0] = '\0';
  return 0;
}

int gx_ntv2_path(const char* dataset, int lower, char* path) {
  char name[GX_PATH_SIZE];
  path[0] = '\0';
  if (!clean_dataset_name(dataset, lower, name)) return 0;
  if (strstr(name, ".gsb") == nullptr && !append_text(name, ".gsb")) return 0;
  return build_path(kNtv2Directory, name, path);
}

FILE* gx_ntv2_open(const char* dataset) {
  char path[GX_PATH_SIZE];
  FILE* file = nullptr;
  if (gx_ntv2_path(dataset, 0, path)) file = open_ntv2_variants(path);
  if (file == nullptr && gx_ntv2_path(dataset, 1, path)) file = open_ntv2_variants(path);
  return file;
}

FILE* gx_vertical_open(char* path, const char* subdirectory, const char* name,
                       const char* extension) {
  char local[GX_PATH_SIZE];
  char clean[GX_PATH_SIZE];
  if (path == nullptr) path = local;
  path[0] = '\0';
  if (!clean_dataset_name(name, 0, clean)) return nullptr;
  const char* home = gx_datahome_get();
  if (home == nullptr) return nullptr;
  gx_name_copy(path, home, GX_PATH_SIZE);
  int built = join_part(path, kVerticalDirectory);
  if (built && subdirectory != nullptr && subdirectory[0] != '\0') {
    built = join_part(path, subdirectory);
  }
  if (built) built = join_part(path, clean);
  if (built && extension != nullptr && extension[0] != '\0') {
    // room for the worst case, "." and the whole extension
    built = strlen(path) + 1 + strlen(extension) < GX_PATH_SIZE;
    if (built) gx_path_force_extension(path, extension);
  }
  if (!built) {
    path[0] = '\0';
    return nullptr;
  }
  return open_for_reading(path);
}
