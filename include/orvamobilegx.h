/*
 * orvamobilegx.h - the whole interface of the ORVAMobileGX library.
 * Compiles as C99 and as C++.
 *
 * Threads.  The library starts no threads and takes no locks.
 *  - Process-wide state is two settings only: the message hook
 *    (gx_msg_setrtn) and the data home (gx_datahome_setdir / _setfunc, or
 *    GXDATAHOME).  Set them before threads use the library; changing them
 *    while another thread converts or loads is a race.
 *  - Making objects (any _new, reading WKT, cloning, deleting) is re-entrant:
 *    threads may do it at once on objects of their own.
 *  - A gx_projcs may be shared between threads for conversions once
 *    gx_projcs_load_constants has returned, and a gx_geogtran once
 *    gx_geogtran_load_constants has; until then the first conversion writes
 *    the constants into the object.  A shared object must not be changed
 *    (parameters set, constants unloaded, deleted) while others use it.
 *  - Asking an object for its authority may make that authority on first
 *    demand: do it before sharing, or from one thread.
 */
#ifndef ORVAMOBILEGX_H
#define ORVAMOBILEGX_H

#include "gx_frame.h"
#include "gx_objects.h"
#include "gx_geodesy.h"
#include "gx_projections.h"
#include "gx_horizon.h"
#include "gx_convert.h"
#include "gx_methods.h"
#include "gx_gridref.h"
#include "gx_adjust.h"

#endif /* ORVAMOBILEGX_H */
