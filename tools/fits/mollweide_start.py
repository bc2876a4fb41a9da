#!/usr/bin/python3
"""Least-squares fits of the root u of u + sin u = r (u = 2 theta, the
Mollweide angle doubled), the start of the Halley iteration in
src/projections/mollweide.cpp: u / r as a polynomial in r^2 on [0, 2.3], and
(pi - u) / s as a polynomial in s^2, s = cbrt(6 (pi - r)), on [2.3, pi].
Needs Debian's python3-numpy and python3-mpmath.  Prints the coefficients,
highest power first, and the largest error of each fit."""
import mpmath as mp
import numpy as np

mp.mp.dps = 40


def root(r):
    start = r / 2 if r < 2.3 else mp.pi - mp.cbrt(6 * (mp.pi - r))
    return mp.findroot(lambda u: u + mp.sin(u) - r, start)


r = np.linspace(1e-6, 2.3, 4000)
u = np.array([float(root(mp.mpf(x))) for x in r])
c = np.polyfit(r ** 2, u / r, 8)
print("equator", [repr(float(x)) for x in c], "error %.1e" % np.max(np.abs(np.polyval(c, r ** 2) * r - u)))

s = np.linspace(1e-3, float(mp.cbrt(6 * (mp.pi - 2.3))) + 0.01, 4000)
rr = [mp.pi - mp.mpf(x) ** 3 / 6 for x in s]
v = np.array([float(mp.pi - root(x)) for x in rr])
sx = np.array([float(mp.cbrt(6 * (mp.pi - x))) for x in rr])
c = np.polyfit(sx ** 2, v / sx, 5)
print("pole", [repr(float(x)) for x in c], "error %.1e" % np.max(np.abs(np.polyval(c, sx ** 2) * sx - v)))
