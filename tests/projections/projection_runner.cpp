// The checks that every projection case goes through.
#include <cmath>
#include <cstring>
#include <memory>

#include "frame/constants.h"
#include "projections/projection_cases.h"

namespace gx_test {

namespace {

constexpr int kAngularSlots[] = {GX_PARM_CENTRAL_MERIDIAN,     GX_PARM_STANDARD_PARALLEL_1,
                                 GX_PARM_STANDARD_PARALLEL_2,  GX_PARM_LATITUDE_OF_ORIGIN,
                                 GX_PARM_AZIMUTH,              GX_PARM_LONGITUDE_OF_1ST_POINT,
                                 GX_PARM_LONGITUDE_OF_2ND_POINT, GX_PARM_LONGITUDE_OF_CENTER,
                                 GX_PARM_LATITUDE_OF_CENTER,   GX_PARM_XY_PLANE_ROTATION};
constexpr int kGridSteps = 13;

bool is_angular(int slot) {
  for (int s : kAngularSlots)
    if (s == slot) return true;
  return false;
}

// Longitudes agree when they differ by whole turns; at a pole any longitude
// names the same point.
void expect_longitude_near(double actual_deg, double expected_deg, double lat_deg, double tolerance,
                           const std::string& where) {
  if (std::fabs(lat_deg) >= 90.0) return;
  double d = std::remainder(actual_deg - expected_deg, 360.0);
  EXPECT_NEAR(d, 0.0, tolerance) << "longitude of " << where << ": " << actual_deg << " for "
                                 << expected_deg;
}

std::string point_name(double u, double v) {
  return std::to_string(u) + ", " + std::to_string(v);
}

}  // namespace

void build_parms(const std::vector<Parameter>& given, double* parms) {
  for (int i = 0; i < GX_PARM_COUNT; ++i) parms[i] = 0.0;
  parms[GX_PARM_SCALE_FACTOR] = 1.0;
  parms[GX_PARM_X_SCALE] = 1.0;
  parms[GX_PARM_Y_SCALE] = 1.0;
  bool second_parallel = false;
  for (const Parameter& p : given) {
    parms[p.slot] = is_angular(p.slot) ? p.value * kDeg : p.value;
    second_parallel |= p.slot == GX_PARM_STANDARD_PARALLEL_2;
  }
  if (!second_parallel) parms[GX_PARM_STANDARD_PARALLEL_2] = parms[GX_PARM_STANDARD_PARALLEL_1];
}

LoadedConstants::LoadedConstants(gx_constants_fn loader, const double* sphere, const double* parms)
    : block_(gx_constants_new()), count_(0) {
  if (loader != nullptr) count_ = loader(block_, sphere, parms);
}

LoadedConstants::~LoadedConstants() { gx_constants_del(block_); }

const int32_t* LoadedConstants::ints() const { return gx_constants_ints(block_); }

const double* LoadedConstants::doubles() const { return gx_constants_doubles(block_); }

int32_t run_function(gx_projection_fn fn, const ProjectionCase& c, const int32_t* ints,
                     const double* doubles, std::vector<double>& coords) {
  const double sphere[2] = {c.a, c.e2};
  double parms[GX_PARM_COUNT];
  build_parms(c.parameters, parms);
  return fn(sphere, parms, static_cast<int32_t>(coords.size() / 2), coords.data(), ints, doubles);
}

std::vector<double> grid_radians(const Region& r, int steps) {
  std::vector<double> out;
  for (int i = 0; i < steps; ++i)
    for (int j = 0; j < steps; ++j) {
      out.push_back((r.lon_lo + (r.lon_hi - r.lon_lo) * i / (steps - 1)) * kDeg);
      out.push_back((r.lat_lo + (r.lat_hi - r.lat_lo) * j / (steps - 1)) * kDeg);
    }
  return out;
}

bool same_bits(const std::vector<double>& a, const std::vector<double>& b) {
  return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

std::string case_name(const ::testing::TestParamInfo<ProjectionCase>& info) {
  return info.param.label;
}

void PrintTo(const ProjectionCase& c, std::ostream* os) { *os << c.label; }

namespace {

LoadedConstants* load(const ProjectionCase& c) {
  const double sphere[2] = {c.a, c.e2};
  double parms[GX_PARM_COUNT];
  build_parms(c.parameters, parms);
  return new LoadedConstants(c.projection.loader, sphere, parms);
}

// Runs `fn` on both routes over the same input; expects the same result and
// the same bits, and leaves the set-up route's output in `coords`.
void run_both(gx_projection_fn fn, const ProjectionCase& c, std::vector<double>& coords) {
  std::unique_ptr<LoadedConstants> constants(load(c));
  std::vector<double> loaded = coords;
  int32_t n = static_cast<int32_t>(coords.size() / 2);
  int32_t plain = run_function(fn, c, nullptr, nullptr, coords);
  int32_t stored = run_function(fn, c, constants->ints(), constants->doubles(), loaded);
  EXPECT_EQ(plain, stored);
  EXPECT_GE(plain, 1);
  EXPECT_LE(plain, n);
  EXPECT_TRUE(same_bits(coords, loaded)) << "the constants route differs from the set-up route";
}

}  // namespace

TEST_P(ProjectionCaseTest, ForwardMatchesReference) {
  const ProjectionCase& c = GetParam();
  for (const Reference& r : c.references) {
    std::vector<double> xy = {r.lon * kDeg, r.lat * kDeg};
    run_both(c.projection.forward, c, xy);
    EXPECT_NEAR(xy[0], r.x, c.forward_tolerance) << "x of " << r.lon << ", " << r.lat;
    EXPECT_NEAR(xy[1], r.y, c.forward_tolerance) << "y of " << r.lon << ", " << r.lat;
  }
}

TEST_P(ProjectionCaseTest, InverseMatchesReference) {
  const ProjectionCase& c = GetParam();
  for (const Reference& r : c.references) {
    std::vector<double> ll = {r.x, r.y};
    run_both(c.projection.inverse, c, ll);
    expect_longitude_near(ll[0] / kDeg, r.lon, r.lat, c.inverse_tolerance, point_name(r.x, r.y));
    EXPECT_NEAR(ll[1] / kDeg, r.lat, c.inverse_tolerance) << "latitude of " << r.x << ", " << r.y;
  }
}

TEST_P(ProjectionCaseTest, RoundTripOnAGrid) {
  const ProjectionCase& c = GetParam();
  const std::vector<double> start = grid_radians(c.region, kGridSteps);
  std::vector<double> coords = start;
  run_both(c.projection.forward, c, coords);
  run_both(c.projection.inverse, c, coords);
  for (size_t i = 0; i < start.size(); i += 2) {
    expect_longitude_near(coords[i] / kDeg, start[i] / kDeg, start[i + 1] / kDeg,
                          c.roundtrip_tolerance, point_name(start[i] / kDeg, start[i + 1] / kDeg));
    EXPECT_NEAR(coords[i + 1] / kDeg, start[i + 1] / kDeg, c.roundtrip_tolerance)
        << "latitude at " << start[i] / kDeg << ", " << start[i + 1] / kDeg;
  }
}

TEST_P(ProjectionCaseTest, NoPointsReturnZeroAndTouchNothing) {
  const ProjectionCase& c = GetParam();
  for (gx_projection_fn fn : {c.projection.forward, c.projection.inverse}) {
    const double sphere[2] = {c.a, c.e2};
    double parms[GX_PARM_COUNT];
    build_parms(c.parameters, parms);
    double coords[2] = {0.25, 0.5};
    EXPECT_EQ(fn(sphere, parms, 0, coords, nullptr, nullptr), 0);
    EXPECT_EQ(fn(sphere, parms, -3, coords, nullptr, nullptr), 0);
    EXPECT_EQ(coords[0], 0.25);
    EXPECT_EQ(coords[1], 0.5);
  }
}

TEST_P(ProjectionCaseTest, LoaderWritesItsHeaderOrNothing) {
  const ProjectionCase& c = GetParam();
  if (c.projection.loader == nullptr) return;  // the projection always runs its set-up
  std::unique_ptr<LoadedConstants> constants(load(c));
  if (constants->count() == 0) {
    EXPECT_EQ(constants->ints(), nullptr);
    EXPECT_EQ(constants->doubles(), nullptr);
  } else {
    ASSERT_NE(constants->ints(), nullptr);
    EXPECT_EQ(constants->ints()[0], 2);
    EXPECT_EQ(constants->ints()[1], constants->count());
  }
  // A block that is no block keeps nothing.
  const double sphere[2] = {c.a, c.e2};
  double parms[GX_PARM_COUNT];
  build_parms(c.parameters, parms);
  EXPECT_EQ(c.projection.loader(nullptr, sphere, parms), 0);
}

void ExpectTwinLoaderCounts(std::initializer_list<TwinLoaderCount> cases,
                            const std::vector<Parameter>& parameters) {
  for (const TwinLoaderCount& e : cases) {
    std::vector<Parameter> given = parameters;
    given.push_back({GX_PARM_X_SCALE, e.type});
    double parms[GX_PARM_COUNT];
    build_parms(given, parms);
    double before[GX_PARM_COUNT];
    std::memcpy(before, parms, sizeof before);
    gx_constants* block = gx_constants_new();
    EXPECT_EQ(e.loader(block, e.sphere, parms), e.count) << "type " << e.type;
    EXPECT_EQ(gx_constants_doubles(block) != nullptr, e.count > 0) << "type " << e.type;
    gx_constants_del(block);
    EXPECT_EQ(std::memcmp(before, parms, sizeof before), 0) << "the loader changed the vector";
  }
}

}  // namespace gx_test
