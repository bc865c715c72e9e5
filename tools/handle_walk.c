/* A first look at the C interface: make expressions, share and walk them, let them go. */
#include <stdio.h>

#include "quillon.h"

int main(void) {
  mathexpr *e = mathexpr_create_void();
  mathexpr *shared = mathexpr_clone(e);
  mathexpr *child = mathexpr_first_child(e);
  int items = 0;
  printf("empty expression: void=%u number=%u error=%u\n", mathexpr_is_void(e), mathexpr_is_number(e),
         mathexpr_is_error(e));
  printf("its value: %g\n", mathexpr_as_number(e));
  while (!mathexpr_is_void(child)) {
    ++items;
    mathexpr_next_child(&child);
  }
  printf("children walked: %d\n", items);
  mathexpr_destroy(child);
  mathexpr_destroy(shared);
  mathexpr_destroy(e);
  return 0;
}
