#!/usr/bin/env python3
"""Reference values for the auxiliary sphere twins of the cylindrical family
with Auxiliary_Sphere_Type 3 (authalic sphere) on WGS 84, computed with mpmath
at 40 digits from the definitions: authalic radius from the ellipsoid's area,
authalic latitude from q / q_p, then the textbook sphere formulas of the base.
Prints C++ initialisers that are pasted into tests/projections/cylindrical_test.cpp."""
from mpmath import mp, mpf, sqrt, sin, cos, tan, asin, atanh, log, pi

mp.dps = 40
A = mpf(6378137)
F = 1 / mpf("298.257223563")
E2 = F * (2 - F)
E = sqrt(E2)
DEG = pi / 180


def q(phi):
    s = sin(phi)
    return (1 - E2) * (s / (1 - E2 * s * s) + atanh(E * s) / E)


QP = q(pi / 2)
R = A * sqrt(QP / 2)


def beta(phi):
    return asin(q(phi) / QP)


POINTS = [(10, 20), (-120, -60), (179, 84), (3, 0.5)]


def mercator(lon0, phi1):
    k = cos(beta(phi1 * DEG))
    return lambda lon, lat: (R * k * (lon - lon0) * DEG, R * k * log(tan(pi / 4 + beta(lat * DEG) / 2)))


def equidistant(lon0, phi1):
    k = cos(beta(phi1 * DEG))
    return lambda lon, lat: (R * k * (lon - lon0) * DEG, R * beta(lat * DEG))


def miller(lon0):
    return lambda lon, lat: (R * (lon - lon0) * DEG, R * mpf(1.25) * log(tan(pi / 4 + mpf(0.4) * beta(lat * DEG))))


def show(label, f, lon0):
    print("// " + label)
    for lon, lat in POINTS:
        dl = (lon - lon0 + 180) % 360 - 180
        x, y = f(lon0 + dl, lat)
        print("    {%r, %r, %s, %s}," % (lon, lat, mp.nstr(x, 17), mp.nstr(y, 17)))


print("// authalic radius", mp.nstr(R, 20))
show("Mercator_Auxiliary_Sphere, lon0 0, phi1 0", mercator(0, 0), 0)
show("Mercator_Auxiliary_Sphere, lon0 15, phi1 30", mercator(15, 30), 15)
show("Equidistant_Cylindrical_Auxiliary_Sphere, lon0 -100, phi1 40", equidistant(-100, 40), -100)
show("Miller_Cylindrical_Auxiliary_Sphere, lon0 0", miller(0), 0)
