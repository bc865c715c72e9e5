// The catalogue of functions and operators as data: one row per definition, in families kept in
// the order of building, and the aliases; start-up defines them family by family.
#pragma once

#include <cstdint>
#include <span>

#include "core/function_def.h"
#include "core/function_table.h"

namespace quillon {

// One definition as FunctionTable::Define takes it, plus what is set up with it.
struct CatalogueRow {
  const char* name;
  uint32_t attributes = 0;
  uint32_t childMode = 0;
  int32_t opClass = OpPlain;
  int32_t token = 0;
  int32_t closeToken = 0;
  int32_t priority = kPlainPriority;
  int32_t rightAssoc = 0;
  FunctionSignature signature = {0, nullptr};  // added when text is not null
  FunctionDef** wellKnown = nullptr;           // the global that is set to the definition
};

// A second spelling; the target is named by its own spelling.
struct CatalogueAlias {
  const char* name;
  const char* target;
};

// ORDER FAMILY: kFamilies in function_catalogue.cpp lists the families in this order, which is
// the order of building.
enum class CatalogueFamily : int32_t {
  Operators,
  Elementary,
  Special,
  GenericRandom,
  Distributions,
  TailBivariate,
  SeriesOperators,
  MovingLong,
  MovingShort,
  DateDummies,
  SampleStatistics,
  GroupStatistics,
  Text,
  Dates,
  ValueMaps,
  MatrixFunctions,
  Transforms,
  RowStatistics,
  Finance,
  Calculus,
  Structural,
  ListAlgebra,
  ModeWrappers,
  Compilation,
  CumulativeDummies,
};

struct CatalogueFamilySpan {
  CatalogueFamily family;
  const char* title;
  std::span<const CatalogueRow> rows;
};

// All families in the order of building.
std::span<const CatalogueFamilySpan> CatalogueFamilies();
std::span<const CatalogueAlias> CatalogueAliases();

// Defines the rows of one family in order, adds their signatures and sets their well-known
// globals. Rules are attached between families; a family may be defined once per table.
void DefineFamily(FunctionTable& table, CatalogueFamily family);

// Defines the aliases; every target must be defined by then.
void DefineAliases(FunctionTable& table);

// Every family in order, then the aliases.
void DefineCatalogue(FunctionTable& table);

// Clears every well-known global; cleanup calls it when it frees the table.
void ForgetWellKnown();

}  // namespace quillon
