// The command-line converter as a user runs it: files of points through
// definitions, compared with an independent reference.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

const std::string kData = GX_TEST_DATA_DIR;
const std::string kTool = GX_CONVERTER;

struct ToolRun {
  int status;
  std::vector<std::string> lines;
};

ToolRun RunTool(const std::string& arguments) {
  ToolRun run;
  std::string command = kTool + " " + arguments + " 2>/dev/null";
  FILE* pipe = popen(command.c_str(), "r");
  char line[4096];
  while (pipe != nullptr && std::fgets(line, sizeof line, pipe) != nullptr) {
    std::string text(line);
    if (!text.empty() && text.back() == '\n') text.pop_back();
    run.lines.push_back(text);
  }
  run.status = pipe != nullptr ? pclose(pipe) : -1;
  return run;
}

std::vector<std::pair<double, double>> ReadPairs(const std::string& path) {
  std::vector<std::pair<double, double>> pairs;
  std::ifstream file(path);
  double x, y;
  while (file >> x >> y) pairs.push_back({x, y});
  return pairs;
}

TEST(Converter, BuiltInExampleRoundTripsUtm) {
  ToolRun run = RunTool("");
  EXPECT_EQ(run.status, 0);
  ASSERT_GE(run.lines.size(), 10u);
  EXPECT_NE(run.lines[0].find("UTM"), std::string::npos);
  for (size_t i = 2; i < run.lines.size(); ++i) {
    double error = std::stod(run.lines[i].substr(run.lines[i].rfind("  ") + 2));
    EXPECT_LT(error, 1e-5) << run.lines[i];
  }
}

// A thousand points over UTM zone 33N; reference: PROJ 9.1,
// proj -f %.6f +proj=utm +zone=33 +ellps=WGS84.
TEST(Converter, ThousandPointsToUtm33AgreeWithProjToAMillimetre) {
  ToolRun run = RunTool("--from @" + kData + "/wgs84.wkt --to @" + kData + "/utm33n.wkt " + kData +
                    "/utm33_input.txt");
  EXPECT_EQ(run.status, 0);
  auto expected = ReadPairs(kData + "/utm33_proj.txt");
  ASSERT_EQ(run.lines.size(), expected.size());
  for (size_t i = 0; i < expected.size(); ++i) {
    std::istringstream line(run.lines[i]);
    double x, y;
    line >> x >> y;
    EXPECT_NEAR(x, expected[i].first, 1e-3) << "line " << i + 1;
    EXPECT_NEAR(y, expected[i].second, 1e-3) << "line " << i + 1;
  }
}

TEST(Converter, BadLinesKeepTheirPlace) {
  std::string input = kData + "/../mixed_input.txt";
  {
    std::ofstream file(input);
    file << "15 50\nnot a point\n16 51\n";
  }
  ToolRun run = RunTool("--from @" + kData + "/wgs84.wkt --to @" + kData + "/utm33n.wkt " + input);
  std::remove(input.c_str());
  EXPECT_NE(run.status, 0);
  ASSERT_EQ(run.lines.size(), 3u);
  EXPECT_EQ(run.lines[1], "*");
  EXPECT_NE(run.lines[2], "*");
}

TEST(Converter, ProjectedBackToGeographicAndToGridReferences) {
  std::string input = kData + "/../utm_input.txt";
  {
    std::ofstream file(input);
    file << "500000 5540000\n";
  }
  ToolRun back = RunTool("--from @" + kData + "/utm33n.wkt --to @" + kData + "/wgs84.wkt " + input);
  ASSERT_EQ(back.lines.size(), 1u);
  double lon = 0, lat = 0;
  std::istringstream(back.lines[0]) >> lon >> lat;
  EXPECT_NEAR(lon, 15.0, 1e-9);
  ToolRun mgrs = RunTool("--from @" + kData + "/utm33n.wkt --to MGRS:5 " + input);
  ASSERT_EQ(mgrs.lines.size(), 1u);
  // GeoConvert: echo "33n 500000 5540000" | GeoConvert -m -p 0 gives 33UWR0000040000.
  EXPECT_EQ(mgrs.lines[0], "33UWR0000040000");
  std::remove(input.c_str());
}

TEST(Converter, DefinitionThatDoesNotReadFails) {
  ToolRun run = RunTool("--from 'GEOGCS[\"x\"]' --to MGRS");
  EXPECT_NE(run.status, 0);
  ToolRun wkt = RunTool("--wkt 'UNIT[\"Meter\",1.0'");
  EXPECT_EQ(wkt.status, 0);
  ASSERT_FALSE(wkt.lines.empty());
  EXPECT_EQ(wkt.lines[0], "unit: UNIT[\"Meter\",1.0]");
}

TEST(Converter, ListsEveryProjection) {
  ToolRun run = RunTool("--list");
  EXPECT_EQ(run.status, 0);
  ASSERT_GT(run.lines.size(), 50u);
  EXPECT_NE(run.lines[1].find("Plate_Carree"), std::string::npos);
}

}  // namespace
