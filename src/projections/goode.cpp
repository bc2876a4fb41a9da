// Goode Homolosine: Sinusoidal between the parallels where the two maps have
// the same scale, Mollweide beyond them, the Mollweide part shifted so that
// the two join.  Option 0 is the whole map; Options 1 and 2 interrupt it into
// lobes, each projected about a central meridian of its own.
#include "projections/world.h"

namespace {

// The latitude where Sinusoidal and Mollweide meet.
constexpr double kMeet = 0.7109888814838452;
constexpr double kDegree = 0.017453292519943295;

// Layout: the option and the whole map's terms, then for an interrupted map
// its lobes, those of the north first, each four doubles.
constexpr int kOption = 0;
constexpr int kA = 1;
constexpr int kCy = 2;      // a sqrt 2
constexpr int kCx = 3;      // a 2 sqrt 2 / pi
constexpr int kOffset = 4;  // the Mollweide part's shift towards the equator
constexpr int kAMeet = 5;   // a * the meeting latitude, the inverse's switch
constexpr int kLobes = 6;
constexpr int kLobeWest = 0;       // west bound, radians
constexpr int kLobeWestX = 1;      // west bound, metres
constexpr int kLobeCentre = 2;     // central meridian, radians
constexpr int kLobeCentreX = 3;    // central meridian, metres
constexpr int kLobeSize = 4;
constexpr int kMaxLobes = 6;
constexpr int kWholeCount = kLobes;
constexpr int kInterruptedCount = kLobes + kMaxLobes * kLobeSize;

// A lobe: its west bound in radians (the first of a row starts at -pi and
// the last reaches +pi) and its centre in degrees.
struct lobe_row {
  double west;
  double centre_degrees;
};

struct interruption {
  int north_count, south_count;
  lobe_row lobes[kMaxLobes];  // north west to east, then south west to east
};

constexpr interruption kInterruptions[2] = {
    {2, 4, {{-3.141592653589793, -100}, {-0.6981317007977318, 30},
            {-3.141592653589793, -160}, {-1.7453292519943295, -60}, {-0.3490658503988659, 20},
            {1.3962634015954636, 140}}},
    {3, 3, {{-3.141592653589793, -140}, {-1.7453292519943295, -10}, {1.0471975511965976, 130},
            {-3.141592653589793, -110}, {-1.0471975511965976, 20}, {1.7453292519943295, 140}}}};

// Option: the truncation of slot 15 plus 0.001; anything but 1 and 2 is 0.
int option_of(const double* parms) {
  double v = parms[GX_PARM_HEIGHT] + 0.001;
  return (v >= 1.0 && v < 3.0) ? static_cast<int>(v) : 0;
}

void setup(const double* sphere, const double* parms, int, double* k) {
  double a = sphere[0];
  int option = option_of(parms);
  k[kOption] = option;
  k[kA] = a;
  k[kCy] = a * 1.4142135623730951;
  k[kCx] = a * 0.9003163161571062;
  k[kOffset] = std::sin(gx_mollweide_theta(kMeet)) * k[kCy] - a * kMeet;
  k[kAMeet] = a * kMeet;
  if (option == 0) return;
  const interruption& rows = kInterruptions[option - 1];
  for (int i = 0; i < rows.north_count + rows.south_count; ++i) {
    double* lobe = k + kLobes + i * kLobeSize;
    double centre = rows.lobes[i].centre_degrees * kDegree;
    lobe[kLobeWest] = rows.lobes[i].west;
    lobe[kLobeWestX] = rows.lobes[i].west * a;
    lobe[kLobeCentre] = centre;
    lobe[kLobeCentreX] = centre * a;
  }
}

int count_of(const double* parms) {
  return option_of(parms) == 0 ? kWholeCount : kInterruptedCount;
}

// The centre of the lobe that holds `value` (radians or metres, by `bound`):
// the last of the hemisphere's lobes whose west bound is at most the value,
// so that a west bound belongs to its lobe and the last lobe keeps its east
// bound.  The whole map's one lobe has centre 0.
struct centre {
  double radians, metres;
};

centre lobe_centre(const double* k, bool north, double value, int bound) {
  int option = static_cast<int>(k[kOption]);
  if (option == 0) return {0.0, 0.0};
  const interruption& rows = kInterruptions[option - 1];
  int first = north ? 0 : rows.north_count;
  int count = north ? rows.north_count : rows.south_count;
  const double* lobe = k + kLobes + first * kLobeSize;
  int chosen = 0;
  for (int i = 1; i < count; ++i)
    if (lobe[i * kLobeSize + bound] <= value) chosen = i;
  lobe += chosen * kLobeSize;
  return {lobe[kLobeCentre], lobe[kLobeCentreX]};
}

// The Mollweide angle of a latitude beyond the meeting parallel; 0, unused,
// for one on the Sinusoidal part.
double mollweide_part_theta(double phi) {
  return std::fabs(phi) <= kMeet ? 0.0 : gx_mollweide_theta(phi);
}

// The same for two latitudes, side by side where both need it.
void mollweide_part_theta_pair(const double* phi, double* theta) {
  if (std::fabs(phi[0]) > kMeet && std::fabs(phi[1]) > kMeet) {
    gx_mollweide_theta_pair(phi, theta);
    return;
  }
  theta[0] = mollweide_part_theta(phi[0]);
  theta[1] = mollweide_part_theta(phi[1]);
}

}  // namespace

int32_t gx_goode_homolosine_forward(const double* sphere, double* parms, int32_t n,
                                    double* coords, const int32_t*, const double* doubles) {
  double local[kInterruptedCount];
  const double* k = gx_layout(doubles, local, setup, sphere, parms, 0);
  double a = k[kA], cy = k[kCy], cx = k[kCx], offset = k[kOffset];
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point_by_twos(
      n, coords, mollweide_part_theta_pair, mollweide_part_theta, [&](double* xy, double theta) {
        double dlam = gx_delta_fast(xy[0] - lam0), phi = xy[1];
        bool north = phi >= 0.0;
        centre c = lobe_centre(k, north, dlam, kLobeWest);
        if (std::fabs(phi) <= kMeet) {
          xy[0] = (dlam - c.radians) * std::cos(phi) * a + c.metres;
          xy[1] = phi * a;
        } else {
          xy[0] = (dlam - c.radians) * std::cos(theta) * cx + c.metres;
          xy[1] = north ? std::sin(theta) * cy - offset : std::sin(theta) * cy + offset;
        }
      });
}

int32_t gx_goode_homolosine_inverse(const double* sphere, double* parms, int32_t n,
                                    double* coords, const int32_t*, const double* doubles) {
  double local[kInterruptedCount];
  const double* k = gx_layout(doubles, local, setup, sphere, parms, 0);
  double a = k[kA], cy = k[kCy], offset = k[kOffset], a_meet = k[kAMeet], api = a * GX_PI;
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_count_points(n, coords, [&](double& x, double& y) {
    if (!gx_within_limit(x, api) || !gx_within_limit(y, cy)) return false;
    bool north = y >= 0.0;
    centre c = lobe_centre(k, north, x, kLobeWestX);
    double phi, dlam;
    if (std::fabs(y) <= a_meet) {
      phi = y / a;
      dlam = (x - c.metres) / (std::cos(phi) * a) + c.radians;
    } else {
      double theta, cos_theta;
      phi = gx_mollweide_latitude(gx_clamp_unit(north ? (y + offset) / cy : (y - offset) / cy),
                                  &theta, &cos_theta);
      dlam = gx_is_halfpi(theta)
                 ? c.radians
                 : (x - c.metres) * 1.5707963267948966 / (cos_theta * cy) + c.radians;
    }
    x = gx_delta_fast(dlam + lam0);
    y = phi;
    return true;
  });
}

int32_t gx_goode_homolosine_constants(gx_constants* block, const double* sphere,
                                      const double* parms) {
  return gx_layout_load(block, count_of(parms), setup, sphere, parms);
}
