// Helpers for the object family tests: owning pointers, reading with a
// record, and printing at an authority option.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>

#include "gx_objects.h"

struct ObjectDeleter {
  void operator()(void* obj) const { gx_object_del(obj); }
};
template <class T>
using ObjectPtr = std::unique_ptr<T, ObjectDeleter>;

// The WKT of any object at an authority option.
inline std::string Wkt(const void* obj, int option = GX_WKT_NO_AUTHORITY) {
  char text[GX_WKT_SIZE];
  return gx_object_to_string_ext(obj, option, text);
}

inline std::string Name(const void* obj) {
  char name[GX_NAME_SIZE];
  return gx_object_name(obj, name);
}

// A text that a family refuses: the record's code, function and words.
struct ReadFailure {
  const char* text;
  uint32_t code;
  const char* function;
  const char* message;
};

inline std::ostream& operator<<(std::ostream& out, const ReadFailure& failure) {
  return out << failure.text;
}

// Reads with a record through Read and checks the failure it reports.
template <class T>
void ExpectReadFailure(T* (*read)(const char*, gx_errext*), const ReadFailure& failure) {
  gx_errext record;
  T* obj = read(failure.text, &record);
  EXPECT_EQ(obj, nullptr) << failure.text;
  gx_object_del(obj);
  EXPECT_EQ(record.code, failure.code) << failure.text;
  EXPECT_EQ(record.severity, GX_SEV_ERROR) << failure.text;
  EXPECT_STREQ(record.function, failure.function) << failure.text;
  EXPECT_STREQ(record.message, failure.message) << failure.text;
}

// Reading every prefix of a text (a text cut anywhere) never crashes nor
// leaks, and gives either null or an object of the expected type.
inline void ExpectEveryPrefixIsSafe(const std::string& text, uint32_t type) {
  for (size_t length = 0; length <= text.size(); ++length) {
    std::string cut = text.substr(0, length);
    void* obj = gx_object_from_string(cut.c_str());
    if (obj != nullptr) {
      EXPECT_EQ(gx_object_type(obj), type) << cut;
    }
    gx_object_del(obj);
  }
}
