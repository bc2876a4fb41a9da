"""ORVAMobileGX for Python: coordinate systems read from WKT, and NumPy
arrays converted through them by the C library in one call per array.

    import numpy as np, orvamobilegx as gx
    utm = gx.from_wkt(open("utm33n.wkt").read())
    lonlat = utm.to_geographic(np.array([[500000.0, 5540000.0]]))

Coordinates are arrays of shape (n, 2), longitude (or x) first, in the units
of the system (degrees or metres as its WKT says).  Every conversion takes
any real array and returns a new float64 array; with ``inplace=True`` it
converts a C-contiguous float64 (n, 2) array where it lies, with no copy.
A point without an image comes back as NaN.  Errors of the library become
``GXError`` with its message, number and reporting function.
"""
import ctypes
import math
import threading

import numpy as np

from ._lib import ErrExt, LibraryNotFound, GEOREF_SIZE, MGRS_SIZE, WKT_SIZE, load

__all__ = ["GXError", "LibraryNotFound", "from_wkt", "CoordSys", "GeogCS", "ProjCS",
           "GeogTran", "AdjHCS", "Object", "geodesic_inverse", "geodesic_direct", "to_mgrs",
           "from_mgrs", "to_georef", "from_georef", "version"]

_clib = load()

_TYPE_GEOGCS = 0x1
_TYPE_PROJCS = 0x2
_TYPE_GEOGTRAN = 0x80


class GXError(Exception):
    """A failure the library reported: its message, stable number and the
    function that reported it."""

    def __init__(self, message, code=0, function=""):
        super().__init__(message)
        self.message = message
        self.code = code
        self.function = function

    def __str__(self):
        return f"{self.message} (message {self.code}, {self.function})" if self.code else self.message


def version():
    buffer = ctypes.create_string_buffer(WKT_SIZE)
    return _clib.gx_version_string(buffer).decode()


# ---- objects -----------------------------------------------------------------


class Object:
    """Any object of the library.  It owns its C object and deletes it when
    closed, when a ``with`` block ends, or when it is collected; using it after
    that raises ValueError."""

    def __init__(self, handle):
        self._handle = handle
        # A conversion loads the object's constants on first use; the lock
        # keeps two threads of one process from loading them at once.
        self._lock = threading.Lock()

    @property
    def handle(self):
        if self._handle is None:
            raise ValueError(f"this {type(self).__name__} has been deleted")
        return self._handle

    def close(self):
        if self._handle is not None:
            _clib.gx_object_del(self._handle)
            self._handle = None

    def __enter__(self):
        return self

    def __exit__(self, *exc):
        self.close()

    def __del__(self):
        try:
            self.close()
        except Exception:  # interpreter shutdown: the library may be gone
            pass

    def __str__(self):
        buffer = ctypes.create_string_buffer(WKT_SIZE)
        return _clib.gx_object_to_string(self.handle, buffer).decode("latin-1")

    def __repr__(self):
        text = str(self) if self._handle is not None else "deleted"
        return f"<{type(self).__name__} {text[:60]}{'...' if len(text) > 60 else ''}>"

    def __eq__(self, other):
        if not isinstance(other, Object):
            return NotImplemented
        return bool(_clib.gx_object_eq(self.handle, other.handle))

    __hash__ = None

    @property
    def name(self):
        buffer = ctypes.create_string_buffer(64)
        return _clib.gx_object_name(self.handle, buffer).decode("latin-1")

    def clone(self):
        return _wrap(_clib.gx_object_clone(self.handle))

    def __getstate__(self):  # objects travel between processes as their text
        return {"wkt": str(self)}

    def __setstate__(self, state):
        other = from_wkt(state["wkt"])
        self._handle, other._handle = other._handle, None
        self._lock = threading.Lock()


class CoordSys(Object):
    """A geographic or projected coordinate system."""


class GeogCS(CoordSys):
    """A geographic coordinate system: longitude and latitude in its unit."""

    def _ellipsoid(self):
        spheroid = _clib.gx_datum_spheroid(_clib.gx_geogcs_datum(self.handle))
        return _clib.gx_spheroid_axis(spheroid), _clib.gx_spheroid_flattening(spheroid)


class ProjCS(CoordSys):
    """A projected coordinate system."""

    def _loaded(self):
        with self._lock:
            _clib.gx_projcs_load_constants(self.handle)
        return self.handle

    def from_geographic(self, coords, inplace=False):
        """Longitude and latitude (in the unit of the system's GEOGCS) to x, y."""
        return _convert(_clib.gx_geog_to_proj, self._loaded(), coords, inplace)

    def to_geographic(self, coords, inplace=False):
        """x, y to longitude and latitude."""
        return _convert(_clib.gx_proj_to_geog, self._loaded(), coords, inplace)

    @property
    def geogcs(self):
        """A copy of the geographic system the projection stands on."""
        return _wrap(_clib.gx_object_clone(_clib.gx_projcs_geogcs(self.handle)))


class GeogTran(Object):
    """A transformation between two geographic systems."""

    def _loaded(self):
        with self._lock:
            _clib.gx_geogtran_load_constants(self.handle)
        return self.handle

    def forward(self, coords, inplace=False):
        """From the first geographic system to the second."""
        return self._run(coords, inplace, 0)

    def inverse(self, coords, inplace=False):
        """From the second geographic system to the first."""
        return self._run(coords, inplace, 1)

    def _run(self, coords, inplace, direction):
        handle = self._loaded()

        def call(h, n, pointer):
            return _clib.gx_geog_to_geog(h, n, pointer, None, direction)
        return _convert(call, handle, coords, inplace)


class AdjHCS(Object):
    """A coordinate system with a local fit of its coordinates (ADJHCS)."""

    def to_adjusted(self, coords, inplace=False):
        """Coordinates of the underlying system to adjusted ones."""
        return self._fit(_clib.gx_coordsys_to_adjhcs, coords, inplace)

    def from_adjusted(self, coords, inplace=False):
        """Adjusted coordinates back to the underlying system's."""
        return self._fit(_clib.gx_adjhcs_to_coordsys, coords, inplace)

    def _fit(self, function, coords, inplace):
        array = _pairs(coords, inplace)
        if array.shape[0] and function(self.handle, array.shape[0], _doubles(array)) == 0:
            raise GXError("the fit is singular: its coefficients have no inverse")
        return array


_FAMILIES = {_TYPE_GEOGCS: GeogCS, _TYPE_PROJCS: ProjCS, _TYPE_GEOGTRAN: GeogTran, 0x20000: AdjHCS}


def _wrap(handle):
    if not handle:
        raise GXError("the library could not make the object (no memory?)")
    return _FAMILIES.get(_clib.gx_object_type(handle), Object)(handle)


def from_wkt(text):
    """Reads any object from its WKT text; raises GXError with the library's
    message when the text does not read."""
    if not isinstance(text, (str, bytes)):
        raise TypeError(f"WKT text must be str or bytes, not {type(text).__name__}")
    data = text.encode("latin-1") if isinstance(text, str) else text
    if b"\0" in data:
        raise ValueError("WKT text holds a NUL character")
    record = ErrExt()
    handle = _clib.gx_object_from_string_errext(data, ctypes.byref(record))
    if not handle:
        raise GXError(record.message.decode("latin-1") or "the text does not read",
                      record.code, record.function.decode("latin-1"))
    return _wrap(handle)


# ---- arrays ----------------------------------------------------------------------


def _pairs(coords, inplace):
    """The (n, 2) float64 C-contiguous array that the C function converts."""
    if inplace:
        if not isinstance(coords, np.ndarray):
            raise TypeError("inplace=True needs a NumPy array")
        if coords.dtype != np.float64 or not coords.flags.c_contiguous or not coords.flags.writeable:
            raise ValueError("inplace=True needs a writeable C-contiguous float64 array; "
                             "convert with inplace=False to get a new array")
        array = coords
    else:
        array = np.asarray(coords)
        if array.dtype.kind not in "fiu":
            raise TypeError(f"coordinates must be real numbers, not {array.dtype}")
        array = np.array(array, dtype=np.float64, order="C", copy=True)
    if array.ndim != 2 or array.shape[1] != 2:
        raise ValueError(f"coordinates must have shape (n, 2), not {array.shape}")
    if array.shape[0] > 2**31 - 1:
        raise ValueError("more than 2**31 - 1 points in one call")
    return array


def _convert(function, handle, coords, inplace):
    array = _pairs(coords, inplace)
    n = array.shape[0]
    if n:
        function(handle, n, array.ctypes.data_as(ctypes.POINTER(ctypes.c_double)))
    return array


def _doubles(array):
    return array.ctypes.data_as(ctypes.POINTER(ctypes.c_double))


def _radians_pairs(coords):
    return np.radians(_pairs(coords, False))


def geodesic_inverse(a, f, start, end):
    """Distances (in the unit of a) and azimuths (degrees, at both ends, the
    second pointing back) of the geodesics from each point of `start` to the
    point of `end` in the same row; points in degrees, shape (n, 2)."""
    p1, p2 = _radians_pairs(start), _radians_pairs(end)
    if p1.shape != p2.shape:
        raise ValueError(f"start and end differ in shape: {p1.shape} and {p2.shape}")
    n = p1.shape[0]
    distance, az12, az21 = np.empty(n), np.empty(n), np.empty(n)
    if n:
        _clib.gx_geodesic_distance_n(a, (2 - f) * f, n, _doubles(p1), _doubles(p2), _doubles(distance),
                                    _doubles(az12), _doubles(az21))
    return distance, np.degrees(az12), np.degrees(az21)


def geodesic_direct(a, f, start, distance, azimuth):
    """The points reached from `start` (degrees, shape (n, 2)) after each
    distance along each azimuth (degrees)."""
    p1 = _radians_pairs(start)
    n = p1.shape[0]
    d = np.ascontiguousarray(np.broadcast_to(np.asarray(distance, dtype=np.float64), (n,)))
    az = np.ascontiguousarray(np.radians(np.broadcast_to(np.asarray(azimuth, dtype=np.float64), (n,))))
    out = np.empty((n, 2))
    if n:
        _clib.gx_geodesic_coordinate_n(a, (2 - f) * f, n, _doubles(p1), _doubles(d), _doubles(az),
                                      _doubles(out))
    return np.degrees(out)


def _string_buffers(n, size):
    buffers = (ctypes.c_char * size * n)()
    pointers = (ctypes.c_char_p * n)(*[ctypes.addressof(buffers[i]) for i in range(n)])
    return buffers, pointers


def _references(convert, geogcs, coords, precision, size):
    array = _pairs(coords, False)
    n = array.shape[0]
    if n == 0:
        return np.array([], dtype=object)
    buffers, pointers = _string_buffers(n, size)
    convert(geogcs.handle, n, _doubles(array), precision, 0, pointers)
    return np.array([bytes(b).split(b"\0", 1)[0].decode() for b in buffers], dtype=object)


def _from_references(convert, geogcs, references):
    texts = [r.encode("latin-1") if isinstance(r, str) else bytes(r) for r in references]
    n = len(texts)
    out = np.full((n, 2), np.nan)
    if n:
        convert(geogcs.handle, n, (ctypes.c_char_p * n)(*texts), _doubles(out))
    return out


def to_mgrs(geogcs, coords, precision=5):
    """MGRS references of (longitude, latitude) points; '' where there is none."""
    return _references(_clib.gx_geog_to_mgrs, geogcs, coords, precision, MGRS_SIZE)


def from_mgrs(geogcs, references):
    """South-west corners of MGRS cells; NaN for a reference that does not read."""
    return _from_references(_clib.gx_mgrs_to_geog, geogcs, references)


def to_georef(geogcs, coords, precision=4):
    return _references(_clib.gx_geog_to_georef, geogcs, coords, precision, GEOREF_SIZE)


def from_georef(geogcs, references):
    return _from_references(_clib.gx_georef_to_geog, geogcs, references)
