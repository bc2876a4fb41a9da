// The unit family: the common operations told once, on the smallest family.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <memory>

#include "frame/hook_support.h"
#include "frame/object.h"
#include "gx_objects.h"

namespace {

struct UnitDeleter {
  void operator()(gx_unit* u) const { gx_unit_del(u); }
};
using UnitPtr = std::unique_ptr<gx_unit, UnitDeleter>;

TEST(UnitNew, AliasStatusAndCode) {
  UnitPtr unit(gx_unit_new("Metres", 1.0));
  ASSERT_TRUE(unit);
  char name[GX_NAME_SIZE];
  EXPECT_STREQ(gx_unit_name(unit.get(), name), "Meter");
  EXPECT_EQ(gx_unit_status(unit.get()), GX_STATUS_NEW);
  EXPECT_EQ(gx_unit_type(unit.get()), GX_TYPE_UNIT);
  EXPECT_EQ(gx_object_code(unit.get()), -1);
  EXPECT_EQ(gx_unit_authority(unit.get()), nullptr);
}

TEST(UnitNew, RefusesFactorsThatAreNotPositive) {
  const double bad[] = {0.0, -1.0, std::nan(""), INFINITY, -INFINITY};
  for (double factor : bad) {
    gx_errext record;
    EXPECT_EQ(gx_unit_new_errext("x", factor, &record), nullptr);
    EXPECT_EQ(record.code, 304u);
    EXPECT_EQ(record.category, GX_CAT_ARGUMENT);
    EXPECT_STREQ(record.function, "gx_unit_new");
  }
  gx_errext record;
  gx_unit_new_errext("x", 0.0, &record);
  EXPECT_STREQ(record.message, "Unit factor argument (0.0) is <= 0");
}

TEST(UnitNew, NullNameIsEmptyAndLongNamesAreCut) {
  UnitPtr unnamed(gx_unit_new(nullptr, 2.0));
  char name[GX_NAME_SIZE];
  EXPECT_STREQ(gx_unit_name(unnamed.get(), name), "");
  std::string long_name(100, 'n');
  UnitPtr cut(gx_unit_new(long_name.c_str(), 2.0));
  EXPECT_EQ(std::strlen(gx_unit_name(cut.get(), name)), 63u);
}

TEST(UnitEquality, NamesBlindToCaseAndBlanksFactorsWithinTolerance) {
  UnitPtr a(gx_unit_new("Meter", 1.0));
  UnitPtr b(gx_unit_new("ME TER", 1.0 + 1e-15));
  UnitPtr c(gx_unit_new("Meter", 1.0 + 1e-12));
  UnitPtr d(gx_unit_new("Foot", 1.0));
  EXPECT_EQ(gx_unit_eq(a.get(), b.get()), 1);
  EXPECT_EQ(gx_unit_eq(a.get(), c.get()), 0);
  EXPECT_EQ(gx_unit_eq(a.get(), d.get()), 0);
  EXPECT_EQ(gx_unit_eq(a.get(), nullptr), 0);
}

TEST(UnitText, RoundTripAndAuthorityOptions) {
  UnitPtr unit(gx_unit_from_string("UNIT[\"Degree\",0.017453292519943295,AUTHORITY[\"EPSG\",9102]]"));
  ASSERT_TRUE(unit);
  EXPECT_EQ(gx_unit_status(unit.get()), GX_STATUS_STRING);
  EXPECT_EQ(gx_object_code(unit.get()), -1);  // a parsed object keeps no code
  char text[GX_WKT_SIZE];
  EXPECT_STREQ(gx_unit_to_string(unit.get(), text), "UNIT[\"Degree\",0.0174532925199433]");
  EXPECT_STREQ(gx_unit_to_string_ext(unit.get(), GX_WKT_TOP_AUTHORITY, text),
               "UNIT[\"Degree\",0.0174532925199433,AUTHORITY[\"EPSG\",9102]]");
  EXPECT_STREQ(gx_unit_to_string_ext(unit.get(), GX_WKT_ALL_AUTHORITY, text),
               "UNIT[\"Degree\",0.0174532925199433,AUTHORITY[\"EPSG\",9102]]");
  UnitPtr back(gx_unit_from_string(text));
  EXPECT_EQ(gx_unit_eq(unit.get(), back.get()), 1);
  EXPECT_EQ(gx_authority_authcode(gx_unit_authority(back.get())), 9102);
}

TEST(UnitText, MissingBracketReadsWithWarningAndPrintsClosed) {
  MessageCollector hook;
  UnitPtr unit(gx_unit_from_string("UNIT[\"Meter\",1.0"));
  ASSERT_TRUE(unit);
  char text[GX_WKT_SIZE];
  EXPECT_STREQ(gx_unit_to_string(unit.get(), text), "UNIT[\"Meter\",1.0]");
  EXPECT_EQ(hook.codes(), (std::vector<uint32_t>{464}));
}

struct BadUnitText {
  const char* text;
  uint32_t code;
  const char* message;
};

class UnitTextErrors : public ::testing::TestWithParam<BadUnitText> {};

TEST_P(UnitTextErrors, NullAndExactMessage) {
  gx_errext record;
  EXPECT_EQ(gx_unit_from_string_errext(GetParam().text, &record), nullptr);
  EXPECT_EQ(record.code, GetParam().code);
  EXPECT_STREQ(record.message, GetParam().message);
  EXPECT_STREQ(record.function, record.code == 320 || record.code == 311 ? "gx_authority_new"
                                                                         : "gx_unit_from_string");
}

INSTANTIATE_TEST_SUITE_P(
    Bad, UnitTextErrors,
    ::testing::Values(BadUnitText{"UNIT[\"Meter\"]", 459, "Insufficient tokens in WKT string"},
                      BadUnitText{"UNIT[\"Meter\",0]", 422,
                                  "Unit factor (0.0) in WKT string is <= 0"},
                      BadUnitText{"UNIT[\"Meter\",-2.5]", 422,
                                  "Unit factor (-2.5) in WKT string is <= 0"},
                      BadUnitText{"UNIT[\"Meter\",abc]", 422,
                                  "Unit factor (0.0) in WKT string is <= 0"},
                      BadUnitText{"UNIT[\"Meter\",nan]", 422,
                                  "Unit factor (nan) in WKT string is <= 0"},
                      BadUnitText{"UNIT[\"Meter\",inf]", 422,
                                  "Unit factor (inf) in WKT string is <= 0"},
                      BadUnitText{"UNIT[\"Meter\",1e999]", 422,
                                  "Unit factor (inf) in WKT string is <= 0"},
                      BadUnitText{"UNIT[\"Meter\",X[1]]", 422,
                                  "Unit factor (0.0) in WKT string is <= 0"},
                      BadUnitText{"UNIT[[\"a\"],1]", 455, "Missing unit conversion factor in WKT string"},
                      BadUnitText{"UNIT[\"M\",1,AUTHORITY[\"EPSG\",0]]", 311,
                                  "Invalid authority code argument (0)"},
                      BadUnitText{"UNIT[\"M\",1,AUTHORITY[\"\",4326]]", 320,
                                  "Null or invalid authority name argument"}));

TEST(UnitText, NullTextIsMessage456) {
  gx_errext record;
  EXPECT_EQ(gx_unit_from_string_errext(nullptr, &record), nullptr);
  EXPECT_EQ(record.code, 456u);
  EXPECT_STREQ(record.message, "Null WKT string");
}

TEST(UnitClone, DeepCopyKeepsStatusCodeAndAuthority) {
  UnitPtr unit(gx_unit_from_string("UNIT[\"Foot\",0.3048,AUTHORITY[\"EPSG\",9002]]"));
  UnitPtr copy(gx_unit_clone(unit.get()));
  ASSERT_TRUE(copy);
  EXPECT_NE(copy.get(), unit.get());
  EXPECT_EQ(gx_unit_eq(unit.get(), copy.get()), 1);
  EXPECT_EQ(gx_unit_status(copy.get()), GX_STATUS_STRING);
  gx_authority* original = gx_unit_authority(unit.get());
  gx_authority* cloned = gx_unit_authority(copy.get());
  ASSERT_NE(cloned, nullptr);
  EXPECT_NE(cloned, original);
  EXPECT_EQ(gx_authority_eq(original, cloned), 1);
  EXPECT_EQ(gx_unit_clone(nullptr), nullptr);
}

TEST(UnitAuthority, MadeOnDemandFromTheFactoryRow) {
  UnitPtr unit(gx_unit_new("Meter", 1.0));
  EXPECT_EQ(gx_unit_authority(unit.get()), nullptr);
  ASSERT_EQ(gx_object_code_set(unit.get(), 9001, "EPSG", "9.3.0"), 1);
  gx_authority* made = gx_unit_authority(unit.get());
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(gx_unit_authority(unit.get()), made);  // made once, then held
  EXPECT_EQ(gx_authority_authcode(made), 9001);
  char version[16];
  EXPECT_STREQ(gx_authority_version(made, version), "9.3.0");
  char text[GX_WKT_SIZE];
  EXPECT_STREQ(gx_unit_to_string_ext(unit.get(), 1, text),
               "UNIT[\"Meter\",1.0,AUTHORITY[\"EPSG\",9001]]");
  // authority_set takes ownership and a null removes it.
  EXPECT_EQ(gx_unit_authority_set(unit.get(), gx_authority_new("ORVA", 5, nullptr)), 1);
  EXPECT_EQ(gx_authority_authcode(gx_unit_authority(unit.get())), 5);
  EXPECT_EQ(gx_unit_authority_set(unit.get(), nullptr), 1);
}

TEST(UnitInvalid, NeutralValuesOnNullAndDeletedObjects) {
  char buffer[GX_WKT_SIZE] = "junk";
  EXPECT_EQ(gx_unit_p(nullptr), 0);
  EXPECT_EQ(gx_unit_factor(nullptr), 1.0);
  double factor = 5;
  gx_unit_factor_w(nullptr, &factor);
  EXPECT_EQ(factor, 0.0);
  EXPECT_STREQ(gx_unit_name(nullptr, buffer), "");
  EXPECT_EQ(gx_unit_name(nullptr, nullptr), nullptr);
  std::strcpy(buffer, "junk");
  EXPECT_STREQ(gx_unit_to_string(nullptr, buffer), "");
  EXPECT_EQ(gx_unit_type(nullptr), 0u);
  EXPECT_EQ(gx_unit_status(nullptr), 0u);
  EXPECT_EQ(gx_unit_authority(nullptr), nullptr);
  EXPECT_EQ(gx_unit_authority_set(nullptr, nullptr), 0);
  gx_unit_del(nullptr);
  // An authority is not a unit.
  gx_authority* authority = gx_authority_new("EPSG", 1, nullptr);
  EXPECT_EQ(gx_unit_p(authority), 0);
  EXPECT_EQ(gx_unit_factor(reinterpret_cast<gx_unit*>(authority)), 1.0);
  gx_unit_del(reinterpret_cast<gx_unit*>(authority));  // not a unit: ignored
  EXPECT_EQ(gx_authority_p(authority), 1);
  gx_authority_del(authority);
}

TEST(UnitWide, SiblingsConvertThroughSixteenBitText) {
  const gx_wchar name[] = {'F', 'o', 'o', 't', 0};
  UnitPtr unit(gx_unit_new_w(name, 0.3048));
  gx_wchar out[GX_WKT_SIZE];
  gx_unit_name_w(unit.get(), out);
  EXPECT_EQ(out[0], 'F');
  EXPECT_EQ(out[4], 0);
  gx_unit_to_string_w(unit.get(), out);
  char narrow[GX_WKT_SIZE];
  size_t i = 0;
  for (; out[i] != 0; ++i) narrow[i] = static_cast<char>(out[i]);
  narrow[i] = 0;
  EXPECT_STREQ(narrow, "UNIT[\"Foot\",0.3048]");
  UnitPtr back(gx_unit_from_string_w(out));
  EXPECT_EQ(gx_unit_eq(unit.get(), back.get()), 1);
  EXPECT_EQ(gx_unit_from_string_w(nullptr), nullptr);
  EXPECT_EQ(gx_unit_new_w(nullptr, 1.0), nullptr);
}

}  // namespace
