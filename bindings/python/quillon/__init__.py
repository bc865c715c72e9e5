"""quillon for data work: symbolic derivatives, lags and fast evaluation of formulas over arrays."""

from .compiled import CompiledFunction, compile
from .errors import QuillonError
from .expression import Expression
from .symbols import ALL, KINDS, OBJECTS, SERIES, SymbolTable


def parse(text, table=None):
    """The expression written in text, over the names of table."""
    return Expression(text, table)


__all__ = [
    "ALL", "KINDS", "OBJECTS", "SERIES", "CompiledFunction", "Expression", "QuillonError",
    "SymbolTable", "compile", "parse",
]
