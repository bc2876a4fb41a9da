// The datum family: ownership of the spheroid, text, old names and the Hong
// Kong correction.
#include <gtest/gtest.h>

#include <string>

#include "frame/hook_support.h"
#include "frame/object.h"
#include "objects/object_support.h"

namespace {

using DatumPtr = ObjectPtr<gx_datum>;

// NAD27 on Clarke 1866 (EPSG 6267, 7008) and ED50 on International 1924
// (EPSG 6230, 7022).
constexpr const char* kNad27 =
    "DATUM[\"D_North_American_1927\",SPHEROID[\"Clarke_1866\",6378206.4,294.9786982]]";
constexpr const char* kEd50 =
    "DATUM[\"D_European_1950\",SPHEROID[\"International_1924\",6378388.0,297.0]]";

gx_spheroid* International1924() { return gx_spheroid_new("International_1924", 6378388.0, 1.0 / 297.0); }

TEST(DatumNew, TakesTheSpheroid) {
  gx_spheroid* spheroid = International1924();
  DatumPtr datum(gx_datum_new("D_European_1950", spheroid));
  ASSERT_TRUE(datum);
  EXPECT_EQ(gx_datum_spheroid(datum.get()), spheroid);
  EXPECT_EQ(gx_datum_status(datum.get()), GX_STATUS_NEW);
  EXPECT_EQ(gx_object_code(datum.get()), -1);
  EXPECT_EQ(Wkt(datum.get()), kEd50);
  // Deleting the datum deletes the spheroid (the leak checker sees the rest).
}

TEST(DatumNew, InvalidSpheroidIs327AndStaysWithTheCaller) {
  gx_errext record;
  EXPECT_EQ(gx_datum_new_errext("D", nullptr, &record), nullptr);
  EXPECT_EQ(record.code, 327u);
  EXPECT_EQ(record.category, GX_CAT_ARGUMENT);
  EXPECT_STREQ(record.function, "gx_datum_new");
  EXPECT_STREQ(record.message, "Null or invalid spheroid object argument");
  ObjectPtr<gx_unit> unit(gx_unit_new("Meter", 1.0));
  EXPECT_EQ(gx_datum_new("D", reinterpret_cast<gx_spheroid*>(unit.get())), nullptr);
  EXPECT_EQ(gx_unit_p(unit.get()), 1);
}

TEST(DatumNew, NamesByHandAreKeptAsGiven) {
  DatumPtr datum(gx_datum_new("D_Tahiti", International1924()));
  EXPECT_EQ(Name(datum.get()), "D_Tahiti");
  const gx_wchar name[] = {'D', '_', 'X', 0};
  DatumPtr wide(gx_datum_new_w(name, International1924()));
  EXPECT_EQ(Name(wide.get()), "D_X");
  EXPECT_EQ(gx_datum_new_w(nullptr, nullptr), nullptr);
}

TEST(DatumInvalid, NeutralValues) {
  EXPECT_EQ(gx_datum_spheroid(nullptr), nullptr);
  EXPECT_EQ(gx_datum_p(nullptr), 0);
  EXPECT_EQ(gx_datum_eq(nullptr, nullptr), 0);
  char text[GX_WKT_SIZE] = "junk";
  EXPECT_STREQ(gx_datum_to_string(nullptr, text), "");
}

TEST(DatumEquality, NameThenSpheroid) {
  DatumPtr a(gx_datum_from_string(kEd50));
  DatumPtr b(gx_datum_new("d european 1950", International1924()));
  DatumPtr other_name(gx_datum_new("D_European_1979", International1924()));
  DatumPtr other_spheroid(gx_datum_new("D_European_1950",
                                       gx_spheroid_new("International_1924", 6378388.0, 1 / 298.0)));
  EXPECT_EQ(gx_datum_eq(a.get(), b.get()), 1);
  EXPECT_EQ(gx_datum_eq(a.get(), other_name.get()), 0);
  EXPECT_EQ(gx_datum_eq(a.get(), other_spheroid.get()), 0);
}

TEST(DatumText, RoundTrips) {
  for (const char* text : {kNad27, kEd50}) {
    DatumPtr datum(gx_datum_from_string(text));
    ASSERT_TRUE(datum) << text;
    EXPECT_EQ(gx_datum_status(datum.get()), GX_STATUS_STRING);
    EXPECT_EQ(Wkt(datum.get()), text);
    DatumPtr back(gx_datum_from_string(Wkt(datum.get()).c_str()));
    EXPECT_EQ(gx_datum_eq(datum.get(), back.get()), 1);
  }
}

TEST(DatumText, AuthorityOptionsAtEachLevel) {
  DatumPtr datum(gx_datum_from_string(
      "DATUM[\"D_WGS_1984\",AUTHORITY[\"EPSG\",6326],"
      "ELLIPSOID[\"WGS_1984\",6378137,298.257223563,AUTHORITY[\"EPSG\",7030]]]"));
  ASSERT_TRUE(datum);
  EXPECT_EQ(Wkt(datum.get(), 0),
            "DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563]]");
  EXPECT_EQ(Wkt(datum.get(), 1),
            "DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563],"
            "AUTHORITY[\"EPSG\",6326]]");
  EXPECT_EQ(Wkt(datum.get(), 2),
            "DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563,"
            "AUTHORITY[\"EPSG\",7030]],AUTHORITY[\"EPSG\",6326]]");
  DatumPtr copy(gx_datum_clone(datum.get()));
  ASSERT_TRUE(copy);
  EXPECT_EQ(Wkt(copy.get(), 2), Wkt(datum.get(), 2));
  EXPECT_NE(gx_datum_spheroid(copy.get()), gx_datum_spheroid(datum.get()));
}

TEST(DatumText, UnknownClausesAreSkipped) {
  DatumPtr datum(gx_datum_from_string(
      "DATUM[\"D_European_1950\",TOWGS84[-87,-98,-121],EXTENSION[\"x\",\"y\"],"
      "SPHEROID[\"International_1924\",6378388,297]]"));
  ASSERT_TRUE(datum);
  EXPECT_EQ(Wkt(datum.get()), kEd50);
}

TEST(DatumText, ObjectLayerPicksTheFamily) {
  ObjectPtr<void> obj(gx_object_from_string(kNad27));
  EXPECT_EQ(gx_object_type(obj.get()), GX_TYPE_DATUM);
  ObjectPtr<void> by_type(gx_object_from_string_by_type(GX_TYPE_DATUM, kEd50));
  EXPECT_EQ(gx_object_type(by_type.get()), GX_TYPE_DATUM);
}

struct Alias {
  const char* old_name;
  const char* new_name;
};

class DatumAliases : public ::testing::TestWithParam<Alias> {};

TEST_P(DatumAliases, OldNamesAreReadAsTheCurrentOnes) {
  std::string text = std::string("DATUM[\"") + GetParam().old_name +
                     "\",SPHEROID[\"International_1924\",6378388,297]]";
  DatumPtr datum(gx_datum_from_string(text.c_str()));
  ASSERT_TRUE(datum);
  EXPECT_EQ(Name(datum.get()), GetParam().new_name);
}

INSTANTIATE_TEST_SUITE_P(
    Table, DatumAliases,
    ::testing::Values(
        Alias{"D_Deutsche_Hauptdreiecksnetz", "D_Deutsches_Hauptdreiecksnetz"},
        Alias{"D_Tahiti", "D_Tahiti_1952"}, Alias{"d tahiti", "D_Tahiti_1952"},
        Alias{"D_Tahaa", "D_Tahaa_1954"}, Alias{"D_K0_1949", "D_Kerguelen_Island_1949"},
        Alias{"D_Reunion", "D_Reunion_1947"}, Alias{"D_Piton_des_Neiges", "D_Reunion_1947"},
        Alias{"D_Phillipine_Reference_System_1992", "D_Philippine_Reference_System_1992"},
        Alias{"D_North_American_1983_CSRS98", "D_North_American_1983_CSRS"},
        Alias{"D_Tahiti_1952", "D_Tahiti_1952"}, Alias{"D_Reunion_1947", "D_Reunion_1947"}));

struct HongKongCase {
  const char* text;
  const char* name;
};

class DatumHongKong : public ::testing::TestWithParam<HongKongCase> {};

TEST_P(DatumHongKong, OnlyOnTheInternationalSpheroid) {
  DatumPtr datum(gx_datum_from_string(GetParam().text));
  ASSERT_TRUE(datum) << GetParam().text;
  EXPECT_EQ(Name(datum.get()), GetParam().name) << GetParam().text;
  ObjectPtr<void> any(gx_object_from_string(GetParam().text));
  EXPECT_EQ(Name(any.get()), GetParam().name) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Rule, DatumHongKong,
    ::testing::Values(
        HongKongCase{"DATUM[\"D_Hong_Kong_1963\",SPHEROID[\"International_1924\",6378388.0,297.0]]",
                     "D_Hong_Kong_1963_67"},
        HongKongCase{"DATUM[\"d hong-kong 1963\",ELLIPSOID[\"INTERNATIONAL 1924\",6378388,297]]",
                     "D_Hong_Kong_1963_67"},
        HongKongCase{"DATUM[\"D_Hong_Kong_1963\",SPHEROID[\"Intl_1924\",6378388.0,297.0]]",
                     "D_Hong_Kong_1963"},
        HongKongCase{"DATUM[\"D_Hong_Kong_1963\",SPHEROID[\"Clarke_1858\",6378293.645208759,"
                     "294.2606763692654]]",
                     "D_Hong_Kong_1963"},
        HongKongCase{"DATUM[\"D_Hong_Kong_1963\",SPHEROID[\"International_1924\",6378388.0,298]]",
                     "D_Hong_Kong_1963"},
        HongKongCase{"DATUM[\"D_Hong_Kong_1963\",SPHEROID[\"International_1924\",6378388.1,297]]",
                     "D_Hong_Kong_1963"},
        HongKongCase{"DATUM[\"D_Hong_Kong_1980\",SPHEROID[\"International_1924\",6378388.0,297.0]]",
                     "D_Hong_Kong_1980"}));

TEST(DatumHongKongByHand, NewDoesNotCorrect) {
  DatumPtr datum(gx_datum_new("D_Hong_Kong_1963", International1924()));
  EXPECT_EQ(Name(datum.get()), "D_Hong_Kong_1963");
}

class DatumTextErrors : public ::testing::TestWithParam<ReadFailure> {};

TEST_P(DatumTextErrors, NullAndExactMessage) {
  ExpectReadFailure(gx_datum_from_string_errext, GetParam());
}

constexpr const char* kReader = "gx_datum_from_string";

INSTANTIATE_TEST_SUITE_P(
    Bad, DatumTextErrors,
    ::testing::Values(
        ReadFailure{"DATUM[]", 459, kReader, "Insufficient tokens in WKT string"},
        ReadFailure{"DATUM[\"D\"]", 442, kReader, "Missing spheroid in WKT string"},
        ReadFailure{"DATUM[\"D\",AUTHORITY[\"EPSG\",6326]]", 442, kReader,
                    "Missing spheroid in WKT string"},
        ReadFailure{"VDATUM[\"NAVD88\"]", 442, kReader, "Missing spheroid in WKT string"},
        ReadFailure{"DATUM[\"D\",SPHEROID[\"S\",1,0],ELLIPSOID[\"S\",1,0]]", 415, kReader,
                    "Duplicate spheroid in WKT string"},
        ReadFailure{"DATUM[\"D\",SPHEROID[\"S\",1,0],AUTHORITY[\"EPSG\",1],AUTHORITY[\"EPSG\",2]]",
                    403, kReader, "Duplicate authority in WKT string"},
        ReadFailure{"DATUM[\"D\",SPHEROID[\"S\",-1,0]]", 420, "gx_spheroid from string",
                    "Semimajor axis (-1) in WKT string is <= 0"},
        ReadFailure{"DATUM[\"D\",SPHEROID[\"S\",1]]", 459, "gx_spheroid_from_string",
                    "Insufficient tokens in WKT string"},
        ReadFailure{"UNIT[\"D\",1]", 466, kReader,
                    "Object type keyword \"DATUM\" not found in WKT string"}));

TEST(DatumText, WithoutRecordEveryFailureReachesTheHook) {
  const char* text = "DATUM[\"D\",SPHEROID[\"S\",6378137,0.5],AUTHORITY[\"EPSG\",0]]";
  {
    MessageCollector hook;
    EXPECT_EQ(gx_datum_from_string(text), nullptr);
    EXPECT_EQ(hook.codes(), (std::vector<uint32_t>{421, 311, 442}));
  }
  MessageCollector hook;
  gx_errext record;
  EXPECT_EQ(gx_datum_from_string_errext(text, &record), nullptr);
  EXPECT_EQ(record.code, 421u);
  EXPECT_EQ(hook.codes(), (std::vector<uint32_t>{421}));
}

TEST(DatumText, CutAnywhereIsSafe) {
  ExpectEveryPrefixIsSafe(
      "DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563,"
      "AUTHORITY[\"EPSG\",7030]],AUTHORITY[\"EPSG\",6326]]",
      GX_TYPE_DATUM);
}

}  // namespace
