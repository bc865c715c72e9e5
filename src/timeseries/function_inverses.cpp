// The table of inverses; see function_inverses.h.
#include "timeseries/function_inverses.h"

#include <array>
#include <cstddef>

#include "core/well_known.h"

namespace quillon {
namespace {

// Each pair stands in both directions. @cnorm heads the list and comes again at its place in the
// alphabet; the search takes the first hit, so the second entry is never reached.
constexpr size_t kPairCount = 18;
constexpr size_t kEntryCount = 2 * kPairCount;

struct InverseTable {
  // The well-known slots rather than the definitions they hold: a restart of the library defines
  // the catalogue anew, and the slots follow it.
  std::array<FunctionDef**, kEntryCount> from;
  std::array<FunctionDef**, kEntryCount> to;
};

InverseTable FillInverseTable() {
  FunctionDef** const pairs[kPairCount][2] = {
      {&fnLog, &fnExp},           {&fnCnorm, &fnQnorm},       {&fnCbeta, &fnQbeta},
      {&fnCchisq, &fnQchisq},     {&fnCexp, &fnQexp},         {&fnCextreme, &fnQextreme},
      {&fnCfdist, &fnQfdist},     {&fnCgamma, &fnQgamma},     {&fnCged, &fnQged},
      {&fnClaplace, &fnQlaplace}, {&fnClogistic, &fnQlogistic}, {&fnClognorm, &fnQlognorm},
      {&fnCnegbin, &fnQnegbin},   {&fnCnorm, &fnQnorm},       {&fnCpareto, &fnQpareto},
      {&fnCtdist, &fnQtdist},     {&fnCunif, &fnQunif},       {&fnCweib, &fnQweib},
  };
  InverseTable table{};
  for (size_t i = 0; i < kPairCount; ++i) {
    table.from[2 * i] = pairs[i][0];
    table.to[2 * i] = pairs[i][1];
    table.from[2 * i + 1] = pairs[i][1];
    table.to[2 * i + 1] = pairs[i][0];
  }
  return table;
}

}  // namespace

FunctionDef* InverseOf(const FunctionDef* def) {
  // Initialised once, and a second thread waits for the first.
  static const InverseTable table = FillInverseTable();
  for (size_t i = 0; i < kEntryCount; ++i)
    if (*table.from[i] == def) return *table.to[i];
  return nullptr;
}

}  // namespace quillon
