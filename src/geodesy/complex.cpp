// Complex arithmetic on (real, imaginary) pairs.
#include "geodesy/complex.h"

#include <cmath>

#include "geodesy/ellipsoid.h"

namespace {

gx_complex* store(double re, double im, gx_complex* result) {
  result->re = re;
  result->im = im;
  return result;
}

}  // namespace

gx_complex* gx_cplx_add(gx_complex a, gx_complex b, gx_complex* result) {
  return store(a.re + b.re, a.im + b.im, result);
}

gx_complex* gx_cplx_sub(gx_complex a, gx_complex b, gx_complex* result) {
  return store(a.re - b.re, a.im - b.im, result);
}

gx_complex* gx_cplx_mul(gx_complex a, gx_complex b, gx_complex* result) {
  return store(a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re, result);
}

gx_complex* gx_cplx_div(gx_complex a, gx_complex b, gx_complex* result) {
  if (std::fabs(b.re) >= std::fabs(b.im)) {
    double r = b.im / b.re;
    double den = b.re + r * b.im;
    return store((a.re + a.im * r) / den, (a.im - a.re * r) / den, result);
  }
  double r = b.re / b.im;
  double den = b.im + r * b.re;
  return store((a.re * r + a.im) / den, (a.im * r - a.re) / den, result);
}

gx_complex* gx_cplx_exp(gx_complex z, gx_complex* result) {
  double modulus = std::exp(z.re);
  return store(modulus * std::cos(z.im), modulus * std::sin(z.im), result);
}

gx_complex* gx_cplx_log(gx_complex z, gx_complex* result) {
  return store(std::log(gx_hypot(z.re, z.im)), gx_atan2_safe(z.re, z.im), result);
}

gx_complex* gx_cplx_sqrt(gx_complex z, gx_complex* result) {
  gx_complex half_log;
  gx_cplx_log(z, &half_log);
  half_log.re *= 0.5;
  half_log.im *= 0.5;
  return gx_cplx_exp(half_log, result);
}

// asin z = -i log(i z + sqrt(1 - z^2)).
gx_complex* gx_cplx_asin(gx_complex z, gx_complex* result) {
  gx_complex square, root, sum, logarithm;
  gx_cplx_mul(z, z, &square);
  gx_cplx_sqrt(gx_complex{1.0 - square.re, -square.im}, &root);
  gx_cplx_add(gx_complex{-z.im, z.re}, root, &sum);
  gx_cplx_log(sum, &logarithm);
  return store(logarithm.im, -logarithm.re, result);
}

gx_complex* gx_cplx_atan(gx_complex z, gx_complex* result) {
  double x = z.re, y = z.im;
  double real = 0.5 * std::atan2(2.0 * x, 1.0 - x * x - y * y);
  double norm = 1.0 + x * x + y * y;
  double imag = 0.25 * std::log((norm + 2.0 * y) / (norm - 2.0 * y));
  return store(real, imag, result);
}

gx_complex* gx_cplx_tanh(gx_complex z, gx_complex* result) {
  double den = std::cosh(2.0 * z.re) + std::cos(2.0 * z.im);
  return store(std::sinh(2.0 * z.re) / den, std::sin(2.0 * z.im) / den, result);
}

// atanh z = -i atan(i z).
gx_complex* gx_cplx_atanh(gx_complex z, gx_complex* result) {
  gx_complex t;
  gx_cplx_atan(gx_complex{-z.im, z.re}, &t);
  return store(t.im, -t.re, result);
}
