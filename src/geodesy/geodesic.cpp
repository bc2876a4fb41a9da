// Geodesics: Vincenty's inverse and direct solutions on the ellipsoid, his
// iteration on sin(alpha) for nearly antipodal points, and great circles on
// the sphere.
#include <cmath>

#include "geodesy/ellipsoid.h"

namespace {

constexpr int kVincentyPasses = 5000;       // the loop ends after pass 5001
constexpr int kAntipodalSwitchPasses = 30;  // |lambda| > pi after this many: antipodal
constexpr int kAntipodalPasses = 71;
// The direct solution has no cap of its own; only a NaN keeps it going.
constexpr int kDirectSafetyCap = 10000;

// cos of exactly +-pi/2 and sin of exactly +-pi are 0, not the runtime's
// 6e-17 and 1.2e-16: poles and antipodes then give exact zeros.  Every sine
// and cosine of this file goes through these two.
double exact_cos(double x) { return std::fabs(x) == GX_HALFPI ? 0.0 : std::cos(x); }
double exact_sin(double x) { return std::fabs(x) == GX_PI ? 0.0 : std::sin(x); }

bool at_pole(double phi) { return gx_eq(std::fabs(phi), GX_HALFPI) != 0; }

struct Ellipsoid {
  double a, f, b, ep2;  // axis, flattening, minor axis, second eccentricity squared
};

Ellipsoid ellipsoid_of(double a, double e2) {
  double f = 1.0 - std::sqrt(1.0 - e2);
  return Ellipsoid{a, f, (1.0 - f) * a, e2 / (1.0 - e2)};
}

// Sines and cosines of the latitudes of both points (reduced latitudes on the
// ellipsoid, geodetic on the sphere).
struct Latitudes {
  double sin1, cos1, sin2, cos2;
};

Latitudes latitudes_of(double u1, double u2) {
  return Latitudes{exact_sin(u1), exact_cos(u1), exact_sin(u2), exact_cos(u2)};
}

// sin(sigma) of the arc between the two points for longitude difference
// lambda on the auxiliary sphere.
double arc_sine(const Latitudes& u, double sin_lambda, double cos_lambda) {
  double east = u.cos2 * sin_lambda;
  double north = u.cos1 * u.sin2 - u.sin1 * u.cos2 * cos_lambda;
  return std::sqrt(east * east + north * north);
}

// Vincenty's A and B of u^2 = cos^2(alpha) e'^2.
struct Series {
  double u2, A, B;
};

Series series_of(double cos2_alpha, double ep2) {
  double u2 = cos2_alpha * ep2;
  double B = (((74.0 - 47.0 * u2) * u2 - 128.0) * u2 + 256.0) * u2 * 0.0009765625;
  double A = 1.0 + ((((320.0 - 175.0 * u2) * u2 - 768.0) * u2) + 4096.0) * u2 * 6.103515625e-05;
  return Series{u2, A, B};
}

// Delta sigma: the difference between the arc on the auxiliary sphere and
// the scaled geodesic length.
double delta_sigma(double B, double sin_sigma, double cos_sigma, double cos_2sigma_m) {
  double c2m = cos_2sigma_m * cos_2sigma_m;
  return B * sin_sigma *
         (cos_2sigma_m + (B / 4.0) * (cos_sigma * (2.0 * c2m - 1.0) -
                                      (B / 6.0) * cos_2sigma_m * (4.0 * sin_sigma * sin_sigma - 3.0) *
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

// Azimuth at a pole: the other point's longitude in the south, pi minus it in
// the north.
double pole_azimuth(double phi, double other_lambda) {
  return phi < 0.0 ? other_lambda : gx_delta(GX_PI - other_lambda);
}

double forward_azimuth(const Latitudes& u, double sin_lambda, double cos_lambda) {
  return std::atan2(u.cos2 * sin_lambda, u.cos1 * u.sin2 - u.sin1 * u.cos2 * cos_lambda);
}

double back_azimuth(const Latitudes& u, double sin_lambda, double cos_lambda) {
  return gx_delta(std::atan2(u.cos1 * sin_lambda, cos_lambda * u.sin2 * u.cos1 - u.cos2 * u.sin1) +
                  GX_PI);
}

// The two points of an inverse problem and what the caller wants back.
struct Inverse {
  double lambda1, phi1, lambda2, phi2;
  double L;  // longitude difference wrapped into [-pi, pi]
  double* distance;
  double* azimuth12;
  double* azimuth21;
};

void store(double* out, double value) {
  if (out) *out = value;
}

// Azimuths by the general formulas at the final auxiliary longitude, or by the
// pole rule where a point is at a pole.
void store_azimuths(const Inverse& in, const Latitudes& u, double lambda) {
  if (!in.azimuth12 && !in.azimuth21) return;
  double sin_lambda = exact_sin(lambda), cos_lambda = exact_cos(lambda);
  if (in.azimuth12) {
    *in.azimuth12 = at_pole(in.phi1) ? pole_azimuth(in.phi1, in.lambda2)
                                     : forward_azimuth(u, sin_lambda, cos_lambda);
  }
  if (in.azimuth21) {
    *in.azimuth21 = at_pole(in.phi2) ? pole_azimuth(in.phi2, in.lambda1)
                                     : back_azimuth(u, sin_lambda, cos_lambda);
  }
}

// ---- sphere ----------------------------------------------------------------

void sphere_distance(const Inverse& in, double a) {
  Latitudes u = latitudes_of(in.phi1, in.phi2);
  if (in.distance) {
    double half_dphi = exact_sin((in.phi2 - in.phi1) / 2.0);
    double half_dlam = exact_sin(in.L / 2.0);
    double haversine = half_dphi * half_dphi + u.cos1 * u.cos2 * (half_dlam * half_dlam);
    // Rounding can lift the haversine of antipodes just above 1.
    *in.distance = 2.0 * a * std::asin(std::sqrt(std::fmin(haversine, 1.0)));
  }
  store_azimuths(in, u, in.L);
}

// ---- nearly antipodal points ---------------------------------------------------

// Iterates on sin(alpha), with lambda the longitude difference on the
// auxiliary sphere, where Vincenty's iteration on lambda does not converge.
void antipodal_distance(const Inverse& in, const Ellipsoid& e, const Latitudes& u) {
  double f = e.f, f2 = f * f, f3 = f2 * f;
  double lambda = in.L >= 0.0 ? GX_PI : -GX_PI;
  double cos_alpha = 1.0, sin_alpha = 0.0;
  double cos_sigma = u.sin1 * u.sin2 - u.cos1 * u.cos2;
  double sigma = std::acos(cos_sigma);
  double sin_sigma = exact_sin(sigma);
  double p = 1.0 + f + f2, q = 1.0 + 2.25 * f;
  bool symmetric = gx_eq(in.phi1 + in.phi2, 0.0) != 0;
  double c2 = 1.0, D0 = 0.0;
  for (int pass = 1;; ++pass) {
    c2 = cos_alpha * cos_alpha;
    double c4 = c2 * c2;
    double t1 = p * c2 * f, t2 = q * c4 * f2, t3 = c4 * c2 * f3;
    double A0 = 1.0 - t1 / 4.0 + 0.1875 * t2 - 0.1953125 * t3;
    double B0 = t1 / 4.0 - t2 / 4.0 + 0.29296875 * t3;
    double C0 = t2 * 0.03125 - 0.05859375 * t3;
    D0 = t3 * 0.006510416666666667;
    double cos_2sigma_m = cos_sigma - 2.0 * u.sin1 * u.sin2 / c2;
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
    double sin_lambda = next_sin_alpha * sin_sigma / (u.cos1 * u.cos2);
    if (std::fabs(in.L) > GX_HALFPI) {
      lambda = (sin_lambda >= 0.0 ? GX_PI : -GX_PI) - std::asin(sin_lambda);
    } else {
      lambda = std::asin(sin_lambda);
    }
    sin_sigma = arc_sine(u, exact_sin(lambda), exact_cos(lambda));
    sigma = GX_PI - std::asin(std::fabs(sin_sigma));
    cos_sigma = exact_cos(sigma);
    cos_alpha = exact_cos(std::asin(next_sin_alpha));
    bool settled = gx_eq(sin_alpha, next_sin_alpha) != 0;
    sin_alpha = next_sin_alpha;
    if (settled || pass >= kAntipodalPasses) break;
  }

  if (in.distance) {
    Series s = series_of(c2, e.ep2);
    if (symmetric) {
      *in.distance = s.A * e.b * GX_PI;
    } else {
      double u2 = s.u2;
      double cos_2sigma_m = cos_sigma - 2.0 * u.sin1 * u.sin2 / c2;
      double w = std::acos(cos_2sigma_m);
      double term1 = ((((35.0 * u2 - 60.0) * u2 + 128.0) * u2 - 512.0) * u2 * 0.25) *
                     cos_2sigma_m * sin_sigma;
      double term2 = ((5.0 * u2 - 4.0) * u2 * 0.00016276041666666666) * u2 * u2 *
                     exact_sin(2.0 * sigma) * exact_cos(2.0 * w);
      double term3 = -7.62939453125e-05 * (u2 * u2 * u2 * u2) * exact_sin(4.0 * sigma) *
                     exact_cos(4.0 * w);
      double term4 = D0 * exact_sin(3.0 * sigma) * exact_cos(3.0 * w);
      *in.distance = e.b * (s.A * sigma + term1 + term2 + term3 + term4);
    }
  }

  if (!in.azimuth12 && !in.azimuth21) return;
  if (std::fabs(in.phi1) <= GX_EPS && std::fabs(in.phi2) <= GX_EPS) {
    // Both on the equator: the azimuth is alpha itself, folded into [0, pi/2]
    // and signed east or west by L.
    double azimuth = std::acos(std::sqrt(1.0 - sin_alpha * sin_alpha));
    store(in.azimuth12, in.L < 0.0 ? -azimuth : azimuth);
    store(in.azimuth21, in.L >= 0.0 ? -azimuth : azimuth);
    return;
  }
  double sin_lambda = exact_sin(lambda), cos_lambda = exact_cos(lambda);
  if (in.azimuth12) {
    if (at_pole(in.phi1)) {
      *in.azimuth12 = pole_azimuth(in.phi1, in.lambda2);
    } else {
      double s = sin_alpha / u.cos1;
      double c = std::sqrt(1.0 - s * s);
      bool southward = u.cos1 * u.sin2 - cos_lambda * u.cos2 * u.sin1 < 0.0;
      *in.azimuth12 = std::atan2(s, southward ? -c : c);
    }
  }
  if (in.azimuth21) {
    *in.azimuth21 = at_pole(in.phi2) ? pole_azimuth(in.phi2, in.lambda1)
                                     : back_azimuth(u, sin_lambda, cos_lambda);
  }
}

// ---- Vincenty's inverse -----------------------------------------------------------

void ellipsoid_distance(const Inverse& in, double a, double e2) {
  Ellipsoid e = ellipsoid_of(a, e2);
  Latitudes u = latitudes_of(gx_phi_to_eta(e2, in.phi1), gx_phi_to_eta(e2, in.phi2));
  double lambda = in.L;
  double sigma, sin_sigma, cos_sigma, cos2_alpha, cos_2sigma_m;
  for (int pass = 1;; ++pass) {
    double sin_lambda = exact_sin(lambda), cos_lambda = exact_cos(lambda);
    sin_sigma = arc_sine(u, sin_lambda, cos_lambda);
    cos_sigma = u.sin1 * u.sin2 + u.cos1 * u.cos2 * cos_lambda;
    sigma = std::atan2(sin_sigma, cos_sigma);
    if (sin_sigma == 0.0) return antipodal_distance(in, e, u);
    double sin_alpha = (u.cos2 * sin_lambda / sin_sigma) * u.cos1;
    double cos_alpha = exact_cos(std::asin(sin_alpha));
    cos2_alpha = cos_alpha * cos_alpha;
    // No guard for cos^2(alpha) = 0: on the equator this is 0/0.
    cos_2sigma_m = cos_sigma - 2.0 * u.sin1 * u.sin2 / cos2_alpha;
    double C = vincenty_c(cos2_alpha, e.f);
    double next = in.L + longitude_arc(C, sigma, sin_sigma, cos_sigma, cos_2sigma_m) * (1.0 - C) *
                             sin_alpha * e.f;
    if (std::fabs(next) > GX_PI && pass > kAntipodalSwitchPasses) return antipodal_distance(in, e, u);
    bool settled = gx_eq(lambda, next) != 0;
    // A NaN (0/0 above, or a NaN argument) never settles and every later
    // pass would give NaN again: stopping here returns the same NaNs.
    bool undefined = std::isnan(next);
    lambda = next;
    if (settled || undefined || pass > kVincentyPasses) break;
  }
  if (in.distance) {
    Series s = series_of(cos2_alpha, e.ep2);
    *in.distance = e.b * s.A * (sigma - delta_sigma(s.B, sin_sigma, cos_sigma, cos_2sigma_m));
  }
  store_azimuths(in, u, lambda);
}

// ---- direct problem ------------------------------------------------------------------

void sphere_coordinate(double a, double lambda1, double phi1, double distance, double azimuth,
                       double* lambda2, double* phi2) {
  double sin_az = exact_sin(azimuth), cos_az = exact_cos(azimuth);
  double sigma = distance / a;
  double sin_sigma = exact_sin(sigma), cos_sigma = exact_cos(sigma);
  double sin_phi = exact_sin(phi1), cos_phi = exact_cos(phi1);
  if (lambda2) {
    if (at_pole(phi1) && gx_eq(sigma, GX_PI)) {
      *lambda2 = phi1 < 0.0 ? azimuth : gx_delta(GX_PI - azimuth);
    } else {
      *lambda2 = gx_delta(std::atan2(sin_sigma * sin_az, cos_sigma * cos_phi - sin_sigma * sin_phi * cos_az) +
                          lambda1);
    }
  }
  if (phi2) {
    // Rounding can carry the sine of the end latitude just past +-1.
    double sine = sin_sigma * cos_phi * cos_az + cos_sigma * sin_phi;
    *phi2 = std::asin(std::fmax(-1.0, std::fmin(1.0, sine)));
  }
}

void ellipsoid_coordinate(double a, double e2, double lambda1, double phi1, double distance,
                          double azimuth, double* lambda2, double* phi2) {
  Ellipsoid e = ellipsoid_of(a, e2);
  double sin_az = exact_sin(azimuth), cos_az = exact_cos(azimuth);
  double u1 = gx_phi_to_eta(e2, phi1);
  double sin_u1 = exact_sin(u1), cos_u1 = exact_cos(u1);
  double sigma1 = std::atan2(std::tan(u1), cos_az);
  double sin_alpha = cos_u1 * sin_az;
  double cos2_alpha = 1.0 - sin_alpha * sin_alpha;
  Series s = series_of(cos2_alpha, e.ep2);
  double first = distance / (s.A * e.b);
  double sigma = first;
  for (int pass = 0; pass < kDirectSafetyCap; ++pass) {
    double cos_2sigma_m = exact_cos(2.0 * sigma1 + sigma);
    double next = first + delta_sigma(s.B, exact_sin(sigma), exact_cos(sigma), cos_2sigma_m);
    bool settled = gx_eq(sigma, next) != 0;
    sigma = next;
    if (settled) break;
  }
  double sin_sigma = exact_sin(sigma), cos_sigma = exact_cos(sigma);
  double cos_2sigma_m = exact_cos(2.0 * sigma1 + sigma);
  if (lambda2) {
    double lambda = std::atan2(sin_sigma * sin_az, cos_u1 * cos_sigma - sin_u1 * sin_sigma * cos_az);
    double C = vincenty_c(cos2_alpha, e.f);
    *lambda2 = gx_delta(lambda1 + lambda -
                        (1.0 - C) * e.f * sin_alpha *
                            longitude_arc(C, sigma, sin_sigma, cos_sigma, cos_2sigma_m));
  }
  if (phi2) {
    double across = sin_u1 * sin_sigma - cos_u1 * cos_sigma * cos_az;
    *phi2 = std::atan2(sin_u1 * cos_sigma + cos_u1 * sin_sigma * cos_az,
                       (1.0 - e.f) * std::sqrt(sin_alpha * sin_alpha + across * across));
  }
}

}  // namespace

void gx_geodesic_distance(double a, double e2, double lambda1, double phi1, double lambda2,
                          double phi2, double* distance, double* azimuth12, double* azimuth21) {
  Inverse in{lambda1, phi1, lambda2, phi2, gx_delta(lambda2 - lambda1), distance, azimuth12, azimuth21};
  bool same_point = std::fabs(in.L) <= GX_EPS && gx_eq(phi1, phi2);
  bool same_pole = at_pole(phi1) && gx_eq(phi1, phi2);
  if (same_point || same_pole) {
    store(distance, 0.0);
    store(azimuth12, 0.0);
    store(azimuth21, 0.0);
    return;
  }
  if (e2 < GX_EPS) {
    sphere_distance(in, a);
  } else {
    ellipsoid_distance(in, a, e2);
  }
}

void gx_geodesic_coordinate(double a, double e2, double lambda1, double phi1, double distance,
                            double azimuth, double* lambda2, double* phi2) {
  azimuth = gx_delta(azimuth);
  if (at_pole(phi1)) lambda1 = 0.0;
  if (e2 < GX_EPS) {
    sphere_coordinate(a, lambda1, phi1, distance, azimuth, lambda2, phi2);
  } else {
    ellipsoid_coordinate(a, e2, lambda1, phi1, distance, azimuth, lambda2, phi2);
  }
}
