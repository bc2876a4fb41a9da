// Inputs the fuzzers found troublesome, kept in fuzz/corpus/*/regression-*:
// each still reads (or is refused) and converts a grid of points both ways
// through whatever it defines, promptly.  The first: a Cassini with a scale
// factor of 0 on a very flat body sent infinities into the rectifying
// latitude's Newton loop, whose elliptic integrals then ran their 10 000
// duplications on NaN at every step: 15 s for one definition.
#include <gtest/gtest.h>

#include <dirent.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "orvamobilegx.h"

namespace {

std::vector<std::string> Regressions(const std::string& directory) {
  std::vector<std::string> paths;
  if (DIR* dir = opendir(directory.c_str())) {
    while (dirent* entry = readdir(dir))
      if (std::string(entry->d_name).rfind("regression-", 0) == 0) paths.push_back(directory + "/" + entry->d_name);
    closedir(dir);
  }
  return paths;
}

TEST(FuzzRegressions, DefinitionsConvertBothWays) {
  std::vector<std::string> paths = Regressions(std::string(GX_TESTS_DIR) + "/../fuzz/corpus/convert");
  ASSERT_FALSE(paths.empty());
  for (const std::string& path : paths) {
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    void* obj = gx_object_from_string(text.str().c_str());
    if (obj == nullptr || gx_object_type(obj) != gx_name_to_type("projcs")) {
      gx_object_del(obj);
      continue;
    }
    auto* projcs = static_cast<gx_projcs*>(obj);
    std::vector<double> points;
    for (double lon = -180; lon <= 180; lon += 30)
      for (double lat = -90; lat <= 90; lat += 15) points.insert(points.end(), {lon, lat});
    int32_t n = static_cast<int32_t>(points.size() / 2);
    EXPECT_LE(gx_geog_to_proj(projcs, n, points.data()), n) << path;
    EXPECT_LE(gx_proj_to_geog(projcs, n, points.data()), n) << path;
    gx_projcs_del(projcs);
  }
}

}  // namespace
