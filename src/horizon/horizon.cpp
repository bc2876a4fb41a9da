// Horizon records, and the world rectangle that is every projection's default.
#include "horizon/horizon.h"

#include <cstring>

#include "gx_geodesy.h"
#include "projections/contract.h"

gx_horizon* gx_horizon_alloc(int32_t count, int32_t points) {
  gx_horizon* records = static_cast<gx_horizon*>(gx_memalloc(count * sizeof(gx_horizon)));
  if (records == nullptr) return nullptr;
  std::memset(records, 0, count * sizeof(gx_horizon));
  records[0].horizon_count = count;
  for (int32_t i = 0; i < count; ++i) {
    records[i].point_count = points;
    records[i].points = static_cast<double*>(gx_memalloc(2 * points * sizeof(double)));
    if (records[i].points == nullptr) {
      gx_horizon_del(records);
      return nullptr;
    }
  }
  return records;
}

namespace {

struct gx_seam_band {
  double west;
  double east;
  int32_t replicate;
};

// The seam lies at the antimeridian of the central meridian; the band spans
// one turn less two margins and keeps the seam outside.
gx_seam_band seam_band(double central_meridian) {
  double d = gx_delta(central_meridian);
  double s = d > 0 ? d - GX_PI : d + GX_PI;
  if (std::fabs(s) <= GX_HORIZON_MARGIN) return {s + GX_HORIZON_MARGIN, s + GX_TWOPI - GX_HORIZON_MARGIN, 1};
  if (s < 0) return {s + GX_HORIZON_MARGIN, s + GX_TWOPI - GX_HORIZON_MARGIN, 3};
  return {s - GX_TWOPI + GX_HORIZON_MARGIN, s - GX_HORIZON_MARGIN, 3};
}

}  // namespace

gx_horizon* gx_horizon_world(const double*, const double* parms) {
  gx_horizon* h = gx_horizon_alloc(1, 2);
  if (h == nullptr) return nullptr;
  gx_seam_band band = seam_band(parms[GX_PARM_CENTRAL_MERIDIAN]);
  h->kind = GX_HORIZON_RECTANGLE;
  h->inclusive = 1;
  h->replicate = band.replicate;
  h->points[0] = band.west;
  h->points[1] = -GX_HALFPI;
  h->points[2] = band.east;
  h->points[3] = GX_HALFPI;
  return h;
}

extern "C" GX_API void gx_horizon_del(gx_horizon* horizon) {
  if (horizon == nullptr) return;
  int32_t count = horizon->horizon_count;
  for (int32_t i = 0; i < count; ++i) gx_memdealloc(horizon[i].points);
  gx_memdealloc(horizon);
}
