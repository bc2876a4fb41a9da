// "No memory": whatever allocation fails, a creating function returns null,
// says so, and leaks nothing (the sanitizer build checks the leaks); a
// conversion whose constants can't be allocated still converts.
#include <gtest/gtest.h>

#include <string>

#include "frame/hook_support.h"
#include "frame/object.h"
#include "gx_convert.h"
#include "gx_objects.h"

namespace {

const char* kUtm =
    "PROJCS[\"WGS_1984_UTM_Zone_32N\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\","
    "SPHEROID[\"WGS_1984\",6378137.0,298.257223563,AUTHORITY[\"EPSG\",7030]]],"
    "PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433],AUTHORITY[\"EPSG\",4326]],"
    "PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"False_Easting\",500000.0],"
    "PARAMETER[\"False_Northing\",0.0],PARAMETER[\"Central_Meridian\",9.0],"
    "PARAMETER[\"Scale_Factor\",0.9996],PARAMETER[\"Latitude_Of_Origin\",0.0],"
    "UNIT[\"Meter\",1.0],AUTHORITY[\"EPSG\",32632]]";

struct FailAfter {
  explicit FailAfter(long count) { gx_alloc_fail_after(count); }
  ~FailAfter() { gx_alloc_fail_after(-1); }
};

// Reads the text with the k-th allocation failing, for every k until the
// reading needs no more than k allocations.
void ReadUnderEveryFailure(const char* text) {
  for (long k = 0;; ++k) {
    gx_errext record;
    void* obj;
    {
      FailAfter fail(k);
      obj = gx_object_from_string_errext(text, &record);
    }
    if (obj != nullptr) {
      char printed[GX_WKT_SIZE];
      EXPECT_STRNE(gx_object_to_string(obj, printed), "");
      void* copy = gx_object_clone(obj);
      EXPECT_EQ(gx_object_eq(obj, copy), 1);
      gx_object_del(copy);
      gx_object_del(obj);
      return;
    }
    EXPECT_EQ(record.code, 1u) << "failure at allocation " << k;
    EXPECT_STREQ(record.message, "No memory");
  }
}

TEST(NoMemory, EveryAllocationOfAProjectedSystemMayFail) { ReadUnderEveryFailure(kUtm); }

TEST(NoMemory, EveryAllocationOfATransformationMayFail) {
  const std::string geogcs =
      "GEOGCS[\"G\",DATUM[\"D\",SPHEROID[\"S\",6378137.0,298.257223563]],PRIMEM[\"P\",0],"
      "UNIT[\"Degree\",0.0174532925199433]]";
  const std::string text = "GEOGTRAN[\"T\"," + geogcs + "," + geogcs +
                           ",METHOD[\"Position_Vector\",AUTHORITY[\"EPSG\",9606]],"
                           "PARAMETER[\"X_Axis_Translation\",1],PARAMETER[\"Y_Axis_Translation\",1],"
                           "PARAMETER[\"Z_Axis_Translation\",1],PARAMETER[\"X_Axis_Rotation\",1],"
                           "PARAMETER[\"Y_Axis_Rotation\",1],PARAMETER[\"Z_Axis_Rotation\",1],"
                           "PARAMETER[\"Scale_Difference\",1]]";
  ReadUnderEveryFailure(text.c_str());
}

TEST(NoMemory, EverySmallFamilyMayFail) {
  for (const char* text : {"UNIT[\"Foot\",0.3048,AUTHORITY[\"EPSG\",9002]]", "PRIMEM[\"Paris\",2.337]",
                           "SPHEROID[\"S\",6378137.0,298.257223563]", "PARAMETER[\"Azimuth\",3]",
                           "AUTHORITY[\"EPSG\",4326]", "PROJECTION[\"Albers_Equal_Area_Conic\"]",
                           "METHOD[\"NTv2\"]"})
    ReadUnderEveryFailure(text);
}

TEST(NoMemory, CloneFailsCleanly) {
  gx_projcs* projcs = gx_projcs_from_string(kUtm);
  ASSERT_NE(projcs, nullptr);
  for (long k = 0; k < 40; ++k) {
    gx_projcs* copy;
    {
      FailAfter fail(k);
      copy = gx_projcs_clone(projcs);
    }
    if (copy != nullptr) {
      EXPECT_EQ(gx_projcs_eq(copy, projcs), 1);
      gx_projcs_del(copy);
      break;
    }
  }
  gx_projcs_del(projcs);
}

TEST(NoMemory, ConversionWithoutConstantsStillConverts) {
  gx_projcs* projcs = gx_projcs_from_string(kUtm);
  double with[2] = {10.0, 50.0};
  gx_geog_to_proj(projcs, 1, with);
  gx_projcs_unload_constants(projcs);
  double without[2] = {10.0, 50.0};
  {
    FailAfter fail(0);
    EXPECT_EQ(gx_geog_to_proj(projcs, 1, without), 1);
  }
  EXPECT_EQ(gx_projcs_isconstloaded(projcs), 0);
  EXPECT_EQ(with[0], without[0]);  // the set-up path gives the same bits
  EXPECT_EQ(with[1], without[1]);
  gx_projcs_del(projcs);
}

TEST(NoMemory, AuthorityMadeOnDemandMayFail) {
  gx_parameter* parameter = gx_parameter_new("Scale_Factor", 1.0);  // a table row: code set
  {
    FailAfter fail(0);
    EXPECT_EQ(gx_parameter_authority(parameter), nullptr);
  }
  EXPECT_NE(gx_parameter_authority(parameter), nullptr);
  gx_parameter_del(parameter);
}

}  // namespace
