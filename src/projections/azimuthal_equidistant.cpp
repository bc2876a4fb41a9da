// Equidistant azimuthals.  Azimuthal_Equidistant keeps every distance and
// direction from its centre: on the sphere along great circles, on the
// ellipsoid along geodesics (a polar centre along meridians, by the
// rectifying latitude).  Two_Point_Equidistant, on a sphere only, keeps the
// distances from two points.
//
// Two_Point_Equidistant's x axis runs from point 1 to point 2 through the
// midpoint of the two, and the points left of that line, seen from point 1
// towards point 2, have positive y, both ways.  Near the line both are
// ill-conditioned at the centimetre
// level: the forward's y is the square root of a product that vanishes
// there, the inverse takes acos of a ratio that is 1 there.
//
// Neither refuses a point.  On the sphere the antipode of the centre is
// given the angular distance 3.141592653589782, just short of pi, so that
// the ratio z / sin z stays finite; where it lands then follows from the
// rounding of its direction.

#include <cmath>

#include "geodesy/geodesic.h"
#include "projections/azimuthal.h"
#include "projections/points.h"

namespace {

// ---- Azimuthal_Equidistant: constants ------------------------------------------------

// Sphere: sin phi0, cos phi0.
constexpr int kSin0 = 0;
constexpr int kCos0 = 1;
constexpr int32_t kSphereCount = 2;
// Ellipsoid: the quarter meridian (the rectifying radius times pi/2), the
// rectifying radius, then the rectifying table.
constexpr int kQuarterMeridian = 0;
constexpr int kRectR = 1;
constexpr int kMuTable = 2;
constexpr int32_t kEllipsoidCount = kMuTable + GX_TABLE_ROOM;

// The largest angular distance that a sphere's forward takes: a hair short
// of pi, so that the antipode keeps a direction.
constexpr double kAntipodalDistance = 3.141592653589782;

// ---- Azimuthal_Equidistant: per point ---------------------------------------------------

void sphere_forward(gx_aspect aspect, double a, const double* k, double dlam, double* p) {
  double phi = p[1];
  if (aspect == GX_ASPECT_NORTH) return gx_polar_point(true, dlam, (GX_HALFPI - phi) * a, p);
  if (aspect == GX_ASPECT_SOUTH) return gx_polar_point(false, dlam, (phi + GX_HALFPI) * a, p);
  double s = std::sin(phi);
  double c = std::cos(phi);
  double cd = std::cos(dlam);
  double cc = s * k[kSin0] + cd * c * k[kCos0];
  double K = 1.0;  // the ratio z / sin z at z = 0
  if (!(cc >= 1.0)) {
    double z = cc <= -1.0 ? kAntipodalDistance : std::acos(cc);
    K = z / std::sin(z);
  }
  p[0] = K * std::sin(dlam) * c * a;
  p[1] = K * (s * k[kCos0] - cd * c * k[kSin0]) * a;
}

// `centre`: the geodesics' origin at (0, phi0).
void ellipsoid_forward(gx_aspect aspect, const double* sphere, const gx_geodesic_origin& centre,
                       const double* k, double dlam, double* p) {
  double e2 = sphere[1];
  double phi = p[1];
  if (aspect == GX_ASPECT_NORTH) {
    double mu = gx_phi_to_mu_c(e2, phi, k + kMuTable);
    return gx_polar_point(true, dlam, (GX_HALFPI - mu) * k[kRectR], p);
  }
  if (aspect == GX_ASPECT_SOUTH) {
    double mu = gx_phi_to_mu_c(e2, phi, k + kMuTable);
    return gx_polar_point(false, dlam, (mu + GX_HALFPI) * k[kRectR], p);
  }
  // With the centre on the equator, a point on the equator makes the
  // geodesic's series 0 / 0: it gets the mark of a point without an image,
  // and is counted like any.
  double r;
  double az;
  gx_geodesic_distance_from(centre, dlam, phi, &r, &az, nullptr);
  p[0] = std::sin(az) * r;
  p[1] = std::cos(az) * r;
  if (std::isnan(p[0]) || std::isnan(p[1])) gx_point_nan(p);
}

// A point off the centre back to (dlam, phi).
void sphere_inverse(gx_aspect aspect, double a, const double* k, double rho, double* p) {
  double x = p[0];
  double y = p[1];
  double ce = rho / a;
  if (gx_azimuthal_polar(aspect)) {
    bool north = aspect == GX_ASPECT_NORTH;
    p[1] = north ? std::asin(std::cos(ce)) : -std::asin(std::cos(ce));
    p[0] = gx_polar_dlam(north, x, y);
    return;
  }
  double sce = std::sin(ce);
  double cce = std::cos(ce);
  p[1] = std::asin((y / rho) * sce * k[kCos0] + cce * k[kSin0]);
  p[0] = std::atan2(sce * x, cce * rho * k[kCos0] - sce * y * k[kSin0]);
}

void ellipsoid_inverse(gx_aspect aspect, const double* sphere, const gx_geodesic_origin& centre,
                       const double* k, double rho, double* p) {
  double x = p[0];
  double y = p[1];
  if (gx_azimuthal_polar(aspect)) {
    bool north = aspect == GX_ASPECT_NORTH;
    double mu = north ? (1.0 - rho / k[kQuarterMeridian]) * GX_HALFPI
                      : (rho / k[kQuarterMeridian] - 1.0) * GX_HALFPI;
    p[1] = gx_mu_to_phi_c(sphere[1], mu, k + kMuTable);
    p[0] = gx_polar_dlam(north, x, y);
    return;
  }
  double dlam;
  double phi;
  // Along the azimuth atan2(x, y), whose sine and cosine are x / rho and y / rho.
  gx_geodesic_coordinate_toward(centre, rho, x / rho, y / rho, &dlam, &phi);
  p[0] = dlam;
  p[1] = phi;
  if (std::isnan(dlam) || std::isnan(phi)) gx_point_nan(p);
}

// ---- Two_Point_Equidistant ------------------------------------------------------------

// What a run derives from the two points, on the sphere of radius a.
struct two_points {
  double a;
  double inv_a;
  double lam1, phi1, lam2, phi2;
  double z;  // the angular distance between the points
  double az12;
  double sin1, cos1, sin2, cos2;
};

two_points make_two_points(const double* sphere, const double* parms) {
  two_points t;
  t.a = sphere[0];
  t.inv_a = 1.0 / t.a;
  t.lam1 = parms[GX_PARM_LONGITUDE_OF_1ST_POINT];
  t.phi1 = parms[GX_PARM_STANDARD_PARALLEL_1];
  t.lam2 = parms[GX_PARM_LONGITUDE_OF_2ND_POINT];
  t.phi2 = parms[GX_PARM_STANDARD_PARALLEL_2];
  double d;
  gx_geodesic_distance(t.a, 0.0, t.lam1, t.phi1, t.lam2, t.phi2, &d, &t.az12, nullptr);
  t.z = d * t.inv_a;
  t.sin1 = std::sin(t.phi1);
  t.cos1 = std::cos(t.phi1);
  t.sin2 = std::sin(t.phi2);
  t.cos2 = std::cos(t.phi2);
  return t;
}

// The angular distance of (lam, phi) from (lam_p, phi_p) on the sphere.
double angular_distance(const two_points& t, double lam_p, double phi_p, double lam, double phi) {
  double d;
  gx_geodesic_distance(t.a, 0.0, lam_p, phi_p, lam, phi, &d, nullptr, nullptr);
  return d * t.inv_a;
}

// Two points that are one: the run is Azimuthal_Equidistant about them.
int32_t coincident_points(gx_projection_fn fn, const two_points& t, const double* parms, int32_t n,
                          double* coords) {
  double sphere[2] = {t.a, 0.0};
  double local[GX_PARM_COUNT];
  for (int i = 0; i < GX_PARM_COUNT; ++i) local[i] = parms[i];
  local[GX_PARM_CENTRAL_MERIDIAN] = t.lam1;
  local[GX_PARM_LATITUDE_OF_ORIGIN] = t.phi1;
  return fn(sphere, local, n, coords, nullptr, nullptr);
}

void two_point_forward(const two_points& t, double k, double sin12, double* p) {
  double lam = p[0];
  double phi = p[1];
  double z1 = angular_distance(t, t.lam1, t.phi1, lam, phi);
  double z2 = angular_distance(t, t.lam2, t.phi2, lam, phi);
  double s1 = z1 + z2;
  double d1 = z1 - z2;
  double P = (-t.z - d1) * (s1 - t.z) * (s1 + t.z) * (d1 - t.z);
  double y = std::sqrt(std::fabs(P)) * k;
  double c = std::cos(phi);
  // Which side of the great circle from point 1 to point 2 the point lies.
  double v = std::sin(phi) * sin12 * t.cos2 * t.cos1 -
             std::sin(gx_delta_fast(lam - t.lam1)) * c * t.sin2 * t.cos1 +
             std::sin(gx_delta_fast(lam - t.lam2)) * c * t.cos2 * t.sin1;
  p[0] = s1 * d1 * k;
  p[1] = v >= 0.0 ? y : -y;
}

// What the inverse derives once: half the distance, the pole p of the
// great circle through the points (sp, cp), the angle g along the circle and
// the pole's longitude.
struct two_point_inverse_frame {
  double half;
  double tan_half;
  double two_sin_half;
  double sp, cp;
  double g;
  double lamp;
};

two_point_inverse_frame make_inverse_frame(const two_points& t) {
  two_point_inverse_frame f;
  f.half = t.z / 2.0;
  f.tan_half = std::tan(f.half);
  f.two_sin_half = 2.0 * std::sin(f.half);
  double v = gx_clamp_unit(std::sin(t.az12) * t.cos1);
  f.sp = v;
  f.cp = std::cos(std::asin(v));
  f.g = gx_delta(std::atan2(std::cos(t.az12) * t.cos1, t.sin1) - f.half);
  f.lamp = std::atan2(std::cos(t.lam1) * t.sin2 * t.cos1 - std::cos(t.lam2) * t.cos2 * t.sin1,
                      std::sin(t.lam2) * t.cos2 * t.sin1 - std::sin(t.lam1) * t.sin2 * t.cos1);
  return f;
}

void two_point_inverse(const two_points& t, const two_point_inverse_frame& f, double* p) {
  double X = p[0] * t.inv_a;
  double Y = p[1] * t.inv_a;
  double z1 = std::sqrt((X + f.half) * (X + f.half) + Y * Y);
  double z2 = std::sqrt((X - f.half) * (X - f.half) + Y * Y);
  double T = (std::cos(z2) + std::cos(z1)) * f.tan_half;
  double D2 = std::cos(z2) - std::cos(z1);
  double Az = std::atan2(D2, T);
  double r = gx_clamp_unit(std::sqrt(T * T + D2 * D2) / f.two_sin_half);
  double q = Y >= 0.0 ? std::acos(r) : -std::acos(r);
  double B = Az - f.g;
  double sq = std::sin(q);
  double cb = std::cos(B);
  p[1] = std::asin(gx_clamp_unit(cb * r * f.cp + sq * f.sp));
  p[0] = gx_delta_fast(std::atan2(std::sin(B) * r, cb * r * f.sp - sq * f.cp) + f.lamp);
}

}  // namespace

// ---- Azimuthal_Equidistant ------------------------------------------------------------

void gx_azimuthal_equidistant_setup(const double* sphere, const double* parms, int mask,
                                    double* k) {
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  if (gx_is_sphere(sphere)) {
    k[kSin0] = std::sin(phi0);
    k[kCos0] = std::cos(phi0);
    return;
  }
  double e2 = sphere[1];
  double rect = gx_rect_r(sphere[0], e2);
  k[kQuarterMeridian] = rect * GX_HALFPI;
  k[kRectR] = rect;
  // Only a polar centre reads the table; other centres solve geodesics.
  if (mask == GX_SERIES_ALL || gx_azimuthal_polar(gx_azimuthal_aspect(phi0)))
    gx_mu_series_init(e2, k + kMuTable, mask);
}

int32_t gx_azimuthal_equidistant_forward(const double* sphere, double* parms, int32_t n,
                                         double* coords, const int32_t* ints,
                                         const double* doubles) {
  if (n < 1) return 0;
  double local[kEllipsoidCount];
  const double* k =
      gx_layout(doubles, local, gx_azimuthal_equidistant_setup, sphere, parms, GX_SERIES_FORWARD);
  gx_azimuthal_frame f = gx_azimuthal_frame_of(sphere, parms);
  gx_geodesic_origin centre = gx_geodesic_origin_of(sphere[0], sphere[1], 0.0, f.phi0);
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double dlam = gx_delta_fast(p[0] - f.lam0);
    if (f.sphere) {
      sphere_forward(f.aspect, sphere[0], k, dlam, p);
    } else {
      ellipsoid_forward(f.aspect, sphere, centre, k, dlam, p);
    }
  }
  return n;
}

int32_t gx_azimuthal_equidistant_inverse(const double* sphere, double* parms, int32_t n,
                                         double* coords, const int32_t* ints,
                                         const double* doubles) {
  if (n < 1) return 0;
  double local[kEllipsoidCount];
  const double* k =
      gx_layout(doubles, local, gx_azimuthal_equidistant_setup, sphere, parms, GX_SERIES_INVERSE);
  gx_azimuthal_frame f = gx_azimuthal_frame_of(sphere, parms);
  gx_geodesic_origin centre = gx_geodesic_origin_of(sphere[0], sphere[1], 0.0, f.phi0);
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double rho = gx_hypot(p[0], p[1]);
    if (gx_eq(rho, 0.0)) {
      gx_azimuthal_centre(p, f.lam0, f.phi0);
      continue;
    }
    if (f.sphere) {
      sphere_inverse(f.aspect, sphere[0], k, rho, p);
    } else {
      ellipsoid_inverse(f.aspect, sphere, centre, k, rho, p);
    }
    p[0] = gx_delta_fast(p[0] + f.lam0);
  }
  return n;
}

int32_t gx_azimuthal_equidistant_constants(gx_constants* block, const double* sphere,
                                           const double* parms) {
  int32_t count = gx_is_sphere(sphere) ? kSphereCount : kEllipsoidCount;
  return gx_layout_load(block, count, gx_azimuthal_equidistant_setup, sphere, parms);
}

// ---- Two_Point_Equidistant --------------------------------------------------------------

int32_t gx_two_point_equidistant_forward(const double* sphere, double* parms, int32_t n,
                                         double* coords, const int32_t* ints,
                                         const double* doubles) {
  if (n < 1) return 0;
  two_points t = make_two_points(sphere, parms);
  if (gx_eq(t.z, GX_PI)) return 0;
  if (std::fabs(t.z) <= GX_EPS)
    return coincident_points(gx_azimuthal_equidistant_forward, t, parms, n, coords);
  double k = t.a / (2.0 * t.z);
  double sin12 = std::sin(gx_delta(t.lam2 - t.lam1));
  for (double* p = coords; p < coords + 2 * n; p += 2) two_point_forward(t, k, sin12, p);
  return n;
}

int32_t gx_two_point_equidistant_inverse(const double* sphere, double* parms, int32_t n,
                                         double* coords, const int32_t* ints,
                                         const double* doubles) {
  if (n < 1) return 0;
  two_points t = make_two_points(sphere, parms);
  if (gx_eq(t.z, GX_PI)) return 0;
  if (std::fabs(t.z) <= GX_EPS)
    return coincident_points(gx_azimuthal_equidistant_inverse, t, parms, n, coords);
  two_point_inverse_frame f = make_inverse_frame(t);
  for (double* p = coords; p < coords + 2 * n; p += 2) two_point_inverse(t, f, p);
  return n;
}
