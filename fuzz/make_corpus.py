#!/usr/bin/env python3
"""Writes the seed inputs of the grid-file fuzz harnesses: small valid NTv2
files in both record forms and byte orders, and NADCON grids in both orders."""
import os
import struct

HERE = os.path.dirname(os.path.abspath(__file__))


def ntv2(padded, order, unit=b"SECONDS ", child=True):
    out = bytearray()

    def integer(key, v):
        out.extend(key.ljust(8) + struct.pack(order + "i", v) + (b"\0" * 4 if padded else b""))

    def text(key, v):
        out.extend(key.ljust(8) + v.ljust(8))

    def number(key, v):
        out.extend(key.ljust(8) + struct.pack(order + "d", v))

    grids = [(b"ROOT", b"NONE", 36000, 45000, -75600, -68400, 1800)]
    if child:
        grids.append((b"CHILD", b"ROOT", 37800, 39600, -72000, -70200, 900))
    integer(b"NUM_OREC", 11)
    integer(b"NUM_SREC", 11)
    integer(b"NUM_FILE", len(grids))
    text(b"GS_TYPE", unit)
    text(b"VERSION", b"NTv2.0")
    text(b"SYSTEM_F", b"NAD27")
    text(b"SYSTEM_T", b"NAD83")
    for v in (6378206.4, 6356583.8, 6378137.0, 6356752.314):
        number(b"MAJOR_F", v)
    for name, parent, s, n, e, w, inc in grids:
        text(b"SUB_NAME", name)
        text(b"PARENT", parent)
        text(b"CREATED", b"20240101")
        text(b"UPDATED", b"20240101")
        for v in (s, n, e, w, inc, inc):
            number(b"S_LAT", float(v))
        rows = int(abs(n - s) / inc + 1.5)
        cols = int(abs(w - e) / inc + 1.5)
        integer(b"GS_COUNT", rows * cols)
        for k in range(rows * cols):
            out.extend(struct.pack(order + "4f", 0.25 * k, -0.125 * k, 0.01, 0.02))
    out.extend(b"END".ljust(8) + b"\0" * 8)
    return bytes(out)


def nadcon(order, nc=24, nr=3):
    reclen = (nc + 1) * 4
    out = bytearray(b"NADCON EXTRACTED REGION".ljust(56) + b"NADGRD  ")
    out.extend(struct.pack(order + "3i5f", nc, nr, 1, -100.0, 0.25, 40.0, 0.25, 0.0))
    out.extend(b"\0" * (reclen - len(out)))
    for r in range(nr):
        out.extend(struct.pack(order + "i", 0))
        out.extend(struct.pack(order + "%df" % nc, *[0.5 * c + r for c in range(nc)]))
    return bytes(out)


def write(sub, name, data):
    os.makedirs(os.path.join(HERE, "corpus", sub), exist_ok=True)
    with open(os.path.join(HERE, "corpus", sub, name), "wb") as f:
        f.write(data)


for padded in (True, False):
    for order, tag in (("<", "le"), (">", "be")):
        form = "padded" if padded else "compact"
        write("ntv2", "%s_%s.gsb" % (form, tag), ntv2(padded, order))
write("ntv2", "degrees_single.gsb", ntv2(True, "<", b"DEGREES ", child=False))
write("nadcon", "grid_le.los", nadcon("<"))
write("nadcon", "grid_be.los", nadcon(">"))
