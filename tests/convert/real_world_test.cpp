// Projected systems as common GIS software exports them, read, printed back
// and converted against PROJ 9.1's reading of the same text (the corpus and
// the script that made it are in data/).
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "orvamobilegx.h"

namespace {

struct Place {
  double lon, lat, x, y;
};

struct RealSystem {
  std::string id, projection, wkt;
  std::vector<Place> places;
};

std::vector<RealSystem> LoadCorpus() {
  std::ifstream file(std::string(GX_TESTS_DIR) + "/convert/data/real_world.txt");
  std::vector<RealSystem> systems;
  std::string line;
  while (std::getline(file, line)) {
    std::istringstream in(line);
    std::string tag;
    in >> tag;
    if (tag == "SYSTEM") {
      systems.emplace_back();
      in >> systems.back().id >> systems.back().projection;
    } else if (tag == "WKT" && !systems.empty()) {
      systems.back().wkt = line.substr(4);
    } else if (tag == "POINT" && !systems.empty()) {
      Place p;
      in >> p.lon >> p.lat >> p.x >> p.y;
      systems.back().places.push_back(p);
    }
  }
  return systems;
}

// Where this library and PROJ part by rule, and what is checked instead.
enum class Rule {
  kSame,            // within a millimetre both ways
  kNotListed,       // the projection's name is not in the list: refused
  kBeyondThePole,   // Latitude_Of_Origin of -90 degrees times the text's
                    // degree (0.0174532925199433) lies 4e-16 beyond the pole,
                    // where the cone's stated t(phi0) is a negative number to
                    // a fractional power: no image; read and printed only
  kAuthalicRadius,  // a projection of the sphere: PROJ takes the ellipsoid's
                    // authalic radius, this library its semi-major axis, so
                    // PROJ's figures scaled by a / R_A must match
  kSemiMajorAxis,   // Robinson: the other way round, this library takes the
                    // authalic radius and PROJ the semi-major axis; and its
                    // table is read by Stirling's three-point formula where
                    // PROJ fits cubics, which parts them by up to some
                    // hundred metres
  kOwnFormula,      // Times (the mean of the axes, its own series) and
                    // Winkel_II (its own closed form) are other projections
                    // than PROJ's of the same name; read and printed only
  kLobes,           // Goode_Homolosine's Option 2 (ocean lobes): PROJ reads
                    // the text without interruptions; read and printed only
  kShortSeries,     // Cassini's inverse is a fixed short series: a
                    // millimetre near the central meridian, metres at 13
                    // degrees from it (the world system)
};

Rule RuleOf(const RealSystem& s) {
  static const std::map<std::string, Rule> by_projection = {
      {"Polar_Stereographic", Rule::kNotListed},   {"Miller_Cylindrical", Rule::kAuthalicRadius},
      {"Robinson", Rule::kSemiMajorAxis},          {"Times", Rule::kOwnFormula},
      {"Van_der_Grinten_I", Rule::kAuthalicRadius}, {"Winkel_II", Rule::kOwnFormula},
      {"Goode_Homolosine", Rule::kLobes},          {"Cassini", Rule::kShortSeries}};
  static const std::map<std::string, Rule> by_id = {{"EPSG:3204", Rule::kBeyondThePole},
                                                    {"EPSG:3212", Rule::kBeyondThePole},
                                                    {"EPSG:3213", Rule::kBeyondThePole},
                                                    {"EPSG:3251", Rule::kBeyondThePole}};
  if (auto it = by_id.find(s.id); it != by_id.end()) return it->second;
  if (auto it = by_projection.find(s.projection); it != by_projection.end()) return it->second;
  return Rule::kSame;
}

// WGS 84's semi-major axis over its authalic radius (GeographicLib's
// Geodesic::EllipsoidArea / 4 pi, square-rooted: 6371007.180918 m).
constexpr double kWgs84AOverAuthalic = 6378137.0 / 6371007.180918475;

// How far the round trip may land from PROJ's figures: the short Cassini
// series loses about 1e-5 of D^6 (D the distance from the central meridian
// over the radius), a millimetre within three degrees.
double ForwardTolerance(Rule rule) { return rule == Rule::kSemiMajorAxis ? 300.0 : 1e-3; }

double InverseTolerance(Rule rule, const Place& p) {
  if (rule != Rule::kShortSeries) return ForwardTolerance(rule);
  double d = p.x / 6378137.0;
  return 1e-3 + 2e4 * std::pow(d, 6) * 6378137.0 / 1e3;
}

TEST(RealWorldDefinitions, ReadPrintBackAndConvertLikeProj) {
  std::vector<RealSystem> systems = LoadCorpus();
  ASSERT_GT(systems.size(), 250u);
  std::map<std::string, std::pair<int, int>> by_projection;  // converted, total
  for (const RealSystem& s : systems) {
    auto& tally = by_projection[s.projection];
    ++tally.second;
    Rule rule = RuleOf(s);
    gx_errext why;
    gx_projcs* projcs = gx_projcs_from_string_errext(s.wkt.c_str(), &why);
    if (rule == Rule::kNotListed) {
      EXPECT_EQ(projcs, nullptr) << s.id;
      EXPECT_NE(std::string(why.message).find("Invalid projection name"), std::string::npos);
      gx_projcs_del(projcs);
      continue;
    }
    EXPECT_NE(projcs, nullptr) << s.id << ": " << why.message;
    if (projcs == nullptr) continue;
    char printed[GX_WKT_SIZE];
    gx_projcs_to_string(projcs, printed);
    gx_projcs* again = gx_projcs_from_string(printed);
    EXPECT_EQ(gx_projcs_eq(projcs, again), 1) << s.id << " printed as " << printed;
    gx_projcs_del(again);
    bool all_within =
        rule != Rule::kBeyondThePole && rule != Rule::kLobes && rule != Rule::kOwnFormula;
    for (const Place& p : s.places) {
      if (!all_within) break;
      double scale = rule == Rule::kAuthalicRadius  ? kWgs84AOverAuthalic
                     : rule == Rule::kSemiMajorAxis ? 1.0 / kWgs84AOverAuthalic
                                                    : 1.0;
      double want[2] = {p.x * scale, p.y * scale};
      double xy[2] = {p.lon, p.lat};
      gx_geog_to_proj(projcs, 1, xy);
      double forward_miss = std::hypot(xy[0] - want[0], xy[1] - want[1]);
      bool forward = forward_miss <= ForwardTolerance(rule);
      EXPECT_TRUE(forward) << s.id << " " << s.projection << " at " << p.lon << " " << p.lat
                           << ": " << xy[0] << " " << xy[1] << " where PROJ gives " << want[0]
                           << " " << want[1];
      double back[2] = {want[0], want[1]};
      gx_proj_to_geog(projcs, 1, back);
      gx_geog_to_proj(projcs, 1, back);
      double inverse_miss = std::hypot(back[0] - want[0], back[1] - want[1]);
      bool inverse = inverse_miss <= InverseTolerance(rule, p);
      EXPECT_TRUE(inverse) << s.id << " inverse at " << want[0] << " " << want[1] << ": "
                           << back[0] << " " << back[1];
      all_within = forward_miss <= 1e-3 && inverse_miss <= 1e-3;
    }
    gx_projcs_del(projcs);
    if (all_within) ++tally.first;
  }
  for (const auto& [projection, tally] : by_projection)
    std::printf("  %-48s %3d of %3d within 1 mm of PROJ both ways\n", projection.c_str(), tally.first, tally.second);
}

}  // namespace
