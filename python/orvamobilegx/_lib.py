"""Finding and loading libORVAMobileGX.so, and the C signatures used here."""
import ctypes
import os
import pathlib

ENV_VARIABLE = "ORVAMOBILEGX_LIBRARY"
_NAMES = ("libORVAMobileGX.so", "libORVAMobileGX.so.9")


class LibraryNotFound(ImportError):
    """libORVAMobileGX.so was found nowhere the package looks."""


def _candidates():
    """Where the library may be, in the order tried: the environment
    variable, the build tree beside this package, the install prefixes."""
    given = os.environ.get(ENV_VARIABLE)
    if given:
        yield pathlib.Path(given)
        return
    root = pathlib.Path(__file__).resolve().parents[2]
    for build in ("build", "build-release", "build-asan"):
        for name in _NAMES:
            yield root / build / name
    for prefix in ("/usr/local/lib", "/usr/lib", "/usr/local/lib64", "/usr/lib/x86_64-linux-gnu"):
        for name in _NAMES:
            yield pathlib.Path(prefix) / name


def load():
    tried = []
    for path in _candidates():
        tried.append(str(path))
        if path.is_file():
            try:
                return _declare(ctypes.CDLL(str(path)))
            except OSError as error:
                raise LibraryNotFound(f"{path} exists but does not load: {error}") from error
    raise LibraryNotFound(
        "libORVAMobileGX.so not found; build it (see the README) or set "
        f"{ENV_VARIABLE} to its path.  Tried: " + ", ".join(tried))


class ErrExt(ctypes.Structure):
    """The record that says why a creating function failed."""
    _fields_ = [("severity", ctypes.c_uint32), ("category", ctypes.c_uint32),
                ("code", ctypes.c_uint32), ("function", ctypes.c_char * 256),
                ("message", ctypes.c_char * 1280)]


WKT_SIZE = 1024
MGRS_SIZE = 24
GEOREF_SIZE = 24

_P = ctypes.c_void_p
_D = ctypes.POINTER(ctypes.c_double)
_I = ctypes.c_int32
_S = ctypes.c_char_p
_SP = ctypes.POINTER(ctypes.c_char_p)


def _declare(lib):
    signatures = {
        "gx_object_from_string_errext": (_P, [_S, ctypes.POINTER(ErrExt)]),
        "gx_object_to_string": (_S, [_P, ctypes.c_char_p]),
        "gx_object_clone": (_P, [_P]),
        "gx_object_del": (None, [_P]),
        "gx_object_eq": (ctypes.c_int, [_P, _P]),
        "gx_object_type": (ctypes.c_uint32, [_P]),
        "gx_object_name": (_S, [_P, ctypes.c_char_p]),
        "gx_projcs_load_constants": (_I, [_P]),
        "gx_projcs_geogcs": (_P, [_P]),
        "gx_geogtran_load_constants": (_I, [_P]),
        "gx_geog_to_proj": (_I, [_P, _I, _D]),
        "gx_proj_to_geog": (_I, [_P, _I, _D]),
        "gx_geog_to_geog": (_I, [_P, _I, _D, _D, _I]),
        "gx_spheroid_axis": (ctypes.c_double, [_P]),
        "gx_geodesic_distance_n": (_I, [ctypes.c_double, ctypes.c_double, _I, _D, _D, _D, _D, _D]),
        "gx_geodesic_coordinate_n": (_I, [ctypes.c_double, ctypes.c_double, _I, _D, _D, _D, _D]),
        "gx_geog_to_mgrs": (_I, [_P, _I, _D, _I, _I, _SP]),
        "gx_mgrs_to_geog": (_I, [_P, _I, _SP, _D]),
        "gx_geog_to_georef": (ctypes.c_int, [_P, ctypes.c_int, _D, ctypes.c_int, ctypes.c_int, _SP]),
        "gx_georef_to_geog": (ctypes.c_int, [_P, ctypes.c_int, _SP, _D]),
        "gx_geogcs_datum": (_P, [_P]),
        "gx_datum_spheroid": (_P, [_P]),
        "gx_spheroid_flattening": (ctypes.c_double, [_P]),
        "gx_coordsys_to_adjhcs": (_I, [_P, _I, _D]),
        "gx_adjhcs_to_coordsys": (_I, [_P, _I, _D]),
        "gx_version_string": (_S, [ctypes.c_char_p]),
    }
    for name, (restype, argtypes) in signatures.items():
        function = getattr(lib, name)
        function.restype = restype
        function.argtypes = argtypes
    return lib
