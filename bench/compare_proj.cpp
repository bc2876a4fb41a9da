// Side-by-side speed of this library and PROJ on the same points, in one process, one run:
// the rows of the shared comparison and more of the common projections.
// Prints ns per point for both and the ratio PROJ/here (above 1 means this library is faster).
// Usage: compare LIBDIR [filter]   (LIBDIR holds libORVAMobileGX.so)
#include <proj.h>
#include <dlfcn.h>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

typedef void* (*from_string_fn)(const char*);
typedef void (*del_fn)(void*);
typedef int (*conv_fn)(void*, int, double*);

static double now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

struct Case { const char* name; const char* wkt_proj; const char* proj; double lon0, dlon, lat_lo, lat_hi; };

static std::string geog(const char* ell, double a, double rf) {
  char b[512];
  snprintf(b, sizeof b, "GEOGCS[\"GCS\",DATUM[\"D\",SPHEROID[\"%s\",%.10g,%.12g]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]", ell, a, rf);
  return b;
}

int main(int argc, char** argv) {
  if (argc < 2) { fprintf(stderr, "usage: compare LIBDIR [filter]\n"); return 2; }
  std::string path = std::string(argv[1]) + "/libORVAMobileGX.so";
  void* h = dlopen(path.c_str(), RTLD_NOW);
  if (!h) { printf("cannot load %s: %s\n", path.c_str(), dlerror()); return 1; }
  auto from = (from_string_fn)dlsym(h, "gx_projcs_from_string");
  auto del = (del_fn)dlsym(h, "gx_projcs_del");
  auto fwd = (conv_fn)dlsym(h, "gx_geog_to_proj");
  auto inv = (conv_fn)dlsym(h, "gx_proj_to_geog");
  if (!from || !del || !fwd || !inv) { printf("projection pipeline not implemented\n"); return 1; }
  const std::string W = geog("WGS_1984", 6378137.0, 298.257223563), S = geog("Sphere", 6371000.0, 0.0);
  struct Def { const char* name; std::string wkt; const char* proj; double lon0, dlon, lat_lo, lat_hi; };
  auto P = [&](const std::string& g, const char* proj, const char* params) { return "PROJCS[\"P\"," + g + ",PROJECTION[\"" + proj + "\"]," + params + "UNIT[\"Meter\",1.0]]"; };
  std::vector<Def> defs = {
    {"Transverse_Mercator WGS84", P(W, "Transverse_Mercator", "PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"Central_Meridian\",15.0],PARAMETER[\"Scale_Factor\",0.9996],"), "+proj=tmerc +approx +lon_0=15 +k=0.9996 +x_0=500000 +ellps=WGS84", 15, 3, -80, 84},
    {"Mercator WGS84", P(W, "Mercator", "PARAMETER[\"Central_Meridian\",0.0],PARAMETER[\"Standard_Parallel_1\",0.0],"), "+proj=merc +lon_0=0 +ellps=WGS84", 0, 179, -85, 85},
    {"Mercator sphere", P(S, "Mercator", "PARAMETER[\"Central_Meridian\",0.0],PARAMETER[\"Standard_Parallel_1\",0.0],"), "+proj=merc +lon_0=0 +R=6371000", 0, 179, -85, 85},
    {"Lambert_Conformal_Conic WGS84", P(W, "Lambert_Conformal_Conic", "PARAMETER[\"Central_Meridian\",-96.0],PARAMETER[\"Standard_Parallel_1\",33.0],PARAMETER[\"Standard_Parallel_2\",45.0],PARAMETER[\"Latitude_Of_Origin\",23.0],PARAMETER[\"Scale_Factor\",1.0],"), "+proj=lcc +lat_1=33 +lat_2=45 +lat_0=23 +lon_0=-96 +ellps=WGS84", -96, 30, 20, 60},
    {"Albers WGS84", P(W, "Albers", "PARAMETER[\"Central_Meridian\",-96.0],PARAMETER[\"Standard_Parallel_1\",29.5],PARAMETER[\"Standard_Parallel_2\",45.5],PARAMETER[\"Latitude_Of_Origin\",23.0],"), "+proj=aea +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96 +ellps=WGS84", -96, 30, 20, 60},
    {"Stereographic oblique WGS84", P(W, "Stereographic", "PARAMETER[\"Central_Meridian\",5.0],PARAMETER[\"Scale_Factor\",0.9999],PARAMETER[\"Latitude_Of_Origin\",52.0],"), "+proj=stere +lat_0=52 +lon_0=5 +k=0.9999 +ellps=WGS84", 5, 10, 40, 65},
    {"Lambert_Azimuthal_Equal_Area WGS84", P(W, "Lambert_Azimuthal_Equal_Area", "PARAMETER[\"Central_Meridian\",10.0],PARAMETER[\"Latitude_Of_Origin\",52.0],"), "+proj=laea +lat_0=52 +lon_0=10 +ellps=WGS84", 10, 30, 30, 70},
    {"Azimuthal_Equidistant WGS84", P(W, "Azimuthal_Equidistant", "PARAMETER[\"Central_Meridian\",-100.0],PARAMETER[\"Latitude_Of_Origin\",40.0],"), "+proj=aeqd +lat_0=40 +lon_0=-100 +ellps=WGS84", -100, 60, 0, 80},
    {"Cassini WGS84", P(W, "Cassini", "PARAMETER[\"Central_Meridian\",-100.0],PARAMETER[\"Scale_Factor\",1.0],PARAMETER[\"Latitude_Of_Origin\",40.0],"), "+proj=cass +lat_0=40 +lon_0=-100 +ellps=WGS84", -100, 3, 20, 60},
    {"Mollweide sphere", P(S, "Mollweide", "PARAMETER[\"Central_Meridian\",0.0],"), "+proj=moll +R=6371000", 0, 179, -89, 89},
    {"Robinson sphere", P(S, "Robinson", "PARAMETER[\"Central_Meridian\",0.0],"), "+proj=robin +R=6371000", 0, 179, -89, 89},
    {"Sinusoidal sphere", P(S, "Sinusoidal", "PARAMETER[\"Central_Meridian\",0.0],"), "+proj=sinu +R=6371000", 0, 179, -89, 89},
    {"Equidistant_Conic WGS84", P(W, "Equidistant_Conic", "PARAMETER[\"Central_Meridian\",-96.0],PARAMETER[\"Standard_Parallel_1\",29.5],PARAMETER[\"Standard_Parallel_2\",45.5],PARAMETER[\"Latitude_Of_Origin\",23.0],"), "+proj=eqdc +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96 +ellps=WGS84", -96, 30, 20, 60},
    {"Polyconic WGS84", P(W, "Polyconic", "PARAMETER[\"Central_Meridian\",-54.0],PARAMETER[\"Latitude_Of_Origin\",0.0],"), "+proj=poly +lat_0=0 +lon_0=-54 +ellps=WGS84", -54, 20, -30, 5},
    {"Bonne sphere", P(S, "Bonne", "PARAMETER[\"Central_Meridian\",0.0],PARAMETER[\"Standard_Parallel_1\",60.0],"), "+proj=bonne +lat_1=60 +lon_0=0 +R=6371000", 0, 150, -80, 80},
    {"Cylindrical_Equal_Area WGS84", P(W, "Cylindrical_Equal_Area", "PARAMETER[\"Central_Meridian\",0.0],PARAMETER[\"Standard_Parallel_1\",30.0],"), "+proj=cea +lat_ts=30 +lon_0=0 +ellps=WGS84", 0, 179, -85, 85},
    {"Eckert_IV sphere", P(S, "Eckert_IV", "PARAMETER[\"Central_Meridian\",0.0],"), "+proj=eck4 +R=6371000", 0, 179, -89, 89},
    {"Winkel_Tripel sphere", P(S, "Winkel_Tripel", "PARAMETER[\"Central_Meridian\",0.0],PARAMETER[\"Standard_Parallel_1\",50.467],"), "+proj=wintri +lat_1=50.467 +R=6371000", 0, 179, -89, 89},
    {"Orthographic sphere", P(S, "Orthographic", "PARAMETER[\"Longitude_Of_Center\",10.0],PARAMETER[\"Latitude_Of_Center\",45.0],"), "+proj=ortho +lat_0=45 +lon_0=10 +R=6371000", 10, 60, 10, 80},
    {"Gnomonic sphere", P(S, "Gnomonic", "PARAMETER[\"Longitude_Of_Center\",10.0],PARAMETER[\"Latitude_Of_Center\",45.0],"), "+proj=gnom +lat_0=45 +lon_0=10 +R=6371000", 10, 40, 15, 75},
    {"Hotine_Oblique_Mercator WGS84", P(W, "Hotine_Oblique_Mercator_Azimuth_Center", "PARAMETER[\"False_Easting\",2600000.0],PARAMETER[\"False_Northing\",1200000.0],PARAMETER[\"Scale_Factor\",1.0],PARAMETER[\"Azimuth\",90.0],PARAMETER[\"Longitude_Of_Center\",7.439583333333333],PARAMETER[\"Latitude_Of_Center\",46.95240555555556],"), "+proj=omerc +lat_0=46.95240555555556 +lonc=7.439583333333333 +alpha=90 +gamma=90 +k=1 +x_0=2600000 +y_0=1200000 +ellps=WGS84", 7.5, 4, 44, 50},
    {"Krovak WGS84", P(W, "Krovak", "PARAMETER[\"Pseudo_Standard_Parallel_1\",78.5],PARAMETER[\"Scale_Factor\",0.9999],PARAMETER[\"Azimuth\",30.28813975277778],PARAMETER[\"Longitude_Of_Center\",24.83333333333333],PARAMETER[\"Latitude_Of_Center\",49.5],PARAMETER[\"X_Scale\",-1.0],PARAMETER[\"Y_Scale\",1.0],PARAMETER[\"XY_Plane_Rotation\",90.0],"), "+proj=krovak +lat_0=49.5 +lon_0=24.83333333333333 +alpha=30.28813975277778 +k=0.9999 +ellps=WGS84", 17, 5, 47.5, 51},
  };
  PJ_CONTEXT* ctx = proj_context_create();
  const char* filter = argc > 2 ? argv[2] : nullptr;
  const int n = 200000;
  double log_sum = 0; int counted = 0, missing = 0;
  for (auto& d : defs) {
    if (filter && !strstr(d.name, filter)) continue;
    void* pcs = from(d.wkt.c_str());
    PJ* pj = proj_create(ctx, d.proj);
    if (!pcs || !pj) { printf("%-36s %s\n", d.name, pcs ? "PROJ cannot create" : "not available here"); if (!pcs) missing++; if (pcs) del(pcs); if (pj) proj_destroy(pj); continue; }
    std::mt19937_64 rng(11);
    std::uniform_real_distribution<double> ulon(d.lon0 - d.dlon, d.lon0 + d.dlon), ulat(d.lat_lo, d.lat_hi);
    std::vector<double> deg(2 * n), buf(2 * n), px(n), py(n);
    for (int i = 0; i < n; i++) { deg[2*i] = ulon(rng); deg[2*i+1] = ulat(rng); }
    double g_f = 1e9, g_i = 1e9, p_f = 1e9, p_i = 1e9, maxdiff = 0;
    for (int rep = 0; rep < 7; rep++) {
      buf = deg;
      double t0 = now(); fwd(pcs, n, buf.data()); double t1 = now();
      if (rep == 0) for (int i = 0; i < n; i++) { px[i] = proj_torad(deg[2*i]); py[i] = proj_torad(deg[2*i+1]); }
      std::vector<double> qx = px, qy = py;
      double t2 = now();
      proj_trans_generic(pj, PJ_FWD, qx.data(), sizeof(double), n, qy.data(), sizeof(double), n, nullptr, 0, 0, nullptr, 0, 0);
      double t3 = now();
      if (rep == 0) for (int i = 0; i < n; i++) if (std::isfinite(buf[2*i]) && std::isfinite(qx[i])) maxdiff = std::max(maxdiff, std::hypot(buf[2*i] - qx[i], buf[2*i+1] - qy[i]));
      double t4 = now(); inv(pcs, n, buf.data()); double t5 = now();
      double t6 = now();
      proj_trans_generic(pj, PJ_INV, qx.data(), sizeof(double), n, qy.data(), sizeof(double), n, nullptr, 0, 0, nullptr, 0, 0);
      double t7 = now();
      g_f = std::min(g_f, (t1 - t0) / n * 1e9); p_f = std::min(p_f, (t3 - t2) / n * 1e9);
      g_i = std::min(g_i, (t5 - t4) / n * 1e9); p_i = std::min(p_i, (t7 - t6) / n * 1e9);
    }
    double rf = p_f / g_f, ri = p_i / g_i;
    log_sum += std::log(rf) + std::log(ri); counted += 2;
    printf("%-36s here %6.1f / %6.1f ns   PROJ %6.1f / %6.1f ns   ratio %5.2fx / %5.2fx   max|diff| %.2e m\n", d.name, g_f, g_i, p_f, p_i, rf, ri, maxdiff);
    del(pcs); proj_destroy(pj);
  }
  proj_context_destroy(ctx);
  if (counted == 0) { printf("nothing compared (%d not available)\n", missing); return 1; }
  double geo = std::exp(log_sum / counted);
  printf("geomean speed ratio PROJ/here over %d directions: %.2fx (%d cases not available)\n", counted, geo, missing);
  return geo >= 2.0 ? 0 : 1;
}
