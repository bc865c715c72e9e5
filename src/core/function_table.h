// FunctionTable: the process-wide catalogue of FunctionDefs by name, with the operator arrays
// that the parser indexes by token number; and the operations on one definition (signatures,
// rules). What the catalogue holds is in function_catalogue.h.
#pragma once

#include <cstdint>
#include <memory>

#include "core/function_def.h"
#include "core/name_table.h"
#include "core/op_code.h"
#include "core/rule.h"

namespace quillon {

// Priority of everything that is not an operator.
inline constexpr int32_t kPlainPriority = 999;

// Written once under the init lock, read without a lock afterwards. Definitions never move, so
// comparing FunctionDef pointers is comparing names. The table owns the definitions and, through
// them, their rules.
class FunctionTable {
 public:
  FunctionTable() = default;
  ~FunctionTable();
  FunctionTable(const FunctionTable&) = delete;
  FunctionTable& operator=(const FunctionTable&) = delete;

  // Defines a function; for classes 1 to 4 the definition also goes into that class's array at
  // `token`. A name that is already defined keeps its first definition, which is returned with
  // its old fields, and the new arguments are dropped.
  FunctionDef* Define(const char* name, uint32_t attributes, uint32_t childMode, int32_t opClass,
                      int32_t token, int32_t closeToken, int32_t priority, int32_t rightAssoc);

  // A second spelling of `target`: a plain entry whose `alias` the parser follows once. A name
  // that is already defined is returned unchanged.
  FunctionDef* Alias(const char* name, FunctionDef* target);

  // The entry under a name, alias or not; null when there is none. `hash` is NameHash(name, 0).
  FunctionDef* Lookup(const char* name, uint32_t hash) const { return names_.Find(name, hash); }
  FunctionDef* Lookup(const char* name) const;

  // Operators by token number; null for a token without one, or outside 0..43.
  FunctionDef* Binary(int32_t token) const { return Operator(OpBinary, token); }
  FunctionDef* Prefix(int32_t token) const { return Operator(OpPrefix, token); }
  FunctionDef* Postfix(int32_t token) const { return Operator(OpPostfix, token); }
  FunctionDef* Bracket(int32_t token) const { return Operator(OpBracket, token); }

  uint32_t Count() const { return names_.Count(); }  // aliases included
  uint32_t BucketCount() const { return names_.BucketCount(); }

  template <class Visit>
  void ForEach(Visit visit) const {
    names_.ForEach(visit);
  }

 private:
  FunctionDef* Operator(int32_t opClass, int32_t token) const;

  NameTable<FunctionDef> names_;
  FunctionDef* operators_[OpBracket + 1][kOpCodeCount] = {};  // row OpPlain stays empty
};

// Appends a rule to the definition's list, which owns it from then on; the list is the order
// in which the driver tries the rules.
void AttachRule(FunctionDef* def, std::unique_ptr<Rule> rule);

// Records a machine form of the function: `text` is an argument count digit, one type letter per
// argument ('d' double), then '_' and the result type; it is not copied.
void AddSignature(FunctionDef* def, const char* text, uint32_t opcode);

// The opcode of the first signature whose count digit and argument letters equal those of
// `text`, "2dd" finding "2dd_d"; 0 when none matches or the opcode is 255 or more.
uint32_t SignatureLookup(const FunctionDef* def, const char* text);

}  // namespace quillon
