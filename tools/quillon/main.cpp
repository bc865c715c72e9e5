// quillon: the command-line way to try the engine. Each expression is parsed, evaluated and
// printed back; it uses only the public C interface, as any host does. This file only picks
// the way of running that the options ask for.
#include <unistd.h>

#include "batch.h"
#include "evaluator.h"
#include "function_list.h"
#include "numeric_mode.h"
#include "options.h"
#include "quillon.h"
#include "session.h"

namespace {

int Run(const Options& options) {
  if (options.listFunctions) return ListFunctions(options.functionPrefix);
  Evaluator evaluator(options);
  if (options.numeric.Active())
    return RunNumeric(options.numeric, evaluator.Table(), options.mode, options.expressions);
  int status = RunExpressions(evaluator, options.expressions);
  if (options.readStdin || (options.expressions.empty() && !isatty(STDIN_FILENO)))
    status |= RunLines(evaluator);
  else if (options.expressions.empty())
    status = RunSession(evaluator);
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  const ParseOutcome parsed = ParseArguments(argc, argv, options);
  if (!parsed.run) return parsed.status;
  const int status = Run(options);
  quillon_cleanup();
  return status;
}
