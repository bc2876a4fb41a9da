#!/usr/bin/env python3
"""Reprojects a set of CSV point files on a Dask cluster, one partition per
task, with the orvamobilegx package on every worker.

    python3 examples/dask_reproject.py                      # 10 million points, local cluster
    python3 examples/dask_reproject.py --points 200000 --workers 2
    python3 examples/dask_reproject.py --scheduler tcp://scheduler:8786 --directory /shared/points

The points are made first (by the cluster too), as CSV files of
"longitude,latitude" in degrees, one file a partition; each task then reads
its file, converts it to UTM zone 33N (or the --definition given) with one
call of the library, and writes "x,y" beside it.  A worker reads the
definition once and keeps it for every partition it is given.  At the end a
sample of points is converted again in this process and compared with what
the workers wrote.

On a real cluster, start a scheduler and workers on the machines
(`dask scheduler`, `dask worker tcp://scheduler:8786`), install the library
and this package on every worker (or set ORVAMOBILEGX_LIBRARY and PYTHONPATH
there), and give --scheduler and a --directory that every worker can read and
write (a shared file system).  Nothing else changes.
"""
import argparse
import functools
import os
import pathlib
import sys
import tempfile
import time

import numpy as np

HERE = pathlib.Path(__file__).resolve().parent
PACKAGE = HERE.parent / "python"
if str(PACKAGE) not in sys.path:
    sys.path.insert(0, str(PACKAGE))
# Workers started from here find the package the same way.
os.environ["PYTHONPATH"] = os.pathsep.join(filter(None, [str(PACKAGE), os.environ.get("PYTHONPATH")]))

UTM_33N = (
    'PROJCS["WGS_1984_UTM_Zone_33N",GEOGCS["GCS_WGS_1984",DATUM["D_WGS_1984",'
    'SPHEROID["WGS_1984",6378137.0,298.257223563]],PRIMEM["Greenwich",0.0],'
    'UNIT["Degree",0.0174532925199433]],PROJECTION["Transverse_Mercator"],'
    'PARAMETER["False_Easting",500000.0],PARAMETER["False_Northing",0.0],'
    'PARAMETER["Central_Meridian",15.0],PARAMETER["Scale_Factor",0.9996],'
    'PARAMETER["Latitude_Of_Origin",0.0],UNIT["Meter",1.0]]')


def make_partition(path, count, seed):
    """One input file: `count` random places of the zone, degrees."""
    rng = np.random.default_rng(seed)
    points = np.column_stack([rng.uniform(9.0, 21.0, count), rng.uniform(-80.0, 84.0, count)])
    _write(path, points, "lon,lat")
    return count


@functools.lru_cache(maxsize=8)
def _system(definition):
    """The projected system of a worker process, read once per definition."""
    import orvamobilegx as gx
    return gx.from_wkt(definition)


def reproject_partition(source, target, definition):
    """Reads one file, converts it in one call, writes the result."""
    points = _read(source)
    xy = _system(definition).from_geographic(points, inplace=True)
    _write(target, xy, "x,y")
    return len(xy)


def _read(path):
    try:
        import pandas
        frame = pandas.read_csv(path, dtype=np.float64, float_precision="round_trip")
        return np.ascontiguousarray(frame.to_numpy(dtype=np.float64))
    except ImportError:
        return np.loadtxt(path, delimiter=",", skiprows=1, ndmin=2)


def _write(path, array, header):
    try:
        import pandas
        pandas.DataFrame(array, columns=header.split(",")).to_csv(path, index=False, float_format="%.10f")
    except ImportError:
        np.savetxt(path, array, delimiter=",", header=header, comments="", fmt="%.10f")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--points", type=int, default=10_000_000)
    parser.add_argument("--partitions", type=int, default=40)
    parser.add_argument("--workers", type=int, default=2, help="local cluster only")
    parser.add_argument("--scheduler", help="address of a running Dask scheduler")
    parser.add_argument("--directory", help="where the CSV files go (default: a temporary one)")
    parser.add_argument("--definition", help="WKT text, or @file, of the target system")
    args = parser.parse_args()

    definition = UTM_33N
    if args.definition:
        definition = pathlib.Path(args.definition[1:]).read_text() if args.definition.startswith("@") \
            else args.definition
    directory = pathlib.Path(args.directory or tempfile.mkdtemp(prefix="gx_dask_"))
    directory.mkdir(parents=True, exist_ok=True)

    from dask.distributed import Client, LocalCluster
    cluster = None
    if args.scheduler:
        client = Client(args.scheduler)
    else:
        cluster = LocalCluster(n_workers=args.workers, threads_per_worker=1, processes=True,
                               dashboard_address=None)
        client = Client(cluster)
    try:
        sizes = [args.points // args.partitions + (i < args.points % args.partitions)
                 for i in range(args.partitions)]
        sources = [str(directory / f"points_{i:04d}.csv") for i in range(args.partitions)]
        targets = [str(directory / f"utm_{i:04d}.csv") for i in range(args.partitions)]

        start = time.perf_counter()
        made = client.gather(client.map(make_partition, sources, sizes, range(args.partitions), pure=False))
        print(f"made {sum(made)} points in {len(made)} files in {time.perf_counter() - start:.1f} s")

        start = time.perf_counter()
        done = client.gather(client.map(reproject_partition, sources, targets, [definition] * len(sources),
                                        pure=False))
        seconds = time.perf_counter() - start
        print(f"reprojected {sum(done)} points in {seconds:.2f} s: {sum(done) / seconds:,.0f} points/s "
              f"on {len(client.scheduler_info()['workers'])} workers (reading and writing CSV included)")

        # A sample, converted here in one process, must match the workers' bits
        # as far as the CSV's ten decimals carry them.
        for i in sorted({0, len(sources) // 2, len(sources) - 1}):
            points = _read(sources[i])[:1000]
            want = _system(definition).from_geographic(points)
            got = _read(targets[i])[:1000]
            if not np.allclose(got, want, rtol=0, atol=1e-8, equal_nan=True):
                print(f"partition {i}: the workers' result differs from one process", file=sys.stderr)
                return 1
        print("sample agrees with one process")
        return 0
    finally:
        client.close()
        if cluster is not None:
            cluster.close()


if __name__ == "__main__":
    sys.exit(main())
