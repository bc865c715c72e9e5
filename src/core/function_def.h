// FunctionDef: one catalogued function or operator, everything the system knows about it.
// The catalogue (function_table.h) makes and owns these records; nodes point at them.
#pragma once

#include <cstdint>

#include "core/rule.h"
#include "shared/names.h"

namespace quillon {

// Attribute bits of a definition.
enum FunctionAttribute : uint32_t {
  AttrCommutative = 1,
  AttrAssociative = 2,
  AttrCollapseSingle = 4,
  AttrOrderFromLast = 16,
  AttrOrderThrough = 32,
  AttrDate = 64,
  AttrRandom = 128,
  AttrSeries = 256,
  AttrAggregate = 512,
  AttrDerivative = 0x80000000u,  // never in a definition; added for f[1](x) notation
};

// Syntactic classes of a definition.
enum OperatorClass : int32_t {
  OpPlain = 0,
  OpBinary = 1,
  OpPrefix = 2,
  OpPostfix = 3,
  OpBracket = 4,
};

// Numeric kernel of the stack evaluator: it reads the count argument cells that start at args and
// leaves its result there; it returns how many further cells stay in use (0: one value remains,
// in args[0]; count-1: every argument stays).
using StackOpFunction = int32_t (*)(double* args, int32_t count);

struct FunctionSignature {
  uint32_t opcode;
  const char* text;
};

inline constexpr int32_t kMaxSignatures = 16;

struct FunctionDef {
  char name[kNameLimit];
  uint32_t hash;
  FunctionDef* alias;
  uint32_t attributes;
  uint32_t childMode;
  int32_t opClass;
  int32_t token;
  int32_t closeToken;
  int32_t priority;
  int32_t rightAssoc;
  Rule* rules;
  FunctionSignature signatures[kMaxSignatures];
  int32_t signatureCount;
  StackOpFunction StackOp;
};

}  // namespace quillon
