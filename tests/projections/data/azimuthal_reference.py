#!/usr/bin/env python3
"""Expected values of the azimuthal projection tests, computed with PROJ's
`proj` program (PROJ 9.1.1, Debian package proj-bin), and for the polar
azimuthal equidistant on the ellipsoid with mpmath (the meridian arc by
quadrature), where PROJ's meridian series is only good to some micrometres on
WGS 84 and some decimetres on a strongly flattened body.  Prints one C++ row
{lon, lat, x, y} per point, degrees in and metres out, for each case.

Usage: python3 azimuthal_reference.py [label-filter]
"""
import subprocess
import sys

SPHERE = "+R=6371000"
CASES = [
    # Stereographic
    ("stere sphere oblique", "+proj=stere +lat_0=40 +lon_0=-100 +k=1 " + SPHERE,
     [(-100, 40), (-90, 30), (-120, 60), (-60, -10), (100, 0), (-100, -30)]),
    ("stere sphere equatorial", "+proj=stere +lat_0=0 +lon_0=10 +k=0.9999 " + SPHERE,
     [(10, 0), (40, 30), (-60, -50), (100, 10), (10, 89)]),
    ("stere sphere north", "+proj=stere +lat_0=90 +lon_0=-45 +k=0.994 " + SPHERE,
     [(0, 60), (-45, 80), (135, 10), (-170, -30), (20, 90)]),
    ("stere sphere south", "+proj=stere +lat_0=-90 +lon_0=0 +k=1 " + SPHERE,
     [(30, -60), (-150, -80), (90, 20), (0, -90)]),
    ("stere wgs84 oblique", "+proj=stere +lat_0=52 +lon_0=5 +k=0.9999 +ellps=WGS84",
     [(5, 52), (10, 55), (-5, 40), (30, 70), (60, -10), (5, 90)]),
    ("stere wgs84 equatorial", "+proj=stere +lat_0=0 +lon_0=0 +k=1 +ellps=WGS84",
     [(20, 10), (-60, -45), (89, 0), (0, 80)]),
    ("stere wgs84 north", "+proj=stere +lat_0=90 +lon_0=0 +k=0.994 +ellps=WGS84",
     [(0, 85), (45, 70), (-135, 89), (170, 60), (30, -30)]),
    ("stere wgs84 south", "+proj=stere +lat_0=-90 +lon_0=0 +k=0.994 +ellps=WGS84",
     [(0, -85), (-120, -70), (60, -50)]),
    ("stere flattened oblique", "+proj=stere +lat_0=-35 +lon_0=140 +k=1 +a=6378137 +rf=100",
     [(140, -35), (150, -20), (120, -60), (160, 10)]),
    ("stere flattened south", "+proj=stere +lat_0=-90 +lon_0=0 +k=1 +a=6378137 +rf=100",
     [(0, -85), (-120, -70), (60, -50)]),
    # Polar forms with a parallel of true scale
    ("stere north ts wgs84", "+proj=stere +lat_0=90 +lat_ts=70 +lon_0=-45 +ellps=WGS84",
     [(-45, 70), (0, 80), (100, 60), (-150, 89.9), (-45, 90)]),
    ("stere north ts sphere", "+proj=stere +lat_0=90 +lat_ts=60 +lon_0=0 " + SPHERE,
     [(0, 60), (90, 75), (-120, 30)]),
    ("stere south ts intl", "+proj=stere +lat_0=-90 +lat_ts=-71 +lon_0=-100 +ellps=intl",
     [(150, -75), (-100, -71), (0, -60)]),
    ("stere south ts wgs84", "+proj=stere +lat_0=-90 +lat_ts=-71 +lon_0=0 +ellps=WGS84",
     [(0, -71), (120, -80), (-45, -60)]),
    ("stere south ts sphere", "+proj=stere +lat_0=-90 +lat_ts=-90 +lon_0=0 " + SPHERE,
     [(30, -60), (-150, -80)]),
    # Double stereographic (oblique stereographic on the Gaussian sphere)
    ("sterea rd bessel", "+proj=sterea +lat_0=52.15616055555555 +lon_0=5.38763888888889 "
     "+k=0.9999079 +ellps=bessel",
     [(6, 53), (5.38763888888889, 52.15616055555555), (3.3, 50.8), (7.2, 53.5)]),
    ("sterea wgs84 south", "+proj=sterea +lat_0=-33 +lon_0=25 +k=0.9999 +ellps=WGS84",
     [(25, -33), (30, -30), (15, -45), (60, 10)]),
    ("sterea wgs84 pole", "+proj=sterea +lat_0=90 +lon_0=0 +k=0.994 +ellps=WGS84",
     [(0, 85), (45, 70), (-135, 89)]),
    # Lambert azimuthal equal area
    ("laea sphere oblique", "+proj=laea +lat_0=40 +lon_0=-100 " + SPHERE,
     [(-100, 40), (-90, 30), (-120, 60), (-60, -10), (100, 0), (80, -30)]),
    ("laea sphere equatorial", "+proj=laea +lat_0=0 +lon_0=10 " + SPHERE,
     [(10, 0), (40, 30), (-60, -50), (100, 10), (10, 90), (-169, 0.5)]),
    ("laea sphere north", "+proj=laea +lat_0=90 +lon_0=-45 " + SPHERE,
     [(0, 60), (-45, 80), (135, 10), (-170, -30), (20, 90)]),
    ("laea sphere south", "+proj=laea +lat_0=-90 +lon_0=0 " + SPHERE,
     [(30, -60), (-150, -80), (90, 20)]),
    ("laea wgs84 oblique", "+proj=laea +lat_0=52 +lon_0=10 +ellps=WGS84",
     [(10, 52), (5, 50), (-10, 35), (40, 70), (60, -10), (10, 90)]),
    ("laea wgs84 equatorial", "+proj=laea +lat_0=0 +lon_0=20 +ellps=WGS84",
     [(20, 0), (40, 10), (-30, -45), (109, 0), (20, 80)]),
    ("laea wgs84 north", "+proj=laea +lat_0=90 +lon_0=0 +ellps=WGS84",
     [(0, 85), (45, 70), (-135, 89), (170, 0), (30, -60)]),
    ("laea wgs84 south", "+proj=laea +lat_0=-90 +lon_0=0 +ellps=WGS84",
     [(0, -85), (-120, -70), (60, -50)]),
    ("laea flattened oblique", "+proj=laea +lat_0=-35 +lon_0=140 +a=6378137 +rf=100",
     [(140, -35), (150, -20), (120, -60), (160, 10)]),
    # Gnomonic, orthographic, vertical near-side perspective (spheres)
    ("gnom sphere oblique", "+proj=gnom +lat_0=40 +lon_0=-100 " + SPHERE,
     [(-100, 40), (-90, 30), (-120, 60), (-60, -10), (-100, -45)]),
    ("gnom sphere equatorial", "+proj=gnom +lat_0=0 +lon_0=10 " + SPHERE,
     [(10, 0), (40, 30), (-20, -50), (60, 10)]),
    ("gnom sphere north", "+proj=gnom +lat_0=90 +lon_0=0 " + SPHERE,
     [(0, 60), (-45, 80), (135, 10), (20, 90)]),
    ("ortho sphere oblique", "+proj=ortho +lat_0=40 +lon_0=-100 " + SPHERE,
     [(-100, 40), (-90, 30), (-120, 60), (-60, -10), (-100, -45), (80, 50)]),
    ("ortho sphere south", "+proj=ortho +lat_0=-90 +lon_0=30 " + SPHERE,
     [(0, -60), (-45, -80), (135, -10), (120, 0)]),
    ("nsper sphere oblique", "+proj=nsper +h=35786000 +lat_0=40 +lon_0=-100 " + SPHERE,
     [(-100, 40), (-90, 30), (-120, 60), (-60, -10), (-100, -30)]),
    ("nsper sphere north", "+proj=nsper +h=1000000 +lat_0=90 +lon_0=0 " + SPHERE,
     [(0, 60), (-45, 80), (135, 70)]),
    # Azimuthal equidistant
    ("aeqd sphere oblique", "+proj=aeqd +lat_0=40 +lon_0=-100 " + SPHERE,
     [(-100, 40), (-90, 30), (-120, 60), (-60, -10), (100, 0), (80, -30)]),
    ("aeqd sphere equatorial", "+proj=aeqd +lat_0=0 +lon_0=10 " + SPHERE,
     [(10, 0), (40, 30), (-60, -50), (100, 10), (10, 90)]),
    ("aeqd sphere north", "+proj=aeqd +lat_0=90 +lon_0=-45 " + SPHERE,
     [(0, 60), (-45, 80), (135, 10), (-170, -30), (20, 90)]),
    ("aeqd sphere south", "+proj=aeqd +lat_0=-90 +lon_0=0 " + SPHERE,
     [(30, -60), (-150, -80), (90, 20)]),
    ("aeqd wgs84 oblique", "+proj=aeqd +lat_0=40 +lon_0=-100 +ellps=WGS84",
     [(-100, 40), (-90, 30), (-120, 60), (-60, -10), (100, 0), (-100, -80), (-100, 90)]),
    ("aeqd wgs84 equatorial", "+proj=aeqd +lat_0=0 +lon_0=20 +ellps=WGS84",
     [(20, 0), (40, 10), (-30, -45), (20, 80), (100, 30)]),
    # Two-point equidistant (sphere)
    ("tpeqd sphere", "+proj=tpeqd +lat_1=40 +lon_1=-100 +lat_2=10 +lon_2=-60 " + SPHERE,
     [(-100, 40), (-60, 10), (-80, 25), (-90, 0), (-70, 50), (20, 60), (-100, -40)]),
    # Auxiliary sphere twins: type 0 (radius a), 1 (radius b), 2 (the authalic radius of
    # WGS 84 by mpmath; PROJ's +R_A is a series good to 1e-11)
    ("stere twin type 0", "+proj=stere +lat_0=52 +lon_0=5 +k=0.9999 +R=6378137",
     [(10, 55), (-5, 40), (30, 70)]),
    ("laea twin type 2", "+proj=laea +lat_0=52 +lon_0=10 +R=6371007.180918474",
     [(5, 50), (-10, 35), (40, 70)]),
    ("aeqd twin type 1", "+proj=aeqd +lat_0=40 +lon_0=-100 +R=6356752.314245179",
     [(-90, 30), (-120, 60), (-60, -10)]),
    ("ortho twin type 0", "+proj=ortho +lat_0=40 +lon_0=-100 +R=6378137",
     [(-90, 30), (-120, 60), (-60, -10)]),
    ("gnom twin type 2", "+proj=gnom +lat_0=40 +lon_0=-100 +R=6371007.180918474",
     [(-90, 30), (-120, 60), (-60, -10)]),
]


def run(projstring, points):
    text = "".join("%.15g %.15g\n" % p for p in points)
    out = subprocess.run(["proj", "-f", "%.6f"] + projstring.split(), input=text,
                         capture_output=True, text=True, check=True).stdout
    return [tuple(float(v) for v in line.split()) for line in out.splitlines()]


# Polar azimuthal equidistant by quadrature: (label, a, 1/f, north, lon0, points).
POLAR_AEQD = [
    ("aeqd wgs84 north (mpmath)", 6378137.0, 298.257223563, True, 0,
     [(0, 85), (45, 70), (-135, 89), (170, 0), (30, -60)]),
    ("aeqd wgs84 south (mpmath)", 6378137.0, 298.257223563, False, 0,
     [(0, -85), (-120, -70), (60, -50)]),
    ("aeqd flattened north (mpmath)", 6378137.0, 100.0, True, 0,
     [(0, 85), (45, 70), (-135, 0)]),
]


def polar_aeqd(a, rf, north, lon0, points):
    from mpmath import mp, mpf, quad, sin, cos, pi, radians
    mp.dps = 30
    a = mpf(a)
    f = 1 / mpf(rf)
    e2 = f * (2 - f)

    def arc(phi):
        return quad(lambda t: a * (1 - e2) / (1 - e2 * sin(t) ** 2) ** mpf(1.5), [0, phi])

    quarter = arc(pi / 2)
    rows = []
    for lon, lat in points:
        phi = radians(lat)
        dlam = radians(lon - lon0)
        r = quarter - arc(phi) if north else quarter + arc(phi)
        x = r * sin(dlam)
        y = -r * cos(dlam) if north else r * cos(dlam)
        rows.append((float(x), float(y)))
    return rows


def main():
    wanted = sys.argv[1] if len(sys.argv) > 1 else ""
    for label, a, rf, north, lon0, points in POLAR_AEQD:
        if wanted not in label:
            continue
        print("// %s" % label)
        for (lon, lat), (x, y) in zip(points, polar_aeqd(a, rf, north, lon0, points)):
            print("{%r, %r, %.6f, %.6f}," % (lon, lat, x, y))
    for label, projstring, points in CASES:
        if wanted not in label:
            continue
        print("// %s: proj %s" % (label, projstring))
        for (lon, lat), (x, y) in zip(points, run(projstring, points)):
            print("{%r, %r, %.6f, %.6f}," % (lon, lat, x, y))


if __name__ == "__main__":
    main()
