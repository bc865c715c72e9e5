/* The smallest host: make an expression, look at it, let it go; the batch header is installed too. */
#include <quillon.h>
#include <quillon_program.h>

int main(void) {
  mathexpr *e = mathexpr_create_void();
  int ok = mathexpr_is_void(e) == 1 && mathexpr_is_error(e) == 0;
  quillon_program *p = quillon_program_create(e); /* one output, NA */
  ok = ok && quillon_program_output_count(p) == 1;
  quillon_program_destroy(p);
  mathexpr_destroy(e);
  return ok ? 0 : 1;
}
