// Resolvers that call back into the library while the parse that asked them waits: a host that
// looks a name up by parsing its definition, or that starts the library again. The parse that
// asked must come out whole, and its context must outlive it.
#include <gtest/gtest.h>

#include <string>

#include "quillon.h"
#include "support/api_helpers.h"

namespace quillon::testing {
namespace {

// Resolvers are plain C callbacks, so what they reach is file-wide.
mathsymtable* definitions = nullptr;  // a second table, for definitions parsed by the resolver
mathsymtable* resolving = nullptr;    // the table of the parse under way
std::string innerStructure;
bool innerTooDeep = false;
int resolverCalls = 0;

// Parses text in table and keeps its structure for the test to read.
void ParseAside(mathsymtable* table, const char* text) {
  mathexpr* e = mathexpr_create(table, text);
  innerStructure = Structure(e);
  innerTooDeep |= innerStructure == "<\"syntax error: expression is nested too deeply\">";
  mathexpr_destroy(e);
}

int32_t QUILLON_CALL RestartingResolver(const char*) {
  quillon_init();
  return 1;
}

int32_t QUILLON_CALL ParsingResolverOtherTable(const char*) {
  ParseAside(definitions, "2*a + b");
  return 1;
}

int32_t QUILLON_CALL ParsingResolverSameTable(const char* name) {
  if (std::string(name) == "y") ParseAside(resolving, "w^2");
  return 1;
}

int32_t QUILLON_CALL RestartingAndParsingResolver(const char*) {
  quillon_init();
  ParseAside(definitions, "c - 1");
  return 1;
}

// Looks the name up by parsing it, which asks this resolver again: a host's endless recursion.
int32_t QUILLON_CALL SelfParsingResolver(const char* name) {
  ++resolverCalls;
  ParseAside(resolving, name);
  return 1;
}

class ResolverReentry : public NoLeakTest {
 protected:
  void SetUp() override {
    NoLeakTest::SetUp();
    definitions = mathsymtable_create(nullptr, 1);
    innerStructure.clear();
    innerTooDeep = false;
    resolverCalls = 0;
  }
  void TearDown() override {
    mathsymtable_destroy(definitions);
    NoLeakTest::TearDown();
  }

  // The structure of "x+y*z" parsed with a table that asks resolver about every name.
  std::string ParseWith(mathsymtable_resolver resolver, const char* text = "x+y*z") {
    resolving = mathsymtable_create(resolver, 0);
    mathexpr* e = mathexpr_create(resolving, text);
    std::string structure = Structure(e);
    mathexpr_destroy(e);
    mathsymtable_destroy(resolving);
    return structure;
  }
};

TEST_F(ResolverReentry, ResolverThatParsesDoesNotCutTheOuterFormula) {
  const struct {
    const char* name;
    mathsymtable_resolver resolver;
    const char* inner;
  } rows[] = {
      {"another table", ParsingResolverOtherTable, "@plus(@times(2,a),b)"},
      {"the same table", ParsingResolverSameTable, "@pow(w,2)"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ParseWith(row.resolver), "@plus(x,@times(y,z))") << row.name;
    EXPECT_EQ(innerStructure, row.inner) << row.name;
  }
}

TEST_F(ResolverReentry, ResolverThatCallsInitDoesNotFreeTheRunningParse) {
  EXPECT_EQ(ParseWith(RestartingResolver), "@plus(x,@times(y,z))");
  EXPECT_EQ(ParseWith(RestartingAndParsingResolver, "x*(y+1)"), "@times(x,@plus(y,1))");
  EXPECT_EQ(innerStructure, "@minus(c,1)");
  mathexpr* after = mathexpr_create(nullptr, "2+3");
  EXPECT_EQ(Structure(after), "@plus(2,3)") << "the replacing context works once the parse is over";
  mathexpr_destroy(after);
}

TEST_F(ResolverReentry, ResolverThatParsesItsOwnNameEndsInsteadOfRecursingForEver) {
  EXPECT_EQ(ParseWith(SelfParsingResolver, "q+1"), "@plus(q,1)");
  EXPECT_TRUE(innerTooDeep) << "the innermost parse failed";
  // The name of the outer parse, then one call from each of the 32 parses that fit in 256 levels
  // at eight levels each; the 33rd parse fails before it meets the name.
  EXPECT_EQ(resolverCalls, 33);
  EXPECT_EQ(innerStructure, "q") << "and every level above it resolved q";
}

}  // namespace
}  // namespace quillon::testing
