// GEOREF text of geographic coordinates: letters, minutes and decimals, the
// clamps at the edges of the world, and every kind of bad text.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "frame/text.h"
#include "gridref/georef_codec.h"

namespace {

constexpr double kDegree = 0.017453292519943295;  // radians per degree

std::string encode(double lon, double lat, int precision, int rounding = 0, double factor = kDegree) {
  const double coords[2] = {lon, lat};
  char text[GX_GEOREF_SIZE] = "junk";
  char* strings[1] = {text};
  int count = gx_georef_encode(factor, 1, coords, precision, rounding, strings);
  EXPECT_EQ(count, text[0] != '\0' ? 1 : 0);
  return text;
}

// Decodes one text; false (and NaN in both) when it is refused.
bool decode(const char* text, double* lon, double* lat, double factor = kDegree) {
  const char* strings[1] = {text};
  double coords[2] = {0.0, 0.0};
  int count = gx_georef_decode(factor, 1, strings, coords);
  *lon = coords[0];
  *lat = coords[1];
  EXPECT_EQ(count == 1, !std::isnan(coords[0]) && !std::isnan(coords[1])) << text;
  return count == 1;
}

bool refused(const char* text) {
  double lon, lat;
  return !decode(text, &lon, &lat) && std::isnan(lon) && std::isnan(lat);
}

// Expected texts and south-west corners from GeographicLib 2.1.2
// (Georef::Forward, and Georef::Reverse with centerp = false), degrees.
// Both truncate, so inside the world they agree digit for digit.
struct Reference {
  double lon, lat;
  int precision;
  const char* text;
  double corner_lon, corner_lat;
};

const Reference kReferences[] = {
    {10.40744, 57.64911, 2, "NKLN2438", 10.4, 57.6333333333333},
    {10.40744, 57.64911, 3, "NKLN244389", 10.4066666666667, 57.6483333333333},
    {10.40744, 57.64911, 5, "NKLN2444638946", 10.4074333333333, 57.6491},
    {10.40744, 57.64911, 9, "NKLN244464000389466000", 10.40744, 57.64911},
    {-76.4291704, 38.286108, 2, "GJPJ3417", -76.4333333333333, 38.2833333333333},
    {-76.4291704, 38.286108, 3, "GJPJ342171", -76.43, 38.285},
    {-76.4291704, 38.286108, 5, "GJPJ3424917166", -76.4291833333333, 38.2861},
    {-76.4291704, 38.286108, 9, "GJPJ342497760171664800", -76.4291704, 38.286108},
    {151.215297, -33.856784, 2, "YDBM1208", 151.2, -33.8666666666667},
    {151.215297, -33.856784, 3, "YDBM129085", 151.215, -33.8583333333333},
    {151.215297, -33.856784, 5, "YDBM1291708592", 151.215283333333, -33.8568},
    {151.215297, -33.856784, 9, "YDBM129178200085929600", 151.215297, -33.856784},
    {0, 0, 2, "NGAA0000", 0, 0},
    {0, 0, 9, "NGAA000000000000000000", 0, 0},
    {-0.5, -0.5, 2, "MFQQ3030", -0.5, -0.5},
    {-0.5, -0.5, 5, "MFQQ3000030000", -0.5, -0.5},
    {179.99, 89.99, 2, "ZMQQ5959", 179.983333333333, 89.9833333333333},
    {179.99, 89.99, 3, "ZMQQ594594", 179.99, 89.99},
    {179.99, 89.99, 9, "ZMQQ594000000594000000", 179.99, 89.99},
    {-179.99, -89.99, 2, "AAAA0000", -180, -90},
    {-180, -90, 2, "AAAA0000", -180, -90},
    {-180, -90, 9, "AAAA000000000000000000", -180, -90},
    {-0.0015, 51.4778, 2, "MKQG5928", -0.0166666666666667, 51.4666666666667},
    {-0.0015, 51.4778, 3, "MKQG599286", -0.00166666666666667, 51.4766666666667},
    {-0.0015, 51.4778, 5, "MKQG5991028668", -0.0015, 51.4778},
    {-0.0015, 51.4778, 9, "MKQG599100000286680000", -0.0015, 51.4778},
    {139.6917, 35.6895, 2, "XJEF4141", 139.683333333333, 35.6833333333333},
    {139.6917, 35.6895, 3, "XJEF415413", 139.691666666667, 35.6883333333333},
    {139.6917, 35.6895, 9, "XJEF415020000413700000", 139.6917, 35.6895},
    {-68.303, -54.8019, 2, "HCGF4111", -68.3166666666667, -54.8166666666667},
    {-68.303, -54.8019, 3, "HCGF418118", -68.3033333333333, -54.8033333333333},
    {-68.303, -54.8019, 5, "HCGF4182011886", -68.303, -54.8019},
    {-21.9426, 64.1466, 2, "LLJE0308", -21.95, 64.1333333333333},
    {-21.9426, 64.1466, 3, "LLJE034087", -21.9433333333333, 64.145},
    {-21.9426, 64.1466, 5, "LLJE0344408796", -21.9426, 64.1466},
    {-123.456789, 12.345678, 2, "DGMN3220", -123.466666666667, 12.3333333333333},
    {-123.456789, 12.345678, 3, "DGMN325207", -123.458333333333, 12.345},
    {-123.456789, 12.345678, 5, "DGMN3259220740", -123.4568, 12.3456666666667},
    {-123.456789, 12.345678, 9, "DGMN325926600207406800", -123.456789, 12.345678},
    {45, -45, 3, "RDAA000000", 45, -45},
    {-150, 30, 5, "CJAA0000000000", -150, 30},
};

// The reference corners carry 15 digits.
constexpr double kCornerTolerance = 1e-12;

TEST(Georef, MatchesGeographicLibForward) {
  for (const Reference& r : kReferences) {
    EXPECT_EQ(encode(r.lon, r.lat, r.precision), r.text) << r.lon << " " << r.lat << " p" << r.precision;
  }
}

TEST(Georef, MatchesGeographicLibReverseCorner) {
  for (const Reference& r : kReferences) {
    double lon, lat;
    ASSERT_TRUE(decode(r.text, &lon, &lat)) << r.text;
    EXPECT_NEAR(lon, r.corner_lon, kCornerTolerance) << r.text;
    EXPECT_NEAR(lat, r.corner_lat, kCornerTolerance) << r.text;
  }
}

// A point lies in the cell its text names: corner <= point < corner + step,
// give or take the truncation guard (1e-11' at most, here 1e-12 degree).
TEST(Georef, PointsFallInTheirCell) {
  const double slack = 1e-12;
  for (int precision = 2; precision <= 9; precision++) {
    double step = 1.0 / 60.0 / std::pow(10.0, precision - 2);
    for (double lon = -179.7123457; lon < 180.0; lon += 7.3123457) {
      for (double lat = -89.9312345; lat < 90.0; lat += 3.7712345) {
        std::string text = encode(lon, lat, precision);
        ASSERT_EQ(text.size(), 4u + 2u * precision) << text;
        double corner_lon, corner_lat;
        ASSERT_TRUE(decode(text.c_str(), &corner_lon, &corner_lat)) << text;
        ASSERT_LE(corner_lon, lon + slack) << text;
        ASSERT_GT(corner_lon + step + slack, lon) << text;
        ASSERT_LE(corner_lat, lat + slack) << text;
        ASSERT_GT(corner_lat + step + slack, lat) << text;
      }
    }
  }
}

// Where this library differs from GeographicLib by design:
//  - latitude 90 stays in the last cell of band M with 60 minutes; GeographicLib
//    writes 59 minutes ("NMAQ0059");
//  - longitude +180 stays in zone Z, degree Q, with 60 minutes; GeographicLib
//    2.1.2 writes nothing at exactly +180 and wraps 540 likewise;
//  - latitudes beyond +-90 are clamped; GeographicLib refuses them;
//  - the reverse gives the south-west corner; GeographicLib gives the centre
//    unless asked for the corner;
//  - lower-case letters are refused; GeographicLib reads them;
//  - precision runs 2 to 9 digits per axis; GeographicLib also has letters
//    only (-1, 0) and up to 11 digits;
//  - an optional rounding to the nearest step; GeographicLib only truncates;
//  - a value within about 1e-15 of it below a step is taken to the step (the
//    truncation guard), where GeographicLib truncates the exact binary value.
TEST(Georef, NorthPoleAndAntimeridianKeepTheLastCell) {
  EXPECT_EQ(encode(0.0, 90.0, 2), "NMAQ0060");
  EXPECT_EQ(encode(0.0, 90.0, 4), "NMAQ00006000");
  EXPECT_EQ(encode(180.0, 10.0, 2), "ZGQL6000");
  EXPECT_EQ(encode(180.0, 90.0, 3), "ZMQQ600600");
  double lon, lat;
  ASSERT_TRUE(decode("ZMQQ6060", &lon, &lat));
  EXPECT_NEAR(lon, 180.0, 1e-12);
  EXPECT_NEAR(lat, 90.0, 1e-12);
}

TEST(Georef, LatitudesBeyondThePolesAreClamped) {
  EXPECT_EQ(encode(10.0, 91.0, 3), encode(10.0, 90.0, 3));
  EXPECT_EQ(encode(10.0, -1000.0, 3), encode(10.0, -90.0, 3));
  EXPECT_EQ(encode(10.0, -90.0, 3), "NALA000000");
}

TEST(Georef, LongitudesAreWrapped) {
  EXPECT_EQ(encode(370.0, 10.0, 3), encode(10.0, 10.0, 3));
  EXPECT_EQ(encode(-190.0, 10.0, 3), encode(170.0, 10.0, 3));
  EXPECT_EQ(encode(-180.0, 10.0, 3), "AGAL000000");
}

TEST(Georef, PrecisionIsClamped) {
  EXPECT_EQ(encode(10.40744, 57.64911, 1), "NKLN2438");
  EXPECT_EQ(encode(10.40744, 57.64911, -5), "NKLN2438");
  EXPECT_EQ(encode(10.40744, 57.64911, 12), "NKLN244464000389466000");
}

TEST(Georef, RoundingAddsHalfAStep) {
  // 10.40744 E is 24.4464' into degree L, 57.64911 N 38.9466' into degree N.
  EXPECT_EQ(encode(10.40744, 57.64911, 2, 1), "NKLN2439");
  EXPECT_EQ(encode(10.40744, 57.64911, 3, 1), "NKLN244389");
  EXPECT_EQ(encode(10.40744, 57.64911, 4, 1), "NKLN24453895");
  // Half a minute up crosses into the next degree.
  EXPECT_EQ(encode(10.999, 57.0, 2, 1), "NKMN0000");
}

TEST(Georef, TruncationGuardKeepsDecimalSteps) {
  // 0.3' and 0.1' are stored just below their decimals.
  EXPECT_EQ(encode(0.3 / 60.0, 0.1 / 60.0, 3), "NGAA003001");
  EXPECT_EQ(encode(0.0, 45.0 + 0.3 / 60.0, 3), "NKAA000003");
}

// The guard is some 15 digits below the minutes counted from the origin, so
// it can't restore a step lost to cancellation near the origin: -179.99 is
// 0.6' from the antimeridian, computed as 0.5999999999985'.  GeographicLib
// gives "AAAA006006".
TEST(Georef, GuardIsRelativeToTheMinutesFromTheOrigin) {
  EXPECT_EQ(encode(-179.99, -89.99, 3), "AAAA005006");
}

// The guard is added to the decimals only, not to the whole minutes: a value
// a hair below a whole minute keeps the lower minute, and its decimals reach
// a full minute, printed with one digit more.  -72.4 is 1056' from the South
// pole (17 degrees 36'), computed as 1055.9999999999995' after the trip
// through radians.  This is the stated rule; such texts don't read back.
TEST(Georef, GuardCanCarryTheDecimalsToAFullMinute) {
  EXPECT_EQ(encode(0.0, -72.4, 3), "NBAC0003510");
  EXPECT_EQ(encode(0.0, -72.4, 2), "NBAC0035");
  EXPECT_TRUE(refused("NBAC0003510"));
}

TEST(Georef, OtherAngularUnits) {
  // Radians, and grads (pi / 200 radians).
  EXPECT_EQ(encode(10.40744 * kDegree, 57.64911 * kDegree, 5, 0, 1.0), "NKLN2444638946");
  const double grad = 0.015707963267948967;
  EXPECT_EQ(encode(100.0, 50.0, 2, 0, grad), "UKAA0000");
  double lon, lat;
  ASSERT_TRUE(decode("UKAA0000", &lon, &lat, grad));
  EXPECT_NEAR(lon, 100.0, 1e-12);
  EXPECT_NEAR(lat, 50.0, 1e-12);
}

TEST(Georef, NonFinitePointsStayEmpty) {
  double nan;
  gx_nan(&nan);
  EXPECT_EQ(encode(nan, 10.0, 3), "");
  EXPECT_EQ(encode(10.0, nan, 3), "");
  EXPECT_EQ(encode(INFINITY, 10.0, 3), "");
  EXPECT_EQ(encode(10.0, -INFINITY, 3), "");
  EXPECT_EQ(encode(1e300, 10.0, 3).size(), 10u);
}

TEST(Georef, ArraysCountWhatWasWritten) {
  const double coords[6] = {10.0, 10.0, NAN, 0.0, -10.0, -10.0};
  char a[GX_GEOREF_SIZE], b[GX_GEOREF_SIZE] = "old", c[GX_GEOREF_SIZE];
  char* strings[3] = {a, b, c};
  EXPECT_EQ(gx_georef_encode(kDegree, 3, coords, 2, 0, strings), 2);
  EXPECT_STREQ(a, "NGLL0000");
  EXPECT_STREQ(b, "");
  EXPECT_STREQ(c, "MFFF0000");
  char* with_null[3] = {a, nullptr, c};
  EXPECT_EQ(gx_georef_encode(kDegree, 3, coords, 2, 0, with_null), 2);
  // Strings are emptied even when nothing can be written.
  EXPECT_EQ(gx_georef_encode(kDegree, 3, nullptr, 2, 0, strings), 0);
  EXPECT_STREQ(a, "");
  EXPECT_EQ(gx_georef_encode(0.0, 3, coords, 2, 0, strings), 0);
  EXPECT_EQ(gx_georef_encode(kDegree, 3, coords, 2, 0, static_cast<char**>(nullptr)), 0);
  EXPECT_EQ(gx_georef_encode(kDegree, 0, coords, 2, 0, strings), 0);

  const char* texts[3] = {"NGLL0000", "bad", nullptr};
  double out[6];
  EXPECT_EQ(gx_georef_decode(kDegree, 3, texts, out), 1);
  EXPECT_NEAR(out[0], 10.0, 1e-12);
  for (int i = 2; i < 6; i++) EXPECT_TRUE(std::isnan(out[i]));
  EXPECT_EQ(gx_georef_decode(kDegree, 3, static_cast<const char**>(nullptr), out), 0);
  EXPECT_TRUE(std::isnan(out[0]));
  EXPECT_EQ(gx_georef_decode(-1.0, 3, texts, out), 0);
  EXPECT_EQ(gx_georef_decode(kDegree, 3, texts, nullptr), 0);
  EXPECT_EQ(gx_georef_decode(kDegree, -1, texts, out), 0);
}

TEST(Georef, ReadsThroughBlanksAndLeadingJunk) {
  double lon, lat;
  ASSERT_TRUE(decode("  NKLN2438\t \n", &lon, &lat));
  EXPECT_NEAR(lon, 10.4, 1e-12);
  ASSERT_TRUE(decode("georef: NKLN2438", &lon, &lat));  // lower case is skipped
  EXPECT_NEAR(lat, 57.6333333333333, 1e-12);
  ASSERT_TRUE(decode("12 NKLN2438", &lon, &lat));
  // Digits may name minutes beyond the degree; they are taken as they stand.
  ASSERT_TRUE(decode("NKLN9999", &lon, &lat));
  EXPECT_NEAR(lon, 10.0 + 99.0 / 60.0, 1e-12);
}

TEST(Georef, RefusesBadText) {
  EXPECT_TRUE(refused(nullptr));
  EXPECT_TRUE(refused(""));
  EXPECT_TRUE(refused("   "));
  EXPECT_TRUE(refused("NKLN"));              // letters only: no digit pair
  EXPECT_TRUE(refused("NKLN24"));            // one digit per axis
  EXPECT_TRUE(refused("NKLN243"));           // odd count of digits
  EXPECT_TRUE(refused("NKLN24389"));
  EXPECT_TRUE(refused("nkln2438"));          // lower case
  EXPECT_TRUE(refused("NkLN2438"));
  EXPECT_TRUE(refused("NNLN2438"));          // N is no band letter
  EXPECT_TRUE(refused("NKRN2438"));          // R is no degree letter
  EXPECT_TRUE(refused("NKLI2438"));          // I is in no table
  EXPECT_TRUE(refused("IOKLN"));
  EXPECT_TRUE(refused("NKLN24 38"));         // blank inside
  EXPECT_TRUE(refused("NKLN2438X"));         // letter after the digits
  EXPECT_TRUE(refused("NKLN-2438"));
  EXPECT_TRUE(refused("NKLN2438000000000000000"));  // 19 digits: too long
  EXPECT_TRUE(refused("NKLN12345678901234567890"));
  EXPECT_TRUE(refused("0123456789"));
  EXPECT_TRUE(refused("NKLN2438\x01"));
}

TEST(Georef, LongestCodeIsRead) {
  double lon, lat;
  ASSERT_TRUE(decode("NKLN999999999999999999", &lon, &lat));
  EXPECT_NEAR(lon, 10.0 + 99.9999999 / 60.0, 1e-12);
}

TEST(Georef, VeryLongTextIsRefusedWithoutHarm) {
  std::string text(10000, 'N');
  EXPECT_TRUE(refused(text.c_str()));
  std::string junk(10000, '7');
  junk += "NKLN2438";
  double lon, lat;
  ASSERT_TRUE(decode(junk.c_str(), &lon, &lat));  // junk before the code is ignored
  EXPECT_NEAR(lon, 10.4, 1e-12);
  std::string tail = "NKLN2438" + std::string(10000, '0');
  EXPECT_TRUE(refused(tail.c_str()));
}

// ---- 16-bit text ---------------------------------------------------------------

std::u16string widen(const char* text) {
  std::u16string wide;
  for (; *text != '\0'; text++) wide += static_cast<unsigned char>(*text);
  return wide;
}

TEST(GeorefWide, SameTextsAsNarrow) {
  for (const Reference& r : kReferences) {
    const double coords[2] = {r.lon, r.lat};
    gx_wchar wide[GX_GEOREF_SIZE];
    gx_wchar* strings[1] = {wide};
    ASSERT_EQ(gx_georef_encode(kDegree, 1, coords, r.precision, 0, strings), 1);
    char narrow[GX_GEOREF_SIZE];
    gx_narrow_from_wide(narrow, wide, -1);
    EXPECT_STREQ(narrow, r.text);

    const gx_wchar* texts[1] = {wide};
    double out[2];
    ASSERT_EQ(gx_georef_decode(kDegree, 1, texts, out), 1);
    EXPECT_NEAR(out[0], r.corner_lon, kCornerTolerance);
    EXPECT_NEAR(out[1], r.corner_lat, kCornerTolerance);
  }
}

TEST(GeorefWide, UnitsAreReadByTheirLowByte) {
  std::u16string text = widen(" NKLN2438 ");
  text[1] = 0x0100 + 'N';
  const gx_wchar* texts[1] = {reinterpret_cast<const gx_wchar*>(text.c_str())};
  double out[2];
  EXPECT_EQ(gx_georef_decode(kDegree, 1, texts, out), 1);
  std::u16string lower = widen("nkln2438");
  texts[0] = reinterpret_cast<const gx_wchar*>(lower.c_str());
  EXPECT_EQ(gx_georef_decode(kDegree, 1, texts, out), 0);
  std::u16string long_text(10000, u'N');
  texts[0] = reinterpret_cast<const gx_wchar*>(long_text.c_str());
  EXPECT_EQ(gx_georef_decode(kDegree, 1, texts, out), 0);
  EXPECT_TRUE(std::isnan(out[0]));
}

}  // namespace
