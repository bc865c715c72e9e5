import pytest

import quillon


@pytest.fixture
def table():
    with quillon.SymbolTable(series=["x", "y", "z"], scalars=["a", "b", "c"]) as t:
        yield t
