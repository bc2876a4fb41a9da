// The data-driven runner of the projection tests.  A case names a
// projection's functions, a sphere pair, the parameters of a definition,
// reference points and a round-trip region; one runner checks every case on
// both routes: the set-up inside the functions (no constants) and the
// doubles stored by the loader.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <initializer_list>
#include <vector>

#include "frame/constants.h"
#include "gx_projections.h"

namespace gx_test {

inline constexpr double kDeg = 3.141592653589793 / 180.0;

struct Projection {
  const char* name;
  gx_projection_fn forward;
  gx_projection_fn inverse;
  gx_constants_fn loader;  // null when the projection has none
};

// A parameter as a definition gives it: angles in degrees, lengths in
// metres, ratios and codes as they are.
struct Parameter {
  int slot;
  double value;
};

// The vector as the driver builds it: scale factors and slot 12 default to
// 1, an unset Standard_Parallel_2 to slot 3, angles are taken to radians.
void build_parms(const std::vector<Parameter>& given, double* parms);

// A geographic point in degrees and its image in metres from the natural
// origin.
struct Reference {
  double lon, lat, x, y;
};

// A region of the usable area, in degrees.
struct Region {
  double lon_lo, lon_hi, lat_lo, lat_hi;
};

struct ProjectionCase {
  const char* label;
  Projection projection;
  double a, e2;
  std::vector<Parameter> parameters;
  std::vector<Reference> references;
  double forward_tolerance;  // metres
  double inverse_tolerance;  // degrees
  Region region;             // round trip grid
  double roundtrip_tolerance;  // degrees
};

// The constants of a case as the driver would hold them; empty when the
// projection has no loader or its loader keeps nothing.
class LoadedConstants {
 public:
  LoadedConstants(gx_constants_fn loader, const double* sphere, const double* parms);
  ~LoadedConstants();
  LoadedConstants(const LoadedConstants&) = delete;
  LoadedConstants& operator=(const LoadedConstants&) = delete;
  const int32_t* ints() const;
  const double* doubles() const;
  int32_t count() const { return count_; }

 private:
  gx_constants* block_;
  int32_t count_;
};

// Runs `fn` over `coords` in place with a vector built afresh from the
// case's parameters, as the driver does for every call.
int32_t run_function(gx_projection_fn fn, const ProjectionCase& c, const int32_t* ints,
                     const double* doubles, std::vector<double>& coords);

// A grid of points over a region, degrees taken to radians.
std::vector<double> grid_radians(const Region& region, int steps);

// Equality of the bits of two arrays (NaN marks included).
bool same_bits(const std::vector<double>& a, const std::vector<double>& b);

class ProjectionCaseTest : public ::testing::TestWithParam<ProjectionCase> {};

std::string case_name(const ::testing::TestParamInfo<ProjectionCase>& info);
// A case shows as its label in failure messages.
void PrintTo(const ProjectionCase& c, std::ostream* os);

// An auxiliary sphere twin's loader for one sphere type: how many doubles it
// stores.  ExpectTwinLoaderCounts checks each case with the vector built
// from `parameters` plus the type, that a block holds doubles exactly when
// some are stored, and that the loader leaves the vector as it was.
struct TwinLoaderCount {
  gx_constants_fn loader;
  const double* sphere;
  double type;
  int32_t count;
};
void ExpectTwinLoaderCounts(std::initializer_list<TwinLoaderCount> cases,
                            const std::vector<Parameter>& parameters = {});

}  // namespace gx_test
