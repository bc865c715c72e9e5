// Compiling a prepared tree into a register program. The compiler replays the stack evaluator's
// walk over cells that hold operands instead of numbers, so that every value is combined in the
// same order and odd trees (lists inside arguments, #T beyond the temporaries) keep their shape.
#include <algorithm>
#include <cstring>
#include <unordered_map>
#include <unordered_set>

#include "compile/program.h"
#include "core/function_node.h"
#include "core/wildcard_node.h"
#include "core/well_known.h"

namespace quillon {
namespace {

// Inputs above this index are not a column any host has: such a slot reads NA.
constexpr int32_t kMaxInputs = 1 << 20;

// A value while compiling: an input, a constant, or the result of instruction `index` (the
// register numbers come later).
using Value = Operand;

struct ExponentRow {
  double exponent;
  ProgramOp op;
};

// The special exponents of the stack evaluator's power, in its order of testing.
constexpr ExponentRow kSpecialExponents[] = {
    {2.0, ProgramOp::Square},       {3.0, ProgramOp::Cube},        {-1.0, ProgramOp::Reciprocal},
    {-2.0, ProgramOp::RecipSquare}, {-3.0, ProgramOp::RecipCube},  {4.0, ProgramOp::Fourth},
    {-4.0, ProgramOp::RecipFourth}, {0.5, ProgramOp::Sqrt},        {-0.5, ProgramOp::RecipSqrt},
};

class ProgramCompiler {
 public:
  explicit ProgramCompiler(const ENode* root) : root_(root) {}

  Program Compile() {
    Walk();
    CollectOutputs();
    FuseMultiplyAdd(program_);
    AllocateRegisters();
    return std::move(program_);
  }

 private:
  // The stack evaluator's iterative post-order walk: leaves push a cell, a function combines
  // the cells of its arguments when the walk climbs back to it.
  void Walk() {
    const ENode* node = root_;
    for (;;) {
      while (node->firstChild != nullptr) node = node->firstChild;
      Push(LeafValue(node));
      while (node != root_ && node->next == nullptr) {
        node = node->parent;
        Combine(static_cast<const FunctionENode*>(node));
      }
      if (node == root_) return;
      node = node->next;
    }
  }

  Value LeafValue(const ENode* leaf) {
    if (leaf->GetType() != WildcardType) return Constant(leaf->GetValue());
    const auto* slot = static_cast<const WildcardENode*>(leaf);
    if (slot->kind == 'S' && slot->index >= 0 && slot->index < kMaxInputs) {
      program_.inputCount = std::max(program_.inputCount, slot->index + 1);
      if (inputsSeen_.insert(slot->index).second) program_.inputsRead.push_back(slot->index);
      return {OperandKind::Input, slot->index};
    }
    if (slot->kind == 'T') return CellAt(slot->index);
    return Constant(kNA);
  }

  // A function over the n cells that end at the top: the result replaces them in the first.
  // Which cells a kernel reads, and when it gives NA instead, follows its form.
  void Combine(const FunctionENode* call) {
    const int32_t n = call->childCount;
    const int32_t first = top_ - n + 1;
    const NumericKernel* kernel = call->derivative == 0 ? FindNumericKernel(call->def) : nullptr;
    if (kernel != nullptr && kernel->form == KernelForm::KeepAll) return;
    const Value result = kernel != nullptr ? Apply(*kernel, call->def, first, n) : Constant(kNA);
    top_ = first - 1;
    Push(result);
  }

  // ORDER KERNELFORM
  Value Apply(const NumericKernel& kernel, const FunctionDef* def, int32_t first, int32_t n) {
    switch (kernel.form) {
      case KernelForm::Unary:
        if (n != 1) break;
        if (def == fnSqrt) return Emit(ProgramOp::Sqrt, {CellAt(first)});
        return Emit(ProgramOp::CallUnary, {CellAt(first)}, &kernel);
      case KernelForm::Binary:
        if (n != 2) break;
        return Emit(ProgramOp::CallBinary, {CellAt(first), CellAt(first + 1)}, &kernel);
      case KernelForm::List:
        if (def == fnPlus) return Fold(ProgramOp::Add, first, n);
        if (def == fnTimes) return Fold(ProgramOp::Multiply, first, n);
        return EmitList(kernel, first, n);
      case KernelForm::FirstOfAny:
        if (def == fnLog) return Emit(ProgramOp::Log, {CellAt(first)});
        if (def == fnExp) return Emit(ProgramOp::Exp, {CellAt(first)});
        return Emit(ProgramOp::CallUnary, {CellAt(first)}, &kernel);
      case KernelForm::PowerOfAny:
        if (n < 2) break;
        return Power(CellAt(first), CellAt(first + 1));
      case KernelForm::KeepAll: break;
    }
    return Constant(kNA);
  }

  // Sums and products, in the stack evaluator's order.
  Value Fold(ProgramOp op, int32_t first, int32_t n) {
    return CombineInOrder(
        n, [&](int32_t k) { return CellAt(first + k); }, [&](Value a, Value b) { return Combine2(op, a, b); });
  }

  // A constant operand is read as one number rather than a block. Sums and products of two
  // doubles do not depend on the order of their operands, so the constant may go second.
  Value Combine2(ProgramOp op, Value a, Value b) {
    const bool constantA = a.kind == OperandKind::Constant, constantB = b.kind == OperandKind::Constant;
    if (constantA == constantB) return Emit(op, {a, b});
    const ProgramOp withConstant = op == ProgramOp::Add ? ProgramOp::AddConstant : ProgramOp::MultiplyConstant;
    return constantB ? Emit(withConstant, {a, b}) : Emit(withConstant, {b, a});
  }

  // A constant exponent of the table becomes its own instruction; any other goes through the
  // table per observation, which gives the same values.
  Value Power(Value base, Value exponent) {
    if (exponent.kind == OperandKind::Constant) {
      const double e = program_.constants[static_cast<size_t>(exponent.index)];
      for (const ExponentRow& row : kSpecialExponents)
        if (e == row.exponent) return Emit(row.op, {base});
      return Emit(ProgramOp::PowerConstant, {base, exponent});
    }
    return Emit(ProgramOp::Power, {base, exponent});
  }

  Value EmitList(const NumericKernel& kernel, int32_t first, int32_t n) {
    std::vector<Value> arguments;
    for (int32_t k = 0; k < n; ++k) arguments.push_back(CellAt(first + k));
    program_.widestCall = std::max(program_.widestCall, n);
    return Emit(ProgramOp::CallList, arguments, &kernel);
  }

  Value Emit(ProgramOp op, const std::vector<Value>& arguments, const NumericKernel* kernel = nullptr) {
    const auto firstOperand = static_cast<int32_t>(program_.operands.size());
    program_.operands.insert(program_.operands.end(), arguments.begin(), arguments.end());
    const auto index = static_cast<int32_t>(program_.code.size());
    program_.code.push_back({op, index, firstOperand, static_cast<int32_t>(arguments.size()), kernel});
    return {OperandKind::Register, index};
  }

  // Equal constants share one block; NaNs are told apart by their bits.
  Value Constant(double value) {
    uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    const auto [at, added] = constantIndex_.try_emplace(bits, static_cast<int32_t>(program_.constants.size()));
    if (added) program_.constants.push_back(value);
    return {OperandKind::Constant, at->second};
  }

  // Cells keep what was last written to them, also above the top, as the evaluator's stack
  // does; a cell never written in this run holds nothing the program can know, so it reads NA.
  Value CellAt(int32_t cell) {
    if (cell >= 0 && cell < static_cast<int32_t>(cells_.size())) return cells_[static_cast<size_t>(cell)];
    return Constant(kNA);
  }

  void Push(Value v) {
    ++top_;
    if (top_ == static_cast<int32_t>(cells_.size())) cells_.push_back(v);
    else cells_[static_cast<size_t>(top_)] = v;
  }

  // The results are the cells above the temporaries, whose number is the length of the
  // temporary list of a @sublist root.
  void CollectOutputs() {
    int32_t temporaries = 0;
    if (IsCallOf(root_, fnSublist) && root_->firstChild != nullptr) temporaries = root_->firstChild->childCount;
    for (int32_t cell = std::max(temporaries, 0); cell <= top_; ++cell) {
      program_.outputs.push_back(CellAt(cell));
    }
  }

  // Instruction k defined value k; registers are reused after the last read of their value. A
  // target never shares a register with its own operands, so that kernels may assume no alias.
  void AllocateRegisters() {
    const size_t count = program_.code.size();
    std::vector<int32_t> lastUse(count, -1);
    for (size_t k = 0; k < count; ++k) {
      const Instruction& ins = program_.code[k];
      for (int32_t j = 0; j < ins.operandCount; ++j) {
        const Operand& o = program_.operands[static_cast<size_t>(ins.firstOperand + j)];
        if (o.kind == OperandKind::Register) lastUse[static_cast<size_t>(o.index)] = static_cast<int32_t>(k);
      }
    }
    for (const Operand& o : program_.outputs)
      if (o.kind == OperandKind::Register) lastUse[static_cast<size_t>(o.index)] = static_cast<int32_t>(count);

    std::vector<int32_t> registerOf(count, -1);
    std::vector<int32_t> free;
    std::vector<std::vector<int32_t>> releasedAfter(count);
    for (size_t v = 0; v < count; ++v) {
      const int32_t last = lastUse[v];
      if (last == static_cast<int32_t>(count)) continue;  // an output lives to the end
      releasedAfter[last < 0 ? v : static_cast<size_t>(last)].push_back(static_cast<int32_t>(v));
    }
    for (size_t k = 0; k < count; ++k) {
      Instruction& ins = program_.code[k];
      int32_t reg;
      if (free.empty()) {
        reg = program_.registerCount++;
      } else {
        reg = free.back();
        free.pop_back();
      }
      registerOf[k] = reg;
      ins.target = reg;
      for (int32_t j = 0; j < ins.operandCount; ++j)
        Rename(program_.operands[static_cast<size_t>(ins.firstOperand + j)], registerOf);
      for (int32_t v : releasedAfter[k]) free.push_back(registerOf[static_cast<size_t>(v)]);
    }
    for (Operand& o : program_.outputs) Rename(o, registerOf);
  }

  static void Rename(Operand& o, const std::vector<int32_t>& registerOf) {
    if (o.kind == OperandKind::Register) o.index = registerOf[static_cast<size_t>(o.index)];
  }

  const ENode* root_;
  Program program_;
  std::vector<Value> cells_;
  std::unordered_map<uint64_t, int32_t> constantIndex_;
  std::unordered_set<int32_t> inputsSeen_;
  int32_t top_ = -1;
};

}  // namespace

Program CompileProgram(const ENode* prepared) { return ProgramCompiler(prepared).Compile(); }

}  // namespace quillon
