#include "grid_files.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "methods/datahome.h"

namespace gx_test {

namespace {

// Appends values in this machine's order, or reversed when `swapped`.
struct byte_writer {
  bytes out;
  bool swapped;

  void raw(const void* data, size_t size, bool reverse_bytes) {
    const unsigned char* p = static_cast<const unsigned char*>(data);
    for (size_t i = 0; i < size; ++i) out.push_back(reverse_bytes ? p[size - 1 - i] : p[i]);
  }
  void text(const std::string& s, size_t size) {
    std::string padded = s;
    padded.resize(size, ' ');
    raw(padded.data(), size, false);
  }
  void i32(int32_t v) { raw(&v, 4, swapped); }
  void f32(float v) { raw(&v, 4, swapped); }
  void f64(double v) { raw(&v, 8, swapped); }
  void zeros(size_t n) { out.insert(out.end(), n, 0); }
};

// One NTv2 record: keyword, then the value.
struct record_writer {
  byte_writer w;
  bool padded;

  void integer(const char* keyword, int32_t v) {
    w.text(keyword, 8);
    w.i32(v);
    if (padded) w.zeros(4);
  }
  void text(const char* keyword, const std::string& v) {
    w.text(keyword, 8);
    w.text(v, 8);
  }
  void number(const char* keyword, double v) {
    w.text(keyword, 8);
    w.f64(v);
  }
};

int node_lines(double from, double to, double increment) {
  const double lines = std::fabs(to - from) / increment + 1.5;
  return lines < 1e6 ? static_cast<int>(lines) : 0;  // no lines for a broken header
}

bytes nadcon_bytes(const nadcon_grid_file& g, const node_field& field) {
  byte_writer w{{}, g.swapped};
  const size_t reclen = (g.nc + 1) * 4;
  w.text("NADCON EXTRACTED REGION  TEST GRID", 56);
  w.text("NADGRD", 8);
  w.i32(g.nc);
  w.i32(g.nr);
  w.i32(1);
  w.f32(g.xmin);
  w.f32(g.dx);
  w.f32(g.ymin);
  w.f32(g.dy);
  w.f32(0.0f);
  w.zeros(reclen - w.out.size());
  for (int row = 0; row < g.nr; ++row) {
    w.i32(0);
    for (int col = 0; col < g.nc; ++col) w.f32(field(row, col));
  }
  return w.out;
}

}  // namespace

int ntv2_rows(const ntv2_subgrid& g) { return node_lines(g.south, g.north, g.lat_inc); }
int ntv2_columns(const ntv2_subgrid& g) { return node_lines(g.east, g.west, g.lon_inc); }

bytes ntv2_bytes(const ntv2_file& file) {
  record_writer r{{{}, file.swapped}, file.padded};
  r.integer("NUM_OREC", file.records);
  r.integer("NUM_SREC", 11);
  r.integer("NUM_FILE", file.grid_count >= 0 ? file.grid_count
                                             : static_cast<int32_t>(file.grids.size()));
  r.text("GS_TYPE ", file.unit);
  r.text("VERSION ", "NTv2.0");
  r.text("SYSTEM_F", "TEST_F");
  r.text("SYSTEM_T", "TEST_T");
  r.number("MAJOR_F", 6378206.4);
  r.number("MINOR_F", 6356583.8);
  r.number("MAJOR_T", 6378137.0);
  r.number("MINOR_T", 6356752.314);
  for (const ntv2_subgrid& g : file.grids) {
    const int rows = ntv2_rows(g), columns = ntv2_columns(g);
    const int32_t count = g.count >= 0 ? g.count : rows * columns;
    r.text("SUB_NAME", g.name);
    r.text("PARENT  ", g.parent);
    r.text("CREATED ", "20240101");
    r.text("UPDATED ", "20240102");
    r.number("S_LAT   ", g.south);
    r.number("N_LAT   ", g.north);
    r.number("E_LONG  ", g.east);
    r.number("W_LONG  ", g.west);
    r.number("LAT_INC ", g.lat_inc);
    r.number("LONG_INC", g.lon_inc);
    r.integer("GS_COUNT", count);
    // A count beyond the nodes is written as it is, without the nodes.
    const int32_t written = count < rows * columns ? count : rows * columns;
    for (int k = 0; k < written; ++k) {
      const int row = k / columns, column = k % columns;
      r.w.f32(g.lat_shift(row, column));
      r.w.f32(g.lon_shift(row, column));
      r.w.f32(0.01f);
      r.w.f32(0.02f);
    }
  }
  r.w.text("END     ", 8);
  r.w.zeros(8);
  return r.w.out;
}

bytes nadcon_los_bytes(const nadcon_grid_file& grid) { return nadcon_bytes(grid, grid.lon_shift); }
bytes nadcon_las_bytes(const nadcon_grid_file& grid) { return nadcon_bytes(grid, grid.lat_shift); }

temp_datahome::temp_datahome() {
  // Memory-backed when the machine has it: the malformed-file tests write
  // hundreds of small files.
  std::string pattern = std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : "/tmp";
  pattern += "/gx_datahome_XXXXXX";
  const char* made = mkdtemp(pattern.data());
  root_ = made != nullptr ? made : "";
  for (const char* sub : {"nadcon", "harn", "ntv2", "vertical"}) {
    std::filesystem::create_directories(root_ + "/" + sub);
  }
  gx_datahome_setdir(root_.c_str());
}

temp_datahome::~temp_datahome() {
  gx_datahome_forget();
  std::error_code ignored;
  if (!root_.empty()) std::filesystem::remove_all(root_, ignored);
}

void temp_datahome::write(const std::string& relative, const bytes& data) const {
  const std::filesystem::path path = root_ + "/" + relative;
  std::filesystem::create_directories(path.parent_path());
  FILE* file = fopen(path.c_str(), "wb");
  ASSERT_NE(file, nullptr) << path;
  if (!data.empty()) fwrite(data.data(), 1, data.size(), file);
  fclose(file);
}

void temp_datahome::write_nadcon(const std::string& subdirectory, const std::string& name,
                                 const nadcon_grid_file& grid) const {
  write(subdirectory + "/" + name + ".los", nadcon_los_bytes(grid));
  write(subdirectory + "/" + name + ".las", nadcon_las_bytes(grid));
}

}  // namespace gx_test
