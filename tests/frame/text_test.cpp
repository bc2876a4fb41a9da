// Number printing and reading, the name comparison, bounded copies, trims,
// paths, 16-bit text, byte order and the NaN marker.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>

#include "frame/text.h"

namespace {

std::string dtoa16(double value) {
  char buffer[GX_NUMBER_SIZE];
  return gx_dtoa(value, buffer, 16);
}

struct Printed {
  double value;
  const char* text;
};

void expect_prints(std::initializer_list<Printed> cases) {
  for (const Printed& c : cases) EXPECT_EQ(dtoa16(c.value), c.text) << "value " << c.value;
}

// ---- gx_dtoa ---------------------------------------------------------------

TEST(Dtoa, WholeValuesKeepOneDecimal) {
  expect_prints({
      {1.0, "1.0"},
      {0.0, "0.0"},
      {-0.0, "-0.0"},
      {6378137.0, "6378137.0"},
      {500000.0, "500000.0"},
      {-180.0, "-180.0"},
      {1e12, "1000000000000.0"},
  });
}

TEST(Dtoa, SixteenSignificantDigitsWithoutTrailingZeros) {
  expect_prints({
      {0.017453292519943295, "0.0174532925199433"},
      {298.257223563, "298.257223563"},
      {0.9996, "0.9996"},
      {-0.5, "-0.5"},
      {0.3048006096012192, "0.3048006096012192"},
      {3.141592653589793, "3.141592653589793"},
      {-3.141592653589793, "-3.141592653589793"},
  });
}

TEST(Dtoa, NoiseInTheLastDigitIsDropped) {
  // 0.30000000000000004: the two digits ahead of the last are "00".
  expect_prints({
      {0.1 + 0.2, "0.3"},
      // 0.7999999999999999: "99".
      {0.1 * 8.0 - 1e-16, "0.8"},
      {1.0 - 1e-16, "1.0"},
      // The test only runs below exponent 12: 1e12 + 0.0001 keeps its digits.
      {100000000000.0001, "100000000000.0"},
      {1000000000000.001, "1000000000000.001"},
  });
}

TEST(Dtoa, SmallValues) {
  expect_prints({
      {1.5e-5, "0.000015"},
      {1e-9, "0.000000001"},
      {-4.84813681109536e-06, "-0.00000484813681109536"},
      // Too long as a plain decimal, or below 1e-9: the runtime's exponent form
      // with 15 digits.
      {1.234567890123456e-9, "1.23456789012346e-09"},
      {1e-10, "1e-10"},
      {4.84813681109536e-300, "4.84813681109536e-300"},
      {5e-324, "4.94065645841247e-324"},
  });
}

TEST(Dtoa, HugeValuesTakeTheShortExponentForm) {
  // More integer digits than precision: "%e" with its default six decimals.
  expect_prints({
      {1e20, "1.000000e+20"},
      {-1.2345678901234567e20, "-1.234568e+20"},
      {1.7976931348623157e308, "1.797693e+308"},
  });
}

TEST(Dtoa, SixteenIntegerDigitsLoseTrailingIntegerZeros) {
  // No decimals are printed, so the zero trimming eats the integer's own
  // zeros: the printed value is smaller by a power of ten.  Required.
  expect_prints({
      {1234567890123456.0, "1234567890123456"},
      {1234567890123450.0, "123456789012345"},
      {1e15, "1"},
      // Fifteen integer digits still keep their decimal.
      {123456789012345.0, "123456789012345.0"},
  });
}

TEST(Dtoa, OtherPrecisions) {
  char buffer[GX_NUMBER_SIZE];
  EXPECT_STREQ(gx_dtoa(1.0 / 3.0, buffer, 6), "0.333333");
  EXPECT_STREQ(gx_dtoa(2.5, buffer, 6), "2.5");
  EXPECT_STREQ(gx_dtoa(1234567.0, buffer, 6), "1.234567e+06");
  // Out-of-range precisions are brought into 1..20 and still fit the buffer.
  char other[GX_NUMBER_SIZE];
  EXPECT_STREQ(gx_dtoa(2.5, buffer, 0), gx_dtoa(2.5, other, 1));
  EXPECT_LT(strlen(gx_dtoa(-1.2345678901234567e-100, buffer, 1000)), sizeof buffer);
  EXPECT_LT(strlen(gx_dtoa(-1.2345678901234567e100, buffer, 1000)), sizeof buffer);
}

TEST(Dtoa, NullBufferAndNonFiniteValues) {
  EXPECT_EQ(gx_dtoa(1.0, nullptr, 16), nullptr);
  expect_prints({
      {INFINITY, "inf"},
      {-INFINITY, "-inf"},
  });
  double nan;
  gx_nan(&nan);
  expect_prints({
      {nan, "nan"},
  });
  EXPECT_TRUE(std::isnan(gx_atod(dtoa16(nan).c_str())));
  EXPECT_EQ(gx_atod(dtoa16(-INFINITY).c_str()), -INFINITY);
}

// Every value below 1e15 reads back within the rounding of its printed
// digits.  The plain form shows 16 digits, or 15 when the last one was noise:
// relative error at most half a unit of the 15th digit.  The exponent form
// shows one digit less (15, or 14 after the noise test).
TEST(Dtoa, PrintedValuesReadBack) {
  uint64_t state = 0x9E3779B97F4A7C15ull;
  auto next = [&state]() {
    state ^= state << 13;
    state ^= state >> 7;
    state ^= state << 17;
    return state;
  };
  for (int i = 0; i < 20000; i++) {
    double mantissa = 1.0 + static_cast<double>(next() >> 11) / 9007199254740992.0;
    int exponent = static_cast<int>(next() % 1000) - 1000 + 49;  // 2^-951 .. 2^48
    double value = std::ldexp(mantissa, exponent);
    if (next() & 1) value = -value;
    std::string text = dtoa16(value);
    double back = gx_atod(text.c_str());
    double tolerance = text.find('e') == std::string::npos ? 5e-15 : 5e-14;
    ASSERT_LE(std::fabs(back - value), std::fabs(value) * tolerance) << value << " -> " << text;
  }
}

// ---- gx_atod -----------------------------------------------------------------

TEST(Atod, ReadsAsAtof) {
  EXPECT_EQ(gx_atod("12abc"), 12.0);
  EXPECT_EQ(gx_atod(nullptr), 0.0);
  EXPECT_EQ(gx_atod(""), 0.0);
  EXPECT_EQ(gx_atod("abc"), 0.0);
  EXPECT_EQ(gx_atod("  -1.5e3"), -1500.0);
  EXPECT_EQ(gx_atod("6378137.0"), 6378137.0);
  EXPECT_EQ(gx_decimal_char(), '.');
}

// ---- names -------------------------------------------------------------------

TEST(NameCompare, BlindToCaseBlanksHyphensUnderscores) {
  EXPECT_EQ(gx_name_compare("a b", "A_B"), 0);
  EXPECT_EQ(gx_name_compare("", "_-_"), 0);
  EXPECT_EQ(gx_name_compare("GCS_WGS_1984", "gcs wgs 1984"), 0);
  EXPECT_EQ(gx_name_compare("GCS_WGS_1984", "GCS-WGS-1984"), 0);
  EXPECT_EQ(gx_name_compare("GCS_WGS_1984", "GCSWGS1984"), 0);
  EXPECT_EQ(gx_name_compare("\tTransverse_Mercator\n", "transverse mercator"), 0);
  EXPECT_EQ(gx_name_compare(nullptr, ""), 0);
  EXPECT_EQ(gx_name_compare(nullptr, nullptr), 0);
}

TEST(NameCompare, ReturnsTheDifferenceOfLowerCasedCharacters) {
  EXPECT_EQ(gx_name_compare("abc", "ABD"), 'c' - 'd');
  EXPECT_EQ(gx_name_compare("ab", "abc"), -'c');
  EXPECT_EQ(gx_name_compare("abc", "ab"), 'c');
  EXPECT_EQ(gx_name_compare(nullptr, "a"), -'a');
  EXPECT_GT(gx_name_compare("WGS_1984", "WGS_1972"), 0);
}

TEST(NameCompare, LimitCountsSignificantCharacters) {
  EXPECT_EQ(gx_name_ncompare("abcX", "ABCY", 3), 0);
  EXPECT_NE(gx_name_ncompare("abcX", "ABCY", 4), 0);
  EXPECT_EQ(gx_name_ncompare("a_b_cX", "abcY", 3), 0);
  EXPECT_EQ(gx_name_ncompare("x", "y", 0), 0);
  // A string that ends before the limit still decides.
  EXPECT_NE(gx_name_ncompare("ab", "abc", 10), 0);
}

TEST(NamePrefix, ComparesTheKeywordsSignificantCharacters) {
  EXPECT_NE(gx_name_prefix("GEOGTRAN[", "GEOGCS"), 0);
  EXPECT_EQ(gx_name_prefix("Geog-CS", "GEOGCS"), 0);
  EXPECT_EQ(gx_name_prefix("GEOGCSX", "GEOGCS"), 0);
  EXPECT_EQ(gx_name_prefix("GEOGCS[\"x\"]", "GEOG_CS"), 0);
  EXPECT_NE(gx_name_prefix("GEOG", "GEOGCS"), 0);
  EXPECT_EQ(gx_name_prefix("anything", "_ -"), 0);
  EXPECT_EQ(gx_name_prefix(nullptr, nullptr), 0);
}

TEST(NameSearch, FindsTheKeywordAnywhere) {
  const char* text = "LINUNIT[";
  EXPECT_EQ(gx_name_search(text, "UNIT"), text + 3);
  EXPECT_STREQ(gx_name_search(text, "unit"), "UNIT[");
  const char* spaced = "PROJCS[\"x\",PROJ ECTION[";
  EXPECT_EQ(gx_name_search(spaced, "PROJECTION"), spaced + 11);
  EXPECT_EQ(gx_name_search("abc", ""), std::string("abc"));
  EXPECT_EQ(gx_name_search(nullptr, "a"), nullptr);
  EXPECT_EQ(gx_name_search("UNI", "UNIT"), nullptr);
  EXPECT_EQ(gx_name_search("SPHEROID", "DATUM"), nullptr);
  // The scan ends where the keyword still fits in bytes.
  EXPECT_EQ(gx_name_search("xxUNIT", "UNIT"), std::string("UNIT"));
}

TEST(TypeNameCompare, CaseBlindHyphenAsUnderscoreNothingSkipped) {
  EXPECT_EQ(gx_type_name_compare("geogcs", "GEOGCS"), 0);
  EXPECT_EQ(gx_type_name_compare("code-change", "CODE_CHANGE"), 0);
  EXPECT_NE(gx_type_name_compare("geog cs", "geogcs"), 0);
  EXPECT_NE(gx_type_name_compare("geog_cs", "geogcs"), 0);
  EXPECT_EQ(gx_type_name_compare("a", "B"), 'A' - 'B');
  EXPECT_EQ(gx_type_name_compare(nullptr, ""), 0);
}

TEST(AliasLookup, OldNamesGiveNewNames) {
  static const gx_alias table[] = {
      {"Meters", "Meter"}, {"Transverse_Mercator_Complex", "Transverse_Mercator"}, {nullptr, nullptr}};
  EXPECT_STREQ(gx_alias_lookup(table, "meters"), "Meter");
  EXPECT_STREQ(gx_alias_lookup(table, "TRANSVERSE MERCATOR COMPLEX"), "Transverse_Mercator");
  const char* name = "Foot";
  EXPECT_EQ(gx_alias_lookup(table, name), name);
  static const gx_alias empty[] = {{nullptr, nullptr}};
  EXPECT_EQ(gx_alias_lookup(empty, name), name);
  EXPECT_EQ(gx_alias_lookup(nullptr, name), name);
}

// ---- copies and trims ------------------------------------------------------------

TEST(NameCopy, TruncatesAndAlwaysTerminates) {
  char source[101];
  memset(source, 'n', 100);
  source[100] = '\0';
  char name[GX_NAME_SIZE + 8];
  memset(name, 'x', sizeof name);
  EXPECT_EQ(gx_name_copy(name, source, GX_NAME_SIZE), 63u);
  EXPECT_EQ(strlen(name), 63u);
  EXPECT_EQ(name[GX_NAME_SIZE], 'x');  // nothing written behind the size
  EXPECT_EQ(gx_name_copy(name, "abc", 1), 0u);
  EXPECT_STREQ(name, "");
  EXPECT_EQ(gx_name_copy(name, "abc", 4), 3u);
  EXPECT_STREQ(name, "abc");
  EXPECT_EQ(gx_name_copy(name, "abc", 3), 2u);
  EXPECT_STREQ(name, "ab");
  EXPECT_EQ(gx_name_copy(name, nullptr, 8), 0u);
  EXPECT_STREQ(name, "");
  name[0] = 'x';
  EXPECT_EQ(gx_name_copy(name, "abc", 0), 0u);
  EXPECT_EQ(name[0], 'x');
  EXPECT_EQ(gx_name_copy(nullptr, "abc", 8), 0u);
}

TEST(NameUpper, UpperCaseCopy) {
  char buffer[16];
  EXPECT_EQ(gx_name_upper(buffer, "Geog_cs-1"), 9u);
  EXPECT_STREQ(buffer, "GEOG_CS-1");
  EXPECT_EQ(gx_name_upper(buffer, nullptr), 0u);
  EXPECT_STREQ(buffer, "");
  EXPECT_EQ(gx_name_upper(nullptr, "abc"), 0u);
}

TEST(DigitsP, EmptyOrAllDigits) {
  EXPECT_EQ(gx_digits_p("0123456789"), 1);
  EXPECT_EQ(gx_digits_p(""), 1);
  EXPECT_EQ(gx_digits_p(nullptr), 1);
  EXPECT_EQ(gx_digits_p("12a"), 0);
  EXPECT_EQ(gx_digits_p(" 12"), 0);
  EXPECT_EQ(gx_digits_p("-1"), 0);
}

TEST(Trim, RightLeftAndInPlace) {
  char a[] = "  ab c \t\n";
  EXPECT_EQ(gx_trim_right(a), a);
  EXPECT_STREQ(a, "  ab c");
  char b[] = " \t ab c  ";
  char* left = gx_trim_left(b);
  EXPECT_EQ(left, b + 3);
  EXPECT_STREQ(left, "ab c");
  char c[] = "   ab c  ";
  EXPECT_EQ(gx_trim(c), c);
  EXPECT_STREQ(c, "ab c");
  char d[] = " \t\r\n ";
  EXPECT_STREQ(gx_trim(d), "");
  char e[] = "";
  EXPECT_STREQ(gx_trim(e), "");
  char f[] = "ab";
  EXPECT_STREQ(gx_trim(f), "ab");
  EXPECT_EQ(gx_trim_right(nullptr), nullptr);
  EXPECT_EQ(gx_trim_left(nullptr), nullptr);
  EXPECT_EQ(gx_trim(nullptr), nullptr);
}

// ---- formatted text ------------------------------------------------------------

TEST(Snprintf, TruncatesAndTerminates) {
  char buffer[8];
  EXPECT_EQ(gx_snprintf(buffer, sizeof buffer, "%s=%d", "ab", 12), 5);
  EXPECT_STREQ(buffer, "ab=12");
  EXPECT_EQ(gx_snprintf(buffer, sizeof buffer, "%s", "0123456789"), 7);
  EXPECT_STREQ(buffer, "0123456");
  EXPECT_EQ(gx_snprintf(buffer, 1, "%s", "abc"), 0);
  EXPECT_STREQ(buffer, "");
  EXPECT_EQ(gx_snprintf(nullptr, 8, "%s", "abc"), 0);
  buffer[0] = 'x';
  EXPECT_EQ(gx_snprintf(buffer, 0, "%s", "abc"), 0);
  EXPECT_EQ(buffer[0], 'x');
  char wkt[GX_WKT_SIZE];
  std::string long_text(2000, 'w');
  EXPECT_EQ(gx_snprintf(wkt, sizeof wkt, "%s", long_text.c_str()), GX_WKT_SIZE - 1);
  EXPECT_EQ(strlen(wkt), static_cast<size_t>(GX_WKT_SIZE - 1));
}

// ---- paths -------------------------------------------------------------------------

TEST(Path, BasenameSplitsOnBothSeparators) {
  EXPECT_STREQ(gx_path_basename("/data/harn/flhpgn.los"), "flhpgn.los");
  EXPECT_STREQ(gx_path_basename("harn\\flhpgn.los"), "flhpgn.los");
  EXPECT_STREQ(gx_path_basename("a/b\\c.gsb"), "c.gsb");
  EXPECT_STREQ(gx_path_basename("a\\b/c.gsb"), "c.gsb");
  EXPECT_STREQ(gx_path_basename("plain"), "plain");
  EXPECT_STREQ(gx_path_basename("dir/"), "");
  EXPECT_EQ(gx_path_basename(nullptr), nullptr);
}

TEST(Path, ExtensionOfTheBasenameOnly) {
  EXPECT_STREQ(gx_path_extension("/data/ntv2_0.gsb"), "gsb");
  EXPECT_STREQ(gx_path_extension("a.b.c"), "c");
  EXPECT_STREQ(gx_path_extension("name."), "");
  EXPECT_EQ(gx_path_extension("dir.d/name"), nullptr);
  EXPECT_EQ(gx_path_extension("name"), nullptr);
  EXPECT_EQ(gx_path_extension(nullptr), nullptr);
}

TEST(Path, ForceExtension) {
  char path[64] = "grids/conus";
  EXPECT_STREQ(gx_path_force_extension(path, ".los"), "grids/conus.los");
  EXPECT_STREQ(gx_path_force_extension(path, "los"), "grids/conus.los");
  EXPECT_STREQ(gx_path_force_extension(path, "las"), "grids/conus.los.las");
  char dotted[64] = "a.d/file";
  EXPECT_STREQ(gx_path_force_extension(dotted, "gsb"), "a.d/file.gsb");
  EXPECT_EQ(gx_path_force_extension(nullptr, "gsb"), nullptr);
  EXPECT_STREQ(gx_path_force_extension(dotted, nullptr), "a.d/file.gsb");
}

TEST(Path, JoinAddsOneSeparator) {
  char path[64] = "/data";
  EXPECT_STREQ(gx_path_join(path, "harn"), "/data/harn");
  char slashed[64] = "/data/";
  EXPECT_STREQ(gx_path_join(slashed, "harn/fl.los"), "/data/harn/fl.los");
  // On this host only '/' is a separator: a home ending in '\' gets one.
  char back[64] = "dir\\";
  EXPECT_STREQ(gx_path_join(back, "x"), "dir\\/x");
  char empty[64] = "";
  EXPECT_STREQ(gx_path_join(empty, "x"), "x");
  EXPECT_EQ(gx_path_join(nullptr, "x"), nullptr);
  EXPECT_STREQ(gx_path_join(path, nullptr), "/data/harn");
}

// ---- 16-bit text -------------------------------------------------------------------

TEST(WideText, WidensAndNarrowsByteForUnit) {
  gx_wchar wide[16];
  EXPECT_EQ(gx_wide_from_narrow(wide, "Ab\xE9", -1), 3);
  EXPECT_EQ(wide[0], u'A');
  EXPECT_EQ(wide[2], 0xE9);  // a byte widens, no code page
  EXPECT_EQ(wide[3], 0);
  char narrow[16];
  gx_narrow_from_wide(narrow, wide, -1);
  EXPECT_STREQ(narrow, "Ab\xE9");
  const gx_wchar high[] = {0x0141, 0x2042, 0};
  gx_narrow_from_wide(narrow, high, -1);
  EXPECT_STREQ(narrow, "AB");  // low bytes only
}

TEST(WideText, CountsNullsAndEmpty) {
  gx_wchar wide[16];
  EXPECT_EQ(gx_wide_from_narrow(wide, "abcdef", 3), 3);
  EXPECT_EQ(wide[3], 0);
  EXPECT_EQ(gx_wide_from_narrow(wide, nullptr, -1), 0);
  EXPECT_EQ(wide[0], 0);
  EXPECT_EQ(gx_wide_from_narrow(wide, "", -1), 0);
  EXPECT_EQ(gx_wide_from_narrow(nullptr, "abc", -1), 0);
  char narrow[16] = "junk";
  gx_narrow_from_wide(narrow, nullptr, -1);
  EXPECT_STREQ(narrow, "");
  const gx_wchar text[] = {'x', 'y', 'z', 0};
  gx_narrow_from_wide(narrow, text, 2);
  EXPECT_STREQ(narrow, "xy");
  gx_narrow_from_wide(nullptr, text, -1);
}

// ---- byte order ---------------------------------------------------------------------

TEST(Swap, ThirtyTwoBitWords) {
  uint32_t words[] = {0x01020304u, 0xA0B0C0D0u, 0x11223344u};
  gx_swap32_array(words, 2);
  EXPECT_EQ(words[0], 0x04030201u);
  EXPECT_EQ(words[1], 0xD0C0B0A0u);
  EXPECT_EQ(words[2], 0x11223344u);  // beyond n: untouched
  gx_swap32_array(words, 0);
  gx_swap32_array(words, -5);
  gx_swap32_array(nullptr, 3);
  EXPECT_EQ(words[0], 0x04030201u);
}

TEST(Swap, SixtyFourBitDoubles) {
  // 1.0 is 0x3FF0000000000000; stored big-endian its bytes read as
  // 0x000000000000F03F on this little-endian host.
  double values[2] = {1.0, -2.5};
  unsigned char before[16];
  memcpy(before, values, 16);
  gx_swap64_array(values, 2);
  unsigned char after[16];
  memcpy(after, values, 16);
  for (int v = 0; v < 2; v++) {
    for (int i = 0; i < 8; i++) EXPECT_EQ(after[v * 8 + i], before[v * 8 + 7 - i]);
  }
  gx_swap64_array(values, 2);
  EXPECT_EQ(values[0], 1.0);
  EXPECT_EQ(values[1], -2.5);
  gx_swap64_array(values, 0);
  gx_swap64_array(nullptr, 1);
}

// ---- NaN marker ---------------------------------------------------------------------

TEST(Nan, BitPattern) {
  double value = 0.0;
  gx_nan(&value);
  uint64_t bits;
  memcpy(&bits, &value, sizeof bits);
  EXPECT_EQ(bits, 0x7FF8000000000001ull);
  EXPECT_TRUE(std::isnan(value));
  gx_nan(nullptr);
}

}  // namespace
