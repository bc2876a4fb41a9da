#!/usr/bin/env python3
"""Converting a million points from Python against the same conversion in a
C loop: prints both, best of several runs, and their ratio.

    ORVAMOBILEGX_LIBRARY=build/libORVAMobileGX.so python3 python/bench_convert.py
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import time

import numpy as np

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "python"))
import orvamobilegx as gx  # noqa: E402

N = 1_000_000
RUNS = 7
UTM_32N = (ROOT / "tests" / "tools" / "data" / "utm31n.wkt").read_text().replace("31N", "32N")

C_LOOP = r"""
#include <stdio.h>
#include <stdlib.h>
#include <time.h>
#include "orvamobilegx.h"
static double now(void) { struct timespec t; clock_gettime(CLOCK_MONOTONIC, &t); return t.tv_sec + t.tv_nsec * 1e-9; }
int main(int argc, char **argv) {
  int n = atoi(argv[2]), runs = atoi(argv[3]);
  gx_projcs *projcs = gx_projcs_from_string(argv[1]);
  double *start = malloc(16 * (size_t)n), *work = malloc(16 * (size_t)n), best = 1e30;
  FILE *f = fopen(argv[4], "rb");
  if (!projcs || !f || fread(start, 16, n, f) != (size_t)n) return 1;
  gx_projcs_load_constants(projcs);
  for (int r = 0; r < runs; ++r) {
    for (int i = 0; i < 2 * n; ++i) work[i] = start[i];
    double t = now();
    gx_geog_to_proj(projcs, n, work);
    t = now() - t;
    if (t < best) best = t;
  }
  printf("%.6f\n", best);
  return 0;
}
"""


def library_path():
    return os.environ.get(gx._lib.ENV_VARIABLE) or str(ROOT / "build" / "libORVAMobileGX.so")


def c_loop_seconds(points):
    with tempfile.TemporaryDirectory() as tmp:
        source, program, data = (pathlib.Path(tmp) / name for name in ("loop.c", "loop", "points.bin"))
        source.write_text(C_LOOP)
        points.tofile(data)
        lib = pathlib.Path(library_path())
        subprocess.run(["cc", "-O2", "-std=c99", "-D_POSIX_C_SOURCE=199309L", str(source), "-I", str(ROOT / "include"),
                        str(lib), f"-Wl,-rpath,{lib.parent}", "-o", str(program)], check=True)
        out = subprocess.run([str(program), UTM_32N, str(len(points)), str(RUNS), str(data)],
                             check=True, capture_output=True, text=True)
        return float(out.stdout)


def python_seconds(points, inplace):
    system = gx.from_wkt(UTM_32N)
    system.from_geographic(points[:10])  # constants loaded, as in the C loop
    best = float("inf")
    for _ in range(RUNS):
        work = points.copy()
        start = time.perf_counter()
        system.from_geographic(work, inplace=inplace)
        best = min(best, time.perf_counter() - start)
    return best


def main():
    rng = np.random.default_rng(1)
    points = np.column_stack([rng.uniform(6, 12, N), rng.uniform(-80, 84, N)])
    c = c_loop_seconds(points)
    in_place = python_seconds(points, True)
    copied = python_seconds(points, False)
    print(f"{N} points, UTM 32N, best of {RUNS}:")
    print(f"  C loop                 {c * 1e3:8.2f} ms  {c / N * 1e9:6.1f} ns/point")
    print(f"  Python, in place       {in_place * 1e3:8.2f} ms  {in_place / N * 1e9:6.1f} ns/point  "
          f"({in_place / c:.3f} of C)")
    print(f"  Python, into a copy    {copied * 1e3:8.2f} ms  {copied / N * 1e9:6.1f} ns/point  "
          f"({copied / c:.3f} of C)")


if __name__ == "__main__":
    main()
