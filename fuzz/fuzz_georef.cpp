// Feeds arbitrary bytes to the GEOREF reader, as 8-bit and as 16-bit text,
// and arbitrary doubles, precisions and rounding flags to the writer.  Every
// text the writer makes in the regular length must read back.
#include <cstdint>
#include <cstring>
#include <string>

#include "gridref/georef_codec.h"

namespace {

constexpr double kDegree = 0.017453292519943295;

void read_text(const uint8_t* data, size_t size) {
  std::string text(reinterpret_cast<const char*>(data), size);
  const char* strings[1] = {text.c_str()};
  double coords[2];
  gx_georef_decode(kDegree, 1, strings, coords);

  std::u16string wide;
  for (size_t i = 0; i + 1 < size; i += 2) wide += static_cast<char16_t>(data[i] | data[i + 1] << 8);
  const gx_wchar* wide_strings[1] = {reinterpret_cast<const gx_wchar*>(wide.c_str())};
  gx_georef_decode(kDegree, 1, wide_strings, coords);
}

void write_point(const uint8_t* data, size_t size) {
  double point[2];
  int32_t options[2];
  if (size < sizeof point + sizeof options) return;
  memcpy(point, data, sizeof point);
  memcpy(options, data + sizeof point, sizeof options);
  int precision = options[0] % 16;
  char text[GX_GEOREF_SIZE];
  char* strings[1] = {text};
  if (gx_georef_encode(kDegree, 1, point, precision, options[1] & 1, strings) != 1) return;
  if (strlen(text) >= GX_GEOREF_SIZE) __builtin_trap();
  int clamped = precision < GX_GEOREF_MIN_PRECISION   ? GX_GEOREF_MIN_PRECISION
                : precision > GX_GEOREF_MAX_PRECISION ? GX_GEOREF_MAX_PRECISION
                                                      : precision;
  const char* texts[1] = {text};
  double back[2];
  int read = gx_georef_decode(kDegree, 1, texts, back);
  if (strlen(text) == static_cast<size_t>(4 + 2 * clamped) && read != 1) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  read_text(data, size);
  write_point(data, size);
  return 0;
}
