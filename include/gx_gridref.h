/*
 * gx_gridref.h - grid references: geographic coordinates to and from text.
 */
#ifndef GX_GRIDREF_H
#define GX_GRIDREF_H

#include "gx_frame.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- MGRS: Military Grid Reference System ------------------------------------
 * A reference is the UTM zone (two digits), the latitude band (C to X), the
 * 100 km square (two letters) and as many digits of easting as of northing,
 * for instance "31UDQ4825111932"; in the polar caps, beyond 84 N and 80 S, it
 * is the UPS letter (Y or Z north, A or B south), the square and the digits,
 * "ZGC2345601234".  Latitude exactly 84 is band X and -80 band C; the Norway
 * (32V) and Svalbard (31X, 33X, 35X, 37X) zones apply.  UTM and UPS are
 * computed on the spheroid of the geographic system's datum.
 *
 * Coordinates are n (longitude, latitude) pairs in the angular unit of the
 * geographic system.  Its prime meridian is not applied: longitudes are
 * taken as they stand.  Strings are an array of n pointers to buffers of
 * GX_MGRS_BUFFER_SIZE characters that the caller owns.
 *
 * Precision: digits per axis, 0 to 8 (below 0 is 0, above 8 is 8); the cell
 * is 10^(5 - precision) metres.  Rounding: nonzero rounds to the nearest
 * cell, 0 truncates to the cell that holds the point.  A reference read back
 * gives the south-west corner of its cell.
 *
 * Mode: the lettering of the 100 km rows, and longitude +180.
 *   GX_MGRS_NEW (1)             the current row lettering
 *   GX_MGRS_OLD (2)             the old lettering: rows shifted by 10 letters
 *   GX_MGRS_NEW_WRAP (11)       new lettering; +180 is written as -180 (zone 1)
 *   GX_MGRS_OLD_WRAP (12)       old lettering; +180 is written as -180
 *   any other, e.g. GX_MGRS_BY_DATUM (0): old lettering when the datum is
 *       one of the Clarke 1866, Bessel or Clarke 1880 datums that used it,
 *       and +180 written as -180.
 * Without wrapping, longitude +180 lies in zone 60. */
#define GX_MGRS_BUFFER_SIZE 24
#define GX_MGRS_BY_DATUM 0
#define GX_MGRS_NEW 1
#define GX_MGRS_OLD 2
#define GX_MGRS_NEW_WRAP 11
#define GX_MGRS_OLD_WRAP 12

/* Writes the reference of each point into strings[i].  The strings are all
 * emptied first; a point that has no reference (not finite, or latitude
 * beyond 90 degrees) keeps an empty string, and a null strings[i] is
 * skipped.  Returns n, or 0 when n < 1 or an argument is null or invalid. */
GX_API int32_t gx_geog_to_mgrs_extended(const gx_geogcs *geogcs, int32_t n, const double *coords,
                                        int32_t precision, int32_t rounding, int32_t mode,
                                        char **strings);
/* gx_geog_to_mgrs_extended with mode GX_MGRS_NEW. */
GX_API int32_t gx_geog_to_mgrs(const gx_geogcs *geogcs, int32_t n, const double *coords,
                               int32_t precision, int32_t rounding, char **strings);

/* Reads n references into coords, the south-west corner of each cell.  Every
 * pair is first set to NaN; a reference that is null, empty or malformed
 * (lower case letters, letters I or O, blanks inside, an odd count of
 * digits or more than 16, a zone outside 1 to 60, a square outside its band)
 * leaves its NaN.  Leading blanks and zeros are skipped.  Only modes 2 and
 * 12 (old) and 1 and 11 (new) fix the lettering; any other looks at the
 * datum.  Returns the number of references converted; 0 when n < 1 or an
 * argument is null or invalid. */
GX_API int32_t gx_mgrs_to_geog_extended(const gx_geogcs *geogcs, int32_t n,
                                        const char *const *strings, int32_t mode, double *coords);
/* gx_mgrs_to_geog_extended with mode GX_MGRS_NEW. */
GX_API int32_t gx_mgrs_to_geog(const gx_geogcs *geogcs, int32_t n, const char *const *strings,
                               double *coords);

/* The same with 16-bit strings: buffers of GX_MGRS_BUFFER_SIZE units each.
 * A reference longer than GX_MGRS_BUFFER_SIZE - 1 units, or holding a unit
 * beyond 127, is malformed.  They also return 0 when their working block
 * cannot be allocated. */
GX_API int32_t gx_geog_to_mgrs_extended_w(const gx_geogcs *geogcs, int32_t n,
                                          const double *coords, int32_t precision,
                                          int32_t rounding, int32_t mode, gx_wchar **strings);
GX_API int32_t gx_geog_to_mgrs_w(const gx_geogcs *geogcs, int32_t n, const double *coords,
                                 int32_t precision, int32_t rounding, gx_wchar **strings);
GX_API int32_t gx_mgrs_to_geog_extended_w(const gx_geogcs *geogcs, int32_t n,
                                          const gx_wchar *const *strings, int32_t mode,
                                          double *coords);
GX_API int32_t gx_mgrs_to_geog_w(const gx_geogcs *geogcs, int32_t n,
                                 const gx_wchar *const *strings, double *coords);

#ifdef __cplusplus
}
#endif

#endif /* GX_GRIDREF_H */
