// New Zealand Map Grid and Local.
//
// Reference values: PROJ 9.1.  New_Zealand_Map_Grid: `proj -f %.9f
// +proj=nzmg +ellps=intl`, whose grid is centred at 41 S, 173 E, with its false
// origin (2510000, 6023150) taken off; PROJ evaluates the same published
// tables.  Local: PROJ's ellipsoidal orthographic projection, which drops a
// point along the normal of the centre onto the tangent plane just as Local
// does, followed by an affine step for the azimuth and the scale:
// `cct +proj=pipeline +step +proj=ortho +lat_0=50 +lon_0=10 +ellps=WGS84
// +step +proj=affine +s11=k cos az +s12=-k sin az +s21=k sin az
// +s22=k cos az` with az = 30 degrees, k = 0.9996.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "projections/apart.h"
#include "projections/ellipsoids.h"
#include "projections/projection_cases.h"

namespace gx_test {
namespace {

const Projection kNzmg = {"New_Zealand_Map_Grid", gx_new_zealand_map_grid_forward,
                          gx_new_zealand_map_grid_inverse, nullptr};
const Projection kLocal = {"Local", gx_local_forward, gx_local_inverse, gx_local_constants};

// International 1924, the grid's ellipsoid.
constexpr double kIntlA = 6378388.0;
constexpr double kIntlE2 = (2.0 - 1.0 / 297.0) / 297.0;

constexpr int kCm = GX_PARM_CENTRAL_MERIDIAN;
constexpr int kOriginLat = GX_PARM_LATITUDE_OF_ORIGIN;
constexpr int kCentreLon = GX_PARM_LONGITUDE_OF_CENTER;
constexpr int kCentreLat = GX_PARM_LATITUDE_OF_CENTER;
constexpr int kScale = GX_PARM_SCALE_FACTOR;
constexpr int kAzimuth = GX_PARM_AZIMUTH;

const ProjectionCase kCases[] = {
    // The grid's polynomials are a fit: forward and inverse agree to about
    // 1e-9 degrees (0.1 mm) over New Zealand, not to the last digit.
    {"NewZealandMapGrid", kNzmg, kIntlA, kIntlE2, {{kCm, 173}, {kOriginLat, -41}},
     {{173, -41, 0.0, 0.0},
      {174.76, -36.85, 157368.262926823, 459069.908298107},
      {172.7, -34.4, -26500.355143364, 732789.632132119},
      {166.5, -46.5, -498731.635551082, -630767.704086603},
      {178.5, -37.7, 484976.016404263, 351409.343324535},
      {168, -44, -400784.014314647, -345339.621829696}},
     1e-6, 2e-9, {166.0, 179.0, -47.5, -34.0}, 2e-9},
    {"LocalWgs84", kLocal, kWgs84A, kWgs84E2,
     {{kCentreLon, 10}, {kCentreLat, 50}, {kAzimuth, 30}, {kScale, 0.9996}},
     {{10, 50, 0.0, 0.0},
      {10.5, 50.3, 14101.271461087, 46795.102250645},
      {9, 49, -7999.902361331, -132421.385207836},
      {12, 52, 6783.150221672, 262797.656331247},
      {-20, 70, -2150377.333628487, 1537510.319069721},
      {10, 51.2, -66712.784020106, 115549.931437192}},
     1e-6, 1e-10, {0.0, 20.0, 40.0, 60.0}, 1e-10},
    // PROJ ortho +lat_0=-33 +lon_0=151 +R=6371000.
    {"LocalSphere", kLocal, kSphereR, 0.0, {{kCentreLon, 151}, {kCentreLat, -33}},
     {{151, -33, 0.0, 0.0},
      {151.2, -33.9, 18458.593545604, -100088.864878641},
      {150, -32, -94293.858414390, 110741.103376878},
      {160, -40, 763473.580173663, -809155.134910829},
      {140, -20, -1142331.799240323, 1373256.118509690}},
     1e-6, 1e-10, {140.0, 160.0, -50.0, -20.0}, 1e-10},
};

INSTANTIATE_TEST_SUITE_P(Apart, ProjectionCaseTest, ::testing::ValuesIn(kCases), case_name);

struct Vector {
  double parms[GX_PARM_COUNT];
  explicit Vector(const std::vector<Parameter>& given) { build_parms(given, parms); }
};

const double kIntl[2] = {kIntlA, kIntlE2};
const double kWgs84[2] = {kWgs84A, kWgs84E2};
const double kSphere[2] = {kSphereR, 0.0};

bool is_marked_nan(double d) {
  uint64_t bits;
  std::memcpy(&bits, &d, sizeof bits);
  return bits == 0x7FF8000000000001ull;
}

// ---- New Zealand Map Grid --------------------------------------------------------------

TEST(NewZealandMapGrid, OriginIsZeroBothWays) {
  Vector v({{kCm, 173}, {kOriginLat, -41}});
  double xy[2] = {173.0 * kDeg, -41.0 * kDeg};
  gx_new_zealand_map_grid_forward(kIntl, v.parms, 1, xy, nullptr, nullptr);
  EXPECT_EQ(xy[0], 0.0);
  EXPECT_EQ(xy[1], 0.0);
  // Even at the origin the inverse makes its two Newton rounds: theta stays 0.
  gx_new_zealand_map_grid_inverse(kIntl, v.parms, 1, xy, nullptr, nullptr);
  EXPECT_EQ(xy[0], 173.0 * kDeg);
  EXPECT_EQ(xy[1], -41.0 * kDeg);
}

TEST(NewZealandMapGrid, PolynomialIsCentredAtTheOrigin) {
  // Moving the origin's latitude moves the whole grid with it.
  Vector grid({{kCm, 173}, {kOriginLat, -41}}), moved({{kCm, 173}, {kOriginLat, -30}});
  double a[2] = {175.0 * kDeg, -38.0 * kDeg}, b[2] = {175.0 * kDeg, -27.0 * kDeg};
  gx_new_zealand_map_grid_forward(kIntl, grid.parms, 1, a, nullptr, nullptr);
  gx_new_zealand_map_grid_forward(kIntl, moved.parms, 1, b, nullptr, nullptr);
  EXPECT_NEAR(a[0], b[0], 1e-8);
  EXPECT_NEAR(a[1], b[1], 1e-8);
}

TEST(NewZealandMapGrid, ReadsOnlyTheSemiMajorAxis) {
  Vector v({{kCm, 173}, {kOriginLat, -41}});
  const double sphere[2] = {kIntlA, 0.0};
  double a[2] = {170.0 * kDeg, -45.0 * kDeg}, b[2] = {170.0 * kDeg, -45.0 * kDeg};
  gx_new_zealand_map_grid_forward(kIntl, v.parms, 1, a, nullptr, nullptr);
  gx_new_zealand_map_grid_forward(sphere, v.parms, 1, b, nullptr, nullptr);
  EXPECT_EQ(a[0], b[0]);
  EXPECT_EQ(a[1], b[1]);
}

// ---- Local -----------------------------------------------------------------------------

TEST(Local, CentreIsTheOrigin) {
  for (const double* sphere : {kWgs84, kSphere}) {
    Vector v({{kCentreLon, -70}, {kCentreLat, 12}, {kAzimuth, 45}, {kScale, 2}});
    double xy[2] = {-70.0 * kDeg, 12.0 * kDeg};
    gx_local_forward(sphere, v.parms, 1, xy, nullptr, nullptr);
    EXPECT_NEAR(xy[0], 0.0, 1e-9);
    EXPECT_NEAR(xy[1], 0.0, 1e-9);
    gx_local_inverse(sphere, v.parms, 1, xy, nullptr, nullptr);
    EXPECT_NEAR(xy[0], -70.0 * kDeg, 1e-15);
    EXPECT_NEAR(xy[1], 12.0 * kDeg, 1e-15);
  }
}

TEST(Local, AzimuthOfNinetyDegreesSwapsTheAxes) {
  Vector plain({{kCentreLon, 10}, {kCentreLat, 50}}), turned({{kCentreLon, 10}, {kCentreLat, 50}, {kAzimuth, 90}});
  double a[2] = {11.0 * kDeg, 51.0 * kDeg}, b[2] = {11.0 * kDeg, 51.0 * kDeg};
  gx_local_forward(kWgs84, plain.parms, 1, a, nullptr, nullptr);
  gx_local_forward(kWgs84, turned.parms, 1, b, nullptr, nullptr);
  EXPECT_NEAR(b[0], -a[1], 1e-8);
  EXPECT_NEAR(b[1], a[0], 1e-8);
}

TEST(Local, ScaleFactorScalesBothWays) {
  Vector one({{kCentreLat, 30}}), two({{kCentreLat, 30}, {kScale, 2}});
  double a[2] = {0.01, 0.53}, b[2] = {0.01, 0.53};
  gx_local_forward(kWgs84, one.parms, 1, a, nullptr, nullptr);
  gx_local_forward(kWgs84, two.parms, 1, b, nullptr, nullptr);
  EXPECT_EQ(b[0], 2.0 * a[0]);
  EXPECT_EQ(b[1], 2.0 * a[1]);
  gx_local_inverse(kWgs84, two.parms, 1, b, nullptr, nullptr);
  EXPECT_NEAR(b[0], 0.01, 1e-15);
  EXPECT_NEAR(b[1], 0.53, 1e-15);
}

TEST(Local, BeyondTheLimbHasNoImageButCounts) {
  // The limb seen along the centre's normal: a circle of radius a on the
  // sphere, an ellipse of semi-diameters a and sqrt(a^2 sin^2 + b^2 cos^2)
  // about the body's centre on the ellipsoid.
  for (const double* sphere : {kSphere, kWgs84}) {
    Vector v({{kCentreLat, 40}});
    double a = sphere[0], e2 = sphere[1], s = std::sin(40.0 * kDeg), c = std::cos(40.0 * kDeg);
    double limb_centre = e2 * a / std::sqrt(1.0 - e2 * s * s) * s * c;
    double xy[8] = {1.001 * a, 0.0,           // east, beyond
                    0.999 * a, 0.0,           // east, inside
                    0.0, -1.01 * a,           // south, beyond
                    a, limb_centre};          // on the limb to the east
    EXPECT_EQ(gx_local_inverse(sphere, v.parms, 4, xy, nullptr, nullptr), 4);
    EXPECT_TRUE(is_marked_nan(xy[0]) && is_marked_nan(xy[1]));
    EXPECT_FALSE(std::isnan(xy[2]));
    EXPECT_TRUE(is_marked_nan(xy[4]) && is_marked_nan(xy[5]));
    EXPECT_NEAR(xy[6], GX_HALFPI, 1e-7);  // a quarter turn east of the centre
  }
}

TEST(Local, EllipsoidLimbIsOffsetFromTheCentre) {
  // On the ellipsoid the body's centre falls north of the tangent point (for
  // a northern centre) by e2 N sin cos: the limb to the north is nearer than
  // to the south.  The limb points themselves lift onto the ellipsoid.
  Vector v({{kCentreLat, 45}});
  double n0 = kWgs84A / std::sqrt(1.0 - kWgs84E2 * 0.5);
  double offset = kWgs84E2 * n0 * 0.5;
  double b = std::sqrt(1.0 - kWgs84E2) * kWgs84A;
  double half_width = std::sqrt(kWgs84A * kWgs84A * 0.5 + b * b * 0.5);
  double xy[8] = {0.0, offset + half_width * 0.999999, 0.0, offset + half_width * 1.000001,
                  0.0, offset - half_width * 0.999999, 0.0, offset - half_width * 1.000001};
  EXPECT_EQ(gx_local_inverse(kWgs84, v.parms, 4, xy, nullptr, nullptr), 4);
  EXPECT_FALSE(std::isnan(xy[1]));
  EXPECT_TRUE(is_marked_nan(xy[3]));
  EXPECT_FALSE(std::isnan(xy[5]));
  EXPECT_TRUE(is_marked_nan(xy[7]));
}

TEST(Local, LoaderCounts) {
  Vector v({{kCentreLat, 45}});
  gx_constants* block = gx_constants_new();
  EXPECT_EQ(gx_local_constants(block, kSphere, v.parms), 7);
  EXPECT_EQ(gx_local_constants(block, kWgs84, v.parms), 13);
  gx_constants_del(block);
}

}  // namespace
}  // namespace gx_test
