"""compile(): a formula as a callable over NumPy arrays, through the batch evaluator."""

import ctypes
import os
import re
from concurrent.futures import ThreadPoolExecutor

import numpy as np

from ._library import lib
from ._owned import Owned
from .errors import QuillonError
from .expression import Expression, _error_message

_LAGGED = re.compile(r"^(.+)\((-?\d+)\)$")


def _input_name(program, i):
    length = ctypes.c_int32(0)
    lib.quillon_program_input_name(program, i, None, 0, ctypes.byref(length))
    buffer = ctypes.create_string_buffer(length.value + 1)
    lib.quillon_program_input_name(program, i, buffer, len(buffer), None)
    return buffer.value.decode("utf-8", "replace")


def _shifted(values, offset):
    """values moved by offset periods (x(-1) is offset -1), the rows without data NaN."""
    values = np.asarray(values, dtype=np.float64)
    if values.ndim == 0 or offset == 0:
        return values
    result = np.full(values.shape, np.nan)
    k = abs(offset)
    if k < len(values):
        if offset < 0:
            result[k:] = values[:-k]
        else:
            result[:-k] = values[k:]
    return result


class _Columns:
    """Finds a column by input name: exactly, without regard to case, or as a shift of its series."""

    def __init__(self, mapping):
        self._mapping = mapping
        self._folded = {str(key).lower(): key for key in mapping.keys()}

    def _lookup(self, name):
        key = name if name in self._folded.values() else self._folded.get(name.lower())
        return None if key is None else self._mapping[key]

    def __getitem__(self, name):
        values = self._lookup(name)
        if values is not None:
            return values
        lagged = _LAGGED.match(name)
        if lagged:
            base = self._lookup(lagged.group(1))
            if base is not None:
                return _shifted(base, int(lagged.group(2)))
        raise KeyError(f"no values given for input {name!r}")


class CompiledFunction(Owned):
    """A formula compiled once, evaluated over whole arrays.

    f(x=array, y=array), f(mapping) (a dict or a data frame), or f(array, array) in the order
    of f.inputs. Arrays broadcast against each other and scalars; the result has their shape,
    one array per output, a tuple when the formula is a list.
    """

    _noun = "compiled function"

    def __init__(self, expression, threads=None):
        self.threads = max(1, int(threads or os.cpu_count() or 1))
        self._handle = lib.quillon_program_create(expression.handle)
        if not self._handle:
            # The program refuses formulas that are or simplify to errors: say which.
            expression.simplify()
            raise QuillonError(f"cannot compile {expression.text}")
        self.inputs = tuple(_input_name(self._handle, i) for i in range(lib.quillon_program_input_count(self._handle)))
        self._outputs = lib.quillon_program_output_count(self._handle)
        self._is_list = lib.mathexpr_get_children(expression.handle) > 0 or expression.text.startswith("{")
        self.text = expression.text
        self._expression = expression
        self._special = {}

    def __repr__(self):
        return f"<compiled {self.text} of ({', '.join(self.inputs)})>"

    def _columns(self, args, kwargs):
        if len(args) == 1 and hasattr(args[0], "keys") and not isinstance(args[0], np.ndarray):
            mapping = {key: args[0][key] for key in args[0].keys()}
        elif args:
            if len(args) != len(self.inputs):
                raise TypeError(f"expected {len(self.inputs)} arrays ({', '.join(self.inputs)}), got {len(args)}")
            mapping = dict(zip(self.inputs, args))
        else:
            mapping = {}
        mapping.update(kwargs)
        columns = _Columns(mapping)
        return [np.asarray(columns[name], dtype=np.float64) for name in self.inputs]

    def __call__(self, *args, **kwargs):
        self.handle  # a closed function refuses before anything is done
        values = self._columns(args, kwargs)
        shape = np.broadcast_shapes(*(v.shape for v in values)) if values else ()
        count = int(np.prod(shape, dtype=np.int64))
        scalars = {name: float(v) for name, v in zip(self.inputs, values) if v.ndim == 0 and np.isfinite(v)}
        special = self._specialized(scalars) if 0 < len(scalars) < len(values) and count >= _ROWS_PER_THREAD else None
        if special is not None:
            columns = {name: v for name, v in zip(self.inputs, values) if name not in scalars}
            results = special._run([columns[name] for name in special.inputs], shape, count)
        else:
            results = self._run(values, shape, count)
        return results if self._is_list else results[0]

    def _run(self, values, shape, count):
        program = self.handle
        inputs = [_flat(v, shape, count) for v in values]
        outputs = [np.empty(count) for _ in range(self._outputs)]
        columns_in = [a.ctypes.data for a in inputs]
        columns_out = [a.ctypes.data for a in outputs]
        parts = _parts(count, self.threads)
        if len(parts) == 1:
            failed = _evaluate_rows(program, columns_in, columns_out, 0, count)
        else:
            failed = any(_pool().map(lambda part: _evaluate_rows(program, columns_in, columns_out, *part), parts))
        if failed:
            raise QuillonError("batch evaluation refused its arguments")
        return tuple(out.reshape(shape) for out in outputs)

    def _specialized(self, scalars):
        """A program with the scalars written in as numbers, kept for the next call with the same
        values: long columns of one repeated value would cost memory traffic. None when the
        formula is gone (closed by its owner)."""
        if self._expression.closed:
            return None
        key = tuple(sorted(scalars.items()))
        special = self._special.pop(key, None)
        if special is None:
            special = CompiledFunction(self._expression.replace(scalars), self.threads)
            if len(self._special) >= _SPECIAL_KEPT:
                self._special.pop(next(iter(self._special))).close()
        self._special[key] = special
        return special

    def _release(self, handle):
        for special in self._special.values():
            special.close()
        lib.quillon_program_destroy(handle)


# Rows below this many per thread are not worth a thread.
_ROWS_PER_THREAD = 1 << 16
_executor = None
# Programs kept per compiled function, one for each recent set of scalar inputs.
_SPECIAL_KEPT = 8


def _pool():
    global _executor
    if _executor is None:
        _executor = ThreadPoolExecutor(max_workers=os.cpu_count() or 1, thread_name_prefix="quillon")
    return _executor


def _parts(count, threads):
    """(first row, row count) of each thread's share."""
    n = max(1, min(threads, count // _ROWS_PER_THREAD))
    bounds = [count * i // n for i in range(n + 1)]
    return [(bounds[i], bounds[i + 1] - bounds[i]) for i in range(n)]


def _evaluate_rows(program, columns_in, columns_out, first, count):
    # ctypes lets go of the GIL during the call, so shares of rows run in parallel; a program
    # never changes, so threads may share it.
    offset = first * 8
    pointers_in = (ctypes.c_void_p * max(len(columns_in), 1))(*(c + offset for c in columns_in))
    pointers_out = (ctypes.c_void_p * max(len(columns_out), 1))(*(c + offset for c in columns_out))
    return lib.quillon_program_evaluate(program, count, pointers_in, pointers_out) != 0


def _flat(values, shape, count):
    """A contiguous float64 column of count rows: no copy when values already is one."""
    if values.shape == shape:
        return np.ascontiguousarray(values).reshape(count)
    if values.size == 1:
        return np.full(count, values.reshape(()))
    return np.ascontiguousarray(np.broadcast_to(values, shape)).reshape(count)


def compile(formula, table=None, threads=None):
    """A callable over arrays for formula (an Expression, or a text parsed with table).

    Long arrays are cut into shares evaluated on up to threads threads (all cores by default).
    """
    expression = formula if isinstance(formula, Expression) else Expression(formula, table)
    return CompiledFunction(expression, threads)
