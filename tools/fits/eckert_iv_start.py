#!/usr/bin/python3
"""Least-squares fits of the root t of t + sin t cos t + 2 sin t = r (the
Eckert IV angle), the start of the Halley iteration in
src/projections/eckert.cpp: t / r as a polynomial in r^2 on [0, 2.8], and
(pi/2 - t) / w as a polynomial in w, w = sqrt(2 + pi/2 - r), on [2.8, 2 + pi/2].
Needs Debian's python3-numpy and python3-mpmath.  Prints the coefficients,
highest power first, and the largest error of each fit."""
import mpmath as mp
import numpy as np

mp.mp.dps = 40
TOP = 2 + mp.pi / 2


def root(r):
    f = lambda t: t + mp.sin(t) * mp.cos(t) + 2 * mp.sin(t) - r
    return mp.findroot(f, (mp.mpf(0), mp.pi / 2), solver="anderson")


r = np.linspace(1e-6, 2.8, 4000)
t = np.array([float(root(mp.mpf(x))) for x in r])
c = np.polyfit(r ** 2, t / r, 8)
print("equator", [repr(float(x)) for x in c], "error %.1e" % np.max(np.abs(np.polyval(c, r ** 2) * r - t)))

w = np.linspace(1e-4, float(mp.sqrt(TOP - 2.8)) + 0.01, 4000)
rr = [TOP - mp.mpf(x) ** 2 for x in w]
v = np.array([float(mp.pi / 2 - root(x)) for x in rr])
c = np.polyfit(w, v / w, 7)
print("pole", [repr(float(x)) for x in c], "error %.1e" % np.max(np.abs(np.polyval(c, w) * w - v)))
