// Token values and their ownership; see token.h.
#include "language/token.h"

#include <cstring>
#include <utility>

#include "shared/names.h"

namespace quillon {

Token::Token(const Token& other) { CopyFrom(other); }

Token& Token::operator=(const Token& other) {
  if (this != &other) {
    Release();
    CopyFrom(other);
  }
  return *this;
}

Token::Token(Token&& other) noexcept : kind_(other.kind_), value_(other.value_) {
  other.kind_ = TokenNone;
  other.value_.integer = 0;
}

Token& Token::operator=(Token&& other) noexcept {
  if (this != &other) {
    Release();
    kind_ = std::exchange(other.kind_, TokenNone);
    value_ = other.value_;
    other.value_.integer = 0;
  }
  return *this;
}

void Token::SetBoolean(bool value) {
  Release();
  kind_ = TokenBoolean;
  value_.integer = value ? 1 : 0;
}

void Token::SetInteger(int32_t value) {
  Release();
  kind_ = TokenInteger;
  value_.integer = value;
}

void Token::SetReal(double value) {
  Release();
  kind_ = TokenReal;
  value_.real = value;
}

void Token::SetString(SharedText text) {
  auto* held = new SharedText(std::move(text));
  Release();
  kind_ = TokenString;
  value_.text = held;
}

void Token::SetDate(const DateValue& date) {
  auto* held = new DateValue(date);
  Release();
  kind_ = TokenDate;
  value_.date = held;
}

void Token::SetIdentifier(const char* name, int32_t n) {
  if (n > kNameLimit - 1) n = kNameLimit - 1;
  char* held = new char[kNameLimit];
  std::memcpy(held, name, static_cast<size_t>(n));
  held[n] = 0;
  Release();
  kind_ = TokenIdentifier;
  value_.name = held;
}

void Token::SetWildcard(char letter) {
  Release();
  kind_ = TokenWildcard;
  value_.letter = letter;
}

void Token::SetOperator(OpCode code) {
  Release();
  kind_ = TokenOperator;
  value_.integer = code;
}

void Token::SetUnknown() {
  Release();
  kind_ = TokenUnknown;
}

void Token::SetEnd() {
  Release();
  kind_ = TokenEnd;
}

void Token::Release() {
  switch (kind_) {
    case TokenString:
      delete value_.text;
      break;
    case TokenDate:
      delete value_.date;
      break;
    case TokenIdentifier:
      delete[] value_.name;
      break;
    default:
      break;
  }
  kind_ = TokenNone;
  value_.integer = 0;
}

void Token::CopyFrom(const Token& other) {
  switch (other.kind_) {
    case TokenString:
      value_.text = new SharedText(*other.value_.text);
      break;
    case TokenDate:
      value_.date = new DateValue(*other.value_.date);
      break;
    case TokenIdentifier:
      value_.name = new char[kNameLimit];
      std::memcpy(value_.name, other.value_.name, kNameLimit);
      break;
    default:
      value_ = other.value_;
      break;
  }
  kind_ = other.kind_;
}

}  // namespace quillon
