// MGRS conversions against GeographicLib's GeoConvert, the differences that
// are this library's by design, the lettering modes and datums, units, and
// bad input.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "gridref/mgrs_grid.h"
#include "orvamobilegx.h"

namespace {

// Points over the globe and their references from GeoConvert (GeographicLib
// 2.1.2), made by data/make_mgrs_points.py.
struct GeoConvertPoint {
  const char* lon;
  const char* lat;
  const char* reference;  // 10 digits per axis, truncated
  int precision;          // of the corner check; -1 for none
  const char* corner_lon;  // the reference cut to `precision` digits, read back
  const char* corner_lat;
};
const GeoConvertPoint kGeoConvert[] = {
#include "gridref/data/mgrs_points.inc"
};
constexpr size_t kGeoConvertCount = sizeof kGeoConvert / sizeof kGeoConvert[0];

const char* const kWgs84 =
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
    "298.257223563]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";

std::string geogcs_text(const char* datum, const char* spheroid, const char* unit = "Degree",
                        double factor = 0.0174532925199433) {
  char text[GX_WKT_SIZE];
  std::snprintf(text, sizeof text,
                "GEOGCS[\"GCS\",DATUM[\"%s\",%s],PRIMEM[\"Greenwich\",0.0],UNIT[\"%s\",%.17g]]",
                datum, spheroid, unit, factor);
  return text;
}

constexpr const char* kClarke1866 = "SPHEROID[\"Clarke_1866\",6378206.4,294.9786982]";
constexpr const char* kBessel = "SPHEROID[\"Bessel_1841\",6377397.155,299.1528128]";
constexpr const char* kBesselNamibia = "SPHEROID[\"Bessel_Namibia\",6377483.865,299.1528128]";
constexpr const char* kClarke1880Arc = "SPHEROID[\"Clarke_1880_Arc\",6378249.145,293.466307656]";

struct Geogcs {
  gx_geogcs* cs;
  explicit Geogcs(const std::string& text) : cs(gx_geogcs_from_string(text.c_str())) {}
  ~Geogcs() { gx_geogcs_del(cs); }
  Geogcs(const Geogcs&) = delete;
  Geogcs& operator=(const Geogcs&) = delete;
};

// n reference buffers and the pointer array the functions take.
struct References {
  std::vector<std::array<char, GX_MGRS_BUFFER_SIZE>> buffers;
  std::vector<char*> pointers;
  explicit References(size_t n) : buffers(n), pointers(n) {
    for (size_t i = 0; i < n; ++i) pointers[i] = buffers[i].data();
  }
  std::string operator[](size_t i) const { return buffers[i].data(); }
};

std::string to_mgrs(const gx_geogcs* cs, double lon, double lat, int32_t precision,
                    int32_t rounding = 0, int32_t mode = GX_MGRS_NEW) {
  double coords[2] = {lon, lat};
  References refs(1);
  EXPECT_EQ(gx_geog_to_mgrs_extended(cs, 1, coords, precision, rounding, mode,
                                     refs.pointers.data()),
            1);
  return refs[0];
}

// Longitude and latitude of a reference, NaN when it is refused.
std::array<double, 2> to_geog(const gx_geogcs* cs, const char* text, int32_t mode = GX_MGRS_NEW) {
  std::array<double, 2> lonlat{};
  const char* strings[1] = {text};
  int32_t count = gx_mgrs_to_geog_extended(cs, 1, strings, mode, lonlat.data());
  EXPECT_EQ(count, std::isnan(lonlat[1]) ? 0 : 1) << text;
  return lonlat;
}

bool refused(const gx_geogcs* cs, const char* text, int32_t mode = GX_MGRS_NEW) {
  std::array<double, 2> lonlat = to_geog(cs, text, mode);
  return std::isnan(lonlat[0]) && std::isnan(lonlat[1]);
}

// Distance in metres between two nearby points given in degrees.
double metres_apart(double lon1, double lat1, double lon2, double lat2) {
  double dlon = std::remainder(lon1 - lon2, 360.0) * std::cos(lat1 * M_PI / 180.0);
  return std::hypot(dlon, lat1 - lat2) * 111320.0;
}

// A GeoConvert reference of 10 digits per axis cut to `precision` digits.
std::string cut(const std::string& reference, int32_t precision) {
  size_t letters = reference.size() - 20;
  return reference.substr(0, letters) + reference.substr(letters, precision) +
         reference.substr(letters + 10, precision);
}

// Distance in metres from a value given by 10 digits (units of 10 micrometres
// inside the 100 km square) to the nearest cell boundary at `precision`.
double boundary_distance(const std::string& ten_digits, int32_t precision) {
  long long units = std::atoll(ten_digits.c_str());
  long long cell = 1;
  for (int32_t i = precision; i < 10; ++i) cell *= 10;
  long long r = units % cell;
  return static_cast<double>(std::min(r, cell - r)) * 1e-5;
}

class Mgrs : public ::testing::Test {
 protected:
  Geogcs wgs84{kWgs84};
  void SetUp() override { ASSERT_NE(wgs84.cs, nullptr); }
};

// ---- against GeoConvert ------------------------------------------------------

// Forward, the two agree to the 10 micrometres of GeoConvert's digits (its
// Transverse Mercator is Krueger's series, this one the eighth-order series
// in longitude); a point closer than that to a cell boundary may fall on
// either side, so those comparisons are left out.
constexpr double kBoundaryTolerance = 3e-5;  // metres
// Backward, the series of the inverse loses up to a few millimetres near
// 84 N (2.4 mm at 83.7 N, 100 km from the central meridian), tenths of a
// millimetre elsewhere.
constexpr double kCornerTolerance = 0.003;  // metres

TEST_F(Mgrs, ReferencesAgreeWithGeoConvertAtEveryPrecision) {
  const size_t n = kGeoConvertCount;
  std::vector<double> coords(2 * n);
  for (size_t i = 0; i < n; ++i) {
    coords[2 * i] = std::atof(kGeoConvert[i].lon);
    coords[2 * i + 1] = std::atof(kGeoConvert[i].lat);
  }
  size_t compared = 0, near_boundary = 0;
  for (int32_t precision = 0; precision <= 8; ++precision) {
    References refs(n);
    ASSERT_EQ(gx_geog_to_mgrs(wgs84.cs, static_cast<int32_t>(n), coords.data(), precision, 0,
                              refs.pointers.data()),
              static_cast<int32_t>(n));
    for (size_t i = 0; i < n; ++i) {
      std::string reference = kGeoConvert[i].reference;
      size_t letters = reference.size() - 20;
      if (boundary_distance(reference.substr(letters, 10), precision) < kBoundaryTolerance ||
          boundary_distance(reference.substr(letters + 10, 10), precision) < kBoundaryTolerance) {
        ++near_boundary;
        continue;
      }
      ++compared;
      EXPECT_EQ(refs[i], cut(reference, precision))
          << "lon " << kGeoConvert[i].lon << " lat " << kGeoConvert[i].lat;
    }
  }
  EXPECT_LT(near_boundary, compared / 20);
}

TEST_F(Mgrs, ReadingGivesTheSouthWestCornerThatGeoConvertGives) {
  size_t compared = 0;
  for (const GeoConvertPoint& point : kGeoConvert) {
    if (point.precision < 0) continue;
    std::string text = cut(point.reference, point.precision);
    std::array<double, 2> lonlat = to_geog(wgs84.cs, text.c_str());
    double lon = std::atof(point.corner_lon), lat = std::atof(point.corner_lat);
    if (std::isnan(lonlat[1])) {
      // Refused only when the corner lies more than a cell outside the band.
      gx_mgrs_reference ref;
      ASSERT_TRUE(gx_mgrs_read(text.c_str(), &ref)) << text;
      double lower, upper;
      gx_mgrs_band_range(ref.band, &lower, &upper);
      double cell = gx_mgrs_cell(&ref) / 111000.0;
      EXPECT_TRUE(lat < lower - cell * 0.99 || lat > upper + cell * 0.99) << text;
      continue;
    }
    ++compared;
    EXPECT_LT(metres_apart(lonlat[0], lonlat[1], lon, lat), kCornerTolerance) << text;
  }
  EXPECT_GT(compared, kGeoConvertCount * 9 / 10);
}

// Zone, easting and northing (within the 2000 km row cycle) of a reference.
struct Grid {
  int32_t zone;
  double easting, northing;
};
Grid grid_of(const std::string& text) {
  gx_mgrs_reference ref;
  Grid grid{0, NAN, NAN};
  EXPECT_TRUE(gx_mgrs_read(text.c_str(), &ref)) << text;
  grid.zone = ref.zone;
  if (ref.zone > 0) gx_mgrs_utm_grid(&ref, 0, &grid.easting, &grid.northing);
  else gx_mgrs_ups_grid(&ref, &grid.easting, &grid.northing);
  return grid;
}

TEST_F(Mgrs, EveryReferenceReadsBackToItsCorner) {
  // Written, read and written again at full precision, a reference comes
  // back to the corner of its cell, to within the inverse series' error.
  // A corner may fall outside the band widened by one cell, far from the
  // central meridian where the parallels curve; then it is refused.  A
  // corner in the next zone west is written in that zone, so not compared;
  // for cells of 100 m and less that happens only on the zone edges.
  size_t compared = 0, other_zone = 0;
  for (size_t i = 0; i < kGeoConvertCount; i += 5) {
    double lon = std::atof(kGeoConvert[i].lon), lat = std::atof(kGeoConvert[i].lat);
    for (int32_t precision = 0; precision <= 8; ++precision) {
      std::string text = to_mgrs(wgs84.cs, lon, lat, precision);
      std::array<double, 2> corner = to_geog(wgs84.cs, text.c_str());
      double cell = std::pow(10.0, 5 - precision);
      if (std::isnan(corner[1])) {
        double lower = std::floor((lat + 80.0) / 8.0) * 8.0 - 80.0;
        EXPECT_LT(lat - lower, 2.0 * cell / 110000.0) << text;
        continue;
      }
      Grid written = grid_of(text), again = grid_of(to_mgrs(wgs84.cs, corner[0], corner[1], 8));
      if (again.zone != written.zone) {
        // Zone edges (all on whole multiples of 3 degrees) and the UTM limits.
        bool on_edge = std::fmod(lon + 180.0, 3.0) < 1e-5 || std::fabs(lat + 80.0) < 1e-5 ||
                       std::fabs(lat - 84.0) < 1e-5;
        other_zone += precision >= 3 && !on_edge;
        continue;
      }
      ++compared;
      EXPECT_NEAR(again.easting, written.easting, kCornerTolerance) << text;
      EXPECT_NEAR(std::remainder(again.northing - written.northing, 2e6), 0.0, kCornerTolerance)
          << text;
    }
  }
  EXPECT_LT(other_zone, compared / 100);
}

// ---- differences from GeoConvert, by design -----------------------------------

TEST_F(Mgrs, Latitude84IsStillUtmBandX) {
  // GeoConvert: "ZBA1577643401" (UPS) for 84N 10E.
  EXPECT_EQ(to_mgrs(wgs84.cs, 10.0, 84.0, 0), "33XVP");
  EXPECT_EQ(to_mgrs(wgs84.cs, 10.0, 84.0000001, 0), "ZBA");
  EXPECT_EQ(to_mgrs(wgs84.cs, 10.0, -80.0, 0).substr(0, 3), "32C");
  EXPECT_EQ(to_mgrs(wgs84.cs, 10.0, -80.0000001, 0), "BBY");  // GeoConvert: "BBY9326196042"
}

TEST_F(Mgrs, Longitude180IsZone60UnlessWrapped) {
  // GeoConvert: "01NAA6602100000" for 0N 180E.
  EXPECT_EQ(to_mgrs(wgs84.cs, 180.0, 0.0, 5), "60NZF3397800000");
  EXPECT_EQ(to_mgrs(wgs84.cs, 180.0, 0.0, 5, 0, GX_MGRS_NEW_WRAP), "01NAA6602100000");
  EXPECT_EQ(to_mgrs(wgs84.cs, 180.0, 0.0, 5, 0, GX_MGRS_OLD), "60NZR3397800000");
  EXPECT_EQ(to_mgrs(wgs84.cs, 180.0, 0.0, 5, 0, GX_MGRS_OLD_WRAP), "01NAL6602100000");
  EXPECT_EQ(to_mgrs(wgs84.cs, -180.0, 0.0, 5), "01NAA6602100000");
}

TEST_F(Mgrs, RoundingTakesTheNearestCellWhereGeoConvertTruncates) {
  // 49.2N 2.3E is 31UDQ 49005.730 E 49925.033 N (GeoConvert -m -p 3, which
  // truncates): to the kilometre it is "31UDQ4949", rounded "31UDQ4950".
  EXPECT_EQ(to_mgrs(wgs84.cs, 2.3, 49.2, 8), "31UDQ4900573049925033");
  EXPECT_EQ(to_mgrs(wgs84.cs, 2.3, 49.2, 2), "31UDQ4949");
  EXPECT_EQ(to_mgrs(wgs84.cs, 2.3, 49.2, 2, 1), "31UDQ4950");
  EXPECT_EQ(to_mgrs(wgs84.cs, 2.3, 49.2, 5, 1), "31UDQ4900649925");
  EXPECT_EQ(to_mgrs(wgs84.cs, 2.3, 49.2, 0, 1), "31UDQ");
}

TEST_F(Mgrs, ReadingGivesTheCornerWhereGeoConvertGivesTheCentre) {
  // GeoConvert reads "31UDQ" as the centre of the square, 49.20075620628N
  // 2.31363799408E; here it is the south-west corner, 48,400,000 E 5,400,000 N.
  std::array<double, 2> corner = to_geog(wgs84.cs, "31UDQ");
  std::array<double, 2> same = to_geog(wgs84.cs, "31UDQ0000000000");
  EXPECT_EQ(corner, same);
  EXPECT_EQ(to_mgrs(wgs84.cs, corner[0], corner[1], 5), "31UDQ0000000000");
  EXPECT_GT(metres_apart(corner[0], corner[1], 2.31363799408, 49.20075620628), 70000.0);
}

TEST_F(Mgrs, AColumnLetterOfAnotherZoneSetIsCountedRoundTheLetters) {
  // GeoConvert refuses "32UAQ" ("Column letter A not in zone 32 set"); here the
  // column is taken 16 squares on, 1700 km east, which lies outside band U
  // only by chance of the row: the reading does not check the set.
  std::array<double, 2> far = to_geog(wgs84.cs, "32UAQ");
  if (!std::isnan(far[0])) {
    EXPECT_GT(far[0], 9.0 + 10.0);
  }
  EXPECT_TRUE(refused(wgs84.cs, "31UDL"));  // GeoConvert: "Block DL not in zone/band 31U"
}

TEST_F(Mgrs, PrecisionStopsAtEightDigits) {
  // GeoConvert writes up to 11 digits per axis; here 9 and more are 8.
  EXPECT_EQ(to_mgrs(wgs84.cs, 2.3, 49.2, 11), to_mgrs(wgs84.cs, 2.3, 49.2, 8));
  EXPECT_EQ(to_mgrs(wgs84.cs, 2.3, 49.2, -4), to_mgrs(wgs84.cs, 2.3, 49.2, 0));
  EXPECT_EQ(to_mgrs(wgs84.cs, 2.3, 49.2, 0).size(), 5u);
  EXPECT_TRUE(refused(wgs84.cs, "31UDQ123456789123456789"));
}

// ---- zones, bands and caps -----------------------------------------------------

TEST_F(Mgrs, ZoneExceptionsOfNorwayAndSvalbard) {
  EXPECT_EQ(to_mgrs(wgs84.cs, 3.0, 56.0, 0).substr(0, 3), "32V");
  EXPECT_EQ(to_mgrs(wgs84.cs, 2.9999, 56.0, 0).substr(0, 3), "31V");
  EXPECT_EQ(to_mgrs(wgs84.cs, 3.0, 64.0, 0).substr(0, 3), "31W");
  EXPECT_EQ(to_mgrs(wgs84.cs, 8.9999, 78.0, 0).substr(0, 3), "31X");
  EXPECT_EQ(to_mgrs(wgs84.cs, 9.0, 78.0, 0).substr(0, 3), "33X");
  EXPECT_EQ(to_mgrs(wgs84.cs, 33.0, 84.0, 0).substr(0, 3), "37X");
}

TEST_F(Mgrs, PolesAreTheCentresOfTheirCaps) {
  // GeoConvert: "ZAH00000000000000000000" and "BAN00000000000000000000".
  EXPECT_EQ(to_mgrs(wgs84.cs, 0.0, 90.0, 5), "ZAH0000000000");
  EXPECT_EQ(to_mgrs(wgs84.cs, 0.0, -90.0, 5), "BAN0000000000");
  std::array<double, 2> pole = to_geog(wgs84.cs, "ZAH0000000000");
  EXPECT_NEAR(pole[1], 90.0, 1e-9);
  pole = to_geog(wgs84.cs, "BAN");
  EXPECT_NEAR(pole[1], -90.0, 1e-9);
}

TEST_F(Mgrs, ASquareWithoutDigitsIsItsSouthWestCorner) {
  std::array<double, 2> corner = to_geog(wgs84.cs, "18TWL");
  EXPECT_NEAR(corner[0], -75.0, 1e-12);
  EXPECT_EQ(to_mgrs(wgs84.cs, corner[0], corner[1], 8), "18TWL0000000000000000");
  corner = to_geog(wgs84.cs, "YZJ");
  EXPECT_EQ(to_mgrs(wgs84.cs, corner[0], corner[1], 8), "YZJ0000000000000000");
}

TEST_F(Mgrs, RoundingCarriesBandMOverTheEquator) {
  // 0.3 m south of the equator on the central meridian of zone 31.
  std::string text = to_mgrs(wgs84.cs, 3.0, -0.3 / 110574.0, 5, 1);
  EXPECT_EQ(text, "31NEA0000000000");
  EXPECT_EQ(to_mgrs(wgs84.cs, 3.0, -0.3 / 110574.0, 5, 0), "31MEV0000099999");
}

// ---- lettering ----------------------------------------------------------------

TEST_F(Mgrs, OldLetteringShiftsRowsAndReadsBack) {
  std::string current = to_mgrs(wgs84.cs, 2.3, 49.2, 5, 0, GX_MGRS_NEW);
  std::string old = to_mgrs(wgs84.cs, 2.3, 49.2, 5, 0, GX_MGRS_OLD);
  EXPECT_EQ(current, "31UDQ4900549925");
  EXPECT_EQ(old, "31UDE4900549925");
  EXPECT_EQ(to_geog(wgs84.cs, old.c_str(), GX_MGRS_OLD), to_geog(wgs84.cs, current.c_str()));
  EXPECT_EQ(to_geog(wgs84.cs, old.c_str(), GX_MGRS_OLD_WRAP), to_geog(wgs84.cs, current.c_str()));
  EXPECT_TRUE(refused(wgs84.cs, old.c_str(), GX_MGRS_NEW));  // row E is out of band U
  // UPS has one lettering.
  EXPECT_EQ(to_mgrs(wgs84.cs, 0.0, 88.0, 5, 0, GX_MGRS_OLD), to_mgrs(wgs84.cs, 0.0, 88.0, 5));
}

TEST_F(Mgrs, DatumsOfTheOldLetteringAreFound) {
  Geogcs tokyo{geogcs_text("D_Tokyo", kBessel)};
  Geogcs arc{geogcs_text("D_Arc_1950", kClarke1880Arc)};
  Geogcs other{geogcs_text("D_Other", kBessel)};
  for (const Geogcs* cs : {&tokyo, &arc, &other}) ASSERT_NE(cs->cs, nullptr);
  for (int32_t mode : {GX_MGRS_BY_DATUM, 5, -1}) {
    EXPECT_EQ(to_mgrs(tokyo.cs, 139.7, 35.7, 0, 0, mode), to_mgrs(tokyo.cs, 139.7, 35.7, 0, 0, GX_MGRS_OLD));
    EXPECT_EQ(to_mgrs(arc.cs, 28.3, -15.4, 0, 0, mode), to_mgrs(arc.cs, 28.3, -15.4, 0, 0, GX_MGRS_OLD));
    EXPECT_EQ(to_mgrs(other.cs, 139.7, 35.7, 0, 0, mode), to_mgrs(other.cs, 139.7, 35.7, 0, 0, GX_MGRS_NEW));
  }
  EXPECT_NE(to_mgrs(tokyo.cs, 139.7, 35.7, 0, 0, GX_MGRS_OLD), to_mgrs(tokyo.cs, 139.7, 35.7, 0, 0, GX_MGRS_NEW));
  // Modes from 3 up wrap +180 to -180.
  EXPECT_EQ(to_mgrs(wgs84.cs, 180.0, 0.0, 0, 0, GX_MGRS_BY_DATUM), "01NAA");
  std::string old = to_mgrs(tokyo.cs, 139.7, 35.7, 5, 0, GX_MGRS_OLD);
  EXPECT_EQ(to_geog(tokyo.cs, old.c_str(), GX_MGRS_BY_DATUM), to_geog(tokyo.cs, old.c_str(), GX_MGRS_OLD));
}

TEST_F(Mgrs, Clarke1866DatumsKeepTheNewRowsInZones47To55) {
  Geogcs luzon{geogcs_text("D_Luzon_1911", kClarke1866)};
  ASSERT_NE(luzon.cs, nullptr);
  // Zone 51 (Manila): found by the datum, yet the rows stay new.
  EXPECT_EQ(to_mgrs(luzon.cs, 121.0, 14.6, 0, 0, GX_MGRS_BY_DATUM), to_mgrs(luzon.cs, 121.0, 14.6, 0, 0, GX_MGRS_NEW));
  // Asked for by mode, the old rows hold in every zone.
  EXPECT_NE(to_mgrs(luzon.cs, 121.0, 14.6, 0, 0, GX_MGRS_OLD), to_mgrs(luzon.cs, 121.0, 14.6, 0, 0, GX_MGRS_NEW));
  // Zone 4 (Hawaii): old rows.
  EXPECT_EQ(to_mgrs(luzon.cs, -157.9, 21.3, 0, 0, GX_MGRS_BY_DATUM), to_mgrs(luzon.cs, -157.9, 21.3, 0, 0, GX_MGRS_OLD));
  std::string text = to_mgrs(luzon.cs, 121.0, 14.6, 5, 0, GX_MGRS_BY_DATUM);
  EXPECT_EQ(to_geog(luzon.cs, text.c_str(), GX_MGRS_BY_DATUM), to_geog(luzon.cs, text.c_str(), GX_MGRS_NEW));
}

TEST_F(Mgrs, SchwarzeckIsOldTowardsTextOnly) {
  // Bessel_Namibia is row 2 of the spheroids: towards text the Bessel list
  // is searched and D_Schwarzeck found; from text the Clarke 1880 list is,
  // and it is not.
  Geogcs schwarzeck{geogcs_text("D_Schwarzeck", kBesselNamibia)};
  ASSERT_NE(schwarzeck.cs, nullptr);
  std::string text = to_mgrs(schwarzeck.cs, 17.1, -22.6, 5, 0, GX_MGRS_BY_DATUM);
  EXPECT_EQ(text, to_mgrs(schwarzeck.cs, 17.1, -22.6, 5, 0, GX_MGRS_OLD));
  std::array<double, 2> read = to_geog(schwarzeck.cs, text.c_str(), GX_MGRS_BY_DATUM);
  std::array<double, 2> as_new = to_geog(schwarzeck.cs, text.c_str(), GX_MGRS_NEW);
  EXPECT_TRUE((std::isnan(read[0]) && std::isnan(as_new[0])) || read == as_new);
}

TEST_F(Mgrs, ASphereReadsBackToItsCorners) {
  // The sphere branches of both projections, caps included.
  Geogcs sphere{geogcs_text("D_Sphere", "SPHEROID[\"Sphere\",6371000.0,0.0]")};
  ASSERT_NE(sphere.cs, nullptr);
  for (double lat = -89.5; lat < 90.0; lat += 3.7) {
    for (double lon : {-177.2, -3.3, 0.4, 95.0}) {
      std::string text = to_mgrs(sphere.cs, lon, lat, 5);
      std::array<double, 2> corner = to_geog(sphere.cs, text.c_str());
      ASSERT_FALSE(std::isnan(corner[1])) << text;
      EXPECT_LT(metres_apart(corner[0], corner[1], lon, lat), 1.5) << text;
      Grid written = grid_of(text), again = grid_of(to_mgrs(sphere.cs, corner[0], corner[1], 8));
      if (again.zone != written.zone) continue;
      EXPECT_NEAR(again.easting, written.easting, 0.0015) << text;  // a millimetre digit
      EXPECT_NEAR(std::remainder(again.northing - written.northing, 2e6), 0.0, 0.0015) << text;
    }
  }
}

// ---- units and arrays ------------------------------------------------------------

TEST_F(Mgrs, CoordinatesAreInTheUnitOfTheSystem) {
  Geogcs radians{geogcs_text("D_WGS_1984", "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]",
                             "Radian", 1.0)};
  Geogcs grads{geogcs_text("D_WGS_1984", "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]",
                           "Grad", 0.01570796326794897)};
  ASSERT_NE(radians.cs, nullptr);
  ASSERT_NE(grads.cs, nullptr);
  std::string text = to_mgrs(wgs84.cs, 2.3, 49.2, 5);
  EXPECT_EQ(to_mgrs(radians.cs, 2.3 * M_PI / 180.0, 49.2 * M_PI / 180.0, 5), text);
  EXPECT_EQ(to_mgrs(grads.cs, 2.3 / 0.9, 49.2 / 0.9, 5), text);
  std::array<double, 2> degrees = to_geog(wgs84.cs, text.c_str());
  std::array<double, 2> in_radians = to_geog(radians.cs, text.c_str());
  EXPECT_NEAR(in_radians[0], degrees[0] * M_PI / 180.0, 1e-15);
  EXPECT_NEAR(in_radians[1], degrees[1] * M_PI / 180.0, 1e-15);
}

TEST_F(Mgrs, AZoneEdgeInDegreesStaysExact) {
  // 6 degrees east through radians and back is 5.999999999999999 by some
  // routes; the zone must not drop.
  for (int lon = -180; lon < 180; lon += 6) {
    std::string text = to_mgrs(wgs84.cs, lon, 10.0, 0);
    EXPECT_EQ(std::atoi(text.substr(0, 2).c_str()), (lon + 180) / 6 + 1) << lon;
  }
  for (int lat = -80; lat <= 72; lat += 8)
    EXPECT_EQ(to_mgrs(wgs84.cs, 1.0, lat, 0)[2], GX_MGRS_BANDS[(lat + 80) / 8]) << lat;
}

TEST_F(Mgrs, ArraysConvertEveryPointInItsPlace) {
  const char* strings[] = {"31UDQ4825111932", nullptr, "", "ZAH", "junk", "33XVP"};
  std::vector<double> coords(12, 0.0);
  EXPECT_EQ(gx_mgrs_to_geog(wgs84.cs, 6, strings, coords.data()), 3);
  for (int i : {0, 3, 5}) EXPECT_FALSE(std::isnan(coords[2 * i + 1])) << i;
  for (int i : {1, 2, 4}) {
    EXPECT_TRUE(std::isnan(coords[2 * i]) && std::isnan(coords[2 * i + 1])) << i;
    uint64_t bits;
    std::memcpy(&bits, &coords[2 * i], sizeof bits);
    EXPECT_EQ(bits, 0x7FF8000000000001ull);
  }
}

// ---- bad input -----------------------------------------------------------------

TEST_F(Mgrs, BadReferencesStayNaNAndAreNotCounted) {
  std::string long_text(10000, 'A');
  std::string long_digits = "31UDQ" + std::string(9995, '5');
  const char* bad[] = {"31udq4825111932", "31UDQ482511193",  "31UDQ48251 11932", "61UDQ",
                       "00UDQ",           "123456789UDQ",    "31UIQ",            "31UDO",
                       "31YZJ",           "UDQ1234",         "31UDL",            long_text.c_str(),
                       long_digits.c_str(), "31UDQ\n",       "AHN"};
  const size_t n = sizeof bad / sizeof bad[0];
  std::vector<double> coords(2 * n, 0.0);
  EXPECT_EQ(gx_mgrs_to_geog(wgs84.cs, static_cast<int32_t>(n), bad, coords.data()), 0);
  for (size_t i = 0; i < 2 * n; ++i) EXPECT_TRUE(std::isnan(coords[i])) << bad[i / 2];
}

TEST_F(Mgrs, BadArgumentsConvertNothing) {
  double coords[2] = {2.3, 49.2};
  References refs(1);
  const char* strings[1] = {"31UDQ"};
  EXPECT_EQ(gx_geog_to_mgrs(nullptr, 1, coords, 5, 0, refs.pointers.data()), 0);
  EXPECT_EQ(refs[0], "");
  EXPECT_EQ(gx_geog_to_mgrs(wgs84.cs, 0, coords, 5, 0, refs.pointers.data()), 0);
  EXPECT_EQ(gx_geog_to_mgrs(wgs84.cs, -1, coords, 5, 0, refs.pointers.data()), 0);
  EXPECT_EQ(gx_geog_to_mgrs(wgs84.cs, 1, nullptr, 5, 0, refs.pointers.data()), 0);
  EXPECT_EQ(gx_geog_to_mgrs(wgs84.cs, 1, coords, 5, 0, nullptr), 0);
  char* none[1] = {nullptr};
  EXPECT_EQ(gx_geog_to_mgrs(wgs84.cs, 1, coords, 5, 0, none), 1);
  const gx_geogcs* not_geogcs = reinterpret_cast<const gx_geogcs*>(strings);
  EXPECT_EQ(gx_geog_to_mgrs(not_geogcs, 1, coords, 5, 0, refs.pointers.data()), 0);

  EXPECT_EQ(gx_mgrs_to_geog(nullptr, 1, strings, coords), 0);
  EXPECT_TRUE(std::isnan(coords[0]) && std::isnan(coords[1]));
  EXPECT_EQ(gx_mgrs_to_geog(wgs84.cs, 1, nullptr, coords), 0);
  EXPECT_EQ(gx_mgrs_to_geog(wgs84.cs, 1, strings, nullptr), 0);
  EXPECT_EQ(gx_mgrs_to_geog(wgs84.cs, 0, strings, coords), 0);
}

TEST_F(Mgrs, PointsWithoutAReferenceGetAnEmptyString) {
  double coords[] = {NAN, 10.0, 10.0, NAN, INFINITY, 0.0, 10.0, 90.0000001, 10.0, -91.0,
                     2.3, 49.2, 1e300, 10.0};
  References refs(7);
  std::strcpy(refs.pointers[0], "stale");
  EXPECT_EQ(gx_geog_to_mgrs(wgs84.cs, 7, coords, 5, 1, refs.pointers.data()), 7);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(refs[i], "") << i;
  EXPECT_EQ(refs[5], "31UDQ4900649925");
  EXPECT_FALSE(refs[6].empty());  // any finite longitude is wrapped
}

// ---- 16-bit text -----------------------------------------------------------------

TEST_F(Mgrs, WideFunctionsMatchTheNarrowOnes) {
  double coords[] = {2.3, 49.2, 10.0, -85.0};
  gx_wchar buffers[2][GX_MGRS_BUFFER_SIZE];
  gx_wchar* strings[2] = {buffers[0], buffers[1]};
  EXPECT_EQ(gx_geog_to_mgrs_w(wgs84.cs, 2, coords, 5, 0, strings), 2);
  References refs(2);
  gx_geog_to_mgrs(wgs84.cs, 2, coords, 5, 0, refs.pointers.data());
  for (int i = 0; i < 2; ++i) {
    std::string narrow;
    for (const gx_wchar* c = buffers[i]; *c != 0; ++c) narrow += static_cast<char>(*c);
    EXPECT_EQ(narrow, refs[i]);
  }
  double back[4];
  const gx_wchar* readable[2] = {buffers[0], buffers[1]};
  EXPECT_EQ(gx_mgrs_to_geog_w(wgs84.cs, 2, readable, back), 2);
  std::array<double, 2> first = to_geog(wgs84.cs, refs[0].c_str());
  EXPECT_EQ(back[0], first[0]);
  EXPECT_EQ(back[1], first[1]);
}

TEST_F(Mgrs, WideReferencesThatDoNotFitOrAreNotAsciiAreRefused) {
  std::vector<gx_wchar> too_long(30, '0');
  std::string tail = "31UDQ4825111932";
  std::copy(tail.begin(), tail.end(), too_long.end() - static_cast<long>(tail.size()) - 1);
  too_long.back() = 0;
  std::vector<gx_wchar> letters(tail.begin(), tail.end());
  letters.push_back(0);
  std::vector<gx_wchar> foreign = letters;
  foreign[2] = 0x0155;  // 'U' in its low byte
  std::vector<gx_wchar> huge(10000, '1');
  huge.back() = 0;
  const gx_wchar* strings[] = {too_long.data(), letters.data(), foreign.data(), huge.data(),
                               nullptr};
  double coords[10];
  EXPECT_EQ(gx_mgrs_to_geog_w(wgs84.cs, 5, strings, coords), 1);
  EXPECT_FALSE(std::isnan(coords[2]));
  for (int i : {0, 2, 3, 4}) EXPECT_TRUE(std::isnan(coords[2 * i])) << i;
  EXPECT_EQ(gx_mgrs_to_geog_w(wgs84.cs, 1, nullptr, coords), 0);
  EXPECT_EQ(gx_geog_to_mgrs_w(wgs84.cs, 1, coords, 5, 0, nullptr), 0);
}

}  // namespace
