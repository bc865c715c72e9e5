import pytest

import quillon
from quillon._library import lib


@pytest.fixture
def table():
    with quillon.SymbolTable(series=["x", "y", "z"], scalars=["a", "b", "c"]) as t:
        yield t


def _answers(method, *args, text="x^2+y(1)"):
    """Whether the library answers the method, rather than leaving its call unevaluated."""
    with quillon.SymbolTable(series=["x", "y"]) as t:
        try:
            result = getattr(quillon.parse(text, t), method)(*args)
        except quillon.QuillonError:
            return False
        return not str(result).startswith("@") and result != []


# Parts of the library that arrive separately; their tests skip while the library lacks them.
_PROBES = {
    "taylor": lambda: _answers("taylor", "x", 0, 2),
    "lags": lambda: _answers("lag", 1),
    "time forms": lambda: _answers("time_expand", text="d(x)"),
    "normal forms": lambda: _answers("normalize", "x", text="y = 2*x"),
    "replacement": lambda: _answers("replace", {"x": 1}),
    "search": lambda: _answers("find", "x"),
    "linear forms": lambda: _answers("linear_coefficients", ["x"]),
    "symbol lists": lambda: _answers("symbols"),
    "predicates": lambda: quillon.parse("2*x", quillon.SymbolTable(series=["x"])).is_linear("x"),
    "subexpressions": lambda: _answers("subexpressions"),
    "batch evaluation": lambda: "quillon_program_create" not in lib.missing,
}


def needs(feature):
    return pytest.mark.skipif(not _PROBES[feature](), reason=f"the library does not answer {feature} yet")
