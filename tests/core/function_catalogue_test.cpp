// The function table (chains, doubling, names, operators, signatures, rules) and the catalogue
// it is filled with: counts, fields by family, aliases and the well-known globals.
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "core/function_catalogue.h"
#include "core/function_table.h"
#include "core/name_table.h"
#include "core/well_known.h"
#include "shared/hash.h"

namespace quillon {
namespace {

struct Shape {
  const char* name;
  uint32_t attributes;
  uint32_t childMode;
  int32_t opClass;
  int32_t token;
  int32_t closeToken;
  int32_t priority;
  int32_t rightAssoc;
};

// Every definition that is not a plain function with default fields.
const Shape kShaped[] = {
    {"@list", 0, 0, 4, 3, 4, 999, 0},     {"@assign", 0, 0, 1, 37, 0, 30, 1},
    {"@or", 6, 0, 1, 43, 0, 40, 0},       {"@and", 6, 0, 1, 42, 0, 50, 0},
    {"@lt", 0, 0, 1, 32, 0, 100, 0},      {"@le", 0, 0, 1, 33, 0, 100, 0},
    {"@gt", 0, 0, 1, 34, 0, 100, 0},      {"@ge", 0, 0, 1, 35, 0, 100, 0},
    {"@eq", 0, 0, 1, 23, 0, 100, 1},      {"@neq", 0, 0, 1, 36, 0, 100, 0},
    {"@plus", 55, 0, 1, 12, 0, 200, 0},   {"@minus", 0, 0, 1, 13, 0, 200, 0},
    {"@times", 55, 0, 1, 14, 0, 500, 0},  {"@divide", 0, 0, 1, 15, 0, 500, 0},
    {"@UnaryPlus", 0, 0, 2, 12, 0, 600, 1}, {"@UnaryMinus", 32, 0, 2, 13, 0, 600, 1},
    {"@pow", 36, 0, 1, 20, 0, 700, 0},
    {"@deriv", 4, 0x80000, 0, 0, 0, 999, 0}, {"@N", 4, 0x10000, 0, 0, 0, 999, 0},
    {"@expand", 4, 0x20000, 0, 0, 0, 999, 0}, {"@factor", 4, 0x40000, 0, 0, 0, 999, 0},
};

const std::set<std::string> kRandom = {
    "rnd", "nrnd", "@rbeta", "@rbinom", "@rchisq", "@rexp", "@rextreme", "@rfdist", "@rgamma",
    "@rged", "@rlaplace", "@rlogisitc", "@rlognorm", "@rnegbin", "@rnorm", "@rpareto", "@rpoisson",
    "@rtdist", "@runif", "@rweib", "@rmvnorm", "@rmvnormc", "@rmvnormi", "@rmvnormic", "@rwish",
    "@rwishc", "@rwishi", "@rwishic", "@riwish", "@riwishc", "@riwishi", "@riwishic"};
const std::set<std::string> kSeries = {"@lag", "d",   "dlog", "@movav", "@movsum", "@pch",
                                       "@pcha", "@pchy", "@pc", "@pca",   "@pcy"};
const std::set<std::string> kDate = {"@trend", "@seas", "@before", "@during", "@after"};
const std::set<std::string> kAggregate = {
    "@elem",    "@cor",       "@cov",      "@inner",      "@obs",     "@mean",     "@median",
    "@min",     "@max",       "@quantile", "@stdev",      "@sum",     "@sumsq",    "@var",
    "@skew",    "@kurt",      "@nas",      "@obsby",      "@meansby", "@mediansby", "@minsby",
    "@maxsby",  "@quantilesby", "@stdevsby", "@sumsby",   "@sumsqby", "@varsby",   "@skewsby",
    "@kurtsby", "@nasby"};

Shape ExpectedShape(const std::string& name) {
  for (const Shape& shape : kShaped)
    if (name == shape.name) return shape;
  uint32_t attributes = 0;
  if (kRandom.count(name)) attributes = 128;
  if (kSeries.count(name)) attributes = 256;
  if (kDate.count(name)) attributes = 64;
  if (kAggregate.count(name)) attributes = 512;
  return {nullptr, attributes, 0, 0, 0, 0, 999, 0};
}

// The globals belong to the process catalogue that other suites in this binary may have built;
// a test that defines a table of its own puts them back when it ends.
class WellKnownGuard {
 public:
  WellKnownGuard() {
    for (const CatalogueFamilySpan& family : CatalogueFamilies())
      for (const CatalogueRow& row : family.rows)
        if (row.wellKnown != nullptr) saved_.push_back({row.wellKnown, *row.wellKnown});
  }
  ~WellKnownGuard() {
    for (const auto& [global, value] : saved_) *global = value;
  }

 private:
  std::vector<std::pair<FunctionDef**, FunctionDef*>> saved_;
};

class CatalogueTest : public ::testing::Test {
 protected:
  void SetUp() override { DefineCatalogue(table); }
  FunctionDef* Find(const char* name) const { return table.Lookup(name); }
  WellKnownGuard guard;
  FunctionTable table;
};

TEST_F(CatalogueTest, Holds374DefinitionsAnd14Aliases) {
  int definitions = 0, aliases = 0;
  table.ForEach([&](const FunctionDef& def) { ++(def.alias ? aliases : definitions); });
  EXPECT_EQ(definitions, 374);
  EXPECT_EQ(aliases, 14);
  EXPECT_EQ(table.Count(), 388u);
  EXPECT_EQ(table.BucketCount(), 512u);
}

// Every field of every definition against the tables it was written from; the families must
// also list the definitions in the order of building, without repeats.
TEST_F(CatalogueTest, EveryDefinitionHasItsTabledFields) {
  int rows = 0;
  for (const CatalogueFamilySpan& family : CatalogueFamilies()) {
    for (const CatalogueRow& row : family.rows) {
      ++rows;
      const FunctionDef* def = Find(row.name);
      ASSERT_NE(def, nullptr) << row.name;
      const Shape want = ExpectedShape(row.name);
      SCOPED_TRACE(std::string(family.title) + ": " + row.name);
      EXPECT_STREQ(def->name, row.name);
      EXPECT_EQ(def->hash, NameHash(row.name, 0));
      EXPECT_EQ(def->alias, nullptr);
      EXPECT_EQ(def->attributes, want.attributes);
      EXPECT_EQ(def->childMode, want.childMode);
      EXPECT_EQ(def->opClass, want.opClass);
      EXPECT_EQ(def->token, want.token);
      EXPECT_EQ(def->closeToken, want.closeToken);
      EXPECT_EQ(def->priority, want.priority);
      EXPECT_EQ(def->rightAssoc, want.rightAssoc);
      EXPECT_EQ(def->rules, nullptr);
      EXPECT_EQ(def->StackOp, nullptr);
    }
  }
  EXPECT_EQ(rows, 374);
}

TEST_F(CatalogueTest, FamiliesStartAndEndWhereTheCatalogueSays) {
  const struct {
    CatalogueFamily family;
    size_t size;
    const char* first;
    const char* last;
  } kFamilies[] = {
      {CatalogueFamily::Operators, 18, "@list", "@pow"},
      {CatalogueFamily::Distributions, 72, "@cbeta", "@rweib"},
      {CatalogueFamily::MatrixFunctions, 27, "@mvgamma", "@qr"},
      {CatalogueFamily::Transforms, 32, "@sweep", "@columns"},
      {CatalogueFamily::RowStatistics, 23, "@rmas", "@rmin"},
      {CatalogueFamily::CumulativeDummies, 4, "@cumdn", "@dcumdp"},
  };
  ASSERT_EQ(CatalogueFamilies().size(), 25u);
  for (const auto& want : kFamilies) {
    const CatalogueFamilySpan& got = CatalogueFamilies()[static_cast<size_t>(want.family)];
    EXPECT_EQ(got.family, want.family);
    ASSERT_EQ(got.rows.size(), want.size) << got.title;
    EXPECT_STREQ(got.rows.front().name, want.first);
    EXPECT_STREQ(got.rows.back().name, want.last);
  }
}

TEST_F(CatalogueTest, AliasesPointOneWayAtTheirTargets) {
  const struct {
    const char* alias;
    const char* target;
  } kAliases[] = {{"@not", "not"},        {"@sqr", "@sqrt"},     {"sqr", "@sqrt"},
                  {"@log", "log"},        {"@exp", "exp"},       {"sin", "@sin"},
                  {"cos", "@cos"},        {"abs", "@abs"},       {"@ceil", "@ceiling"},
                  {"@iif", "@recode"},    {"@psi", "@digamma"},  {"@cloglog", "@qextreme"},
                  {"@d", "d"},            {"@dlog", "dlog"}};
  for (const auto& pair : kAliases) {
    const FunctionDef* alias = Find(pair.alias);
    ASSERT_NE(alias, nullptr) << pair.alias;
    EXPECT_EQ(alias->alias, Find(pair.target)) << pair.alias;
    EXPECT_EQ(Find(pair.target)->alias, nullptr) << pair.target;
    EXPECT_EQ(alias->opClass, 0);
    EXPECT_EQ(alias->priority, 999);
  }
  for (const char* absent : {"SQRT", "tan", "@rlogistic", "sqrt", "@sinh", "@@sqrt"})
    EXPECT_EQ(Find(absent), nullptr) << absent;
  EXPECT_EQ(Find("@SQRT"), Find("@sqrt"));
  EXPECT_EQ(Find("@Sqrt"), Find("@sqrt"));
  EXPECT_STREQ(Find("@unaryminus")->name, "@UnaryMinus");
}

TEST_F(CatalogueTest, OperatorArraysAreIndexedByToken) {
  EXPECT_EQ(table.Binary(TokMinus), Find("@minus"));
  EXPECT_EQ(table.Prefix(TokMinus), Find("@UnaryMinus"));
  EXPECT_EQ(table.Prefix(TokPlus), Find("@UnaryPlus"));
  EXPECT_EQ(table.Binary(TokCaret), Find("@pow"));
  EXPECT_EQ(table.Binary(TokAnd), Find("@and"));
  EXPECT_EQ(table.Bracket(TokOpenBrace), Find("@list"));
  int binary = 0, prefix = 0, postfix = 0, bracket = 0;
  for (int32_t token = -1; token <= kOpCodeCount; ++token) {
    binary += table.Binary(token) != nullptr;
    prefix += table.Prefix(token) != nullptr;
    postfix += table.Postfix(token) != nullptr;
    bracket += table.Bracket(token) != nullptr;
  }
  EXPECT_EQ(binary, 14);
  EXPECT_EQ(prefix, 2);
  EXPECT_EQ(postfix, 0);
  EXPECT_EQ(bracket, 1);
  for (OpCode token : {TokBangEqual, TokEqualEqual, TokPercent, TokAmpAmp, TokPlusEqual})
    EXPECT_EQ(table.Binary(token), nullptr) << TokenSpelling(token);
}

TEST_F(CatalogueTest, SignaturesMatchOnCountAndArgumentTypes) {
  const struct {
    const char* function;
    const char* query;
    uint32_t opcode;
  } kCases[] = {
      {"@assign", "2dd", 27}, {"@plus", "2dd", 28},   {"@minus", "2dd", 29},
      {"@times", "2dd", 30},  {"@divide", "2dd", 31}, {"@plus", "2dd_i", 28},
      {"@pow", "2dd", 0},     {"@plus", "2d", 0},     {"@plus", "1d", 0},
      {"@plus", "2di", 0},    {"@plus", "", 0},
  };
  for (const auto& c : kCases)
    EXPECT_EQ(SignatureLookup(Find(c.function), c.query), c.opcode) << c.function << " " << c.query;
}

// The globals are how rules recognise functions: each must be the definition of its own row.
TEST_F(CatalogueTest, SetsExactly188DistinctWellKnownGlobals) {
  std::set<FunctionDef**> globals;
  for (const CatalogueFamilySpan& family : CatalogueFamilies()) {
    for (const CatalogueRow& row : family.rows) {
      if (row.wellKnown == nullptr) continue;
      globals.insert(row.wellKnown);
      EXPECT_EQ(*row.wellKnown, Find(row.name)) << row.name;
    }
  }
  EXPECT_EQ(globals.size(), 188u);
  EXPECT_EQ(fnPlus, Find("@plus"));
  EXPECT_EQ(fnLog, Find("log"));
  EXPECT_EQ(fnD, Find("d"));
  EXPECT_EQ(fnRlogisitc, Find("@rlogisitc"));
  EXPECT_EQ(fnReplaceExprEx, Find("@replace_expr_ex"));
  EXPECT_EQ(fnImplicit, Find("@implicit"));

  ForgetWellKnown();
  for (FunctionDef** global : globals) EXPECT_EQ(*global, nullptr);
}

TEST(CatalogueFamilyTest, FamiliesCanBeDefinedOneAtATime) {
  WellKnownGuard guard;
  ForgetWellKnown();
  FunctionTable table;
  DefineFamily(table, CatalogueFamily::Operators);
  EXPECT_EQ(table.Count(), 18u);
  EXPECT_EQ(fnPlus, table.Lookup("@plus"));
  EXPECT_EQ(fnSqrt, nullptr);
  DefineFamily(table, CatalogueFamily::Elementary);
  EXPECT_EQ(fnSqrt, table.Lookup("@sqrt"));
  EXPECT_EQ(table.Count(), 45u);
}

// ---- The table itself

struct Named {
  char name[kNameLimit];
  uint32_t hash;
};

Named MakeNamed(const char* name, uint32_t hash) {
  Named record{};
  CopyName(record.name, name);
  record.hash = hash;
  return record;
}

std::vector<std::string> Names(const NameTable<Named>& table) {
  std::vector<std::string> names;
  table.ForEach([&](const Named& record) { names.emplace_back(record.name); });
  return names;
}

// Entries that stay keep their order; those that move go one by one to the head of the new
// bucket, which reverses them.
TEST(NameTableTest, DoublingRelinksChainsInPlace) {
  NameTable<Named> table;
  std::vector<Named*> addresses;
  for (uint32_t i = 0; i < 8; ++i)
    addresses.push_back(table.Add(MakeNamed(std::to_string(i).c_str(), i * 8)).record);
  EXPECT_EQ(Names(table), (std::vector<std::string>{"7", "6", "5", "4", "3", "2", "1", "0"}));
  EXPECT_EQ(table.BucketCount(), 8u);
  table.Add(MakeNamed("x", 1));
  EXPECT_EQ(table.BucketCount(), 16u);
  EXPECT_EQ(Names(table),
            (std::vector<std::string>{"6", "4", "2", "0", "x", "1", "3", "5", "7"}));
  for (uint32_t i = 0; i < 8; ++i)
    EXPECT_EQ(table.Find(std::to_string(i).c_str(), i * 8), addresses[i]);
}

TEST(NameTableTest, StopsDoublingAt65536Buckets) {
  NameTable<Named> table;
  for (uint32_t i = 0; i < 65538; ++i) table.Add(MakeNamed(std::to_string(i).c_str(), i));
  EXPECT_EQ(table.BucketCount(), 65536u);
  EXPECT_EQ(table.Count(), 65538u);
  EXPECT_NE(table.Find("65537", 65537), nullptr);
  EXPECT_NE(table.Find("1", 1), nullptr);
}

TEST(FunctionTableTest, NineDefinitionsDoubleAndStayFindable) {
  FunctionTable table;
  const char* names[] = {"a", "b", "c", "d", "e", "f", "g", "h", "i"};
  std::vector<FunctionDef*> defs;
  for (const char* name : names) defs.push_back(table.Define(name, 0, 0, 0, 0, 0, 999, 0));
  EXPECT_EQ(table.BucketCount(), 16u);
  for (size_t i = 0; i < defs.size(); ++i) EXPECT_EQ(table.Lookup(names[i]), defs[i]);
}

TEST(FunctionTableTest, ASecondDefinitionReturnsTheFirstUnchanged) {
  FunctionTable table;
  FunctionDef* first = table.Define("@Plus", 55, 0, OpBinary, TokPlus, 0, 200, 0);
  FunctionDef* second = table.Define("@PLUS", 0, 0, OpBinary, TokStar, 0, 500, 1);
  EXPECT_EQ(second, first);
  EXPECT_STREQ(first->name, "@Plus");
  EXPECT_EQ(first->attributes, 55u);
  EXPECT_EQ(first->priority, 200);
  EXPECT_EQ(table.Binary(TokStar), nullptr);
  EXPECT_EQ(table.Alias("@plus", nullptr)->alias, nullptr);
  EXPECT_EQ(table.Count(), 1u);
}

TEST(FunctionTableTest, NamesAreCutAt301Bytes) {
  FunctionTable table;
  const std::string longName(301, 'q');
  FunctionDef* def = table.Define((longName + "abc").c_str(), 0, 0, 0, 0, 0, 999, 0);
  EXPECT_EQ(table.Lookup((longName + "xyz").c_str()), def);
  EXPECT_EQ(std::string(def->name, kNameLimit), longName);
  EXPECT_EQ(table.Lookup(std::string(300, 'q').c_str()), nullptr);
}

class CountedRule final : public Rule {
 public:
  CountedRule(uint32_t mode, int* alive) : Rule(mode), alive_(alive) { ++*alive_; }
  ~CountedRule() override { --*alive_; }
  uint32_t Apply(ENode**) override { return 0; }

 private:
  int* alive_;
};

TEST(FunctionTableTest, RulesKeepTheOrderOfAttachingAndDieWithTheTable) {
  int alive = 0;
  {
    FunctionTable table;
    FunctionDef* def = table.Define("f", 0, 0, 0, 0, 0, 999, 0);
    auto stale = std::make_unique<CountedRule>(1, &alive);
    stale->next = stale.get();  // a link left over from elsewhere is cleared
    AttachRule(def, std::move(stale));
    AttachRule(def, std::make_unique<CountedRule>(2, &alive));
    AttachRule(def, std::make_unique<CountedRule>(4, &alive));
    std::vector<uint32_t> modes;
    for (Rule* rule = def->rules; rule != nullptr; rule = rule->next) modes.push_back(rule->mode);
    EXPECT_EQ(modes, (std::vector<uint32_t>{1, 2, 4}));
    EXPECT_EQ(alive, 3);
  }
  EXPECT_EQ(alive, 0);
}

TEST(FunctionTableTest, SignatureOpcodesFrom255AreNotReported) {
  FunctionTable table;
  FunctionDef* def = table.Define("f", 0, 0, 0, 0, 0, 999, 0);
  AddSignature(def, "1d_d", 300);
  AddSignature(def, "1d_d", 7);
  AddSignature(def, "0_d", 9);
  EXPECT_EQ(SignatureLookup(def, "1d"), 0u);  // the first match decides
  EXPECT_EQ(SignatureLookup(def, "0"), 9u);
}

}  // namespace
}  // namespace quillon
