// The text of a program, one instruction a line: "r2 = multiply r0, c1". For tests and for
// reading what the compiler made of a formula.
#include <string>

#include "compile/program.h"

namespace quillon {
namespace {

std::string OperandText(const Operand& o) {
  switch (o.kind) {
    case OperandKind::Input: return "s" + std::to_string(o.index);
    case OperandKind::Constant: return "c" + std::to_string(o.index);
    case OperandKind::Register: break;
  }
  return "r" + std::to_string(o.index);
}

}  // namespace

std::string ListProgram(const Program& program) {
  std::string text;
  for (const Instruction& ins : program.code) {
    text += "r" + std::to_string(ins.target) + " = " + kProgramOpNames[static_cast<size_t>(ins.op)];
    for (int32_t j = 0; j < ins.operandCount; ++j)
      text += (j == 0 ? " " : ", ") + OperandText(program.operands[static_cast<size_t>(ins.firstOperand + j)]);
    text += "\n";
  }
  for (const Operand& o : program.outputs) text += "out " + OperandText(o) + "\n";
  return text;
}

}  // namespace quillon
