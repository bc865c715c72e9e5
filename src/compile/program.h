// The batch evaluator's program: a prepared tree compiled once into a flat list of instructions
// over numbered registers, then run over a block of observations per instruction. Compiling is in
// program_compiler.cpp, running in program_runner.cpp; the C exports are in api/program_exports.cpp.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/enode.h"
#include "core/function_def.h"

namespace quillon {

// Observations run through each instruction at a time: a few registers of this many doubles
// stay in the first-level cache, and the fixed count lets the compiler vectorize every loop.
inline constexpr int32_t kProgramBlock = 256;

// ORDER PROGRAMOP: the switch of RunInstruction (program_runner.cpp) and kProgramOpNames follow
// this enum. The exponent instructions are the special exponents of the stack evaluator's power.
enum class ProgramOp : uint8_t {
  Add,          // a + b
  Multiply,     // a * b
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
  Log,          // natural logarithm of a
  Exp,          // exponential of a
  Kernel,       // the function's scalar kernel over all operands, per observation
};

// ORDER PROGRAMOP
inline constexpr const char* kProgramOpNames[] = {
    "add",   "multiply",    "square", "cube",       "fourth", "reciprocal", "recip_square", "recip_cube",
    "recip_fourth", "sqrt", "recip_sqrt", "power", "log", "exp", "kernel",
};

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
  const FunctionDef* def;  // Kernel only: whose scalar kernel runs
};

// Immutable once compiled, so that threads may run one program at once.
struct Program {
  int32_t inputCount = 0;
  std::vector<std::string> inputNames;  // texts of the input symbols, in input order
  std::vector<Operand> outputs;         // result values, in the stack evaluator's cell order
  std::vector<Instruction> code;
  std::vector<Operand> operands;
  std::vector<double> constants;
  int32_t registerCount = 0;
  int32_t widestKernel = 0;  // most operands of any Kernel instruction
};

// Compiles a tree in the form @subexpr leaves (borrowed, unchanged): the program computes the
// cells that the stack evaluator would leave beyond the temporaries, in the same order of
// operations. Inputs are numbered by the #S wildcards; inputNames is left to the caller.
Program CompileProgram(const ENode* prepared);

// Runs the program over count observations: inputs[i][row] for each input, outputs[k][row] for
// each output. Allocates its own scratch, so that calls may run at once on one program.
void RunProgram(const Program& program, int64_t count, const double* const* inputs, double* const* outputs);

// The value of a function's scalar kernel for the argument values, or NA when it has none.
double CallScalarKernel(const FunctionDef* def, double* args, int32_t count);

}  // namespace quillon
