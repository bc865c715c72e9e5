"""Finding and loading the shared library, with the prototypes of every export in one table."""

import ctypes
import ctypes.util
import os
import sys
from pathlib import Path

_NAMES = {"win32": "quillon.dll", "darwin": "libquillon.dylib"}
LIBRARY_NAME = _NAMES.get(sys.platform, "libquillon.so")

# The library's exports use __stdcall on 32-bit Windows only.
_STDCALL = sys.platform == "win32" and ctypes.sizeof(ctypes.c_void_p) == 4
_FUNCTYPE = ctypes.WINFUNCTYPE if _STDCALL else ctypes.CFUNCTYPE

RESOLVER = _FUNCTYPE(ctypes.c_int32, ctypes.c_char_p)

# Handles stay opaque integers on the Python side.
_E = ctypes.c_void_p  # mathexpr *
_T = ctypes.c_void_p  # mathsymtable *
_P = ctypes.c_void_p  # quillon_program *
_I32 = ctypes.c_int32
_U32 = ctypes.c_uint32
_PI32 = ctypes.POINTER(ctypes.c_int32)
_PU32 = ctypes.POINTER(ctypes.c_uint32)
_PD = ctypes.POINTER(ctypes.c_double)
_PP = ctypes.POINTER(ctypes.c_void_p)

# name: (restype, argtypes), in the order of the headers.
PROTOTYPES = {
    "quillon_init": (None, []),
    "quillon_cleanup": (None, []),
    "mathexpr_create_void": (_E, []),
    "mathexpr_destroy": (None, [_E]),
    "mathexpr_clone": (_E, [_E]),
    "mathexpr_assign": (None, [_E, _E]),
    "mathexpr_as_number": (ctypes.c_double, [_E]),
    "mathexpr_is_error": (_U32, [_E]),
    "mathexpr_is_void": (_U32, [_E]),
    "mathexpr_is_symbol": (_U32, [_E]),
    "mathexpr_is_number": (_U32, [_E]),
    "mathexpr_get_children": (_I32, [_E]),
    "mathexpr_first_child": (_E, [_E]),
    "mathexpr_next_child": (_U32, [_PP]),
    "mathsymtable_create": (_T, [RESOLVER, _U32]),
    "mathsymtable_add": (_U32, [_T, ctypes.c_char_p, _I32]),
    "mathsymtable_add_ex": (_U32, [_T, ctypes.c_char_p, _I32, _U32]),
    "mathsymtable_destroy": (None, [_T]),
    "mathexpr_create": (_E, [_T, ctypes.c_char_p]),
    "mathexpr_create_ex": (_E, [_T, ctypes.c_char_p, _U32]),
    "mathexpr_evaluate": (None, [_E, _U32]),
    "mathexpr_as_text": (None, [_E, ctypes.c_char_p, _I32, _PI32, _U32]),
    "mathexpr_is_numeric": (_U32, [_E]),
    "mathexpr_get_attributes": (_U32, [_E, _PI32, _PU32, _PU32]),
    "mathexpr_get_priority": (_I32, [_E]),
    "mathexpr_is_constant": (_U32, [_E, _E]),
    "mathexpr_is_linear": (_U32, [_E, _E]),
    "mathexpr_deriv": (_E, [_E, _E]),
    "mathexpr_deriv2": (_E, [_E, _E, _E]),
    "mathexpr_derivx": (_E, [_E, _E, _I32]),
    "mathexpr_taylor": (_E, [_E, _E, _E, _I32]),
    "mathexpr_make_implicit": (None, [_E]),
    "mathexpr_lincoefs": (_E, [_E, _E]),
    "mathexpr_symlist": (_E, [_E, _I32]),
    "mathexpr_normalize": (_E, [_E, _E]),
    "mathexpr_sort": (_E, [_E]),
    "mathexpr_distinct": (_E, [_E]),
    "mathexpr_join": (_E, [_E, _E]),
    "mathexpr_union": (_E, [_E, _E]),
    "mathexpr_intersection": (_E, [_E, _E]),
    "mathexpr_complement": (_E, [_E, _E]),
    "mathexpr_find": (_E, [_E, _E, ctypes.c_uint8]),
    "mathexpr_irange1d": (_U32, [_E, _E, _PI32, _PI32]),
    "mathexpr_irange2d": (_U32, [_E, _E, _PI32, _PI32, _PI32, _PI32]),
    "mathexpr_stackeval": (_I32, [_E, _PD, _PD]),
    "quillon_program_create": (_P, [_E]),
    "quillon_program_input_count": (_I32, [_P]),
    "quillon_program_input_name": (_I32, [_P, _I32, ctypes.c_char_p, _I32, _PI32]),
    "quillon_program_output_count": (_I32, [_P]),
    "quillon_program_evaluate": (_I32, [_P, ctypes.c_int64, _PP, _PP]),
    "quillon_program_destroy": (None, [_P]),
}


def _candidates():
    """Where the library may be: named by QUILLON_LIBRARY, beside the package, in a build tree."""
    named = os.environ.get("QUILLON_LIBRARY")
    if named:
        yield Path(named)
    here = Path(__file__).resolve().parent
    yield here / LIBRARY_NAME
    # bindings/python/quillon inside a source tree built into build/.
    yield here.parents[2] / "build" / LIBRARY_NAME
    yield Path.cwd() / "build" / LIBRARY_NAME
    installed = ctypes.util.find_library("quillon")
    if installed:
        yield Path(installed)


class _Library:
    """The loaded library: each export is an attribute with its prototype set.

    An export the loaded build lacks raises AttributeError when it is used, not at load time,
    so that a library without the batch evaluator still serves the symbolic side.
    """

    def __init__(self, path):
        loader = ctypes.WinDLL if _STDCALL else ctypes.CDLL
        self.path = str(path)
        self._dll = loader(self.path)
        self.missing = []
        for name, (restype, argtypes) in PROTOTYPES.items():
            try:
                function = getattr(self._dll, name)
            except AttributeError:
                self.missing.append(name)
                continue
            function.restype = restype
            function.argtypes = argtypes
            setattr(self, name, function)


def load():
    tried = []
    for path in _candidates():
        if path.is_file() or (path.name != LIBRARY_NAME and not path.is_absolute()):
            return _Library(path)
        tried.append(str(path))
    raise OSError(
        f"{LIBRARY_NAME} not found; build it and set QUILLON_LIBRARY to its path (tried: {', '.join(tried)})"
    )


lib = load()
