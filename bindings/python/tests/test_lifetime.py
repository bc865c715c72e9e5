"""Handles are freed: repeating the work leaves the process's memory flat."""

import gc

import numpy as np

import quillon

from conftest import needs


def resident_bytes():
    with open("/proc/self/statm") as statm:
        return int(statm.read().split()[1]) * 4096


def work(table):
    e = quillon.parse("a*@exp(-b*x)+c*x(-1)", table)
    for item in e.gradient(["a", "b", "c"]) + e.symbols() + e.linear_coefficients(["a"]):
        str(item)
    e.diff("b").simplify().lag(1)
    quillon.compile(e)(x=np.ones(8), a=1, b=2, c=3)
    with quillon.SymbolTable(resolver=lambda name: "series") as own:
        quillon.parse("u(-1)+v", own).diff("v")
    try:
        quillon.parse("x+(", table)
    except quillon.QuillonError:
        pass


@needs("batch evaluation")
def test_memory_stays_flat_over_many_rounds(table):
    for _ in range(200):
        work(table)
    gc.collect()
    before = resident_bytes()
    for _ in range(1500):
        work(table)
    gc.collect()
    # A leak of one node per round would show as hundreds of kilobytes; allow for allocator noise.
    assert resident_bytes() - before < 2 * 1024 * 1024
