// Making generators by type number or short name, the process-wide default generator, and the
// clock seed.
#include <cstdint>
#include <ctime>
#include <new>

#include "quillon/random.h"
#include "shared/platform.h"

namespace quillon {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

// Both pointers start at one generator made by a static initialiser; it is released at exit.
struct DefaultGenerators {
  std::unique_ptr<RndGen> owned = CreateRndGen(kRndGenKnuth02);
  RndGen* current = owned.get();
};

DefaultGenerators& Defaults() {
  static DefaultGenerators defaults;
  return defaults;
}

// Makes the default exist before main, as a static initialiser would.
const bool kDefaultsMade = (Defaults(), true);

}  // namespace

std::unique_ptr<RndGen> CreateRndGen(int32_t type) {
  RndGen* made = nullptr;
  switch (type) {
    case kRndGenKnuth: made = new (std::nothrow) RndGenKnuth(); break;
    case kRndGenMTwister: made = new (std::nothrow) RndGenMTwister(); break;
    case kRndGenLecuyer: made = new (std::nothrow) RndGenLecuyer(); break;
    case kRndGenKnuth02: made = new (std::nothrow) RndGenKnuth02(); break;
    case kRndGenMTwister02: made = new (std::nothrow) RndGenMTwister02(); break;
    default: break;
  }
  return std::unique_ptr<RndGen>(made);
}

// "LE" never looks at a "4": "LE4" fails at the end test.
bool RndGenNameType(std::string_view name, int32_t& type) {
  size_t at = 0;
  while (at < name.size() && IsBlank(name[at])) ++at;
  if (name.size() - at < 2) return false;
  const char first = Upper(name[at]), second = Upper(name[at + 1]);
  at += 2;
  const bool older = at < name.size() && name[at] == '4';
  if (first == 'K' && second == 'N') {
    type = older ? kRndGenKnuth : kRndGenKnuth02;
  } else if (first == 'M' && second == 'T') {
    type = older ? kRndGenMTwister : kRndGenMTwister02;
  } else if (first == 'L' && second == 'E') {
    type = kRndGenLecuyer;
  } else {
    return false;
  }
  if (older && type != kRndGenLecuyer) ++at;
  while (at < name.size() && IsBlank(name[at])) ++at;
  return at == name.size();
}

std::unique_ptr<RndGen> CreateRndGen(std::string_view shortName) {
  int32_t type;
  if (!RndGenNameType(shortName, type)) return nullptr;
  return CreateRndGen(type);
}

RndGen* DefaultRndGen() { return Defaults().owned.get(); }

RndGen* CurrentRndGen() { return Defaults().current; }

bool ReplaceDefaultRndGen(int32_t type) {
  DefaultGenerators& defaults = Defaults();
  defaults.owned.reset();
  defaults.owned = CreateRndGen(type);
  defaults.current = defaults.owned.get();
  return defaults.owned != nullptr;
}

uint32_t ClockSeed() {
  const uint64_t ticks = PerformanceTicks();
  const uint32_t seconds = static_cast<uint32_t>(std::time(nullptr));
  return seconds ^ (static_cast<uint32_t>(ticks) * 4256657u);
}

}  // namespace quillon
