// Complex arithmetic on (real, imaginary) pairs for the New Zealand Map Grid
// and the complex Transverse Mercator.  Each helper writes its value through
// `result` and returns that pointer; the operands are taken by value, so the
// result may be one of them.
#pragma once

struct gx_complex {
  double re;
  double im;
};

gx_complex* gx_cplx_add(gx_complex a, gx_complex b, gx_complex* result);
gx_complex* gx_cplx_sub(gx_complex a, gx_complex b, gx_complex* result);
gx_complex* gx_cplx_mul(gx_complex a, gx_complex b, gx_complex* result);
// Smith's division: no intermediate overflow for large divisors.
gx_complex* gx_cplx_div(gx_complex a, gx_complex b, gx_complex* result);
gx_complex* gx_cplx_exp(gx_complex z, gx_complex* result);
// Principal logarithm (ln |z|, arg z); log of 0 has a real part of -inf.
gx_complex* gx_cplx_log(gx_complex z, gx_complex* result);
gx_complex* gx_cplx_sqrt(gx_complex z, gx_complex* result);
gx_complex* gx_cplx_asin(gx_complex z, gx_complex* result);
gx_complex* gx_cplx_atan(gx_complex z, gx_complex* result);
gx_complex* gx_cplx_tanh(gx_complex z, gx_complex* result);
gx_complex* gx_cplx_atanh(gx_complex z, gx_complex* result);
