/*
** quillon_program.h: the batch evaluator of the quillon engine, beside the interface of quillon.h.
**
** A host with many observations compiles a formula once into a program and evaluates it over
** whole columns of data. A program holds the formula simplified and prepared with @subexpr, as
** a host would prepare it for mathexpr_stackeval, and gives for each observation the same values
** as mathexpr_stackeval does on that prepared tree, bit for bit (a not-a-number may differ in
** its payload bits).
**
** Ownership. quillon_program_create borrows the expression and returns a program that owns
** nothing of it: the expression may be destroyed at once. The caller gives each program to
** quillon_program_destroy exactly once. Arrays of inputs and outputs belong to the caller.
**
** Errors. Nothing is thrown at the host except when the machine fails (out of memory). NULL
** programs and bad arguments give the neutral results that each function names.
**
** Threads. A program never changes after quillon_program_create, so several threads may
** evaluate one program at once, each over its own rows.
*/
#ifndef QUILLON_PROGRAM_H
#define QUILLON_PROGRAM_H

#include <stdint.h>

#include "quillon.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct quillon_program quillon_program;

/*
** Compiles e into a program. The formula is simplified (mode 3) and prepared with @subexpr on a
** copy; an expression that already holds the #S and #T slots of a prepared form is compiled as
** it stands. Every symbol becomes an input; a list {e1, e2} gives one output per item.
** Functions without a numeric meaning give NA in their outputs.
** Ownership: borrows e; returns a new program the caller destroys.
** Errors: NULL when e is NULL or is (or simplifies to) an error expression.
** See also: quillon_program_evaluate, mathexpr_stackeval.
*/
QUILLON_API quillon_program *QUILLON_CALL quillon_program_create(mathexpr *e);

/*
** The number of input columns: the distinct symbols of the formula (a symbol and its lag are
** two inputs), or one more than the highest #S slot of a prepared form.
** Errors: 0 for NULL.
*/
QUILLON_API int32_t QUILLON_CALL quillon_program_input_count(const quillon_program *p);

/*
** Writes the text of input i (0-based) into buffer, as mathexpr_as_text writes: at most capacity
** bytes, terminated only when shorter than capacity, the full length in *length when length is
** not NULL. Inputs are ordered by the kind of symbol (series first), then by name, case-blind,
** then by lag, newest first: x, x(-1), y. A prepared form's inputs read #S0, #S1, ...
** Returns 1, or 0 when p is NULL or i is out of range (then nothing is written and the length
** is 0). A NULL buffer or a capacity below 1 asks for the length alone.
*/
QUILLON_API int32_t QUILLON_CALL quillon_program_input_name(const quillon_program *p, int32_t i, char *buffer,
                                                            int32_t capacity, int32_t *length);

/*
** The number of output columns: 1 for one formula, n for a list of n items.
** Errors: 0 for NULL.
*/
QUILLON_API int32_t QUILLON_CALL quillon_program_output_count(const quillon_program *p);

/*
** Evaluates the program over count observations: inputs[i][row] is the value of input i and
** outputs[k][row] receives output k, for row from 0 to count-1. Output arrays may be input
** arrays: each block of rows is read before it is written. NA in an input spreads as NaN does.
** Returns 0 on success; 1 when p is NULL, count is negative, or (with count above 0) inputs or
** outputs or one of their arrays is NULL; then nothing is written. count 0 does nothing.
** Ownership: borrows every array.
*/
QUILLON_API int32_t QUILLON_CALL quillon_program_evaluate(const quillon_program *p, int64_t count,
                                                          const double *const *inputs, double *const *outputs);

/* Frees the program. Errors: NULL is a harmless no-op. */
QUILLON_API void QUILLON_CALL quillon_program_destroy(quillon_program *p);

#ifdef __cplusplus
}
#endif

#endif /* QUILLON_PROGRAM_H */
