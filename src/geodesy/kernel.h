// Everything the geodesy kernel offers to the rest of the library: the
// exported functions and the internal helpers that projections, methods and
// horizons build on.
#pragma once

#include "gx_geodesy.h"
#include "geodesy/complex.h"
#include "geodesy/ellipsoid.h"
#include "geodesy/elliptic.h"
#include "geodesy/latitudes.h"
#include "geodesy/roots.h"
