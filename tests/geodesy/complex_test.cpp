// Complex helpers against std::complex, which uses the same principal
// branches.
#include <gtest/gtest.h>

#include <complex>

#include "geodesy/complex.h"

namespace {

using std_complex = std::complex<double>;
using unary = gx_complex* (*)(gx_complex, gx_complex*);

void expect_near(const gx_complex& got, const std_complex& want, const char* what) {
  EXPECT_NEAR(got.re, want.real(), 1e-14 * (1.0 + std::abs(want))) << what;
  EXPECT_NEAR(got.im, want.imag(), 1e-14 * (1.0 + std::abs(want))) << what;
}

constexpr gx_complex kSamples[] = {{0.3, 0.4}, {-1.2, 0.7}, {0.5, -2.0}, {-0.1, -0.05}, {2.5, 0.0}};

TEST(Complex, Arithmetic) {
  for (const gx_complex& a : kSamples) {
    for (const gx_complex& b : kSamples) {
      std_complex sa(a.re, a.im), sb(b.re, b.im);
      gx_complex r;
      expect_near(*gx_cplx_add(a, b, &r), sa + sb, "add");
      expect_near(*gx_cplx_sub(a, b, &r), sa - sb, "sub");
      expect_near(*gx_cplx_mul(a, b, &r), sa * sb, "mul");
      expect_near(*gx_cplx_div(a, b, &r), sa / sb, "div");
    }
  }
}

TEST(Complex, ResultMayBeAnOperand) {
  gx_complex z{1.0, 2.0};
  EXPECT_EQ(gx_cplx_mul(z, z, &z), &z);
  EXPECT_EQ(z.re, -3.0);
  EXPECT_EQ(z.im, 4.0);
}

TEST(Complex, SmithDivisionAvoidsOverflow) {
  gx_complex r;
  gx_cplx_div(gx_complex{1e300, 1e300}, gx_complex{1e300, 1e300}, &r);
  EXPECT_DOUBLE_EQ(r.re, 1.0);
  EXPECT_EQ(r.im, 0.0);
  gx_cplx_div(gx_complex{1.0, 0.0}, gx_complex{0.0, 2.0}, &r);
  EXPECT_EQ(r.re, 0.0);
  EXPECT_EQ(r.im, -0.5);
}

TEST(Complex, Functions) {
  struct Case {
    unary fn;
    std_complex (*reference)(const std_complex&);
    const char* name;
  };
  const Case cases[] = {
      {gx_cplx_exp, [](const std_complex& z) { return std::exp(z); }, "exp"},
      {gx_cplx_log, [](const std_complex& z) { return std::log(z); }, "log"},
      {gx_cplx_sqrt, [](const std_complex& z) { return std::sqrt(z); }, "sqrt"},
      {gx_cplx_asin, [](const std_complex& z) { return std::asin(z); }, "asin"},
      {gx_cplx_atan, [](const std_complex& z) { return std::atan(z); }, "atan"},
      {gx_cplx_tanh, [](const std_complex& z) { return std::tanh(z); }, "tanh"},
      {gx_cplx_atanh, [](const std_complex& z) { return std::atanh(z); }, "atanh"},
  };
  for (const Case& c : cases) {
    for (const gx_complex& z : kSamples) {
      gx_complex r;
      expect_near(*c.fn(z, &r), c.reference(std_complex(z.re, z.im)), c.name);
    }
  }
}

TEST(Complex, LogAndSqrtOfZero) {
  gx_complex r;
  gx_cplx_log(gx_complex{0.0, 0.0}, &r);
  EXPECT_TRUE(std::isinf(r.re));
  EXPECT_EQ(r.im, 0.0);
  gx_cplx_sqrt(gx_complex{0.0, 0.0}, &r);
  EXPECT_EQ(r.re, 0.0);
  EXPECT_EQ(r.im, 0.0);
}

}  // namespace
