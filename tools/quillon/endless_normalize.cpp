// The search for an endless @normalize; see endless_normalize.h. It reads the printed text of
// the whole expression once: asking for the text of every node would print each subtree again.
#include "endless_normalize.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <set>
#include <vector>

#include "evaluator.h"

namespace {

// The texts of the whole numbers that source writes with a point or an exponent ("2.0" gives
// "2"): the parser reads them as reals, which print like integers.
std::set<std::string> RealsPrintedAsIntegers(const std::string& source) {
  std::set<std::string> texts;
  for (size_t i = 0; i < source.size(); ++i) {
    const bool startsNumber = std::isdigit(static_cast<unsigned char>(source[i])) != 0 &&
                              (i == 0 || (std::isalnum(static_cast<unsigned char>(source[i - 1])) == 0 && source[i - 1] != '_'));
    if (!startsNumber) continue;
    char* end = nullptr;
    const double value = std::strtod(source.c_str() + i, &end);
    const std::string token(source.c_str() + i, static_cast<size_t>(end - (source.c_str() + i)));
    i += token.size() - 1;
    if (token.find_first_of(".eE") == std::string::npos || value != std::floor(value) || value >= 1e9) continue;
    texts.insert(std::to_string(static_cast<long>(value)));
  }
  return texts;
}

class LagForms {
 public:
  explicit LagForms(const std::string& source) : realsAsIntegers_(RealsPrintedAsIntegers(source)) {}

  // Whether name(arguments) can be written out in lags; any function but the lag forms can.
  bool WritesOut(const std::string& name, const std::vector<std::string>& arguments) const {
    if (name == "d" || name == "dlog")
      return std::all_of(arguments.begin() + std::min<size_t>(1, arguments.size()), arguments.end(),
                         [this](const std::string& a) { return IsCountLiteral(a, 0); });
    if (name == "@movsum" || name == "@movav") return arguments.size() == 2 && IsCountLiteral(arguments[1], 1);
    if (name == "@pch") return arguments.size() == 1;
    return true;
  }

 private:
  // An integer literal of at least `least`, small enough to be read as an integer.
  bool IsCountLiteral(const std::string& text, long least) const {
    if (text.empty() || text.size() > 9 || realsAsIntegers_.count(text) != 0) return false;
    if (!std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c) != 0; })) return false;
    return std::stol(text) >= least;
  }

  std::set<std::string> realsAsIntegers_;
};

bool IsNameStart(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '@'; }
bool IsNameChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '@' || c == '_' || c == '.'; }

// The index just past the quoted string that starts at `at`.
size_t SkipString(const std::string& text, size_t at) {
  const size_t close = text.find('"', at + 1);
  return close == std::string::npos ? text.size() : close + 1;
}

// The arguments of the call whose '(' is at `open`, split at its own commas, and the index of
// its ')' in *close.
std::vector<std::string> ArgumentsOf(const std::string& text, size_t open, size_t* close) {
  std::vector<std::string> arguments;
  size_t start = open + 1;
  int depth = 0;
  size_t i = open + 1;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '"') {
      i = SkipString(text, i) - 1;
    } else if (c == '(' || c == '{' || c == '[') {
      ++depth;
    } else if ((c == ')' || c == '}' || c == ']') && depth > 0) {
      --depth;
    } else if ((c == ',' || c == ')') && depth == 0) {
      if (i > start || c == ',' || !arguments.empty()) arguments.push_back(text.substr(start, i - start));
      start = i + 1;
      if (c == ')') break;
    }
  }
  *close = i;
  return arguments;
}

}  // namespace

// One pass over the printed text, which spells every function in one way (aliases resolved,
// no blanks); a stack of open parentheses says which of them belong to a @normalize.
std::string EndlessNormalizeForm(mathexpr* e, const std::string& source) {
  const LagForms forms(source);
  const std::string text = TextOf(e, false);
  std::vector<bool> normalizeParens;
  int insideNormalize = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '"') {
      i = SkipString(text, i) - 1;
    } else if (c == '(') {
      normalizeParens.push_back(false);
    } else if (c == ')' && !normalizeParens.empty()) {
      insideNormalize -= normalizeParens.back() ? 1 : 0;
      normalizeParens.pop_back();
    } else if (IsNameStart(c) && (i == 0 || !IsNameChar(text[i - 1]))) {
      size_t end = i;
      while (end < text.size() && IsNameChar(text[end])) ++end;
      std::string name = text.substr(i, end - i);
      std::transform(name.begin(), name.end(), name.begin(), [](unsigned char ch) { return std::tolower(ch); });
      // A derivative such as @movsum[1,0](x, k) is still a call of its function.
      if (end < text.size() && text[end] == '[') end = std::min(text.find(']', end), text.size() - 1) + 1;
      const size_t start = i;
      i = end - 1;
      if (end >= text.size() || text[end] != '(') continue;
      size_t close = 0;
      if (insideNormalize > 0 && !forms.WritesOut(name, ArgumentsOf(text, end, &close)))
        return text.substr(start, close + 1 - start);
      const bool opensNormalize = name == "@normalize";
      normalizeParens.push_back(opensNormalize);
      insideNormalize += opensNormalize ? 1 : 0;
      i = end;
    }
  }
  return "";
}

std::string EndlessNormalizeMessage(const std::string& form) {
  return "refused: @normalize would never end on " + form +
         ": give d and dlog integer literal orders, @movsum and @movav an integer literal window of at least 1, "
         "and @pch one argument";
}
