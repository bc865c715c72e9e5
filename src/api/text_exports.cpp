// Evaluation and text out: the host's mode is run on the tree itself, and text is rendered from
// a copy brought to its display form, so that reading never changes what the host holds.
#include "api/handle.h"
#include "core/text_rendering.h"
#include "rewrite/driver.h"

using namespace quillon;

extern "C" {

QUILLON_API void QUILLON_CALL mathexpr_evaluate(mathexpr* e, uint32_t mode) {
  if (e != nullptr) Evaluate(*HandleOf(e), mode);
}

QUILLON_API void QUILLON_CALL mathexpr_as_text(mathexpr* e, char* buffer, int32_t capacity, int32_t* length,
                                               uint32_t spaced) {
  const int32_t room = buffer != nullptr ? capacity : 0;
  if (e == nullptr) return SharedText().CopyOut(buffer, room, length);
  ExprHandle copy(RootOf(e)->Clone());
  Evaluate(copy, ModeDisplay);
  RenderText(copy.Root(), spaced != 0).CopyOut(buffer, room, length);
}

}  // extern "C"
