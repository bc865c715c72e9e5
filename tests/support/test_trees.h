// Small trees for tests of the core: hand-made definitions and symbols, builders, a dump in
// function form, and a fixture that checks no node is left alive.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/enode.h"
#include "core/function_def.h"
#include "core/function_node.h"
#include "core/int_node.h"
#include "core/symbol_def.h"
#include "core/symbol_node.h"
#include "core/wildcard_node.h"
#include "quillon.h"
#include "shared/hash.h"

namespace quillon::testing {

// Definitions and symbols that live as long as the test.
class Definitions {
 public:
  FunctionDef* Function(const char* name, uint32_t attributes = 0) {
    auto def = std::make_unique<FunctionDef>();
    CopyName(def->name, name);
    def->hash = NameHash(name, 0);
    def->attributes = attributes;
    def->priority = 999;
    functions_.push_back(std::move(def));
    return functions_.back().get();
  }
  SymbolDef* Symbol(const char* name, uint32_t bits = SymbolOther) {
    auto def = std::make_unique<SymbolDef>();
    CopyName(def->name, name);
    def->hash = NameHash(name, 0);
    def->bits = bits;
    def->rawType = 0;
    symbols_.push_back(std::move(def));
    return symbols_.back().get();
  }

 private:
  std::vector<std::unique_ptr<FunctionDef>> functions_;
  std::vector<std::unique_ptr<SymbolDef>> symbols_;
};

template <class... Children>
ENode* Call(FunctionDef* def, Children*... children) {
  ENode* node = new FunctionENode(def);
  (node->AppendChild(children), ...);
  return node;
}
inline ENode* Int(int32_t v) { return new IntENode(v); }
inline ENode* Sym(SymbolDef* def, int32_t index1 = 0, int32_t index2 = -1) {
  return new SymbolENode(def, index1, index2);
}
inline ENode* Wild(int32_t index, uint32_t flags = FlagSettled) { return new WildcardENode(index, 0, flags); }

// f(a,g(1,#2)): each node's Print, children in parentheses.
inline std::string Dump(const ENode* node) {
  std::string text = node->Print().c_str();
  if (node->GetType() != FunctionType) return text;
  text += "(";
  for (const ENode* c = node->firstChild; c != nullptr; c = c->next) {
    if (c != node->firstChild) text += ",";
    text += Dump(c);
  }
  return text + ")";
}

// Checks that every node a test made is gone by its end. The library is started first, so that
// the trees of the rule catalogue are counted before the test begins.
class NoLeakTest : public ::testing::Test {
 protected:
  void SetUp() override {
    mathexpr_destroy(mathexpr_create_void());
    start_ = LiveNodeCount();
  }
  void TearDown() override { EXPECT_EQ(LiveNodeCount(), start_) << "nodes left alive"; }

 private:
  int64_t start_ = 0;
};

}  // namespace quillon::testing

namespace quillon::testing {

// Every link of the subtree agrees with its neighbours and every count with its list.
inline bool LinksConsistent(const ENode* node) {
  int32_t count = 0;
  const ENode* previous = nullptr;
  for (const ENode* c = node->firstChild; c != nullptr; c = c->next, ++count) {
    if (c->parent != node || c->prev != previous || !LinksConsistent(c)) return false;
    previous = c;
  }
  return count == node->childCount && node->lastChild == previous;
}

}  // namespace quillon::testing
