// FunctionTable and the operations on one definition; see function_table.h.
#include "core/function_table.h"

#include <cassert>

#include "shared/hash.h"

namespace quillon {
namespace {

// A fresh record: every field 0 but the priority of a plain function.
FunctionDef NewDefinition(const char* name) {
  FunctionDef def{};
  CopyName(def.name, name);
  def.hash = NameHash(def.name, 0);
  def.priority = kPlainPriority;
  return def;
}

bool IsOperatorClass(int32_t opClass) { return opClass >= OpBinary && opClass <= OpBracket; }

}  // namespace

FunctionTable::~FunctionTable() {
  names_.ForEach([](FunctionDef& def) {
    while (Rule* rule = def.rules) {
      def.rules = rule->next;
      delete rule;
    }
  });
}

FunctionDef* FunctionTable::Define(const char* name, uint32_t attributes, uint32_t childMode,
                                   int32_t opClass, int32_t token, int32_t closeToken,
                                   int32_t priority, int32_t rightAssoc) {
  const auto [def, added] = names_.Add(NewDefinition(name));
  if (!added) return def;
  def->attributes = attributes;
  def->childMode = childMode;
  def->opClass = opClass;
  def->token = token;
  def->closeToken = closeToken;
  def->priority = priority;
  def->rightAssoc = rightAssoc;
  if (IsOperatorClass(opClass)) {
    assert(token >= 0 && token < kOpCodeCount && "operator token outside the token table");
    if (token >= 0 && token < kOpCodeCount) operators_[opClass][token] = def;
  }
  return def;
}

FunctionDef* FunctionTable::Alias(const char* name, FunctionDef* target) {
  const auto [def, added] = names_.Add(NewDefinition(name));
  if (added) def->alias = target;
  return def;
}

FunctionDef* FunctionTable::Lookup(const char* name) const {
  return names_.Find(name, NameHash(name, 0));
}

FunctionDef* FunctionTable::Operator(int32_t opClass, int32_t token) const {
  if (token < 0 || token >= kOpCodeCount) return nullptr;
  return operators_[opClass][token];
}

void AttachRule(FunctionDef* def, std::unique_ptr<Rule> rule) {
  Rule** tail = &def->rules;
  while (*tail != nullptr) tail = &(*tail)->next;
  rule->next = nullptr;
  *tail = rule.release();
}

void AddSignature(FunctionDef* def, const char* text, uint32_t opcode) {
  assert(def->signatureCount < kMaxSignatures && "more signatures than a definition holds");
  if (def->signatureCount >= kMaxSignatures) return;
  def->signatures[def->signatureCount++] = FunctionSignature{opcode, text};
}

// Only the count digit and the argument letters take part; the result type behind '_' doesn't.
uint32_t SignatureLookup(const FunctionDef* def, const char* text) {
  const char countDigit = text[0];
  const int32_t arguments = countDigit >= '0' && countDigit <= '9' ? countDigit - '0' : 0;
  for (int32_t s = 0; s < def->signatureCount; ++s) {
    const char* stored = def->signatures[s].text;
    bool same = stored[0] == countDigit;
    for (int32_t i = 1; same && i <= arguments && text[i - 1] != 0; ++i)
      same = stored[i] == text[i];
    if (same) return def->signatures[s].opcode < 255 ? def->signatures[s].opcode : 0;
  }
  return 0;
}

}  // namespace quillon
