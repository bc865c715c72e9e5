/*
** A small host of the quillon library: declares its objects with a resolver, parses a model,
** takes its gradient by the parameters, solves the model's equation for a regressor, prepares
** the gradient for numeric evaluation and evaluates it over a few hundred observations. Every
** handle is freed; the exit status is 0 when the numeric gradient agrees with the formulas.
*/
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "quillon.h"

enum { kObservations = 300, kSeriesType = 15, kScalarType = 35, kUnknown = 199 };

/* The host's objects: names starting with b are scalar parameters, x, y and z are series. */
static int32_t QUILLON_CALL ResolveName(const char *name) {
  if (name[0] == 'b' && name[1] >= '0' && name[1] <= '9') return kScalarType;
  if (strcmp(name, "x") == 0 || strcmp(name, "y") == 0 || strcmp(name, "z") == 0) return kSeriesType;
  return kUnknown;
}

/* The text of e in a buffer the caller frees. */
static char *TextOf(mathexpr *e) {
  int32_t length = 0;
  mathexpr_as_text(e, NULL, 0, &length, 0);
  char *text = malloc((size_t)length + 1);
  mathexpr_as_text(e, text, length + 1, NULL, 0);
  return text;
}

static void Show(const char *what, mathexpr *e) {
  char *text = TextOf(e);
  printf("%-10s %s\n", what, text);
  free(text);
}

/* Wraps the text of e in @subexpr(...) and evaluates it: the form mathexpr_stackeval runs. */
static mathexpr *Prepared(mathsymtable *names, mathexpr *e) {
  char *text = TextOf(e);
  char *call = malloc(strlen(text) + 16);
  sprintf(call, "@subexpr(%s)", text);
  mathexpr *prepared = mathexpr_create(names, call);
  mathexpr_evaluate(prepared, 3);
  free(call);
  free(text);
  return prepared;
}

int main(void) {
  mathsymtable *names = mathsymtable_create(ResolveName, 0);
  mathexpr *model = mathexpr_create(names, "b0 + b1*exp(b2*x(-1)) + log(z)");
  mathexpr *parameters = mathexpr_create(names, "{b0, b1, b2}");
  mathexpr *equation = mathexpr_create(names, "y := b0 + b1*exp(b2*x(-1)) + log(z)");
  mathexpr *z = mathexpr_create(names, "z");
  if (mathexpr_is_error(model) || mathexpr_is_error(equation)) return 1;

  mathexpr *gradient = mathexpr_deriv(model, parameters);
  mathexpr *solved = mathexpr_normalize(equation, z);
  mathexpr *prepared = Prepared(names, gradient);
  Show("model", model);
  Show("gradient", gradient);
  Show("solved", solved);
  Show("prepared", prepared);

  /* Slots: the series first (x(-1) is #S0), then the scalars by name (b1 #S1, b2 #S2). */
  const double b1 = 0.5, b2 = -0.3;
  double inputs[3] = {0, b1, b2};
  double stack[64];
  int failures = 0;
  for (int t = 0; t < kObservations; ++t) {
    const double lagged = 0.01 * t;
    inputs[0] = lagged;
    const int32_t cells = mathexpr_stackeval(prepared, stack, inputs);
    const double *g = stack + cells - 3; /* the three derivatives are the last three cells */
    const double expected[3] = {1.0, exp(b2 * lagged), b1 * lagged * exp(b2 * lagged)};
    for (int k = 0; k < 3; ++k)
      if (fabs(g[k] - expected[k]) > 1e-12 * (1 + fabs(expected[k]))) ++failures;
  }
  printf("%d observations, %d derivatives off\n", kObservations, failures);

  mathexpr *handles[] = {prepared, solved, gradient, z, equation, parameters, model};
  for (size_t i = 0; i < sizeof handles / sizeof handles[0]; ++i) mathexpr_destroy(handles[i]);
  mathsymtable_destroy(names);
  quillon_cleanup();
  return failures == 0 ? 0 : 1;
}
