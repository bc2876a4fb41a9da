// The spheroid family: checks, inverse flattening in text, the second route
// of equality.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "frame/hook_support.h"
#include "frame/object.h"
#include "gx_geodesy.h"
#include "objects/object_support.h"

namespace {

using SpheroidPtr = ObjectPtr<gx_spheroid>;

// Defining constants of the EPSG dataset: WGS 84 (7030), GRS 1980 (7019),
// Clarke 1866 (7008), International 1924 (7022).
constexpr double kWgs84Axis = 6378137.0;
constexpr double kWgs84InverseFlattening = 298.257223563;
constexpr double kGrs80InverseFlattening = 298.257222101;

TEST(SpheroidNew, FieldsStatusAndCode) {
  SpheroidPtr spheroid(gx_spheroid_new("WGS_1984", kWgs84Axis, 1.0 / kWgs84InverseFlattening));
  ASSERT_TRUE(spheroid);
  EXPECT_EQ(gx_spheroid_axis(spheroid.get()), kWgs84Axis);
  EXPECT_EQ(gx_spheroid_flattening(spheroid.get()), 1.0 / kWgs84InverseFlattening);
  EXPECT_EQ(gx_spheroid_status(spheroid.get()), GX_STATUS_NEW);
  EXPECT_EQ(gx_spheroid_type(spheroid.get()), GX_TYPE_SPHEROID);
  EXPECT_EQ(gx_object_code(spheroid.get()), -1);
  EXPECT_EQ(gx_spheroid_authority(spheroid.get()), nullptr);
  EXPECT_EQ(Wkt(spheroid.get()), "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]");
}

TEST(SpheroidNew, FlatteningFromZeroToOneIncluded) {
  SpheroidPtr sphere(gx_spheroid_new("S", 6371000.0, 0.0));
  EXPECT_TRUE(sphere);
  SpheroidPtr flat(gx_spheroid_new("S", kWgs84Axis, 1.0));
  ASSERT_TRUE(flat);
  EXPECT_EQ(Wkt(flat.get()), "SPHEROID[\"S\",6378137.0,1.0]");
  SpheroidPtr back(gx_spheroid_from_string(Wkt(flat.get()).c_str()));
  EXPECT_EQ(gx_spheroid_flattening(back.get()), 1.0);
}

struct BadArguments {
  double axis;
  double flattening;
  uint32_t code;
  const char* message;
};

class SpheroidNewErrors : public ::testing::TestWithParam<BadArguments> {};

TEST_P(SpheroidNewErrors, NullAndExactMessage) {
  gx_errext record;
  EXPECT_EQ(gx_spheroid_new_errext("S", GetParam().axis, GetParam().flattening, &record), nullptr);
  EXPECT_EQ(record.code, GetParam().code);
  EXPECT_EQ(record.category, GX_CAT_ARGUMENT);
  EXPECT_STREQ(record.function, "gx_spheroid_new");
  EXPECT_STREQ(record.message, GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Bad, SpheroidNewErrors,
    ::testing::Values(
        BadArguments{0.0, 0.0, 302, "Semimajor axis argument (0.0) is <= 0"},
        BadArguments{-6378137.0, 0.0, 302, "Semimajor axis argument (-6378137.0) is <= 0"},
        BadArguments{NAN, 0.0, 302, "Semimajor axis argument (nan) is <= 0"},
        BadArguments{INFINITY, 0.0, 302, "Semimajor axis argument (inf) is <= 0"},
        BadArguments{kWgs84Axis, 1.1, 303, "Flattening argument (1.1) is < 0 or > 1"},
        BadArguments{kWgs84Axis, -0.001, 303, "Flattening argument (-0.001) is < 0 or > 1"},
        BadArguments{kWgs84Axis, NAN, 303, "Flattening argument (nan) is < 0 or > 1"},
        BadArguments{kWgs84Axis, INFINITY, 303, "Flattening argument (inf) is < 0 or > 1"},
        // The axis is checked first.
        BadArguments{0.0, 2.0, 302, "Semimajor axis argument (0.0) is <= 0"}));

TEST(SpheroidInvalid, NeutralValues) {
  EXPECT_EQ(gx_spheroid_axis(nullptr), 1.0);
  EXPECT_EQ(gx_spheroid_flattening(nullptr), 0.0);
  double value = 5.0;
  gx_spheroid_axis_w(nullptr, &value);
  EXPECT_EQ(value, 0.0);
  value = 5.0;
  gx_spheroid_flattening_w(nullptr, &value);
  EXPECT_EQ(value, 0.0);
  ObjectPtr<gx_unit> unit(gx_unit_new("Meter", 1.0));
  EXPECT_EQ(gx_spheroid_p(unit.get()), 0);
  EXPECT_EQ(gx_spheroid_axis(reinterpret_cast<gx_spheroid*>(unit.get())), 1.0);
  EXPECT_EQ(gx_spheroid_eq(reinterpret_cast<gx_spheroid*>(unit.get()), nullptr), 0);
}

TEST(SpheroidWide, NewAndAccessors) {
  const gx_wchar name[] = {'G', 'R', 'S', 0};
  SpheroidPtr spheroid(gx_spheroid_new_w(name, kWgs84Axis, 1.0 / kGrs80InverseFlattening));
  ASSERT_TRUE(spheroid);
  EXPECT_EQ(Name(spheroid.get()), "GRS");
  double axis = 0.0;
  double flattening = 0.0;
  gx_spheroid_axis_w(spheroid.get(), &axis);
  gx_spheroid_flattening_w(spheroid.get(), &flattening);
  EXPECT_EQ(axis, kWgs84Axis);
  EXPECT_EQ(flattening, 1.0 / kGrs80InverseFlattening);
  EXPECT_EQ(gx_spheroid_new_w(nullptr, 1.0, 0.0), nullptr);
}

// ---- text ----------------------------------------------------------------------

struct RoundTrip {
  const char* text;
  const char* written;
  double axis;
  double inverse_flattening;  // 0 for a sphere
};

class SpheroidRoundTrips : public ::testing::TestWithParam<RoundTrip> {};

TEST_P(SpheroidRoundTrips, ReadWriteReadAgain) {
  SpheroidPtr spheroid(gx_spheroid_from_string(GetParam().text));
  ASSERT_TRUE(spheroid) << GetParam().text;
  EXPECT_EQ(gx_spheroid_status(spheroid.get()), GX_STATUS_STRING);
  EXPECT_EQ(gx_spheroid_axis(spheroid.get()), GetParam().axis);
  double inverse = GetParam().inverse_flattening;
  EXPECT_EQ(gx_spheroid_flattening(spheroid.get()), inverse == 0.0 ? 0.0 : 1.0 / inverse);
  EXPECT_EQ(Wkt(spheroid.get()), GetParam().written);
  SpheroidPtr back(gx_spheroid_from_string(GetParam().written));
  EXPECT_EQ(gx_spheroid_eq(spheroid.get(), back.get()), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Definitions, SpheroidRoundTrips,
    ::testing::Values(
        RoundTrip{"SPHEROID[\"WGS_1984\",6378137.0,298.257223563]",
                  "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]", kWgs84Axis,
                  kWgs84InverseFlattening},
        RoundTrip{"SPHEROID[\"Clarke_1866\",6378206.4,294.9786982]",
                  "SPHEROID[\"Clarke_1866\",6378206.4,294.9786982]", 6378206.4, 294.9786982},
        RoundTrip{"SPHEROID[\"International_1924\",6378388,297]",
                  "SPHEROID[\"International_1924\",6378388.0,297.0]", 6378388.0, 297.0},
        RoundTrip{"ELLIPSOID[\"GRS 1980\",6378137,298.257222101]",
                  "SPHEROID[\"GRS 1980\",6378137.0,298.257222101]", kWgs84Axis,
                  kGrs80InverseFlattening},
        RoundTrip{"SPHEROID[\"Sphere\",6371000,0]", "SPHEROID[\"Sphere\",6371000.0,0.0]",
                  6371000.0, 0.0},
        RoundTrip{"SPHEROID(\"Sphere\", 6371000, 0.0)", "SPHEROID[\"Sphere\",6371000.0,0.0]",
                  6371000.0, 0.0},
        // A text cut behind its numbers reads with a warning.
        RoundTrip{"SPHEROID[\"WGS_1984\",6378137.0,298.257223563",
                  "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]", kWgs84Axis,
                  kWgs84InverseFlattening},
        // A text that holds the spheroid somewhere inside.
        RoundTrip{"DATUM[\"D\",ELLIPSOID[\"E\",6378137,298.257223563]]",
                  "SPHEROID[\"E\",6378137.0,298.257223563]", kWgs84Axis,
                  kWgs84InverseFlattening}));

TEST(SpheroidText, TinyFlatteningIsWrittenAsASphere) {
  SpheroidPtr almost(gx_spheroid_new("S", 6371000.0, 1e-16));
  EXPECT_EQ(Wkt(almost.get()), "SPHEROID[\"S\",6371000.0,0.0]");
}

TEST(SpheroidText, InverseFlatteningThatIsNoNumberReadsAsASphere) {
  // Numbers are read as atof reads them: a word is 0, and 0 is a sphere.
  SpheroidPtr spheroid(gx_spheroid_from_string("SPHEROID[\"S\",6378137,abc]"));
  ASSERT_TRUE(spheroid);
  EXPECT_EQ(gx_spheroid_flattening(spheroid.get()), 0.0);
}

TEST(SpheroidText, AuthorityOptions) {
  SpheroidPtr spheroid(gx_spheroid_from_string(
      "SPHEROID[\"WGS_1984\",6378137,298.257223563,AUTHORITY[\"EPSG\",\"7030\"]]"));
  ASSERT_TRUE(spheroid);
  const std::string plain = "SPHEROID[\"WGS_1984\",6378137.0,298.257223563";
  EXPECT_EQ(Wkt(spheroid.get(), 0), plain + "]");
  EXPECT_EQ(Wkt(spheroid.get(), 1), plain + ",AUTHORITY[\"EPSG\",7030]]");
  EXPECT_EQ(Wkt(spheroid.get(), 2), plain + ",AUTHORITY[\"EPSG\",7030]]");
  EXPECT_EQ(gx_object_code(spheroid.get()), -1);  // the authority comes from the text only
}

TEST(SpheroidText, ObjectLayerReadsBothKeywords) {
  for (const char* text : {"SPHEROID[\"S\",1,0]", "ELLIPSOID[\"S\",1,0]", "  ellipsoid[\"S\",1,0]"}) {
    ObjectPtr<void> obj(gx_object_from_string(text));
    EXPECT_EQ(gx_object_type(obj.get()), GX_TYPE_SPHEROID) << text;
  }
  ObjectPtr<void> by_type(gx_object_from_string_by_type(GX_TYPE_SPHEROID, "ELLIPSOID[\"S\",1,0]"));
  EXPECT_EQ(gx_object_type(by_type.get()), GX_TYPE_SPHEROID);
}

class SpheroidTextErrors : public ::testing::TestWithParam<ReadFailure> {};

TEST_P(SpheroidTextErrors, NullAndExactMessage) {
  ExpectReadFailure(gx_spheroid_from_string_errext, GetParam());
}

constexpr const char* kReader = "gx_spheroid_from_string";
constexpr const char* kValues = "gx_spheroid from string";

INSTANTIATE_TEST_SUITE_P(
    Bad, SpheroidTextErrors,
    ::testing::Values(
        ReadFailure{"SPHEROID[\"S\",6378137]", 459, kReader, "Insufficient tokens in WKT string"},
        ReadFailure{"SPHEROID[S[1],6378137,298]", 451, kReader,
                    "Missing semimajor axis in WKT string"},
        ReadFailure{"SPHEROID[\"S\",6378137[1],298]", 452, kReader,
                    "Missing flattening in WKT string"},
        ReadFailure{"SPHEROID[[\"S\"],6378137,298]", 451, kReader,
                    "Missing semimajor axis in WKT string"},
        ReadFailure{"SPHEROID[\"S\",0,298]", 420, kValues,
                    "Semimajor axis (0) in WKT string is <= 0"},
        ReadFailure{"SPHEROID[\"S\",-6378137.0,298]", 420, kValues,
                    "Semimajor axis (-6378137.0) in WKT string is <= 0"},
        ReadFailure{"SPHEROID[\"S\",abc,298]", 420, kValues,
                    "Semimajor axis (abc) in WKT string is <= 0"},
        ReadFailure{"SPHEROID[\"S\",nan,298]", 420, kValues,
                    "Semimajor axis (nan) in WKT string is <= 0"},
        ReadFailure{"SPHEROID[\"S\",inf,298]", 420, kValues,
                    "Semimajor axis (inf) in WKT string is <= 0"},
        ReadFailure{"SPHEROID[\"S\",1e999,298]", 420, kValues,
                    "Semimajor axis (1e999) in WKT string is <= 0"},
        ReadFailure{"SPHEROID[\"S\",6378137,0.5]", 421, kValues,
                    "Flattening inverse (0.5) in WKT string is not 0 and is < 1"},
        ReadFailure{"SPHEROID[\"S\",6378137,-298.257223563]", 421, kValues,
                    "Flattening inverse (-298.257223563) in WKT string is not 0 and is < 1"},
        ReadFailure{"SPHEROID[\"S\",6378137,nan]", 421, kValues,
                    "Flattening inverse (nan) in WKT string is not 0 and is < 1"},
        ReadFailure{"SPHEROID[\"S\",6378137,-inf]", 421, kValues,
                    "Flattening inverse (-inf) in WKT string is not 0 and is < 1"},
        ReadFailure{"SPHEROID[\"S\",6378137,inf]", 421, kValues,
                    "Flattening inverse (inf) in WKT string is not 0 and is < 1"},
        ReadFailure{"SPHEROID[\"S\",1,0,AUTHORITY[\"EPSG\",1],AUTHORITY[\"EPSG\",1]]", 403, kReader,
                    "Duplicate authority in WKT string"},
        ReadFailure{"SPHEROID[\"S\",1,0,AUTHORITY[\"\",7030]]", 320, "gx_authority_new",
                    "Null or invalid authority name argument"},
        ReadFailure{"UNIT[\"Meter\",1]", 466, kReader,
                    "Object type keyword \"ELLIPSOID\" not found in WKT string"}));

TEST(SpheroidText, RecordOfAGoodReadingIsClearAfterAWarning) {
  MessageCollector hook;
  gx_errext record;
  SpheroidPtr spheroid(gx_spheroid_from_string_errext("SPHEROID[\"S\",1,0", &record));
  EXPECT_TRUE(spheroid);
  EXPECT_EQ(record.severity, 0u);
  EXPECT_EQ(hook.codes(), (std::vector<uint32_t>{464}));
}

TEST(SpheroidText, WithoutRecordTheWalkGoesOnAndReportsEverything) {
  const char* text = "SPHEROID[\"S\",6378137,0.5,AUTHORITY[\"EPSG\",0]]";
  {
    MessageCollector hook;
    EXPECT_EQ(gx_spheroid_from_string(text), nullptr);
    EXPECT_EQ(hook.codes(), (std::vector<uint32_t>{421, 311}));
  }
  MessageCollector hook;
  gx_errext record;
  EXPECT_EQ(gx_spheroid_from_string_errext(text, &record), nullptr);
  EXPECT_EQ(record.code, 421u);
  EXPECT_EQ(hook.codes(), (std::vector<uint32_t>{421}));
}

TEST(SpheroidText, CutAnywhereIsSafe) {
  ExpectEveryPrefixIsSafe(
      "SPHEROID[\"WGS_1984\",6378137.0,298.257223563,AUTHORITY[\"EPSG\",7030]]",
      GX_TYPE_SPHEROID);
}

// ---- equality --------------------------------------------------------------------

TEST(SpheroidEquality, NameAndAxisMustAgree) {
  SpheroidPtr a(gx_spheroid_new("WGS_1984", kWgs84Axis, 1.0 / kWgs84InverseFlattening));
  SpheroidPtr same(gx_spheroid_new("wgs 1984", kWgs84Axis, 1.0 / kWgs84InverseFlattening));
  SpheroidPtr renamed(gx_spheroid_new("WGS_84", kWgs84Axis, 1.0 / kWgs84InverseFlattening));
  SpheroidPtr bigger(gx_spheroid_new("WGS_1984", kWgs84Axis + 1e-6, 1.0 / kWgs84InverseFlattening));
  EXPECT_EQ(gx_spheroid_eq(a.get(), same.get()), 1);
  EXPECT_EQ(gx_spheroid_eq(a.get(), renamed.get()), 0);
  EXPECT_EQ(gx_spheroid_eq(a.get(), bigger.get()), 0);
  EXPECT_EQ(gx_spheroid_eq(a.get(), nullptr), 0);
}

TEST(SpheroidEquality, FlatteningsStoredDifferentlyMatchByTheQuarterMeridian) {
  // The last digit of 1/f moves f by about 1e-14, far beyond the tolerance,
  // and the quarter meridian by 5.4e-8 m (GeographicLib).
  double f1 = 1.0 / 298.257222101;
  double f2 = 1.0 / 298.257222100;
  ASSERT_EQ(gx_eq(f1, f2), 0);
  SpheroidPtr a(gx_spheroid_new("GRS_1980", kWgs84Axis, f1));
  SpheroidPtr b(gx_spheroid_new("GRS_1980", kWgs84Axis, f2));
  EXPECT_EQ(gx_spheroid_eq(a.get(), b.get()), 1);
  EXPECT_EQ(gx_spheroid_eq(b.get(), a.get()), 1);
}

TEST(SpheroidEquality, Grs80AndWgs84AreApartByATenthOfAMillimetre) {
  // Quarter meridians from GeographicLib: WGS 84 10001965.7293127 m, GRS 1980
  // 10001965.7292305 m; 8.2e-5 m apart, too far for the second route.
  SpheroidPtr grs(gx_spheroid_new("S", kWgs84Axis, 1.0 / kGrs80InverseFlattening));
  SpheroidPtr wgs(gx_spheroid_new("S", kWgs84Axis, 1.0 / kWgs84InverseFlattening));
  EXPECT_EQ(gx_spheroid_eq(grs.get(), wgs.get()), 0);
  double f_grs = 1.0 / kGrs80InverseFlattening;
  double f_wgs = 1.0 / kWgs84InverseFlattening;
  EXPECT_NEAR(gx_q90(kWgs84Axis, (2.0 - f_grs) * f_grs), 10001965.7292305, 1e-6);
  EXPECT_NEAR(gx_q90(kWgs84Axis, (2.0 - f_wgs) * f_wgs), 10001965.7293127, 1e-6);
}

TEST(SpheroidEquality, SphereAgainstASmallFlattening) {
  SpheroidPtr sphere(gx_spheroid_new("S", 6371000.0, 0.0));
  SpheroidPtr tiny(gx_spheroid_new("S", 6371000.0, 1e-16));
  SpheroidPtr flat(gx_spheroid_new("S", 6371000.0, 1e-12));
  EXPECT_EQ(gx_spheroid_eq(sphere.get(), tiny.get()), 1);
  EXPECT_EQ(gx_spheroid_eq(sphere.get(), flat.get()), 0);  // 5 mm on the quarter meridian
}

TEST(SpheroidClone, DeepCopyWithAuthority) {
  SpheroidPtr spheroid(gx_spheroid_from_string(
      "SPHEROID[\"Clarke_1866\",6378206.4,294.9786982,AUTHORITY[\"EPSG\",7008]]"));
  SpheroidPtr copy(gx_spheroid_clone(spheroid.get()));
  ASSERT_TRUE(copy);
  EXPECT_EQ(gx_spheroid_eq(spheroid.get(), copy.get()), 1);
  EXPECT_EQ(gx_spheroid_status(copy.get()), GX_STATUS_STRING);
  EXPECT_NE(gx_spheroid_authority(copy.get()), gx_spheroid_authority(spheroid.get()));
  EXPECT_EQ(Wkt(copy.get(), 1), Wkt(spheroid.get(), 1));
}

}  // namespace
