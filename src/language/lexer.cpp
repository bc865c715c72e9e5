// The rules of the lexer, from characters to tokens, and StringLexer; see lexer.h. The odd rules
// (comment ends, the hexadecimal skip, ':' in names) are what texts written for this language
// rely on, so they stay as they are.
#include "language/lexer.h"

#include <cstdint>
#include <limits>

#include "core/enode.h"
#include "shared/conversions.h"
#include "shared/names.h"
#include "shared/text_builder.h"

namespace quillon {
namespace {

// Character classes of the default locale on signed bytes: no byte below 0 is in any of them.
bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsHexDigit(char c) {
  return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
bool IsNameChar(char c) {
  return IsLetter(c) || IsDigit(c) || c == '_' || c == '$' || c == ':' || c == '\\' || c == '.';
}
bool IsExponentLetter(char c) { return c == 'e' || c == 'E' || c == 'd' || c == 'D'; }

// A collected name is the word when both have the same length and agree case-blind.
bool IsWord(const char* name, int32_t length, const char* word) {
  int32_t i = 0;
  for (; i < length && word[i] != 0; ++i)
    if (LowerByte(name[i]) != word[i]) return false;
  return i == length && word[i] == 0;
}

// Operators of one character, or two when `second` follows. '<' and '>' are not here: they
// look past blanks.
struct OperatorForm {
  char first;
  char second;  // 0: no two-character form
  OpCode pair;
  OpCode single;
};

constexpr OperatorForm kOperatorForms[] = {
    {.first = '!', .second = '=', .pair = TokBangEqual, .single = TokBang},
    {.first = '%', .second = 0, .pair = TokNone, .single = TokPercent},
    {.first = '&', .second = '&', .pair = TokAmpAmp, .single = TokAmp},
    {.first = '\'', .second = 0, .pair = TokNone, .single = TokQuote},
    {.first = '(', .second = 0, .pair = TokNone, .single = TokOpenParen},
    {.first = ')', .second = 0, .pair = TokNone, .single = TokCloseParen},
    {.first = '*', .second = '=', .pair = TokStarEqual, .single = TokStar},
    {.first = '+', .second = '=', .pair = TokPlusEqual, .single = TokPlus},
    {.first = ',', .second = 0, .pair = TokNone, .single = TokComma},
    {.first = '-', .second = '=', .pair = TokMinusEqual, .single = TokMinus},
    {.first = '/', .second = '=', .pair = TokSlashEqual, .single = TokSlash},
    {.first = ':', .second = '=', .pair = TokAssign, .single = TokColon},
    {.first = ';', .second = 0, .pair = TokNone, .single = TokSemicolon},
    {.first = '=', .second = '=', .pair = TokEqualEqual, .single = TokEqual},
    {.first = '?', .second = 0, .pair = TokNone, .single = TokQuestion},
    {.first = '[', .second = 0, .pair = TokNone, .single = TokOpenBracket},
    {.first = ']', .second = 0, .pair = TokNone, .single = TokCloseBracket},
    {.first = '\\', .second = 0, .pair = TokNone, .single = TokBackslash},
    {.first = '^', .second = 0, .pair = TokNone, .single = TokCaret},
    {.first = '{', .second = 0, .pair = TokNone, .single = TokOpenBrace},
    {.first = '}', .second = 0, .pair = TokNone, .single = TokCloseBrace},
    {.first = '|', .second = '|', .pair = TokBarBar, .single = TokBar},
    {.first = '~', .second = 0, .pair = TokNone, .single = TokTilde},
};

// The character that `^x names in the character prefix form.
char ControlCharacter(char c) {
  switch (c) {
    case 'n':
      return '\n';
    case 'r':
      return '\r';
    case 't':
      return '\t';
    default:
      return c;
  }
}

}  // namespace

void Lexer::NextToken(Token& token) {
  if (primed == 0) {
    Advance();
    Advance();
    primed = 1;
  }
  SkipBlanksAndComments();
  if (IsDigit(current) || current == '.')
    ReadNumber(token);
  else
    ReadNonNumber(token);
}

// A block comment ends at its first '*', or at the character before its first '/', and the two
// characters there are dropped whatever they are: "/* 2*3 */ x" goes on with " */ x".
void Lexer::SkipBlanksAndComments() {
  while (current != 0) {
    while (IsSpace(current)) Advance();
    if (current != '/') return;
    if (next == '/') {
      Advance();
      Advance();
      while (current != '\n' && current != 0) Advance();
    } else if (next == '*') {
      Advance();
      Advance();
      while (current != '*' && next != '/' && current != 0) Advance();
      if (current != 0) {
        Advance();
        Advance();
      }
    } else {
      return;
    }
  }
}

// Everything but numbers; the hexadecimal skip comes back here without skipping blanks.
void Lexer::ReadNonNumber(Token& token) {
  if (IsLetter(current) || current == '_' || current == '@') return ReadName(token);
  switch (current) {
    case '`':
      return ReadCharacterPrefix(token);
    case '"':
      return ReadString(token);
    case '#':
      return ReadWildcard(token);
    default:
      return ReadOperator(token);
  }
}

template <class Accept>
void Lexer::Collect(int32_t& length, Accept accept) {
  while (length < kScratchLimit && accept(current)) {
    scratch_[length++] = current;
    Advance();
  }
}

void Lexer::CollectOne(int32_t& length) {
  if (length == kScratchLimit) return;
  scratch_[length++] = current;
  Advance();
}

// Digits, '.' and digits, an exponent letter, a sign, digits: each step stops when the scratch
// buffer is full. An integer-shaped number in range is an Integer, or the year of a date.
void Lexer::ReadNumber(Token& token) {
  if (current == '.' && !IsDigit(next)) {
    Advance();
    token.SetReal(NA());
    return;
  }
  int32_t length = 0;
  if (current == '0' && (next == 'x' || next == 'X')) {
    // A hexadecimal number gives no token at all: `0x1F+2` reads as `+`, then 2.
    Advance();
    Advance();
    Collect(length, IsHexDigit);
    return ReadNonNumber(token);
  }
  bool integerShaped = true;
  Collect(length, IsDigit);
  if (current == '.' && length < kScratchLimit) {
    integerShaped = false;
    CollectOne(length);
    Collect(length, IsDigit);
  }
  if (IsExponentLetter(current) && length < kScratchLimit) {
    integerShaped = false;
    CollectOne(length);
    if (current == '+' || current == '-') CollectOne(length);
    Collect(length, IsDigit);
  }
  double value = 0;
  TextToDouble(&value, scratch_, length, 'g', 0, 16);
  if (!integerShaped || value > std::numeric_limits<int32_t>::max()) {
    token.SetReal(value);
    return;
  }
  const auto whole = static_cast<int32_t>(value);
  if (current == 'S' || current == 'Q' || current == 'M' || (current == ':' && next != '='))
    ReadDate(token, whole);
  else
    token.SetInteger(whole);
}

// `current` is the separator. With no digits the period is 0; a subperiod only follows ':'.
void Lexer::ReadDate(Token& token, int32_t year) {
  DateValue date{.year = year, .period = 0, .subperiod = -1, .separator = current};
  Advance();
  int32_t length = 0;
  Collect(length, IsDigit);
  TextToInteger(&date.period, scratch_, length, 10, 0);
  if (date.separator == ':' && current == ':') {
    Advance();
    length = 0;
    Collect(length, IsDigit);
    TextToInteger(&date.subperiod, scratch_, length, 10, 0);
  }
  token.SetDate(date);
}

// A name takes ':' too, so `x:=1` is the name `x:`, then `=`; only `x := 1` assigns.
void Lexer::ReadName(Token& token) {
  int32_t length = 0;
  scratch_[length++] = current;
  Advance();
  Collect(length, IsNameChar);
  if (IsWord(scratch_, length, "true"))
    token.SetBoolean(true);
  else if (IsWord(scratch_, length, "false"))
    token.SetBoolean(false);
  else if (IsWord(scratch_, length, "@inf"))
    token.SetReal(std::numeric_limits<double>::infinity());
  else if (IsWord(scratch_, length, "na"))
    token.SetReal(NA());
  else if (IsWord(scratch_, length, "or"))
    token.SetOperator(TokOr);
  else if (IsWord(scratch_, length, "and"))
    token.SetOperator(TokAnd);
  else
    token.SetIdentifier(scratch_, length);
}

// `""` inside a string is one quotation mark; the end of the text ends an open string. Past the
// scratch buffer the characters go straight into the text, so strings have no limit.
void Lexer::ReadString(Token& token) {
  Advance();
  int32_t length = 0;
  SharedText spill;
  for (;;) {
    if (current == 0) break;
    if (current == '"') {
      Advance();
      if (current != '"') break;
    }
    if (length < kScratchLimit) {
      scratch_[length++] = current;
    } else {
      if (length == kScratchLimit) spill = SharedText(scratch_, kScratchLimit);
      AppendByteAt(spill, &length, current);
    }
    Advance();
  }
  token.SetString(length <= kScratchLimit ? SharedText(scratch_, length)
                                          : spill.Substring(0, length));
}

// `#x`: a letter or nothing; the number of the wildcard is the parser's next token.
void Lexer::ReadWildcard(Token& token) {
  Advance();
  char letter = 0;
  if (IsLetter(current)) {
    letter = current;
    Advance();
  }
  token.SetWildcard(letter);
}

// `` `c `` names the character c, `` `^n `` a control character. A plain c is not consumed, so
// it also starts the next token.
void Lexer::ReadCharacterPrefix(Token& token) {
  Advance();
  char value = current;
  if (current == '^') {
    Advance();
    value = ControlCharacter(current);
    Advance();
  }
  token.SetWildcard(value);
}

// '<' and '>' look past blanks, so `< =`, `<  >` and `> =` are single operators.
void Lexer::ReadOperator(Token& token) {
  if (current == 0) return token.SetEnd();
  if (current == '<' || current == '>') {
    const bool less = current == '<';
    Advance();
    while (current == ' ') Advance();
    if (current == '=') {
      Advance();
      return token.SetOperator(less ? TokLessEqual : TokGreaterEqual);
    }
    if (less && current == '>') {
      Advance();
      return token.SetOperator(TokLessGreater);
    }
    return token.SetOperator(less ? TokLess : TokGreater);
  }
  for (const OperatorForm& form : kOperatorForms) {
    if (form.first != current) continue;
    Advance();
    if (form.second == 0 || current != form.second) return token.SetOperator(form.single);
    Advance();
    return token.SetOperator(form.pair);
  }
  token.SetUnknown();
}

void StringLexer::Reset(SharedText newText) {
  text = std::move(newText);
  position = 0;
  primed = 0;
}

char StringLexer::GetChar() {
  if (static_cast<int32_t>(position) >= text.TextLength()) return 0;
  return text.At(static_cast<int32_t>(position++));
}

}  // namespace quillon
