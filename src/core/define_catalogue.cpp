// The loops that put the catalogue's rows into a FunctionTable; the rows are in
// function_catalogue.cpp. Rule attachment is not here: start-up interleaves it with families.
#include <cassert>

#include "core/function_catalogue.h"

namespace quillon {

void DefineFamily(FunctionTable& table, CatalogueFamily family) {
  const CatalogueFamilySpan& span = CatalogueFamilies()[static_cast<size_t>(family)];
  assert(span.family == family && "kFamilies out of step with CatalogueFamily");
  for (const CatalogueRow& row : span.rows) {
    FunctionDef* def = table.Define(row.name, row.attributes, row.childMode, row.opClass,
                                    row.token, row.closeToken, row.priority, row.rightAssoc);
    if (row.signature.text != nullptr) AddSignature(def, row.signature.text, row.signature.opcode);
    if (row.wellKnown != nullptr) *row.wellKnown = def;
  }
}

void DefineAliases(FunctionTable& table) {
  for (const CatalogueAlias& alias : CatalogueAliases()) {
    FunctionDef* target = table.Lookup(alias.target);
    assert(target != nullptr && "alias defined before its target");
    table.Alias(alias.name, target);
  }
}

void DefineCatalogue(FunctionTable& table) {
  for (const CatalogueFamilySpan& span : CatalogueFamilies()) DefineFamily(table, span.family);
  DefineAliases(table);
}

void ForgetWellKnown() {
  for (const CatalogueFamilySpan& span : CatalogueFamilies())
    for (const CatalogueRow& row : span.rows)
      if (row.wellKnown != nullptr) *row.wellKnown = nullptr;
}

}  // namespace quillon
