// A C++ host of the installed shared layer: a generator by short name, a date and a message.
#include <quillon/calendar.h>
#include <quillon/errors.h>
#include <quillon/random.h>

int main() {
  auto generator = quillon::CreateRndGen("MT");
  const bool drew = generator != nullptr && generator->Next() >= 0.0;
  const bool easter = quillon::WesternEaster(2000) > 0;
  const bool message = !quillon::FormatMessage(104, "data.txt").empty();
  return drew && easter && message ? 0 : 1;
}
