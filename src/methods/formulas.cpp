// The formula methods: datum shifts computed from parameters alone.  The
// three- and seven-parameter methods go through geocentric Cartesian
// coordinates; the Molodensky pair works on geodetic coordinates directly.
#include <cmath>

#include "gx_geodesy.h"
#include "methods/methods.h"

namespace {

const double kHalfPi = 1.5707963267948966;

// Slots of the parameter vector.
enum {
  kDx = 0, kDy = 1, kDz = 2,
  kRx = 3, kRy = 4, kRz = 5,
  kScale = 6,
  kPx = 7, kPy = 8, kPz = 9,
  kSlots = 16
};

// A shift through Cartesian coordinates:
//   X' = rotation * (X + before) + after,
// where a missing rotation is the identity.  The forward similarity uses
// `after`, the inverse `before`, so that each direction keeps its own order
// of operations.
struct cartesian_shift {
  double rotation[9];
  int rotate;
  double before[3];
  double after[3];
};

void clear_shift(cartesian_shift* shift) {
  for (double& m : shift->rotation) m = 0.0;
  for (int i = 0; i < 3; ++i) shift->before[i] = shift->after[i] = 0.0;
  shift->rotate = 0;
}

double clamp_latitude(double phi) {
  if (phi > kHalfPi) return kHalfPi;
  if (phi < -kHalfPi) return -kHalfPi;
  return phi;
}

// The rotation of the coordinate frame convention, exact rather than the
// small-angle form, multiplied by (1 + scale difference).
void rotation_matrix(const double* parms, double* m) {
  const double s1 = sin(parms[kRx]), c1 = cos(parms[kRx]);
  const double s2 = sin(parms[kRy]), c2 = cos(parms[kRy]);
  const double s3 = sin(parms[kRz]), c3 = cos(parms[kRz]);
  m[0] = c3 * c2;
  m[1] = c3 * s2 * s1 + c1 * s3;
  m[2] = s3 * s1 - c3 * c1 * s2;
  m[3] = -c2 * s3;
  m[4] = c1 * c3 - s3 * s2 * s1;
  m[5] = c1 * s3 * s2 + c3 * s1;
  m[6] = s2;
  m[7] = -c2 * s1;
  m[8] = c2 * c1;
}

void scale_matrix(double* m, double factor) {
  for (int i = 0; i < 9; ++i) m[i] *= factor;
}

// Inverse of a 3x3 matrix by cofactors and one over the determinant.
void invert_matrix(const double* m, double* inverse) {
  const double c00 = m[4] * m[8] - m[5] * m[7];
  const double c01 = m[5] * m[6] - m[3] * m[8];
  const double c02 = m[3] * m[7] - m[4] * m[6];
  const double det = m[0] * c00 + m[1] * c01 + m[2] * c02;
  const double r = 1.0 / det;
  inverse[0] = c00 * r;
  inverse[1] = (m[2] * m[7] - m[1] * m[8]) * r;
  inverse[2] = (m[1] * m[5] - m[2] * m[4]) * r;
  inverse[3] = c01 * r;
  inverse[4] = (m[0] * m[8] - m[2] * m[6]) * r;
  inverse[5] = (m[2] * m[3] - m[0] * m[5]) * r;
  inverse[6] = c02 * r;
  inverse[7] = (m[1] * m[6] - m[0] * m[7]) * r;
  inverse[8] = (m[0] * m[4] - m[1] * m[3]) * r;
}

// Forward similarity: the scaled rotation and the translation.
void forward_similarity(const double* parms, cartesian_shift* shift) {
  clear_shift(shift);
  rotation_matrix(parms, shift->rotation);
  scale_matrix(shift->rotation, 1.0 + parms[kScale]);
  shift->rotate = 1;
  for (int i = 0; i < 3; ++i) shift->after[i] = parms[kDx + i];
}

// Inverse similarity: the inverted pure rotation, scaled by 1 / (1 + s),
// applied after taking `translation` off.
void inverse_similarity(const double* parms, const double* translation,
                        cartesian_shift* shift) {
  double rotation[9];
  clear_shift(shift);
  rotation_matrix(parms, rotation);
  invert_matrix(rotation, shift->rotation);
  scale_matrix(shift->rotation, 1.0 / (1.0 + parms[kScale]));
  shift->rotate = 1;
  for (int i = 0; i < 3; ++i) shift->before[i] = -translation[i];
}

// Translation of Molodensky-Badekas: T' = (P + T) - M P, with M the forward,
// scaled matrix.
void badekas_translation(const double* parms, const double* m, double* translation) {
  const double* p = parms + kPx;
  for (int i = 0; i < 3; ++i) {
    const double mp = m[3 * i] * p[0] + m[3 * i + 1] * p[1] + m[3 * i + 2] * p[2];
    translation[i] = (p[i] + parms[kDx + i]) - mp;
  }
}

// Each point: geodetic on `from` to Cartesian, the shift, back to geodetic
// on `to`; latitude clamped, longitude wrapped, height written if wanted.
void shift_points(const double* from, const double* to, const cartesian_shift& shift,
                  int32_t n, double* coords, double* z) {
  for (int32_t i = 0; i < n; ++i) {
    double* point = coords + 2 * i;
    const double h = z != nullptr ? z[i] : 0.0;
    double x, y, w;
    gx_curv_to_cart(from[0], from[1], point[1], point[0], h, &x, &y, &w);
    x += shift.before[0];
    y += shift.before[1];
    w += shift.before[2];
    if (shift.rotate) {
      const double* m = shift.rotation;
      const double rx = m[0] * x + m[1] * y + m[2] * w;
      const double ry = m[3] * x + m[4] * y + m[5] * w;
      const double rw = m[6] * x + m[7] * y + m[8] * w;
      x = rx;
      y = ry;
      w = rw;
    }
    x += shift.after[0];
    y += shift.after[1];
    w += shift.after[2];
    double phi, lambda, height;
    gx_cart_to_curv(to[0], to[1], x, y, w, &phi, &lambda, &height);
    point[0] = gx_delta(lambda);
    point[1] = clamp_latitude(phi);
    if (z != nullptr) z[i] = height;
  }
}

// The Molodensky forms take the flattenings from the squared eccentricities.
struct molodensky_terms {
  double a, e2;   // source ellipsoid
  double f1;      // source flattening
  double da, df;  // target minus source
  double dx, dy, dz;
};

molodensky_terms molodensky_setup(const double* source, const double* target,
                                  const double* parms) {
  molodensky_terms t;
  t.a = source[0];
  t.e2 = source[1];
  t.f1 = 1.0 - sqrt(1.0 - source[1]);
  const double f2 = 1.0 - sqrt(1.0 - target[1]);
  t.da = target[0] - source[0];
  t.df = f2 - t.f1;
  t.dx = parms[kDx];
  t.dy = parms[kDy];
  t.dz = parms[kDz];
  return t;
}

void finish_point(double* point, double dphi, double dlambda) {
  point[1] = clamp_latitude(point[1] + dphi);
  point[0] = gx_delta(point[0] + dlambda);
}

void molodensky_points(const molodensky_terms& t, int32_t n, double* coords, double* z) {
  const double one_minus_f = 1.0 - t.f1;
  for (int32_t i = 0; i < n; ++i) {
    double* point = coords + 2 * i;
    const double h = z != nullptr ? z[i] : 0.0;
    const double lambda = point[0], phi = point[1];
    const double sin_phi = sin(phi), cos_phi = cos(phi);
    const double sin_lambda = sin(lambda), cos_lambda = cos(lambda);
    const double m = gx_m(t.a, t.e2, phi);
    const double nu = gx_n(t.a, t.e2, phi);
    const double w = gx_w(t.e2, phi);
    const double horizontal = t.dy * sin_lambda + t.dx * cos_lambda;
    const double dphi =
        (((m / one_minus_f + one_minus_f * nu) * sin_phi * t.df + t.dz) * cos_phi -
         horizontal * sin_phi + (cos_phi * sin_phi * t.e2 / w) * t.da) /
        (m + h);
    double dlambda = 0.0;
    if (!gx_eq(cos_phi, 0.0)) {
      dlambda = (t.dy * cos_lambda - t.dx * sin_lambda) / ((nu + h) * cos_phi);
    }
    const double height = horizontal * cos_phi + t.dz * sin_phi - w * t.da +
                          ((one_minus_f * t.a * sin_phi * sin_phi / w) * t.df) + h;
    finish_point(point, dphi, dlambda);
    if (z != nullptr) z[i] = height;
  }
}

void molodensky_abridged_points(const molodensky_terms& t, int32_t n, double* coords,
                                double* z) {
  const double k = t.da * t.f1 + t.df * t.a;
  for (int32_t i = 0; i < n; ++i) {
    double* point = coords + 2 * i;
    const double lambda = point[0], phi = point[1];
    const double sin_phi = sin(phi), cos_phi = cos(phi);
    const double sin_lambda = sin(lambda), cos_lambda = cos(lambda);
    const double m = gx_m(t.a, t.e2, phi);
    const double nu = gx_n(t.a, t.e2, phi);
    const double tk = k * sin_phi;
    const double horizontal = t.dy * sin_lambda + t.dx * cos_lambda;
    const double dphi = ((2.0 * tk + t.dz) * cos_phi - horizontal * sin_phi) / m;
    double dlambda = 0.0;
    if (!gx_eq(cos_phi, 0.0)) {
      dlambda = (t.dy * cos_lambda - t.dx * sin_lambda) / (nu * cos_phi);
    }
    finish_point(point, dphi, dlambda);
    if (z != nullptr) {
      z[i] = horizontal * cos_phi + (tk + t.dz) * sin_phi - t.da + z[i];
    }
  }
}

// The inverse of both Molodensky forms is the forward form with negated
// translations between the swapped ellipsoids; deliberately not iterated.
void negated_translations(const double* parms, double* reverse) {
  for (int i = 0; i < kSlots; ++i) reverse[i] = 0.0;
  reverse[kDx] = -parms[kDx];
  reverse[kDy] = -parms[kDy];
  reverse[kDz] = -parms[kDz];
}

// Position vector rotations are coordinate frame rotations with the sign
// reversed.
void reversed_rotations(const double* parms, double* frame) {
  for (int i = 0; i < kSlots; ++i) frame[i] = parms[i];
  frame[kRx] = -parms[kRx];
  frame[kRy] = -parms[kRy];
  frame[kRz] = -parms[kRz];
}

}  // namespace

// Hands the call on to another method function with other spheres or another
// parameter vector; the rest of the call goes as it came.
#define GX_PASS_ON(fn, first, second, vector) \
  fn(first, second, vector, dataset, n, coords, z, ints, values, doubles)

GX_METHOD_FN(gx_method_longitude_rotation) {
  if (n < 1) return n;
  const double rotation = parms[kRz];
  for (int32_t i = 0; i < n; ++i) coords[2 * i] = gx_delta(coords[2 * i] + rotation);
  return n;
}

GX_METHOD_FN(gx_method_bursa_wolf_forward) {
  if (n < 1) return n;
  cartesian_shift shift;
  forward_similarity(parms, &shift);
  shift_points(sphere1, sphere2, shift, n, coords, z);
  return n;
}

GX_METHOD_FN(gx_method_bursa_wolf_inverse) {
  if (n < 1) return n;
  cartesian_shift shift;
  inverse_similarity(parms, parms + kDx, &shift);
  shift_points(sphere2, sphere1, shift, n, coords, z);
  return n;
}

GX_METHOD_FN(gx_method_position_vector_forward) {
  if (n < 1) return n;
  double frame[kSlots];
  reversed_rotations(parms, frame);
  return GX_PASS_ON(gx_method_bursa_wolf_forward, sphere1, sphere2, frame);
}

GX_METHOD_FN(gx_method_position_vector_inverse) {
  if (n < 1) return n;
  double frame[kSlots];
  reversed_rotations(parms, frame);
  return GX_PASS_ON(gx_method_bursa_wolf_inverse, sphere1, sphere2, frame);
}

GX_METHOD_FN(gx_method_geocentric_translation_forward) {
  if (n < 1) return n;
  cartesian_shift shift;
  clear_shift(&shift);
  for (int i = 0; i < 3; ++i) shift.after[i] = parms[kDx + i];
  shift_points(sphere1, sphere2, shift, n, coords, z);
  return n;
}

GX_METHOD_FN(gx_method_geocentric_translation_inverse) {
  if (n < 1) return n;
  cartesian_shift shift;
  clear_shift(&shift);
  for (int i = 0; i < 3; ++i) shift.before[i] = -parms[kDx + i];
  shift_points(sphere2, sphere1, shift, n, coords, z);
  return n;
}

GX_METHOD_FN(gx_method_molodensky_badekas_forward) {
  if (n < 1) return n;
  cartesian_shift shift;
  forward_similarity(parms, &shift);
  badekas_translation(parms, shift.rotation, shift.after);
  shift_points(sphere1, sphere2, shift, n, coords, z);
  return n;
}

GX_METHOD_FN(gx_method_molodensky_badekas_inverse) {
  if (n < 1) return n;
  cartesian_shift forward;
  forward_similarity(parms, &forward);
  double translation[3];
  badekas_translation(parms, forward.rotation, translation);
  cartesian_shift shift;
  inverse_similarity(parms, translation, &shift);
  shift_points(sphere2, sphere1, shift, n, coords, z);
  return n;
}

GX_METHOD_FN(gx_method_molodensky_forward) {
  if (n < 1) return n;
  molodensky_points(molodensky_setup(sphere1, sphere2, parms), n, coords, z);
  return n;
}

GX_METHOD_FN(gx_method_molodensky_inverse) {
  if (n < 1) return n;
  double reverse[kSlots];
  negated_translations(parms, reverse);
  return GX_PASS_ON(gx_method_molodensky_forward, sphere2, sphere1, reverse);
}

GX_METHOD_FN(gx_method_molodensky_abridged_forward) {
  if (n < 1) return n;
  molodensky_abridged_points(molodensky_setup(sphere1, sphere2, parms), n, coords, z);
  return n;
}

GX_METHOD_FN(gx_method_molodensky_abridged_inverse) {
  if (n < 1) return n;
  double reverse[kSlots];
  negated_translations(parms, reverse);
  return GX_PASS_ON(gx_method_molodensky_abridged_forward, sphere2, sphere1, reverse);
}
