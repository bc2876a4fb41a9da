// The geographic CS family: ownership of its parts, text with every part,
// authorities at each level, old names, the Hong Kong correction, and the
// coordinate-system layer.
#include <gtest/gtest.h>

#include <string>

#include "frame/hook_support.h"
#include "frame/object.h"
#include "objects/object_support.h"

namespace {

using GeogcsPtr = ObjectPtr<gx_geogcs>;

// WGS 84 with the EPSG codes of each part (4326, 6326, 7030, 8901, 9122).
constexpr const char* kWgs84 =
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
    "298.257223563,AUTHORITY[\"EPSG\",7030]],AUTHORITY[\"EPSG\",6326]],PRIMEM[\"Greenwich\",0.0,"
    "AUTHORITY[\"EPSG\",8901]],UNIT[\"Degree\",0.0174532925199433,AUTHORITY[\"EPSG\",9122]],"
    "AUTHORITY[\"EPSG\",4326]]";
constexpr const char* kWgs84Plain =
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
    "298.257223563]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";
constexpr const char* kNad27 =
    "GEOGCS[\"GCS_North_American_1927\",DATUM[\"D_North_American_1927\",SPHEROID["
    "\"Clarke_1866\",6378206.4,294.9786982]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\","
    "0.0174532925199433]]";
constexpr const char* kEd50 =
    "GEOGCS[\"GCS_European_1950\",DATUM[\"D_European_1950\",SPHEROID[\"International_1924\","
    "6378388.0,297.0]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";
// NTF (Paris): Clarke 1880 (IGN), the Paris meridian in degrees, a grad unit
// (EPSG 4807).
constexpr const char* kNtfParis =
    "GEOGCS[\"GCS_NTF_Paris\",DATUM[\"D_NTF\",SPHEROID[\"Clarke_1880_IGN\",6378249.2,"
    "293.4660212936269]],PRIMEM[\"Paris\",2.33722917],UNIT[\"Grad\",0.01570796326794897]]";

constexpr double kDegree = 0.017453292519943295;

gx_datum* Wgs84Datum() {
  return gx_datum_new("D_WGS_1984", gx_spheroid_new("WGS_1984", 6378137.0, 1 / 298.257223563));
}

// ---- new ------------------------------------------------------------------------

TEST(GeogcsNew, TakesItsPartsAndLendsThem) {
  gx_datum* datum = Wgs84Datum();
  gx_primem* primem = gx_primem_new("Greenwich", 0.0);
  gx_unit* unit = gx_unit_new("Degree", kDegree);
  GeogcsPtr geogcs(gx_geogcs_new("GCS_WGS_1984", datum, primem, unit));
  ASSERT_TRUE(geogcs);
  EXPECT_EQ(gx_geogcs_datum(geogcs.get()), datum);
  EXPECT_EQ(gx_geogcs_primem(geogcs.get()), primem);
  EXPECT_EQ(gx_geogcs_unit(geogcs.get()), unit);
  EXPECT_EQ(gx_geogcs_status(geogcs.get()), GX_STATUS_NEW);
  EXPECT_EQ(gx_geogcs_type(geogcs.get()), GX_TYPE_GEOGCS);
  EXPECT_EQ(Wkt(geogcs.get()), kWgs84Plain);
}

struct NewCase {
  bool datum, primem, unit;
  uint32_t code;
  const char* message;
};

class GeogcsNewErrors : public ::testing::TestWithParam<NewCase> {};

TEST_P(GeogcsNewErrors, PartsAreCheckedInOrderAndStayWithTheCaller) {
  ObjectPtr<gx_datum> datum(GetParam().datum ? Wgs84Datum() : nullptr);
  ObjectPtr<gx_primem> primem(GetParam().primem ? gx_primem_new("Greenwich", 0.0) : nullptr);
  ObjectPtr<gx_unit> unit(GetParam().unit ? gx_unit_new("Degree", kDegree) : nullptr);
  gx_errext record;
  EXPECT_EQ(gx_geogcs_new_errext("G", datum.get(), primem.get(), unit.get(), &record), nullptr);
  EXPECT_EQ(record.code, GetParam().code);
  EXPECT_EQ(record.category, GX_CAT_ARGUMENT);
  EXPECT_STREQ(record.function, "gx_geogcs_new");
  EXPECT_STREQ(record.message, GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Bad, GeogcsNewErrors,
    ::testing::Values(NewCase{false, false, false, 334, "Null or invalid datum object argument"},
                      NewCase{false, true, true, 334, "Null or invalid datum object argument"},
                      NewCase{true, false, false, 329, "Null or invalid primem object argument"},
                      NewCase{true, true, false, 322,
                              "Null or invalid angular unit object argument"}));

TEST(GeogcsNew, PartOfAnotherFamilyIsRefused) {
  ObjectPtr<gx_primem> primem(gx_primem_new("Greenwich", 0.0));
  ObjectPtr<gx_unit> unit(gx_unit_new("Degree", kDegree));
  gx_errext record;
  // A prime meridian where the datum belongs.
  EXPECT_EQ(gx_geogcs_new_errext("G", reinterpret_cast<gx_datum*>(primem.get()), primem.get(),
                                 unit.get(), &record),
            nullptr);
  EXPECT_EQ(record.code, 334u);
}

TEST(GeogcsInvalid, NeutralValues) {
  EXPECT_EQ(gx_geogcs_datum(nullptr), nullptr);
  EXPECT_EQ(gx_geogcs_primem(nullptr), nullptr);
  EXPECT_EQ(gx_geogcs_unit(nullptr), nullptr);
  EXPECT_EQ(gx_geogcs_authority(nullptr), nullptr);
  EXPECT_EQ(gx_geogcs_new_w(nullptr, nullptr, nullptr, nullptr), nullptr);
  gx_geogcs_del(nullptr);
}

TEST(GeogcsWide, NameAndText) {
  const gx_wchar name[] = {'G', 'C', 'S', 0};
  GeogcsPtr geogcs(gx_geogcs_new_w(name, Wgs84Datum(), gx_primem_new("Greenwich", 0),
                                   gx_unit_new("Degree", kDegree)));
  ASSERT_TRUE(geogcs);
  gx_wchar wide[GX_WKT_SIZE];
  gx_geogcs_to_string_w(geogcs.get(), wide);
  GeogcsPtr back(gx_geogcs_from_string_w(wide));
  EXPECT_EQ(gx_geogcs_eq(geogcs.get(), back.get()), 1);
}

// ---- text ------------------------------------------------------------------------

TEST(GeogcsText, RealDefinitionsRoundTrip) {
  for (const char* text : {kWgs84Plain, kNad27, kEd50, kNtfParis}) {
    GeogcsPtr geogcs(gx_geogcs_from_string(text));
    ASSERT_TRUE(geogcs) << text;
    EXPECT_EQ(gx_geogcs_status(geogcs.get()), GX_STATUS_STRING);
    EXPECT_EQ(Wkt(geogcs.get()), text);
    GeogcsPtr back(gx_geogcs_from_string(Wkt(geogcs.get()).c_str()));
    EXPECT_EQ(gx_geogcs_eq(geogcs.get(), back.get()), 1) << text;
  }
}

TEST(GeogcsText, ParisInGradsKeepsItsMeridianInDegrees) {
  GeogcsPtr geogcs(gx_geogcs_from_string(kNtfParis));
  ASSERT_TRUE(geogcs);
  EXPECT_EQ(gx_primem_longitude(gx_geogcs_primem(geogcs.get())), 2.33722917);
  EXPECT_DOUBLE_EQ(gx_unit_factor(gx_geogcs_unit(geogcs.get())), 3.14159265358979323846 / 200);
  EXPECT_EQ(gx_spheroid_axis(gx_datum_spheroid(gx_geogcs_datum(geogcs.get()))), 6378249.2);
}

TEST(GeogcsText, AuthorityOptionsAtEachLevel) {
  GeogcsPtr geogcs(gx_geogcs_from_string(kWgs84));
  ASSERT_TRUE(geogcs);
  EXPECT_EQ(Wkt(geogcs.get(), 0), kWgs84Plain);
  std::string top = kWgs84Plain;
  top.insert(top.size() - 1, ",AUTHORITY[\"EPSG\",4326]");
  EXPECT_EQ(Wkt(geogcs.get(), 1), top);
  EXPECT_EQ(Wkt(geogcs.get(), 2), kWgs84);
  EXPECT_EQ(gx_authority_authcode(gx_geogcs_authority(geogcs.get())), 4326);
  EXPECT_EQ(gx_authority_authcode(gx_datum_authority(gx_geogcs_datum(geogcs.get()))), 6326);
}

TEST(GeogcsText, ClausesInAnyOrderAndUnknownOnesSkipped) {
  GeogcsPtr geogcs(gx_geogcs_from_string(
      "GEOGCS[\"GCS_WGS_1984\",AUTHORITY[\"EPSG\",\"4326\"],AXIS[\"Lat\",NORTH],"
      "UNIT[\"Degree\",0.0174532925199433,AUTHORITY[\"EPSG\",9122]],AXIS[\"Lon\",EAST],"
      "PRIMEM[\"Greenwich\",0.0,AUTHORITY[\"EPSG\",8901]],"
      "DATUM[\"D_WGS_1984\",TOWGS84[0,0,0],AUTHORITY[\"EPSG\",6326],"
      "SPHEROID[\"WGS_1984\",6378137.0,298.257223563,AUTHORITY[\"EPSG\",7030]]]]"));
  ASSERT_TRUE(geogcs);
  EXPECT_EQ(Wkt(geogcs.get(), 2), kWgs84);
}

TEST(GeogcsText, ReadFromALongerText) {
  // The reader starts at the first GEOGCS of the text.
  GeogcsPtr geogcs(gx_geogcs_from_string(
      "PROJCS[\"WGS_1984_UTM_Zone_31N\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\","
      "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],PRIMEM[\"Greenwich\",0.0],"
      "UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Transverse_Mercator\"],"
      "UNIT[\"Meter\",1.0]]"));
  ASSERT_TRUE(geogcs);
  EXPECT_EQ(Wkt(geogcs.get()), kWgs84Plain);
}

TEST(GeogcsText, LongestNamesAndAuthoritiesFitTheBuffer) {
  const std::string name(63, 'n');
  const std::string authority = "AUTHORITY[\"" + std::string(63, 'A') + "\",2147483647]";
  auto part = [&](const std::string& head, const std::string& values) {
    return head + "[\"" + name + "\"" + values + "," + authority + "]";
  };
  std::string text = part("GEOGCS",
                          "," + part("DATUM", "," + part("SPHEROID", ",6378137.0,298.257223563")) +
                              "," + part("PRIMEM", ",-179.5") + "," +
                              part("UNIT", ",0.0174532925199433"));
  ASSERT_LT(text.size(), 1023u);
  GeogcsPtr geogcs(gx_geogcs_from_string(text.c_str()));
  ASSERT_TRUE(geogcs);
  EXPECT_EQ(Wkt(geogcs.get(), 2), text);
}

TEST(GeogcsText, TextBeyond1023CharactersIsRefused) {
  std::string text = std::string("GEOGCS[\"G\",") + kEd50 + ",AXIS[\"" + std::string(1000, 'x') +
                     "\"]]";
  gx_errext record;
  EXPECT_EQ(gx_geogcs_from_string_errext(text.c_str(), &record), nullptr);
  EXPECT_EQ(record.code, 467u);
  EXPECT_STREQ(record.message, "WKT string length exceeds 1023 characters");
}

TEST(GeogcsText, ObjectAndCoordsysLayers) {
  ObjectPtr<void> obj(gx_object_from_string(kNad27));
  ASSERT_EQ(gx_object_type(obj.get()), GX_TYPE_GEOGCS);
  ObjectPtr<void> cs(gx_coordsys_from_string(kNad27));
  ASSERT_TRUE(cs);
  EXPECT_EQ(gx_coordsys_p(cs.get()), 1);
  EXPECT_EQ(gx_coordsys_type(cs.get()), GX_TYPE_GEOGCS);
  EXPECT_EQ(gx_coordsys_status(cs.get()), 0u);
  EXPECT_EQ(gx_object_status(cs.get()), GX_STATUS_STRING);
  EXPECT_EQ(gx_coordsys_eq(obj.get(), cs.get()), 1);
  char buffer[GX_WKT_SIZE];
  EXPECT_STREQ(gx_coordsys_to_string(cs.get(), buffer), kNad27);
  EXPECT_STREQ(gx_coordsys_name(cs.get(), buffer), "GCS_North_American_1927");
  ObjectPtr<void> copy(gx_coordsys_clone(cs.get()));
  EXPECT_EQ(gx_coordsys_eq(copy.get(), cs.get()), 1);
  EXPECT_EQ(gx_coordsys_authority(cs.get()), nullptr);
  EXPECT_EQ(gx_coordsys_authority_set(cs.get(), gx_authority_new("EPSG", 4267, nullptr)), 1);
  EXPECT_EQ(gx_authority_authcode(gx_coordsys_authority(cs.get())), 4267);
  // Whatever the text holds, without PROJCS it goes to the geographic reader.
  gx_errext record;
  EXPECT_EQ(gx_coordsys_from_string_errext("DATUM[\"D\"]", &record), nullptr);
  EXPECT_EQ(record.code, 466u);
  EXPECT_STREQ(record.function, "gx_geogcs_from_string");
}

TEST(GeogcsEquality, EveryPartCounts) {
  GeogcsPtr base(gx_geogcs_from_string(kEd50));
  auto variant = [](const char* from, const char* to) {
    std::string text = kEd50;
    text.replace(text.find(from), std::string(from).size(), to);
    return GeogcsPtr(gx_geogcs_from_string(text.c_str()));
  };
  EXPECT_EQ(gx_geogcs_eq(base.get(), variant("GCS_European", "gcs european").get()), 1);
  EXPECT_EQ(gx_geogcs_eq(base.get(), variant("GCS_European_1950", "GCS_ED50").get()), 0);
  EXPECT_EQ(gx_geogcs_eq(base.get(), variant("D_European_1950", "D_ED50").get()), 0);
  EXPECT_EQ(gx_geogcs_eq(base.get(), variant("297.0", "297.1").get()), 0);
  EXPECT_EQ(gx_geogcs_eq(base.get(), variant("\"Greenwich\",0.0", "\"Greenwich\",1.0").get()), 0);
  EXPECT_EQ(gx_geogcs_eq(base.get(), variant("0.0174532925199433", "0.0157079632679490").get()), 0);
}

TEST(GeogcsClone, DeepCopyOfEveryPart) {
  GeogcsPtr geogcs(gx_geogcs_from_string(kWgs84));
  GeogcsPtr copy(gx_geogcs_clone(geogcs.get()));
  ASSERT_TRUE(copy);
  EXPECT_EQ(gx_geogcs_eq(geogcs.get(), copy.get()), 1);
  EXPECT_NE(gx_geogcs_datum(copy.get()), gx_geogcs_datum(geogcs.get()));
  EXPECT_NE(gx_geogcs_primem(copy.get()), gx_geogcs_primem(geogcs.get()));
  EXPECT_NE(gx_geogcs_unit(copy.get()), gx_geogcs_unit(geogcs.get()));
  EXPECT_EQ(Wkt(copy.get(), 2), kWgs84);
  EXPECT_EQ(gx_geogcs_status(copy.get()), GX_STATUS_STRING);
}

struct Alias {
  const char* old_name;
  const char* new_name;
};

class GeogcsAliases : public ::testing::TestWithParam<Alias> {};

TEST_P(GeogcsAliases, OldNamesAreReadAsTheCurrentOnes) {
  std::string text = kEd50;
  text.replace(text.find("GCS_European_1950"), 17, GetParam().old_name);
  GeogcsPtr geogcs(gx_geogcs_from_string(text.c_str()));
  ASSERT_TRUE(geogcs);
  EXPECT_EQ(Name(geogcs.get()), GetParam().new_name);
}

INSTANTIATE_TEST_SUITE_P(
    Table, GeogcsAliases,
    ::testing::Values(
        Alias{"GCS_Deutsche_Hauptdreiecksnetz", "GCS_Deutsches_Hauptdreiecksnetz"},
        Alias{"GCS_Tahiti", "GCS_Tahiti_1952"}, Alias{"GCS_Tahaa", "GCS_Tahaa_1954"},
        Alias{"GCS_K0_1949", "GCS_Kerguelen_Island_1949"}, Alias{"GCS_Reunion", "GCS_Reunion_1947"},
        Alias{"gcs piton des neiges", "GCS_Reunion_1947"},
        Alias{"GCS_North_American_1983_CSRS98", "GCS_North_American_1983_CSRS"},
        Alias{"GCS_Tahiti_1952", "GCS_Tahiti_1952"}));

TEST(GeogcsAliasesByHand, NewKeepsTheOldName) {
  GeogcsPtr geogcs(gx_geogcs_new("GCS_Tahiti", Wgs84Datum(), gx_primem_new("Greenwich", 0),
                                 gx_unit_new("Degree", kDegree)));
  EXPECT_EQ(Name(geogcs.get()), "GCS_Tahiti");
}

TEST(GeogcsText, DatumInsideIsReadWithItsOldNameTable) {
  std::string text = kEd50;
  text.replace(text.find("D_European_1950"), 15, "D_Tahaa");
  GeogcsPtr geogcs(gx_geogcs_from_string(text.c_str()));
  EXPECT_EQ(Name(gx_geogcs_datum(geogcs.get())), "D_Tahaa_1954");
}

// ---- the Hong Kong correction ------------------------------------------------------

std::string HongKong(const char* gcs, const char* datum, const char* primem, const char* unit) {
  return std::string("GEOGCS[\"") + gcs + "\",DATUM[\"" + datum +
         "\",SPHEROID[\"International_1924\",6378388.0,297.0]],PRIMEM[\"Greenwich\"," + primem +
         "],UNIT[\"Degree\"," + unit + "]]";
}

struct HongKongCase {
  std::string text;
  const char* name;
  const char* datum;
};

std::ostream& operator<<(std::ostream& out, const HongKongCase& c) { return out << c.text; }

class GeogcsHongKong : public ::testing::TestWithParam<HongKongCase> {};

TEST_P(GeogcsHongKong, OnlyOverTheRenamedDatumOnGreenwichInDegrees) {
  GeogcsPtr geogcs(gx_geogcs_from_string(GetParam().text.c_str()));
  ASSERT_TRUE(geogcs);
  EXPECT_EQ(Name(geogcs.get()), GetParam().name);
  // The datum inside is never corrected: it was read as a part.
  EXPECT_EQ(Name(gx_geogcs_datum(geogcs.get())), GetParam().datum);
  ObjectPtr<void> any(gx_object_from_string(GetParam().text.c_str()));
  EXPECT_EQ(Name(any.get()), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(
    Rule, GeogcsHongKong,
    ::testing::Values(
        HongKongCase{HongKong("GCS_Hong_Kong_1963", "D_Hong_Kong_1963_67", "0.0",
                              "0.0174532925199433"),
                     "GCS_Hong_Kong_1963_67", "D_Hong_Kong_1963_67"},
        HongKongCase{HongKong("gcs hong kong 1963", "d hong kong 1963 67", "0",
                              "0.017453292519943295"),
                     "GCS_Hong_Kong_1963_67", "d hong kong 1963 67"},
        HongKongCase{HongKong("GCS_Hong_Kong_1963", "D_Hong_Kong_1963", "0.0",
                              "0.0174532925199433"),
                     "GCS_Hong_Kong_1963", "D_Hong_Kong_1963"},
        HongKongCase{HongKong("GCS_Hong_Kong_1963", "D_Hong_Kong_1963_67", "1e-10",
                              "0.0174532925199433"),
                     "GCS_Hong_Kong_1963", "D_Hong_Kong_1963_67"},
        HongKongCase{HongKong("GCS_Hong_Kong_1963", "D_Hong_Kong_1963_67", "0.0",
                              "0.0157079632679490"),
                     "GCS_Hong_Kong_1963", "D_Hong_Kong_1963_67"},
        HongKongCase{HongKong("GCS_Hong_Kong_1980", "D_Hong_Kong_1963_67", "0.0",
                              "0.0174532925199433"),
                     "GCS_Hong_Kong_1980", "D_Hong_Kong_1963_67"}));

TEST(GeogcsHongKongByHand, NewDoesNotCorrect) {
  GeogcsPtr geogcs(gx_geogcs_new(
      "GCS_Hong_Kong_1963",
      gx_datum_new("D_Hong_Kong_1963_67", gx_spheroid_new("International_1924", 6378388.0, 1 / 297.0)),
      gx_primem_new("Greenwich", 0), gx_unit_new("Degree", kDegree)));
  EXPECT_EQ(Name(geogcs.get()), "GCS_Hong_Kong_1963");
}

// ---- failures ----------------------------------------------------------------------

class GeogcsTextErrors : public ::testing::TestWithParam<ReadFailure> {};

TEST_P(GeogcsTextErrors, NullAndExactMessage) {
  ExpectReadFailure(gx_geogcs_from_string_errext, GetParam());
}

constexpr const char* kReader = "gx_geogcs_from_string";
#define ED50_DATUM "DATUM[\"D\",SPHEROID[\"International_1924\",6378388.0,297.0]]"
#define GREENWICH "PRIMEM[\"Greenwich\",0.0]"
#define DEGREE "UNIT[\"Degree\",0.0174532925199433]"

INSTANTIATE_TEST_SUITE_P(
    Bad, GeogcsTextErrors,
    ::testing::Values(
        ReadFailure{"GEOGCS[]", 459, kReader, "Insufficient tokens in WKT string"},
        ReadFailure{"GEOGCS[\"G\"," GREENWICH "," DEGREE "]", 431, kReader,
                    "Missing datum in WKT string"},
        ReadFailure{"GEOGCS[\"G\"," ED50_DATUM "," DEGREE "]", 440, kReader,
                    "Missing prime meridian in WKT string"},
        ReadFailure{"GEOGCS[\"G\"," ED50_DATUM "," GREENWICH "]", 427, kReader,
                    "Missing angular unit in WKT string"},
        ReadFailure{"GEOGCS[\"G\"," ED50_DATUM "," GREENWICH ",ANGUNIT[\"Degree\",0.01]]", 427,
                    kReader, "Missing angular unit in WKT string"},
        ReadFailure{"GEOGCS[\"G\"," ED50_DATUM "," ED50_DATUM "," GREENWICH "," DEGREE "]", 405,
                    kReader, "Duplicate datum in WKT string"},
        ReadFailure{"GEOGCS[\"G\"," ED50_DATUM "," GREENWICH "," GREENWICH "," DEGREE "]", 412,
                    kReader, "Duplicate primem in WKT string"},
        ReadFailure{"GEOGCS[\"G\"," ED50_DATUM "," GREENWICH "," DEGREE "," DEGREE "]", 401,
                    kReader, "Duplicate unit in WKT string"},
        ReadFailure{"GEOGCS[\"G\"," ED50_DATUM "," GREENWICH "," DEGREE
                    ",AUTHORITY[\"EPSG\",4230],AUTHORITY[\"EPSG\",4230]]",
                    403, kReader, "Duplicate authority in WKT string"},
        ReadFailure{"GEOGCS[\"G\"," ED50_DATUM ",PRIMEM[\"P\",190]," DEGREE "]", 419,
                    "gx_primem_from_string", "Longitude (190) in WKT string is < -180 or > 180"},
        ReadFailure{"GEOGCS[\"G\"," ED50_DATUM "," GREENWICH ",UNIT[\"Degree\",-1]]", 422,
                    "gx_unit_from_string", "Unit factor (-1.0) in WKT string is <= 0"},
        ReadFailure{"GEOGCS[\"G\",DATUM[\"D\"]," GREENWICH "," DEGREE "]", 442,
                    "gx_datum_from_string", "Missing spheroid in WKT string"},
        ReadFailure{"GEOGCS[\"G\",DATUM[\"D\",SPHEROID[\"S\",6378137,0.9]]," GREENWICH "," DEGREE
                    "]",
                    421, "gx_spheroid from string",
                    "Flattening inverse (0.9) in WKT string is not 0 and is < 1"}));

TEST(GeogcsText, WithoutRecordEveryMissingPartIsReported) {
  {
    MessageCollector hook;
    EXPECT_EQ(gx_geogcs_from_string("GEOGCS[\"G\",AXIS[\"Lat\",NORTH]]"), nullptr);
    EXPECT_EQ(hook.codes(), (std::vector<uint32_t>{431, 440, 427}));
  }
  {
    // A bad part and the parts missing behind it.
    MessageCollector hook;
    EXPECT_EQ(gx_geogcs_from_string("GEOGCS[\"G\",PRIMEM[\"P\",200],UNIT[\"U\",0]]"), nullptr);
    EXPECT_EQ(hook.codes(), (std::vector<uint32_t>{419, 422, 431, 440, 427}));
  }
  MessageCollector hook;
  gx_errext record;
  EXPECT_EQ(gx_geogcs_from_string_errext("GEOGCS[\"G\",PRIMEM[\"P\",200],UNIT[\"U\",0]]", &record),
            nullptr);
  EXPECT_EQ(record.code, 419u);
  EXPECT_EQ(hook.codes(), (std::vector<uint32_t>{419}));
}

TEST(GeogcsText, CutAnywhereIsSafe) { ExpectEveryPrefixIsSafe(kWgs84, GX_TYPE_GEOGCS); }

}  // namespace
