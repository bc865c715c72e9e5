// Fusing a product into the sum that is its only reader: (a*b) + c in one loop instead of two,
// which saves a pass over the block. Both roundings stay, so values do not change.
#include <vector>

#include "compile/program.h"

namespace quillon {
namespace {

// The fused instruction for a sum of a product of kind `product`, or the sum itself when the
// pair has none.
ProgramOp FusedOp(ProgramOp sum, ProgramOp product) {
  const bool constantSum = sum == ProgramOp::AddConstant;
  if (product == ProgramOp::Multiply) return constantSum ? ProgramOp::MultiplyAddConstant : ProgramOp::MultiplyAdd;
  if (product == ProgramOp::MultiplyConstant)
    return constantSum ? ProgramOp::MultiplyConstantAddConstant : ProgramOp::MultiplyConstantAdd;
  return sum;
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

  // A sum whose operand j is a product read nowhere else takes the product's operands in
  // front of its other one: (a op b) + c.
  void TryFuse(Instruction& sum) {
    if (sum.op != ProgramOp::Add && sum.op != ProgramOp::AddConstant) return;
    const int32_t candidates = sum.op == ProgramOp::Add ? 2 : 1;
    for (int32_t j = 0; j < candidates; ++j) {
      const Operand o = OperandOf(sum, j);
      if (o.kind != OperandKind::Register || reads_[static_cast<size_t>(o.index)] != 1) continue;
      const Instruction& product = p_.code[static_cast<size_t>(o.index)];
      const ProgramOp fused = FusedOp(sum.op, product.op);
      if (fused == sum.op) continue;
      const Operand other = OperandOf(sum, 1 - j);
      sum.firstOperand = static_cast<int32_t>(p_.operands.size());
      p_.operands.push_back(OperandOf(product, 0));
      p_.operands.push_back(OperandOf(product, 1));
      p_.operands.push_back(other);
      sum.operandCount = 3;
      sum.op = fused;
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
