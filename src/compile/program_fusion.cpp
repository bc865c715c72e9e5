// Fusing an instruction into the one that is its only reader: (a*b) + c in one loop instead of
// two, which saves a pass over the block. Both roundings stay, so values do not change.
#include <vector>

#include "compile/program.h"

namespace quillon {
namespace {

// The pairs that fuse: an instruction (outer) reading the one result of another (inner). The
// fused instruction reads the inner one's operands, then the outer one's other operand.
struct FusionRow {
  ProgramOp outer, inner, fused;
};
constexpr FusionRow kFusions[] = {
    {ProgramOp::Add, ProgramOp::Multiply, ProgramOp::MultiplyAdd},
    {ProgramOp::Add, ProgramOp::MultiplyConstant, ProgramOp::MultiplyConstantAdd},
    {ProgramOp::AddConstant, ProgramOp::Multiply, ProgramOp::MultiplyAddConstant},
    {ProgramOp::AddConstant, ProgramOp::MultiplyConstant, ProgramOp::MultiplyConstantAddConstant},
    {ProgramOp::Multiply, ProgramOp::Reciprocal, ProgramOp::ReciprocalMultiply},
};

const FusionRow* FusionOf(ProgramOp outer, ProgramOp inner) {
  for (const FusionRow& row : kFusions)
    if (row.outer == outer && row.inner == inner) return &row;
  return nullptr;
}

class Fusion {
 public:
  explicit Fusion(Program& program) : p_(program), reads_(program.code.size(), 0), dead_(program.code.size(), false) {}

  void Run() {
    CountReads();
    for (size_t k = 0; k < p_.code.size(); ++k) TryFuse(p_.code[k]);
    Compact();
  }

 private:
  Operand& OperandOf(const Instruction& ins, int32_t j) { return p_.operands[static_cast<size_t>(ins.firstOperand + j)]; }

  void CountReads() {
    for (const Instruction& ins : p_.code)
      for (int32_t j = 0; j < ins.operandCount; ++j) CountRead(OperandOf(ins, j));
    for (const Operand& o : p_.outputs) CountRead(o);
  }
  void CountRead(const Operand& o) {
    if (o.kind == OperandKind::Register) ++reads_[static_cast<size_t>(o.index)];
  }

  // An instruction whose operand j is the result of an instruction read nowhere else takes
  // that one's operands in front of its own other operand. Only the first operand of a
  // constant sum can be a register.
  void TryFuse(Instruction& outer) {
    const int32_t candidates = outer.op == ProgramOp::AddConstant ? 1 : outer.operandCount;
    for (int32_t j = 0; j < candidates && candidates <= 2; ++j) {
      const Operand o = OperandOf(outer, j);
      if (o.kind != OperandKind::Register || reads_[static_cast<size_t>(o.index)] != 1) continue;
      const Instruction& inner = p_.code[static_cast<size_t>(o.index)];
      const FusionRow* row = FusionOf(outer.op, inner.op);
      if (row == nullptr) continue;
      const Operand other = OperandOf(outer, 1 - j);
      outer.firstOperand = static_cast<int32_t>(p_.operands.size());
      for (int32_t i = 0; i < inner.operandCount; ++i) p_.operands.push_back(OperandOf(inner, i));
      p_.operands.push_back(other);
      outer.operandCount = inner.operandCount + 1;
      outer.op = row->fused;
      dead_[static_cast<size_t>(o.index)] = true;
      return;
    }
  }

  // Drops the fused products; instruction k defines value k again afterwards.
  void Compact() {
    std::vector<int32_t> renumber(p_.code.size(), -1);
    std::vector<Instruction> kept;
    for (size_t k = 0; k < p_.code.size(); ++k) {
      if (dead_[k]) continue;
      renumber[k] = static_cast<int32_t>(kept.size());
      kept.push_back(p_.code[k]);
      kept.back().target = renumber[k];
    }
    for (const Instruction& ins : kept)
      for (int32_t j = 0; j < ins.operandCount; ++j) Renumber(OperandOf(ins, j), renumber);
    for (Operand& o : p_.outputs) Renumber(o, renumber);
    p_.code = std::move(kept);
  }
  static void Renumber(Operand& o, const std::vector<int32_t>& renumber) {
    if (o.kind == OperandKind::Register) o.index = renumber[static_cast<size_t>(o.index)];
  }

  Program& p_;
  std::vector<int32_t> reads_;
  std::vector<bool> dead_;
};

}  // namespace

void FuseMultiplyAdd(Program& program) { Fusion(program).Run(); }

}  // namespace quillon
