"""compile() against NumPy's own evaluation of the same formulas."""

import numpy as np
import pytest

import quillon
from quillon import QuillonError

from conftest import needs

pytestmark = needs("batch evaluation")

ROWS = 10**6

FORMULAS = [
    ("a*x^2+b*x+c", lambda x, y, a, b, c: a * x**2 + b * x + c),
    ("@exp(-a*x)*@cos(y)^2+log(1+x^2)", lambda x, y, a, b, c: np.exp(-a * x) * np.cos(y) ** 2 + np.log(1 + x**2)),
    ("(x-y)^2/(1+@abs(x*y))", lambda x, y, a, b, c: (x - y) ** 2 / (1 + np.abs(x * y))),
    ("@sqrt(x^2+y^2)-b/c", lambda x, y, a, b, c: np.sqrt(x**2 + y**2) - b / c),
]


@pytest.fixture(scope="module")
def data():
    rng = np.random.default_rng(7)
    return {"x": rng.uniform(0.1, 3, ROWS), "y": rng.normal(size=ROWS), "a": 0.7, "b": -1.3, "c": 2.5}


def relative_error(got, want):
    return np.max(np.abs(got - want) / np.maximum(np.abs(want), 1e-300))


@pytest.mark.parametrize("text, numpy_form", FORMULAS, ids=[f[0] for f in FORMULAS])
def test_agrees_with_numpy_on_a_million_rows(table, data, text, numpy_form):
    f = quillon.compile(text, table)
    assert relative_error(f(**data), numpy_form(**data)) <= 1e-12


def test_inputs_come_by_keyword_mapping_or_position(table):
    f = quillon.compile("x*y+a", table)
    assert f.inputs == ("x", "y", "a")
    x, y = np.arange(4.0), np.full(4, 2.0)
    want = x * y + 1
    for got in (f(x=x, y=y, a=1), f({"X": x, "y": y, "a": 1}), f(x, y, 1.0)):
        np.testing.assert_array_equal(got, want)
    with pytest.raises(KeyError, match="'y'"):
        f(x=x, a=1)


def test_strided_and_broadcast_inputs(table):
    f = quillon.compile("x-y", table)
    grid = np.arange(12.0).reshape(3, 4)
    np.testing.assert_array_equal(f(x=grid[:, ::2], y=grid[0, ::2]), grid[:, ::2] - grid[0, ::2])
    np.testing.assert_array_equal(f(x=grid.T, y=1), grid.T - 1)


def test_lags_by_name_or_shifted_from_the_series(table):
    f = quillon.compile("x-x(-2)+y(1)", table)
    x, y = np.arange(5.0) ** 2, np.arange(5.0)
    shifted = f(x=x, y=y)
    np.testing.assert_array_equal(shifted, [np.nan, np.nan, 4 + 3, 9 - 1 + 4, np.nan])
    given = f({"x": x, "x(-2)": np.zeros(5), "y(1)": np.ones(5)})
    np.testing.assert_array_equal(given, x + 1)


def test_a_list_gives_a_tuple_of_outputs(table):
    gradient = quillon.parse("a*@exp(b*x)", table).gradient(["a", "b"])
    f = quillon.compile(quillon.parse("{" + ",".join(map(str, gradient)) + "}", table))
    da, db = f(x=np.array([0.0, 1.0]), a=2, b=1)
    np.testing.assert_allclose(da, np.exp([0.0, 1.0]), rtol=1e-15)
    np.testing.assert_allclose(db, 2 * np.array([0.0, 1.0]) * np.exp([0.0, 1.0]), rtol=1e-15)


def test_errors(table):
    with pytest.raises(QuillonError, match="syntax error"):
        quillon.compile("x+", table)
    f = quillon.compile("x", table)
    with pytest.raises(TypeError, match="expected 1 arrays"):
        f(np.ones(2), np.ones(2))
    f.close()
    with pytest.raises(ValueError, match="closed"):
        f(x=np.ones(2))


def test_scalars_written_into_the_formula_follow_their_values(table):
    f = quillon.compile("a*x+b", table)
    x = np.linspace(0, 1, 3 * 2**16)
    for a, b in [(2.0, 1.0), (3.0, 1.0), (2.0, 1.0), (0.1, 1e300)]:
        np.testing.assert_allclose(f(x=x, a=a, b=b), a * x + b, rtol=1e-15)
    np.testing.assert_array_equal(f(x=x, a=np.nan, b=0.0), np.full(x.shape, np.nan))
    with quillon.parse("x-a", table) as e:
        g = quillon.compile(e)
    np.testing.assert_array_equal(g(x=x, a=1.0), x - 1)
