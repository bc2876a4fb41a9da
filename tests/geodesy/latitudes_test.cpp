// Auxiliary latitudes.  Reference values: tests/geodesy/data/reference_values.py
// (mpmath at 40 digits from the defining formulas: conformal by the tangent
// formula, authalic by q / q_p, rectifying by quadrature of the meridian arc,
// reduced and geocentric by their tangents).
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "geodesy/ellipsoid.h"
#include "geodesy/latitudes.h"
#include "geodesy/wgs84.h"

using namespace gx_test;

namespace {

using plain_fn = double (*)(double, double);
using table_fn = double (*)(double, double, const double*);
using init_fn = void (*)(double, double*, int);

// One auxiliary latitude with both directions, plain and table form.
struct Auxiliary {
  const char* name;
  plain_fn forward, inverse;
  table_fn forward_c, inverse_c;
  init_fn init;
};

const Auxiliary kSeries[] = {
    {"chi", gx_phi_to_chi, gx_chi_to_phi, gx_phi_to_chi_c, gx_chi_to_phi_c, gx_chi_series_init},
    {"beta", gx_phi_to_beta, gx_beta_to_phi, gx_phi_to_beta_c, gx_beta_to_phi_c, gx_beta_series_init},
    {"mu", gx_phi_to_mu, gx_mu_to_phi, gx_phi_to_mu_c, gx_mu_to_phi_c, gx_mu_series_init},
};
const plain_fn kClosed[][2] = {{gx_phi_to_eta, gx_eta_to_phi}, {gx_phi_to_phig, gx_phig_to_phi}};

constexpr int kTableCapacity = GX_BETA_TABLE_SIZE;
// Bodies from a sphere-like one through WGS 84 to the series limit and beyond.
constexpr double kBodies[] = {1e-6, kWgs84E2, GX_SERIES_LIMIT, 0.1, 0.5};

struct Reference {
  double e2, phi_deg, chi, beta, mu, eta, phig;
};

constexpr Reference kReferences[] = {
    {kWgs84E2, 10.0, 0.17338792643933375, 0.17376843780722872, 0.17367313156473857,
     0.17395950289745353, 0.17338788816043279},
    {kWgs84E2, 45.0, 0.7820416169721174, 0.78315895611802269, 0.78287933893394427,
     0.78371894458940657, 0.78203974472128689},
    {kWgs84E2, 80.0, 1.3951123675779285, 1.3954961748149721, 1.3954002094802564,
     1.395688166769212, 1.39511111445328},
    {0.1, 10.0, 0.15738967650219371, 0.16283383943996489, 0.16143279392005162,
     0.16574387822356725, 0.15738187813278885},
    {0.1, 45.0, 0.73324671774439277, 0.75023951891225949, 0.74592068032062911,
     0.75907020926666341, 0.73281510178650659},
    {0.1, 80.0, 1.3776583706526515, 1.3838886388411383, 1.3823271746928996, 1.3870283563318946,
     1.3773279948992732},
};

TEST(Latitudes, AgreeWithReferenceValues) {
  for (const Reference& r : kReferences) {
    double phi = r.phi_deg * kDegree;
    const double expected[] = {r.chi, r.beta, r.mu};
    for (int k = 0; k < 3; ++k) {
      EXPECT_NEAR(kSeries[k].forward(r.e2, phi), expected[k], 2e-15) << kSeries[k].name << r.phi_deg;
      EXPECT_NEAR(kSeries[k].inverse(r.e2, expected[k]), phi, 2e-15) << kSeries[k].name << r.phi_deg;
      EXPECT_NEAR(kSeries[k].forward(r.e2, -phi), -expected[k], 2e-15) << kSeries[k].name;
    }
    EXPECT_NEAR(gx_phi_to_eta(r.e2, phi), r.eta, 2e-15);
    EXPECT_NEAR(gx_eta_to_phi(r.e2, r.eta), phi, 2e-15);
    EXPECT_NEAR(gx_phi_to_phig(r.e2, phi), r.phig, 2e-15);
    EXPECT_NEAR(gx_phig_to_phi(r.e2, r.phig), phi, 2e-15);
  }
}

// Within a degree of a pole the closed authalic form takes asin of a value
// near 1, which costs about 1 / cos(beta) ulps: there the trip is held to
// 5e-14 instead of 1e-14.
double round_trip_tolerance(const Auxiliary& aux, double e2, double deg) {
  bool closed_authalic = aux.forward == gx_phi_to_beta && e2 >= GX_SERIES_LIMIT;
  return closed_authalic && std::fabs(deg) > 89.0 ? 5e-14 : 1e-14;
}

TEST(Latitudes, RoundTripsOnEveryBody) {
  for (double e2 : kBodies) {
    for (double deg = -89.75; deg <= 90.0; deg += 0.5) {
      double phi = deg * kDegree;
      for (const Auxiliary& aux : kSeries) {
        EXPECT_NEAR(aux.inverse(e2, aux.forward(e2, phi)), phi, round_trip_tolerance(aux, e2, deg))
            << aux.name << " " << e2 << " " << deg;
      }
      for (const auto& pair : kClosed) EXPECT_NEAR(pair[1](e2, pair[0](e2, phi)), phi, 1e-14) << e2 << " " << deg;
    }
  }
}

TEST(Latitudes, TableFormIsThePlainFormBitForBit) {
  for (double e2 : kBodies) {
    for (const Auxiliary& aux : kSeries) {
      double table[kTableCapacity];
      aux.init(e2, table, GX_SERIES_ALL);
      for (double deg = -90.0; deg <= 90.0; deg += 3.75) {
        double phi = deg * kDegree;
        EXPECT_EQ(aux.forward_c(e2, phi, table), aux.forward(e2, phi)) << aux.name << e2 << " " << deg;
        EXPECT_EQ(aux.inverse_c(e2, phi, table), aux.inverse(e2, phi)) << aux.name << e2 << " " << deg;
      }
    }
  }
}

TEST(Latitudes, SeriesMeetsClosedFormAtTheLimit) {
  // The limit itself takes the closed form, the next double below the series.
  double below = std::nextafter(GX_SERIES_LIMIT, 0.0);
  for (const Auxiliary& aux : kSeries) {
    for (double deg = -89.0; deg <= 89.0; deg += 1.0) {
      double phi = deg * kDegree;
      EXPECT_NEAR(aux.forward(below, phi), aux.forward(GX_SERIES_LIMIT, phi), 1e-11) << aux.name << deg;
      EXPECT_NEAR(aux.inverse(below, phi), aux.inverse(GX_SERIES_LIMIT, phi), 1e-11) << aux.name << deg;
    }
  }
}

TEST(Latitudes, EquatorPolesAndSphereAreFixed) {
  const double bodies[] = {0.0, kWgs84E2, 0.1};
  for (const Auxiliary& aux : kSeries) {
    for (double e2 : bodies) {
      for (double latitude : {0.0, -0.0, GX_HALFPI, -GX_HALFPI, GX_HALFPI_CLAMP}) {
        EXPECT_EQ(std::signbit(aux.forward(e2, latitude)), std::signbit(latitude));
        EXPECT_EQ(aux.forward(e2, latitude), latitude) << aux.name;
        EXPECT_EQ(aux.inverse(e2, latitude), latitude) << aux.name;
      }
    }
    EXPECT_EQ(aux.forward(0.0, 0.123456789), 0.123456789);
    EXPECT_EQ(aux.inverse(1e-15, -1.2345), -1.2345);
  }
}

TEST(Latitudes, ReducedFoldsBeyondTheQuarterTurn) {
  // 3pi/4 folds to pi/4 with the sign of its sine; -3pi/4 to -pi/4.
  EXPECT_NEAR(gx_phi_to_eta(kWgs84E2, 3.0 * GX_QUARTERPI), gx_phi_to_eta(kWgs84E2, GX_QUARTERPI), 1e-15);
  EXPECT_NEAR(gx_phi_to_eta(kWgs84E2, -3.0 * GX_QUARTERPI), -gx_phi_to_eta(kWgs84E2, GX_QUARTERPI), 1e-15);
  EXPECT_NEAR(gx_eta_to_phi(kWgs84E2, GX_PI + 0.5), -gx_eta_to_phi(kWgs84E2, 0.5), 1e-15);
  EXPECT_EQ(gx_phi_to_eta(kWgs84E2, GX_HALFPI), GX_HALFPI);
  EXPECT_EQ(gx_eta_to_phi(kWgs84E2, -GX_HALFPI), -GX_HALFPI);
  EXPECT_EQ(gx_phi_to_eta(0.0, 0.7), 0.7);
}

TEST(Latitudes, GeocentricHasNoSpecialCases) {
  EXPECT_EQ(gx_phi_to_phig(kWgs84E2, GX_HALFPI), GX_HALFPI);
  EXPECT_EQ(gx_phig_to_phi(kWgs84E2, 0.0), 0.0);
  EXPECT_NEAR(gx_phi_to_phig(kWgs84E2, 2.5), GX_PI - gx_phi_to_phig(kWgs84E2, GX_PI - 2.5), 1e-15);
}

TEST(Latitudes, AuthalicInverseEndsNearThePole) {
  // Within about 1e-8 of the pole q no longer changes in double precision,
  // so Newton's step on it is noise; the two-cycle rule or the pass cap ends
  // it with a latitude within a micro-radian of the pole, not a failure.
  for (double e2 : {0.1, 0.5}) {
    for (double gap : {1e-6, 1e-9, 1e-12, 4e-15}) {
      for (double sign : {1.0, -1.0}) {
        double phi = gx_beta_to_phi(e2, sign * (GX_HALFPI - gap));
        EXPECT_NEAR(phi, sign * GX_HALFPI, 1e-6) << e2 << " " << gap;
      }
    }
  }
}

TEST(Latitudes, RectifyingInverseMirrors) {
  for (double e2 : kBodies) {
    for (double mu : {0.1, 0.9, 1.5}) EXPECT_EQ(gx_mu_to_phi(e2, -mu), -gx_mu_to_phi(e2, mu)) << e2;
  }
}

TEST(Latitudes, NaNComesBackAsNaN) {
  for (double e2 : {kWgs84E2, 0.1}) {
    for (const Auxiliary& aux : kSeries) {
      EXPECT_TRUE(std::isnan(aux.forward(e2, NAN))) << aux.name;
      EXPECT_TRUE(std::isnan(aux.inverse(e2, NAN))) << aux.name;
    }
  }
}

// ---- init masks ----------------------------------------------------------------

bool untouched(const double* table, int from, int to) {
  for (int i = from; i < to; ++i)
    if (table[i] != -7.0) return false;
  return true;
}

TEST(SeriesInit, MasksFillOnlyWhatTheBodyUses) {
  const int sizes[] = {GX_CHI_TABLE_SIZE, GX_BETA_TABLE_SIZE, GX_MU_TABLE_SIZE};
  for (int k = 0; k < 3; ++k) {
    const Auxiliary& aux = kSeries[k];
    int size = sizes[k];
    double table[kTableCapacity];

    std::fill(table, table + kTableCapacity, -7.0);
    aux.init(kWgs84E2, table, GX_SERIES_FORWARD);
    EXPECT_FALSE(untouched(table, 0, 7)) << aux.name;
    EXPECT_TRUE(untouched(table, 7, kTableCapacity)) << aux.name;

    std::fill(table, table + kTableCapacity, -7.0);
    aux.init(kWgs84E2, table, GX_SERIES_INVERSE);
    EXPECT_TRUE(untouched(table, 0, 7)) << aux.name;
    EXPECT_FALSE(untouched(table, 7, 14)) << aux.name;
    EXPECT_TRUE(untouched(table, 14, kTableCapacity)) << aux.name;

    std::fill(table, table + kTableCapacity, -7.0);
    aux.init(0.1, table, GX_SERIES_BOTH);
    EXPECT_TRUE(untouched(table, 0, 14)) << aux.name;
    for (int i = 14; i < size; ++i) EXPECT_NE(table[i], -7.0) << aux.name << i;
    EXPECT_TRUE(untouched(table, size, kTableCapacity)) << aux.name;

    std::fill(table, table + kTableCapacity, -7.0);
    aux.init(kWgs84E2, table, GX_SERIES_ALL);
    for (int i = 0; i < size; ++i) EXPECT_NE(table[i], -7.0) << aux.name << i;
    EXPECT_TRUE(untouched(table, size, kTableCapacity)) << aux.name;
  }
}

}  // namespace

// ---- angles carried with their sine and cosine --------------------------------------

using angle_fn = gx_angle (*)(double, const gx_angle&, const double*);

TEST(LatitudeAngles, AgreeWithTheTableFormAndCarryTheirOwnSineAndCosine) {
  const angle_fn forward_a[] = {gx_phi_to_chi_a, gx_phi_to_beta_a, gx_phi_to_mu_a};
  const angle_fn inverse_a[] = {gx_chi_to_phi_a, gx_beta_to_phi_a, gx_mu_to_phi_a};
  for (double e2 : kBodies) {
    for (int k = 0; k < 3; ++k) {
      double table[kTableCapacity];
      kSeries[k].init(e2, table, GX_SERIES_ALL);
      // The inverses also meet arguments beyond the quarter turn (a
      // rectifying latitude from a point north of the pole on the map).
      for (double deg = -100.0; deg <= 100.0; deg += 1.25) {
        gx_angle x = gx_angle_of(deg * kDegree);
        const std::pair<gx_angle, double> pairs[] = {
            {forward_a[k](e2, x, table), kSeries[k].forward_c(e2, x.rad, table)},
            {inverse_a[k](e2, x, table), kSeries[k].inverse_c(e2, x.rad, table)}};
        for (auto [turned, expected] : pairs) {
          EXPECT_NEAR(turned.rad, expected, 4e-16) << kSeries[k].name << " " << e2 << " " << deg;
          EXPECT_NEAR(turned.sin, std::sin(turned.rad), 3e-16) << kSeries[k].name << " " << deg;
          EXPECT_NEAR(turned.cos, std::cos(turned.rad), 3e-16) << kSeries[k].name << " " << deg;
        }
      }
    }
  }
}

TEST(LatitudeAngles, FixedPointsComeBackUnchanged) {
  double table[kTableCapacity];
  gx_chi_series_init(kWgs84E2, table, GX_SERIES_ALL);
  for (double latitude : {0.0, GX_HALFPI, -GX_HALFPI, GX_HALFPI_CLAMP}) {
    gx_angle x = gx_angle_of(latitude);
    gx_angle chi = gx_phi_to_chi_a(kWgs84E2, x, table);
    EXPECT_EQ(chi.rad, x.rad);
    EXPECT_EQ(chi.sin, x.sin);
    EXPECT_EQ(chi.cos, x.cos);
  }
  gx_angle on_sphere = gx_phi_to_chi_a(0.0, gx_angle_of(0.7), table);
  EXPECT_EQ(on_sphere.rad, 0.7);
}

TEST(LatitudeAngles, HalfTangentFormsOverTheWholeRange) {
  for (double t : {0.0, 1e-300, 1e-9, 0.3, 1.0, 1.0000001, 7.0, 1e9, 1e200, 1e308}) {
    gx_angle chi = gx_angle_from_half_tangent(t);
    EXPECT_EQ(chi.rad, GX_HALFPI - 2.0 * std::atan(t)) << t;
    EXPECT_NEAR(chi.sin, std::sin(chi.rad), 3e-16) << t;
    EXPECT_NEAR(chi.cos, std::cos(chi.rad), 3e-16) << t;
  }
  gx_angle at_infinity = gx_angle_from_half_tangent(INFINITY);
  EXPECT_EQ(at_infinity.sin, -1.0);
  EXPECT_EQ(at_infinity.cos, 0.0);
  EXPECT_TRUE(std::isnan(gx_angle_from_half_tangent(NAN).sin));
  for (double v : {-1.0, -0.5, 0.0, 0.9999999, 1.0}) {
    gx_angle a = gx_angle_of_sine(v);
    EXPECT_NEAR(a.cos, std::cos(a.rad), 3e-16) << v;
  }
}

TEST(LatitudeAngles, TurnByASmallAngleMatchesTheRuntime) {
  for (double x : {-3.0, -1.2, 0.0, 0.4, 1.5707, 2.9}) {
    for (double d : {-0.01, -0.0035, -1e-9, 0.0, 2e-7, 0.0026, 0.01}) {
      gx_angle turned = gx_angle_turn(gx_angle_of(x), d);
      EXPECT_EQ(turned.rad, x + d);
      EXPECT_NEAR(turned.sin, std::sin(x + d), 3e-16) << x << " " << d;
      EXPECT_NEAR(turned.cos, std::cos(x + d), 3e-16) << x << " " << d;
    }
  }
}

// The isometric latitude against asinh(tan phi) - e atanh(e sin phi), and
// the authalic q against its defining logarithm, on bodies on both sides of
// the series limit.
TEST(LatitudeAngles, IsometricAndAuthalicQAgreeWithTheirClosedForms) {
  for (double e2 : {kWgs84E2, GX_SERIES_LIMIT * 0.999, 0.1}) {
    double e = std::sqrt(e2);
    for (double deg = -89.5; deg <= 89.5; deg += 0.5) {
      double phi = deg * kDegree, s = std::sin(phi);
      double psi = std::asinh(std::tan(phi)) - e * std::atanh(e * s);
      EXPECT_NEAR(gx_isometric_of(e, gx_angle_of(phi)), psi, 4e-15 * (1 + std::fabs(psi))) << deg;
      double q = (1 - e2) * (s / (1 - e2 * s * s) - std::log((1 - e * s) / (1 + e * s)) / (2 * e));
      EXPECT_NEAR(gx_authalic_q_of(e, e2, s), q, 2e-15) << e2 << " " << deg;
    }
  }
  // A sphere: asinh(tan phi), with chi = phi.
  EXPECT_NEAR(gx_isometric_of(0.0, gx_angle_of(0.9)), std::asinh(std::tan(0.9)), 4e-16);
  EXPECT_EQ(gx_isometric_of(0.0, gx_angle_of(0.0)), 0.0);
}
