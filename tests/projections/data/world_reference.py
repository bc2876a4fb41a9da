#!/usr/bin/env python3
"""Reference values for the world projections that PROJ does not define the
same way, computed with mpmath at 40 digits from the definitions:

- Robinson and Robinson (TELMAR): the published 5-degree tables, read by the
  parabola through three rows (Stirling's three-point form), x = 0.8487 R X dlam,
  y = 1.3523319842835606 R Y; R is the authalic radius for Robinson (from the
  ellipsoid's area) and a for TELMAR.
- Times: the radius the mean of the axes, T = tan(phi / 2), S = sin(pi T / 4),
  x = R / pi (2.33246 - 1.086778 S^2) dlam, y = R (1 + sqrt 2 / 2) T.
- The auxiliary sphere twins with type 3 on WGS 84: the authalic radius and
  latitude (from q / q_p), then the textbook sphere formulas of Mollweide,
  Eckert IV and VI (their auxiliary angles by mpmath's root finder) and
  Van der Grinten I (Snyder's closed form).
- Van der Grinten I on the sphere (Snyder's closed form), where PROJ takes y
  from x by a formula that loses half a millimetre near the equator.
- Goode Homolosine, whole and interrupted (Options 1 and 2): Sinusoidal up
  to the meeting latitude 0.7109888814838452, Mollweide shifted to join it
  beyond, each lobe about its own central meridian.
- Winkel II in the form x = R dlam (cos phi1 + sqrt(1 - (2 phi / pi)^2)) / 2,
  y = R phi.

Prints C++ initialisers that are pasted into tests/projections/world_test.cpp."""
from mpmath import mp, mpf, sqrt, sin, cos, tan, asin, atanh, pi, sign

mp.dps = 40
DEG = pi / 180

ROWS = [mpf(5 * k - 5) * DEG for k in range(20)]
Y = ["-0.062", "0", "0.062", "0.124", "0.186", "0.248", "0.31", "0.372", "0.434", "0.4958",
     "0.5571", "0.6176", "0.6769", "0.7346", "0.7903", "0.8435", "0.8936", "0.9394", "0.9761", "1"]
X_ROBINSON = ["0.9986", "1", "0.9986", "0.9954", "0.99", "0.9822", "0.973", "0.96", "0.9427",
              "0.9216", "0.8962", "0.8679", "0.835", "0.7986", "0.7597", "0.7186", "0.6732",
              "0.6213", "0.5722", "0.5322"]
X_TELMAR = ["0.9844", "0.9858", "0.9844", "0.9813", "0.9759", "0.9682", "0.9591", "0.9463",
            "0.9293", "0.9085", "0.8835", "0.8556", "0.8231", "0.7872", "0.7489", "0.7084",
            "0.6636", "0.6125", "0.5641", "0.5246"]


def stirling(values, v):
    f = [mpf(s) for s in values]
    for i in range(2, 20):
        if v <= ROWS[i]:
            p = (v - ROWS[i - 1]) / (ROWS[i] - ROWS[i - 1])
            return (p - 1) * p / 2 * f[i - 2] + (p + 1) * p / 2 * f[i] + (1 - p) * (p + 1) * f[i - 1]
    return f[19]


def wrap(d):
    return (d + 180) % 360 - 180


def robinson(radius, xs):
    def f(lon, lat, lon0):
        v = abs(mpf(lat)) * DEG
        x = wrap(lon - lon0) * DEG * stirling(xs, v) * radius * mpf("0.8487")
        y = stirling(Y, v) * radius * mpf("1.3523319842835606")
        return x, (y if lat >= 0 else -y)
    return f


def authalic_radius(a, rf):
    f = 1 / mpf(rf)
    e2 = f * (2 - f)
    e = sqrt(e2)
    qp = (1 - e2) * (1 / (1 - e2) + atanh(e) / e)
    return a * sqrt(qp / 2)


def times(radius):
    def f(lon, lat, lon0):
        t = tan(mpf(lat) * DEG / 2)
        s = sin(pi / 4 * t)
        x = radius / pi * (mpf("2.33246") - mpf("1.086778") * s * s) * wrap(lon - lon0) * DEG
        return x, radius * (1 + sqrt(2) / 2) * t
    return f


def winkel_ii(radius, phi1):
    def f(lon, lat, lon0):
        t = mpf(lat) * DEG * 2 / pi
        x = radius * wrap(lon - lon0) * DEG * (cos(mpf(phi1) * DEG) + sqrt(1 - t * t)) / 2
        return x, radius * mpf(lat) * DEG
    return f


WGS84_F = 1 / mpf("298.257223563")
WGS84_E2 = WGS84_F * (2 - WGS84_F)


def q(phi):
    e = sqrt(WGS84_E2)
    s = sin(phi)
    return (1 - WGS84_E2) * (s / (1 - WGS84_E2 * s * s) + atanh(e * s) / e)


def authalic_latitude(phi):
    return asin(q(phi) / q(pi / 2))


def angle(equation, rhs):
    if rhs == 0:
        return mpf(0)
    lo, hi = mpf(0), pi / 2
    for _ in range(200):  # bisection: the equations are increasing on [0, pi/2]
        mid = (lo + hi) / 2
        if equation(mid) < abs(rhs):
            lo = mid
        else:
            hi = mid
    t = (lo + hi) / 2
    return t if rhs > 0 else -t


def mollweide(radius):
    def f(lon, lat, lon0):
        b = authalic_latitude(mpf(lat) * DEG)
        t = angle(lambda t: 2 * t + sin(2 * t), pi * sin(b))
        return (2 * sqrt(2) / pi * radius * wrap(lon - lon0) * DEG * cos(t), sqrt(2) * radius * sin(t))
    return f


def eckert_iv(radius):
    def f(lon, lat, lon0):
        b = authalic_latitude(mpf(lat) * DEG)
        t = angle(lambda t: t + sin(t) * cos(t) + 2 * sin(t), (2 + pi / 2) * sin(b))
        return (2 / sqrt(pi * (4 + pi)) * radius * wrap(lon - lon0) * DEG * (1 + cos(t)),
                2 * sqrt(pi / (4 + pi)) * radius * sin(t))
    return f


def eckert_vi(radius):
    def f(lon, lat, lon0):
        b = authalic_latitude(mpf(lat) * DEG)
        t = angle(lambda t: t + sin(t), (1 + pi / 2) * sin(b))
        return (radius * wrap(lon - lon0) * DEG * (1 + cos(t)) / sqrt(2 + pi), 2 * radius * t / sqrt(2 + pi))
    return f


def van_der_grinten(radius, latitude=authalic_latitude):
    def f(lon, lat, lon0):
        phi = latitude(mpf(lat) * DEG)
        dl = wrap(lon - lon0) * DEG
        th = asin(abs(2 * phi / pi))
        a = abs(pi / dl - dl / pi) / 2
        g = cos(th) / (sin(th) + cos(th) - 1)
        p = g * (2 / sin(th) - 1)
        qq = a * a + g
        x = pi * radius * (a * (g - p * p) + sqrt(a * a * (g - p * p) ** 2 - (p * p + a * a) * (g * g - p * p))) / (p * p + a * a)
        y = pi * radius * (p * qq - a * sqrt((a * a + 1) * (p * p + a * a) - qq * qq)) / (p * p + a * a)
        return sign(dl) * x, sign(phi) * y
    return f


MEET = mpf("0.7109888814838452")
LOBES = {  # (west bound, centre) in degrees, north then south
    0: ([(-180, 0)], [(-180, 0)]),
    1: ([(-180, -100), (-40, 30)], [(-180, -160), (-100, -60), (-20, 20), (80, 140)]),
    2: ([(-180, -140), (-100, -10), (60, 130)], [(-180, -110), (-60, 20), (100, 140)]),
}


def goode(radius, option):
    theta_m = angle(lambda t: 2 * t + sin(2 * t), pi * sin(MEET))
    offset = sqrt(2) * radius * sin(theta_m) - radius * MEET

    def f(lon, lat, lon0):
        phi = mpf(lat) * DEG
        dl = wrap(lon - lon0)
        lobes = LOBES[option][0 if lat >= 0 else 1]
        centre = [c for w, c in lobes if w <= dl][-1] * DEG
        dl = dl * DEG
        if abs(phi) <= MEET:
            return radius * ((dl - centre) * cos(phi) + centre), radius * phi
        t = angle(lambda t: 2 * t + sin(2 * t), pi * sin(phi))
        x = 2 * sqrt(2) / pi * radius * (dl - centre) * cos(t) + radius * centre
        y = sqrt(2) * radius * sin(t)
        return x, (y - offset if lat >= 0 else y + offset)
    return f


POINTS = [(10, 20), (-120, -60), (179, 84), (3, 0.5), (-45, -89), (100, 2.5)]


def show(label, f, lon0=0):
    print("// " + label)
    for lon, lat in POINTS:
        x, y = f(mpf(lon), mpf(lat), lon0)
        print("{%s, %s, %s, %s}," % (lon, lat, mp.nstr(x, 17), mp.nstr(y, 17)))


R = mpf(6371000)
WGS84_A = mpf(6378137)
show("Robinson, sphere", robinson(R, X_ROBINSON))
show("Robinson, WGS 84: authalic radius %s" % mp.nstr(authalic_radius(WGS84_A, "298.257223563"), 17),
     robinson(authalic_radius(WGS84_A, "298.257223563"), X_ROBINSON))
show("Robinson_TELMAR, WGS 84 (radius a)", robinson(WGS84_A, X_TELMAR))
show("Times, sphere", times(R))
b = WGS84_A * (1 - 1 / mpf("298.257223563"))
show("Times, WGS 84: radius (a + b) / 2", times((WGS84_A + b) / 2))
show("Winkel_II, sphere, phi1 = 30", winkel_ii(R, 30))
show("Van_der_Grinten_I, sphere", van_der_grinten(R, lambda phi: phi))
for option in (0, 1, 2):
    show("Goode_Homolosine, sphere, Option %d" % option, goode(R, option))
RA = authalic_radius(WGS84_A, "298.257223563")
show("Mollweide_Auxiliary_Sphere, type 3, WGS 84", mollweide(RA))
show("Eckert_IV_Auxiliary_Sphere, type 3, WGS 84", eckert_iv(RA))
show("Eckert_VI_Auxiliary_Sphere, type 3, WGS 84", eckert_vi(RA))
show("Van_der_Grinten_I_Auxiliary_Sphere, type 3, WGS 84", van_der_grinten(RA))
