// Starting sets of parameters: what each projection takes, at the defaults of
// the parameter table.
#include "frame/object.h"
#include "objects/parmlist.h"

namespace {

// Factory codes of the parameters.
enum : int32_t {
  kFalseEasting = 100001,
  kFalseNorthing = 100002,
  kScaleFactor = 100003,
  kAzimuth = 100004,
  kHeight = 100005,
  kCentralMeridian = 100010,
  kLongitudeOfOrigin = 100011,
  kLongitudeOfCenter = 100012,
  kLongitudeOf1stPoint = 100013,
  kLongitudeOf2ndPoint = 100014,
  kCentralParallel = 100020,
  kLatitudeOfOrigin = 100021,
  kLatitudeOfCenter = 100022,
  kLatitudeOf1stPoint = 100023,
  kLatitudeOf2ndPoint = 100024,
  kStandardParallel1 = 100025,
  kStandardParallel2 = 100026,
  kPseudoStandardParallel1 = 100027,
  kAuxiliarySphereType = 100035,
  kOption = 100036,
  kXScale = 100037,
  kYScale = 100038,
  kXYPlaneRotation = 100039,
  kXAxisTranslation = 100040,
  kYAxisTranslation = 100041,
  kZAxisTranslation = 100042,
  kXAxisRotation = 100043,
  kYAxisRotation = 100044,
  kZAxisRotation = 100045,
  kScaleDifference = 100046,
  kDataset = 100047,
  kXRotationOrigin = 100048,
  kYRotationOrigin = 100049,
  kZRotationOrigin = 100050,
};

constexpr int kMaxCodes = 20;
constexpr int kMaxParameters = 10;

// A group of projection codes and the parameters they take beside the false
// origin, which every group has.
struct gx_defaults_group {
  int32_t codes[kMaxCodes];  // closed by 0
  int32_t parameters[kMaxParameters];
};

constexpr gx_defaults_group projection_groups[] = {
    {{43001, 43003, 43008, 43009, 43010, 43011, 43012, 43013, 43014, 43015, 43016, 43017, 43022,
      43029, 43030, 43043, 43044, 43045, 43046, 43048},
     {kCentralMeridian}},
    {{43057}, {kCentralMeridian}},
    {{43002, 43004, 43018, 43019, 43024, 43034, 43042, 43050, 43051},
     {kCentralMeridian, kStandardParallel1}},
    {{43005, 43006, 43026, 43028, 43038, 43056},
     {kCentralMeridian, kLatitudeOfOrigin, kScaleFactor}},
    {{43007, 43027}, {kCentralMeridian, kLatitudeOfOrigin, kStandardParallel1, kStandardParallel2}},
    {{43020},
     {kCentralMeridian, kLatitudeOfOrigin, kStandardParallel1, kStandardParallel2, kScaleFactor}},
    {{43021, 43032, 43033}, {kCentralMeridian, kLatitudeOfOrigin}},
    {{43023}, {kCentralMeridian, kCentralParallel}},
    {{43025, 43035},
     {kLongitudeOf1stPoint, kLatitudeOf1stPoint, kLongitudeOf2ndPoint, kLatitudeOf2ndPoint,
      kLatitudeOfCenter, kScaleFactor}},
    {{43031}, {kLongitudeOf1stPoint, kLongitudeOf2ndPoint, kLatitudeOf1stPoint, kLatitudeOf2ndPoint}},
    {{43036, 43037, 43058}, {kLongitudeOfCenter, kLatitudeOfCenter, kAzimuth, kScaleFactor}},
    {{43039},
     {kLongitudeOfCenter, kLatitudeOfCenter, kPseudoStandardParallel1, kAzimuth, kScaleFactor,
      kXScale, kYScale, kXYPlaneRotation}},
    {{43040}, {kLongitudeOfOrigin, kLatitudeOfOrigin}},
    {{43041, 43047}, {kLongitudeOfCenter, kLatitudeOfCenter}},
    {{43049}, {kLongitudeOfCenter, kLatitudeOfCenter, kHeight}},
    {{43052}, {kOption}},
    {{43053, 43054}, {kLongitudeOfCenter, kLatitudeOfCenter, kAzimuth, kXYPlaneRotation, kScaleFactor}},
    {{43055, 43059}, {kCentralMeridian, kOption}},
    {{43102, 43104}, {kCentralMeridian, kStandardParallel1, kAuxiliarySphereType}},
    {{43103, 43109, 43110, 43112, 43129}, {kCentralMeridian, kAuxiliarySphereType}},
    {{43126}, {kCentralMeridian, kLatitudeOfOrigin, kScaleFactor, kAuxiliarySphereType}},
    {{43132, 43133}, {kCentralMeridian, kLatitudeOfOrigin, kAuxiliarySphereType}},
    {{43141, 43147}, {kLongitudeOfCenter, kLatitudeOfCenter, kAuxiliarySphereType}},
};

constexpr gx_defaults_group method_groups[] = {
    {{9603, 9604, 9605}, {kXAxisTranslation, kYAxisTranslation, kZAxisTranslation}},
    {{9606, 9607, 109607},
     {kXAxisTranslation, kYAxisTranslation, kZAxisTranslation, kXAxisRotation, kYAxisRotation,
      kZAxisRotation, kScaleDifference}},
    {{9636},
     {kXAxisTranslation, kYAxisTranslation, kZAxisTranslation, kXAxisRotation, kYAxisRotation,
      kZAxisRotation, kScaleDifference, kXRotationOrigin, kYRotationOrigin, kZRotationOrigin}},
    {{9613, 9615, 109613}, {kDataset}},
};

const gx_defaults_group* group_of(const gx_defaults_group* groups, size_t count, int32_t code) {
  for (size_t g = 0; g < count; ++g)
    for (int32_t member : groups[g].codes) {
      if (member == 0) break;
      if (member == code) return &groups[g];
    }
  return nullptr;
}

// Places one parameter made from its factory row in its slot.
int place(int32_t code, gx_parameter** parameters) {
  const gx_parmlist_row* row = gx_parmlist_row_from_code(code);
  if (row == nullptr) return 0;
  parameters[row->slot] = gx_parmlist_parameter_from_code(code);
  return parameters[row->slot] != nullptr ? 1 : 0;
}

// Makes the parameters of a group (the false origin first when asked for).
int defaults_make(const int32_t* codes, int count, bool false_origin,
                               gx_parameter** parameters) {
  int made = 0;
  if (false_origin) {
    made += place(kFalseEasting, parameters);
    made += place(kFalseNorthing, parameters);
  }
  for (int k = 0; k < count && codes[k] != 0; ++k) made += place(codes[k], parameters);
  return made;
}

}  // namespace

extern "C" GX_API int gx_parameter_projection_defaults(const gx_projection* projection,
                                                       gx_parameter** parameters) {
  if (parameters == nullptr) return 0;
  for (int slot = 0; slot < 16; ++slot) parameters[slot] = nullptr;
  if (!gx_projection_p(projection)) return 0;
  int32_t code = gx_object_code(projection);
  if (code < 43001 || code > 43147) return 0;
  const gx_defaults_group* group = group_of(
      projection_groups, sizeof projection_groups / sizeof projection_groups[0], code);
  if (group == nullptr) return 0;
  return defaults_make(group->parameters, kMaxParameters, true, parameters);
}

extern "C" GX_API int gx_parameter_method_defaults(const gx_method* method,
                                                   gx_parameter** parameters) {
  if (parameters == nullptr) return 0;
  for (int slot = 0; slot < 16; ++slot) parameters[slot] = nullptr;
  if (!gx_method_p(method)) return 0;
  const gx_defaults_group* group =
      group_of(method_groups, sizeof method_groups / sizeof method_groups[0], gx_object_code(method));
  if (group == nullptr) return 0;
  return defaults_make(group->parameters, kMaxParameters, false, parameters);
}
