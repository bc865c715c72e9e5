/* The C interface compiled as C99: handles, clones, a walk over children and a batch program. */
#include <math.h>
#include <stdio.h>

#include "quillon.h"
#include "quillon_program.h"

static int failures = 0;

static void check(int condition, const char *what) {
  if (!condition) {
    printf("failed: %s\n", what);
    ++failures;
  }
}

int main(void) {
  mathexpr *e = mathexpr_create_void();
  mathexpr *copy = mathexpr_clone(e);
  mathexpr *child = mathexpr_first_child(e);
  check(mathexpr_is_void(e), "a new expression is void");
  check(!mathexpr_is_number(e), "void is not a number");
  check(isnan(mathexpr_as_number(e)), "void has no value");
  check(mathexpr_get_children(e) == 0, "void has no children");
  check(mathexpr_is_void(child), "the first child of void is void");
  check(mathexpr_next_child(&child) == 0, "void has no next child");
  mathexpr_assign(e, copy);
  mathexpr_destroy(child);
  mathexpr_destroy(copy);
  mathexpr_destroy(e);
  mathexpr_destroy(NULL);

  {
    mathexpr *f = mathexpr_create(NULL, "{2^10 + 1, 3}");
    quillon_program *p = quillon_program_create(f);
    double first[2] = {0, 0}, second[2] = {0, 0};
    double *outputs[2];
    outputs[0] = first;
    outputs[1] = second;
    mathexpr_destroy(f);
    check(quillon_program_input_count(p) == 0 && quillon_program_output_count(p) == 2, "a list of two constants");
    check(quillon_program_evaluate(p, 2, NULL, outputs) == 0 && first[1] == 1025 && second[0] == 3,
          "constants fill every row");
    quillon_program_destroy(p);
    quillon_program_destroy(NULL);
  }
  printf("%d passed, %d failed\n", 9 - failures, failures);
  return failures == 0 ? 0 : 1;
}
