"""The symbolic methods, through real calls of the library."""

import pytest

import quillon
from quillon import Expression, QuillonError, SymbolTable

from conftest import needs


def parse(text, table):
    return Expression.parse(text, table)


@pytest.mark.parametrize(
    "text, method, args, expected",
    [
        ("x*@cos(x)", "diff", ("x",), "@cos(x)-x*@sin(x)"),
        ("x^2*y+@sin(y)", "diff", ("x", "y"), "2*x"),
        ("x^2*y+@sin(y)", "diff", ("y", "y"), "-@sin(y)"),
        pytest.param("x^2", "taylor", ("x", 1, 5), "1/@fact(0)+2*(x-1)/@fact(1)+2*(x-1)^2/@fact(2)", marks=needs("taylor")),
        ("x+x", "simplify", (), "2*x"),
        ("(x+1)^2", "expand", (), "1+2*x+x^2"),
        pytest.param("x+y(1)", "lag", (1,), "x(-1)+y", marks=needs("lags")),
        pytest.param("d(x)", "time_expand", (), "-x(-1)+x", marks=needs("time forms")),
        pytest.param("y = a*x + b", "normalize", ("x",), "x:=(-b+y)/a", marks=needs("normal forms")),
        pytest.param("y = a*x + b", "implicit", (), "-b-a*x+y", marks=needs("normal forms")),
        pytest.param("x+y", "replace", ({"x": 1},), "1+y", marks=needs("replacement")),
        pytest.param("x+y", "replace", (["y = z"],), "x+z", marks=needs("replacement")),
    ],
)
def test_methods_answer_as_the_engine_does(table, text, method, args, expected):
    assert getattr(parse(text, table), method)(*args) == expected


@pytest.mark.parametrize(
    "text, method, args, expected",
    [
        ("x^2*y+@sin(y)", "gradient", (["x", "y", "z"],), ["2*x*y", "x^2+@cos(y)", "0"]),
        pytest.param("a*x + b*y + c", "linear_coefficients", (["x", "y"],), ["c", "a", "b"], marks=needs("linear forms")),
        pytest.param("log(x)+log(y)", "find", ("log(#1)",), ["log(x)", "log(y)"], marks=needs("search")),
        pytest.param("a + x(-1) + x", "symbols", (quillon.SERIES,), ["x(-1)", "x"], marks=needs("symbol lists")),
    ],
)
def test_methods_answering_lists(table, text, method, args, expected):
    assert [str(item) for item in getattr(parse(text, table), method)(*args)] == expected


@needs("predicates")
@needs("subexpressions")
def test_predicates_and_structure(table):
    e = parse("a*x + b", table)
    assert e.is_linear("x") and not parse("x^2", table).is_linear("x")
    assert e.is_constant("y") and not e.is_constant("x")
    assert float(parse("3/4", table).simplify()) == 0.75
    assert parse("2*x", table).simplify() == parse("x*2", table).simplify()
    assert "@sublist" in str(parse("(a+b)^2+log(a+b)", table).subexpressions())


def test_operators_build_new_expressions(table):
    x, y = parse("x", table), parse("y", table)
    assert str(((x + y) ** 2 - 1 / x) * 3) == "((x+y)^2-1/x)*3"
    assert (x * x).simplify() == "x^2"
    assert str(-x) == "-x" and str(2 - x) == "2-x"
    assert x == "x" and x != y


def test_errors_carry_the_engine_message(table):
    with pytest.raises(QuillonError, match="^syntax error: "):
        parse("x+*", table)
    with pytest.raises(QuillonError, match="unrecognized identifier 'w'"):
        parse("w+1", table)
    with pytest.raises(TypeError):
        parse("x", table) + object()


@needs("symbol lists")
def test_resolver_types_unknown_names():
    kinds = {"gdp": "series", "alpha": "scalar", "bad": None}

    def resolve(name):
        if name == "boom":
            raise RuntimeError("a failing resolver means unknown")
        return kinds.get(name)

    with SymbolTable(resolver=resolve) as t:
        assert parse("gdp(-1)*alpha", t).symbols(quillon.SERIES) == ["gdp(-1)"]
        for unknown in ("bad", "boom", "other"):
            with pytest.raises(QuillonError, match="unrecognized identifier"):
                parse(unknown, t)


def test_auto_table_accepts_every_name():
    with SymbolTable(auto=True) as t:
        assert parse("foo+bar", t).diff("foo") == "1"


def test_gradient_by_a_hundred_parameters(table):
    t = SymbolTable(series=["x"], scalars=[f"b{i}" for i in range(100)])
    model = parse("+".join(f"b{i}*@exp(-b{i}*x)" for i in range(100)), t)
    gradient = model.gradient([f"b{i}" for i in range(100)])
    assert len(gradient) == 100
    assert gradient[37] == parse("@exp(-b37*x)-b37*x*@exp(-b37*x)", t).simplify()


def test_closed_handles_refuse_use(table):
    with parse("x+1", table) as e:
        items = parse("{x, y}", table).items()
    with pytest.raises(ValueError, match="closed"):
        e.diff("x")
    assert [str(i) for i in items] == ["x", "y"]
    with SymbolTable(series=["x"]) as t:
        e = parse("x", t)
    with pytest.raises(ValueError, match="closed"):
        str(e)
