"""Expressions: immutable values over handles of the library's trees."""

import ctypes
import math
import numbers
import weakref

from ._library import lib
from ._owned import Owned
from .errors import QuillonError

# Rewrite modes of mathexpr_evaluate.
_SIMPLIFY = 3
_EXPAND = _SIMPLIFY | 0x20000
_FACTOR = _SIMPLIFY | 0x40000


def _text_of(handle, spaced=False):
    length = ctypes.c_int32(0)
    lib.mathexpr_as_text(handle, None, 0, ctypes.byref(length), spaced)
    buffer = ctypes.create_string_buffer(length.value + 1)
    lib.mathexpr_as_text(handle, buffer, len(buffer), None, spaced)
    return buffer.value.decode("utf-8", "replace")


def _error_message(text):
    # An error expression prints as <"message">.
    if text.startswith('<"') and text.endswith('">'):
        return text[2:-2]
    return text


def _number_text(value):
    if isinstance(value, bool):
        return "TRUE" if value else "FALSE"
    if isinstance(value, numbers.Integral):
        return str(int(value))
    value = float(value)
    if not math.isfinite(value):
        raise ValueError(f"{value} has no literal in the language")
    return repr(value)


def _operator(symbol, reflected=False):
    """The method behind a Python operator: a new expression (left)symbol(right)."""
    return lambda self, other: self._binary(symbol, other, reflected)


class Expression(Owned):
    """A formula over the names of a SymbolTable.

    Every operation returns a new Expression and leaves this one unchanged. An expression
    holds one handle, freed when the object goes, or at the end of a with block.
    """

    def __init__(self, text, table=None):
        handle = lib.mathexpr_create(table.handle if table is not None else None, str(text).encode())
        self._own(handle, table, None)

    @classmethod
    def parse(cls, text, table=None):
        """The expression written in text, as written (not simplified)."""
        return cls(text, table)

    @classmethod
    def _adopt(cls, handle, table, owner=None):
        expression = cls.__new__(cls)
        expression._own(handle, table, owner)
        return expression

    def _own(self, handle, table, owner):
        self._handle = handle
        self._table = table
        # A child handle does not keep its tree alive: the child keeps the parent object instead.
        self._owner = owner
        self._children = weakref.WeakSet()
        if owner is not None:
            owner._children.add(self)
        if table is not None:
            table._register(self)
        self._checked()

    # ---- life cycle

    @property
    def table(self):
        return self._table

    def _release(self, handle):
        for child in list(self._children):
            child.close()
        lib.mathexpr_destroy(handle)

    # ---- building

    def _coerce(self, value):
        """An Expression from an Expression, a text in this expression's table, or a number."""
        if isinstance(value, Expression):
            return value
        if isinstance(value, str):
            return Expression(value, self._table)
        if isinstance(value, numbers.Number):
            return Expression(_number_text(value), self._table)
        raise TypeError(f"cannot make an expression of {type(value).__name__}")

    def _list(self, values):
        """The list {a, b, ...} of values; a single value stands for itself."""
        if isinstance(values, (str, Expression, numbers.Number)):
            return self._coerce(values)
        return Expression("{" + ",".join(self._coerce(v).text for v in values) + "}", self._table)

    def _call(self, template, *values):
        """A catalogued call written as text, e.g. "@lag({0}, {1})", evaluated."""
        texts = [value.text if isinstance(value, Expression) else str(value) for value in values]
        result = Expression(template.format(*texts), self._table)
        lib.mathexpr_evaluate(result.handle, _SIMPLIFY)
        return result._checked()

    def _checked(self):
        """self, or QuillonError with the engine's message when self is an error expression."""
        if lib.mathexpr_is_error(self.handle):
            message = _error_message(self.text)
            self.close()
            raise QuillonError(message)
        return self

    def _result(self, handle):
        return Expression._adopt(handle, self._table)

    def _copy(self, assignment=False):
        """A tree of its own, made from the text; with assignment, a top-level a = b is a := b."""
        text = self.text
        if ":=" in text:
            # An assignment prints as a:=b but reads back only from a = b, with the flag.
            text, assignment = text.replace(":=", "=", 1), True
        table = self._table.handle if self._table is not None else None
        return Expression._adopt(lib.mathexpr_create_ex(table, text.encode(), 1 if assignment else 0), self._table)

    def _rewritten(self, mode):
        # Evaluation works in place, so on a copy.
        result = self._copy()
        lib.mathexpr_evaluate(result.handle, mode)
        return result._checked()

    def _binary(self, operator, other, reflected=False):
        try:
            other = self._coerce(other)
        except TypeError:
            return NotImplemented
        left, right = (other, self) if reflected else (self, other)
        return Expression(f"({left.text}){operator}({right.text})", self._table)

    # ---- text

    @property
    def text(self):
        return _text_of(self.handle)

    def __str__(self):
        return self.text

    def __repr__(self):
        return self.text

    def __eq__(self, other):
        if isinstance(other, Expression):
            return self.text == other.text
        if isinstance(other, str):
            return self.text == other
        return NotImplemented

    def __hash__(self):
        return hash(self.text)

    # ---- arithmetic

    __add__, __radd__ = _operator("+"), _operator("+", reflected=True)
    __sub__, __rsub__ = _operator("-"), _operator("-", reflected=True)
    __mul__, __rmul__ = _operator("*"), _operator("*", reflected=True)
    __truediv__, __rtruediv__ = _operator("/"), _operator("/", reflected=True)
    __pow__, __rpow__ = _operator("^"), _operator("^", reflected=True)

    def __neg__(self):
        return Expression(f"-({self.text})", self._table)

    def __pos__(self):
        return self

    # ---- structure

    def is_number(self):
        return bool(lib.mathexpr_is_number(self.handle))

    def is_symbol(self):
        return bool(lib.mathexpr_is_symbol(self.handle))

    def __float__(self):
        if not self.is_number():
            raise TypeError(f"{self.text} is not a number")
        return lib.mathexpr_as_number(self.handle)

    def items(self):
        """The items of a list {a, b, c}; [] for anything else."""
        count = lib.mathexpr_get_children(self.handle)
        if count <= 0:
            return []
        items = []
        cursor = ctypes.c_void_p(lib.mathexpr_first_child(self.handle))
        for _ in range(count):
            items.append(Expression._adopt(cursor.value, self._table, owner=self))
            cursor = ctypes.c_void_p(lib.mathexpr_clone(cursor.value))
            lib.mathexpr_next_child(ctypes.byref(cursor))
        lib.mathexpr_destroy(cursor.value)
        return items

    def __iter__(self):
        return iter(self.items())

    def __len__(self):
        return max(lib.mathexpr_get_children(self.handle), 0)

    # ---- algebra

    def simplify(self):
        return self._rewritten(_SIMPLIFY)

    def expand(self):
        return self._rewritten(_EXPAND)

    def factor(self):
        return self._rewritten(_FACTOR)

    # ---- calculus

    def diff(self, *variables):
        """The derivative by each variable in turn: diff(x, y) is d2/dx dy."""
        if not variables:
            raise TypeError("diff() needs at least one variable")
        result = self
        for variable in variables:
            # Arguments are held in locals: a temporary's handle would go before the call.
            variable = self._coerce(variable)
            result = result._result(lib.mathexpr_deriv(result.handle, variable.handle))
        return result

    def gradient(self, variables):
        """The derivatives by each of variables, as a list of expressions."""
        variables = self._list(list(variables))
        return self._result(lib.mathexpr_deriv(self.handle, variables.handle)).items()

    def taylor(self, x, x0, n):
        x, x0 = self._coerce(x), self._coerce(x0)
        return self._result(lib.mathexpr_taylor(self.handle, x.handle, x0.handle, int(n)))

    def implicit(self):
        """An equation a = b moved to one side."""
        result = self._copy(assignment=True)
        lib.mathexpr_make_implicit(result.handle)
        return result._checked()

    # ---- time series

    def lag(self, k=1):
        """The expression k periods back: x.lag(1) is x(-1); a negative k leads."""
        return self._call("@lag({0},{1})", self, int(k))

    def time_expand(self):
        """Differences and moving forms written out in lags: d(x) is x-x(-1)."""
        return self._call("@expandtime({0})", self)

    def normalize(self, variable):
        """The equation a = b solved for variable where it can be: variable := ..."""
        variable, equation = self._coerce(variable), self._copy(assignment=True)
        return self._result(lib.mathexpr_normalize(equation.handle, variable.handle))

    # ---- analysis

    def linear_coefficients(self, variables):
        """[remainder, coefficient of each variable in order]."""
        variables = self._list(list(variables))
        return self._result(lib.mathexpr_lincoefs(self.handle, variables.handle)).items()

    def symbols(self, mask=63):
        """The distinct symbols (x and x(-1) are two) whose class meets mask: SERIES, OBJECTS, ALL."""
        return self._result(lib.mathexpr_symlist(self.handle, int(mask))).items()

    def is_constant(self, variable):
        variable = self._list(variable)
        return bool(lib.mathexpr_is_constant(self.handle, variable.handle))

    def is_linear(self, variable):
        variable = self._list(variable)
        return bool(lib.mathexpr_is_linear(self.handle, variable.handle))

    # ---- search and replacement

    def find(self, pattern, bindings=False):
        """The subexpressions matching pattern (wildcards #1, #2, ...), or what the wildcards bound."""
        pattern = self._coerce(pattern)
        return self._result(lib.mathexpr_find(self.handle, pattern.handle, 1 if bindings else 0)).items()

    def replace(self, equations):
        """Substitutes each left side by its right: a mapping {x: 1}, or equations such as "x = 1"."""
        if isinstance(equations, dict):
            pairs = [(self._coerce(k).text, self._coerce(v).text) for k, v in equations.items()]
            texts = [f"@eq({left},{right})" for left, right in pairs]
        else:
            texts = [self._coerce(e).text for e in ([equations] if isinstance(equations, (str, Expression)) else equations)]
        return self._call("@replace_expr({0},{{{1}}})", self, ",".join(texts))

    def subexpressions(self):
        """The prepared form @sublist({outputs}, shared terms) that evaluation runs on."""
        return self._call("@subexpr({0})", self)

    # ---- numbers

    def compile(self):
        from .compiled import compile as compile_

        return compile_(self)
