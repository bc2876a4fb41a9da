// Text and number helpers.  Everything here works in caller buffers or in
// small fixed buffers on the stack; nothing allocates and nothing keeps state.
#include "frame/text.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// Digits a double carries in WKT, and the digits of the noise test below.
constexpr int kWktPrecision = 16;
// Largest and smallest precision gx_dtoa accepts; anything else is brought
// into this range so that every printed form fits GX_NUMBER_SIZE bytes.
constexpr int kMinPrecision = 1;
constexpr int kMaxPrecision = 20;
// A plain decimal form longer than this is printed with an exponent instead.
constexpr size_t kMaxPlainLength = 24;
// Below this decimal exponent a number always takes the exponent form.
constexpr int kMinPlainExponent = -9;
// Only values below this exponent are tested for noise in the last digit.
constexpr int kNoiseExponentLimit = 12;
// Scratch for one printed number, larger than any form printed here.
constexpr size_t kScratchSize = 96;
// gx_atod copies a text this long when it must change the decimal character.
constexpr size_t kAtodCopySize = 128;

constexpr char kPathSeparator = '/';

bool is_space(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

// White space, hyphens and underscores do not count in a name.
bool is_name_filler(char c) { return c == '-' || c == '_' || is_space(c); }

int lower(char c) { return std::tolower(static_cast<unsigned char>(c)); }

int upper(char c) { return std::toupper(static_cast<unsigned char>(c)); }

const char* skip_name_filler(const char* s) {
  while (is_name_filler(*s)) s++;
  return s;
}

void replace_char(char* text, char from, char to) {
  for (; *text != '\0'; text++) {
    if (*text == from) *text = to;
  }
}

// Removes trailing '0' characters; a number left ending in its decimal point
// gets one "0" back so that a whole value still reads as a double ("1.0").
// A number without a point loses the zeros of its integer part: the
// 16-integer-digit case relies on exactly this.
void trim_fraction_zeros(char* text) {
  size_t length = strlen(text);
  while (length > 0 && text[length - 1] == '0') text[--length] = '\0';
  if (length > 0 && text[length - 1] == '.') {
    text[length] = '0';
    text[length + 1] = '\0';
  }
}

// Decimal exponent of a "%e" field: found by walking left from three
// characters before its end to the exponent's sign.  Returns the sign's
// position, or -1 when there is none.
int exponent_sign_position(const char* field) {
  int position = static_cast<int>(strlen(field)) - 3;
  while (position >= 0 && field[position] != '+' && field[position] != '-') position--;
  return position;
}

// The last printed digit of a 16-digit mantissa is noise when the two digits
// ahead of it are "00" or "99": then 15 digits show the intended value
// (0.1 + 0.2 prints as 0.3).
bool last_digit_is_noise(const char* field, int sign_position) {
  if (sign_position < 4) return false;
  const char* pair = field + sign_position - 4;
  return (pair[0] == '0' && pair[1] == '0') || (pair[0] == '9' && pair[1] == '9');
}

void print_plain_or_exponent(double value, int p, int e, char* out) {
  int decimals = p - e - 1;
  if (e < 0) {
    if (e >= kMinPlainExponent) {
      gx_snprintf(out, kScratchSize, "%*.*f", p - e + 2, decimals, value);
      trim_fraction_zeros(out);
    }
    if (e < kMinPlainExponent || strlen(out) > kMaxPlainLength) {
      gx_snprintf(out, kScratchSize, "%*.*g", p + 7, p - 1, value);
    }
  } else if (decimals >= 0) {
    gx_snprintf(out, kScratchSize, "%*.*f", p + 2, decimals, value);
    trim_fraction_zeros(out);
  } else {
    gx_snprintf(out, kScratchSize, "%*e", p + 7, value);
  }
}

// Reverses the bytes of each of n words of `size` bytes in place.
void reverse_each_word(void* words, int n, size_t size) {
  if (words == nullptr) return;
  unsigned char* bytes = static_cast<unsigned char*>(words);
  for (int i = 0; i < n; i++, bytes += size) {
    for (size_t low = 0, high = size - 1; low < high; low++, high--) {
      unsigned char byte = bytes[low];
      bytes[low] = bytes[high];
      bytes[high] = byte;
    }
  }
}

}  // namespace

extern "C" char* gx_dtoa(double value, char* buffer, int precision) {
  if (buffer == nullptr) return nullptr;
  if (precision < kMinPrecision) precision = kMinPrecision;
  if (precision > kMaxPrecision) precision = kMaxPrecision;
  char out[kScratchSize];
  if (!std::isfinite(value)) {
    // No exponent to find: the runtime's own "nan", "inf", "-inf", which
    // gx_atod reads back.
    gx_snprintf(out, sizeof out, "%e", value);
  } else {
    bool wkt = precision == kWktPrecision;
    int width = wkt ? kWktPrecision - 1 + 8 : precision + 8;
    int digits = wkt ? kWktPrecision - 1 : precision;
    char field[kScratchSize];
    gx_snprintf(field, sizeof field, "%*.*e", width, digits, value);
    int sign_position = exponent_sign_position(field);
    int e = sign_position < 0 ? 0 : atoi(field + sign_position);
    int p = precision;
    if (wkt && e < kNoiseExponentLimit && last_digit_is_noise(field, sign_position)) p = precision - 1;
    print_plain_or_exponent(value, p, e, out);
  }
  gx_trim(out);
  if (gx_decimal_char() != '.') replace_char(out, gx_decimal_char(), '.');
  gx_name_copy(buffer, out, GX_NUMBER_SIZE);
  return buffer;
}

extern "C" double gx_atod(const char* text) {
  if (text == nullptr || *text == '\0') return 0.0;
  if (gx_decimal_char() == '.') return atof(text);
  char copy[kAtodCopySize];
  gx_name_copy(copy, text, sizeof copy);
  replace_char(copy, '.', gx_decimal_char());
  return atof(copy);
}

char gx_decimal_char() { return '.'; }

int gx_name_ncompare(const char* a, const char* b, size_t n) {
  if (n == 0) return 0;
  if (a == nullptr) a = "";
  if (b == nullptr) b = "";
  size_t matched = 0;
  for (;;) {
    a = skip_name_filler(a);
    b = skip_name_filler(b);
    int ca = lower(*a);
    int cb = lower(*b);
    if (ca != cb || ca == 0) return ca - cb;
    if (++matched == n) return 0;
    a++;
    b++;
  }
}

int gx_name_compare(const char* a, const char* b) { return gx_name_ncompare(a, b, SIZE_MAX); }

int gx_name_prefix(const char* text, const char* keyword) {
  size_t significant = 0;
  for (const char* k = keyword ? keyword : ""; *k != '\0'; k++) {
    if (!is_name_filler(*k)) significant++;
  }
  return gx_name_ncompare(text, keyword, significant);
}

const char* gx_name_search(const char* text, const char* keyword) {
  if (text == nullptr) return nullptr;
  if (keyword == nullptr || *keyword == '\0') return text;
  size_t text_length = strlen(text);
  size_t keyword_length = strlen(keyword);
  if (keyword_length > text_length) return nullptr;
  int first = lower(keyword[0]);
  for (size_t i = 0; i <= text_length - keyword_length; i++) {
    if (lower(text[i]) == first && gx_name_ncompare(text + i, keyword, keyword_length) == 0) {
      return text + i;
    }
  }
  return nullptr;
}

int gx_type_name_compare(const char* a, const char* b) {
  if (a == nullptr) a = "";
  if (b == nullptr) b = "";
  for (;; a++, b++) {
    int ca = *a == '-' ? '_' : upper(*a);
    int cb = *b == '-' ? '_' : upper(*b);
    if (ca != cb || ca == 0) return ca - cb;
  }
}

size_t gx_name_copy(char* destination, const char* source, size_t size) {
  if (destination == nullptr || size == 0) return 0;
  size_t count = 0;
  if (source != nullptr) {
    while (count + 1 < size && source[count] != '\0') {
      destination[count] = source[count];
      count++;
    }
  }
  destination[count] = '\0';
  return count;
}

size_t gx_name_upper(char* destination, const char* source) {
  if (destination == nullptr) return 0;
  size_t count = 0;
  if (source != nullptr) {
    for (; source[count] != '\0'; count++) destination[count] = static_cast<char>(upper(source[count]));
  }
  destination[count] = '\0';
  return count;
}

int gx_digits_p(const char* text) {
  if (text == nullptr) return 1;
  for (; *text != '\0'; text++) {
    if (!std::isdigit(static_cast<unsigned char>(*text))) return 0;
  }
  return 1;
}

char* gx_trim_right(char* text) {
  if (text == nullptr) return nullptr;
  size_t length = strlen(text);
  while (length > 0 && is_space(text[length - 1])) length--;
  text[length] = '\0';
  return text;
}

char* gx_trim_left(char* text) {
  if (text == nullptr) return nullptr;
  while (is_space(*text)) text++;
  return gx_trim_right(text);
}

char* gx_trim(char* text) {
  char* start = gx_trim_left(text);
  if (start != text) memmove(text, start, strlen(start) + 1);
  return text;
}

const char* gx_alias_lookup(const gx_alias* table, const char* name) {
  if (table == nullptr) return name;
  for (; table->old_name != nullptr; table++) {
    if (gx_name_compare(table->old_name, name) == 0) return table->new_name;
  }
  return name;
}

int gx_vsnprintf(char* buffer, size_t size, const char* format, va_list args) {
  if (buffer == nullptr || size == 0) return 0;
  buffer[0] = '\0';
  if (format == nullptr) return 0;
  int count = vsnprintf(buffer, size, format, args);
  if (count < 0) {
    buffer[0] = '\0';
    return 0;
  }
  buffer[size - 1] = '\0';
  if (static_cast<size_t>(count) >= size) return static_cast<int>(size - 1);
  return count;
}

int gx_snprintf(char* buffer, size_t size, const char* format, ...) {
  va_list args;
  va_start(args, format);
  int count = gx_vsnprintf(buffer, size, format, args);
  va_end(args);
  return count;
}

// Both separators split: a data set name may use either, whatever the host.
const char* gx_path_basename(const char* path) {
  if (path == nullptr) return nullptr;
  const char* base = path;
  for (const char* p = path; *p != '\0'; p++) {
    if (*p == '/' || *p == '\\') base = p + 1;
  }
  return base;
}

const char* gx_path_extension(const char* path) {
  if (path == nullptr) return nullptr;
  const char* dot = strrchr(gx_path_basename(path), '.');
  return dot ? dot + 1 : nullptr;
}

char* gx_path_force_extension(char* path, const char* extension) {
  if (path == nullptr || extension == nullptr) return path;
  if (*extension == '.') extension++;
  const char* current = gx_path_extension(path);
  if (current != nullptr && strcmp(current, extension) == 0) return path;
  size_t length = strlen(path);
  path[length] = '.';
  strcpy(path + length + 1, extension);
  return path;
}

char* gx_path_join(char* directory, const char* name) {
  if (directory == nullptr || name == nullptr) return directory;
  size_t length = strlen(directory);
  // An empty directory gets no separator: the name stays relative.
  if (length > 0 && directory[length - 1] != kPathSeparator) directory[length++] = kPathSeparator;
  strcpy(directory + length, name);
  return directory;
}

int gx_wide_from_narrow(gx_wchar* destination, const char* source, int count) {
  if (destination == nullptr) return 0;
  int written = 0;
  if (source != nullptr) {
    while ((count < 0 || written < count) && source[written] != '\0') {
      destination[written] = static_cast<unsigned char>(source[written]);
      written++;
    }
  }
  destination[written] = 0;
  return written;
}

void gx_narrow_from_wide(char* destination, const gx_wchar* source, int count) {
  if (destination == nullptr) return;
  int written = 0;
  if (source != nullptr) {
    while ((count < 0 || written < count) && source[written] != 0) {
      destination[written] = static_cast<char>(source[written] & 0xFF);
      written++;
    }
  }
  destination[written] = '\0';
}

void gx_swap32_array(void* words, int n) { reverse_each_word(words, n, 4); }

// Reversing the bytes of each half and then exchanging the halves reverses
// all eight bytes.
void gx_swap64_array(void* values, int n) { reverse_each_word(values, n, 8); }

void gx_nan(double* out) {
  if (out == nullptr) return;
  const uint64_t bits = 0x7FF8000000000001ull;
  memcpy(out, &bits, sizeof bits);
}
