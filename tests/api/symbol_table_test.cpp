// Symbol tables through their exports: types, classes, growth and long names.
#include <gtest/gtest.h>

#include <string>

#include "api/handle.h"
#include "language/symbol_table.h"
#include "shared/hash.h"

namespace quillon {
namespace {

SymbolDef* Lookup(mathsymtable* t, const char* name) { return TableOf(t)->Find(name, NameHash(name, 0)); }

TEST(SymbolTable, ReAddingChangesTheTypeAndKeepsTheFirstSpelling) {
  mathsymtable* t = mathsymtable_create(nullptr, 0);
  EXPECT_EQ(mathsymtable_add(t, "x", 1), 1u);
  EXPECT_EQ(mathsymtable_add(t, "X", 43), 0u);
  SymbolDef* x = Lookup(t, "x");
  ASSERT_NE(x, nullptr);
  EXPECT_STREQ(x->name, "x");
  EXPECT_EQ(x->rawType, 43u);
  EXPECT_EQ(x->bits & kClassBits, 2u);
  mathsymtable_destroy(t);
  mathsymtable_destroy(nullptr);
}

TEST(SymbolTable, ClassesOfRawTypesAndTheHostsBits) {
  mathsymtable* t = mathsymtable_create(nullptr, 0);
  const struct {
    int32_t type;
    uint32_t klass;
  } rows[] = {{199, 1}, {43, 2}, {15, 4}, {44, 4}, {45, 4}, {35, 8}, {40, 8}, {41, 8}, {42, 8}, {1, 32}, {7, 16}, {-3, 16}};
  for (const auto& row : rows) {
    const std::string name = "s" + std::to_string(row.type);
    mathsymtable_add(t, name.c_str(), row.type);
    EXPECT_EQ(Lookup(t, name.c_str())->bits, row.klass) << row.type;
  }
  mathsymtable_add_ex(t, "e", 1, 0xFFFFFFFFu);
  EXPECT_EQ(Lookup(t, "e")->bits, 0xFFFFFFE0u);
  mathsymtable_add(t, "e", 43);
  EXPECT_EQ(Lookup(t, "e")->bits, 0xFFFFFFC2u) << "plain add keeps the host's bits";
  mathsymtable_destroy(t);
}

TEST(SymbolTable, GrowsWithoutMovingItsRecords) {
  mathsymtable* t = mathsymtable_create(nullptr, 0);
  mathsymtable_add(t, "first", 1);
  SymbolDef* first = Lookup(t, "first");
  for (int i = 0; i < 7; ++i) mathsymtable_add(t, ("s" + std::to_string(i)).c_str(), 1);
  EXPECT_EQ(TableOf(t)->symbols.BucketCount(), 8u);
  mathsymtable_add(t, "ninth", 1);
  EXPECT_EQ(TableOf(t)->symbols.BucketCount(), 16u);
  EXPECT_EQ(Lookup(t, "first"), first);
  for (int i = 0; i < 7; ++i) EXPECT_NE(Lookup(t, ("s" + std::to_string(i)).c_str()), nullptr);
  mathsymtable_destroy(t);
}

TEST(SymbolTable, LongNamesAreCutAt301Bytes) {
  mathsymtable* t = mathsymtable_create(nullptr, 0);
  const std::string name(400, 'q');
  EXPECT_EQ(mathsymtable_add(t, name.c_str(), 1), 1u);
  EXPECT_EQ(mathsymtable_add(t, name.substr(0, 301).c_str(), 1), 0u);
  EXPECT_EQ(mathsymtable_add(t, name.substr(0, 300).c_str(), 1), 1u);
  EXPECT_EQ(mathsymtable_add(t, nullptr, 1), 1u) << "a null name counts as empty";
  EXPECT_EQ(mathsymtable_add(t, "", 1), 0u);
  mathsymtable_destroy(t);
}

}  // namespace
}  // namespace quillon
