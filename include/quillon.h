/*
** quillon.h: the whole C interface of the quillon symbolic mathematics engine.
**
** A host hands the library the text of formulas over its own named objects and gets back
** expressions, numbers and text. An expression is an opaque `mathexpr` handle on a tree; a
** symbol table (`mathsymtable`) tells the parser which names are the host's objects and of
** what type they are.
**
** Ownership. Every function that returns a `mathexpr *` gives the caller a new handle that
** the caller passes to mathexpr_destroy exactly once. Arguments are borrowed: no export
** changes the tree of an argument, except mathexpr_evaluate, mathexpr_assign,
** mathexpr_make_implicit and mathexpr_next_child, which say so. Several handles may share one
** tree; the tree lives while a handle on its root does. A symbol table belongs to the host and
** must outlive every expression parsed with it.
**
** Errors. A failure of the language or of the mathematics is a value: an error expression
** (mathexpr_is_error) whose text is the message. Exports that return plain values turn an error
** into a neutral answer (0, or NA for numbers). Nothing is thrown at the host except when the
** machine itself fails (out of memory: the shared layer's exception, code 1929, or the
** language's own).
**
** NULL handles. A NULL expression or symbol table where one is required does no harm: an export
** that returns an expression returns a new handle on the empty expression; truth values, counts
** and the priority are 0; numbers are NA; out-parameters are not written, except that
** mathexpr_get_attributes writes zeros and mathexpr_as_text the empty text; exports that change
** an expression or table do nothing. (mathexpr_create takes a NULL table as "no table".)
**
** Threads. The library has no threads of its own and starts itself on first use on each thread,
** also on several threads at once. Threads may parse, evaluate and print at the same time as
** long as each uses trees and symbol tables of its own: a tree or a table is used by one thread
** at a time.
**
** Life cycle and threads as a host follows them. mathexpr_create, mathexpr_create_ex and
** mathexpr_create_void start the library on a thread that has not used it (quillon_init takes a
** lock, so two threads may start at once). Two threads may work at once on different trees
** parsed with tables that have stopped changing, and may run mathexpr_stackeval on one prepared
** expression together. They must not at once: use handles on one tree (clone, assign, destroy,
** evaluate and the child walks change the tree's counts), parse with a table that is still
** growing (the table has no lock, and its resolver runs on the parsing thread), or call
** quillon_cleanup while any other call runs. quillon_cleanup comes last, once, after every
** expression is destroyed, while the threads that used the library still exist.
**
** Sharing. mathexpr_clone and mathexpr_assign copy no tree: both handles point at one root.
** mathexpr_evaluate through one of them rewrites the shared tree in place, which the other sees
** ("log(exp(a))+b*1" reads "a+b" through both). When evaluation replaces the root itself
** ("2*x+3*x" becomes the new root "5*x"), only the evaluating handle moves to the new root; the
** other is left on the old root node, emptied, and reads "": destroy it, or evaluate a clone
** made after the evaluation.
**
** Symbol types. The raw type codes a host gives mathsymtable_add, their class (bits 0 to 5 of a
** symbol's type bits) and the indices the parser allows after the name:
**   199       class 1, unknown              any indices
**   43        class 2                       one index, above 0
**   15        class 4, series               any indices: x(-1) is a lag, x(+1) a lead
**   44        class 4, series               at most one index
**   45        class 4, series               not allowed in an expression
**   35        class 8                       no index
**   40, 41    class 8                       two indices, both above 0: m(1,2)
**   42        class 8                       one index, above 0: v(3)
**   1         class 32, series              any indices
**   38        class 16                      any indices
**   other     class 16                      not allowed in an expression
** A lag moves the symbols of classes 4 and 32 (the mask 36). mathsymtable_add_ex stores the
** bits of extra above the class (its low six bits are dropped) for the host's own use. The
** resolver is called when the parser meets a name the table lacks: with autoAdd 0 its answer
** 199 makes the name an error, any other answer adds it; with autoAdd set the name is added and
** the answer, even 199, becomes its type.
**
** Rewrite modes for mathexpr_evaluate: 1 simplify, 2 canonical, 4 display, 0x10000 numbers as
** doubles, 0x20000 expand, 0x40000 factor, 0x80000 time expand (lags and differences written
** out), 0x100000 flatten. Usual unions: 3 (canonical then simplify, what the library uses
** itself), 4 (display form, as mathexpr_as_text prints), 0x20003 expand, 0x40003 factor,
** 0x80003 time expand. Expand and factor never run together: see mathexpr_evaluate.
**
** The language in brief. Binary operators from the loosest, with their priorities: := 30
** (assignment, groups to the right); or 40; and 50; the comparisons <, <=, >, >=, <> and =
** 100 (= groups to the right); + and - 200; * and / 500; unary + and - 600; ^ 700, which
** groups to the LEFT: 2^3^2 is (2^3)^2. Tokens such as ==, !=, &&, ||, ! and % are no
** operators and stop the parse. x(-1) is the lag of a series x and m(1,2) an element of a
** matrix; f[1,0](x,y) is the derivative of f by its first argument; {a, b, c} is a list. A
** top-level "a = b" is a comparison, and an assignment only with mathexpr_create_ex flag 1.
** Dates are literals: 1995Q3, 1995M12, 1995S1, 1995:3, 1995:3:14; a lone . and na are the
** missing value. Comments: // to the end of the line, and slash-star blocks, which end at their
** first star and drop the two characters there. Functions are called with or without @ (log(x),
** @log(x)); names of the catalogue come before the host's symbols, so a bare d is the
** difference operator d(x). The program quillon --functions lists every spelling.
*/
#ifndef QUILLON_H
#define QUILLON_H

#include <stdint.h>

/* The version of this interface; the CMake package and the pkg-config file carry the same. */
#define QUILLON_VERSION_MAJOR 0
#define QUILLON_VERSION_MINOR 1
#define QUILLON_VERSION_PATCH 0

#if defined(_WIN32) && !defined(_WIN64)
#define QUILLON_CALL __stdcall
#else
#define QUILLON_CALL
#endif

#if defined(_WIN32)
#if defined(QUILLON_BUILDING_LIBRARY)
#define QUILLON_API /* the module-definition file names the exports, undecorated */
#else
#define QUILLON_API __declspec(dllimport)
#endif
#else
#define QUILLON_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef struct mathexpr mathexpr;
typedef struct mathsymtable mathsymtable;

/*
** A host callback: given a symbol name, return its type code, or 199 for "unknown". It runs on
** the parsing thread, inside mathexpr_create. It may call back into the library: parse other
** formulas (with any table, this one included), evaluate them, even call quillon_init; the
** parse that asked goes on intact afterwards. A formula parsed inside a resolver counts as
** nested eight levels inside the name being resolved (of the 256 levels a text may nest), so
** resolvers that parse nest some 30 deep, and one that keeps parsing its own name ends in an
** error expression "syntax error: expression is nested too deeply" instead of recursing for
** ever. It must not call quillon_cleanup.
*/
typedef int32_t(QUILLON_CALL *mathsymtable_resolver)(const char *name);

/* ==================================================================== life cycle */

/*
** Builds the process-wide function catalogue on its first call and gives the calling thread
** its parser context. Hosts rarely need it: the mathexpr_create functions call it on a thread
** that has no context yet. A second call on the same thread replaces that thread's context;
** when the call comes from a resolver, the parse that called the resolver keeps the old context
** until it returns, and the old context is freed then.
** Errors: none reported.
** See also: quillon_cleanup.
*/
QUILLON_API void QUILLON_CALL quillon_init(void);

/*
** Frees the catalogue and every thread's context. Call it last, after every expression is
** destroyed; a later mathexpr_create starts the library again.
** Errors: none reported. Without a prior quillon_init it does nothing.
*/
QUILLON_API void QUILLON_CALL quillon_cleanup(void);

/* ==================================================================== handles */

/*
** Returns a handle on the empty expression.
** Ownership: returns a new handle the caller destroys.
** See also: mathexpr_is_void.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_create_void(void);

/*
** Lets go of a handle; the tree is freed when its last handle on the root goes.
** Ownership: takes e. Errors: NULL is a harmless no-op.
*/
QUILLON_API void QUILLON_CALL mathexpr_destroy(mathexpr *e);

/*
** Returns a second handle on the same tree; nothing is copied, so mathexpr_evaluate through
** either handle changes the tree that both see, unless a rule replaces the root: then the
** evaluated handle moves to the new root and the other keeps the old root node, which may have
** given its children to the new tree (x+x leaves the other handle on an empty sum).
** Ownership: borrows e, returns a new handle the caller destroys.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_clone(mathexpr *e);

/*
** Points target at the tree of source, letting go of what target held.
** Ownership: borrows both; target stays the caller's handle.
*/
QUILLON_API void QUILLON_CALL mathexpr_assign(mathexpr *target, mathexpr *source);

/*
** The value of a number at the root, without evaluating anything (TRUE is 1.0).
** Errors: NA (a quiet NaN with the bits 0xFFF8000000000000) for anything that is not a number.
*/
QUILLON_API double QUILLON_CALL mathexpr_as_number(mathexpr *e);

/*
** Truth values (0 or 1) about the root of e only, with no evaluation: an error, the empty
** expression, a symbol, a number (integers, rationals, reals and the truth values TRUE and
** FALSE). Example: "x +" is an error; "x" a symbol; "3/4" a number, while "1+2" is none of
** them until evaluated.
** Ownership: borrow e.
** Errors: a NULL e gives 0.
*/
QUILLON_API uint32_t QUILLON_CALL mathexpr_is_error(mathexpr *e);
QUILLON_API uint32_t QUILLON_CALL mathexpr_is_void(mathexpr *e);
QUILLON_API uint32_t QUILLON_CALL mathexpr_is_symbol(mathexpr *e);
QUILLON_API uint32_t QUILLON_CALL mathexpr_is_number(mathexpr *e);

/*
** The number of items of a list ({a, b, c}); 0 for anything that is not a list, including
** function calls with arguments.
*/
QUILLON_API int32_t QUILLON_CALL mathexpr_get_children(mathexpr *e);

/*
** Returns a handle on the first child of e's root, or on the empty expression if it has none.
** A child handle does not keep the tree alive: destroy it before the parent's last handle.
** Ownership: borrows e, returns a new handle the caller destroys.
** See also: mathexpr_next_child.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_first_child(mathexpr *e);

/*
** Moves *e to the next sibling and returns 1; past the last child *e becomes a handle on the
** empty expression and the result is 0. On an empty expression it returns 0 and changes nothing.
** Ownership: takes *e and stores a new handle in its place, which the caller destroys.
*/
QUILLON_API uint32_t QUILLON_CALL mathexpr_next_child(mathexpr **e);

/* ==================================================================== symbol tables */

/*
** Makes an empty symbol table. With autoAdd 0 only the names the host adds (or its resolver
** answers with a type other than 199) exist; with autoAdd set every name is accepted, and the
** resolver, if any, supplies its type.
** Ownership: returns a table the caller gives to mathsymtable_destroy after its last expression.
*/
QUILLON_API mathsymtable *QUILLON_CALL mathsymtable_create(mathsymtable_resolver resolver, uint32_t autoAdd);

/*
** Adds a symbol of the given type; returns 1 if it is new, 0 if the name (compared without
** regard to case, over at most 301 bytes) was there, in which case its type is replaced.
** mathsymtable_add_ex also replaces the bits above the type class with extra (its low six bits
** are dropped). Example: mathsymtable_add(t, "gdp", 15) makes gdp a series, so "gdp(-1)" parses
** as its lag.
** Ownership: borrows t and name (the name is copied).
** Errors: a NULL table does nothing and gives 0; a NULL name counts as the empty name.
*/
QUILLON_API uint32_t QUILLON_CALL mathsymtable_add(mathsymtable *t, const char *name, int32_t type);
QUILLON_API uint32_t QUILLON_CALL mathsymtable_add_ex(mathsymtable *t, const char *name, int32_t type,
                                                      uint32_t extra);

/* Frees the table. Errors: NULL is a harmless no-op. */
QUILLON_API void QUILLON_CALL mathsymtable_destroy(mathsymtable *t);

/* ==================================================================== text in and out */

/*
** Parses text into an expression, unsimplified. t may be NULL (then every name must be a
** catalogued function). mathexpr_create_ex with flag bit 0 turns a top-level "a = b" into an
** assignment.
** Ownership: returns a new handle the caller destroys.
** Errors: bad text gives an error expression "syntax error: ...", never NULL. A text longer than
** 1073741823 bytes (the largest the engine holds) gives the error expression "expression text
** too long"; it is never cut short. A NULL text reads as the empty text.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_create(mathsymtable *t, const char *text);
QUILLON_API mathexpr *QUILLON_CALL mathexpr_create_ex(mathsymtable *t, const char *text, uint32_t flags);

/*
** Rewrites e in place in the given mode: 1 simplify, 2 canonical, 4 display, or a union; 3 is
** what the library uses itself. The bits 0x10000 (numbers as doubles), 0x20000 (expand) and
** 0x40000 (factor) act with simplify, as do the wrappers @expand(x) and @factor(x) on x alone.
** Expand and factor undo each other, so they never run together: the nearest wrapper decides
** for its subtree, and the mode around it then acts on the result (@factor(@expand((a+b)*c))
** expands, then factors the sum it gave); a mode with both bits expands the whole tree first,
** then factors the expanded tree. Expansion is exact, but a power or product of sums whose
** expansion would have more than 1000000 terms stays as it is.
** Ownership: changes the tree of e, which clones of e share (see mathexpr_clone). When another
** handle holds a node inside the tree (mathexpr_first_child), or e is a child of another tree,
** e is moved to a rewritten copy instead, and those handles keep the tree they had.
** Errors: an error anywhere in the tree becomes the whole expression.
** See also: mathexpr_as_text.
*/
QUILLON_API void QUILLON_CALL mathexpr_evaluate(mathexpr *e, uint32_t mode);

/*
** Writes the text of e into buffer: at most capacity bytes, terminated only when shorter than
** capacity. The full length goes to *length when length is not NULL. spaced asks for blanks
** around operators. The text is that of e brought to its display form on a copy.
** Ownership: borrows e, which stays unchanged.
** Errors: a NULL buffer or a capacity below 1 writes nothing (the length is still stored); an
** error expression reads <"message">.
*/
QUILLON_API void QUILLON_CALL mathexpr_as_text(mathexpr *e, char *buffer, int32_t capacity, int32_t *length,
                                               uint32_t spaced);

/* ==================================================================== inspection */

/*
** 1 if every node of e is a number, a truth value or a function that is neither random nor
** date-dependent, read on the tree as it stands, with no evaluation; else 0.
** Example: "1 + 2" gives 1; "x", "rnd()" and "\"a\"" give 0.
** Ownership: borrows e. Errors: an error expression gives 0.
** See also: mathexpr_is_constant.
*/
QUILLON_API uint32_t QUILLON_CALL mathexpr_is_numeric(mathexpr *e);

/*
** Counts the nodes of e and gathers the union of its function attributes and symbol type bits.
** The return value has no meaning.
*/
QUILLON_API uint32_t QUILLON_CALL mathexpr_get_attributes(mathexpr *e, int32_t *nodeCount,
                                                          uint32_t *functionAttributes, uint32_t *symbolBits);

/* Classifies e by what it contains, 0 to 5; 0 for an error. */
QUILLON_API int32_t QUILLON_CALL mathexpr_get_priority(mathexpr *e);

/* ==================================================================== rule wrappers
** Each builds a call of a catalogued operation over copies of its arguments and evaluates it;
** a call that no rule can take comes back unevaluated, which is a legal result.
** Ownership: arguments are borrowed; returned handles are new and the caller destroys them. */

/*
** 1 if e does not depend on v, a symbol or a list of symbols; else 0. A lag is another
** variable (x(-1) is constant in x), a wildcard (#1) depends on everything, and a number as v
** matches no symbol.
** Example: e "a*y", v "{x, y}" gives 0; e "x(-1)", v "x" gives 1; e "x", v "3" gives 1.
** Ownership: borrows e and v. Errors: an error in either gives 0.
** See also: mathexpr_is_linear.
*/
QUILLON_API uint32_t QUILLON_CALL mathexpr_is_constant(mathexpr *e, mathexpr *v);

/*
** 1 if e, as it stands after simplification, is linear in v (a symbol or a list of symbols):
** every term has at most one factor that depends on v, and that factor is linear in turn.
** Nothing is expanded, and a power is a function like any other.
** Example: "a*x + b*y + c" in "{x, y}" gives 1; "x*y" in "{x, y}", "x^2", "1/x" and
** "a*(b + x)*(c + x)" in "x" give 0; "a*(x + 1)" in "x" gives 1.
** Ownership: borrows e and v. Errors: an error in either gives 0.
** See also: mathexpr_is_constant, mathexpr_lincoefs.
*/
QUILLON_API uint32_t QUILLON_CALL mathexpr_is_linear(mathexpr *e, mathexpr *v);

/* ==================================================================== calculus */

/*
** The derivative of f by x, simplified (mode 3). x is a symbol, or a list of them for a
** gradient: one derivative per element, in order, with 0 for an element that is no symbol. A
** lagged symbol is a variable of its own, and a function without a closed-form derivative
** comes back in derivative notation, f[1,0](u, v). Example: f = x*@cos(x), x = x gives
** "@cos(x)-x*@sin(x)"; f = x^2*y+@sin(y), x = @list(x, y, 2) gives "{2*x*y,x^2+@cos(y),0}".
** Ownership: borrows f and x; returns a new handle the caller destroys.
** Errors: an error expression in f or x is the result; what no rule can take stays as
** @deriv(...) in the result, e.g. by a variable that is a function call.
** See also: mathexpr_deriv2, mathexpr_derivx.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_deriv(mathexpr *f, mathexpr *x);

/*
** The derivative of f by x, then by y; with y equal to x the second derivative. Example:
** f = x^2*y+@sin(y) gives "2*x" by x and y, "-@sin(y)" by y and y.
** Ownership: borrows f, x and y; returns a new handle the caller destroys.
** Errors: as mathexpr_deriv.
** See also: mathexpr_deriv.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_deriv2(mathexpr *f, mathexpr *x, mathexpr *y);

/*
** The list of f and its first n derivatives by x, each simplified on its own: n + 1 elements,
** element k the k-th derivative; n = 0 gives {f} and a negative n the empty list. Example:
** f = x^3, n = 3 gives "{x^3,3*x^2,6*x,6}". The k-th element is taken from f afresh, so the
** cost grows with the square of n.
** Ownership: borrows f and x; returns a new handle the caller destroys.
** Errors: as mathexpr_deriv.
** See also: mathexpr_deriv, mathexpr_taylor.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_derivx(mathexpr *f, mathexpr *x, int32_t n);
/*
** The Taylor polynomial of f in x about x0 up to order n: a sum with one term per order k,
** (k-th derivative of f at x0) * (x - x0)^k / @fact(k), written out as such. The terms stop at
** the first derivative that is exactly 0; @fact(k) stays a call for the host to evaluate, and
** an n below 0 gives 0. Example: f "x^2", x "x", x0 "1", n 5 reads back as
** "1/@fact(0)+2*(x-1)/@fact(1)+2*(x-1)^2/@fact(2)".
** Ownership: borrows f, x and x0; returns a new handle the caller destroys.
** Errors: an error in an argument is the result; never NULL.
** See also: mathexpr_derivx.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_taylor(mathexpr *f, mathexpr *x, mathexpr *x0, int32_t n);
/*
** Moves an equation to one side, in place: when e is an equation lhs := rhs, it becomes lhs - rhs
** simplified, whose value is 0 where the equation holds; any other expression is only evaluated
** (mode 3). An equality written "=" is no equation here and stays. Example: y := a*x + b becomes
** -b-a*x+y, and x := x becomes 0.
** Ownership: changes e in place and returns nothing; e is the caller's handle still. Other
** handles on the same tree may be left on a part of the old tree: let them go first.
** Errors: an error expression stays an error; NULL is not accepted.
** See also: mathexpr_normalize.
*/
QUILLON_API void QUILLON_CALL mathexpr_make_implicit(mathexpr *e);

/* ==================================================================== linear forms and lists */

/*
** The coefficients of e in the variables v (one variable, or a list of them): a list whose
** first item is the remainder, the terms without a variable, followed by the coefficient of each
** variable in the order of v, 0 for a variable without terms. Products of sums that depend on v
** are multiplied out first. A term goes to the first of its factors that is a variable, and
** the other variables stay in its coefficient; a power such as x^2 is no variable, and its term
** stays in the remainder. Nothing checks that e is linear.
** Example: e "a*x + b*y + c", v "{x, y}" gives {c, a, b}; e "x^2 + x", v "x" gives {x^2, 1};
** e "a*x + b", v "{}" gives {b + a*x}.
** Ownership: borrows e and v, returns a new handle the caller destroys.
** Errors: an error in either argument is the result.
** See also: mathexpr_is_linear.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_lincoefs(mathexpr *e, mathexpr *v);

/*
** The distinct symbol references of e whose type class meets mask, as a list. x and x(-1)
** are two references. The list is sorted as the set operations below sort: by name (without
** regard to case); the references of a series newest first (x, x(-1), x(-2)); of other symbols
** by second index, then first (m(1,1), m(2,1), m(1,2)).
** The class of a symbol follows from the type the host gave it (mathsymtable_add):
**   mask bit 1  (1): type 199, unknown
**   mask bit 2  (2): type 43
**   mask bit 3  (4): types 15, 44, 45, a series
**   mask bit 4  (8): types 35, 40, 41, 42
**   mask bit 5 (16): any other type
**   mask bit 6 (32): type 1, a series
** 63 selects every symbol, 36 the series, 0 none.
** Example: e "a + x(-1) + x" with x of type 15 and mask 36 gives {x, x(-1)}; mask 0 gives {}.
** Ownership: borrows e, returns a new handle the caller destroys.
** Errors: an error expression is the result.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_symlist(mathexpr *e, int32_t mask);
/*
** Solves the equation eq (lhs := rhs) for the symbol v, step by step: the parts of the left side
** that depend on v are kept and the rest goes to the right, through sums, products, powers, log
** and exp, the cumulative distributions and their quantiles (first argument only), and the lag
** forms d, dlog, @pch, @movsum and @movav, which are written out in lags first. Returns v := ...
** when it gets there, else the call @normalize(eq, v) with the equation as far as it got: a host
** tests the root for an equation. v may still stand on the right; domains are not checked.
** Examples: y := a*x + b for x gives x:=(-b+y)/a; d(y) := e for y gives y:=e+y(-1).
** Never returns when the left side comes to a d, dlog, @movsum or @movav whose order is not an
** integer literal, or that has no written-out form: d(x, k), @movsum(x, k), @movsum(x, 0),
** d(x, -1), @pch(x, 4). The safe form of the call gives those orders as integer literals (at
** least 1 for @movsum and @movav, @pch one argument); check text from users before the call.
** Ownership: borrows eq and v; returns a new handle the caller destroys.
** Errors: an error in eq or v is the result; NULL is not accepted.
** See also: mathexpr_make_implicit.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_normalize(mathexpr *eq, mathexpr *v);

/*
** The list sorted. Lists, and the results of the set operations below, are ordered by one
** order of expressions: truth values and numbers first (integers, then rationals, then reals),
** then strings, dates, symbols and calls; symbols by name. Anything but a list comes back as it
** is. Example: {c, a, b} gives {a, b, c}; {@sin(a), b, "s", 0.5, 1/2, 2} gives
** {2,(1/2),0.5,"s",b,@sin(a)}; x gives x.
** Ownership: borrows list, returns a new handle the caller destroys.
** Errors: an error expression is the result.
** See also: mathexpr_distinct.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_sort(mathexpr *list);

/*
** The distinct items of list, sorted. Items are the same only when they are the same
** expression: 1 and 1.0 are two items.
** Example: {b, b, a, b} gives {a, b}.
** Ownership: borrows list, returns a new handle the caller destroys.
** Errors: an error expression is the result.
** See also: mathexpr_union.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_distinct(mathexpr *list);

/*
** The items of a followed by those of b, in order and with repeats. An argument that is not a
** list is one item; lists inside the arguments stay lists.
** Example: a {{a}}, b {b} gives {{a}, b}.
** Ownership: borrows a and b, returns a new handle the caller destroys.
** Errors: an error in either argument is the result.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_join(mathexpr *a, mathexpr *b);

/*
** The set operations: the items in a or in b, in both, or in a and not in b. The result is
** always a list, sorted as by mathexpr_sort, with each item once; an argument that is not a
** list counts as a list of one item, and repeats inside an argument count once.
** Example: union {b, a}, {a, c} gives {a, b, c}; intersection {a, a, b}, {a, b, b} gives
** {a, b}; intersection {a, b}, a gives {a}; complement {a, b, b, c}, {b} gives {a, c};
** complement x, {x} gives {}.
** Ownership: borrow a and b, return a new handle the caller destroys.
** Errors: an error in either argument is the result.
** See also: mathexpr_distinct.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_union(mathexpr *a, mathexpr *b);
QUILLON_API mathexpr *QUILLON_CALL mathexpr_intersection(mathexpr *a, mathexpr *b);
QUILLON_API mathexpr *QUILLON_CALL mathexpr_complement(mathexpr *a, mathexpr *b);

/* ==================================================================== search and index ranges */

/*
** A list of the subexpressions of e that match pattern, children before parents: copies of the
** matches, or, with wantBindings not 0, of what the wildcards #1, #2, ... of pattern stand for
** in each (the node for one wildcard, a list in wildcard order for several, the match itself
** for none). A repeated wildcard asks for equal subtrees; an equation matches with its sides
** either way. Example: e "log(x)+log(y)", pattern "log(#1)" gives {x,y}, or {log(x),log(y)}
** without bindings. The text forms @replace_expr, @replace_expr_ex and @eqkeep substitute and
** select equation lists.
** Ownership: borrows e and pattern; returns a new handle the caller destroys.
** Errors: an error in an argument is the result; no match gives an empty list; never NULL.
** See also: mathexpr_create.
*/
QUILLON_API mathexpr *QUILLON_CALL mathexpr_find(mathexpr *e, mathexpr *pattern, uint8_t wantBindings);
/*
** The smallest and largest index with which e uses the symbols s names, over the references
** with one index (for a series, its lag: x is x(0)). s is a symbol, a list of symbols (an empty
** list names none), or anything else for every symbol; only the symbol counts, not its index.
** Returns 1 if e has such a reference. Otherwise it returns 0 and stores 2147483647 in *low and
** -2147483648 in *high.
** Example: e "x + x(-3) + x(2)", s "x" gives 1 with -3 and 2; e "x", s "x" gives 1 with 0 and 0.
** Ownership: borrows e and s; low and high are out-parameters.
** Errors: an error in either argument gives 0 and leaves *low and *high alone.
** See also: mathexpr_irange2d.
*/
QUILLON_API uint32_t QUILLON_CALL mathexpr_irange1d(mathexpr *e, mathexpr *s, int32_t *low, int32_t *high);

/*
** The same over the references with two indices (matrix elements): the range of the first
** index in *low1 and *high1, of the second in *low2 and *high2. The result is 1 if the first
** range is not empty.
** Example: e "m(1, 2) + m(3, 4)", s "m(1, 1)" gives 1 with 1, 3, 2, 4.
** Ownership: borrows e and s; the four others are out-parameters.
** Errors: an error in either argument gives 0 and leaves the four values alone.
*/
QUILLON_API uint32_t QUILLON_CALL mathexpr_irange2d(mathexpr *e, mathexpr *s, int32_t *low1, int32_t *high1,
                                                   int32_t *low2, int32_t *high2);

/* ==================================================================== numeric evaluation */

/*
** Computes e for one set of inputs as plain floating-point arithmetic on the caller's arrays and
** returns the number of stack cells in use at the end. Prepare e once by evaluating
** "@subexpr(formula)" (mode 3): repeated subtrees become temporaries #T0, #T1, ... and symbols
** become input slots #S0, #S1, ..., ranked by type class (series, then the classes 32, 2, 8, 16,
** then unknown names), then by name without regard to case, a series' lags newest first. Call
** once per observation. The prepared form is either one expression, and then the result is 1 and
** the answer is in stack[0], or @sublist(@list(t0, ..., tk), main): cells 0 to k hold the
** temporaries (k+1 is the child count of the first child), the result is k+2 and the answer is in
** the last cell; a main expression that is a list {a, b, c} leaves one cell per item. The stack
** needs one cell per leaf of e at most, inputs one cell per slot; neither is checked. Sums and
** products of up to eight terms combine in a fixed order (a1+a0; ((a2+a1)+a3...)+a0), longer ones
** from left to right, and the exponents 2, 3, 4, -1, -2, -3, -4, 0.5 and -0.5 are computed by
** products and square roots, so results are the same bit for bit on every call. The elementary,
** trigonometric, rounding and special functions, the standard normal, logistic and extreme value
** distributions (@cnorm, @dnorm, @qnorm, ...), the chi-square, t, F, beta, lognormal and uniform
** distributions (@cchisq(x, k), @dtdist(x, v), @qfdist(p, v1, v2), @cbeta(x, a, b),
** @clognorm(x, mu, s), @qunif(p, low, high), ...), the binomial and Poisson distribution
** functions and masses (@cbinom(x, n, p), @dpoisson(x, mu), ...; NA for a parameter outside its
** domain, or a degree of freedom, shape, mean or count above 1e6), @recode, @nan, @isna, @pmin,
** @pmax and the comparisons and and, or, not (1 for true, 0 for false, NA for a missing operand)
** have values; every other function (random draws, series, sample statistics, text, dates), a
** call with the wrong number of arguments (but log and exp take their first argument and ^ its
** first two, whatever follows), a derivative notation such as f[1](x), a symbol that was not
** prepared and any text or date leaf gives NA, the value with the bits 0xFFF8000000000000.
** e is not changed, so several threads may evaluate one prepared expression at once.
** Ownership: borrows e, stack and inputs; the values stay in stack after the call.
** Errors: a NULL e or stack returns 0 and writes nothing; domain errors give what the platform's
** mathematics library gives (log of a negative number is a NaN) and are not reported. A handle
** from mathexpr_first_child on a node with following siblings evaluates that node alone.
** See also: mathexpr_evaluate, mathexpr_symlist, mathexpr_first_child.
*/
QUILLON_API int32_t QUILLON_CALL mathexpr_stackeval(mathexpr *e, double *stack, const double *inputs);

#ifdef __cplusplus
}
#endif

#endif /* QUILLON_H */
