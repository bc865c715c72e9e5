// The batch evaluator's program: a prepared tree compiled once into a flat list of instructions
// over numbered registers, then run over a block of observations per instruction. Compiling is in
// program_compiler.cpp, running in program_runner.cpp; the C exports are in api/program_exports.cpp.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "compile/numeric_kernels.h"
#include "core/enode.h"

namespace quillon {

// Observations run through each instruction at a time: a few registers of this many doubles
// stay in the first-level cache, and the fixed count lets the compiler vectorize every loop.
inline constexpr int32_t kProgramBlock = 256;

// ORDER PROGRAMOP: the switch of RunInstruction (program_runner.cpp) and kProgramOpNames, which
// ListProgram prints, follow this enum. The exponent instructions are the special exponents of
// the stack evaluator's power.
enum class ProgramOp : uint8_t {
  Add,          // a + b
  Multiply,     // a * b
  AddConstant,       // a + c, c the constant second operand
  MultiplyConstant,  // a * c
  MultiplyAdd,                  // (a * b) + c
  MultiplyConstantAdd,          // (a * k) + c, k constant
  MultiplyAddConstant,          // (a * b) + k
  MultiplyConstantAddConstant,  // (a * k1) + k2
  ReciprocalMultiply,           // (1 / a) * c: a quotient as the canonical form writes it
  Square,       // a·a
  Cube,         // a·(a·a)
  Fourth,       // a·(a·a·a)
  Reciprocal,   // 1/a
  RecipSquare,  // 1/(a·a)
  RecipCube,    // 1/(a·a·a)
  RecipFourth,  // 1/(a·a·a·a)
  Sqrt,         // square root of a
  RecipSqrt,    // 1 / square root of a
  Power,        // a to the power b, by the special-exponent table per observation
  PowerConstant,  // the library power of a and a constant c outside the table
  Log,          // natural logarithm of a
  Exp,          // exponential of a
  CallUnary,    // the function's kernel of one argument, per observation
  CallBinary,   // the function's kernel of two arguments, per observation
  CallList,     // the function's kernel over all operands, per observation
};

// ORDER PROGRAMOP
inline constexpr const char* kProgramOpNames[] = {
    "add", "multiply", "add_constant", "multiply_constant", "multiply_add",
    "multiply_constant_add", "multiply_add_constant", "multiply_constant_add_constant",
    "reciprocal_multiply", "square", "cube", "fourth", "reciprocal", "recip_square", "recip_cube",
    "recip_fourth", "sqrt", "recip_sqrt", "power", "power_constant", "log", "exp", "call_unary",
    "call_binary", "call_list",
};
static_assert(sizeof kProgramOpNames / sizeof kProgramOpNames[0] == static_cast<size_t>(ProgramOp::CallList) + 1);

// Where the block of an operand comes from.
enum class OperandKind : uint8_t {
  Input,     // the host's column `index`
  Constant,  // Program::constants[index], spread over a block
  Register,  // register `index`
};

struct Operand {
  OperandKind kind;
  int32_t index;
};

struct Instruction {
  ProgramOp op;
  int32_t target;        // register written
  int32_t firstOperand;  // into Program::operands
  int32_t operandCount;
  const NumericKernel* kernel;  // the Call instructions: whose kernel runs
};

// Immutable once compiled, so that threads may run one program at once.
struct Program {
  int32_t inputCount = 0;
  std::vector<int32_t> inputsRead;      // the inputs that the program reads, each once
  std::vector<std::string> inputNames;  // texts of the input symbols, in input order
  std::vector<Operand> outputs;         // result values, in the stack evaluator's cell order
  std::vector<Instruction> code;
  std::vector<Operand> operands;
  std::vector<double> constants;
  int32_t registerCount = 0;
  int32_t widestCall = 0;  // most operands of any CallList instruction
};

// Compiles a tree in the form @subexpr leaves (borrowed, unchanged): the program computes the
// cells that the stack evaluator would leave beyond the temporaries, in the same order of
// operations. Inputs are numbered by the #S wildcards; inputNames is left to the caller.
Program CompileProgram(const ENode* prepared);

// Folds a product into the sum, and a reciprocal into the product, that is its only reader
// (program in the compiler's numbering: instruction k defines register k).
void FuseMultiplyAdd(Program& program);

// Runs the program over count observations: inputs[i][row] for each input, outputs[k][row] for
// each output. Allocates its own scratch, so that calls may run at once on one program.
void RunProgram(const Program& program, int64_t count, const double* const* inputs, double* const* outputs);

// The program as text, one instruction a line ("r2 = multiply_constant s0, c1"), then its outputs.
std::string ListProgram(const Program& program);

}  // namespace quillon
