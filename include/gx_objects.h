/*
 * gx_objects.h - definition objects: authorities, parameters, spheroids,
 * prime meridians, datums, coordinate systems, projections, methods and
 * geographic transformations.  The common operations of each family are
 * described with GX_DECLARE_COMMON in gx_frame.h.
 */
#ifndef GX_OBJECTS_H
#define GX_OBJECTS_H

#include "gx_frame.h"
#include "gx_horizon.h"
#include "gx_methods.h"
#include "gx_projections.h"

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

/* ---- projection: a named set of functions out of the projection list ------------- */
GX_DECLARE_COMMON(gx_projection, projection)
GX_DECLARE_AUTHORITY_OPS(gx_projection, projection)
/* A projection of `name` with the functions given.  With a null forward or
 * inverse, both are taken from the listed projection of that name (none:
 * error 340).  Such an object never has a constants loader or projected-side
 * horizons.  A null horizon is the world rectangle.  A listed name gives the
 * object that row's factory code. */
GX_API gx_projection *gx_projection_new(const char *name, gx_projection_fn forward,
                                        gx_projection_fn inverse, gx_horizon_builder horizon);
GX_API gx_projection *gx_projection_new_errext(const char *name, gx_projection_fn forward,
                                               gx_projection_fn inverse,
                                               gx_horizon_builder horizon, gx_errext *record);
GX_API gx_projection *gx_projection_new_w(const gx_wchar *name);
/* The functions; an invalid object gives identity functions that return n. */
GX_API gx_projection_fn gx_projection_forward(const gx_projection *obj);
GX_API gx_projection_fn gx_projection_inverse(const gx_projection *obj);
/* Horizon builders; for an invalid object the world rectangle (geographic
 * side) or null. */
GX_API gx_horizon_builder gx_projection_horizon(const gx_projection *obj);
GX_API gx_horizon_builder gx_projection_horizon_pcs(const gx_projection *obj);
GX_API gx_horizon_builder gx_projection_horizon_gcs_raster(const gx_projection *obj);
GX_API gx_horizon_builder gx_projection_horizon_pcs_raster(const gx_projection *obj);

/* ---- projcs: a projected coordinate system ----------------------------------------- */
GX_DECLARE_COMMON(gx_projcs, projcs)
GX_DECLARE_AUTHORITY_OPS(gx_projcs, projcs)
/* Takes ownership of geogcs, projection, the 16 parameters (by slot, null
 * where absent; the array itself stays the caller's) and unit, on success.
 * Errors: 331 geogcs, 328 projection, 330 parameters, 323 unit. */
GX_API gx_projcs *gx_projcs_new(const char *name, gx_geogcs *geogcs, gx_projection *projection,
                                gx_parameter **parameters, gx_unit *unit);
GX_API gx_projcs *gx_projcs_new_errext(const char *name, gx_geogcs *geogcs,
                                       gx_projection *projection, gx_parameter **parameters,
                                       gx_unit *unit, gx_errext *record);
GX_API gx_projcs *gx_projcs_new_w(const gx_wchar *name, gx_geogcs *geogcs,
                                  gx_projection *projection, gx_parameter **parameters,
                                  gx_unit *unit);
/* Parts, lent; null if invalid. */
GX_API gx_geogcs *gx_projcs_geogcs(const gx_projcs *obj);
GX_API gx_projection *gx_projcs_projection(const gx_projcs *obj);
GX_API gx_unit *gx_projcs_unit(const gx_projcs *obj);
/* Copies the 16 parameter pointers (lent) into `parameters`, after clearing
 * it; 0 for an invalid object or a null array. */
GX_API int gx_projcs_parameters(const gx_projcs *obj, gx_parameter **parameters);
/* gx_projcs_eq without the name of the system itself. */
GX_API int gx_projcs_eqnn(const gx_projcs *a, const gx_projcs *b);
/* The constants a conversion needs: loaded on first use, or here in
 * advance.  Returns the loader's result, 0 when nothing was loaded. */
GX_API int32_t gx_projcs_load_constants(gx_projcs *obj);
GX_API void gx_projcs_unload_constants(gx_projcs *obj);
GX_API int gx_projcs_isconstloaded(const gx_projcs *obj);
/* A copy expressed in other units with the same geometry; a null or invalid
 * unit is not altered.  The copy is fresh: status "new", no code, no authority. */
GX_API gx_projcs *gx_projcs_clone_alterunits(const gx_projcs *obj, const gx_unit *linear_unit,
                                             const gx_unit *angular_unit);
/* Kept in the interface; names of auxiliary sphere types are not resolved:
 * null and -1 whatever the argument. */
GX_API const char *gx_auxiliary_sphere_code_to_name(int32_t code);
GX_API int32_t gx_auxiliary_sphere_name_to_code(const char *name);
/* Fills parameters[16] with new parameters at their table defaults for the
 * projection's factory code (by slot, null elsewhere); returns how many,
 * 0 for an unknown code.  The caller owns them. */
GX_API int gx_parameter_projection_defaults(const gx_projection *projection,
                                            gx_parameter **parameters);

/* ---- method: one way from one geographic CS to another ------------------------------ */
GX_DECLARE_COMMON(gx_method, method)
GX_DECLARE_AUTHORITY_OPS(gx_method, method)
/* With a null forward or inverse, both come from the listed method of that
 * name (none: error 340); a method made here never has a grid loader. */
GX_API gx_method *gx_method_new(const char *name, gx_method_fn forward, gx_method_fn inverse);
GX_API gx_method *gx_method_new_errext(const char *name, gx_method_fn forward,
                                       gx_method_fn inverse, gx_errext *record);
GX_API gx_method *gx_method_new_w(const gx_wchar *name, gx_method_fn forward,
                                  gx_method_fn inverse);
/* The functions; an invalid object gives an identity function returning n. */
GX_API gx_method_fn gx_method_forward(const gx_method *obj);
GX_API gx_method_fn gx_method_inverse(const gx_method *obj);

/* ---- geogtran: a geographic transformation ------------------------------------------ */
GX_DECLARE_COMMON(gx_geogtran, geogtran)
GX_DECLARE_AUTHORITY_OPS(gx_geogtran, geogtran)
/* Takes ownership of both systems, the method and the 16 parameters on
 * success.  Errors: 332 geogcs1, 333 geogcs2, 335 method, 330 parameters. */
GX_API gx_geogtran *gx_geogtran_new(const char *name, gx_geogcs *geogcs1, gx_geogcs *geogcs2,
                                    gx_method *method, gx_parameter **parameters);
GX_API gx_geogtran *gx_geogtran_new_errext(const char *name, gx_geogcs *geogcs1,
                                           gx_geogcs *geogcs2, gx_method *method,
                                           gx_parameter **parameters, gx_errext *record);
GX_API gx_geogtran *gx_geogtran_new_w(const gx_wchar *name, gx_geogcs *geogcs1,
                                      gx_geogcs *geogcs2, gx_method *method,
                                      gx_parameter **parameters);
GX_API gx_geogcs *gx_geogtran_geogcs1(const gx_geogtran *obj);
GX_API gx_geogcs *gx_geogtran_geogcs2(const gx_geogtran *obj);
GX_API gx_method *gx_geogtran_method(const gx_geogtran *obj);
GX_API int gx_geogtran_parameters(const gx_geogtran *obj, gx_parameter **parameters);
/* A grid method's data, read once: a failed load is not tried again until
 * gx_geogtran_unload_constants.  isconstloaded tells that a load was tried. */
GX_API int32_t gx_geogtran_load_constants(gx_geogtran *obj);
GX_API void gx_geogtran_unload_constants(gx_geogtran *obj);
GX_API int gx_geogtran_isconstloaded(const gx_geogtran *obj);
/* The starting set of parameters of a method (by its factory code); as
 * gx_parameter_projection_defaults. */
GX_API int gx_parameter_method_defaults(const gx_method *method, gx_parameter **parameters);

#ifdef __cplusplus
}
#endif

#endif /* GX_OBJECTS_H */
