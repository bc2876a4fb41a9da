// The grid side of MGRS: bands, zones and their exceptions, square letters,
// digits and rounding, and the reading of references.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "gridref/mgrs_grid.h"

namespace {

std::string utm_text(int32_t zone, char band, double easting, double northing, int32_t precision,
                     int32_t row_shift = 0, int rounding = 0) {
  char text[GX_MGRS_SIZE];
  gx_mgrs_digits digits = gx_mgrs_digits_of(precision, rounding);
  gx_mgrs_write_utm(text, zone, band, gx_mgrs_adjust(easting, &digits),
                    gx_mgrs_adjust(northing, &digits), &digits, row_shift);
  return text;
}

std::string ups_text(bool north, double easting, double northing, int32_t precision) {
  char text[GX_MGRS_SIZE];
  gx_mgrs_digits digits = gx_mgrs_digits_of(precision, 0);
  gx_mgrs_write_ups(text, north, gx_mgrs_adjust(easting, &digits),
                    gx_mgrs_adjust(northing, &digits), &digits);
  return text;
}

bool reads(const char* text) {
  gx_mgrs_reference ref;
  return gx_mgrs_read(text, &ref) != 0;
}

TEST(MgrsBands, LettersFollowEightDegreeBandsWithXStretchedTo84) {
  struct Case {
    double latitude;
    char band;
  } cases[] = {{-80.0, 'C'}, {-72.000001, 'C'}, {-72.0, 'D'}, {-8.0, 'M'},   {-1e-9, 'M'},
               {0.0, 'N'},   {7.999999, 'N'},   {8.0, 'P'},   {71.99999, 'W'}, {72.0, 'X'},
               {80.0, 'X'},  {84.0, 'X'}};
  for (const Case& c : cases) EXPECT_EQ(gx_mgrs_band(c.latitude), c.band) << c.latitude;
}

TEST(MgrsBands, CapsBeginBeyond84NorthAnd80South) {
  EXPECT_FALSE(gx_mgrs_polar_p(84.0));
  EXPECT_TRUE(gx_mgrs_polar_p(84.000000001));
  EXPECT_FALSE(gx_mgrs_polar_p(-80.0));
  EXPECT_TRUE(gx_mgrs_polar_p(-80.000000001));
  EXPECT_TRUE(gx_mgrs_polar_p(90.0));
  EXPECT_TRUE(gx_mgrs_polar_p(-90.0));
}

TEST(MgrsBands, RangesAreTheBandsInDegrees) {
  double lower, upper;
  gx_mgrs_band_range(2, &lower, &upper);  // C
  EXPECT_EQ(lower, -80.0);
  EXPECT_EQ(upper, -72.0);
  gx_mgrs_band_range(12, &lower, &upper);  // N
  EXPECT_EQ(lower, 0.0);
  EXPECT_EQ(upper, 8.0);
  gx_mgrs_band_range(21, &lower, &upper);  // X
  EXPECT_EQ(lower, 72.0);
  EXPECT_EQ(upper, 84.0);
  EXPECT_TRUE(gx_mgrs_south_p(11));   // M
  EXPECT_FALSE(gx_mgrs_south_p(12));  // N
  EXPECT_TRUE(gx_mgrs_south_p(0));    // A
  EXPECT_FALSE(gx_mgrs_south_p(23));  // Z
}

TEST(MgrsZones, SixDegreeZonesFromMinus180) {
  EXPECT_EQ(gx_mgrs_zone(-180.0, 0.0), 1);
  EXPECT_EQ(gx_mgrs_zone(-174.000000001, 0.0), 1);
  EXPECT_EQ(gx_mgrs_zone(-174.0, 0.0), 2);
  EXPECT_EQ(gx_mgrs_zone(0.0, 0.0), 31);
  EXPECT_EQ(gx_mgrs_zone(-1e-12, 0.0), 30);
  EXPECT_EQ(gx_mgrs_zone(179.999999, 0.0), 60);
  EXPECT_EQ(gx_mgrs_zone(180.0, 0.0), 60);  // the last zone holds its eastern edge
  EXPECT_EQ(gx_mgrs_central_meridian(1), -177.0);
  EXPECT_EQ(gx_mgrs_central_meridian(31), 3.0);
  EXPECT_EQ(gx_mgrs_central_meridian(60), 177.0);
}

TEST(MgrsZones, NorwayWidens32VWestTo3East) {
  EXPECT_EQ(gx_mgrs_zone(3.0, 56.0), 32);
  EXPECT_EQ(gx_mgrs_zone(2.999999, 56.0), 31);
  EXPECT_EQ(gx_mgrs_zone(5.0, 63.999999), 32);
  EXPECT_EQ(gx_mgrs_zone(5.0, 64.0), 31);  // band W keeps the regular zones
  EXPECT_EQ(gx_mgrs_zone(5.0, 55.999999), 31);
  EXPECT_EQ(gx_mgrs_zone(7.0, 60.0), 32);
}

TEST(MgrsZones, SvalbardSharesOutTheEvenZonesOfBandX) {
  struct Case {
    double longitude, latitude;
    int32_t zone;
  } cases[] = {{8.999999, 72.0, 31}, {9.0, 72.0, 33},  {20.999999, 80.0, 33}, {21.0, 80.0, 35},
               {32.999999, 84.0, 35}, {33.0, 84.0, 37}, {40.0, 75.0, 37},    {9.0, 71.999999, 32},
               {20.0, 71.999999, 34}, {1.0, 76.0, 31},  {45.0, 76.0, 38}};
  for (const Case& c : cases)
    EXPECT_EQ(gx_mgrs_zone(c.longitude, c.latitude), c.zone) << c.longitude << " " << c.latitude;
}

TEST(MgrsDigits, PrecisionIsClampedToEightDigitsPerAxis) {
  EXPECT_EQ(gx_mgrs_digits_of(-3, 0).precision, 0);
  EXPECT_EQ(gx_mgrs_digits_of(9, 0).precision, 8);
  EXPECT_EQ(gx_mgrs_digits_of(5, 1).half_cell, 0.5);
  EXPECT_EQ(gx_mgrs_digits_of(0, 1).half_cell, 50000.0);
  EXPECT_EQ(utm_text(31, 'U', 448251.7, 5411932.3, 9), utm_text(31, 'U', 448251.7, 5411932.3, 8));
}

TEST(MgrsDigits, TruncationKeepsAValueJustUnderABoundaryInItsUpperCell) {
  gx_mgrs_digits digits = gx_mgrs_digits_of(5, 0);
  // A boundary lost to the last bit comes back; a real millimetre does not.
  EXPECT_GE(gx_mgrs_adjust(std::nextafter(500000.0, 0.0), &digits), 500000.0);
  EXPECT_LT(gx_mgrs_adjust(499999.999, &digits), 500000.0);
  EXPECT_LE(gx_mgrs_adjust(-std::nextafter(500000.0, 0.0), &digits), -500000.0);
  EXPECT_EQ(gx_mgrs_adjust(0.0, &digits), 0.0);
  EXPECT_TRUE(std::isnan(gx_mgrs_adjust(NAN, &digits)));
}

TEST(MgrsText, UtmReferenceHasZoneBandSquareAndDigits) {
  EXPECT_EQ(utm_text(31, 'U', 448251.7, 5411932.3, 5), "31UDQ4825111932");
  EXPECT_EQ(utm_text(31, 'U', 448251.7, 5411932.3, 0), "31UDQ");
  EXPECT_EQ(utm_text(31, 'U', 448251.7, 5411932.3, 1), "31UDQ41");
  EXPECT_EQ(utm_text(31, 'U', 448251.75, 5411932.25, 8), "31UDQ4825175011932250");
  EXPECT_EQ(utm_text(4, 'Q', 612345.0, 2356789.0, 3), "04QFJ123567");
}

TEST(MgrsText, RoundingGoesToTheNearestCellAndCanChangeTheSquare) {
  EXPECT_EQ(utm_text(31, 'U', 448251.7, 5411932.3, 5, 0, 1), "31UDQ4825211932");
  EXPECT_EQ(utm_text(31, 'U', 499999.6, 5499999.6, 5, 0, 1), "31UER0000000000");
  EXPECT_EQ(utm_text(31, 'U', 499999.6, 5499999.6, 5, 0, 0), "31UDQ9999999999");
}

TEST(MgrsText, RowLettersOfEvenZonesStartAtF) {
  // Same easting and northing; the column sets go A-H, J-R, S-Z by zone.
  EXPECT_EQ(utm_text(31, 'U', 448251.0, 5411932.0, 0), "31UDQ");
  EXPECT_EQ(utm_text(32, 'U', 448251.0, 5411932.0, 0), "32UMV");
  EXPECT_EQ(utm_text(33, 'U', 448251.0, 5411932.0, 0), "33UVQ");
  EXPECT_EQ(utm_text(34, 'U', 448251.0, 5411932.0, 0), "34UDV");
}

TEST(MgrsText, OldLetteringShiftsTheRowsByTen) {
  EXPECT_EQ(utm_text(31, 'U', 448251.0, 5411932.0, 0, GX_MGRS_OLD_ROW_SHIFT), "31UDE");
  EXPECT_EQ(utm_text(32, 'U', 448251.0, 5411932.0, 0, GX_MGRS_OLD_ROW_SHIFT), "32UMK");
  // The last row of a cycle, shifted the most, stays inside the table.
  EXPECT_EQ(utm_text(32, 'U', 448251.0, 1999999.0, 0, GX_MGRS_OLD_ROW_SHIFT), "32UMQ");
}

TEST(MgrsText, OldLetteringOfClarke1866DatumsSparesZones47To55) {
  gx_mgrs_lettering old = {1, 0};
  gx_mgrs_lettering clarke = {1, 1};
  gx_mgrs_lettering current = {0, 1};
  EXPECT_EQ(gx_mgrs_row_shift(&old, 50), GX_MGRS_OLD_ROW_SHIFT);
  EXPECT_EQ(gx_mgrs_row_shift(&clarke, 46), GX_MGRS_OLD_ROW_SHIFT);
  EXPECT_EQ(gx_mgrs_row_shift(&clarke, 47), 0);
  EXPECT_EQ(gx_mgrs_row_shift(&clarke, 55), 0);
  EXPECT_EQ(gx_mgrs_row_shift(&clarke, 56), GX_MGRS_OLD_ROW_SHIFT);
  EXPECT_EQ(gx_mgrs_row_shift(&current, 10), 0);
}

TEST(MgrsText, BandMCarriedOverTheEquatorBecomesN) {
  EXPECT_EQ(utm_text(31, 'M', 448251.0, 9999999.6, 5, 0, 1), "31NDA4825100000");
  EXPECT_EQ(utm_text(31, 'M', 448251.0, 9999999.6, 5, 0, 0), "31MDV4825199999");
}

TEST(MgrsText, ValuesOutsideTheTablesLeaveTheTextEmpty) {
  EXPECT_EQ(utm_text(31, 'U', NAN, 5411932.0, 5), "");
  EXPECT_EQ(utm_text(31, 'U', 448251.0, INFINITY, 5), "");
  EXPECT_EQ(utm_text(31, 'U', -5.0, 5411932.0, 5), "");
  EXPECT_EQ(utm_text(31, 'U', 1e12, 5411932.0, 5), "");
  EXPECT_EQ(utm_text(61, 'U', 448251.0, 5411932.0, 5), "");
  EXPECT_EQ(ups_text(true, 1e9, 2e6, 5), "");
  EXPECT_EQ(ups_text(false, 2e6, -1.0, 5), "");
}

TEST(MgrsText, UpsReferencesOfBothCaps) {
  // Easting and northing from GeoConvert -u (GeographicLib) at 89N 170W and 85S 30E.
  EXPECT_EQ(ups_text(true, 1980720.447109, 2109339.777803, 5), "YZJ8072009339");
  EXPECT_EQ(ups_text(true, 2019279.5, 2109339.7, 0), "ZAJ");
  EXPECT_EQ(ups_text(false, 2277728.695691, 2481040.211657, 5), "BCS7772881040");
  EXPECT_EQ(ups_text(false, 1722271.304309, 2481040.211657, 5), "AXS2227181040");  // 85S 30W
}

TEST(MgrsRead, AReferenceGivesZoneBandSquareAndMetres) {
  gx_mgrs_reference ref;
  ASSERT_TRUE(gx_mgrs_read("31UDQ4825111932", &ref));
  EXPECT_EQ(ref.zone, 31);
  EXPECT_EQ(ref.band, 18);  // U in the 24 letters
  EXPECT_EQ(ref.column, 'D');
  EXPECT_EQ(ref.row, 'Q');
  EXPECT_EQ(ref.precision, 5);
  EXPECT_EQ(ref.easting, 48251.0);
  EXPECT_EQ(ref.northing, 11932.0);
  EXPECT_EQ(gx_mgrs_cell(&ref), 1.0);

  ASSERT_TRUE(gx_mgrs_read("  004QFJ123567", &ref));  // blanks and zeros skipped
  EXPECT_EQ(ref.zone, 4);
  EXPECT_EQ(ref.easting, 12300.0);
  EXPECT_EQ(ref.northing, 56700.0);

  ASSERT_TRUE(gx_mgrs_read("31UDQ", &ref));
  EXPECT_EQ(ref.precision, 0);
  EXPECT_EQ(ref.easting, 0.0);
  EXPECT_EQ(gx_mgrs_cell(&ref), 100000.0);

  ASSERT_TRUE(gx_mgrs_read("31UDQ1234567812345678", &ref));
  EXPECT_EQ(ref.precision, 8);
  EXPECT_DOUBLE_EQ(ref.easting, 12345.678);

  ASSERT_TRUE(gx_mgrs_read("ZGC2345601234", &ref));
  EXPECT_EQ(ref.zone, GX_MGRS_NORTH_CAP);
  ASSERT_TRUE(gx_mgrs_read("BAN", &ref));
  EXPECT_EQ(ref.zone, GX_MGRS_SOUTH_CAP);
}

TEST(MgrsRead, MalformedReferencesAreRefused) {
  const char* bad[] = {
      "",                         // empty
      "   ",                      // nothing but blanks
      "000",                      // nothing but zeros
      "31udq4825111932",          // lower case
      "31UdQ4825111932",          // lower case square letter
      "31UIQ4825111932",          // I is no grid letter
      "31UDO4825111932",          // nor is O
      "31UDW4825111932",          // W is a column, not a row letter
      "31UDQ482511193",           // odd digit count
      "31UDQ123456789123456789",  // 18 digits
      "31UDQ48251 11932",         // blank inside
      "31UDQ4825111932 ",         // trailing blank
      "31 UDQ4825111932",         // blank in the zone
      "61UDQ4825111932",          // no zone 61
      "123456789UDQ",             // a zone of 9 digits
      "12345678UDQ",              // 8 digits, beyond 60
      "31U",                      // no square
      "31UD",                     // half a square
      "UDQ4825111932",            // a band without its zone
      "31YZJ8072009339",          // a cap letter with a zone
      "YWJ8072009339",            // W is no Y/Z column
      "YZQ8072009339",            // Q is no Y/Z row
      "AIN1234512345",            // I is no A/B column letter
      "31UDQ48251x1932",          // a letter among the digits
      "31-UDQ",                   // punctuation in the zone
  };
  for (const char* text : bad) EXPECT_FALSE(reads(text)) << '"' << text << '"';
  EXPECT_FALSE(reads(nullptr));
  std::string longest(10000, '1');
  EXPECT_FALSE(reads(longest.c_str()));
  std::string padded = "31UDQ" + std::string(9995, '0');
  EXPECT_FALSE(reads(padded.c_str()));
  std::string blanks = std::string(9990, ' ') + "31UDQ";
  EXPECT_TRUE(reads(blanks.c_str()));
}

TEST(MgrsGrid, UtmSquaresFromLetters) {
  gx_mgrs_reference ref;
  double easting, northing;
  ASSERT_TRUE(gx_mgrs_read("31UDQ4825111932", &ref));
  ASSERT_TRUE(gx_mgrs_utm_grid(&ref, 0, &easting, &northing));
  EXPECT_EQ(easting, 448251.0);
  EXPECT_EQ(northing, 1411932.0);
  ASSERT_TRUE(gx_mgrs_utm_grid(&ref, GX_MGRS_OLD_ROW_SHIFT, &easting, &northing));
  EXPECT_EQ(northing, 411932.0);
  // A column letter of another zone set is taken round the 24 letters.
  ASSERT_TRUE(gx_mgrs_read("32UAQ", &ref));
  ASSERT_TRUE(gx_mgrs_utm_grid(&ref, 0, &easting, &northing));
  EXPECT_EQ(easting, 1700000.0);
}

TEST(MgrsGrid, CapColumnsBelongToTheirHalf) {
  gx_mgrs_reference ref;
  double easting, northing;
  ASSERT_TRUE(gx_mgrs_read("AHN", &ref));  // H is a column of B only
  EXPECT_FALSE(gx_mgrs_ups_grid(&ref, &easting, &northing));
  ASSERT_TRUE(gx_mgrs_read("BHN", &ref));
  ASSERT_TRUE(gx_mgrs_ups_grid(&ref, &easting, &northing));
  EXPECT_EQ(easting, 2500000.0);
  EXPECT_EQ(northing, 2000000.0);
  ASSERT_TRUE(gx_mgrs_read("AJN", &ref));  // J begins both halves
  ASSERT_TRUE(gx_mgrs_ups_grid(&ref, &easting, &northing));
  EXPECT_EQ(easting, 800000.0);
  ASSERT_TRUE(gx_mgrs_read("BJN", &ref));
  ASSERT_TRUE(gx_mgrs_ups_grid(&ref, &easting, &northing));
  EXPECT_EQ(easting, 2600000.0);
}

TEST(MgrsGrid, EveryUtmSquareReadsBackAsWritten) {
  for (int32_t zone = 1; zone <= 60; ++zone) {
    for (int32_t shift : {0, GX_MGRS_OLD_ROW_SHIFT}) {
      for (int32_t column = 1; column <= 8; ++column) {
        for (int32_t row = 0; row < 20; ++row) {
          double e = column * 100000.0 + 12345.0, n = row * 100000.0 + 67890.0;
          std::string text = utm_text(zone, 'N', e, n, 5, shift);
          gx_mgrs_reference ref;
          double easting, northing;
          ASSERT_TRUE(gx_mgrs_read(text.c_str(), &ref)) << text;
          ASSERT_TRUE(gx_mgrs_utm_grid(&ref, shift, &easting, &northing)) << text;
          ASSERT_EQ(easting, e) << text;
          ASSERT_EQ(northing, n) << text;
        }
      }
    }
  }
}

TEST(MgrsGrid, EveryUpsSquareReadsBackAsWritten) {
  for (bool north : {true, false}) {
    double origin = north ? 1300000.0 : 800000.0;
    int32_t count = north ? 14 : 24;
    for (int32_t column = 0; column < count; ++column) {
      for (int32_t row = 0; row < count; ++row) {
        double e = origin + column * 100000.0 + 4321.0, n = origin + row * 100000.0 + 8765.0;
        std::string text = ups_text(north, e, n, 5);
        gx_mgrs_reference ref;
        double easting, northing;
        ASSERT_TRUE(gx_mgrs_read(text.c_str(), &ref)) << text;
        ASSERT_TRUE(gx_mgrs_ups_grid(&ref, &easting, &northing)) << text;
        ASSERT_EQ(easting, e) << text;
        ASSERT_EQ(northing, n) << text;
      }
    }
  }
}

}  // namespace
