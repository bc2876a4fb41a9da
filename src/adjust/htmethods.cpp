// The fitting methods: an affine and a projective map of the plane, each
// with its inverse formed once from the coefficients.  Points go four at a
// time through the loops, the remainder one by one; each point's result is
// the same either way.
#include <cmath>

#include "adjust/htmethlist.h"
#include "frame/text.h"

namespace {

// The 2D map x' = (a x + b y + c) w, y' = (d x + e y + f) w with
// w = 1 / (g x + h y + i): the affine map has g = h = 0, i = 1.
struct plane_map {
  double a, b, c, d, e, f, g, h, i;
  bool projective;
};

inline void map_point(const plane_map& m, double* p) {
  double x = p[0], y = p[1];
  if (m.projective) {
    double w = 1.0 / (m.g * x + m.h * y + m.i);
    p[0] = (m.a * x + m.b * y + m.c) * w;
    p[1] = (m.d * x + m.e * y + m.f) * w;
  } else {
    p[0] = m.a * x + m.b * y + m.c;
    p[1] = m.d * x + m.e * y + m.f;
  }
}

int32_t run(const plane_map& m, int32_t n, double* coords) {
  if (n < 1 || coords == nullptr) return 0;
  int32_t i = 0;
  for (; i + 4 <= n; i += 4) {
    map_point(m, coords + 2 * i);
    map_point(m, coords + 2 * i + 2);
    map_point(m, coords + 2 * i + 4);
    map_point(m, coords + 2 * i + 6);
  }
  for (; i < n; ++i) map_point(m, coords + 2 * i);
  return n;
}

int32_t affine_forward(int32_t count, const double* c, int32_t n, double* coords) {
  if (count < 6 || c == nullptr) return 0;
  return run({c[0], c[1], c[2], c[3], c[4], c[5], 0.0, 0.0, 1.0, false}, n, coords);
}

// The inverse matrix (r c4, -r c1, -r c3, r c0) with r = 1 / det, and the
// offsets (c5 c1 - c4 c2) r and (c3 c2 - c5 c0) r.
int32_t affine_inverse(int32_t count, const double* c, int32_t n, double* coords) {
  if (count < 6 || c == nullptr) return 0;
  double det = c[0] * c[4] - c[1] * c[3];
  if (!(std::fabs(det) > 0.0)) return 0;
  double r = 1.0 / det;
  return run({r * c[4], -r * c[1], (c[5] * c[1] - c[4] * c[2]) * r, -r * c[3], r * c[0],
              (c[3] * c[2] - c[5] * c[0]) * r, 0.0, 0.0, 1.0, false},
             n, coords);
}

int32_t projective_forward(int32_t count, const double* c, int32_t n, double* coords) {
  if (count < 8 || c == nullptr) return 0;
  return run({c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], 1.0, true}, n, coords);
}

// The adjugate of the 3 by 3 matrix whose last element is 1, formed once;
// its determinant is f c7 + c c6 + i.
int32_t projective_inverse(int32_t count, const double* c, int32_t n, double* coords) {
  if (count < 8 || c == nullptr) return 0;
  plane_map m;
  m.a = c[4] - c[7] * c[5];
  m.b = c[7] * c[2] - c[1];
  m.c = c[1] * c[5] - c[4] * c[2];
  m.d = c[6] * c[5] - c[3];
  m.e = c[0] - c[6] * c[2];
  m.f = c[3] * c[2] - c[0] * c[5];
  m.g = c[3] * c[7] - c[6] * c[4];
  m.h = c[6] * c[1] - c[0] * c[7];
  m.i = c[0] * c[4] - c[3] * c[1];
  m.projective = true;
  double det = m.f * c[7] + m.c * c[6] + m.i;
  if (!(std::fabs(det) > 0.0)) return 0;
  return run(m, n, coords);
}

constexpr double kAffineIdentity[6] = {1, 0, 0, 0, 1, 0};
constexpr double kProjectiveIdentity[8] = {1, 0, 0, 0, 1, 0, 0, 0};

constexpr gx_htmethod_row rows[] = {
    {119624, "ORVA", "9.3.0", "Affine_Parametric", affine_forward, affine_inverse, 6, kAffineIdentity},
    {119625, "ORVA", "9.3.0", "2D_Projective_Parametric", projective_forward, projective_inverse, 8,
     kProjectiveIdentity},
};

}  // namespace

const gx_htmethod_row* gx_htmethlist_row_from_name(const char* name) {
  if (name == nullptr) return nullptr;
  for (const gx_htmethod_row& row : rows)
    if (gx_name_compare(row.name, name) == 0) return &row;
  return nullptr;
}

const gx_htmethod_row* gx_htmethlist_row_from_code(int32_t code) {
  for (const gx_htmethod_row& row : rows)
    if (row.code == code) return &row;
  return nullptr;
}
