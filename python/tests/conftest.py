import os
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "python"))
DATA = ROOT / "tests" / "tools" / "data"


def wkt(name):
    return (DATA / name).read_text()
