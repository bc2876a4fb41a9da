// The message table and the message hook.
#include "frame/diagnostics.h"

#include <cstdarg>
#include <cstdio>

#include "frame/text.h"

namespace {

struct gx_message {
  uint16_t code;
  uint8_t category;
  uint8_t severity;
  const char* format;
};

constexpr uint8_t MEM = GX_CAT_MEMORY;
constexpr uint8_t TRN = GX_CAT_TRANSFORM;
constexpr uint8_t FAC = GX_CAT_FACTORY;
constexpr uint8_t ARG = GX_CAT_ARGUMENT;
constexpr uint8_t WKT = GX_CAT_WKT;
constexpr uint8_t ERR = GX_SEV_ERROR;
constexpr uint8_t WRN = GX_SEV_WARNING;

// Every message of the library.  Where a number has a second wording, it is
// the next row with the same number.  Numbers are printed into messages as
// text (gx_dtoa), which is why double placeholders are %s.
constexpr gx_message messages[] = {
    {1, MEM, ERR, "No memory"},
    {217, FAC, ERR, "Invalid projection factory code (%d)"},
    {218, FAC, ERR, "Invalid parameter factory code (%d)"},
    {301, ARG, ERR, "Longitude argument (%s) is < -180 or < 180"},
    {302, ARG, ERR, "Semimajor axis argument (%s) is <= 0"},
    {303, ARG, ERR, "Flattening argument (%s) is < 0 or > 1"},
    {304, ARG, ERR, "Unit factor argument (%s) is <= 0"},
    {305, ARG, ERR, "Invalid method name \"%s\""},
    {306, ARG, ERR, "Invalid htmethod name \"%s\""},
    {307, ARG, ERR, "Invalid vtmethod name \"%s\""},
    {309, ARG, ERR, "Invalid projection name \"%s\""},
    {310, ARG, ERR, "Invalid num_values argument (%d) for array"},
    {311, ARG, ERR, "Invalid authority code argument (%d)"},
    {312, ARG, ERR, "Invalid coordsys type for vtmethod"},
    {320, ARG, ERR, "Null or invalid authority name argument"},
    {321, ARG, ERR, "Null or invalid vdatum name argument"},
    {322, ARG, ERR, "Null or invalid angular unit object argument"},
    {323, ARG, ERR, "Null or invalid linear unit object argument"},
    {324, ARG, ERR, "Null or invalid unit object argument"},
    {325, ARG, ERR, "Null or invalid array object argument"},
    {326, ARG, ERR, "Null values array argument"},
    {327, ARG, ERR, "Null or invalid spheroid object argument"},
    {328, ARG, ERR, "Null or invalid projection object argument"},
    {329, ARG, ERR, "Null or invalid primem object argument"},
    {330, ARG, ERR, "Null parameters array argument"},
    {331, ARG, ERR, "Null or invalid geogcs object argument"},
    {331, ARG, ERR, "Null or invalid geographic CS object argument"},
    {332, ARG, ERR, "Null or invalid geogcs1 object argument"},
    {333, ARG, ERR, "Null or invalid geogcs2 object argument"},
    {334, ARG, ERR, "Null or invalid datum object argument"},
    {335, ARG, ERR, "Null or invalid method object argument"},
    {336, ARG, ERR, "Null or invalid htmethod object argument"},
    {337, ARG, ERR, "Null or invalid hvdatum object argument"},
    {338, ARG, ERR, "Null or invalid coordsys object argument"},
    {338, ARG, ERR, "Invalid coordsys object argument"},
    {339, ARG, ERR, "Null or invalid coordsys and vertcs object arguments"},
    {340, ARG, ERR, "Null forward or inverse function argument"},
    {340, ARG, ERR, "Null forward or inverse function arument"},
    {341, ARG, ERR, "Null or invalid vertcs1 object argument"},
    {342, ARG, ERR, "Null or invalid vertcs2 object argument"},
    {343, ARG, ERR, "Null or invalid vtmethod object argument"},
    {401, WKT, ERR, "Duplicate unit in WKT string"},
    {401, WKT, ERR, "Duplicate angular unit in WKT string"},
    {402, WKT, ERR, "Duplicate array in WKT string"},
    {403, WKT, ERR, "Duplicate authority in WKT string"},
    {404, WKT, ERR, "Duplicate coordsys in WKT string"},
    {405, WKT, ERR, "Duplicate datum in WKT string"},
    {406, WKT, ERR, "Duplicate geographic CS in WKT string"},
    {407, WKT, ERR, "Duplicate htmethod in WKT string"},
    {408, WKT, ERR, "Duplicate hvdatum in WKT string"},
    {409, WKT, ERR, "Duplicate linear unit in WKT string"},
    {410, WKT, ERR, "Duplicate method in WKT string"},
    {411, WKT, ERR, "Duplicate parameter \"%s\" in WKT string"},
    {412, WKT, ERR, "Duplicate primem in WKT string"},
    {414, WKT, ERR, "Duplicate projection in WKT string"},
    {415, WKT, ERR, "Duplicate spheroid in WKT string"},
    {416, WKT, ERR, "Duplicate unit in WKT string"},
    {417, WKT, ERR, "Duplicate vtmethod in WKT string"},
    {418, WKT, ERR, "Duplicate vertcs in WKT string"},
    {418, WKT, ERR, "Duplicate vertical CS in WKT string"},
    {419, WKT, ERR, "Longitude (%s) in WKT string is < -180 or > 180"},
    {420, WKT, ERR, "Semimajor axis (%s) in WKT string is <= 0"},
    {421, WKT, ERR, "Flattening inverse (%s) in WKT string is not 0 and is < 1"},
    {422, WKT, ERR, "Unit factor (%s) in WKT string is <= 0"},
    {423, WKT, ERR, "Invalid parameter name \"%s\" in WKT string"},
    {424, WKT, ERR, "Parameter \"%s\" in WKT string is not valid for %s"},
    {425, WKT, ERR, "Num_values (%d) in WKT string is != number of values (%d)"},
    {426, WKT, ERR, "Invalid object type (%06x)"},
    {427, WKT, ERR, "Missing angular unit in WKT string"},
    {428, WKT, ERR, "Missing array in WKT string"},
    {429, WKT, ERR, "Missing coordsys in WKT string"},
    {430, WKT, ERR, "Missing both coordsys and vertcs in WKT string"},
    {431, WKT, ERR, "Missing datum in WKT string"},
    {432, WKT, WRN, "Missing direction parameter in WKT string"},
    {433, WKT, ERR, "Missing geographic CS in WKT string"},
    {434, WKT, ERR, "Missing geogcs1 in WKT string"},
    {435, WKT, ERR, "Missing geogcs2 in WKT string"},
    {436, WKT, ERR, "Missing htmethod in WKT string"},
    {437, WKT, ERR, "Missing hvdatum in WKT string"},
    {438, WKT, ERR, "Missing linear unit in WKT string"},
    {439, WKT, ERR, "Missing method in WKT string"},
    {440, WKT, ERR, "Missing prime meridian in WKT string"},
    {441, WKT, ERR, "Missing projection in WKT string"},
    {442, WKT, ERR, "Missing spheroid in WKT string"},
    {443, WKT, ERR, "Missing vertcs1 in WKT string"},
    {444, WKT, ERR, "Missing vertcs2 in WKT string"},
    {445, WKT, ERR, "Missing vtmethod in WKT string"},
    {446, WKT, ERR, "Missing unit in WKT string"},
    {447, WKT, WRN, "Missing vertical shift parameter in WKT string"},
    {448, WKT, ERR, "Missing num_values in WKT string"},
    {449, WKT, ERR, "Missing longitude in WKT string"},
    {450, WKT, ERR, "Missing parameter value in WKT string"},
    {451, WKT, ERR, "Missing semimajor axis in WKT string"},
    {452, WKT, ERR, "Missing flattening in WKT string"},
    {453, TRN, ERR, "Missing parameter for method \"%s\" in WKT string"},
    {454, TRN, ERR, "Extra parameter for method \"%s\" in WKT string"},
    {455, WKT, ERR, "Missing unit conversion factor in WKT string"},
    {456, WKT, ERR, "Null WKT string"},
    {457, WKT, WRN, "Empty WKT string"},
    {458, WKT, ERR, "Expecting ',' or ']' in WKT string"},
    {459, WKT, ERR, "Insufficient tokens in WKT string"},
    {459, WKT, ERR, "insufficient tokens"},
    {460, WKT, ERR, "Invalid object level in WKT string"},
    {460, WKT, ERR, "Invalid object level"},
    {461, WKT, ERR, "Unrecognized object keyword \"%s\" in WKT string"},
    {462, WKT, ERR, "Token start (%d) in WKT string is out of range"},
    {462, WKT, ERR, "Token start (%d) int WKT string is out of range"},
    {463, WKT, ERR, "WKT string must start with a letter"},
    {464, WKT, WRN, "Missing %d closing ] character%s in WKT string"},
    {465, WKT, ERR, "Name not found in WKT string"},
    {466, WKT, ERR, "Object type keyword \"%s\" not found in WKT string"},
    {467, WKT, ERR, "WKT string length exceeds %d characters"},
    {468, WKT, ERR, "Token count in WKT string exceeds %d"},
    {469, WKT, ERR, "Unbalanced quotes in WKT string"},
};

const gx_message* find_message(uint32_t code, int variant) {
  for (const gx_message& m : messages) {
    if (m.code != code) continue;
    if (variant == 0) return &m;
    --variant;
  }
  return nullptr;
}

// The hook: the only process-wide state of the frame.
struct gx_hook {
  gx_msg_callback callback;
  void* user_data;
  uint32_t severity_mask;
  uint32_t category_mask;
};
gx_hook hook = {nullptr, nullptr, 0, 0};

void report_variant(gx_errext* record, uint32_t code, int variant, const char* function,
                    va_list args) {
  const gx_message* m = find_message(code, variant);
  if (m == nullptr) return;
  char text[GX_ERREXT_MESSAGE_SIZE];
  gx_vsnprintf(text, sizeof text, m->format, args);
  gx_errext_set(record, m->severity, m->category, code, function, text);
}

}  // namespace

uint32_t gx_message_vformat(char* text, size_t size, uint32_t code, int variant, va_list args) {
  const gx_message* m = find_message(code, variant);
  if (m == nullptr) return 0;
  gx_vsnprintf(text, size, m->format, args);
  return m->severity;
}

gx_function_name::gx_function_name(const char* family, const char* operation) {
  gx_snprintf(text, sizeof text, "%s%s", family, operation);
}

void gx_report(gx_errext* record, uint32_t code, const char* function, ...) {
  va_list args;
  va_start(args, function);
  report_variant(record, code, 0, function, args);
  va_end(args);
}

void gx_report_alt(gx_errext* record, uint32_t code, const char* function, ...) {
  va_list args;
  va_start(args, function);
  report_variant(record, code, 1, function, args);
  va_end(args);
}

void gx_report_severity(gx_errext* record, uint32_t severity, uint32_t code,
                        const char* function, ...) {
  const gx_message* m = find_message(code, 0);
  if (m == nullptr) return;
  char text[GX_ERREXT_MESSAGE_SIZE];
  va_list args;
  va_start(args, function);
  gx_vsnprintf(text, sizeof text, m->format, args);
  va_end(args);
  gx_errext_set(record, severity, m->category, code, function, text);
}

void gx_errext_set(gx_errext* record, uint32_t severity, uint32_t category, uint32_t code,
                   const char* function, const char* message) {
  record->severity = severity;
  record->category = category;
  record->code = code;
  gx_name_copy(record->function, function, sizeof record->function);
  gx_name_copy(record->message, message, sizeof record->message);
  gx_msg_dispatch(record);
}

void gx_errext_setf(gx_errext* record, uint32_t severity, uint32_t category, uint32_t code,
                    const char* function, const char* format, ...) {
  char text[GX_ERREXT_MESSAGE_SIZE];
  va_list args;
  va_start(args, format);
  gx_vsnprintf(text, sizeof text, format, args);
  va_end(args);
  gx_errext_set(record, severity, category, code, function, text);
}

void gx_msg_dispatch(const gx_errext* record) {
  if (hook.callback == nullptr) return;
  if ((record->severity & hook.severity_mask) == 0) return;
  if ((record->category & hook.category_mask) == 0) return;
  hook.callback(hook.user_data, record);
}

extern "C" {

GX_API void gx_errext_clear(gx_errext* record) {
  if (record == nullptr) return;
  record->severity = 0;
  record->category = 0;
  record->code = 0;
  record->function[0] = '\0';
  record->message[0] = '\0';
}

// The callback and user pointer are stored first, so that a null callback
// also clears the user pointer; a mask of -1 stays as it stood.
GX_API void gx_msg_setrtn(void* user_data, int32_t severity_mask, int32_t category_mask,
                          gx_msg_callback callback) {
  hook.callback = callback;
  hook.user_data = callback != nullptr ? user_data : nullptr;
  if (severity_mask != -1)
    hook.severity_mask = callback != nullptr ? static_cast<uint32_t>(severity_mask) : 0;
  if (category_mask != -1)
    hook.category_mask = callback != nullptr ? static_cast<uint32_t>(category_mask) : 0;
}

GX_API void gx_msg_getrtn(void** user_data, int32_t* severity_mask, int32_t* category_mask,
                          gx_msg_callback* callback) {
  if (user_data != nullptr) *user_data = hook.user_data;
  if (severity_mask != nullptr) *severity_mask = static_cast<int32_t>(hook.severity_mask);
  if (category_mask != nullptr) *category_mask = static_cast<int32_t>(hook.category_mask);
  if (callback != nullptr) *callback = hook.callback;
}

}  // extern "C"
