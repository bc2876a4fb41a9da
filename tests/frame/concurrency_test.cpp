// What may be shared between threads: a projected system or a transformation
// whose constants are loaded converts from any number of threads at once, and
// everything that makes objects (reading text, loading grids into objects of
// a thread's own) runs side by side.  The thread-sanitizer build runs these.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "gx_convert.h"
#include "gx_objects.h"
#include "methods/grid_files.h"
#include "support/definitions.h"

namespace {

constexpr int kThreads = 4;

const char* kUtm =
    "PROJCS[\"WGS_1984_UTM_Zone_32N\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\","
    "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],PRIMEM[\"Greenwich\",0.0],"
    "UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Transverse_Mercator\"],"
    "PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"False_Northing\",0.0],"
    "PARAMETER[\"Central_Meridian\",9.0],PARAMETER[\"Scale_Factor\",0.9996],"
    "PARAMETER[\"Latitude_Of_Origin\",0.0],UNIT[\"Meter\",1.0],AUTHORITY[\"EPSG\",32632]]";

std::vector<double> Places(int count) {
  std::vector<double> points;
  for (int i = 0; i < count; ++i) {
    points.push_back(3.0 + 12.0 * (i % 97) / 97.0);
    points.push_back(-70.0 + 140.0 * (i % 89) / 89.0);
  }
  return points;
}

// Runs `work(thread)` on kThreads threads at once.
template <class Work>
void Together(int threads, Work work) {
  std::vector<std::thread> running;
  for (int t = 0; t < threads; ++t) running.emplace_back(work, t);
  for (std::thread& thread : running) thread.join();
}

TEST(Concurrency, OneLoadedSystemConvertsFromManyThreads) {
  gx_projcs* projcs = gx_projcs_from_string(kUtm);
  ASSERT_GT(gx_projcs_load_constants(projcs), 0);
  std::vector<double> want = Places(2000);
  gx_geog_to_proj(projcs, 2000, want.data());
  std::vector<std::vector<double>> got(kThreads);
  Together(kThreads, [&](int t) {
    for (int round = 0; round < 5; ++round) {
      got[t] = Places(2000);
      gx_geog_to_proj(projcs, 2000, got[t].data());
      std::vector<double> back = got[t];
      gx_proj_to_geog(projcs, 2000, back.data());
    }
  });
  for (const std::vector<double>& points : got)
    EXPECT_EQ(std::memcmp(points.data(), want.data(), want.size() * sizeof(double)), 0);
  gx_projcs_del(projcs);
}

TEST(Concurrency, TextIsReadAndWrittenFromManyThreads) {
  const std::string texts[] = {kUtm, gx_test::kWgs84Geogcs, "UNIT[\"Foot\",0.3048]",
                               "PROJCS[\"broken\",GEOGCS[\"x\"]"};
  std::vector<std::string> want;
  for (const std::string& text : texts) {
    char out[GX_WKT_SIZE] = "";
    void* obj = gx_object_from_string(text.c_str());
    if (obj != nullptr) gx_object_to_string(obj, out);
    gx_object_del(obj);
    want.push_back(out);
  }
  std::vector<int> mismatches(kThreads, 0);
  Together(kThreads, [&](int t) {
    for (int round = 0; round < 50; ++round) {
      for (size_t i = 0; i < std::size(texts); ++i) {
        char out[GX_WKT_SIZE] = "";
        void* obj = gx_object_from_string(texts[i].c_str());
        if (obj != nullptr) gx_object_to_string(obj, out);
        void* copy = gx_object_clone(obj);
        gx_object_del(copy);
        gx_object_del(obj);
        if (want[i] != out) ++mismatches[t];
      }
    }
  });
  for (int count : mismatches) EXPECT_EQ(count, 0);
}

TEST(Concurrency, GridsLoadInTwoThreadsAndOneLoadedGridServesMany) {
  gx_test::temp_datahome home;  // the data home is set before the threads start
  gx_test::ntv2_file file;
  file.grids.push_back({"ROOT", "NONE", 36000, 43200, -75600, -68400, 1800, 1800,
                        gx_test::bilinear_field(1.5f, 0, 0, 0), gx_test::bilinear_field(-3.0f, 0, 0, 0)});
  home.write("ntv2/shift.gsb", gx_test::ntv2_bytes(file));
  const std::string geogcs = gx_test::kWgs84Geogcs;
  const std::string text = "GEOGTRAN[\"T\"," + geogcs + "," + geogcs +
                           ",METHOD[\"NTv2\"],PARAMETER[\"Dataset_shift\",0.0]]";
  std::vector<int32_t> loaded(2, 0);
  Together(2, [&](int t) {
    gx_geogtran* own = gx_geogtran_from_string(text.c_str());
    loaded[t] = gx_geogtran_load_constants(own);
    gx_geogtran_del(own);
  });
  EXPECT_GT(loaded[0], 0);
  EXPECT_EQ(loaded[0], loaded[1]);
  gx_geogtran* shared = gx_geogtran_from_string(text.c_str());
  ASSERT_GT(gx_geogtran_load_constants(shared), 0);
  std::vector<double> got[kThreads];
  Together(kThreads, [&](int t) {
    got[t] = {20.0, 11.0, 19.5, 10.5};
    gx_geog1_to_geog2(shared, 2, got[t].data(), nullptr);
  });
  for (const std::vector<double>& points : got) {
    EXPECT_NEAR(points[0], 20.0 + 3.0 / 3600, 1e-9);
    EXPECT_NEAR(points[1], 11.0 + 1.5 / 3600, 1e-9);
    EXPECT_EQ(points, got[0]);
  }
  gx_geogtran_del(shared);
}

}  // namespace
