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
*/
#ifndef QUILLON_H
#define QUILLON_H

#include <stdint.h>

#if defined(_WIN32) && !defined(_WIN64)
#define QUILLON_CALL __stdcall
#else
#define QUILLON_CALL
#endif

#if defined(_WIN32)
#if defined(QUILLON_BUILDING_LIBRARY)
#define QUILLON_API __declspec(dllexport)
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
** Returns a second handle on the same tree; nothing is copied. mathexpr_evaluate through either
** handle rewrites a copy and moves that handle to it: the other keeps the tree it had.
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

/* Truth values (0 or 1) about the root of e only: an error, the empty expression, a symbol,
** a number (integers, rationals, reals and the truth values TRUE and FALSE). */
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
** are dropped).
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
** Ownership: changes the tree of e. When another handle shares that tree or a node of it
** (mathexpr_clone, mathexpr_first_child), e is moved to a rewritten copy instead, and the other
** handles keep the tree they had.
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

/* 1 if e holds only numbers and functions that are neither random nor date-dependent. */
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

QUILLON_API uint32_t QUILLON_CALL mathexpr_is_constant(mathexpr *e, mathexpr *v);
QUILLON_API uint32_t QUILLON_CALL mathexpr_is_linear(mathexpr *e, mathexpr *v);

/* ==================================================================== calculus */

QUILLON_API mathexpr *QUILLON_CALL mathexpr_deriv(mathexpr *f, mathexpr *x);
QUILLON_API mathexpr *QUILLON_CALL mathexpr_deriv2(mathexpr *f, mathexpr *x, mathexpr *y);
QUILLON_API mathexpr *QUILLON_CALL mathexpr_derivx(mathexpr *f, mathexpr *x, int32_t n);
QUILLON_API mathexpr *QUILLON_CALL mathexpr_taylor(mathexpr *f, mathexpr *x, mathexpr *x0, int32_t n);
/* Moves an equation to one side, in place: changes the tree e points at. */
QUILLON_API void QUILLON_CALL mathexpr_make_implicit(mathexpr *e);

/* ==================================================================== linear forms and lists */

QUILLON_API mathexpr *QUILLON_CALL mathexpr_lincoefs(mathexpr *e, mathexpr *v);
QUILLON_API mathexpr *QUILLON_CALL mathexpr_symlist(mathexpr *e, int32_t mask);
QUILLON_API mathexpr *QUILLON_CALL mathexpr_normalize(mathexpr *eq, mathexpr *v);
QUILLON_API mathexpr *QUILLON_CALL mathexpr_sort(mathexpr *list);
QUILLON_API mathexpr *QUILLON_CALL mathexpr_distinct(mathexpr *list);
QUILLON_API mathexpr *QUILLON_CALL mathexpr_join(mathexpr *a, mathexpr *b);
QUILLON_API mathexpr *QUILLON_CALL mathexpr_union(mathexpr *a, mathexpr *b);
QUILLON_API mathexpr *QUILLON_CALL mathexpr_intersection(mathexpr *a, mathexpr *b);
QUILLON_API mathexpr *QUILLON_CALL mathexpr_complement(mathexpr *a, mathexpr *b);

/* ==================================================================== search and index ranges */

QUILLON_API mathexpr *QUILLON_CALL mathexpr_find(mathexpr *e, mathexpr *pattern, uint8_t wantBindings);
QUILLON_API uint32_t QUILLON_CALL mathexpr_irange1d(mathexpr *e, mathexpr *s, int32_t *low, int32_t *high);
QUILLON_API uint32_t QUILLON_CALL mathexpr_irange2d(mathexpr *e, mathexpr *s, int32_t *low1, int32_t *high1,
                                                   int32_t *low2, int32_t *high2);

/* ==================================================================== numeric evaluation */

QUILLON_API int32_t QUILLON_CALL mathexpr_stackeval(mathexpr *e, double *stack, const double *inputs);

#ifdef __cplusplus
}
#endif

#endif /* QUILLON_H */
