// gxconv: the library's coordinate converter.
//
//   gxconv                          the built-in example: well-known places from
//                                   WGS 84 to their UTM zones and back
//   gxconv --list                   the projections, with codes and default parameters
//   gxconv --wkt DEF                reads a definition, prints it back (one line and
//                                   indented) with every message of the library
//   gxconv --from DEF --to DEF [--via DEF [--reverse]] [FILE]
//                                   converts coordinate lines from FILE or standard input
//
// DEF is WKT text, @FILE for a file holding it, or (as a source or target)
// MGRS[:PRECISION] or GEOREF[:PRECISION].  Messages of the library reach
// standard error as "severity code function: message".
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "objects/projlist.h"
#include "orvamobilegx.h"

namespace {

// ---- messages ------------------------------------------------------------

const char* severity_name(uint32_t severity) {
  return severity == GX_SEV_WARNING ? "warning" : severity == GX_SEV_ERROR ? "error" : "note";
}

int print_message(void*, const gx_errext* record) {
  std::fprintf(stderr, "%s %u %s: %s\n", severity_name(record->severity), record->code,
               record->function, record->message);
  return 0;
}

// ---- definitions -----------------------------------------------------------

// An argument that starts with '@' names a file whose text is the value.
bool read_argument(const char* argument, std::string& text) {
  if (argument[0] != '@') {
    text = argument;
    return true;
  }
  FILE* file = std::fopen(argument + 1, "rb");
  if (file == nullptr) {
    std::fprintf(stderr, "gxconv: cannot open %s: %s\n", argument + 1, std::strerror(errno));
    return false;
  }
  char chunk[4096];
  size_t got;
  text.clear();
  while ((got = std::fread(chunk, 1, sizeof chunk, file)) > 0) text.append(chunk, got);
  std::fclose(file);
  return true;
}

// One clause a line, nested clauses indented by two blanks.
void print_indented(const char* wkt) {
  int depth = 0;
  bool quoted = false;
  for (const char* p = wkt; *p != '\0'; ++p) {
    char c = *p;
    if (c == '"') quoted = !quoted;
    if (!quoted && c == ',' && std::isalpha(static_cast<unsigned char>(p[1]))) {
      std::printf(",\n%*s", 2 * depth, "");
      continue;
    }
    if (!quoted && c == '[') ++depth;
    if (!quoted && c == ']') --depth;
    std::putchar(c);
  }
  std::putchar('\n');
}

int show_wkt(const char* argument) {
  std::string text;
  if (!read_argument(argument, text)) return 2;
  void* obj = gx_object_from_string(text.c_str());
  if (obj == nullptr) {
    std::fprintf(stderr, "gxconv: the definition does not read\n");
    return 1;
  }
  char wkt[GX_WKT_SIZE];
  std::printf("%s: %s\n", gx_type_to_name(gx_object_type(obj)),
              gx_object_to_string_ext(obj, GX_WKT_ALL_AUTHORITY, wkt));
  print_indented(wkt);
  gx_object_del(obj);
  return 0;
}

// ---- the projection list ---------------------------------------------------

int list_projections() {
  std::printf("%-6s %-48s %s\n", "code", "name", "default parameters");
  for (int32_t i = 0; i < gx_projlist_count(); ++i) {
    const gx_projection_row& row = gx_projlist_rows()[i];
    gx_projection* projection = gx_projection_new(row.name, nullptr, nullptr, nullptr);
    gx_parameter* parameters[GX_PARM_COUNT];
    gx_parameter_projection_defaults(projection, parameters);
    std::printf("%-6d %-48s", row.code, row.name);
    const char* separator = " ";
    for (gx_parameter* parameter : parameters) {
      if (parameter == nullptr) continue;
      char name[GX_NAME_SIZE];
      char value[GX_NUMBER_SIZE];
      std::printf("%s%s=%s", separator, gx_parameter_name(parameter, name),
                  gx_dtoa(gx_parameter_value(parameter), value, 16));
      separator = ", ";
      gx_parameter_del(parameter);
    }
    std::printf("\n");
    gx_projection_del(projection);
  }
  return 0;
}

// ---- the built-in example --------------------------------------------------

struct gx_place {
  const char* name;
  double longitude;
  double latitude;
};

constexpr gx_place places[] = {
    {"Greenwich", -0.0014, 51.4778}, {"Oslo", 10.7522, 59.9139},
    {"Cape Town", 18.4241, -33.9249}, {"Tokyo", 139.6917, 35.6895},
    {"Sydney", 151.2093, -33.8688},  {"Quito", -78.4678, -0.1807},
    {"New York", -74.0060, 40.7128}, {"Reykjavik", -21.9426, 64.1466},
};

constexpr const char* kWgs84 =
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
    "298.257223563]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";

std::string utm_definition(int zone, bool south) {
  char text[GX_WKT_SIZE];
  std::snprintf(text, sizeof text,
                "PROJCS[\"WGS_1984_UTM_Zone_%d%c\",%s,PROJECTION[\"Transverse_Mercator\"],"
                "PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"False_Northing\",%s],"
                "PARAMETER[\"Central_Meridian\",%d.0],PARAMETER[\"Scale_Factor\",0.9996],"
                "PARAMETER[\"Latitude_Of_Origin\",0.0],UNIT[\"Meter\",1.0]]",
                zone, south ? 'S' : 'N', kWgs84, south ? "10000000.0" : "0.0", zone * 6 - 183);
  return text;
}

int run_example() {
  std::printf("WGS 84 places to their UTM zones and back\n");
  std::printf("%-10s %12s %12s  %-4s %14s %14s  %s\n", "place", "longitude", "latitude", "zone",
              "easting", "northing", "round trip");
  for (const gx_place& place : places) {
    int zone = static_cast<int>(std::floor((place.longitude + 180.0) / 6.0)) + 1;
    bool south = place.latitude < 0;
    gx_projcs* utm = gx_projcs_from_string(utm_definition(zone, south).c_str());
    if (utm == nullptr) {
      std::fprintf(stderr, "gxconv: the UTM definition does not read\n");
      return 1;
    }
    double xy[2] = {place.longitude, place.latitude};
    gx_geog_to_proj(utm, 1, xy);
    double east = xy[0], north = xy[1];
    gx_proj_to_geog(utm, 1, xy);
    double distance = 0;
    const double degree = 0.017453292519943295;
    gx_geodesic_distance(6378137.0, 0.0066943799901413165, place.longitude * degree,
                         place.latitude * degree, xy[0] * degree, xy[1] * degree, &distance,
                         nullptr, nullptr);
    std::printf("%-10s %12.6f %12.6f  %2d%c  %14.3f %14.3f  %.1e m\n", place.name,
                place.longitude, place.latitude, zone, south ? 'S' : 'N', east, north, distance);
    gx_projcs_del(utm);
  }
  return 0;
}

// ---- converting lines --------------------------------------------------------

enum class gx_end_kind { geographic, projected, mgrs, georef };

struct gx_end {
  gx_end_kind kind;
  void* system = nullptr;  // a gx_geogcs or gx_projcs; null for references
  int precision = 5;
};

bool reference_end(const char* argument, const char* keyword, gx_end_kind kind, int precision,
                   gx_end& end) {
  size_t length = std::strlen(keyword);
  if (std::strncmp(argument, keyword, length) != 0) return false;
  if (argument[length] != '\0' && argument[length] != ':') return false;
  end.kind = kind;
  end.precision = argument[length] == ':' ? std::atoi(argument + length + 1) : precision;
  return true;
}

bool parse_end(const char* argument, gx_end& end) {
  if (reference_end(argument, "MGRS", gx_end_kind::mgrs, 5, end)) return true;
  if (reference_end(argument, "GEOREF", gx_end_kind::georef, 4, end)) return true;
  std::string text;
  if (!read_argument(argument, text)) return false;
  end.system = gx_coordsys_from_string(text.c_str());
  if (end.system == nullptr) {
    std::fprintf(stderr, "gxconv: the definition does not read: %.60s...\n", text.c_str());
    return false;
  }
  end.kind = gx_coordsys_type(end.system) == GX_TYPE_PROJCS ? gx_end_kind::projected
                                                             : gx_end_kind::geographic;
  return true;
}

gx_geogcs* geographic_of(const gx_end& end) {
  if (end.kind == gx_end_kind::projected) return gx_projcs_geogcs(static_cast<gx_projcs*>(end.system));
  if (end.kind == gx_end_kind::geographic) return static_cast<gx_geogcs*>(end.system);
  return nullptr;
}

struct gx_job {
  gx_end from;
  gx_end to;
  gx_geogtran* via = nullptr;
  int direction = 0;
  gx_geogcs* default_geogcs = nullptr;  // for a reference at both ends

  gx_job() = default;
  gx_job(const gx_job&) = delete;
  gx_job& operator=(const gx_job&) = delete;
  // Whatever way the run ends, its definitions go.
  ~gx_job() {
    gx_object_del(from.system);
    gx_object_del(to.system);
    gx_geogtran_del(via);
    gx_geogcs_del(default_geogcs);
  }
};

// The geographic system on each side of the datum step.
gx_geogcs* source_geographic(const gx_job& job) {
  if (gx_geogcs* g = geographic_of(job.from)) return g;
  if (job.via != nullptr)
    return job.direction == 0 ? gx_geogtran_geogcs1(job.via) : gx_geogtran_geogcs2(job.via);
  if (gx_geogcs* g = geographic_of(job.to)) return g;
  return job.default_geogcs;
}

gx_geogcs* target_geographic(const gx_job& job) {
  if (gx_geogcs* g = geographic_of(job.to)) return g;
  if (job.via != nullptr)
    return job.direction == 0 ? gx_geogtran_geogcs2(job.via) : gx_geogtran_geogcs1(job.via);
  return source_geographic(job);
}

// Reads a coordinate line: two numbers separated by blanks or a comma; the
// rest of the line (a label, say) is carried along.  On failure `why` says
// in words what is wrong with the line.
bool parse_pair(const char* line, double* xy, std::string& rest, std::string& why) {
  const char* p = line;
  for (int i = 0; i < 2; ++i) {
    while (*p == ' ' || *p == '\t' || (i == 1 && *p == ',')) ++p;
    char* end = nullptr;
    xy[i] = std::strtod(p, &end);
    if (end == p) {
      why = *p == '\0' ? (i == 0 ? "no numbers" : "one number where two are needed (x y)")
                       : std::string(i == 0 ? "the first" : "the second") + " column is not a number: \"" +
                             std::string(p, std::strcspn(p, " \t,")) + "\"";
      return false;
    }
    if (!std::isfinite(xy[i])) {
      why = std::string(i == 0 ? "the first" : "the second") + " number is not finite: \"" +
            std::string(p, end - p) + "\"";
      return false;
    }
    p = end;
  }
  const char* after = p;
  while (*after == ' ' || *after == '\t' || *after == ',') ++after;
  char* end = nullptr;
  std::strtod(after, &end);
  if (end != after && (*end == '\0' || *end == ' ' || *end == '\t' || *end == ',')) {
    why = "a third number where two are expected (x y); heights need a vertical transformation";
    return false;
  }
  rest = p;
  return true;
}

// Blank lines and comments (from '#') pass through as they are.
bool is_blank_or_comment(const char* line) {
  const char* p = line + std::strspn(line, " \t");
  return *p == '\0' || *p == '#';
}

bool read_reference(const gx_job& job, const char* text, double* xy) {
  const char* strings[1] = {text};
  gx_geogcs* geogcs = source_geographic(job);
  if (job.from.kind == gx_end_kind::georef) return gx_georef_to_geog(geogcs, 1, strings, xy) == 1;
  return gx_mgrs_to_geog(geogcs, 1, strings, xy) == 1;
}

// Converts one point to geographic coordinates of the source's system, then
// over the datum step, then to the target; false when it has no image.
bool convert_point(const gx_job& job, double* xy) {
  if (job.from.kind == gx_end_kind::projected &&
      gx_proj_to_geog(static_cast<gx_projcs*>(job.from.system), 1, xy) < 1)
    return false;
  if (job.via != nullptr && gx_geog_to_geog(job.via, 1, xy, nullptr, job.direction) < 1)
    return false;
  if (job.to.kind == gx_end_kind::projected &&
      gx_geog_to_proj(static_cast<gx_projcs*>(job.to.system), 1, xy) < 1)
    return false;
  return !std::isnan(xy[0]) && !std::isnan(xy[1]);
}

void write_point(const gx_job& job, const double* xy, const std::string& rest) {
  if (job.to.kind == gx_end_kind::mgrs || job.to.kind == gx_end_kind::georef) {
    char text[64] = "";
    char* strings[1] = {text};
    gx_geogcs* geogcs = target_geographic(job);
    if (job.to.kind == gx_end_kind::mgrs)
      gx_geog_to_mgrs(geogcs, 1, xy, job.to.precision, 0, strings);
    else
      gx_geog_to_georef(geogcs, 1, xy, job.to.precision, 0, strings);
    std::printf("%s%s\n", text[0] != '\0' ? text : "*", rest.c_str());
    return;
  }
  const char* format = job.to.kind == gx_end_kind::projected ? "%.4f %.4f%s\n" : "%.10f %.10f%s\n";
  std::printf(format, xy[0], xy[1], rest.c_str());
}

// Each input line gives exactly one output line, so that results stay beside
// their inputs: blank lines and comments come out as they went in; a line
// that does not read or a point without an image is written as "*" and told
// on standard error with its line number and what is wrong.  The run goes on
// and ends with status 3 when any line failed.
int convert_lines(const gx_job& job, FILE* input) {
  char line[4096];
  long number = 0;
  int failures = 0;
  bool reference_source = job.from.kind == gx_end_kind::mgrs || job.from.kind == gx_end_kind::georef;
  while (std::fgets(line, sizeof line, input) != nullptr) {
    ++number;
    line[std::strcspn(line, "\r\n")] = '\0';
    if (is_blank_or_comment(line)) {
      std::printf("%s\n", line);
      continue;
    }
    double xy[2];
    std::string rest, why;
    bool ok;
    if (reference_source) {
      std::string reference(line);
      size_t start = reference.find_first_not_of(" \t");
      size_t stop = reference.find_first_of(" \t,", start);
      rest = stop == std::string::npos ? "" : reference.substr(stop);
      reference = reference.substr(start, stop == std::string::npos ? std::string::npos : stop - start);
      ok = read_reference(job, reference.c_str(), xy);
      if (!ok) why = "\"" + reference + "\" is not a valid reference";
    } else {
      ok = parse_pair(line, xy, rest, why);
    }
    if (!ok) {
      std::fprintf(stderr, "gxconv: line %ld: %s\n", number, why.c_str());
      std::printf("*\n");
      ++failures;
      continue;
    }
    if (!convert_point(job, xy)) {
      std::fprintf(stderr, "gxconv: line %ld: the point has no image in the target system\n", number);
      std::printf("*%s\n", rest.c_str());
      ++failures;
      continue;
    }
    write_point(job, xy, rest);
  }
  if (failures > 0) std::fprintf(stderr, "gxconv: %d of %ld lines failed\n", failures, number);
  return failures == 0 ? 0 : 3;
}

bool same_geographic(const gx_job& job) {
  gx_geogcs* a = geographic_of(job.from);
  gx_geogcs* b = geographic_of(job.to);
  return a == nullptr || b == nullptr || gx_geogcs_eq(a, b);
}

int repeated(const char* option) {
  std::fprintf(stderr, "gxconv: %s is given twice\n", option);
  return 2;
}

int run_conversion(int argc, char** argv) {
  gx_job job;
  const char* input_name = nullptr;
  bool have_from = false, have_to = false;
  for (int i = 1; i < argc; ++i) {
    std::string option = argv[i];
    bool has_value = i + 1 < argc;
    if (option == "--from" && has_value) {
      if (have_from) return repeated("--from");
      if (!parse_end(argv[++i], job.from)) return 1;
      have_from = true;
    } else if (option == "--to" && has_value) {
      if (have_to) return repeated("--to");
      if (!parse_end(argv[++i], job.to)) return 1;
      have_to = true;
    } else if (option == "--via" && has_value) {
      std::string text;
      if (!read_argument(argv[++i], text)) return 1;
      gx_geogtran_del(job.via);
      job.via = gx_geogtran_from_string(text.c_str());
      if (job.via == nullptr) {
        std::fprintf(stderr, "gxconv: the transformation does not read\n");
        return 1;
      }
    } else if (option == "--reverse") {
      job.direction = 1;
    } else if (option[0] != '-' && input_name == nullptr) {
      input_name = argv[i];
    } else {
      std::fprintf(stderr, "gxconv: unknown option %s\n", argv[i]);
      return 2;
    }
  }
  if (!have_from || !have_to) {
    std::fprintf(stderr, "gxconv: both --from and --to are needed\n");
    return 2;
  }
  job.default_geogcs = gx_geogcs_from_string(kWgs84);
  if (job.via == nullptr && !same_geographic(job)) {
    std::fprintf(stderr,
                 "gxconv: the two systems stand on different geographic systems; "
                 "give the transformation between them with --via\n");
    return 1;
  }
  FILE* input = input_name != nullptr ? std::fopen(input_name, "r") : stdin;
  if (input == nullptr) {
    std::fprintf(stderr, "gxconv: cannot open %s: %s\n", input_name, std::strerror(errno));
    return 2;
  }
  int result = convert_lines(job, input);
  if (input != stdin) std::fclose(input);
  return result;
}

void usage() {
  std::fprintf(stderr,
               "usage: gxconv                       convert well-known places to UTM and back\n"
               "       gxconv --list                list the projections\n"
               "       gxconv --wkt DEF             read, check and print a definition\n"
               "       gxconv --from DEF --to DEF [--via DEF [--reverse]] [FILE]\n"
               "DEF is WKT text, @FILE, or MGRS[:PRECISION] / GEOREF[:PRECISION] as an end.\n"
               "Input lines are 'x y' (or a reference), a label may follow; each gives one\n"
               "output line.  Blank lines and lines from '#' pass through; a line that\n"
               "fails gives '*', is told on standard error with its number, and makes\n"
               "the exit status 3.\n");
}

}  // namespace

int main(int argc, char** argv) {
  gx_msg_setrtn(nullptr, GX_SEV_ERROR | GX_SEV_WARNING, 0xFF, print_message);
  if (argc == 1) return run_example();
  std::string first = argv[1];
  if (first == "--list" && argc == 2) return list_projections();
  if (first == "--wkt" && argc == 3) return show_wkt(argv[2]);
  if (first == "--help" || first == "-h") {
    usage();
    return 0;
  }
  if (first == "--from" || first == "--to" || first == "--via") return run_conversion(argc, argv);
  usage();
  return 2;
}
