// Text and number helpers shared by the whole library: the one name
// comparison, bounded copies, formatted text, paths, 16-bit text, byte order.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>

#include "gx_frame.h"

// Compares names blind to case, white space, hyphens and underscores; 0 when
// the first n significant characters agree (n of 0 gives 0).  Null is "".
int gx_name_ncompare(const char* a, const char* b, size_t n);
int gx_name_compare(const char* a, const char* b);
// 0 when text starts with keyword (significant characters only).
int gx_name_prefix(const char* text, const char* keyword);
// First place in text where keyword begins, or null.
const char* gx_name_search(const char* text, const char* keyword);
// Names of types and statuses: case blind, '-' as '_', nothing skipped.
int gx_type_name_compare(const char* a, const char* b);
// Copies at most size - 1 characters and always terminates; returns the count.
size_t gx_name_copy(char* destination, const char* source, size_t size);
size_t gx_name_upper(char* destination, const char* source);
int gx_digits_p(const char* text);
char* gx_trim_right(char* text);
char* gx_trim_left(char* text);
char* gx_trim(char* text);

// A table of (old name, new name) pairs closed by a null pair.
struct gx_alias {
  const char* old_name;
  const char* new_name;
};
const char* gx_alias_lookup(const gx_alias* table, const char* name);

int gx_vsnprintf(char* buffer, size_t size, const char* format, va_list args);
int gx_snprintf(char* buffer, size_t size, const char* format, ...)
    __attribute__((format(printf, 3, 4)));

char gx_decimal_char();

const char* gx_path_basename(const char* path);
const char* gx_path_extension(const char* path);
char* gx_path_force_extension(char* path, const char* extension);
char* gx_path_join(char* directory, const char* name);

// Character by character, no code page; count -1 means no limit.
int gx_wide_from_narrow(gx_wchar* destination, const char* source, int count);
void gx_narrow_from_wide(char* destination, const gx_wchar* source, int count);

void gx_swap32_array(void* words, int n);
void gx_swap64_array(void* values, int n);

// Stores the quiet NaN 0x7FF8000000000001 that marks a point without an image.
void gx_nan(double* out);
