#!/usr/bin/python3
"""Builds real_world.txt: projected systems as common GIS software exports
them (PROJ's WKT1_ESRI), each with points inside its area of use and their
coordinates as PROJ 9.1 computes them from the same text.

Run with Debian's python3 (python3-pyproj, proj-data):
    /usr/bin/python3 tests/convert/data/make_real_world.py > tests/convert/data/real_world.txt

Each system is a block:
    SYSTEM <authority:code> <projection name from the text>
    WKT <the single-line WKT>
    POINT <lon> <lat> <x> <y>        (geographic in the system's own GEOGCS
                                      units and prime meridian; x, y in its
                                      linear unit)
"""
import random
import sqlite3
import sys

import pyproj

# EPSG conversion methods and how many systems of each to take.
METHODS = {
    9807: 90,   # Transverse Mercator (UTM, State Plane, national grids)
    9801: 20,   # Lambert Conic Conformal (1SP)
    9802: 60,   # Lambert Conic Conformal (2SP)
    9822: 10,   # Albers Equal Area
    9810: 6,    # Polar Stereographic (variant A)
    9829: 6,    # Polar Stereographic (variant B)
    9809: 12,   # Oblique Stereographic
    9812: 8,    # Hotine Oblique Mercator (variant A)
    9815: 8,    # Hotine Oblique Mercator (variant B)
    9819: 4,    # Krovak
    1041: 4,    # Krovak (North Orientated)
    9806: 8,    # Cassini-Soldner
    9811: 2,    # New Zealand Map Grid
    9804: 6,    # Mercator (variant A)
    9805: 4,    # Mercator (variant B)
    9820: 8,    # Lambert Azimuthal Equal Area
    9818: 4,    # American Polyconic
    1024: 2,    # Popular Visualisation Pseudo Mercator
    1028: 2,    # Equidistant Cylindrical
    9842: 1,    # Equidistant Cylindrical (deprecated form)
}
# World projections as the ESRI catalogue names them.
ESRI_WORLD = [54001, 54002, 54003, 54008, 54009, 54010, 54011, 54012, 54013, 54014,
              54015, 54016, 54017, 54018, 54019, 54021, 54022, 54023, 54024, 54027,
              54028, 54029, 54030, 54031, 54032, 54034, 54042, 54046, 54048, 54050,
              54052, 54053, 102003, 102008, 102009, 102010, 102016, 102017, 102018]


def candidates(db):
    rows = db.execute(
        "SELECT p.auth_name, p.code, c.method_code FROM projected_crs p "
        "JOIN conversion_table c ON p.conversion_auth_name = c.auth_name "
        "AND p.conversion_code = c.code WHERE p.auth_name = 'EPSG' AND p.deprecated = 0")
    by_method = {}
    for auth, code, method in rows:
        if method is None:
            continue
        try:
            method = int(method)
        except ValueError:
            continue
        if method in METHODS:
            by_method.setdefault(method, []).append(f"{auth}:{code}")
    rng = random.Random(20261124)
    chosen = []
    for method, count in METHODS.items():
        codes = sorted(by_method.get(method, []))
        rng.shuffle(codes)
        chosen += codes[:count]
    chosen += [f"ESRI:{c}" for c in ESRI_WORLD]
    return chosen


def area(crs):
    a = crs.area_of_use
    if a is None:
        return (-180.0, -80.0, 180.0, 80.0)
    west, south, east, north = a.bounds
    if east < west:
        east += 360.0
    return (west, south, east, north)


def places(bounds, rng):
    west, south, east, north = bounds
    # Inner points: the middle and four more well inside the area.
    out = [((west + east) / 2, (south + north) / 2)]
    for _ in range(4):
        out.append((west + (east - west) * rng.uniform(0.2, 0.8),
                    south + (north - south) * rng.uniform(0.2, 0.8)))
    return [(((lon + 180.0) % 360.0) - 180.0, lat) for lon, lat in out]


def main():
    db = sqlite3.connect(pyproj.datadir.get_data_dir() + "/proj.db")
    rng = random.Random(7)
    out = sys.stdout
    for name in candidates(db):
        try:
            crs = pyproj.CRS(name)
            wkt = crs.to_wkt("WKT1_ESRI")
        except pyproj.exceptions.CRSError:
            continue
        if not wkt or not wkt.startswith("PROJCS["):
            continue
        # PROJ's reading of the very text, so both libraries start from it.
        esri = pyproj.CRS.from_wkt(wkt)
        geog = esri.geodetic_crs
        try:
            to = pyproj.Transformer.from_crs(geog, esri, always_xy=True)
        except pyproj.exceptions.ProjError:
            continue
        # The prime meridian's longitude in degrees, and the angular unit in
        # radians.
        pm_deg = geog.prime_meridian.longitude * geog.prime_meridian.unit_conversion_factor \
            / 0.017453292519943295
        ang = geog.axis_info[0].unit_conversion_factor
        projection = wkt.split('PROJECTION["', 1)[1].split('"', 1)[0]
        lines = []
        for lon, lat in places(area(crs), rng):
            # Longitude from the system's own prime meridian, in its unit.
            glon = ((lon - pm_deg + 180.0) % 360.0 - 180.0) * 0.017453292519943295 / ang
            glat = lat * 0.017453292519943295 / ang
            x, y = to.transform(glon, glat)
            if not all(abs(v) < 1e15 for v in (x, y)):
                continue
            lines.append(f"POINT {glon!r} {glat!r} {x!r} {y!r}")
        if not lines:
            continue
        out.write(f"SYSTEM {name} {projection}\nWKT {wkt}\n" + "\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
