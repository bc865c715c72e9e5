// Running a register program: each instruction is one plain loop over a block of observations,
// so the cost of dispatch is paid once per block and the compiler vectorizes the arithmetic.
#include <algorithm>
#include <cmath>

#include "compile/program.h"

namespace quillon {
namespace {

constexpr int32_t B = kProgramBlock;

// The fixed trip count and the promise that out never overlaps its operands are what let the
// compiler turn each of these loops into vector code.
template <typename F>
inline void Unary(double* __restrict out, const double* __restrict a, F f) {
  for (int32_t i = 0; i < B; ++i) out[i] = f(a[i]);
}

template <typename F>
inline void Binary(double* __restrict out, const double* __restrict a, const double* __restrict b, F f) {
  for (int32_t i = 0; i < B; ++i) out[i] = f(a[i], b[i]);
}

template <typename F>
inline void Ternary(double* __restrict out, const double* __restrict a, const double* __restrict b,
                    const double* __restrict c, F f) {
  for (int32_t i = 0; i < B; ++i) out[i] = f(a[i], b[i], c[i]);
}

// Scratch of one call: registers, constant blocks, staged inputs of a short last block, and the
// argument cells of a kernel call.
class Frame {
 public:
  explicit Frame(const Program& p)
      : program_(p),
        registerBlocks_(static_cast<size_t>(p.registerCount) * B),
        constantBlocks_(p.constants.size() * B),
        staged_(p.inputsRead.size() * B),
        columns_(static_cast<size_t>(p.inputCount)),
        cells_(static_cast<size_t>(std::max(p.widestCall, 1))) {
    for (size_t c = 0; c < p.constants.size(); ++c)
      std::fill_n(constantBlocks_.begin() + static_cast<std::ptrdiff_t>(c * B), B, p.constants[c]);
  }

  // Points the inputs at rows [start, start + n); a short block is copied so that every loop
  // can run the full block without reading past the host's arrays.
  void LoadInputs(const double* const* inputs, int64_t start, int32_t n) {
    for (size_t k = 0; k < program_.inputsRead.size(); ++k) {
      const auto i = static_cast<size_t>(program_.inputsRead[k]);
      const double* column = inputs[i] + start;
      if (n == B) {
        columns_[i] = column;
        continue;
      }
      double* block = staged_.data() + k * B;
      std::copy_n(column, n, block);
      std::fill(block + n, block + B, 0.0);
      columns_[i] = block;
    }
  }

  void Run() {
    for (const Instruction& ins : program_.code) RunInstruction(ins);
  }

  void StoreOutputs(double* const* outputs, int64_t start, int32_t n) const {
    for (size_t k = 0; k < program_.outputs.size(); ++k)
      std::copy_n(Block(program_.outputs[k]), n, outputs[k] + start);
  }

 private:
  const double* Block(const Operand& o) const {
    switch (o.kind) {
      case OperandKind::Input: return columns_[static_cast<size_t>(o.index)];
      case OperandKind::Constant: return constantBlocks_.data() + static_cast<size_t>(o.index) * B;
      case OperandKind::Register: break;
    }
    return registerBlocks_.data() + static_cast<size_t>(o.index) * B;
  }

  const double* Arg(const Instruction& ins, int32_t j) const {
    return Block(program_.operands[static_cast<size_t>(ins.firstOperand + j)]);
  }

  double ConstantOf(const Instruction& ins, int32_t j) const {
    return program_.constants[static_cast<size_t>(program_.operands[static_cast<size_t>(ins.firstOperand + j)].index)];
  }

  // ORDER PROGRAMOP
  void RunInstruction(const Instruction& ins) {
    double* out = registerBlocks_.data() + static_cast<size_t>(ins.target) * B;
    const double* a = Arg(ins, 0);
    switch (ins.op) {
      case ProgramOp::Add: return Binary(out, a, Arg(ins, 1), [](double x, double y) { return x + y; });
      case ProgramOp::Multiply: return Binary(out, a, Arg(ins, 1), [](double x, double y) { return x * y; });
      case ProgramOp::AddConstant: {
        const double c = ConstantOf(ins, 1);
        return Unary(out, a, [c](double x) { return x + c; });
      }
      case ProgramOp::MultiplyConstant: {
        const double c = ConstantOf(ins, 1);
        return Unary(out, a, [c](double x) { return x * c; });
      }
      case ProgramOp::MultiplyAdd:
        return Ternary(out, a, Arg(ins, 1), Arg(ins, 2), [](double x, double y, double z) { return x * y + z; });
      case ProgramOp::MultiplyConstantAdd: {
        const double k = ConstantOf(ins, 1);
        return Binary(out, a, Arg(ins, 2), [k](double x, double z) { return x * k + z; });
      }
      case ProgramOp::MultiplyAddConstant: {
        const double k = ConstantOf(ins, 2);
        return Binary(out, a, Arg(ins, 1), [k](double x, double y) { return x * y + k; });
      }
      case ProgramOp::MultiplyConstantAddConstant: {
        const double k1 = ConstantOf(ins, 1), k2 = ConstantOf(ins, 2);
        return Unary(out, a, [k1, k2](double x) { return x * k1 + k2; });
      }
      case ProgramOp::ReciprocalMultiply:
        return Binary(out, a, Arg(ins, 1), [](double x, double y) { return (1.0 / x) * y; });
      case ProgramOp::Square: return Unary(out, a, [](double x) { return x * x; });
      case ProgramOp::Cube: return Unary(out, a, [](double x) { return x * (x * x); });
      case ProgramOp::Fourth: return Unary(out, a, [](double x) { return x * (x * x * x); });
      case ProgramOp::Reciprocal: return Unary(out, a, [](double x) { return 1.0 / x; });
      case ProgramOp::RecipSquare: return Unary(out, a, [](double x) { return 1.0 / (x * x); });
      case ProgramOp::RecipCube: return Unary(out, a, [](double x) { return 1.0 / (x * x * x); });
      case ProgramOp::RecipFourth: return Unary(out, a, [](double x) { return 1.0 / (x * x * x * x); });
      case ProgramOp::Sqrt: return Unary(out, a, [](double x) { return std::sqrt(x); });
      case ProgramOp::RecipSqrt: return Unary(out, a, [](double x) { return 1.0 / std::sqrt(x); });
      case ProgramOp::Power: return Binary(out, a, Arg(ins, 1), PowKernel);
      case ProgramOp::PowerConstant: {
        const double c = ConstantOf(ins, 1);
        return Unary(out, a, [c](double x) { return std::pow(x, c); });
      }
      case ProgramOp::Log: return Unary(out, a, LogKernel);
      case ProgramOp::Exp: return Unary(out, a, ExpKernel);
      case ProgramOp::CallUnary: return Unary(out, a, ins.kernel->unary);
      case ProgramOp::CallBinary: return Binary(out, a, Arg(ins, 1), ins.kernel->binary);
      case ProgramOp::CallList: return CallList(ins, out);
    }
  }

  void CallList(const Instruction& ins, double* out) {
    for (int32_t i = 0; i < B; ++i) {
      for (int32_t j = 0; j < ins.operandCount; ++j) cells_[static_cast<size_t>(j)] = Arg(ins, j)[i];
      out[i] = ins.kernel->list(cells_.data(), ins.operandCount);
    }
  }

  const Program& program_;
  std::vector<double> registerBlocks_;
  std::vector<double> constantBlocks_;
  std::vector<double> staged_;
  std::vector<const double*> columns_;
  std::vector<double> cells_;
};

}  // namespace

void RunProgram(const Program& program, int64_t count, const double* const* inputs, double* const* outputs) {
  if (count <= 0) return;
  Frame frame(program);
  for (int64_t start = 0; start < count; start += B) {
    const auto n = static_cast<int32_t>(std::min<int64_t>(B, count - start));
    frame.LoadInputs(inputs, start, n);
    frame.Run();
    frame.StoreOutputs(outputs, start, n);
  }
}

}  // namespace quillon
