// GEOREF text.  Longitude is counted in minutes from the antimeridian and
// latitude in minutes from the South pole; 900 minutes make a 15-degree zone
// or band, 60 a degree.  Four letters name zone, band and the two degrees,
// then the minutes of each axis follow with their decimals, truncated.
#include "gridref/georef_codec.h"

#include <cctype>
#include <cmath>

#include "frame/text.h"
#include "gx_geodesy.h"

namespace {

constexpr char kZoneLetters[] = "ABCDEFGHJKLMNPQRSTUVWXYZ";  // 24 zones of longitude
constexpr char kBandLetters[] = "ABCDEFGHJKLM";              // 12 bands of latitude
constexpr char kDegreeLetters[] = "ABCDEFGHJKLMNPQ";         // 15 degrees in each
constexpr int kLastZone = 23;
constexpr int kLastBand = 11;
constexpr int kLastDegree = 14;

constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr int kMinutesPerDegree = 60;
constexpr int kDegreesPerTile = 15;
constexpr int kMinutesPerTile = kDegreesPerTile * kMinutesPerDegree;
constexpr double kLongitudeOrigin = 180.0;  // degrees west of Greenwich
constexpr double kLatitudeOrigin = 90.0;    // degrees south of the equator
constexpr double kMaxLatitude = 90.0;
// Longitude multiplies by these instead of dividing by 900 and 60.
constexpr double kTilesPerMinute = 0.0011111111111111111;
constexpr double kDegreesPerMinute = 0.016666666666666666;

// Significant decimal digits of a double, for the truncation guard.
constexpr int kDoubleDigits = 15;
// A code is four letters and 2 to 9 digits per axis.
constexpr int kLetterCount = 4;
constexpr size_t kMinCodeLength = kLetterCount + 2 * GX_GEOREF_MIN_PRECISION;
constexpr size_t kMaxCodeLength = kLetterCount + 2 * GX_GEOREF_MAX_PRECISION;
// Room for a text before it is cut to GX_GEOREF_SIZE: a fraction that
// reaches a whole minute after the guard prints one digit more.
constexpr int kScratchSize = 48;

// Exact decimal powers 10^-32 .. 10^8, the correctly rounded doubles that
// pow(10, n) also gives; the guard and the steps take theirs from here.
constexpr int kLowestPower = -32;
constexpr double kPowersOfTen[] = {
    1e-32, 1e-31, 1e-30, 1e-29, 1e-28, 1e-27, 1e-26, 1e-25, 1e-24, 1e-23, 1e-22,
    1e-21, 1e-20, 1e-19, 1e-18, 1e-17, 1e-16, 1e-15, 1e-14, 1e-13, 1e-12, 1e-11,
    1e-10, 1e-09, 1e-08, 1e-07, 1e-06, 1e-05, 1e-04, 1e-03, 1e-02, 1e-01, 1e+00,
    1e+01, 1e+02, 1e+03, 1e+04, 1e+05, 1e+06, 1e+07, 1e+08};
constexpr int kPowerCount = sizeof kPowersOfTen / sizeof kPowersOfTen[0];

double power_of_ten(int exponent) {
  int index = exponent - kLowestPower;
  if (index >= 0 && index < kPowerCount) return kPowersOfTen[index];
  return std::pow(10.0, exponent);
}

int clamp_precision(int precision) {
  if (precision < GX_GEOREF_MIN_PRECISION) return GX_GEOREF_MIN_PRECISION;
  if (precision > GX_GEOREF_MAX_PRECISION) return GX_GEOREF_MAX_PRECISION;
  return precision;
}

int truncate(double x) { return static_cast<int>(x); }

int min_index(int index, int last) { return index < last ? index : last; }

// Whole minutes and the decimals below them, of a count of minutes from the
// origin.  The small addition e, some 15 digits below the value, keeps a
// value such as 0.3 minute stored just below its decimal from losing a step.
struct Minutes {
  int whole;
  int fraction;
};

Minutes split_minutes(double minutes, double steps_per_minute) {
  double magnitude = minutes <= GX_EPS ? 0.0 : std::log10(minutes);
  int below_one = magnitude > 0.0 ? 0 : 1;
  double e = power_of_ten(truncate(magnitude) - below_one - kDoubleDigits);
  int whole = truncate(minutes);
  return {whole, truncate((minutes - whole + e) * steps_per_minute)};
}

// Writes value as printf's "%0*d" does: zero-padded to width characters,
// the sign included.  Returns the count written.
int put_int(char* out, int value, int width) {
  char digits[16];
  int count = 0;
  unsigned magnitude = value < 0 ? 0u - static_cast<unsigned>(value) : static_cast<unsigned>(value);
  do {
    digits[count++] = static_cast<char>('0' + magnitude % 10);
    magnitude /= 10;
  } while (magnitude != 0);
  int length = 0;
  if (value < 0) out[length++] = '-';
  for (int pad = width - length - count; pad > 0; pad--) out[length++] = '0';
  while (count > 0) out[length++] = digits[--count];
  return length;
}

// Writes the minutes within the degree ("%02d") and, above precision 2,
// their decimals in precision - 2 digits.  Returns the count written.
int put_axis(char* out, int minutes, int fraction, int precision) {
  int length = put_int(out, minutes, 2);
  if (precision > GX_GEOREF_MIN_PRECISION) {
    length += put_int(out + length, fraction, precision - GX_GEOREF_MIN_PRECISION);
  }
  return length;
}

// One point in degrees to its text (kScratchSize characters); false when an
// ordinate is not finite.
bool encode_point(double lon, double lat, int precision, double steps_per_minute, double half,
                  char* text) {
  if (!std::isfinite(lon) || !std::isfinite(lat)) return false;
  if (std::fabs(lat) > kMaxLatitude) lat = lat < 0.0 ? -kMaxLatitude : kMaxLatitude;

  double x = lon * kMinutesPerDegree + half + kLongitudeOrigin * kMinutesPerDegree;
  Minutes xm = split_minutes(x, steps_per_minute);
  int zone = min_index(truncate(x * kTilesPerMinute), kLastZone);
  int x_degree = min_index(truncate((x - kMinutesPerTile * zone) * kDegreesPerMinute), kLastDegree);
  int x_minutes = xm.whole - (kDegreesPerTile * zone + x_degree) * kMinutesPerDegree;

  double y = lat * kMinutesPerDegree + half + kLatitudeOrigin * kMinutesPerDegree;
  Minutes ym = split_minutes(y, steps_per_minute);
  int band = min_index(truncate(y / kMinutesPerTile), kLastBand);
  int y_degree = min_index(truncate((y - kMinutesPerTile * band) / kMinutesPerDegree), kLastDegree);
  int y_minutes = ym.whole - (kDegreesPerTile * band + y_degree) * kMinutesPerDegree;

  text[0] = kZoneLetters[zone];
  text[1] = kBandLetters[band];
  text[2] = kDegreeLetters[x_degree];
  text[3] = kDegreeLetters[y_degree];
  int length = kLetterCount;
  length += put_axis(text + length, x_minutes, xm.fraction, precision);
  length += put_axis(text + length, y_minutes, ym.fraction, precision);
  text[length] = '\0';
  return true;
}

void store_text(char* out, const char* text) { gx_name_copy(out, text, GX_GEOREF_SIZE); }

void store_text(gx_wchar* out, const char* text) { gx_wide_from_narrow(out, text, GX_GEOREF_SIZE - 1); }

template <typename Char>
int encode_array(double factor, int n, const double* coords, int precision, int rounding,
                 Char* const* strings) {
  if (n < 1 || strings == nullptr) return 0;
  for (int i = 0; i < n; i++) {
    if (strings[i] != nullptr) strings[i][0] = 0;
  }
  if (coords == nullptr || !(factor > 0.0)) return 0;
  precision = clamp_precision(precision);
  double steps_per_minute = power_of_ten(precision - GX_GEOREF_MIN_PRECISION);
  double half = rounding ? 0.5 / steps_per_minute : 0.0;
  int count = 0;
  for (int i = 0; i < n; i++) {
    if (strings[i] == nullptr) continue;
    const double* point = coords + 2 * static_cast<size_t>(i);
    double lon = gx_delta(point[0] * factor) * kDegreesPerRadian;
    double lat = point[1] * factor * kDegreesPerRadian;
    char text[kScratchSize];
    if (!encode_point(lon, lat, precision, steps_per_minute, half, text)) continue;
    store_text(strings[i], text);
    count++;
  }
  return count;
}

// 16-bit text is read as the library narrows it: by the low byte of a unit.
char narrow(char c) { return c; }

char narrow(gx_wchar unit) { return static_cast<char>(unit & 0xFF); }

// Index of each byte in a letter table, -1 for a byte that isn't in it.
struct LetterIndex {
  signed char of[256];
  constexpr explicit LetterIndex(const char* letters) : of{} {
    for (int c = 0; c < 256; c++) of[c] = -1;
    for (int i = 0; letters[i] != '\0'; i++) {
      of[static_cast<unsigned char>(letters[i])] = static_cast<signed char>(i);
    }
  }
  int operator()(char c) const { return of[static_cast<unsigned char>(c)]; }
};

constexpr LetterIndex kZoneIndex(kZoneLetters);
constexpr LetterIndex kBandIndex(kBandLetters);
constexpr LetterIndex kDegreeIndex(kDegreeLetters);

bool is_blank(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

bool is_digit(char c) { return c >= '0' && c <= '9'; }

template <typename Char>
int read_digits(const Char* digits, int count) {
  int value = 0;
  for (int i = 0; i < count; i++) value = value * 10 + (narrow(digits[i]) - '0');
  return value;
}

// One text to degrees: the south-west corner of its cell.
template <typename Char>
bool decode_point(const Char* text, double* lon, double* lat) {
  if (text == nullptr) return false;
  size_t end = 0;
  while (narrow(text[end]) != '\0') end++;
  while (end > 0 && is_blank(narrow(text[end - 1]))) end--;
  size_t first = 0;
  while (first < end && kZoneIndex(narrow(text[first])) < 0) first++;
  size_t code_length = end - first;
  if (code_length < kMinCodeLength || code_length > kMaxCodeLength) return false;
  int length = static_cast<int>(code_length);
  if ((length - kLetterCount) % 2 != 0) return false;
  const Char* code = text + first;
  int zone = kZoneIndex(narrow(code[0]));
  int band = kBandIndex(narrow(code[1]));
  int x_degree = kDegreeIndex(narrow(code[2]));
  int y_degree = kDegreeIndex(narrow(code[3]));
  if (band < 0 || x_degree < 0 || y_degree < 0) return false;
  for (int i = kLetterCount; i < length; i++) {
    if (!is_digit(narrow(code[i]))) return false;
  }
  int digits = (length - kLetterCount) / 2;
  double to_minutes = power_of_ten(GX_GEOREF_MIN_PRECISION - digits);
  double x_minutes = read_digits(code + kLetterCount, digits) * to_minutes;
  double y_minutes = read_digits(code + kLetterCount + digits, digits) * to_minutes;
  *lon = zone * kDegreesPerTile + x_degree + x_minutes / kMinutesPerDegree - kLongitudeOrigin;
  *lat = band * kDegreesPerTile + y_degree + y_minutes / kMinutesPerDegree - kLatitudeOrigin;
  return true;
}

template <typename Char>
int decode_array(double factor, int n, const Char* const* strings, double* coords) {
  if (n < 1 || coords == nullptr) return 0;
  for (size_t i = 0; i < 2 * static_cast<size_t>(n); i++) gx_nan(coords + i);
  if (strings == nullptr || !(factor > 0.0)) return 0;
  int count = 0;
  for (int i = 0; i < n; i++) {
    double lon, lat;
    if (!decode_point(strings[i], &lon, &lat)) continue;
    double* point = coords + 2 * static_cast<size_t>(i);
    point[0] = lon * kRadiansPerDegree / factor;
    point[1] = lat * kRadiansPerDegree / factor;
    count++;
  }
  return count;
}

}  // namespace

int gx_georef_encode(double factor, int n, const double* coords, int precision, int rounding,
                     char* const* strings) {
  return encode_array(factor, n, coords, precision, rounding, strings);
}

int gx_georef_encode(double factor, int n, const double* coords, int precision, int rounding,
                     gx_wchar* const* strings) {
  return encode_array(factor, n, coords, precision, rounding, strings);
}

int gx_georef_decode(double factor, int n, const char* const* strings, double* coords) {
  return decode_array(factor, n, strings, coords);
}

int gx_georef_decode(double factor, int n, const gx_wchar* const* strings, double* coords) {
  return decode_array(factor, n, strings, coords);
}
