// Tiny grid files made by test code, in every record form and byte order,
// under a data home in a temporary directory.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace gx_test {

typedef std::vector<unsigned char> bytes;

// A value per node; row 0 is the southernmost, column 0 the first of a row
// as the file stores it (east for NTv2, west for NADCON).
typedef std::function<float(int row, int column)> node_field;

// f = a + b column + c row + d column row: bilinear on every cell, so that
// interpolation reproduces it exactly and a test can say what it must give.
struct bilinear_field {
  float a, b, c, d;
  bilinear_field(float a_, float b_, float c_, float d_) : a(a_), b(b_), c(c_), d(d_) {}
  node_field nodes() const {
    const bilinear_field f = *this;
    return [f](int row, int column) { return static_cast<float>(f.at(column, row)); };
  }
  operator node_field() const { return nodes(); }
  double at(double column, double row) const { return a + b * column + c * row + d * column * row; }
};

struct ntv2_subgrid {
  std::string name, parent;  // 8 characters at most; "NONE" for a root
  double south, north, east, west;  // file units, longitudes positive west
  double lat_inc, lon_inc;
  node_field lat_shift, lon_shift;  // file units
  int32_t count = -1;              // GS_COUNT written; -1 for rows * columns
};

struct ntv2_file {
  bool padded = true;
  bool swapped = false;  // the other byte order than this machine's
  std::string unit = "SECONDS";
  int32_t records = 11;  // NUM_OREC
  int32_t grid_count = -1;  // NUM_FILE; -1 for the number of grids
  std::vector<ntv2_subgrid> grids;
};

bytes ntv2_bytes(const ntv2_file& file);
int ntv2_rows(const ntv2_subgrid& g);
int ntv2_columns(const ntv2_subgrid& g);

struct nadcon_grid_file {
  int32_t nc = 24, nr = 3;  // at least 23 columns: the header must fit a record
  float xmin = -100.0f, dx = 0.25f, ymin = 40.0f, dy = 0.25f;
  bool swapped = false;
  node_field lon_shift, lat_shift;  // arc-seconds, longitude positive west
};

bytes nadcon_los_bytes(const nadcon_grid_file& grid);
bytes nadcon_las_bytes(const nadcon_grid_file& grid);

// A data home in a fresh temporary directory with the sub-directories
// "nadcon", "harn", "ntv2" and "vertical"; set as the library's home for the
// life of the object, removed with everything in it afterwards.
class temp_datahome {
 public:
  temp_datahome();
  ~temp_datahome();
  const std::string& path() const { return root_; }
  // Writes `data` to <home>/<relative>, making directories on the way.
  void write(const std::string& relative, const bytes& data) const;
  void write_nadcon(const std::string& subdirectory, const std::string& name,
                    const nadcon_grid_file& grid) const;

 private:
  std::string root_;
};

}  // namespace gx_test
