// The Military Grid Reference System on the grid side: latitude bands, UTM
// zones and their Norway and Svalbard exceptions, the 100 km square
// lettering of UTM (new and old row sequences) and of the two UPS caps, the
// precision and rounding of the digits, and the text of a reference in both
// directions.  Everything here is numbers and text; the projections that
// turn a point into an easting and a northing live in mgrs.cpp.
#pragma once

#include <cstdint>

// A reference and its terminator fit in 24 characters: two zone digits,
// three letters and eight digits per axis.
constexpr int32_t GX_MGRS_SIZE = 24;
constexpr int32_t GX_MGRS_MAX_PRECISION = 8;

// UTM stops at 84 N and 80 S (both included); beyond lie the UPS caps.
constexpr double GX_MGRS_NORTH_LIMIT = 84.0;
constexpr double GX_MGRS_SOUTH_LIMIT = -80.0;

constexpr double GX_MGRS_SQUARE = 100000.0;        // one lettered square, metres
constexpr double GX_MGRS_ROW_CYCLE = 2000000.0;    // rows repeat every 20 squares
constexpr double GX_UTM_FALSE_EASTING = 500000.0;
constexpr double GX_UTM_FALSE_NORTHING_SOUTH = 10000000.0;
constexpr double GX_UTM_SCALE = 0.9996;
constexpr double GX_UPS_FALSE_ORIGIN = 2000000.0;  // both easting and northing
constexpr double GX_UPS_SCALE = 0.994;

// The lettering tables, upper case; the strings are part of the design.
inline constexpr char GX_MGRS_BANDS[] = "CDEFGHJKLMNPQRSTUVWX";  // bands C to X
// The 24 grid letters, A to Z without I and O; also the rows of the south cap.
inline constexpr char GX_MGRS_LETTERS[] = "ABCDEFGHJKLMNPQRSTUVWXYZ";
// UTM columns of the three zone sets, '*' at each set's index 0.
inline constexpr char GX_MGRS_UTM_COLUMNS[] = "*ABCDEFGH*JKLMNPQR*STUVWXYZ";
// UTM rows: the 20 row letters and 15 again, so that offsets 0, 5, 10 and
// 15 need no wrap.
inline constexpr char GX_MGRS_UTM_ROWS[] = "ABCDEFGHJKLMNPQRSTUVABCDEFGHJKLMNPQ";
inline constexpr char GX_MGRS_NORTH_COLUMNS[] = "RSTUXYZABCFGHJ";  // 7 of Y, then 7 of Z
inline constexpr char GX_MGRS_NORTH_ROWS[] = "ABCDEFGHJKLMNP";
inline constexpr char GX_MGRS_SOUTH_COLUMNS[] = "JKLPQRSTUXYZABCFGHJKLPQR";  // 12 of A, 12 of B

// The row sequence's shift under the old lettering.
constexpr int32_t GX_MGRS_OLD_ROW_SHIFT = 10;

// Which lettering a conversion uses.  `old_rows` asks for the old row
// sequence; `clarke1866` (found only by looking at the datum) keeps the new
// sequence in zones 47 to 55.
struct gx_mgrs_lettering {
  int old_rows;
  int clarke1866;
};
// 0 or GX_MGRS_OLD_ROW_SHIFT: how far the row letters of `zone` move.
int32_t gx_mgrs_row_shift(const gx_mgrs_lettering* lettering, int32_t zone);

// ---- from a point to a reference ------------------------------------------

// 1 when a latitude in degrees lies in a UPS cap.
int gx_mgrs_polar_p(double latitude);
// UTM zone 1 to 60 of a point in degrees (longitude within -180 to 180,
// latitude within the UTM limits), Norway and Svalbard included.
int32_t gx_mgrs_zone(double longitude, double latitude);
// Band letter C to X of a latitude in degrees within the UTM limits.
char gx_mgrs_band(double latitude);
// Central meridian of a UTM zone, in degrees.
double gx_mgrs_central_meridian(int32_t zone);

// How the digits of one call are taken: precision clamped to 0 to 8 digits
// per axis, and rounding to the nearest cell or truncation.
struct gx_mgrs_digits {
  int32_t precision;
  double scale;      // 10^(precision - 5): cells per metre
  double half_cell;  // added under rounding
  int rounding;
};
gx_mgrs_digits gx_mgrs_digits_of(int32_t precision, int rounding);
// An easting or northing in metres, moved as the rounding rule says: half a
// cell up when rounding, else a nudge of 5 units of the 17th significant
// digit away from zero so that a value just under a cell boundary through
// floating-point noise keeps its cell.
double gx_mgrs_adjust(double value, const gx_mgrs_digits* digits);

// Write the reference of a UTM point: easting and northing with their false
// origin, already adjusted.  A band M point that rounding carried to the
// equator becomes band N.  0, and `text` left empty, when the values fall
// outside the lettering tables (not a finite point of the zone).
int gx_mgrs_write_utm(char* text, int32_t zone, char band, double easting, double northing,
                      const gx_mgrs_digits* digits, int32_t row_shift);
// The same for a UPS point of the north (north != 0) or south cap.
int gx_mgrs_write_ups(char* text, int north, double easting, double northing,
                      const gx_mgrs_digits* digits);

// ---- from a reference to grid coordinates ------------------------------

// A reference as read from text.
struct gx_mgrs_reference {
  int32_t zone;     // 1 to 60; GX_MGRS_SOUTH_CAP (A, B) or GX_MGRS_NORTH_CAP (Y, Z)
  int32_t band;     // index of the band or cap letter in GX_MGRS_LETTERS
  char column;      // the square's letters, as read
  char row;
  int32_t precision;  // digits per axis, 0 to 8
  double easting;   // metres inside the square
  double northing;
};
constexpr int32_t GX_MGRS_SOUTH_CAP = -1;
constexpr int32_t GX_MGRS_NORTH_CAP = -2;

// Reads a reference: leading blanks and zeros skipped, then an optional zone
// of digits, the band letter, two square letters and an even count of at
// most 16 digits, nothing else.  1 on success; 0 for null, empty or any
// malformed text.
int gx_mgrs_read(const char* text, gx_mgrs_reference* reference);
// Cell size of a reference, metres.
double gx_mgrs_cell(const gx_mgrs_reference* reference);
// UTM easting with its false easting and northing within the 2000 km row
// cycle, from the square letters and digits.  0 if a letter is not found.
int gx_mgrs_utm_grid(const gx_mgrs_reference* reference, int32_t row_shift, double* easting,
                     double* northing);
// UPS easting and northing with their false origin.  0 if a letter does not
// belong to the cap's half.
int gx_mgrs_ups_grid(const gx_mgrs_reference* reference, double* easting, double* northing);
// Latitude range of a band in degrees: 8 degrees, 12 for X.
void gx_mgrs_band_range(int32_t band, double* lower, double* upper);
// 1 for a band south of the equator (C to M, and the cap letters A and B).
int gx_mgrs_south_p(int32_t band);
