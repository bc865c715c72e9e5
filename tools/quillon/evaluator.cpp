// The evaluation of one text for the quillon program: parse, refuse what would never end,
// evaluate, print; an error prints as <"message"> and only the message is kept.
#include "evaluator.h"

#include "endless_normalize.h"
#include "symbol_types.h"

namespace {

int32_t QUILLON_CALL AnySeries(const char*) { return kSeriesType; }

std::string MessageOf(const std::string& text) {
  if (text.size() >= 4 && text.compare(0, 2, "<\"") == 0 && text.compare(text.size() - 2, 2, "\">") == 0)
    return text.substr(2, text.size() - 4);
  return text;
}

}  // namespace

std::string TextOf(mathexpr* e, bool spaced) {
  int32_t length = 0;
  mathexpr_as_text(e, nullptr, 0, &length, spaced);
  std::string text(static_cast<size_t>(length) + 1, '\0');
  mathexpr_as_text(e, text.data(), length + 1, nullptr, spaced);
  text.resize(static_cast<size_t>(length));
  return text;
}

Evaluator::Evaluator(const Options& options)
    : raw_(options.raw), spaced_(options.spaced), mode_(options.mode), table_(mathsymtable_create(AnySeries, 1)) {
  for (const auto& [name, type] : options.declared) mathsymtable_add(table_, name.c_str(), type);
}

Evaluator::~Evaluator() { mathsymtable_destroy(table_); }

void Evaluator::DeclareSeries(const std::string& names) {
  for (size_t start = 0; start <= names.size();) {
    const size_t comma = std::min(names.find(',', start), names.size());
    if (comma > start) mathsymtable_add(table_, names.substr(start, comma - start).c_str(), kSeriesType);
    start = comma + 1;
  }
}

Outcome Evaluator::Run(const std::string& text) const {
  mathexpr* e = mathexpr_create(table_, text.c_str());
  if (!raw_) {
    const std::string endless = mathexpr_is_error(e) ? "" : EndlessNormalizeForm(e, text);
    if (!endless.empty()) {
      mathexpr_destroy(e);
      return {false, EndlessNormalizeMessage(endless)};
    }
    mathexpr_evaluate(e, mode_);
  }
  const bool failed = mathexpr_is_error(e) != 0;
  const std::string out = TextOf(e, spaced_);
  mathexpr_destroy(e);
  return {!failed, failed ? MessageOf(out) : out};
}
