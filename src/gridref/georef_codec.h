// GEOREF text of geographic coordinates, on plain numbers: the angular unit
// enters as its factor in radians per unit, so this layer needs no objects.
// The exported gx_geog_to_georef family is a thin layer over it.
#pragma once

#include "gx_gridref.h"

// Digits per axis: 2 is whole minutes, each further digit a tenth of the last.
inline constexpr int GX_GEOREF_MIN_PRECISION = 2;
inline constexpr int GX_GEOREF_MAX_PRECISION = 9;

// Writes the GEOREF text of n (longitude, latitude) pairs in the unit of
// `factor` into strings[i] (GX_GEOREF_SIZE characters each).  Every string
// is emptied first; a point with a NaN or infinite ordinate stays empty.
// Returns the count of strings written.
int gx_georef_encode(double factor, int n, const double* coords, int precision, int rounding,
                     char* const* strings);
int gx_georef_encode(double factor, int n, const double* coords, int precision, int rounding,
                     gx_wchar* const* strings);

// Reads n GEOREF texts into (longitude, latitude) pairs in the unit of
// `factor`, the south-west corner of the cell.  A text that fails leaves NaN
// in its pair.  16-bit text is read by the low byte of each unit.  Returns
// the count of pairs read.
int gx_georef_decode(double factor, int n, const char* const* strings, double* coords);
int gx_georef_decode(double factor, int n, const gx_wchar* const* strings, double* coords);
