// The kernel table against the catalogue: every row names a catalogued definition and becomes its
// StackOp, and every other definition computes NA rather than calling through an empty pointer.
#include <gtest/gtest.h>

#include "api/life_cycle.h"
#include "compile/numeric_kernels.h"
#include "language/thread_context.h"

namespace quillon {
namespace {

TEST(NumericKernels, EveryRowIsTheStackOpOfACataloguedFunction) {
  const FunctionTable& table = *EnsureThreadContext()->functions;
  for (const NumericKernel& kernel : NumericKernels()) {
    const FunctionDef* def = table.Lookup(kernel.function);
    ASSERT_NE(def, nullptr) << kernel.function;
    EXPECT_EQ(def->alias, nullptr) << kernel.function;
    EXPECT_EQ(def->StackOp, kernel.stackOp) << kernel.function;
  }
  int32_t withoutKernel = 0;
  table.ForEach([&withoutKernel](const FunctionDef& def) {
    EXPECT_NE(def.StackOp, nullptr) << def.name;
    if (def.StackOp == MissingStackOp) ++withoutKernel;
  });
  EXPECT_GT(withoutKernel, 250);
}

}  // namespace
}  // namespace quillon
