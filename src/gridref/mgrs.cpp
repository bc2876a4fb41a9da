// MGRS conversions: geographic coordinates to references and back, on the
// datum of a geographic system, through the library's own Transverse
// Mercator (UTM) and Stereographic (UPS) rows of the projection list.
#include <cmath>
#include <cstring>

#include "frame/constants.h"
#include "frame/text.h"
#include "geodesy/ellipsoid.h"
#include "gridref/mgrs_grid.h"
#include "gx_geodesy.h"
#include "gx_gridref.h"
#include "gx_objects.h"
#include "gx_projections.h"
#include "objects/projlist.h"

namespace {

constexpr int32_t kTransverseMercator = 43006;
constexpr int32_t kStereographic = 43026;
constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr int32_t kCandidates = 6;  // northings tried for a UTM reference, 2000 km apart

// ---- which lettering ----------------------------------------------------------

// The spheroids and datums that were lettered with the old row sequence.
constexpr int32_t kOldSpheroidCount = 6;
const char* const kOldSpheroids[kOldSpheroidCount] = {
    "SPHEROID[\"Clarke_1866\",6378206.4,294.9786982]",
    "SPHEROID[\"Bessel_1841\",6377397.155,299.1528128]",
    "SPHEROID[\"Bessel_Namibia\",6377483.865,299.1528128]",
    "SPHEROID[\"Clarke_1880_Arc\",6378249.145,293.466307656]",
    "SPHEROID[\"Clarke_1880_IGN\",6378249.2,293.46602]",
    "SPHEROID[\"Clarke_1880_RGS\",6378249.145,293.465]",
};
constexpr int32_t kClarke1866 = 0;

struct OldDatum {
  const char* name;
  int32_t spheroid;  // index into kOldSpheroids
};
constexpr OldDatum kClarke1866Datums[] = {
    {"D_Old_Hawaiian", 0}, {"D_Puerto_Rico", 0},        {"D_American_Samoa_1962", 0},
    {"D_Bermuda_1957", 0}, {"D_Luzon_1911", 0},         {"D_North_American_1927", 0},
    {"D_Guam_1963", 0},    {"D_Cape_Canaveral", 0},     {"D_LC5_1961", 0},
    {nullptr, 0},
};
constexpr OldDatum kBesselDatums[] = {
    {"D_Batavia", 1}, {"D_Bukit_Rimpah", 1},  {"D_Massawa", 1},       {"D_Schwarzeck", 2},
    {"D_Tokyo", 1},   {"D_Gunung_Segara", 1}, {"D_Estonia_1937", 1}, {"D_Hermannskogel", 1},
    {nullptr, 0},
};
constexpr OldDatum kClarke1880Datums[] = {
    {"D_Dabola_1981", 5},        {"D_Adindan", 5},          {"D_Arc_1950", 3},
    {"D_Arc_1960", 5},           {"D_Cape", 3},             {"D_Carthage", 4},
    {"D_Leigon", 5},             {"D_Liberia_1964", 5},     {"D_Mahe_1971", 5},
    {"D_Merchich", 4},           {"D_Minna", 5},            {"D_Mporaloko", 4},
    {"D_Nahrwan_1967", 5},       {"D_Pointe_Noire", 4},     {"D_Voirol_1875", 4},
    {"D_Voirol_Unifie_1960", 5}, {"D_Nord_Sahara_1959", 5}, {"D_Antigua_1943", 5},
    {"D_Montserrat_1958", 5},    {"D_Point_58", 5},         {"D_Voirol_1879", 4},
    {"D_Ayabelle", 5},           {"D_Viti_Levu_1916", 5},   {"D_Deception_Island", 5},
    {"D_Sierra_Leone_1960", 5},  {"D_Oman", 5},             {"D_Fort_Thomas_1955", 5},
    {nullptr, 0},
};

// The spheroid of the old table's row i matches `spheroid`.
bool old_spheroid_matches(int32_t i, const gx_spheroid* spheroid) {
  gx_spheroid* row = gx_spheroid_from_string(kOldSpheroids[i]);
  bool same = row != nullptr && gx_spheroid_eq(spheroid, row);
  gx_spheroid_del(row);
  return same;
}

// The datum equals a datum of the list row: same name, same spheroid.  Only
// a row whose name matches needs a datum object built to compare.
bool old_datum_matches(const OldDatum& row, const gx_datum* datum) {
  char name[GX_NAME_SIZE];
  gx_datum_name(datum, name);
  if (gx_name_compare(name, row.name) != 0) return false;
  gx_datum* built = gx_datum_new(row.name, gx_spheroid_from_string(kOldSpheroids[row.spheroid]));
  bool same = built != nullptr && gx_datum_eq(datum, built);
  gx_datum_del(built);
  return same;
}

// The lettering that a datum calls for.  The Clarke 1880 list takes the
// spheroid rows from `clarke1880_from` on: 3 towards text, 2 from text, so
// Bessel_Namibia finds D_Schwarzeck only towards text.
gx_mgrs_lettering lettering_of_datum(const gx_datum* datum, int32_t clarke1880_from) {
  gx_mgrs_lettering lettering = {0, 0};
  const gx_spheroid* spheroid = gx_datum_spheroid(datum);
  if (spheroid == nullptr) return lettering;
  int32_t match = -1;
  for (int32_t i = 0; i < kOldSpheroidCount && match < 0; ++i)
    if (old_spheroid_matches(i, spheroid)) match = i;
  if (match < 0) return lettering;
  const OldDatum* list = match == kClarke1866           ? kClarke1866Datums
                         : match >= clarke1880_from     ? kClarke1880Datums
                                                        : kBesselDatums;
  for (const OldDatum* row = list; row->name != nullptr; ++row) {
    if (old_datum_matches(*row, datum)) {
      lettering.old_rows = 1;
      lettering.clarke1866 = list == kClarke1866Datums;
      break;
    }
  }
  return lettering;
}

bool new_mode_p(int32_t mode) { return mode == GX_MGRS_NEW || mode == GX_MGRS_NEW_WRAP; }
bool old_mode_p(int32_t mode) { return mode == GX_MGRS_OLD || mode == GX_MGRS_OLD_WRAP; }

gx_mgrs_lettering lettering_of_mode(int32_t mode, const gx_datum* datum, int32_t clarke1880_from) {
  if (new_mode_p(mode)) return {0, 0};
  if (old_mode_p(mode)) return {1, 0};
  return lettering_of_datum(datum, clarke1880_from);
}

// ---- the projection of one call -----------------------------------------------

// Keys of the projections in use: a UTM zone 1 to 60 or one of the caps.
constexpr int32_t kNorthCapKey = 61;
constexpr int32_t kSouthCapKey = 62;
constexpr int32_t kKeyCount = 63;

int32_t cap_key(bool north) { return north ? kNorthCapKey : kSouthCapKey; }
int32_t ref_key(int32_t zone) {
  return zone == GX_MGRS_NORTH_CAP ? kNorthCapKey : zone == GX_MGRS_SOUTH_CAP ? kSouthCapKey : zone;
}

// The UTM and UPS projections of a call on one spheroid.  Each zone or cap
// gets its parameter vector and constants block on first use, and keeps them
// for the rest of the call.
struct Projector {
  double sphere[2];
  const gx_projection_row* utm;
  const gx_projection_row* ups;
  gx_constants* blocks[kKeyCount];
  double parms[GX_PARM_COUNT];
  int32_t key;  // whose vector `parms` holds; 0 for none
};

bool projector_open(Projector* p, const gx_geogcs* geogcs) {
  std::memset(p, 0, sizeof *p);
  const gx_spheroid* spheroid = gx_datum_spheroid(gx_geogcs_datum(geogcs));
  if (spheroid == nullptr) return false;
  double f = gx_spheroid_flattening(spheroid);
  p->sphere[0] = gx_spheroid_axis(spheroid);
  p->sphere[1] = (2.0 - f) * f;
  p->utm = gx_projlist_row_from_code(kTransverseMercator);
  p->ups = gx_projlist_row_from_code(kStereographic);
  return p->utm != nullptr && p->ups != nullptr;
}

void projector_close(Projector* p) {
  for (gx_constants*& block : p->blocks) gx_constants_del(block);
}

// The parameter vector of a zone or cap; false origins stand in it for the
// record, but the projection functions never read them: the callers here
// add and take them off.
void fill_parms(double* parms, int32_t key) {
  for (int32_t i = 0; i < GX_PARM_COUNT; ++i) parms[i] = 0.0;
  if (key == kNorthCapKey || key == kSouthCapKey) {
    parms[GX_PARM_FALSE_EASTING] = GX_UPS_FALSE_ORIGIN;
    parms[GX_PARM_FALSE_NORTHING] = GX_UPS_FALSE_ORIGIN;
    parms[GX_PARM_SCALE_FACTOR] = GX_UPS_SCALE;
    parms[GX_PARM_LATITUDE_OF_ORIGIN] = key == kNorthCapKey ? GX_HALFPI : -GX_HALFPI;
  } else {
    parms[GX_PARM_FALSE_EASTING] = GX_UTM_FALSE_EASTING;
    parms[GX_PARM_CENTRAL_MERIDIAN] = gx_mgrs_central_meridian(key) * kRadiansPerDegree;
    parms[GX_PARM_SCALE_FACTOR] = GX_UTM_SCALE;
  }
}

// Makes `key` the current projection; its block is loaded on first use (a
// block the loader cannot fill leaves the functions on their set-up route).
const gx_projection_row* projector_use(Projector* p, int32_t key) {
  const gx_projection_row* row = key >= kNorthCapKey ? p->ups : p->utm;
  if (p->key != key) {
    fill_parms(p->parms, key);
    p->key = key;
    if (p->blocks[key] == nullptr && row->constants != nullptr) {
      gx_constants* block = gx_constants_new();
      if (block != nullptr && row->constants(block, p->sphere, p->parms) < 1) {
        gx_constants_del(block);
        block = nullptr;
      }
      p->blocks[key] = block;
    }
  }
  return row;
}

// Runs one point through the forward or inverse function of `key`.
void project(Projector* p, int32_t key, bool forward, double* xy) {
  const gx_projection_row* row = projector_use(p, key);
  const gx_constants* block = p->blocks[key];
  gx_projection_fn fn = forward ? row->forward : row->inverse;
  fn(p->sphere, p->parms, 1, xy, block ? block->ints : nullptr, block ? block->doubles : nullptr);
}

// ---- geographic to MGRS -------------------------------------------------------

// A longitude and latitude in the system's unit, as degrees for the zone and
// band rules and as radians for the projection.  The degrees come from the
// value as given, scaled by the unit's size in degrees, so that a longitude
// of exactly 6 degrees stays exactly 6: through radians it may come back a
// bit below and fall into the zone to the west.  A degree unit written with
// fewer digits (0.0174532925199433) counts as exactly one degree, so -180
// stays -180 and is not wrapped round to +180.  Only a longitude beyond a
// half turn is wrapped, and taken from its radians.
struct Point {
  double lon, lat;          // radians
  double lon_deg, lat_deg;  // degrees
};

bool point_of(const double* coords, double factor, bool wrap, Point* point) {
  double to_degrees = factor / kRadiansPerDegree;
  if (gx_eq(to_degrees, 1.0)) to_degrees = 1.0;
  double lon_deg = coords[0] * to_degrees;
  double lat_deg = coords[1] * to_degrees;
  if (!std::isfinite(lon_deg) || !(lat_deg >= -90.0 && lat_deg <= 90.0)) return false;
  double lon = coords[0] * factor;
  if (!(lon_deg >= -180.0 && lon_deg <= 180.0)) {
    lon = gx_delta(lon);
    lon_deg = lon / kRadiansPerDegree;
  }
  if (wrap && gx_eq(lon_deg * kRadiansPerDegree, GX_PI)) {
    lon = -GX_PI;
    lon_deg = -180.0;
  }
  point->lon = lon;
  point->lon_deg = lon_deg;
  point->lat = std::fmax(-GX_HALFPI, std::fmin(GX_HALFPI, coords[1] * factor));
  point->lat_deg = lat_deg;
  return true;
}

void point_to_mgrs(Projector* p, const Point& point, const gx_mgrs_digits* digits,
                   const gx_mgrs_lettering* lettering, char* text) {
  double xy[2] = {point.lon, point.lat};
  if (gx_mgrs_polar_p(point.lat_deg)) {
    bool north = point.lat_deg > 0.0;
    project(p, cap_key(north), true, xy);
    double easting = gx_mgrs_adjust(xy[0] + GX_UPS_FALSE_ORIGIN, digits);
    double northing = gx_mgrs_adjust(xy[1] + GX_UPS_FALSE_ORIGIN, digits);
    gx_mgrs_write_ups(text, north, easting, northing, digits);
    return;
  }
  int32_t zone = gx_mgrs_zone(point.lon_deg, point.lat_deg);
  project(p, zone, true, xy);
  double false_northing = point.lat_deg >= 0.0 ? 0.0 : GX_UTM_FALSE_NORTHING_SOUTH;
  double easting = gx_mgrs_adjust(xy[0] + GX_UTM_FALSE_EASTING, digits);
  double northing = gx_mgrs_adjust(xy[1] + false_northing, digits);
  gx_mgrs_write_utm(text, zone, gx_mgrs_band(point.lat_deg), easting, northing, digits,
                    gx_mgrs_row_shift(lettering, zone));
}

// ---- MGRS to geographic -------------------------------------------------------

// Latitude limits, in radians, within which a UTM reference's point must
// fall: its band widened by one cell each way along the meridian.  The limits
// depend only on the band and the cell, so a call computes each pair once.
constexpr int32_t kLetters = 24;
constexpr int32_t kPrecisions = GX_MGRS_MAX_PRECISION + 1;

struct BandLimits {
  double lower[kLetters][kPrecisions];
  double upper[kLetters][kPrecisions];
  unsigned char known[kLetters][kPrecisions];
};

void band_limits(BandLimits* limits, const double* sphere, const gx_mgrs_reference* ref,
                 double* lower, double* upper) {
  int32_t b = ref->band;
  int32_t d = ref->precision;
  if (!limits->known[b][d]) {
    double low;
    double high;
    gx_mgrs_band_range(b, &low, &high);
    double cell = gx_mgrs_cell(ref);
    double lon = gx_mgrs_central_meridian(ref->zone) * kRadiansPerDegree;
    gx_geodesic_coordinate(sphere[0], sphere[1], lon, low * kRadiansPerDegree, cell, GX_PI,
                           nullptr, &limits->lower[b][d]);
    gx_geodesic_coordinate(sphere[0], sphere[1], lon, high * kRadiansPerDegree, cell, 0.0,
                           nullptr, &limits->upper[b][d]);
    limits->known[b][d] = 1;
  }
  *lower = limits->lower[b][d];
  *upper = limits->upper[b][d];
}

// On an earth-sized spheroid a band spans less than half the 2000 km row
// cycle (12 degrees and two cells at most: some 1540 km), so at most one
// cycle puts a square in its band, and the likeliest can be tried first.
constexpr double kSmallestEarth = 5.0e6;
constexpr double kLargestEarth = 7.5e6;

// The cycle that puts the square nearest to the middle of its band, by the
// meridian of a sphere of radius a: off by far less than the half cycle
// that would make it pick a neighbour.
int32_t likeliest_cycle(const double* sphere, int32_t band, double northing) {
  double lower;
  double upper;
  gx_mgrs_band_range(band, &lower, &upper);
  double middle = (lower + upper) * 0.5 * kRadiansPerDegree * sphere[0] * GX_UTM_SCALE;
  double cycle = std::floor((middle - northing) / GX_MGRS_ROW_CYCLE + 0.5);
  return cycle < 0.0 ? 0 : (cycle >= kCandidates ? kCandidates - 1 : static_cast<int32_t>(cycle));
}

// The band letter does not say which 2000 km cycle of rows the square is
// in: try the northings of the cycles in turn and keep the first whose
// latitude lies in the band.  Where only one cycle can fit (an earth-sized
// spheroid), the likeliest goes first, which finds the same one.
bool utm_to_geog(Projector* p, BandLimits* limits, const gx_mgrs_reference* ref,
                 const gx_mgrs_lettering* lettering, double* lonlat) {
  double easting;
  double northing;
  if (!gx_mgrs_utm_grid(ref, gx_mgrs_row_shift(lettering, ref->zone), &easting, &northing))
    return false;
  double lower;
  double upper;
  band_limits(limits, p->sphere, ref, &lower, &upper);
  bool band_x = ref->band == 21;
  double false_northing = gx_mgrs_south_p(ref->band) ? GX_UTM_FALSE_NORTHING_SOUTH : 0.0;
  bool one_fits = p->sphere[0] > kSmallestEarth && p->sphere[0] < kLargestEarth;
  int32_t first = one_fits ? likeliest_cycle(p->sphere, ref->band, northing - false_northing) : 0;
  for (int32_t i = -1; i < kCandidates; ++i) {
    int32_t k = i < 0 ? first : i;
    if (i == first) continue;
    double xy[2] = {easting - GX_UTM_FALSE_EASTING,
                    northing - false_northing + k * GX_MGRS_ROW_CYCLE};
    project(p, ref->zone, false, xy);
    double lat = xy[1];
    if (lat >= lower && (lat < upper || (band_x && lat <= upper))) {
      lonlat[0] = xy[0];
      lonlat[1] = lat;
      return true;
    }
  }
  return false;
}

bool ups_to_geog(Projector* p, const gx_mgrs_reference* ref, double* lonlat) {
  double easting;
  double northing;
  if (!gx_mgrs_ups_grid(ref, &easting, &northing)) return false;
  lonlat[0] = easting - GX_UPS_FALSE_ORIGIN;
  lonlat[1] = northing - GX_UPS_FALSE_ORIGIN;
  project(p, ref_key(ref->zone), false, lonlat);
  return true;
}

bool valid_geogcs(const gx_geogcs* geogcs) { return gx_geogcs_p(geogcs) != 0; }

// A working block for the 16-bit functions: n pointers and n narrow buffers.
char** narrow_block(int32_t n) {
  size_t size = static_cast<size_t>(n) * (sizeof(char*) + GX_MGRS_SIZE);
  char** block = static_cast<char**>(gx_memalloc(size));
  if (block == nullptr) return nullptr;
  char* buffers = reinterpret_cast<char*>(block + n);
  for (int32_t i = 0; i < n; ++i) {
    block[i] = buffers + static_cast<size_t>(i) * GX_MGRS_SIZE;
    block[i][0] = '\0';
  }
  return block;
}

// A 16-bit reference as narrow text; one that does not fit the buffer or is
// not plain ASCII becomes a text that no reading accepts.
void narrow_reference(char* narrow, const gx_wchar* wide) {
  for (int32_t i = 0; i < GX_MGRS_SIZE; ++i) {
    if (wide[i] == 0) {
      narrow[i] = '\0';
      return;
    }
    if (wide[i] > 127 || i == GX_MGRS_SIZE - 1) break;
    narrow[i] = static_cast<char>(wide[i]);
  }
  std::strcpy(narrow, "?");
}

}  // namespace

extern "C" {

GX_API int32_t gx_geog_to_mgrs_extended(const gx_geogcs* geogcs, int32_t n, const double* coords,
                                        int32_t precision, int32_t rounding, int32_t mode,
                                        char** strings) {
  if (n < 1 || coords == nullptr || strings == nullptr) return 0;
  for (int32_t i = 0; i < n; ++i)
    if (strings[i] != nullptr) strings[i][0] = '\0';
  if (!valid_geogcs(geogcs)) return 0;
  Projector p;
  if (!projector_open(&p, geogcs)) return 0;
  gx_mgrs_digits digits = gx_mgrs_digits_of(precision, rounding);
  gx_mgrs_lettering lettering = lettering_of_mode(mode, gx_geogcs_datum(geogcs), 3);
  bool wrap = mode != GX_MGRS_NEW && mode != GX_MGRS_OLD;
  double factor = gx_unit_factor(gx_geogcs_unit(geogcs));
  for (int32_t i = 0; i < n; ++i) {
    Point point;
    if (strings[i] == nullptr || !point_of(coords + 2 * i, factor, wrap, &point)) continue;
    point_to_mgrs(&p, point, &digits, &lettering, strings[i]);
  }
  projector_close(&p);
  return n;
}

GX_API int32_t gx_geog_to_mgrs(const gx_geogcs* geogcs, int32_t n, const double* coords,
                               int32_t precision, int32_t rounding, char** strings) {
  return gx_geog_to_mgrs_extended(geogcs, n, coords, precision, rounding, GX_MGRS_NEW, strings);
}

GX_API int32_t gx_mgrs_to_geog_extended(const gx_geogcs* geogcs, int32_t n,
                                        const char* const* strings, int32_t mode, double* coords) {
  if (n < 1 || coords == nullptr) return 0;
  for (int32_t i = 0; i < 2 * n; ++i) gx_nan(coords + i);
  if (strings == nullptr || !valid_geogcs(geogcs)) return 0;
  Projector p;
  if (!projector_open(&p, geogcs)) return 0;
  gx_mgrs_lettering lettering = lettering_of_mode(mode, gx_geogcs_datum(geogcs), 2);
  double factor = gx_unit_factor(gx_geogcs_unit(geogcs));
  BandLimits limits;
  std::memset(limits.known, 0, sizeof limits.known);
  int32_t count = 0;
  for (int32_t i = 0; i < n; ++i) {
    gx_mgrs_reference ref;
    if (!gx_mgrs_read(strings[i], &ref)) continue;
    double lonlat[2];
    bool found = ref.zone > 0 ? utm_to_geog(&p, &limits, &ref, &lettering, lonlat)
                              : ups_to_geog(&p, &ref, lonlat);
    if (!found) continue;
    coords[2 * i] = lonlat[0] / factor;
    coords[2 * i + 1] = lonlat[1] / factor;
    ++count;
  }
  projector_close(&p);
  return count;
}

GX_API int32_t gx_mgrs_to_geog(const gx_geogcs* geogcs, int32_t n, const char* const* strings,
                               double* coords) {
  return gx_mgrs_to_geog_extended(geogcs, n, strings, GX_MGRS_NEW, coords);
}

GX_API int32_t gx_geog_to_mgrs_extended_w(const gx_geogcs* geogcs, int32_t n,
                                          const double* coords, int32_t precision,
                                          int32_t rounding, int32_t mode, gx_wchar** strings) {
  if (n < 1 || strings == nullptr) return 0;
  char** narrow = narrow_block(n);
  if (narrow == nullptr) return 0;
  int32_t count = gx_geog_to_mgrs_extended(geogcs, n, coords, precision, rounding, mode, narrow);
  for (int32_t i = 0; i < n; ++i)
    if (strings[i] != nullptr) gx_wide_from_narrow(strings[i], narrow[i], GX_MGRS_SIZE - 1);
  gx_memdealloc(narrow);
  return count;
}

GX_API int32_t gx_geog_to_mgrs_w(const gx_geogcs* geogcs, int32_t n, const double* coords,
                                 int32_t precision, int32_t rounding, gx_wchar** strings) {
  return gx_geog_to_mgrs_extended_w(geogcs, n, coords, precision, rounding, GX_MGRS_NEW, strings);
}

GX_API int32_t gx_mgrs_to_geog_extended_w(const gx_geogcs* geogcs, int32_t n,
                                          const gx_wchar* const* strings, int32_t mode,
                                          double* coords) {
  if (n < 1) return 0;
  char** narrow = narrow_block(n);
  if (narrow == nullptr) return 0;
  for (int32_t i = 0; i < n; ++i) {
    if (strings == nullptr || strings[i] == nullptr) narrow[i] = nullptr;
    else narrow_reference(narrow[i], strings[i]);
  }
  int32_t count = gx_mgrs_to_geog_extended(geogcs, n, narrow, mode, coords);
  gx_memdealloc(narrow);
  return count;
}

GX_API int32_t gx_mgrs_to_geog_w(const gx_geogcs* geogcs, int32_t n,
                                 const gx_wchar* const* strings, double* coords) {
  return gx_mgrs_to_geog_extended_w(geogcs, n, strings, GX_MGRS_NEW, coords);
}

}  // extern "C"
