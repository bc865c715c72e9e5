// Token: one token of the expression language, as the lexer hands it to the parser. A token owns
// the heap value of a string, a date or a name; the operator codes are in core/op_code.h.
#pragma once

#include <cstdint>

#include "core/date_value.h"
#include "core/op_code.h"
#include "shared/shared_text.h"

namespace quillon {

enum TokenKind : uint32_t {
  TokenNone = 0,  // a fresh token
  TokenBoolean = 1,
  TokenInteger = 2,
  TokenReal = 3,
  TokenString = 4,      // owns a SharedText reference
  TokenDate = 5,        // owns a DateValue
  TokenIdentifier = 6,  // owns a name of kNameLimit bytes
  TokenWildcard = 7,
  TokenOperator = 8,
  TokenUnknown = 9,  // the unknown character is still the lexer's current one
  TokenEnd = 10,
};

// Copying shares the string's body and duplicates a date or a name; every setter first releases
// what the token held.
class Token {
 public:
  Token() = default;
  Token(const Token& other);
  Token& operator=(const Token& other);
  Token(Token&& other) noexcept;
  Token& operator=(Token&& other) noexcept;
  ~Token() { Release(); }

  void SetBoolean(bool value);
  void SetInteger(int32_t value);
  void SetReal(double value);
  void SetString(SharedText text);
  void SetDate(const DateValue& date);
  // The first n bytes of name, n at most kNameLimit - 1, zero-terminated; case is kept.
  void SetIdentifier(const char* name, int32_t n);
  void SetWildcard(char letter);  // a letter, or 0 for none
  void SetOperator(OpCode code);
  void SetUnknown();
  void SetEnd();

  TokenKind Kind() const { return kind_; }
  // Each accessor is for its kind only.
  bool Boolean() const { return value_.integer != 0; }
  int32_t Integer() const { return value_.integer; }
  double Real() const { return value_.real; }
  const SharedText& String() const { return *value_.text; }
  const DateValue& Date() const { return *value_.date; }
  const char* Identifier() const { return value_.name; }
  char Wildcard() const { return value_.letter; }
  OpCode Operator() const { return static_cast<OpCode>(value_.integer); }
  bool IsOperator(OpCode code) const { return kind_ == TokenOperator && value_.integer == code; }

 private:
  union Value {
    int32_t integer;  // Boolean 0 or 1, Integer, Operator
    double real;
    SharedText* text;
    DateValue* date;
    char* name;
    char letter;
  };

  void Release();
  void CopyFrom(const Token& other);

  TokenKind kind_ = TokenNone;
  Value value_ = {0};
};

}  // namespace quillon
