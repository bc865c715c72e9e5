"""Symbol tables: which names are the host's objects, and of what kind."""

import weakref

from ._library import RESOLVER, lib
from ._owned import Owned

# Raw type codes of the library for the kinds a data user declares. Series take lags, x(-1);
# matrices take two indices, m(1,2); vectors one, v(3); scalars none.
KINDS = {"series": 1, "scalar": 35, "matrix": 40, "vector": 42, "unknown": 199}
UNKNOWN = KINDS["unknown"]

# Masks for Expression.symbols(), by the class the type code falls into.
SERIES = 36
OBJECTS = 8
ALL = 63


def type_code(kind):
    """A kind name ("series") or a raw type code (1) as the library's code."""
    if kind is None:
        return UNKNOWN
    if isinstance(kind, str):
        try:
            return KINDS[kind.lower()]
        except KeyError:
            raise ValueError(f"unknown kind {kind!r}; expected one of {', '.join(KINDS)}") from None
    return int(kind)


def _answering(resolver):
    def resolve(name):
        # An exception cannot cross the C boundary: an answer that fails is "unknown".
        try:
            return type_code(resolver(name.decode("utf-8", "replace")))
        except Exception:
            return UNKNOWN

    return resolve


class SymbolTable(Owned):
    """Names declared by kind; with resolver, a callable name -> kind asked for unknown names.

    With auto=True every name is accepted (the resolver, if any, still gives its kind). The
    table must outlive the expressions parsed with it: each expression keeps it alive, and
    closing the table closes them first.
    """

    _noun = "symbol table"

    def __init__(self, series=(), scalars=(), matrices=(), vectors=(), resolver=None, auto=False):
        # The callback object must live as long as the table that may call it; it does not refer
        # to the table, so that a table is freed as soon as it is no longer used.
        self._callback = RESOLVER(_answering(resolver)) if resolver is not None else RESOLVER()
        self._expressions = weakref.WeakSet()
        self._handle = lib.mathsymtable_create(self._callback, 1 if auto else 0)
        for kind, names in (("series", series), ("scalar", scalars), ("matrix", matrices), ("vector", vectors)):
            for name in [names] if isinstance(names, str) else names:
                self.add(name, kind)

    def add(self, name, kind="series"):
        """Declares name (or replaces its kind); True when the name is new."""
        return bool(lib.mathsymtable_add(self.handle, name.encode(), type_code(kind)))

    def _register(self, expression):
        self._expressions.add(expression)

    def _release(self, handle):
        for expression in list(self._expressions):
            expression.close()
        lib.mathsymtable_destroy(handle)
