// "No memory": whatever allocation fails, a creating function returns null,
// says so, and leaks nothing (the sanitizer build checks the leaks); a
// conversion whose constants can't be allocated still converts.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "frame/hook_support.h"
#include "frame/object.h"
#include "gx_convert.h"
#include "gx_objects.h"
#include "methods/grid_files.h"
#include "objects/projlist.h"
#include "support/definitions.h"

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
                           "METHOD[\"NTv2\"]", "HTMETHOD[\"Affine_Parametric\"]",
                           "ARRAY[\"Fit\",3,1,2,3]"})
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

namespace {

// Loads the constants of a fresh definition with the k-th allocation
// failing, for every k until a load goes through: a failed load keeps
// nothing, and the definition converts as before, through the set-up.
void LoadUnderEveryFailure(const std::string& text) {
  gx_projcs* reference = gx_projcs_from_string(text.c_str());
  ASSERT_NE(reference, nullptr) << text;
  int32_t full = gx_projcs_load_constants(reference);
  double want[2] = {1.0, 1.0};
  gx_geog_to_proj(reference, 1, want);
  for (long k = 0; k < 64; ++k) {
    gx_projcs* projcs = gx_projcs_from_string(text.c_str());
    int32_t got;
    {
      FailAfter fail(k);
      got = gx_projcs_load_constants(projcs);
    }
    double xy[2] = {1.0, 1.0};
    gx_geog_to_proj(projcs, 1, xy);
    EXPECT_TRUE(std::memcmp(xy, want, sizeof xy) == 0) << text << " after failure " << k;
    bool done = got == full;
    if (!done) EXPECT_EQ(got, 0) << text;
    gx_projcs_del(projcs);
    if (done) break;
  }
  gx_projcs_del(reference);
}

TEST(NoMemory, EveryProjectionLoaderMayFail) {
  for (int i = 0; i < gx_projlist_count(); ++i) {
    const gx_projection_row& row = gx_projlist_rows()[i];
    for (const char* geogcs : {gx_test::kWgs84Geogcs, gx_test::kSphereGeogcs})
      LoadUnderEveryFailure(gx_test::DefaultDefinition(row, geogcs));
  }
}

TEST(NoMemory, EveryFamilyClonesUnderEveryFailure) {
  const std::string geogcs = gx_test::kWgs84Geogcs;
  const std::string texts[] = {
      kUtm, geogcs, "UNIT[\"Foot\",0.3048,AUTHORITY[\"EPSG\",9002]]", "PRIMEM[\"Paris\",2.337]",
      "DATUM[\"D\",SPHEROID[\"S\",6378137.0,298.257223563],AUTHORITY[\"EPSG\",6326]]",
      "PARAMETER[\"Azimuth\",3]", "METHOD[\"Geocentric_Translation\"]",
      "ADJHCS[\"S\"," + geogcs + ",HTMETHOD[\"Affine_Parametric\"],ARRAY[\"A\",6,1,0,0,0,1,0],"
      "UNIT[\"Meter\",1]]",
      "GEOGTRAN[\"T\"," + geogcs + "," + geogcs + ",METHOD[\"Geocentric_Translation\"],"
      "PARAMETER[\"X_Axis_Translation\",1]]"};
  for (const std::string& text : texts) {
    void* obj = gx_object_from_string(text.c_str());
    ASSERT_NE(obj, nullptr) << text;
    for (long k = 0; k < 64; ++k) {
      void* copy;
      {
        FailAfter fail(k);
        copy = gx_object_clone(obj);
      }
      if (copy == nullptr) continue;
      EXPECT_EQ(gx_object_eq(copy, obj), 1) << text;
      gx_object_del(copy);
      break;
    }
    gx_object_del(obj);
  }
}

// A grid transformation whose file is read under every failure: refused with
// "No memory" or loaded, nothing kept of a failed read, and the file read
// again when asked once memory is back.
void GridLoadsUnderEveryFailure(const std::string& method, const std::string& dataset) {
  const std::string geogcs = gx_test::kWgs84Geogcs;
  std::string text = "GEOGTRAN[\"T\"," + geogcs + "," + geogcs + ",METHOD[\"" + method +
                     "\"],PARAMETER[\"Dataset_" + dataset + "\",0.0]]";
  for (long k = 0; k < 64; ++k) {
    gx_geogtran* tran = gx_geogtran_from_string(text.c_str());
    ASSERT_NE(tran, nullptr) << text;
    int32_t got;
    {
      FailAfter fail(k);
      got = gx_geogtran_load_constants(tran);
    }
    gx_geogtran_unload_constants(tran);
    int32_t again = gx_geogtran_load_constants(tran);
    EXPECT_GT(again, 0) << method << " after failure " << k;
    gx_geogtran_del(tran);
    if (got > 0) break;
  }
}

TEST(NoMemory, GridFilesMayFailToLoad) {
  gx_test::temp_datahome home;
  gx_test::ntv2_file file;
  file.grids.push_back({"ROOT", "NONE", 36000, 43200, -75600, -68400, 1800, 1800,
                        gx_test::bilinear_field(1, 0.5f, 0.25f, 0), gx_test::bilinear_field(2, 0, 0, 0)});
  home.write("ntv2/oom.gsb", gx_test::ntv2_bytes(file));
  GridLoadsUnderEveryFailure("NTv2", "oom");
  gx_test::nadcon_grid_file grid;
  grid.lon_shift = gx_test::bilinear_field(1, 0, 0, 0);
  grid.lat_shift = gx_test::bilinear_field(2, 0, 0, 0);
  home.write_nadcon("nadcon", "oom", grid);
  GridLoadsUnderEveryFailure("NADCON", "oom");
}

}  // namespace
