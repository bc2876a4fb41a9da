// Winkel Tripel: the mean of an equirectangular map on the standard parallel
// and Aitoff's.  The forward is closed; the inverse is a search: a table of
// forward samples over the first quadrant of the unit sphere places the point
// in a cell, the cell gives a first estimate, and Newton's method on the
// forward function finishes it.
#include "projections/world.h"

namespace {

// Layout: the forward's terms, then the sample table.
constexpr int kCosPhi1 = 0;
constexpr int kA = 1;
constexpr int kSamples = 2;
constexpr int kNodes = 11;                        // per side
constexpr double kNodeLongitude = 0.3490658503988659;  // 20 degrees
constexpr double kNodeLatitude = 0.17453292519943295;  // 10 degrees
constexpr int kCells = 9;  // cells per side inside the quadrant; the 11th node is a guard
constexpr int kSampleCount = kNodes * kNodes * 2;
constexpr int kCount = kSamples + kSampleCount;
// The forward alone needs no table: a set-up for it stops at the head.
constexpr int kForwardMask = GX_SERIES_FORWARD;

// Samples are unit-sphere coordinates kept as integers in units of 1e-5.
constexpr double kSampleScale = 100000.0;

// Newton's loop on the forward function, on the unit sphere.
constexpr int kNewtonPasses = 100;
constexpr int kDampingSteps = 10;    // its outer stage: halvings of a step that overshoots
constexpr double kStepEnd = 1e-12;   // a step this small ends the loop
constexpr double kExact = 1e-16;     // a residual this small is exact
constexpr double kStepLimit = 1e10;  // a step or a determinant beyond these
constexpr double kDetLimit = 1e12;   // means the loop has lost its way
constexpr double kZero = 2e-7;       // next to zero, taken as 0
// What a solution may stray out of the quadrant, and the residual that it
// must reach, for the point to count as converted.
constexpr double kQuadrantSlack = 1e-9;
constexpr double kResidualLimit = 1e-9;

struct xy {
  double x, y;
};

// The forward formula at one point, radius a.
xy tripel(double dlam, double phi, double cos_phi1, double a) {
  double half = dlam * 0.5, cos_phi = std::cos(phi);
  double c = std::acos(std::cos(half) * cos_phi);
  double k = std::fabs(c) <= GX_EPS ? 1.0 : c / std::sin(c);
  return {(2.0 * std::sin(half) * cos_phi * k * a + dlam * cos_phi1 * a) * 0.5,
          (std::sin(phi) * k * a + phi * a) * 0.5};
}

// The forward on the unit sphere with its partial derivatives, which are
// built from the same sines and cosines as the values.  sin c is taken as
// sqrt(1 - cos^2 c), which saves a sine; the value differs from the forward
// formula's by rounding only.
struct jacobian {
  xy value;
  double dx_dlam, dx_dphi, dy_dlam, dy_dphi;
};

jacobian tripel_with_derivatives(double lam, double phi, double cos_phi1) {
  double half = lam * 0.5;
  double sh = std::sin(half), ch = std::cos(half), sp = std::sin(phi), cp = std::cos(phi);
  double d = ch * cp;
  double c = std::acos(d);
  double s2 = 1.0 - d * d;  // sin^2 c
  double k = std::fabs(c) <= GX_EPS ? 1.0 : c / std::sqrt(s2);
  // dK/dD, D = cos c; near c = 0 its limit -1/3.
  double dk = s2 < 1e-8 ? -0.3333333333333333 : (d * k - 1.0) / s2;
  double dd_dlam = -0.5 * sh * cp, dd_dphi = -ch * sp;
  jacobian j;
  j.value = {(2.0 * sh * cp * k + lam * cos_phi1) * 0.5, (sp * k + phi) * 0.5};
  j.dx_dlam = 0.5 * ch * cp * k + sh * cp * dk * dd_dlam + 0.5 * cos_phi1;
  j.dx_dphi = -sh * sp * k + sh * cp * dk * dd_dphi;
  j.dy_dlam = 0.5 * sp * dk * dd_dlam;
  j.dy_dphi = 0.5 * (cp * k + sp * dk * dd_dphi + 1.0);
  return j;
}

void setup(const double* sphere, const double* parms, int mask, double* k) {
  k[kCosPhi1] = std::cos(parms[GX_PARM_STANDARD_PARALLEL_1]);
  k[kA] = sphere[0];
  if (mask == kForwardMask) return;
  // The nodes, clamped to the quadrant, through one forward call on the unit
  // sphere about meridian 0.
  double* nodes = k + kSamples;
  for (int j = 0; j < kNodes; ++j) {
    for (int i = 0; i < kNodes; ++i) {
      double* node = nodes + 2 * (j * kNodes + i);
      node[0] = i < kCells ? i * kNodeLongitude : GX_PI;
      node[1] = j < kCells ? j * kNodeLatitude : GX_HALFPI;
    }
  }
  double unit[2] = {1.0, 0.0};
  double unit_parms[GX_PARM_COUNT];
  for (int i = 0; i < GX_PARM_COUNT; ++i) unit_parms[i] = parms[i];
  unit_parms[GX_PARM_CENTRAL_MERIDIAN] = 0.0;
  gx_winkel_tripel_forward(unit, unit_parms, kNodes * kNodes, nodes, nullptr, nullptr);
  for (int i = 0; i < kSampleCount; ++i)
    nodes[i] = static_cast<double>(static_cast<int64_t>(nodes[i] * kSampleScale + 0.5));
}

// ---- the cell search ------------------------------------------------------

struct point {
  int64_t x, y;
};

point node_at(const double* nodes, int i, int j) {
  const double* n = nodes + 2 * (j * kNodes + i);
  return {static_cast<int64_t>(n[0]), static_cast<int64_t>(n[1])};
}

// Which side of the edge from p to q the point r lies: positive on the left.
int64_t side(point p, point q, point r) {
  return (q.x - p.x) * (r.y - p.y) - (q.y - p.y) * (r.x - p.x);
}

struct cell {
  int i, j;
};

int clamp_cell(int v) { return v < 0 ? 0 : (v > kCells - 1 ? kCells - 1 : v); }

// The cell (columns of longitude, rows of latitude) that holds p: a first
// guess from the equator's nodes and the guessed column's meridian, then a
// walk across the edge that p lies beyond, until p is inside or the walk
// would leave the quadrant.
cell locate(const double* nodes, point p) {
  int i = 0, j = 0;
  while (i < kCells - 1 && node_at(nodes, i + 1, 0).x <= p.x) ++i;
  while (j < kCells - 1 && node_at(nodes, i, j + 1).y <= p.y) ++j;
  for (int walk = 0; walk < 2 * kCells; ++walk) {
    point sw = node_at(nodes, i, j), se = node_at(nodes, i + 1, j);
    point ne = node_at(nodes, i + 1, j + 1), nw = node_at(nodes, i, j + 1);
    int ni = i, nj = j;
    if (side(sw, se, p) < 0) nj = j - 1;
    else if (side(ne, nw, p) < 0) nj = j + 1;
    else if (side(se, ne, p) < 0) ni = i + 1;
    else if (side(nw, sw, p) < 0) ni = i - 1;
    ni = clamp_cell(ni);
    nj = clamp_cell(nj);
    if (ni == i && nj == j) break;
    i = ni;
    j = nj;
  }
  return {i, j};
}

// A first estimate inside the cell: the point's cell coordinates (u, v) in
// the bilinear map of the cell's corners, by two Newton steps from the
// middle of the cell, then taken to longitude and latitude.
void estimate(const double* nodes, cell c, point p, double* lam, double* phi) {
  point sw = node_at(nodes, c.i, c.j), se = node_at(nodes, c.i + 1, c.j);
  point ne = node_at(nodes, c.i + 1, c.j + 1), nw = node_at(nodes, c.i, c.j + 1);
  double ex = static_cast<double>(se.x - sw.x), ey = static_cast<double>(se.y - sw.y);
  double nx = static_cast<double>(nw.x - sw.x), ny = static_cast<double>(nw.y - sw.y);
  double wx = static_cast<double>(sw.x - se.x + ne.x - nw.x);
  double wy = static_cast<double>(sw.y - se.y + ne.y - nw.y);
  double px = static_cast<double>(p.x - sw.x), py = static_cast<double>(p.y - sw.y);
  double u = 0.5, v = 0.5;
  for (int step = 0; step < 2; ++step) {
    double ux = ex + v * wx, uy = ey + v * wy;  // d/du
    double vx = nx + u * wx, vy = ny + u * wy;  // d/dv
    double rx = u * ex + v * nx + u * v * wx - px, ry = u * ey + v * ny + u * v * wy - py;
    double det = ux * vy - uy * vx;
    if (det == 0.0) break;
    u -= (rx * vy - ry * vx) / det;
    v -= (ux * ry - uy * rx) / det;
  }
  *lam = (c.i + u) * kNodeLongitude;
  *phi = (c.j + v) * kNodeLatitude;
  if (!(*lam >= 0.0)) *lam = 0.0;
  if (!(*phi >= 0.0)) *phi = 0.0;
  if (*phi > GX_HALFPI) *phi = GX_HALFPI;
}

double residual_norm(xy value, double x, double y) {
  return std::fabs(value.x - x) + std::fabs(value.y - y);
}

// Newton's method from the estimate towards forward(lam, phi) = (x, y) on the
// unit sphere.  Returns the last residual.
double solve(double x, double y, double cos_phi1, double* lam, double* phi) {
  jacobian j = tripel_with_derivatives(*lam, *phi, cos_phi1);
  double residual = residual_norm(j.value, x, y);
  for (int pass = 0; pass < kNewtonPasses && residual > kExact; ++pass) {
    double fx = j.value.x - x, fy = j.value.y - y;
    double det = j.dx_dlam * j.dy_dphi - j.dx_dphi * j.dy_dlam;
    if (det == 0.0 || std::fabs(det) > kDetLimit) break;
    double dlam = (fx * j.dy_dphi - fy * j.dx_dphi) / det;
    double dphi = (fy * j.dx_dlam - fx * j.dy_dlam) / det;
    double size = std::fabs(dlam) + std::fabs(dphi);
    if (!(size <= kStepLimit)) break;
    if (size <= kStepEnd) {
      // The last step: too small to need a look at where it lands.
      *lam -= dlam;
      *phi -= dphi;
      break;
    }
    // Outer stage: halve a step that does not bring the residual down.
    jacobian next{};
    double next_residual = residual;
    for (int damping = 0; damping < kDampingSteps; ++damping) {
      next = tripel_with_derivatives(*lam - dlam, *phi - dphi, cos_phi1);
      next_residual = residual_norm(next.value, x, y);
      if (next_residual < residual) break;
      dlam *= 0.5;
      dphi *= 0.5;
    }
    if (!(next_residual < residual)) break;
    *lam -= dlam;
    *phi -= dphi;
    j = next;
    residual = next_residual;
  }
  return residual;
}

// A solution just outside the quadrant by rounding is put on its edge; one
// further out has no image.
bool in_quadrant(double* lam, double* phi) {
  if (*lam < -kQuadrantSlack || *lam > GX_PI + kQuadrantSlack) return false;
  if (*phi < -kQuadrantSlack || *phi > GX_HALFPI + kQuadrantSlack) return false;
  *lam = *lam < 0.0 ? 0.0 : (*lam > GX_PI ? GX_PI : *lam);
  *phi = *phi < 0.0 ? 0.0 : (*phi > GX_HALFPI ? GX_HALFPI : *phi);
  return true;
}

}  // namespace

int32_t gx_winkel_tripel_forward(const double* sphere, double* parms, int32_t n, double* coords,
                                 const int32_t*, const double* doubles) {
  double local[kSamples];
  const double* k = gx_layout(doubles, local, setup, sphere, parms, kForwardMask);
  double cos_phi1 = k[kCosPhi1], a = k[kA], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    xy p = tripel(gx_delta_fast(x - lam0), y, cos_phi1, a);
    x = p.x;
    y = p.y;
  });
}

int32_t gx_winkel_tripel_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                                 const int32_t*, const double* doubles) {
  double local[kCount];
  const double* k = gx_layout(doubles, local, setup, sphere, parms, 0);
  const double* nodes = k + kSamples;
  double cos_phi1 = k[kCosPhi1], r = 1.0 / k[kA], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  // The sampled extent, in sample units: the equator's east end and the pole.
  double max_x = nodes[2 * (kNodes - 1)], max_y = nodes[2 * (kNodes * kNodes - 1) + 1];
  return gx_count_points(n, coords, [&](double& x, double& y) {
    double ux = std::fabs(x) * r, uy = std::fabs(y) * r;
    double sx = ux * kSampleScale, sy = uy * kSampleScale;
    if (!(sx <= max_x + 1.0 && sy <= max_y + 1.0)) return false;
    point p = {static_cast<int64_t>(sx + 0.5), static_cast<int64_t>(sy + 0.5)};
    double lam, phi;
    estimate(nodes, locate(nodes, p), p, &lam, &phi);
    double residual = solve(ux, uy, cos_phi1, &lam, &phi);
    if (!(residual <= kResidualLimit) || !in_quadrant(&lam, &phi)) return false;
    // On the central meridian or the equator the answer is exactly 0.
    if (ux == 0.0 && std::fabs(lam) <= kZero) lam = 0.0;
    if (uy == 0.0 && std::fabs(phi) <= kZero) phi = 0.0;
    x = gx_delta_fast((x < 0.0 ? -lam : lam) + lam0);
    y = y < 0.0 ? -phi : phi;
    return true;
  });
}

int32_t gx_winkel_tripel_constants(gx_constants* block, const double* sphere,
                                   const double* parms) {
  return gx_layout_load(block, kCount, setup, sphere, parms);
}
