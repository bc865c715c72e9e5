/* The C interface compiled as C99: handles, clones and a walk over children. */
#include <math.h>
#include <stdio.h>

#include "quillon.h"

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
  printf("%d passed, %d failed\n", 7 - failures, failures);
  return failures == 0 ? 0 : 1;
}
