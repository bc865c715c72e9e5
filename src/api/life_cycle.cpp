// quillon_init and quillon_cleanup: the one catalogue of the process, built once under the init
// lock, and a parser context for each thread that asks.
#include "api/life_cycle.h"

#include "compile/numeric_kernels.h"
#include "core/function_catalogue.h"
#include "language/thread_context.h"
#include "rewrite/rule_catalogue.h"
#include "quillon.h"

namespace quillon {
namespace {

FunctionTable* functionTable = nullptr;

}  // namespace

ThreadContext* EnsureThreadContext() {
  if (ContextWord() == nullptr) quillon_init();
  return ContextWord();
}

ExprHandle StartedEmpty() {
  EnsureThreadContext();
  return ExprHandle();
}

}  // namespace quillon

using namespace quillon;

extern "C" {

// The first caller builds the catalogue while later arrivals wait on the lock; each caller gets
// a new context of its own, replacing any it had (which a parse under way keeps until it ends).
QUILLON_API void QUILLON_CALL quillon_init(void) {
  std::lock_guard<std::mutex> guard(InitLock());
  RegisterThisThread();
  ThreadContext*& word = ContextWord();
  RetireContext(word);
  if (functionTable != nullptr) {
    word = new ThreadContext(functionTable);
    return;
  }
  functionTable = new FunctionTable();
  word = new ThreadContext(functionTable);
  DefineCatalogue(*functionTable);
  InstallNumericKernels(*functionTable);
  AttachRuleCatalogue(*word);
}

// Frees every thread's context and the catalogue. Contexts are cleared as they are freed, so a
// thread that goes on calls quillon_init again on its next parse.
QUILLON_API void QUILLON_CALL quillon_cleanup(void) {
  std::lock_guard<std::mutex> guard(InitLock());
  ForEachContextWord([](ThreadContext*& context) {
    RetireContext(context);
    context = nullptr;
  });
  if (functionTable == nullptr) return;
  delete functionTable;
  functionTable = nullptr;
  ForgetWellKnown();
}

}  // extern "C"
