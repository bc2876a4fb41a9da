// The method functions of geographic transformations, for the method list.
//
// Every forward and inverse function has the form gx_method_fn (see
// gx_methods.h).  A loader reads what a grid method needs into a constants
// block once per transformation; the method functions then get the block's
// three arrays and touch no file.  Called without them, a grid method reads
// its file for that call alone.
#pragma once

#include "frame/constants.h"
#include "gx_methods.h"

// Fills `block` for the data set; returns the number of grid values loaded,
// or 0 on any failure (the block is then left with empty slots).
typedef int32_t (*gx_method_loader)(gx_constants* block, const char* dataset);

#define GX_METHOD_FN(name)                                                                  \
  int32_t name(const double* sphere1, const double* sphere2, const double* parms,           \
               const char* dataset, int32_t n, double* coords, double* z, int32_t* ints,    \
               void* values, double* doubles)

// Longitude_Rotation: one function for both directions; adds slot 5.
GX_METHOD_FN(gx_method_longitude_rotation);

// Bursa_Wolf, and Coordinate_Frame, which is the same pair.
GX_METHOD_FN(gx_method_bursa_wolf_forward);
GX_METHOD_FN(gx_method_bursa_wolf_inverse);
// Position_Vector: Bursa_Wolf with the rotations negated.
GX_METHOD_FN(gx_method_position_vector_forward);
GX_METHOD_FN(gx_method_position_vector_inverse);
GX_METHOD_FN(gx_method_geocentric_translation_forward);
GX_METHOD_FN(gx_method_geocentric_translation_inverse);
GX_METHOD_FN(gx_method_molodensky_forward);
GX_METHOD_FN(gx_method_molodensky_inverse);
GX_METHOD_FN(gx_method_molodensky_abridged_forward);
GX_METHOD_FN(gx_method_molodensky_abridged_inverse);
GX_METHOD_FN(gx_method_molodensky_badekas_forward);
GX_METHOD_FN(gx_method_molodensky_badekas_inverse);

// NADCON and HARN: NADCON-layout .los/.las pairs under "nadcon" and "harn".
GX_METHOD_FN(gx_method_nadcon_forward);
GX_METHOD_FN(gx_method_nadcon_inverse);
int32_t gx_method_nadcon_load(gx_constants* block, const char* dataset);
GX_METHOD_FN(gx_method_harn_forward);
GX_METHOD_FN(gx_method_harn_inverse);
int32_t gx_method_harn_load(gx_constants* block, const char* dataset);

// NTv2 grid shift files under "ntv2".
GX_METHOD_FN(gx_method_ntv2_forward);
GX_METHOD_FN(gx_method_ntv2_inverse);
int32_t gx_method_ntv2_load(gx_constants* block, const char* dataset);
