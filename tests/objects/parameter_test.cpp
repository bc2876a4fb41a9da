// The parameter family and the parameter table.
#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>

#include "frame/hook_support.h"
#include "frame/object.h"
#include "objects/object_support.h"
#include "objects/parmlist.h"

namespace {

using ParameterPtr = ObjectPtr<gx_parameter>;

// ---- the table ----------------------------------------------------------------

TEST(ParameterTable, EveryRowIsFoundByItsCodeAndName) {
  int32_t count = 0;
  std::set<int32_t> codes;
  for (const gx_parmlist_row* row; (row = gx_parmlist_row_at(count)) != nullptr; ++count) {
    EXPECT_STREQ(row->authname, "ORVA");
    EXPECT_STREQ(row->version, "9.3.0");
    EXPECT_GE(row->slot, 0);
    EXPECT_LE(row->slot, 15);
    EXPECT_NE(row->owners, 0u);
    EXPECT_TRUE(codes.insert(row->code).second) << row->code;
    EXPECT_EQ(gx_parmlist_row_from_code(row->code), row);
    EXPECT_EQ(gx_parmlist_row_from_name(row->name), row) << row->name;
  }
  EXPECT_EQ(count, 41);
  EXPECT_EQ(gx_parmlist_row_at(-1), nullptr);
}

struct RowCase {
  const char* name;
  int32_t code;
  double default_value;
  int32_t slot;
  uint32_t owners;
};

class ParameterRows : public ::testing::TestWithParam<RowCase> {};

TEST_P(ParameterRows, HoldTheirCodeDefaultSlotAndOwners) {
  const gx_parmlist_row* row = gx_parmlist_row_from_name(GetParam().name);
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->code, GetParam().code);
  EXPECT_EQ(row->default_value, GetParam().default_value);
  EXPECT_EQ(row->slot, GetParam().slot);
  EXPECT_EQ(row->owners, GetParam().owners);
}

INSTANTIATE_TEST_SUITE_P(
    Samples, ParameterRows,
    ::testing::Values(RowCase{"False_Easting", 100001, 0, 0, GX_TYPE_PROJCS},
                      RowCase{"Standard_Parallel_1", 100025, 60, 3, GX_TYPE_PROJCS},
                      RowCase{"Scale_Factor", 100003, 1, 5, GX_TYPE_PROJCS},
                      RowCase{"Azimuth", 100004, 45, 7, GX_TYPE_PROJCS},
                      RowCase{"Longitude_Of_Center", 100012, -75, 10, GX_TYPE_PROJCS},
                      RowCase{"Latitude_Of_Center", 100022, 40, 11, GX_TYPE_PROJCS},
                      RowCase{"Auxiliary_Sphere_Type", 100035, 0, 12, GX_TYPE_PROJCS},
                      RowCase{"X_Coordinate_of_Rotation_Origin", 100048, 0, 7, GX_TYPE_GEOGTRAN},
                      RowCase{"Dataset_", 100047, 0, 15, GX_TYPE_GEOGTRAN | GX_TYPE_VERTTRAN},
                      RowCase{"Inclination_East", 100064, 0, 14, GX_TYPE_VERTTRAN},
                      RowCase{"Direction", 100007, 1, 1, GX_TYPE_VERTCS}));

TEST(ParameterTable, NamesAreComparedBlindToCaseBlanksAndHyphens) {
  EXPECT_EQ(gx_parmlist_row_from_name("central-meridian")->code, 100010);
  EXPECT_EQ(gx_parmlist_row_from_name("LATITUDE OF ORIGIN")->code, 100021);
  EXPECT_EQ(gx_parmlist_row_from_name("Foo"), nullptr);
  EXPECT_EQ(gx_parmlist_row_from_name(nullptr), nullptr);
  EXPECT_EQ(gx_parmlist_row_from_code(0), nullptr);
  EXPECT_EQ(gx_parmlist_row_from_code(100008), nullptr);
}

TEST(ParameterTable, DatasetPrefixStandsForRow100047) {
  EXPECT_EQ(gx_parmlist_row_from_name("Dataset_ABC")->code, 100047);
  EXPECT_EQ(gx_parmlist_row_from_name("dataset-conus")->code, 100047);
  EXPECT_EQ(gx_parmlist_row_from_name("Dataset_")->code, 100047);
  // "Dataset" is the row's own name once underscores are ignored.
  EXPECT_EQ(gx_parmlist_row_from_name("Dataset")->code, 100047);
  // The first eight characters must be the prefix itself.
  EXPECT_EQ(gx_parmlist_row_from_name("DatasetABC"), nullptr);
  EXPECT_EQ(gx_parmlist_row_from_name("DataBaseX"), nullptr);
  // Within those eight, blanks and underscores still do not count.
  EXPECT_EQ(gx_parmlist_row_from_name("Data_setX")->code, 100047);
  // The exact search does not know the prefix rule.
  EXPECT_EQ(gx_parmlist_row_named("Dataset_ABC"), nullptr);
}

TEST(ParameterTable, ParameterFromCodeCarriesTheRow) {
  ParameterPtr parameter(gx_parmlist_parameter_from_code(100025));
  ASSERT_TRUE(parameter);
  EXPECT_EQ(Name(parameter.get()), "Standard_Parallel_1");
  EXPECT_EQ(gx_parameter_value(parameter.get()), 60.0);
  EXPECT_EQ(gx_parameter_status(parameter.get()), GX_STATUS_CODE);
  EXPECT_EQ(gx_object_code(parameter.get()), 100025);
  // The authority is made on first demand from the row.
  gx_authority* authority = gx_parameter_authority(parameter.get());
  ASSERT_NE(authority, nullptr);
  EXPECT_EQ(gx_authority_authcode(authority), 100025);
  EXPECT_EQ(Name(authority), "ORVA");
  char version[16];
  EXPECT_STREQ(gx_authority_version(authority, version), "9.3.0");
  EXPECT_EQ(gx_parameter_authority(parameter.get()), authority);
}

TEST(ParameterTable, UnknownCodeIsMessage218) {
  MessageCollector hook;
  EXPECT_EQ(gx_parmlist_parameter_from_code(100099), nullptr);
  ASSERT_EQ(hook.size(), 1u);
  EXPECT_EQ(hook.last().code, 218u);
  EXPECT_EQ(hook.last().category, GX_CAT_FACTORY);
  EXPECT_EQ(hook.last().function, "gx_parmlist_parameter_from_code");
  EXPECT_EQ(hook.last().message, "Invalid parameter factory code (100099)");
}

// ---- new, accessors, index -------------------------------------------------------

TEST(ParameterNew, KnownNameGetsTheRowsCodeAndKeepsItsSpelling) {
  ParameterPtr parameter(gx_parameter_new("central-meridian", 10.0));
  ASSERT_TRUE(parameter);
  EXPECT_EQ(Name(parameter.get()), "central-meridian");
  EXPECT_EQ(gx_object_code(parameter.get()), 100010);
  EXPECT_EQ(gx_parameter_status(parameter.get()), GX_STATUS_NEW);
  EXPECT_EQ(gx_parameter_value(parameter.get()), 10.0);
  EXPECT_EQ(Wkt(parameter.get(), GX_WKT_TOP_AUTHORITY),
            "PARAMETER[\"central-meridian\",10.0,AUTHORITY[\"ORVA\",100010]]");
}

TEST(ParameterNew, UnknownAndDatasetNamesHaveNoCode) {
  ParameterPtr foo(gx_parameter_new("Foo", -1.5));
  EXPECT_EQ(gx_object_code(foo.get()), -1);
  EXPECT_EQ(gx_parameter_authority(foo.get()), nullptr);
  ParameterPtr grid(gx_parameter_new("Dataset_conus", 0.0));
  EXPECT_EQ(gx_object_code(grid.get()), -1);
  ParameterPtr unnamed(gx_parameter_new(nullptr, 0.0));
  ASSERT_TRUE(unnamed);
  EXPECT_EQ(Name(unnamed.get()), "");
  // The value is free: no check of any kind.
  ParameterPtr huge(gx_parameter_new("Height", INFINITY));
  EXPECT_TRUE(std::isinf(gx_parameter_value(huge.get())));
}

TEST(ParameterIndex, SlotByCodeElseByName) {
  struct Case {
    const char* name;
    int32_t slot;
  } cases[] = {{"Dataset_ABC", 15}, {"Dataset_", 15}, {"Dataset", 15},          {"Foo", -1},
               {"Azimuth", 7},      {"Option", 15},   {"Longitude_Of_Origin", 2}, {"X_Scale", 12}};
  for (const Case& c : cases) {
    ParameterPtr parameter(gx_parameter_new(c.name, 0.0));
    EXPECT_EQ(gx_parameter_index(parameter.get()), c.slot) << c.name;
  }
  EXPECT_EQ(gx_parameter_index(nullptr), -2);
}

TEST(ParameterIndex, RenamedParameterKeepsItsCodeAndSlot) {
  ParameterPtr parameter(gx_parameter_new("Azimuth", 30.0));
  ASSERT_EQ(gx_parameter_name_set(parameter.get(), "Scale_Factor"), 1);
  EXPECT_EQ(Name(parameter.get()), "Scale_Factor");
  EXPECT_EQ(gx_object_code(parameter.get()), 100004);
  EXPECT_EQ(gx_parameter_index(parameter.get()), 7);
  // Without a code the name decides.
  ParameterPtr plain(gx_parameter_new("Foo", 0.0));
  gx_parameter_name_set(plain.get(), "Dataset_geoid");
  EXPECT_EQ(gx_parameter_index(plain.get()), 15);
}

TEST(ParameterSetters, ValueAndName) {
  ParameterPtr parameter(gx_parameter_new("Height", 1.0));
  EXPECT_EQ(gx_parameter_value_set(parameter.get(), 250.0), 1);
  EXPECT_EQ(gx_parameter_value(parameter.get()), 250.0);
  EXPECT_EQ(gx_parameter_name_set(parameter.get(), nullptr), 0);
  EXPECT_EQ(gx_parameter_value_set(nullptr, 1.0), 0);
  EXPECT_EQ(gx_parameter_name_set(nullptr, "x"), 0);
  std::string long_name(100, 'p');
  EXPECT_EQ(gx_parameter_name_set(parameter.get(), long_name.c_str()), 1);
  EXPECT_EQ(Name(parameter.get()), std::string(63, 'p'));
}

TEST(ParameterInvalid, NeutralValues) {
  EXPECT_EQ(gx_parameter_value(nullptr), 0.0);
  double value = 7.0;
  gx_parameter_value_w(nullptr, &value);
  EXPECT_EQ(value, 0.0);
  gx_parameter_value_w(nullptr, nullptr);
  EXPECT_EQ(gx_parameter_p(nullptr), 0);
  ObjectPtr<gx_unit> unit(gx_unit_new("Meter", 1.0));
  EXPECT_EQ(gx_parameter_value(reinterpret_cast<gx_parameter*>(unit.get())), 0.0);
  EXPECT_EQ(gx_parameter_index(reinterpret_cast<gx_parameter*>(unit.get())), -2);
}

TEST(ParameterWide, NewNameSetAndValue) {
  const gx_wchar name[] = {'A', 'z', 'i', 'm', 'u', 't', 'h', 0};
  ParameterPtr parameter(gx_parameter_new_w(name, 12.5));
  ASSERT_TRUE(parameter);
  EXPECT_EQ(gx_object_code(parameter.get()), 100004);
  double value = 0;
  gx_parameter_value_w(parameter.get(), &value);
  EXPECT_EQ(value, 12.5);
  const gx_wchar other[] = {'H', 0};
  EXPECT_EQ(gx_parameter_name_set_w(parameter.get(), other), 1);
  EXPECT_EQ(Name(parameter.get()), "H");
  EXPECT_EQ(gx_parameter_name_set_w(parameter.get(), nullptr), 0);
  EXPECT_EQ(gx_parameter_new_w(nullptr, 1.0), nullptr);
  // A 16-bit name longer than a name buffer is cut, not written past it.
  std::u16string long_name(300, u'q');
  ParameterPtr cut(gx_parameter_new_w(reinterpret_cast<const gx_wchar*>(long_name.c_str()), 0));
  EXPECT_EQ(Name(cut.get()), std::string(63, 'q'));
}

// ---- text ------------------------------------------------------------------------

TEST(ParameterText, RoundTripWithAuthority) {
  ParameterPtr parameter(gx_parameter_from_string(
      "PARAMETER[\"False_Easting\",500000.0,AUTHORITY[\"EPSG\",8806]]"));
  ASSERT_TRUE(parameter);
  EXPECT_EQ(gx_parameter_status(parameter.get()), GX_STATUS_STRING);
  EXPECT_EQ(gx_parameter_value(parameter.get()), 500000.0);
  EXPECT_EQ(Wkt(parameter.get()), "PARAMETER[\"False_Easting\",500000.0]");
  // The text's authority wins over the table's.
  EXPECT_EQ(Wkt(parameter.get(), GX_WKT_TOP_AUTHORITY),
            "PARAMETER[\"False_Easting\",500000.0,AUTHORITY[\"EPSG\",8806]]");
  EXPECT_EQ(Wkt(parameter.get(), GX_WKT_ALL_AUTHORITY), Wkt(parameter.get(), 1));
  ParameterPtr back(gx_parameter_from_string(Wkt(parameter.get(), 2).c_str()));
  EXPECT_EQ(gx_parameter_eq(parameter.get(), back.get()), 1);
}

TEST(ParameterText, ValuesPrintWithSixteenDigits) {
  ParameterPtr parameter(gx_parameter_from_string("PARAMETER[\"Scale_Factor\",0.9996]"));
  EXPECT_EQ(Wkt(parameter.get()), "PARAMETER[\"Scale_Factor\",0.9996]");
  ParameterPtr third(gx_parameter_new("Foo", 1.0 / 3.0));
  EXPECT_EQ(Wkt(third.get()), "PARAMETER[\"Foo\",0.3333333333333333]");
}

TEST(ParameterText, ObjectLayerPicksTheFamily) {
  ParameterPtr parameter(static_cast<gx_parameter*>(
      gx_object_from_string("PARAMETER[\"Dataset_ntv2_0\",0]")));
  ASSERT_TRUE(parameter);
  EXPECT_EQ(gx_object_type(parameter.get()), GX_TYPE_PARAMETER);
  EXPECT_EQ(gx_parameter_index(parameter.get()), 15);
  void* by_type = gx_object_from_string_by_type(GX_TYPE_PARAMETER, "PARAMETER[\"Azimuth\",1]");
  EXPECT_EQ(gx_object_type(by_type), GX_TYPE_PARAMETER);
  gx_object_del(by_type);
}

TEST(ParameterEquality, NameBlindValueWithinTolerance) {
  ParameterPtr a(gx_parameter_new("Central_Meridian", 3.0));
  ParameterPtr b(gx_parameter_new("central meridian", 3.0 + 1e-15));
  ParameterPtr c(gx_parameter_new("Central_Meridian", 3.0 + 1e-12));
  ParameterPtr d(gx_parameter_new("Longitude_Of_Origin", 3.0));
  EXPECT_EQ(gx_parameter_eq(a.get(), b.get()), 1);
  EXPECT_EQ(gx_parameter_eq(a.get(), c.get()), 0);
  EXPECT_EQ(gx_parameter_eq(a.get(), d.get()), 0);  // same slot, different name
  EXPECT_EQ(gx_object_eq(a.get(), b.get()), 1);
}

TEST(ParameterClone, KeepsCodeStatusAndValue) {
  ParameterPtr parameter(gx_parmlist_parameter_from_code(100004));
  gx_parameter_name_set(parameter.get(), "Renamed");
  gx_parameter_value_set(parameter.get(), 12.0);
  ParameterPtr copy(gx_parameter_clone(parameter.get()));
  ASSERT_TRUE(copy);
  EXPECT_EQ(Name(copy.get()), "Renamed");
  EXPECT_EQ(gx_parameter_value(copy.get()), 12.0);
  EXPECT_EQ(gx_object_code(copy.get()), 100004);
  EXPECT_EQ(gx_parameter_status(copy.get()), GX_STATUS_CODE);
  EXPECT_EQ(gx_parameter_index(copy.get()), 7);
}

class ParameterTextErrors : public ::testing::TestWithParam<ReadFailure> {};

TEST_P(ParameterTextErrors, NullAndExactMessage) {
  ExpectReadFailure(gx_parameter_from_string_errext, GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Bad, ParameterTextErrors,
    ::testing::Values(
        ReadFailure{"PARAMETER[\"Azimuth\"]", 459, "gx_parameter_from_string",
                    "Insufficient tokens in WKT string"},
        ReadFailure{"PARAMETER[Azimuth[1],2]", 450, "gx_parameter_from_string",
                    "Missing parameter value in WKT string"},
        ReadFailure{"PARAMETER[[\"Azimuth\"],1]", 450, "gx_parameter_from_string",
                    "Missing parameter value in WKT string"},
        ReadFailure{"PARAMETER[\"A\",1,AUTHORITY[\"EPSG\",1],AUTHORITY[\"EPSG\",1]]", 403,
                    "gx_parameter_from_string", "Duplicate authority in WKT string"},
        ReadFailure{"PARAMETER[\"A\",1,AUTHORITY[\"EPSG\",-4]]", 311, "gx_authority_new",
                    "Invalid authority code argument (-4)"},
        ReadFailure{"UNIT[\"A\",1]", 466, "gx_parameter_from_string",
                    "Object type keyword \"PARAMETER\" not found in WKT string"}));

TEST(ParameterText, CutAnywhereIsSafe) {
  ExpectEveryPrefixIsSafe("PARAMETER[\"Azimuth\",12.5,AUTHORITY[\"EPSG\",8813]]",
                          GX_TYPE_PARAMETER);
}

}  // namespace
