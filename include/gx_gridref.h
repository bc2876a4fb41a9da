/*
 * gx_gridref.h - grid references: text codes for geographic coordinates.
 *
 * MGRS (Military Grid Reference System) names a UTM or UPS square and the
 * metres within it, on the datum of a geographic CS; see its section below.
 *
 * GEOREF (World Geographic Reference System) is a purely angular code: four
 * letters name the 15-degree zone and band and the degree within each, then
 * come the minutes of longitude and of latitude with the same number of
 * digits each.  No datum enters, only the angular unit of the geographic CS.
 */
#ifndef GX_GRIDREF_H
#define GX_GRIDREF_H

#include "gx_frame.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Characters (terminator included) each GEOREF string buffer must hold. */
#define GX_GEOREF_SIZE 24

/* Writes the GEOREF text of n (longitude, latitude) pairs into strings[0..n-1].
 *  cs         geographic CS whose angular unit the coordinates are in; lent.
 *  coords     n pairs, longitude first; not changed.  Longitudes are wrapped
 *             into -180..180 degrees, latitudes beyond +-90 are clamped.
 *  precision  digits per axis, clamped to 2..9: 2 is whole minutes, 3 tenths
 *             of a minute, ... 9 is 1e-7 minute.
 *  rounding   nonzero: round to the nearest step; 0: truncate (the cell that
 *             holds the point).
 *  strings    n caller buffers of GX_GEOREF_SIZE characters.  A null pointer
 *             in the array is skipped.
 * Every string is emptied before the first point; a point with a NaN or an
 * infinite ordinate keeps the empty string.  Returns the count of strings
 * written: 0 for n below 1, a null array, or a cs that is not a live gx_geogcs.
 * +180 degrees is written as the last cell of zone Z with 60 minutes, and
 * latitude 90 as the last cell of band M with 60 minutes. */
GX_API int gx_geog_to_georef(const gx_geogcs *cs, int n, const double *coords, int precision,
                             int rounding, char **strings);

/* Reads n GEOREF texts into (longitude, latitude) pairs in the unit of cs: the
 * south-west corner of each cell.
 *  cs       geographic CS of the results; lent.
 *  strings  n texts; a null pointer in the array counts as a bad text.  Leading
 *           and trailing blanks and anything before the first zone letter are
 *           ignored; then come four upper-case letters and 4 to 18 digits, as
 *           many for longitude as for latitude.
 *  coords   n pairs, written; every pair is set to NaN first.
 * A text that fails keeps NaN in its pair.  No message is raised.  Returns the
 * count of pairs read: 0 for n below 1, a null array, or a cs that is not a
 * live gx_geogcs (all pairs NaN then). */
GX_API int gx_georef_to_geog(const gx_geogcs *cs, int n, const char *const *strings,
                             double *coords);

/* The same with 16-bit text.  Input units are read by their low byte, as
 * every _w function narrows text; output buffers hold GX_GEOREF_SIZE units. */
GX_API int gx_geog_to_georef_w(const gx_geogcs *cs, int n, const double *coords, int precision,
                               int rounding, gx_wchar **strings);
GX_API int gx_georef_to_geog_w(const gx_geogcs *cs, int n, const gx_wchar *const *strings,
                               double *coords);

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
