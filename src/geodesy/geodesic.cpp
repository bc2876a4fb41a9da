// Geodesics: Vincenty's inverse and direct solutions on the ellipsoid, his
// iteration on sin(alpha) for nearly antipodal points, and great circles on
// the sphere.
//
// Every problem starts from an origin (geodesic.h): the body's derived values
// and the sine and cosine of the first point's latitude (its reduced latitude
// on the ellipsoid), taken once.  What depends only on the body or on the
// pair of points is computed before the loops; inside them, once an iteration
// has nearly settled, sines, cosines and arcs come from the last ones that the
// runtime evaluated, by the sum formulas (angles near a settled value, below).
#include "geodesy/geodesic.h"

#include <cmath>

namespace {

constexpr int kVincentyPasses = 5000;       // the loop ends after pass 5001
constexpr int kAntipodalSwitchPasses = 30;  // |lambda| > pi after this many: antipodal
constexpr int kAntipodalPasses = 71;
// The direct solution has no cap of its own; this one only guards against a
// run that never settles.
constexpr int kDirectSafetyCap = 10000;

// cos of exactly +-pi/2 and sin of exactly +-pi are 0, not the runtime's
// 6e-17 and 1.2e-16: poles and antipodes then give exact zeros.  Every sine
// and cosine of an angle in this file keeps these zeros.
double exact_cos(double x) { return std::fabs(x) == GX_HALFPI ? 0.0 : std::cos(x); }
double exact_sin(double x) { return std::fabs(x) == GX_PI ? 0.0 : std::sin(x); }

struct SinCos {
  double sin, cos;
};

// exact_sin and exact_cos of one angle: the runtime's sine and cosine taken
// unconditionally (the compiler makes them one call), the exact zeros after.
SinCos exact_sincos(double x) {
  SinCos r{std::sin(x), std::cos(x)};
  double m = std::fabs(x);
  if (m == GX_PI) r.sin = 0.0;
  if (m == GX_HALFPI) r.cos = 0.0;
  return r;
}

// ---- angles near a settled value --------------------------------------------
//
// Once an iteration has nearly settled, each pass moves its angle by less
// than kNearStep.  Its sine and cosine, or its arctangent, then come from those
// of the last angle that the runtime evaluated (the anchor) by the sum
// formulas and series of a few terms, which hold to well below a unit in the
// last place over such a step.  Every pass steps from the anchor, not from
// the pass before, so the rounding of one pass does not carry into the next.
constexpr double kNearStep = 1.0 / 256;

struct SinCosAnchor {
  double angle = NAN;  // none yet: the first call evaluates
  SinCos at{NAN, NAN};
};

// exact_sincos(x), from the anchor when x lies within kNearStep of it;
// otherwise x becomes the anchor.  With |d| at most 1/256, the first terms
// that the series of sin d and cos d leave out are below 1e-17.
inline SinCos sincos_near(SinCosAnchor& anchor, double x) {
  double d = x - anchor.angle;
  if (d == 0.0) return anchor.at;
  if (!(std::fabs(d) <= kNearStep)) {
    anchor = SinCosAnchor{x, exact_sincos(x)};
    return anchor.at;
  }
  double d2 = d * d;
  double sin_d = d - d * d2 * (1.0 / 6.0 - d2 * (1.0 / 120.0));
  double cos_d = 1.0 - d2 * (0.5 - d2 * (1.0 / 24.0));
  SinCos r{anchor.at.sin * cos_d + anchor.at.cos * sin_d,
           anchor.at.cos * cos_d - anchor.at.sin * sin_d};
  double m = std::fabs(x);
  if (m == GX_PI) r.sin = 0.0;
  if (m == GX_HALFPI) r.cos = 0.0;
  return r;
}

struct ArcAnchor {
  double angle = NAN;
  double sin = NAN, cos = NAN;
};

// atan2(s, c), from the anchor when the arc lies within kNearStep of it;
// otherwise the runtime's atan2 and a new anchor.  Both (s, c) and the
// anchor's pair are of unit length to rounding, so s c_a - c s_a is the sine
// of the step and c c_a + s s_a its cosine; the step is the arcsine of that
// sine, by its series, when the cosine is positive.
double arc_near(ArcAnchor& anchor, double s, double c) {
  double sin_step = s * anchor.cos - c * anchor.sin;
  double cos_step = c * anchor.cos + s * anchor.sin;
  if (std::fabs(sin_step) <= kNearStep && cos_step > 0.0) {
    double x2 = sin_step * sin_step;
    return anchor.angle +
           sin_step * (1.0 + x2 * (1.0 / 6.0 + x2 * (3.0 / 40.0 + x2 * (5.0 / 112.0))));
  }
  anchor = ArcAnchor{std::atan2(s, c), s, c};
  return anchor.angle;
}

// gx_delta, without its fmod for an angle within one turn either way: fmod
// returns such an angle unchanged, so the results are the same bits.
double wrap(double angle) {
  double m = std::fabs(angle);
  if (m <= GX_PI) return angle;
  if (m < GX_TWOPI) return angle < 0.0 ? angle + GX_TWOPI : angle - GX_TWOPI;
  return gx_delta(angle);
}

// gx_eq's test, inline: the loops take it once a pass.
bool equal(double x, double y) {
  return std::fabs(x - y) <= (1.0 + (std::fabs(x) + std::fabs(y)) / 2.0) * GX_EPS;
}

bool at_pole(double phi) { return equal(std::fabs(phi), GX_HALFPI); }

// Sine and cosine of the reduced latitude U of phi, tan U = sqrt(1 - e2) tan phi,
// from one sine and cosine of phi: with s = sin phi, c = cos phi and
// h = sqrt(c^2 + (root s)^2), sin U = root s / h and cos U = c / h; h lies
// between root and 1, so nothing overflows at the poles.  As gx_phi_to_eta
// does, a latitude within gx_eq of a pole stands for itself (cos U of exactly
// +-pi/2 is exactly 0), a zero sine is +0, and a latitude outside
// [-pi/2, pi/2] is folded first: that rare case goes through gx_phi_to_eta.
SinCos reduced_latitude(double e2, double root, double phi) {
  if (!(std::fabs(phi) <= GX_HALFPI)) return exact_sincos(gx_phi_to_eta(e2, phi));
  SinCos p = exact_sincos(phi);
  if (at_pole(phi)) return p;
  double rs = root * p.sin;
  double h = std::sqrt(p.cos * p.cos + rs * rs);
  SinCos u{rs / h, p.cos / h};
  if (u.sin == 0.0) u.sin = 0.0;
  return u;
}

// Sines and cosines of the latitudes of both points (reduced latitudes on the
// ellipsoid, geodetic on the sphere), and the products that every pass reads.
struct Latitudes {
  double sin1, cos1, sin2, cos2;
  double sin1sin2, cos1cos2, cos1sin2, sin1cos2;
};

Latitudes latitudes_of(double sin1, double cos1, SinCos second) {
  double sin2 = second.sin, cos2 = second.cos;
  return Latitudes{sin1, cos1, sin2, cos2, sin1 * sin2, cos1 * cos2, cos1 * sin2, sin1 * cos2};
}

// The arc between the two points on the auxiliary sphere for longitude
// difference lambda: sin(sigma) times the sine (east) and the cosine (north)
// of the azimuth at the first point.
struct Arc {
  double east, north;
};

Arc arc_of(const Latitudes& u, SinCos lambda) {
  return Arc{u.cos2 * lambda.sin, u.cos1sin2 - u.sin1cos2 * lambda.cos};
}

double arc_sine(Arc arc) { return std::sqrt(arc.east * arc.east + arc.north * arc.north); }

// Vincenty's A and B of u^2 = cos^2(alpha) e'^2, with the fractions of B that
// Delta sigma reads.
struct Series {
  double u2, A, B, B4, B6;
};

Series series_of(double cos2_alpha, double ep2) {
  double u2 = cos2_alpha * ep2;
  double B = (((74.0 - 47.0 * u2) * u2 - 128.0) * u2 + 256.0) * u2 * 0.0009765625;
  double A = 1.0 + ((((320.0 - 175.0 * u2) * u2 - 768.0) * u2) + 4096.0) * u2 * 6.103515625e-05;
  return Series{u2, A, B, B / 4.0, B / 6.0};
}

// Delta sigma: the difference between the arc on the auxiliary sphere and
// the scaled geodesic length.
double delta_sigma(const Series& s, double sin_sigma, double cos_sigma, double cos_2sigma_m) {
  double c2m = cos_2sigma_m * cos_2sigma_m;
  return s.B * sin_sigma *
         (cos_2sigma_m + s.B4 * (cos_sigma * (2.0 * c2m - 1.0) -
                                 s.B6 * cos_2sigma_m * (4.0 * sin_sigma * sin_sigma - 3.0) *
                                     (4.0 * c2m - 3.0)));
}

double vincenty_c(double cos2_alpha, double f) {
  return ((4.0 - 3.0 * cos2_alpha) * f + 4.0) * cos2_alpha * f / 16.0;
}

// sigma + C sin sigma (cos 2sigma_m + C cos sigma (2 cos^2 2sigma_m - 1)): the
// arc whose flattening term separates the ellipsoid's longitude from the
// auxiliary sphere's.
double longitude_arc(double C, double sigma, double sin_sigma, double cos_sigma, double cos_2sigma_m) {
  return sigma + C * sin_sigma *
                     (cos_2sigma_m + C * cos_sigma * (2.0 * cos_2sigma_m * cos_2sigma_m - 1.0));
}

// (cos(asin(x)))^2 without the trigonometry, but where |x| is exactly 1: there
// the runtime's asin gives the double nearest pi/2, whose cosine is about
// 6.1e-17, not 0.  That tiny square is what keeps a line along the equator
// finite: cos 2sigma_m divides 2 sin U1 sin U2 (exactly 0 there) by it, and
// the terms it feeds vanish by their product with C, as they should; a 0
// would make them 0/0.
double cos2_of_sin(double x) {
  double c2 = (1.0 - x) * (1.0 + x);
  if (c2 != 0.0) return c2;
  double c = std::cos(std::asin(x));
  return c * c;
}

// cos(alpha) from sin(alpha): cos(asin(x)), exact where |x| is 1 as above.
double cos_of_sin(double x) {
  double c2 = (1.0 - x) * (1.0 + x);
  return c2 != 0.0 ? std::sqrt(c2) : std::cos(std::asin(x));
}

// Azimuth at a pole: the other point's longitude in the south, pi minus it in
// the north.
double pole_azimuth(double phi, double other_lambda) {
  return phi < 0.0 ? other_lambda : gx_delta(GX_PI - other_lambda);
}

double back_azimuth(const Latitudes& u, SinCos lambda) {
  return wrap(std::atan2(u.cos1 * lambda.sin, lambda.cos * u.sin2 * u.cos1 - u.sin1cos2) + GX_PI);
}

// The two points of an inverse problem and what the caller wants back.
struct Inverse {
  const gx_geodesic_origin& origin;
  double lambda2, phi2;
  double L;  // longitude difference wrapped into [-pi, pi]
  double* distance;
  double* azimuth12;
  double* azimuth21;
};

void store(double* out, double value) {
  if (out) *out = value;
}

bool wants_azimuths(const Inverse& in) { return in.azimuth12 || in.azimuth21; }

// Azimuths by the general formulas at the final auxiliary longitude (its
// sine and cosine in l), or by the pole rule where a point is at a pole.
void store_azimuths(const Inverse& in, const Latitudes& u, SinCos l) {
  if (in.azimuth12) {
    Arc arc = arc_of(u, l);
    *in.azimuth12 = in.origin.pole ? pole_azimuth(in.origin.phi1, in.lambda2)
                                   : std::atan2(arc.east, arc.north);
  }
  if (in.azimuth21) {
    *in.azimuth21 = at_pole(in.phi2) ? pole_azimuth(in.phi2, in.origin.lambda1) : back_azimuth(u, l);
  }
}

// ---- sphere ----------------------------------------------------------------

void sphere_distance(const Inverse& in) {
  const gx_geodesic_origin& o = in.origin;
  Latitudes u = latitudes_of(o.sin1, o.cos1, exact_sincos(in.phi2));
  if (in.distance) {
    double half_dphi = exact_sin((in.phi2 - o.phi1) / 2.0);
    double half_dlam = exact_sin(in.L / 2.0);
    double haversine = half_dphi * half_dphi + u.cos1 * u.cos2 * (half_dlam * half_dlam);
    // Rounding can lift the haversine of antipodes just above 1.
    *in.distance = 2.0 * o.a * std::asin(std::sqrt(std::fmin(haversine, 1.0)));
  }
  if (wants_azimuths(in)) store_azimuths(in, u, exact_sincos(in.L));
}

// ---- nearly antipodal points ---------------------------------------------------

// Iterates on sin(alpha), with lambda the longitude difference on the
// auxiliary sphere, where Vincenty's iteration on lambda does not converge.
void antipodal_distance(const Inverse& in, const Latitudes& u) {
  const gx_geodesic_origin& o = in.origin;
  double f = o.f, f2 = f * f, f3 = f2 * f;
  double lambda = in.L >= 0.0 ? GX_PI : -GX_PI;
  double cos_alpha = 1.0, sin_alpha = 0.0;
  double cos_sigma = u.sin1sin2 - u.cos1cos2;
  // For exact antipodes cos sigma is -(sin^2 U1 + cos^2 U1), which rounding
  // can carry just below -1; the arc is then pi, not the NaN of acos.
  double sigma = std::acos(std::fmax(cos_sigma, -1.0));
  double sin_sigma = exact_sin(sigma);
  double p = 1.0 + f + f2, q = 1.0 + 2.25 * f;
  double two_sin1sin2 = 2.0 * u.sin1sin2;
  bool symmetric = equal(o.phi1 + in.phi2, 0.0);
  double c2 = 1.0, D0 = 0.0;
  for (int pass = 1;; ++pass) {
    c2 = cos_alpha * cos_alpha;
    double c4 = c2 * c2;
    double t1 = p * c2 * f, t2 = q * c4 * f2, t3 = c4 * c2 * f3;
    double A0 = 1.0 - t1 / 4.0 + 0.1875 * t2 - 0.1953125 * t3;
    double B0 = t1 / 4.0 - t2 / 4.0 + 0.29296875 * t3;
    double C0 = t2 * 0.03125 - 0.05859375 * t3;
    D0 = t3 * 0.006510416666666667;
    double cos_2sigma_m = cos_sigma - two_sin1sin2 / c2;
    double w = std::acos(cos_2sigma_m);
    double next_sin_alpha;
    if (symmetric) {
      next_sin_alpha = gx_delta(GX_PI - in.L) / (A0 * f * GX_PI);
    } else {
      double arc = A0 * sigma + B0 * cos_2sigma_m * sin_sigma +
                   C0 * exact_sin(2.0 * sigma) * exact_cos(2.0 * w) +
                   D0 * exact_sin(3.0 * sigma) * exact_cos(3.0 * w);
      next_sin_alpha = gx_delta(lambda - in.L) / (arc * f);
    }
    double sin_lambda = next_sin_alpha * sin_sigma / u.cos1cos2;
    if (std::fabs(in.L) > GX_HALFPI) {
      lambda = (sin_lambda >= 0.0 ? GX_PI : -GX_PI) - std::asin(sin_lambda);
    } else {
      lambda = std::asin(sin_lambda);
    }
    sin_sigma = arc_sine(arc_of(u, exact_sincos(lambda)));
    sigma = GX_PI - std::asin(std::fabs(sin_sigma));
    cos_sigma = exact_cos(sigma);
    cos_alpha = cos_of_sin(next_sin_alpha);
    bool settled = equal(sin_alpha, next_sin_alpha);
    sin_alpha = next_sin_alpha;
    if (settled || pass >= kAntipodalPasses) break;
  }

  if (in.distance) {
    Series s = series_of(c2, o.ep2);
    if (symmetric) {
      *in.distance = s.A * o.b * GX_PI;
    } else {
      double u2 = s.u2;
      double cos_2sigma_m = cos_sigma - two_sin1sin2 / c2;
      double w = std::acos(cos_2sigma_m);
      double term1 = ((((35.0 * u2 - 60.0) * u2 + 128.0) * u2 - 512.0) * u2 * 0.25) *
                     cos_2sigma_m * sin_sigma;
      double term2 = ((5.0 * u2 - 4.0) * u2 * 0.00016276041666666666) * u2 * u2 *
                     exact_sin(2.0 * sigma) * exact_cos(2.0 * w);
      double term3 = -7.62939453125e-05 * (u2 * u2 * u2 * u2) * exact_sin(4.0 * sigma) *
                     exact_cos(4.0 * w);
      double term4 = D0 * exact_sin(3.0 * sigma) * exact_cos(3.0 * w);
      *in.distance = o.b * (s.A * sigma + term1 + term2 + term3 + term4);
    }
  }

  if (!in.azimuth12 && !in.azimuth21) return;
  if (std::fabs(o.phi1) <= GX_EPS && std::fabs(in.phi2) <= GX_EPS) {
    // Both on the equator: the azimuth is alpha itself, folded into [0, pi/2]
    // and signed east or west by L.
    double azimuth = std::acos(std::sqrt(1.0 - sin_alpha * sin_alpha));
    store(in.azimuth12, in.L < 0.0 ? -azimuth : azimuth);
    store(in.azimuth21, in.L >= 0.0 ? -azimuth : azimuth);
    return;
  }
  SinCos l = exact_sincos(lambda);
  if (in.azimuth12) {
    if (o.pole) {
      *in.azimuth12 = pole_azimuth(o.phi1, in.lambda2);
    } else {
      double s = sin_alpha / u.cos1;
      double c = std::sqrt(1.0 - s * s);
      bool southward = u.cos1sin2 - l.cos * u.sin1cos2 < 0.0;
      *in.azimuth12 = std::atan2(s, southward ? -c : c);
    }
  }
  if (in.azimuth21) {
    *in.azimuth21 = at_pole(in.phi2) ? pole_azimuth(in.phi2, o.lambda1) : back_azimuth(u, l);
  }
}

// ---- Vincenty's inverse -----------------------------------------------------------

void ellipsoid_distance(const Inverse& in) {
  const gx_geodesic_origin& o = in.origin;
  Latitudes u = latitudes_of(o.sin1, o.cos1, reduced_latitude(o.e2, o.root, in.phi2));
  double two_sin1sin2 = 2.0 * u.sin1sin2;
  double lambda = in.L;
  double sigma, sin_sigma, cos_sigma, cos2_alpha, cos_2sigma_m;
  SinCosAnchor longitude;
  ArcAnchor arc_anchor;
  for (int pass = 1;; ++pass) {
    SinCos l = sincos_near(longitude, lambda);
    Arc arc = arc_of(u, l);
    sin_sigma = arc_sine(arc);
    cos_sigma = u.sin1sin2 + u.cos1cos2 * l.cos;
    if (sin_sigma == 0.0) return antipodal_distance(in, u);
    sigma = arc_near(arc_anchor, sin_sigma, cos_sigma);
    double sin_alpha = (arc.east / sin_sigma) * u.cos1;
    cos2_alpha = cos2_of_sin(sin_alpha);
    cos_2sigma_m = cos_sigma - two_sin1sin2 / cos2_alpha;
    double C = vincenty_c(cos2_alpha, o.f);
    double next = in.L + longitude_arc(C, sigma, sin_sigma, cos_sigma, cos_2sigma_m) *
                             ((1.0 - C) * sin_alpha * o.f);
    if (std::fabs(next) > GX_PI && pass > kAntipodalSwitchPasses) return antipodal_distance(in, u);
    bool settled = equal(lambda, next);
    // A NaN (from a NaN argument) never settles and every later pass would
    // give NaN again: stopping here returns the same NaNs.
    bool undefined = std::isnan(next);
    lambda = next;
    if (settled || undefined || pass > kVincentyPasses) break;
  }
  if (in.distance) {
    Series s = series_of(cos2_alpha, o.ep2);
    *in.distance = o.b * s.A * (sigma - delta_sigma(s, sin_sigma, cos_sigma, cos_2sigma_m));
  }
  if (wants_azimuths(in)) store_azimuths(in, u, sincos_near(longitude, lambda));
}

// ---- direct problem ------------------------------------------------------------------

// `azimuth` is read by the pole rule alone; everything else reads its sine
// and cosine, `az`.
void sphere_coordinate(const gx_geodesic_origin& o, double lambda1, double distance,
                       double azimuth, SinCos az, double* lambda2, double* phi2) {
  double sigma = distance / o.a;
  SinCos sg = exact_sincos(sigma);
  double sin_phi = o.sin1, cos_phi = o.cos1;
  if (lambda2) {
    if (o.pole && equal(sigma, GX_PI)) {
      *lambda2 = o.phi1 < 0.0 ? azimuth : gx_delta(GX_PI - azimuth);
    } else {
      *lambda2 = wrap(std::atan2(sg.sin * az.sin, sg.cos * cos_phi - sg.sin * sin_phi * az.cos) +
                      lambda1);
    }
  }
  if (phi2) {
    // Rounding can carry the sine of the end latitude just past +-1.
    double sine = sg.sin * cos_phi * az.cos + sg.cos * sin_phi;
    *phi2 = std::asin(std::fmax(-1.0, std::fmin(1.0, sine)));
  }
}

// Sine and cosine of 2 sigma1, sigma1 = atan2(tan U1, cos az) the arc from
// the equator to the first point, without the arctangent.  Both depend on
// t = tan sigma1 alone (a half turn in sigma1 is a whole turn in 2 sigma1):
// sin 2x = 2t / (1 + t^2), cos 2x = (1 - t^2) / (1 + t^2), taken with the
// cotangent in place of t where the tangent exceeds 1 (cos 2x then changes
// sign).  A zero tan U1 gives sigma1 of 0 or pi: sin 0, cos 1.
SinCos double_start_arc(double sin_u1, double cos_u1, double cos_az) {
  double y = sin_u1, x = cos_u1 * cos_az;
  if (y == 0.0) return SinCos{0.0, 1.0};
  bool steep = std::fabs(y) > std::fabs(x);
  double t = steep ? x / y : y / x;
  double tt = t * t;
  double k = 1.0 / (1.0 + tt);
  double c = (1.0 - tt) * k;
  return SinCos{2.0 * t * k, steep ? -c : c};
}

void ellipsoid_coordinate(const gx_geodesic_origin& o, double lambda1, double distance,
                          SinCos az, double* lambda2, double* phi2) {
  double sin_u1 = o.sin1, cos_u1 = o.cos1;
  SinCos two_sigma1 = double_start_arc(sin_u1, cos_u1, az.cos);
  double sin_alpha = cos_u1 * az.sin;
  double cos2_alpha = 1.0 - sin_alpha * sin_alpha;
  Series s = series_of(cos2_alpha, o.ep2);
  double first = distance / (s.A * o.b);
  double sigma = first;
  SinCosAnchor arc;
  for (int pass = 1;; ++pass) {
    SinCos sg = sincos_near(arc, sigma);
    // cos 2sigma_m = cos(2 sigma1 + sigma), by the sum formula.
    double cos_2sigma_m = two_sigma1.cos * sg.cos - two_sigma1.sin * sg.sin;
    double next = first + delta_sigma(s, sg.sin, sg.cos, cos_2sigma_m);
    bool settled = equal(sigma, next);
    sigma = next;
    // A NaN never settles, and every later pass would give NaN again.
    if (settled || std::isnan(sigma) || pass == kDirectSafetyCap) break;
  }
  SinCos sg = sincos_near(arc, sigma);
  double cos_2sigma_m = two_sigma1.cos * sg.cos - two_sigma1.sin * sg.sin;
  if (lambda2) {
    double lambda = std::atan2(sg.sin * az.sin, cos_u1 * sg.cos - sin_u1 * sg.sin * az.cos);
    double C = vincenty_c(cos2_alpha, o.f);
    *lambda2 = wrap(lambda1 + lambda - (1.0 - C) * o.f * sin_alpha *
                                          longitude_arc(C, sigma, sg.sin, sg.cos, cos_2sigma_m));
  }
  if (phi2) {
    double across = sin_u1 * sg.sin - cos_u1 * sg.cos * az.cos;
    *phi2 = std::atan2(sin_u1 * sg.cos + cos_u1 * sg.sin * az.cos,
                       (1.0 - o.f) * std::sqrt(sin_alpha * sin_alpha + across * across));
  }
}

// The direct problem at a wrapped azimuth with its sine and cosine at hand.
void direct(const gx_geodesic_origin& origin, double distance, double azimuth, SinCos az,
            double* lambda2, double* phi2) {
  // From a pole every meridian leads away: the start's longitude counts as 0.
  double lambda1 = origin.pole ? 0.0 : origin.lambda1;
  if (origin.sphere) {
    sphere_coordinate(origin, lambda1, distance, azimuth, az, lambda2, phi2);
  } else {
    ellipsoid_coordinate(origin, lambda1, distance, az, lambda2, phi2);
  }
}

}  // namespace

// ---- origins and the exported functions ---------------------------------------------------

gx_geodesic_origin gx_geodesic_origin_of(double a, double e2, double lambda1, double phi1) {
  gx_geodesic_origin o;
  o.a = a;
  o.e2 = e2;
  o.root = std::sqrt(1.0 - e2);
  o.f = 1.0 - o.root;
  o.b = (1.0 - o.f) * a;
  o.ep2 = e2 / (1.0 - e2);
  o.lambda1 = lambda1;
  o.phi1 = phi1;
  o.sphere = e2 < GX_EPS;
  o.pole = at_pole(phi1);
  SinCos first = o.sphere ? exact_sincos(phi1) : reduced_latitude(e2, o.root, phi1);
  o.sin1 = first.sin;
  o.cos1 = first.cos;
  return o;
}

void gx_geodesic_distance_from(const gx_geodesic_origin& origin, double lambda2, double phi2,
                               double* distance, double* azimuth12, double* azimuth21) {
  Inverse in{origin, lambda2, phi2, wrap(lambda2 - origin.lambda1), distance, azimuth12, azimuth21};
  bool same_point = std::fabs(in.L) <= GX_EPS && equal(origin.phi1, phi2);
  bool same_pole = origin.pole && equal(origin.phi1, phi2);
  if (same_point || same_pole) {
    store(distance, 0.0);
    store(azimuth12, 0.0);
    store(azimuth21, 0.0);
    return;
  }
  if (origin.sphere) {
    sphere_distance(in);
  } else {
    ellipsoid_distance(in);
  }
}

void gx_geodesic_coordinate_from(const gx_geodesic_origin& origin, double distance,
                                 double azimuth, double* lambda2, double* phi2) {
  azimuth = wrap(azimuth);
  direct(origin, distance, azimuth, exact_sincos(azimuth), lambda2, phi2);
}

void gx_geodesic_coordinate_toward(const gx_geodesic_origin& origin, double distance,
                                   double east, double north, double* lambda2, double* phi2) {
  // The zeros that exact_sin and exact_cos give at atan2(east, north): cos of
  // +-pi/2 is +0, and so is sin of +-pi.
  if (north == 0.0) north = 0.0;
  if (east == 0.0 && north < 0.0) east = 0.0;
  // Only the sphere's pole rule reads the angle itself.
  double azimuth = origin.sphere ? std::atan2(east, north) : 0.0;
  direct(origin, distance, azimuth, SinCos{east, north}, lambda2, phi2);
}

void gx_geodesic_distance(double a, double e2, double lambda1, double phi1, double lambda2,
                          double phi2, double* distance, double* azimuth12, double* azimuth21) {
  gx_geodesic_distance_from(gx_geodesic_origin_of(a, e2, lambda1, phi1), lambda2, phi2, distance,
                            azimuth12, azimuth21);
}

void gx_geodesic_coordinate(double a, double e2, double lambda1, double phi1, double distance,
                            double azimuth, double* lambda2, double* phi2) {
  gx_geodesic_coordinate_from(gx_geodesic_origin_of(a, e2, lambda1, phi1), distance, azimuth,
                              lambda2, phi2);
}

int32_t gx_geodesic_distance_n(double a, double e2, int32_t n, const double* from, const double* to,
                               double* distance, double* azimuth12, double* azimuth21) {
  if (n < 1 || from == nullptr || to == nullptr) return 0;
  for (int32_t i = 0; i < n; ++i) {
    gx_geodesic_distance(a, e2, from[2 * i], from[2 * i + 1], to[2 * i], to[2 * i + 1],
                         distance ? distance + i : nullptr, azimuth12 ? azimuth12 + i : nullptr,
                         azimuth21 ? azimuth21 + i : nullptr);
  }
  return n;
}

int32_t gx_geodesic_coordinate_n(double a, double e2, int32_t n, const double* from,
                                 const double* distance, const double* azimuth, double* to) {
  if (n < 1 || from == nullptr || distance == nullptr || azimuth == nullptr || to == nullptr) return 0;
  for (int32_t i = 0; i < n; ++i) {
    gx_geodesic_coordinate(a, e2, from[2 * i], from[2 * i + 1], distance[i], azimuth[i], &to[2 * i],
                           &to[2 * i + 1]);
  }
  return n;
}
