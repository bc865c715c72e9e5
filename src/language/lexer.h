// Lexer: the character source of the parser and the rules that turn its characters into tokens;
// StringLexer, the one source, reads a SharedText.
#pragma once

#include <cstdint>
#include <utility>

#include "language/token.h"
#include "shared/shared_text.h"

namespace quillon {

// Numbers, names and the head of a string are collected in a scratch buffer of this many
// characters; a longer number or name is cut there and the rest starts the next token.
inline constexpr int32_t kScratchLimit = 300;

// A source of characters with one character of look-ahead. The scratch buffer belongs to the
// lexer, so parses on different threads (each with its own context) cannot disturb each other.
class Lexer {
 public:
  Lexer() = default;
  virtual ~Lexer() = default;
  Lexer(const Lexer&) = delete;
  Lexer& operator=(const Lexer&) = delete;

  // The next character of the source, 0 at its end and ever after.
  virtual char GetChar() = 0;

  void Advance() {
    current = next;
    next = GetChar();
  }

  // Reads the next token into `token`. Never throws on bad input: an unknown character gives
  // TokenUnknown and stays current, the end of the text gives TokenEnd, each as often as asked.
  void NextToken(Token& token);

  uint32_t primed = 0;  // 0 until the first token is asked for
  char current = 0;     // the character under examination
  char next = 0;        // one character of look-ahead

 private:
  void SkipBlanksAndComments();
  void ReadNonNumber(Token& token);
  void ReadNumber(Token& token);
  void ReadDate(Token& token, int32_t year);
  void ReadName(Token& token);
  void ReadString(Token& token);
  void ReadWildcard(Token& token);
  void ReadCharacterPrefix(Token& token);
  void ReadOperator(Token& token);
  // Appends current to the scratch buffer and advances while `accept` holds and room is left.
  template <class Accept>
  void Collect(int32_t& length, Accept accept);
  void CollectOne(int32_t& length);  // current, when room is left

  char scratch_[kScratchLimit];
};

// Reads the characters of a text; holds one reference on it.
class StringLexer final : public Lexer {
 public:
  StringLexer() = default;  // an empty text
  explicit StringLexer(SharedText text) : text(std::move(text)) {}

  // Starts over on a new text: position 0 and not primed, so the next token is its first.
  void Reset(SharedText newText);

  char GetChar() override;

  SharedText text;
  uint32_t position = 0;  // index of the next character to hand out
};

}  // namespace quillon
