"""The package against pyproj (PROJ 9.1) and GeographicLib on a few
thousand points, round trips, and the errors a Python user meets."""
import gc
import os
import pathlib
import subprocess
import sys

import numpy as np
import pyproj
import pytest

from conftest import ROOT, wkt
import orvamobilegx as gx

RNG = np.random.default_rng(20261124)


def places(n, lon, lat):
    return np.column_stack([RNG.uniform(*lon, n), RNG.uniform(*lat, n)])


# (our definition, PROJ's definition of the same system, region)
SYSTEMS = [
    ("utm33n.wkt", "+proj=utm +zone=33 +ellps=WGS84", ((9, 21), (-80, 84))),
    ("texas_sc.wkt", "+proj=lcc +lat_1=30.28333333333333 +lat_2=28.38333333333333 "
     "+lat_0=27.83333333333333 +lon_0=-99 +x_0=600000 +y_0=4000000 +ellps=GRS80",
     ((-106, -93), (25, 37))),
]


@pytest.mark.parametrize("name,proj,region", SYSTEMS)
def test_projected_systems_agree_with_proj_and_round_trip(name, proj, region):
    system = gx.from_wkt(wkt(name))
    points = places(3000, *region)
    xy = system.from_geographic(points)
    want = np.column_stack(pyproj.Proj(proj)(points[:, 0], points[:, 1]))
    assert np.max(np.hypot(*(xy - want).T)) < 1e-3
    back = system.to_geographic(xy)
    # The transverse Mercator's stated series are not exact inverses of each
    # other at their last terms: a millimetre or two at the zone's edge.
    assert np.max(np.abs(back - points)) < 3e-8


def test_datum_shift_agrees_with_proj():
    # ED50 to WGS 84 by the position vector method, EPSG 1311's parameters.
    tran = gx.from_wkt(wkt("ed50_to_wgs84_ukcs.wkt"))
    points = places(3000, (-8, 2), (49, 61))
    got = tran.forward(points)
    proj = pyproj.Transformer.from_crs(
        "+proj=longlat +ellps=intl +towgs84=-89.5,-93.8,-123.1,0,0,-0.156,1.2 +type=crs",
        "EPSG:4326", always_xy=True)
    want = np.column_stack(proj.transform(points[:, 0], points[:, 1]))
    assert np.max(np.abs(got - want)) < 1e-8  # degrees: a millimetre
    # The reverse runs the method with its parameters negated: not the exact
    # inverse, a millimetre or two off.
    assert np.max(np.abs(tran.inverse(got) - points)) < 5e-8


def test_geodesics_agree_with_geographiclib():
    start, end = places(2000, (-180, 180), (-80, 80)), places(2000, (-180, 180), (-80, 80))
    # Keep out of the antipodal zone, where Vincenty's iteration is left unsettled.
    keep = np.abs(np.abs(start[:, 0] - end[:, 0]) - 180) > 20
    start, end = start[keep], end[keep]
    distance, az12, az21 = gx.geodesic_inverse(6378137.0, 1 / 298.257223563, start, end)
    geod = pyproj.Geod(ellps="WGS84")
    want_az12, want_az21, want_distance = geod.inv(start[:, 0], start[:, 1], end[:, 0], end[:, 1])
    assert np.max(np.abs(distance - want_distance)) < 1e-3
    assert np.max(np.abs((az12 - want_az12 + 180) % 360 - 180)) < 1e-7
    reached = gx.geodesic_direct(6378137.0, 1 / 298.257223563, start, distance, az12)
    assert np.max(np.abs(reached - end)) < 1e-8


def test_grid_references_round_trip_into_their_cells():
    wgs84 = gx.from_wkt(wkt("wgs84.wkt"))
    points = places(1000, (-180, 180), (-80, 84))
    corners = gx.from_mgrs(wgs84, gx.to_mgrs(wgs84, points, precision=5))
    assert np.max(np.abs(corners - points)) < 1e-3  # a metre square
    corners = gx.from_georef(wgs84, gx.to_georef(wgs84, points, precision=4))
    assert np.all((points - corners >= -1e-9) & (points - corners < 1 / 60 + 1e-9))
    assert gx.from_mgrs(wgs84, ["not a reference"]).tolist() == [[pytest.approx(np.nan, nan_ok=True)] * 2]


def test_objects_read_print_compare_and_delete():
    text = wkt("utm33n.wkt")
    with gx.from_wkt(text) as system:
        again = gx.from_wkt(str(system))
        assert isinstance(system, gx.ProjCS) and system == again and str(again) == str(system)
        assert system.name == "WGS_1984_UTM_Zone_33N"
        assert isinstance(system.geogcs, gx.GeogCS)
    with pytest.raises(ValueError, match="deleted"):
        system.from_geographic([[15, 50]])
    again.close()
    again.close()  # twice is harmless


def test_in_place_and_copies():
    system = gx.from_wkt(wkt("utm33n.wkt"))
    points = np.array([[15.0, 50.0], [16.0, 51.0]])
    copy = system.from_geographic(points)
    assert points[0, 0] == 15.0
    same = system.from_geographic(points, inplace=True)
    assert same is points and np.array_equal(points, copy)
    assert system.from_geographic(np.empty((0, 2))).shape == (0, 2)
    assert system.from_geographic([[15, 50]]).dtype == np.float64  # ints and lists convert


@pytest.mark.parametrize("coords,error", [
    (np.array([["a", "b"]]), TypeError),
    (np.zeros((3, 3)), ValueError),
    (np.zeros(4), ValueError),
])
def test_bad_arrays_raise(coords, error):
    system = gx.from_wkt(wkt("utm33n.wkt"))
    with pytest.raises(error):
        system.from_geographic(coords)


def test_in_place_refuses_what_it_cannot_change_where_it_lies():
    system = gx.from_wkt(wkt("utm33n.wkt"))
    strided = np.zeros((4, 4))[:, :2]
    with pytest.raises(ValueError, match="C-contiguous"):
        system.from_geographic(strided, inplace=True)
    with pytest.raises(ValueError):
        system.from_geographic(np.zeros((4, 2), dtype=np.float32), inplace=True)
    assert system.from_geographic(strided).shape == (4, 2)  # a copy is fine


def test_library_errors_become_exceptions():
    with pytest.raises(gx.GXError) as caught:
        gx.from_wkt('PROJCS["x",GEOGCS["g",DATUM["d",SPHEROID["s",6378137,298.3]],PRIMEM["G",0],'
                    'UNIT["Degree",0.0174532925199433]],PROJECTION["Nope"],UNIT["Meter",1]]')
    assert caught.value.code != 0 and ("Nope" in str(caught.value) or "projection" in str(caught.value))
    with pytest.raises(TypeError):
        gx.from_wkt(42)


def test_a_missing_library_is_told():
    env = dict(os.environ, ORVAMOBILEGX_LIBRARY="/no/such/libORVAMobileGX.so")
    run = subprocess.run([sys.executable, "-c", "import orvamobilegx"], env=env, cwd=ROOT / "python",
                         capture_output=True, text=True)
    assert run.returncode != 0 and "LibraryNotFound" in run.stderr and "ORVAMOBILEGX_LIBRARY" in run.stderr


def test_objects_pickle_as_their_text():
    import pickle
    system = gx.from_wkt(wkt("utm33n.wkt"))
    copy = pickle.loads(pickle.dumps(system))
    assert copy == system and copy.handle != system.handle
    del system
    gc.collect()
    assert copy.from_geographic([[15, 50]]).shape == (1, 2)


def test_dask_example_runs_on_a_two_worker_cluster(tmp_path):
    run = subprocess.run([sys.executable, str(ROOT / "examples" / "dask_reproject.py"), "--points", "20000",
                          "--partitions", "4", "--workers", "2", "--directory", str(tmp_path)],
                         capture_output=True, text=True, timeout=300)
    assert run.returncode == 0, run.stdout + run.stderr
    assert "sample agrees with one process" in run.stdout


def test_adjusted_system_fits_both_ways():
    text = ('ADJHCS["Site",' + wkt("wgs84.wkt").strip() + ',HTMETHOD["Affine_Parametric"],'
            'ARRAY["Fit",6,2,0,100,0,2,-50],UNIT["Meter",1.0]]')
    site = gx.from_wkt(text)
    assert isinstance(site, gx.AdjHCS)
    adjusted = site.to_adjusted([[1.0, 2.0], [3.0, -4.0]])
    assert adjusted.tolist() == [[102.0, -46.0], [106.0, -58.0]]
    assert np.allclose(site.from_adjusted(adjusted), [[1.0, 2.0], [3.0, -4.0]])
    flat = gx.from_wkt(text.replace("6,2,0,100,0,2,-50", "6,1,2,0,2,4,0"))
    with pytest.raises(gx.GXError, match="singular"):
        flat.from_adjusted([[1.0, 1.0]])
