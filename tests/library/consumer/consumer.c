/* The smallest host: make an expression, look at it, let it go. */
#include <quillon.h>

int main(void) {
  mathexpr *e = mathexpr_create_void();
  int ok = mathexpr_is_void(e) == 1 && mathexpr_is_error(e) == 0;
  mathexpr_destroy(e);
  return ok ? 0 : 1;
}
