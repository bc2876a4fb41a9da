// MGRS lettering, zones, digits and the text of a reference.
#include "gridref/mgrs_grid.h"

#include <cmath>

namespace {

constexpr int32_t kBandCount = 20;         // C to X
constexpr int32_t kLetterCount = 24;
constexpr int32_t kUtmColumnCount = 27;    // 3 sets of '*' and 8 letters
constexpr int32_t kUtmColumnSet = 9;
constexpr int32_t kUtmRowCount = 35;
constexpr int32_t kUtmRowLetters = 20;     // one cycle of row letters
constexpr int32_t kEvenZoneRowOffset = 5;  // even zones start their rows at F
constexpr int32_t kNorthCapCount = 14;     // columns of Y and Z, and rows
constexpr int32_t kSouthCapHalf = 12;      // columns of A, then of B
constexpr int32_t kBandX = 21;             // index of X in the 24 letters
constexpr int32_t kFirstNorthBand = 12;    // index of N in the 24 letters
constexpr int32_t kFirstUtmBand = 2;       // C
constexpr int32_t kMaxZoneDigits = 8;
constexpr int32_t kMaxDigits = 16;         // both axes together
// Longest text past the skipped blanks and zeros that can still be a reference.
constexpr int32_t kMaxReference = kMaxZoneDigits + 3 + kMaxDigits;
static_assert(sizeof GX_MGRS_BANDS == kBandCount + 1 && sizeof GX_MGRS_LETTERS == kLetterCount + 1 &&
              sizeof GX_MGRS_UTM_COLUMNS == kUtmColumnCount + 1 &&
              sizeof GX_MGRS_UTM_ROWS == kUtmRowCount + 1 &&
              sizeof GX_MGRS_NORTH_COLUMNS == kNorthCapCount + 1 &&
              sizeof GX_MGRS_NORTH_ROWS == kNorthCapCount + 1 &&
              sizeof GX_MGRS_SOUTH_COLUMNS == 2 * kSouthCapHalf + 1);

constexpr double kSquareInverse = 1e-5;
constexpr double kRowCycleInverse = 5e-07;
constexpr double kUpsNorthOrigin = 1300000.0;  // south-west corner of the Y and Z lettering
constexpr double kUpsSouthOrigin = 800000.0;   // south-west corner of the A and B lettering
constexpr double kEquatorNorthing = 10000000.0;

// 10^k for k = -5 ... 5: cells per metre and metres per cell at each precision.
constexpr double kPowersOfTen[] = {1e-5, 1e-4, 1e-3, 1e-2, 1e-1, 1.0,
                                   1e1,  1e2,  1e3,  1e4,  1e5};
double power_of_ten(int32_t k) { return kPowersOfTen[k + 5]; }
// 10^precision as the exclusive bound of a digit group.
constexpr int32_t kDigitLimit[] = {1,      10,      100,      1000,     10000,
                                   100000, 1000000, 10000000, 100000000};

// The lettering of a UPS cap: the letter west and east of the 0 and 180
// meridians, the south-west corner of the lettered squares, and the tables.
struct CapLettering {
  char west;
  char east;
  double origin;
  const char* columns;
  int32_t column_count;
  const char* rows;
  int32_t row_count;
};
constexpr CapLettering kNorthCap = {'Y', 'Z', kUpsNorthOrigin, GX_MGRS_NORTH_COLUMNS,
                                    kNorthCapCount, GX_MGRS_NORTH_ROWS, kNorthCapCount};
constexpr CapLettering kSouthCap = {'A', 'B', kUpsSouthOrigin, GX_MGRS_SOUTH_COLUMNS,
                                    kLetterCount, GX_MGRS_LETTERS, kLetterCount};

// Index of the letter in a table (or its first `count` letters); -1 if absent.
int32_t letter_index(const char* table, int32_t count, char letter) {
  for (int32_t i = 0; i < count; ++i)
    if (table[i] == letter) return i;
  return -1;
}

// Truncation of a value that has to index a table of `count` entries, or
// -1 when it does not (negative, too large, NaN).
int32_t table_index(double value, int32_t count) {
  if (!(value >= 0.0 && value < count)) return -1;
  return static_cast<int32_t>(value);
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_blank(char c) { return c == ' ' || c == '\t'; }

char* put_digits(char* out, int32_t value, int32_t count) {
  for (int32_t i = count - 1; i >= 0; --i) {
    out[i] = static_cast<char>('0' + value % 10);
    value /= 10;
  }
  return out + count;
}

// The digits of one axis: metres inside the 100 km square, in cells.
int32_t axis_digits(double value, const gx_mgrs_digits* digits) {
  double inside = value - std::trunc(value * kSquareInverse) * GX_MGRS_SQUARE;
  double cells = std::trunc(inside * digits->scale);
  double top = kDigitLimit[digits->precision] - 1;
  return static_cast<int32_t>(cells < 0.0 ? 0.0 : (cells > top ? top : cells));
}

// Writes the two square letters and the digits; returns the end.
char* put_square(char* out, char column, char row, double easting, double northing,
                 const gx_mgrs_digits* digits) {
  *out++ = column;
  *out++ = row;
  out = put_digits(out, axis_digits(easting, digits), digits->precision);
  out = put_digits(out, axis_digits(northing, digits), digits->precision);
  *out = '\0';
  return out;
}

// Reads n digits (n at most 8, all checked to be digits) as an integer.
int32_t read_digits(const char* text, int32_t n) {
  int32_t value = 0;
  for (int32_t i = 0; i < n; ++i) value = value * 10 + (text[i] - '0');
  return value;
}

// Index of each character in the 24 grid letters, -1 for any other: the
// reader looks every character up in it.
struct LetterTable {
  int8_t index[256];
  constexpr LetterTable() : index() {
    for (int32_t c = 0; c < 256; ++c) index[c] = -1;
    for (int32_t i = 0; i < kLetterCount; ++i)
      index[static_cast<unsigned char>(GX_MGRS_LETTERS[i])] = static_cast<int8_t>(i);
  }
};
constexpr LetterTable kLetterIndex;

int32_t grid_letter(char c) { return kLetterIndex.index[static_cast<unsigned char>(c)]; }

}  // namespace

int32_t gx_mgrs_row_shift(const gx_mgrs_lettering* lettering, int32_t zone) {
  if (!lettering->old_rows) return 0;
  if (lettering->clarke1866 && zone >= 47 && zone <= 55) return 0;
  return GX_MGRS_OLD_ROW_SHIFT;
}

int gx_mgrs_polar_p(double latitude) {
  return latitude > GX_MGRS_NORTH_LIMIT || latitude < GX_MGRS_SOUTH_LIMIT;
}

int32_t gx_mgrs_zone(double longitude, double latitude) {
  double column = (longitude + 180.0) / 6.0;
  int32_t zone = column < 0.0 ? 1 : (column >= 60.0 ? 60 : 1 + static_cast<int32_t>(column));
  // Norway: 32V is widened westwards over 31V.
  if (latitude >= 56.0 && latitude < 64.0 && zone == 31 && longitude >= 3.0) zone = 32;
  // Svalbard: the even zones of band X are shared out to their neighbours.
  if (latitude >= 72.0 && latitude <= GX_MGRS_NORTH_LIMIT) {
    if (zone == 32) zone = longitude < 9.0 ? 31 : 33;
    else if (zone == 34) zone = longitude < 21.0 ? 33 : 35;
    else if (zone == 36) zone = longitude < 33.0 ? 35 : 37;
  }
  return zone;
}

char gx_mgrs_band(double latitude) {
  double band = (latitude + 80.0) / 8.0;
  int32_t index = band < 0.0 ? 0 : (band >= kBandCount - 1 ? kBandCount - 1 : static_cast<int32_t>(band));
  return GX_MGRS_BANDS[index];
}

double gx_mgrs_central_meridian(int32_t zone) { return (zone - 31) * 6.0 + 3.0; }

gx_mgrs_digits gx_mgrs_digits_of(int32_t precision, int rounding) {
  if (precision < 0) precision = 0;
  if (precision > GX_MGRS_MAX_PRECISION) precision = GX_MGRS_MAX_PRECISION;
  gx_mgrs_digits digits;
  digits.precision = precision;
  digits.scale = power_of_ten(precision - 5);
  digits.half_cell = 0.5 * power_of_ten(5 - precision);
  digits.rounding = rounding != 0;
  return digits;
}

double gx_mgrs_adjust(double value, const gx_mgrs_digits* digits) {
  if (digits->rounding) return value + digits->half_cell;
  if (value == 0.0 || !std::isfinite(value)) return value;
  double nudge = 5.0 * std::pow(10.0, std::trunc(std::log10(std::fabs(value))) - 16.0);
  return value < 0.0 ? value - nudge : value + nudge;
}

int gx_mgrs_write_utm(char* text, int32_t zone, char band, double easting, double northing,
                      const gx_mgrs_digits* digits, int32_t row_shift) {
  text[0] = '\0';
  if (zone < 1 || zone > 60) return 0;
  // Rounding can carry a southern point over the equator.
  if (band == 'M' && northing >= kEquatorNorthing) {
    band = 'N';
    northing -= kEquatorNorthing;
  }
  northing = northing - std::trunc(northing * kRowCycleInverse) * GX_MGRS_ROW_CYCLE;
  int32_t set = (zone - 1) % 6;
  int32_t column_base = (set % 3) * kUtmColumnSet;
  int32_t column = table_index(easting * kSquareInverse, kUtmColumnCount - column_base);
  int32_t row_base = (set % 2 ? kEvenZoneRowOffset : 0) + row_shift;
  int32_t row = table_index(northing * kSquareInverse, kUtmRowCount - row_base);
  if (column < 0 || row < 0) return 0;
  char* out = text;
  *out++ = static_cast<char>('0' + zone / 10);
  *out++ = static_cast<char>('0' + zone % 10);
  *out++ = band;
  put_square(out, GX_MGRS_UTM_COLUMNS[column_base + column], GX_MGRS_UTM_ROWS[row_base + row],
             easting, northing, digits);
  return 1;
}

int gx_mgrs_write_ups(char* text, int north, double easting, double northing,
                      const gx_mgrs_digits* digits) {
  text[0] = '\0';
  const CapLettering& cap = north ? kNorthCap : kSouthCap;
  char letter = easting < GX_UPS_FALSE_ORIGIN ? cap.west : cap.east;
  easting -= cap.origin;
  northing -= cap.origin;
  int32_t column = table_index(easting * kSquareInverse, cap.column_count);
  int32_t row = table_index(northing * kSquareInverse, cap.row_count);
  if (column < 0 || row < 0) return 0;
  text[0] = letter;
  put_square(text + 1, cap.columns[column], cap.rows[row], easting, northing, digits);
  return 1;
}

int gx_mgrs_read(const char* text, gx_mgrs_reference* reference) {
  if (text == nullptr) return 0;
  while (is_blank(*text)) ++text;
  while (*text == '0') ++text;
  int32_t length = 0;
  while (length <= kMaxReference && text[length] != '\0') ++length;
  if (length == 0 || length > kMaxReference) return 0;

  // The band (or cap) letter is the first of the 24 letters; before it only
  // the zone's digits.
  int32_t at = 0;
  int32_t band = -1;
  for (; at < length && band < 0; ++at) band = grid_letter(text[at]);
  --at;
  if (band < 0 || at > kMaxZoneDigits || at + 3 > length) return 0;
  for (int32_t i = 0; i < at; ++i)
    if (!is_digit(text[i])) return 0;

  bool cap = band < kFirstUtmBand || band > kBandX;
  char column = text[at + 1];
  char row = text[at + 2];
  bool letters_known;
  if (!cap) {
    letters_known = grid_letter(column) >= 0 &&
                    letter_index(GX_MGRS_UTM_ROWS, kUtmRowLetters, row) >= 0;
  } else if (band > kBandX) {
    letters_known = letter_index(GX_MGRS_NORTH_COLUMNS, kNorthCapCount, column) >= 0 &&
                    letter_index(GX_MGRS_NORTH_ROWS, kNorthCapCount, row) >= 0;
  } else {
    letters_known = letter_index(GX_MGRS_SOUTH_COLUMNS, kLetterCount, column) >= 0 &&
                    grid_letter(row) >= 0;
  }
  if (!letters_known) return 0;

  // A zone goes with a band, a cap letter stands alone.
  int32_t zone;
  if (at > 0) {
    zone = read_digits(text, at);
    if (zone < 1 || zone > 60 || cap) return 0;
  } else {
    if (!cap) return 0;
    zone = band > kBandX ? GX_MGRS_NORTH_CAP : GX_MGRS_SOUTH_CAP;
  }

  const char* tail = text + at + 3;
  int32_t count = length - (at + 3);
  for (int32_t i = 0; i < count; ++i)
    if (!is_digit(tail[i])) return 0;
  if (count % 2 != 0 || count > kMaxDigits) return 0;
  int32_t half = count / 2;
  double metres_per_unit = power_of_ten(5 - half);

  reference->zone = zone;
  reference->band = band;
  reference->column = column;
  reference->row = row;
  reference->precision = half;
  reference->easting = half > 0 ? read_digits(tail, half) * metres_per_unit : 0.0;
  reference->northing = half > 0 ? read_digits(tail + half, half) * metres_per_unit : 0.0;
  return 1;
}

double gx_mgrs_cell(const gx_mgrs_reference* reference) {
  return power_of_ten(5 - reference->precision);
}

int gx_mgrs_utm_grid(const gx_mgrs_reference* reference, int32_t row_shift, double* easting,
                     double* northing) {
  int32_t zone = reference->zone;
  if (zone < 1 || zone > 60) return 0;
  int32_t letter = grid_letter(reference->column);
  int32_t row_base = ((zone - 1) % 6 % 2 ? kEvenZoneRowOffset : 0) + row_shift;
  int32_t row = letter_index(GX_MGRS_UTM_ROWS + row_base, kUtmRowLetters, reference->row);
  if (letter < 0 || row < 0) return 0;
  // Each zone set starts its columns 8 letters further on.
  int32_t column = ((letter - 8 * ((zone - 1) % 3)) % kLetterCount + kLetterCount) % kLetterCount;
  *easting = (column + 1) * GX_MGRS_SQUARE + reference->easting;
  *northing = row * GX_MGRS_SQUARE + reference->northing;
  return 1;
}

int gx_mgrs_ups_grid(const gx_mgrs_reference* reference, double* easting, double* northing) {
  int32_t column;
  int32_t row;
  if (reference->zone == GX_MGRS_NORTH_CAP) {
    column = letter_index(GX_MGRS_NORTH_COLUMNS, kNorthCapCount, reference->column);
    row = letter_index(GX_MGRS_NORTH_ROWS, kNorthCapCount, reference->row);
    if (column < 0 || row < 0) return 0;
    *easting = column * GX_MGRS_SQUARE + reference->easting + kUpsNorthOrigin;
    *northing = row * GX_MGRS_SQUARE + reference->northing + kUpsNorthOrigin;
    return 1;
  }
  if (reference->zone != GX_MGRS_SOUTH_CAP) return 0;
  bool west = reference->band == 0;  // A
  const char* half = GX_MGRS_SOUTH_COLUMNS + (west ? 0 : kSouthCapHalf);
  column = letter_index(half, kSouthCapHalf, reference->column);
  row = grid_letter(reference->row);
  if (column < 0 || row < 0) return 0;
  *easting = column * GX_MGRS_SQUARE + reference->easting + (west ? kUpsSouthOrigin : GX_UPS_FALSE_ORIGIN);
  *northing = row * GX_MGRS_SQUARE + reference->northing + kUpsSouthOrigin;
  return 1;
}

void gx_mgrs_band_range(int32_t band, double* lower, double* upper) {
  *lower = (band - kFirstUtmBand) * 8.0 - 80.0;
  *upper = *lower + (band == kBandX ? 12.0 : 8.0);
}

int gx_mgrs_south_p(int32_t band) { return band < kFirstNorthBand; }
