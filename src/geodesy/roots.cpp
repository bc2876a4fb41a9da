// Brent's zero-in on the interval [0, pi/2]: inverse quadratic or secant
// steps while they make progress, bisection otherwise.
#include "geodesy/roots.h"

double gx_root_brent(const void* context, gx_root_function f) {
  return gx_brent_search([context, f](double angle) { return f(angle, context); });
}
