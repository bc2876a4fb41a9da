// Brent's bracketing root finder for the auxiliary angles of the
// pseudocylindrical projections.
#pragma once

// A function of one angle in [0, pi/2]; the context carries its constants.
using gx_root_function = double (*)(double angle, const void* context);

// A root of f on [0, pi/2].  f(0) and f(pi/2) must have opposite signs (or one
// of them be 0); that is not checked.  The angle tolerance is pi/2 * GX_EPS,
// and |f| <= GX_EPS also ends the search.
double gx_root_brent(const void* context, gx_root_function f);
