/*
 * gx_gridref.h - grid references: text codes for geographic coordinates.
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

#ifdef __cplusplus
}
#endif

#endif /* GX_GRIDREF_H */
