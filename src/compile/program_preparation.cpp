// Preparing a host's expression for the batch evaluator: simplified, passed through @subexpr as
// a host would do for the stack evaluator, and compiled; the input symbols are named here, since
// the prepared tree keeps only their numbers.
#include "compile/program_preparation.h"
#include "compile/symbol_set.h"
#include "core/symbol_node.h"
#include "core/tree_walk.h"
#include "core/well_known.h"
#include "core/wildcard_node.h"
#include "rewrite/driver.h"

namespace quillon {
namespace {

constexpr uint32_t kPrepareMode = ModeCanonical | ModeSimplify;

bool HoldsSlots(const ENode* root) {
  for (const ENode* n = root; n != nullptr; n = NextInPreorder(n, root)) {
    if (n->GetType() != WildcardType) continue;
    const char kind = static_cast<const WildcardENode*>(n)->kind;
    if (kind == 'S' || kind == 'T') return true;
  }
  return false;
}

// The texts of the symbols in the order in which @subexpr numbers its input slots.
std::vector<std::string> SymbolNames(const ENode* root) {
  SymbolSet set;
  std::vector<const SymbolENode*> firstOfRecord;
  for (const ENode* n = root; n != nullptr; n = NextInPreorder(n, root)) {
    if (n->GetType() != SymbolType) continue;
    const auto* symbol = static_cast<const SymbolENode*>(n);
    if (set.Insert(*symbol) == static_cast<int32_t>(firstOfRecord.size())) firstOfRecord.push_back(symbol);
  }
  const std::vector<int32_t> rank = set.SortByKind();
  std::vector<std::string> names(firstOfRecord.size());
  for (size_t record = 0; record < firstOfRecord.size(); ++record)
    names[static_cast<size_t>(rank[record])] = firstOfRecord[record]->Print().c_str();
  return names;
}

std::vector<std::string> SlotNames(int32_t count) {
  std::vector<std::string> names;
  for (int32_t i = 0; i < count; ++i) names.push_back("#S" + std::to_string(i));
  return names;
}

}  // namespace

std::unique_ptr<Program> PrepareProgram(const ENode* root) {
  if (root->GetType() == ErrorType) return nullptr;
  if (HoldsSlots(root)) {
    auto program = std::make_unique<Program>(CompileProgram(root));
    program->inputNames = SlotNames(program->inputCount);
    return program;
  }
  ExprHandle prepared;
  std::vector<std::string> names;
  {
    // The names come from the simplified formula, which is what @subexpr numbers.
    ExprHandle formula(root->Clone());
    Evaluate(formula, kPrepareMode);
    names = SymbolNames(formula.Root());
    prepared = ExprHandle(fnSubexpr, formula);
  }
  Evaluate(prepared, kPrepareMode);
  if (prepared.Root()->GetType() == ErrorType) return nullptr;
  auto program = std::make_unique<Program>(CompileProgram(prepared.Root()));
  if (static_cast<int32_t>(names.size()) != program->inputCount) names = SlotNames(program->inputCount);
  program->inputNames = std::move(names);
  return program;
}

}  // namespace quillon
