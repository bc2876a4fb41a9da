// The generic layers: gx_object_*, gx_coordsys_*, names of types and statuses,
// the keyword dispatch, memory and version.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "frame/hook_support.h"
#include "frame/object.h"
#include "gx_objects.h"

namespace {

TEST(TypeNames, TableBothWays) {
  EXPECT_STREQ(gx_type_to_name(GX_TYPE_GEOGCS), "geogcs");
  EXPECT_STREQ(gx_type_to_name(0x300), "unit");
  EXPECT_STREQ(gx_type_to_name(0x100000), "vtmethod");
  EXPECT_EQ(gx_type_to_name(0), nullptr);
  EXPECT_EQ(gx_type_to_name(0x3), nullptr);
  EXPECT_EQ(gx_name_to_type("GEOGCS"), 1u);
  EXPECT_EQ(gx_name_to_type("LinUnit"), 0x100u);
  EXPECT_EQ(gx_name_to_type("HV-COORDSYS"), 0u);  // no row has an underscore there
  EXPECT_EQ(gx_name_to_type("geog cs"), 0u);      // blanks count here
  EXPECT_EQ(gx_name_to_type(""), 0u);
  EXPECT_EQ(gx_name_to_type(nullptr), 0u);
}

TEST(StatusNames, OneBitEachElseUnknown) {
  EXPECT_STREQ(gx_status_to_string(0), "");
  EXPECT_STREQ(gx_status_to_string(1), "new");
  EXPECT_STREQ(gx_status_to_string(2), "string");
  EXPECT_STREQ(gx_status_to_string(4), "code");
  EXPECT_STREQ(gx_status_to_string(64), "dead");
  EXPECT_STREQ(gx_status_to_string(3), "unknown");
  EXPECT_STREQ(gx_status_to_string(128), "unknown");
}

TEST(Memory, NullForZeroAndNullIsIgnored) {
  EXPECT_EQ(gx_memalloc(0), nullptr);
  void* p = gx_memalloc(16);
  EXPECT_NE(p, nullptr);
  gx_memdealloc(p);
  gx_memdealloc(nullptr);
}

TEST(Version, TextAndCopies) {
  EXPECT_STREQ(gx_version(), "Gexmar Version 9.3.0 Build 505 (Apr 22 2008)");
  char buffer[64];
  EXPECT_STREQ(gx_version_string(buffer), gx_version());
  EXPECT_EQ(gx_version_string(nullptr), nullptr);
  gx_wchar wide[64];
  gx_version_string_w(wide);
  EXPECT_EQ(wide[0], 'G');
}

TEST(ObjectLayer, DispatchesThroughTheTable) {
  void* unit = gx_object_from_string("  LINUNIT[\"Foot\",0.3048]");
  ASSERT_NE(unit, nullptr);
  EXPECT_EQ(gx_object_type(unit), GX_TYPE_UNIT);
  EXPECT_EQ(gx_object_status(unit), GX_STATUS_STRING);
  char text[GX_WKT_SIZE];
  EXPECT_STREQ(gx_object_to_string(unit, text), "UNIT[\"Foot\",0.3048]");
  char name[GX_NAME_SIZE];
  EXPECT_STREQ(gx_object_name(unit, name), "Foot");
  void* copy = gx_object_clone(unit);
  EXPECT_EQ(gx_object_eq(unit, copy), 1);
  void* authority = gx_object_from_string("AUTHORITY[\"EPSG\",9002]");
  ASSERT_NE(authority, nullptr);
  // Different types are unequal without any eq being called.
  EXPECT_EQ(gx_object_eq(unit, authority), 0);
  EXPECT_EQ(gx_object_authority_set(unit, static_cast<gx_authority*>(authority)), 1);
  EXPECT_EQ(gx_object_authority(unit), authority);
  gx_object_del(copy);
  gx_object_del(unit);
  gx_object_del(nullptr);
}

TEST(ObjectLayer, TextWithoutLettersGivesNullAndNoMessage) {
  MessageCollector hook;
  gx_errext record;
  EXPECT_EQ(gx_object_from_string_errext("  123", &record), nullptr);
  EXPECT_EQ(record.severity, 0u);
  EXPECT_EQ(hook.size(), 0u);
}

TEST(ObjectLayer, UnknownKeywordIs461) {
  gx_errext record;
  EXPECT_EQ(gx_object_from_string_errext("FOO[\"x\",BAR[1]]", &record), nullptr);
  EXPECT_EQ(record.code, 461u);
  EXPECT_STREQ(record.message, "Unrecognized object keyword \"FOO[\"x\",BAR[1\" in WKT string");
  EXPECT_EQ(gx_object_from_string_errext(nullptr, &record), nullptr);
  EXPECT_EQ(record.code, 456u);
}

TEST(ObjectLayer, ByTypeGoesToTheFamilyOrReports426) {
  void* unit = gx_object_from_string_by_type(GX_TYPE_ANGUNIT, "UNIT[\"Degree\",0.0174532925199433]");
  ASSERT_NE(unit, nullptr);
  EXPECT_EQ(gx_object_type(unit), GX_TYPE_UNIT);
  gx_object_del(unit);
  void* any = gx_object_from_string_by_type(0, "AUTHORITY[\"EPSG\",1]");
  EXPECT_EQ(gx_object_type(any), GX_TYPE_AUTHORITY);
  gx_object_del(any);
  gx_errext record;
  EXPECT_EQ(gx_object_from_string_by_type_errext(0x3, "UNIT[\"a\",1]", &record), nullptr);
  EXPECT_EQ(record.code, 426u);
  EXPECT_STREQ(record.message, "Invalid object type (000003)");
}

TEST(ObjectLayer, NeutralOnInvalidObjects) {
  char buffer[GX_WKT_SIZE] = "junk";
  EXPECT_EQ(gx_object_p(nullptr), 0);
  EXPECT_STREQ(gx_object_name(nullptr, buffer), "");
  EXPECT_EQ(gx_object_name(nullptr, nullptr), nullptr);
  EXPECT_EQ(gx_object_clone(nullptr), nullptr);
  EXPECT_EQ(gx_object_type(nullptr), 0u);
  EXPECT_EQ(gx_object_status(nullptr), 0u);
  EXPECT_EQ(gx_object_authority(nullptr), nullptr);
  // Memory that is not an object: no magic, no call.
  uint64_t junk[16] = {};
  EXPECT_EQ(gx_object_p(junk), 0);
  gx_object_del(junk);
}

TEST(CoordsysLayer, KnowsOnlyGeographicAndProjectedSystems) {
  gx_unit* unit = gx_unit_new("Meter", 1.0);
  EXPECT_EQ(gx_coordsys_p(unit), 0);
  EXPECT_EQ(gx_coordsys_type(unit), 0u);
  EXPECT_EQ(gx_coordsys_status(unit), 0u);
  EXPECT_EQ(gx_object_status(unit), GX_STATUS_NEW);
  char buffer[GX_WKT_SIZE];
  EXPECT_STREQ(gx_coordsys_to_string(unit, buffer), "");
  gx_coordsys_del(unit);  // not a coordinate system: left alone
  EXPECT_EQ(gx_unit_p(unit), 1);
  gx_unit_del(unit);
  gx_errext record;
  EXPECT_EQ(gx_coordsys_from_string_errext(nullptr, &record), nullptr);
  EXPECT_EQ(record.code, 456u);
  EXPECT_STREQ(record.function, "gx_coordsys_from_string");
}

}  // namespace

namespace {

// Every family that exists is reached by its keyword, in the order of tests
// that keeps a keyword that holds another from being taken for it.
TEST(ObjectLayer, KeywordDispatchReachesEveryFamily) {
  const char* geogcs =
      "GEOGCS[\"G\",DATUM[\"D\",SPHEROID[\"S\",6378137.0,298.257223563]],PRIMEM[\"P\",0],"
      "UNIT[\"Degree\",0.0174532925199433]]";
  struct Case {
    std::string text;
    uint32_t type;
  } cases[] = {
      {std::string("GEOGTRAN[\"T\",") + geogcs + "," + geogcs +
           ",METHOD[\"Geocentric_Translation\"],PARAMETER[\"X_Axis_Translation\",1],"
           "PARAMETER[\"Y_Axis_Translation\",1],PARAMETER[\"Z_Axis_Translation\",1]]",
       GX_TYPE_GEOGTRAN},
      {std::string("PROJCS[\"P\",") + geogcs + ",PROJECTION[\"Mercator\"],UNIT[\"Meter\",1]]",
       GX_TYPE_PROJCS},
      {geogcs, GX_TYPE_GEOGCS},
      {"DATUM[\"D\",SPHEROID[\"S\",6378137.0,298.257223563]]", GX_TYPE_DATUM},
      {"PRIMEM[\"P\",2.5]", GX_TYPE_PRIMEM},
      {"ELLIPSOID[\"S\",6378137.0,298.257223563]", GX_TYPE_SPHEROID},
      {"METHOD[\"NTv2\"]", GX_TYPE_METHOD},
      {"PROJECTION[\"Mercator\"]", GX_TYPE_PROJECTION},
      {"PARAMETER[\"Scale_Factor\",0.9996]", GX_TYPE_PARAMETER},
  };
  for (const Case& c : cases) {
    void* obj = gx_object_from_string(c.text.c_str());
    ASSERT_NE(obj, nullptr) << c.text;
    EXPECT_EQ(gx_object_type(obj), c.type) << c.text;
    void* by_type = gx_object_from_string_by_type(c.type, c.text.c_str());
    EXPECT_EQ(gx_object_eq(obj, by_type), 1) << c.text;
    gx_object_del(by_type);
    gx_object_del(obj);
  }
}

}  // namespace

namespace {

// Found by fuzzing: a 16-bit text longer than the buffer it is narrowed
// into overran the stack.  Every _w reader and maker cuts it to its buffer,
// as the families' own _w readers do.
TEST(SixteenBitText, TextsAndNamesLongerThanTheirBuffersAreCut) {
  std::vector<gx_wchar> text;
  const char* head = "GEOGCS[\"";
  for (const char* c = head; *c != '\0'; ++c) text.push_back(static_cast<gx_wchar>(*c));
  text.insert(text.end(), 5000, static_cast<gx_wchar>('x'));
  text.push_back(0);
  for (void* obj : {gx_object_from_string_w(text.data()), gx_coordsys_from_string_w(text.data())})
    gx_object_del(obj);
  std::vector<gx_wchar> name(300, static_cast<gx_wchar>('n'));
  name.push_back(0);
  gx_projection* projection = gx_projection_new_w(name.data());
  gx_method* method = gx_method_new_w(name.data(), nullptr, nullptr);
  gx_projection_del(projection);
  gx_method_del(method);
}

}  // namespace
