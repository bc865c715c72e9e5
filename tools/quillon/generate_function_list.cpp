// Build step of the quillon program: writes the catalogue's spellings as rows of C++ for
// --functions. The program itself sees only the public header, so the list is read from the
// catalogue table here, when the program is built, and cannot drift from it.
#include <cstdio>
#include <cstring>
#include <string>

#include "compile/numeric_kernels.h"
#include "core/function_catalogue.h"
#include "core/op_code.h"

namespace {

using namespace quillon;

// The number of arguments where it is fixed, else -1.
int32_t FixedArguments(const CatalogueRow& row) {
  if (row.opClass == OpBinary) return 2;
  if (row.opClass == OpPrefix || row.opClass == OpPostfix) return 1;
  for (const NumericKernel& kernel : NumericKernels()) {
    if (std::strcmp(kernel.function, row.name) != 0) continue;
    if (kernel.form == KernelForm::Unary) return 1;
    if (kernel.form == KernelForm::Binary) return 2;
  }
  return -1;
}

const CatalogueRow* RowNamed(const char* name) {
  for (const CatalogueFamilySpan& family : CatalogueFamilies())
    for (const CatalogueRow& row : family.rows)
      if (std::strcmp(row.name, name) == 0) return &row;
  return nullptr;
}

std::string Operator(const CatalogueRow& row) {
  if (row.opClass == OpPlain || row.opClass == OpBracket) return "";
  return TokenSpelling(row.token);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  std::FILE* out = std::fopen(argv[1], "w");
  if (out == nullptr) return 1;
  std::fputs("// Written when the program is built, from the catalogue table; do not edit.\n", out);
  for (const CatalogueFamilySpan& family : CatalogueFamilies())
    for (const CatalogueRow& row : family.rows)
      std::fprintf(out, "{\"%s\", \"%s\", %d, \"\"},\n", row.name, Operator(row).c_str(), FixedArguments(row));
  for (const CatalogueAlias& alias : CatalogueAliases()) {
    const CatalogueRow* target = RowNamed(alias.target);
    std::fprintf(out, "{\"%s\", \"\", %d, \"%s\"},\n", alias.name, target ? FixedArguments(*target) : -1, alias.target);
  }
  return std::fclose(out) == 0 ? 0 : 1;
}
