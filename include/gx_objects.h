/*
 * gx_objects.h - definition objects: authorities, parameters, spheroids,
 * prime meridians, datums, coordinate systems, projections, methods and
 * geographic transformations.  The common operations of each family are
 * described with GX_DECLARE_COMMON in gx_frame.h.
 */
#ifndef GX_OBJECTS_H
#define GX_OBJECTS_H

#include "gx_frame.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- authority: who defined an object, under which number -------------------- */
GX_DECLARE_COMMON(gx_authority, authority)
/* name null or empty: error 320; code <= 0: error 311.  A null version is
 * empty; the version is cut to 15 characters. */
GX_API gx_authority *gx_authority_new(const char *name, int32_t code, const char *version);
GX_API gx_authority *gx_authority_new_errext(const char *name, int32_t code, const char *version,
                                             gx_errext *record);
GX_API gx_authority *gx_authority_new_w(const gx_wchar *name, int32_t code,
                                        const gx_wchar *version);
GX_API int32_t gx_authority_authcode(const gx_authority *obj); /* 0 if invalid */
/* Copies the version into a 16-byte buffer; empty if invalid, null for a null buffer. */
GX_API char *gx_authority_version(const gx_authority *obj, char *buffer);
GX_API gx_wchar *gx_authority_version_w(const gx_authority *obj, gx_wchar *buffer);

/* ---- parameter: a named value held in one of 16 slots ------------------------
 * A parameter's name ties it to a row of the parameter table: a factory code
 * (100001 ...), a default and a slot in the 16-slot parameter vector of a
 * projected system or a transformation.  A name "Dataset_<file>" names the
 * data file of a grid transformation and belongs in slot 15.  The value is
 * kept in the units of the text (degrees, metres, ...); the conversions
 * scale it. */
GX_DECLARE_COMMON(gx_parameter, parameter)
GX_DECLARE_AUTHORITY_OPS(gx_parameter, parameter)
/* A parameter of any value; a null name is empty.  A name of the table (in
 * any case, blind to blanks, hyphens and underscores) gives the object the
 * row's code, so that gx_parameter_authority answers for it; the name itself
 * is kept as given.  Null only on no memory (error 1). */
GX_API gx_parameter *gx_parameter_new(const char *name, double value);
GX_API gx_parameter *gx_parameter_new_errext(const char *name, double value, gx_errext *record);
GX_API gx_parameter *gx_parameter_new_w(const gx_wchar *name, double value); /* null name: null */
GX_API double gx_parameter_value(const gx_parameter *obj); /* 0.0 if invalid */
GX_API void gx_parameter_value_w(const gx_parameter *obj, double *value); /* 0.0 if invalid */
/* Replace the value, or the name (cut to 63 characters; the code stays as it
 * was).  1 on success, 0 for an invalid object or a null name. */
GX_API int gx_parameter_value_set(gx_parameter *obj, double value);
GX_API int gx_parameter_name_set(gx_parameter *obj, const char *name);
GX_API int gx_parameter_name_set_w(gx_parameter *obj, const gx_wchar *name);
/* The slot (0 to 15) the parameter belongs in, found by its code when it has
 * one, else by its name; -1 for a name the table does not know, -2 for an
 * invalid object. */
GX_API int32_t gx_parameter_index(const gx_parameter *obj);

/* ---- spheroid: semi-major axis and flattening ---------------------------------
 * WKT: SPHEROID["name",axis,inverse_flattening] (ELLIPSOID[...] is read too);
 * an inverse flattening of 0 is a sphere. */
GX_DECLARE_COMMON(gx_spheroid, spheroid)
GX_DECLARE_AUTHORITY_OPS(gx_spheroid, spheroid)
/* axis in metres, finite and above 0 (else error 302); flattening f itself,
 * not 1/f, from 0 (a sphere) to 1 (else error 303).  A null name is empty.
 * Null on failure. */
GX_API gx_spheroid *gx_spheroid_new(const char *name, double axis, double flattening);
GX_API gx_spheroid *gx_spheroid_new_errext(const char *name, double axis, double flattening,
                                           gx_errext *record);
GX_API gx_spheroid *gx_spheroid_new_w(const gx_wchar *name, double axis, double flattening);
GX_API double gx_spheroid_axis(const gx_spheroid *obj);       /* metres; 1.0 if invalid */
GX_API double gx_spheroid_flattening(const gx_spheroid *obj); /* f; 0.0 if invalid */
GX_API void gx_spheroid_axis_w(const gx_spheroid *obj, double *axis); /* 0.0 if invalid */
GX_API void gx_spheroid_flattening_w(const gx_spheroid *obj, double *flattening);

/* ---- prime meridian -------------------------------------------------------------
 * WKT: PRIMEM["name",longitude]. */
GX_DECLARE_COMMON(gx_primem, primem)
GX_DECLARE_AUTHORITY_OPS(gx_primem, primem)
/* longitude in degrees east of Greenwich, -180 to 180 (else error 301),
 * degrees whatever the unit of the system that holds it.  Null on failure. */
GX_API gx_primem *gx_primem_new(const char *name, double longitude);
GX_API gx_primem *gx_primem_new_errext(const char *name, double longitude, gx_errext *record);
GX_API gx_primem *gx_primem_new_w(const gx_wchar *name, double longitude);
GX_API double gx_primem_longitude(const gx_primem *obj); /* degrees; 0.0 if invalid */
GX_API void gx_primem_longitude_w(const gx_primem *obj, double *longitude); /* 0.0 if invalid */

/* ---- datum: a named datum on its spheroid -------------------------------------------
 * WKT: DATUM["name",SPHEROID[...]].  Read with an old name (say "D_Tahiti"),
 * a datum gets the current one ("D_Tahiti_1952"); a text of its own named
 * "D_Hong_Kong_1963" on the International 1924 spheroid is read as
 * "D_Hong_Kong_1963_67". */
GX_DECLARE_COMMON(gx_datum, datum)
GX_DECLARE_AUTHORITY_OPS(gx_datum, datum)
/* Takes the spheroid on success (the datum then owns it); an invalid one is
 * error 327 and stays the caller's.  Null on failure. */
GX_API gx_datum *gx_datum_new(const char *name, gx_spheroid *spheroid);
GX_API gx_datum *gx_datum_new_errext(const char *name, gx_spheroid *spheroid, gx_errext *record);
GX_API gx_datum *gx_datum_new_w(const gx_wchar *name, gx_spheroid *spheroid);
/* Lends the spheroid, good while the datum lives; null if invalid. */
GX_API gx_spheroid *gx_datum_spheroid(const gx_datum *obj);

/* ---- geographic coordinate system: datum, prime meridian, angular unit ----------------
 * WKT: GEOGCS["name",DATUM[...],PRIMEM[...],UNIT[...]].  Old names are read
 * as the current ones, as for a datum; a text of its own named
 * "GCS_Hong_Kong_1963" on Greenwich in degrees whose datum is named
 * "D_Hong_Kong_1963_67" is read as "GCS_Hong_Kong_1963_67". */
GX_DECLARE_COMMON(gx_geogcs, geogcs)
GX_DECLARE_AUTHORITY_OPS(gx_geogcs, geogcs)
/* Takes all three parts on success; checks in order: datum (error 334),
 * prime meridian (329), unit (322); on failure the parts stay the caller's.
 * The unit's factor is radians per unit.  Null on failure. */
GX_API gx_geogcs *gx_geogcs_new(const char *name, gx_datum *datum, gx_primem *primem,
                                gx_unit *unit);
GX_API gx_geogcs *gx_geogcs_new_errext(const char *name, gx_datum *datum, gx_primem *primem,
                                       gx_unit *unit, gx_errext *record);
GX_API gx_geogcs *gx_geogcs_new_w(const gx_wchar *name, gx_datum *datum, gx_primem *primem,
                                  gx_unit *unit);
/* Lend the parts, good while the system lives; null if invalid. */
GX_API gx_datum *gx_geogcs_datum(const gx_geogcs *obj);
GX_API gx_primem *gx_geogcs_primem(const gx_geogcs *obj);
GX_API gx_unit *gx_geogcs_unit(const gx_geogcs *obj);

#ifdef __cplusplus
}
#endif

#endif /* GX_OBJECTS_H */
