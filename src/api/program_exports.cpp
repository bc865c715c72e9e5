// The batch evaluator's exports: a quillon_program is a compiled Program on the heap.
#include "api/handle.h"
#include "compile/program_preparation.h"
#include "quillon_program.h"

using namespace quillon;

namespace {

const Program* ProgramOf(const quillon_program* p) { return reinterpret_cast<const Program*>(p); }

bool HasColumns(int32_t count, const void* const* columns) {
  if (count == 0) return true;
  if (columns == nullptr) return false;
  for (int32_t i = 0; i < count; ++i)
    if (columns[i] == nullptr) return false;
  return true;
}

}  // namespace

extern "C" {

QUILLON_API quillon_program* QUILLON_CALL quillon_program_create(mathexpr* e) {
  if (e == nullptr) return nullptr;
  return reinterpret_cast<quillon_program*>(PrepareProgram(RootOf(e)).release());
}

QUILLON_API int32_t QUILLON_CALL quillon_program_input_count(const quillon_program* p) {
  return p != nullptr ? ProgramOf(p)->inputCount : 0;
}

QUILLON_API int32_t QUILLON_CALL quillon_program_input_name(const quillon_program* p, int32_t i, char* buffer,
                                                            int32_t capacity, int32_t* length) {
  if (p == nullptr || i < 0 || i >= ProgramOf(p)->inputCount) {
    if (length != nullptr) *length = 0;
    return 0;
  }
  const std::string& name = ProgramOf(p)->inputNames[static_cast<size_t>(i)];
  SharedText(name.c_str()).CopyOut(buffer, buffer != nullptr ? capacity : 0, length);
  return 1;
}

QUILLON_API int32_t QUILLON_CALL quillon_program_output_count(const quillon_program* p) {
  return p != nullptr ? static_cast<int32_t>(ProgramOf(p)->outputs.size()) : 0;
}

QUILLON_API int32_t QUILLON_CALL quillon_program_evaluate(const quillon_program* p, int64_t count,
                                                          const double* const* inputs, double* const* outputs) {
  if (p == nullptr || count < 0) return 1;
  const Program& program = *ProgramOf(p);
  if (count == 0) return 0;
  if (!HasColumns(program.inputCount, reinterpret_cast<const void* const*>(inputs)) ||
      !HasColumns(static_cast<int32_t>(program.outputs.size()), reinterpret_cast<const void* const*>(outputs)))
    return 1;
  RunProgram(program, count, inputs, outputs);
  return 0;
}

QUILLON_API void QUILLON_CALL quillon_program_destroy(quillon_program* p) {
  delete reinterpret_cast<Program*>(p);
}

}  // extern "C"
