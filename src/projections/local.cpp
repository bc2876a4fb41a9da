// Local: a plane tangent to the body at a centre, for small areas.  A point is
// carried to Earth-centred coordinates (with the centre's meridian as the
// zero of longitude) and dropped along the centre's normal onto the plane;
// east and north of the plane are then turned by the azimuth and scaled.
//
// The inverse lifts a point of the plane back along the same normal to the
// near side of the body.  Where that line meets the ellipsoid is a quadratic
// in the distance along it, solved in closed form: no iteration is needed,
// and so none can fail to end.  A point beyond the body's limb, as seen along
// the normal, has no image.
#include "projections/apart.h"
#include "projections/points.h"

namespace {

// Layout: the centre and the rotation; on an ellipsoid also the limb and the
// quadratic's terms.
constexpr int kX0 = 0;
constexpr int kY0 = 1;
constexpr int kZ0 = 2;
constexpr int kSinPhi0 = 3;
constexpr int kCosPhi0 = 4;
constexpr int kSinAz = 5;
constexpr int kCosAz = 6;
constexpr int kSphereCount = 7;
constexpr int kLimbCentre = 7;  // north offset of the limb ellipse's centre
constexpr int kLimbEast = 8;    // its semi-diameters, east and north
constexpr int kLimbNorth = 9;
constexpr int kInvA2 = 10;      // 1 / a^2
constexpr int kInvB2 = 11;      // 1 / b^2
constexpr int kNormalTerm = 12;  // the quadratic's leading term along the normal
constexpr int kEllipsoidCount = 13;

// How far beyond the limb a point may be, in metres, and still be lifted.
constexpr double kLimbTolerance = 1e-9;

void setup(const double* sphere, const double* parms, int, double* k) {
  double a = sphere[0], e2 = sphere[1];
  double phi0 = parms[GX_PARM_LATITUDE_OF_CENTER], az = parms[GX_PARM_AZIMUTH];
  gx_curv_to_cart(a, e2, phi0, 0.0, 0.0, &k[kX0], &k[kY0], &k[kZ0]);
  k[kSinPhi0] = std::sin(phi0);
  k[kCosPhi0] = std::cos(phi0);
  k[kSinAz] = std::sin(az);
  k[kCosAz] = std::cos(az);
  if (gx_is_sphere(sphere)) return;
  // Seen along the centre's normal the ellipsoid's outline is an ellipse:
  // centred where the body's centre falls on the plane, of semi-diameters a
  // to the east and the meridian ellipse's half-width across the normal to
  // the north.
  double b = std::sqrt(1.0 - e2) * a;
  k[kLimbCentre] = k[kX0] * k[kSinPhi0] - k[kZ0] * k[kCosPhi0];
  k[kLimbEast] = a;
  k[kLimbNorth] = gx_hypot(a * k[kSinPhi0], b * k[kCosPhi0]);
  k[kInvA2] = 1.0 / (a * a);
  k[kInvB2] = 1.0 / (b * b);
  k[kNormalTerm] = k[kCosPhi0] * k[kCosPhi0] * k[kInvA2] + k[kSinPhi0] * k[kSinPhi0] * k[kInvB2];
}

int32_t count_of(const double* sphere) {
  return gx_is_sphere(sphere) ? kSphereCount : kEllipsoidCount;
}

// Whether (east, north), measured from the centre of an outline ellipse of
// the given semi-diameters, lies inside it or beyond it by less than the
// tolerance.
bool within_limb(double east, double north, double semi_east, double semi_north) {
  double d = gx_hypot(east, north);
  if (d == 0.0) return true;
  double limit = semi_east * semi_north * d /
                 gx_hypot(semi_north * east, semi_east * north);
  return d - limit < kLimbTolerance;
}

struct cartesian {
  double x, y, z;
};

// The point of the sphere of radius a above (p, q) of the plane.
bool lift_to_sphere(const double* k, double a, double p, double q, cartesian* point) {
  if (!within_limb(p, q, a, a)) return false;
  double s = a * a - p * p - q * q;
  double up = std::sqrt(s > 0.0 ? s : 0.0);
  point->x = up * k[kCosPhi0] - q * k[kSinPhi0];
  point->y = p;
  point->z = up * k[kSinPhi0] + q * k[kCosPhi0];
  return true;
}

// The point of the ellipsoid above (p, q): the plane point plus t times the
// normal, t the larger root of the quadratic, which is the near side.
bool lift_to_ellipsoid(const double* k, double p, double q, cartesian* point) {
  if (!within_limb(p, q - k[kLimbCentre], k[kLimbEast], k[kLimbNorth])) return false;
  double cx = k[kCosPhi0], cz = k[kSinPhi0];
  double sx = k[kX0] - q * k[kSinPhi0], sy = k[kY0] + p, sz = k[kZ0] + q * k[kCosPhi0];
  double half_b = sx * cx * k[kInvA2] + sz * cz * k[kInvB2];
  double c = (sx * sx + sy * sy) * k[kInvA2] + sz * sz * k[kInvB2] - 1.0;
  double disc = half_b * half_b - k[kNormalTerm] * c;
  double root = std::sqrt(disc > 0.0 ? disc : 0.0);
  double t = half_b >= 0.0 ? -c / (half_b + root) : (root - half_b) / k[kNormalTerm];
  point->x = sx + t * cx;
  point->y = sy;
  point->z = sz + t * cz;
  return true;
}

}  // namespace

int32_t gx_local_forward(const double* sphere, double* parms, int32_t n, double* coords,
                         const int32_t*, const double* doubles) {
  double local[kEllipsoidCount];
  const double* k = gx_layout(doubles, local, setup, sphere, parms, 0);
  double a = sphere[0], e2 = sphere[1], k0 = parms[GX_PARM_SCALE_FACTOR];
  double lam0 = parms[GX_PARM_LONGITUDE_OF_CENTER];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    cartesian c;
    gx_curv_to_cart(a, e2, y, gx_delta_fast(x - lam0), 0.0, &c.x, &c.y, &c.z);
    double p = c.y - k[kY0];
    double q = (c.z - k[kZ0]) * k[kCosPhi0] - (c.x - k[kX0]) * k[kSinPhi0];
    x = (p * k[kCosAz] - q * k[kSinAz]) * k0;
    y = (p * k[kSinAz] + q * k[kCosAz]) * k0;
  });
}

int32_t gx_local_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                         const int32_t*, const double* doubles) {
  double local[kEllipsoidCount];
  const double* k = gx_layout(doubles, local, setup, sphere, parms, 0);
  double a = sphere[0], e2 = sphere[1], k0 = parms[GX_PARM_SCALE_FACTOR];
  double lam0 = parms[GX_PARM_LONGITUDE_OF_CENTER];
  bool on_sphere = gx_is_sphere(sphere);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double p = (x * k[kCosAz] + y * k[kSinAz]) / k0;
    double q = (y * k[kCosAz] - x * k[kSinAz]) / k0;
    cartesian c;
    bool lifted = on_sphere ? lift_to_sphere(k, a, p, q, &c) : lift_to_ellipsoid(k, p, q, &c);
    if (!lifted) {
      gx_nan(&x);
      gx_nan(&y);
      return;
    }
    double phi, lam, h;
    gx_cart_to_curv(a, on_sphere ? 0.0 : e2, c.x, c.y, c.z, &phi, &lam, &h);
    x = gx_delta_fast(lam + lam0);
    y = phi;
  });
}

int32_t gx_local_constants(gx_constants* block, const double* sphere, const double* parms) {
  return gx_layout_load(block, count_of(sphere), setup, sphere, parms);
}
