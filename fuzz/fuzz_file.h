// Grid readers take files: the harnesses write each input below a data home
// of their own and load it from there.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/stat.h>

#include "methods/datahome.h"

namespace gx_fuzz {

// A data home made once per process, memory-backed where possible.
inline const std::string& home() {
  static std::string path = [] {
    char pattern[] = "/dev/shm/gx_fuzz_XXXXXX";
    char fallback[] = "/tmp/gx_fuzz_XXXXXX";
    const char* made = mkdtemp(pattern);
    if (made == nullptr) made = mkdtemp(fallback);
    std::string root = made != nullptr ? made : "/tmp";
    for (const char* sub : {"/nadcon", "/harn", "/ntv2"}) mkdir((root + sub).c_str(), 0700);
    return root;
  }();
  gx_datahome_setdir(path.c_str());
  return path;
}

inline void write_file(const std::string& relative, const uint8_t* data, size_t size) {
  FILE* file = fopen((home() + "/" + relative).c_str(), "wb");
  if (file == nullptr) abort();
  if (size > 0) fwrite(data, 1, size, file);
  fclose(file);
}

}  // namespace gx_fuzz
