// The expression parser: precedence climbing driven by the catalogue's operator arrays, with
// priorities and associativity read from the definitions. It builds trees and never simplifies.
// parse_exception is thrown at the first problem and caught in ParseSource alone.
#include <cstring>

#include "core/error_node.h"
#include "core/function_node.h"
#include "core/symbol_node.h"
#include "core/void_node.h"
#include "core/wildcard_node.h"
#include "language/thread_context.h"
#include "shared/hash.h"

namespace quillon {
namespace {

// The parser's one exception; its message reaches the host behind "syntax error: ".
class parse_exception {
 public:
  explicit parse_exception(SharedText message) : message(std::move(message)) {}
  SharedText message;
};

// Messages of the parser, as hosts read them.
constexpr const char* kMissingOperator = "missing operator between parts of expression";
constexpr const char* kMismatchedParentheses = "mismatched parentheses";
constexpr const char* kMissingPunctuation = "missing punctuation";
constexpr const char* kUnexpectedCharacter = "unexpected character";
constexpr const char* kEndsUnexpectedly = "expression ends unexpectedly";
constexpr const char* kBadWildcard = "bad wildcard";
constexpr const char* kNonIntegerDerivative = "non-integer derivative";
constexpr const char* kDerivativeNotClosed = "']' not found at end of derivative";
constexpr const char* kDerivativesDoNotMatch = "function derivatives and arguments do not match";
constexpr const char* kArgumentsNotClosed = "')' not found after function arguments";
constexpr const char* kMatrixIndexNonPositive = "matrix index is non-positive";
constexpr const char* kIndexNotClosed = "')' not found after index";
constexpr const char* kNestedTooDeeply = "expression is nested too deeply";

[[noreturn]] void Fail(const char* message) { throw parse_exception(SharedText(message)); }

[[noreturn]] void FailAbout(const char* before, const char* name, const char* after) {
  throw parse_exception(before + SharedText(name, static_cast<int32_t>(strnlen(name, kNameLimit))) + after);
}

// Raw types that may stand in an expression.
bool TypeAllowed(uint32_t rawType) {
  switch (rawType) {
    case 1: case 15: case 35: case 38: case 40: case 41: case 42: case 43: case 44: case 199: return true;
    default: return false;
  }
}

bool IndicesLegal(uint32_t rawType, int32_t count, int32_t index1, int32_t index2) {
  switch (rawType) {
    case 35: return count == 0;
    case 40: case 41: return count == 2 && index1 > 0 && index2 > 0;
    case 42: case 43: return count == 1 && index1 > 0;
    case 44: return count <= 1;
    default: return true;
  }
}

// Counts one level of nesting for the life of a grammar call.
class NestingLevel {
 public:
  explicit NestingLevel(int32_t& depth) : depth_(depth) {
    if (++depth_ > kMaxNesting) {
      --depth_;
      Fail(kNestedTooDeeply);
    }
  }
  ~NestingLevel() { --depth_; }
  NestingLevel(const NestingLevel&) = delete;
  NestingLevel& operator=(const NestingLevel&) = delete;

 private:
  int32_t& depth_;
};

// An operator of priority p goes on when p is above the minimum, or equal to it and the
// operator groups to the right.
bool GoesOn(const FunctionDef* op, int32_t minimum) {
  return op->priority > minimum || (op->priority == minimum && op->rightAssoc == 1);
}

// Points a busy context at the context of the parse its resolver started, for that parse's life,
// so that a parse started further in goes to the innermost one.
class NestedParse {
 public:
  NestedParse(ThreadContext*& slot, ThreadContext& inner) : slot_(slot) { slot_ = &inner; }
  ~NestedParse() { slot_ = nullptr; }
  NestedParse(const NestedParse&) = delete;
  NestedParse& operator=(const NestedParse&) = delete;

 private:
  ThreadContext*& slot_;
};

}  // namespace

// Marks a context busy for the life of one parse, and frees it at the end if it was retired
// meanwhile.
class ActiveParse {
 public:
  explicit ActiveParse(ThreadContext& context) : context_(context) { context_.parsing_ = true; }
  ~ActiveParse() {
    context_.parsing_ = false;
    if (context_.retired_) delete &context_;
  }
  ActiveParse(const ActiveParse&) = delete;
  ActiveParse& operator=(const ActiveParse&) = delete;

 private:
  ThreadContext& context_;
};

ExprHandle ThreadContext::ParseText(const SharedText& text, SymbolTable* table, uint32_t flags) {
  ThreadContext* innermost = this;
  while (innermost->nested_ != nullptr) innermost = innermost->nested_;
  if (innermost->parsing_) return innermost->ParseInside(text, table, flags);
  ActiveParse active(*this);
  stringLexer.Reset(text);
  return ParseSource(table, &stringLexer, flags);
}

// A resolver parses while this parse waits for its answer. Its text counts as nested inside the
// name being resolved, so a resolver that keeps parsing its own name ends in an error.
ExprHandle ThreadContext::ParseInside(const SharedText& text, SymbolTable* table, uint32_t flags) {
  ThreadContext inner(functions);
  inner.baseNesting_ = nesting_ + kResolverNesting - 1;
  NestedParse nested(nested_, inner);
  return inner.ParseText(text, table, flags);
}

// source := expression End
ExprHandle ThreadContext::ParseSource(SymbolTable* table, Lexer* source, uint32_t) {
  symbols = table;
  lexer = source;
  nesting_ = baseNesting_;
  try {
    NextToken();
    ExprHandle tree = ParseExpression(TopLevel, 0);
    if (token.Kind() != TokenEnd) Fail(kMissingOperator);
    NextToken();
    return tree;
  } catch (const parse_exception& failure) {
    return ExprHandle(static_cast<ENode*>(new ErrorENode("syntax error: " + failure.message)));
  }
}

void ThreadContext::AppendTree(ExprHandle& out, const ExprHandle& argument) {
  out.Root()->AppendChild(argument.Root());
}

ExprHandle ThreadContext::TakeLiteral(ExprHandle literal) {
  NextToken();
  return literal;
}

// operand := prefix expression | primary
ExprHandle ThreadContext::ParseOperand(Context context, int32_t minimum) {
  FunctionDef* prefix = token.Kind() == TokenOperator ? functions->Prefix(token.Operator()) : nullptr;
  if (prefix == nullptr || (context != RightOperand && !GoesOn(prefix, minimum))) return ParsePrimary();
  NextToken();
  return ExprHandle(prefix, ParseExpression(PrefixOperand, prefix->priority));
}

// expression := operand {postfix} {binary expression}
ExprHandle ThreadContext::ParseExpression(Context context, int32_t minimum) {
  NestingLevel level(nesting_);
  ExprHandle out = ParseOperand(context, minimum);
  while (token.Kind() == TokenOperator) {
    FunctionDef* op = functions->Postfix(token.Operator());
    if (op == nullptr || !GoesOn(op, minimum)) break;
    NextToken();
    if (op->closeToken == 0) {
      out = ExprHandle(op, out);
      continue;
    }
    out = ExprHandle(op, out, ParseExpression(PostfixBracket, op->priority));
    if (!token.IsOperator(static_cast<OpCode>(op->closeToken)))
      throw parse_exception("unable to find '" + SharedText(TokenSpelling(op->closeToken)) + "' to end '" +
                            TokenSpelling(op->token) + "'");
    NextToken();
  }
  while (token.Kind() == TokenOperator) {
    FunctionDef* op = functions->Binary(token.Operator());
    if (op == nullptr || !GoesOn(op, minimum)) break;
    NextToken();
    out = ExprHandle(op, out, ParseExpression(RightOperand, op->priority));
  }
  return out;
}

// primary := literal | wildcard | "(" expression ")" | bracket | name
ExprHandle ThreadContext::ParsePrimary() {
  switch (token.Kind()) {
    case TokenBoolean: return TakeLiteral(ExprHandle(token.Boolean()));
    case TokenInteger: return TakeLiteral(ExprHandle(token.Integer()));
    case TokenReal: return TakeLiteral(ExprHandle(token.Real()));
    case TokenString: return TakeLiteral(ExprHandle(token.String()));
    case TokenDate: return TakeLiteral(ExprHandle(token.Date()));
    case TokenIdentifier: return ParseName();
    case TokenWildcard: return ParseWildcard();
    case TokenNone: return ExprHandle();
    case TokenEnd: Fail(kEndsUnexpectedly);
    case TokenOperator: {
      if (token.IsOperator(TokOpenParen)) {
        NextToken();
        ExprHandle inner = ParseExpression(TopLevel, 0);
        if (!token.IsOperator(TokCloseParen)) Fail(kMismatchedParentheses);
        return TakeLiteral(std::move(inner));
      }
      if (token.IsOperator(TokHash)) {
        NextToken();
        return TakeLiteral(ExprHandle(static_cast<ENode*>(new WildcardENode(token.Integer(), 0))));
      }
      FunctionDef* bracket = functions->Bracket(token.Operator());
      if (bracket == nullptr) Fail(kUnexpectedCharacter);
      return ParseBracket(bracket);
    }
    default: Fail(kUnexpectedCharacter);
  }
}

// wildcard := Wildcard Integer
ExprHandle ThreadContext::ParseWildcard() {
  const char kind = token.Wildcard();
  NextToken();
  if (token.Kind() != TokenInteger) Fail(kBadWildcard);
  return TakeLiteral(ExprHandle(static_cast<ENode*>(new WildcardENode(token.Integer(), kind))));
}

// bracket := open [expression {"," expression}] close
ExprHandle ThreadContext::ParseBracket(FunctionDef* def) {
  ExprHandle out(def);
  NextToken();
  if (token.IsOperator(static_cast<OpCode>(def->closeToken))) return TakeLiteral(std::move(out));
  for (;;) {
    AppendTree(out, ParseExpression(TopLevel, 0));
    if (token.Kind() != TokenOperator) Fail(kMissingPunctuation);
    if (token.IsOperator(TokComma)) {
      NextToken();
      continue;
    }
    if (token.IsOperator(static_cast<OpCode>(def->closeToken))) return TakeLiteral(std::move(out));
    Fail(kMissingPunctuation);
  }
}

// name := function-call | symbol-reference; catalogued functions come first, so that a symbol
// can never hide one.
ExprHandle ThreadContext::ParseName() {
  char name[kNameLimit];
  CopyName(name, token.Identifier());
  const uint32_t hash = NameHash(name, 0);
  if (FunctionDef* def = functions->Lookup(name, hash)) return ParseFunctionCall(def->alias != nullptr ? def->alias : def);
  SymbolDef* symbol = symbols != nullptr ? symbols->Resolve(name, hash) : nullptr;
  if (symbol == nullptr) FailAbout("unrecognized identifier '", name, "'");
  return ParseSymbolReference(symbol, name);
}

// function-call := name ["[" [Integer {"," Integer}] "]"] ["(" [expression {"," expression}] ")"]
ExprHandle ThreadContext::ParseFunctionCall(FunctionDef* def) {
  ExprHandle out(def);
  NextToken();
  int32_t derivativeCommas = 0;
  if (token.IsOperator(TokOpenBracket))
    static_cast<FunctionENode*>(out.Root())->derivative = ParseDerivativeNotation(&derivativeCommas);
  if (!token.IsOperator(TokOpenParen)) return out;
  NextToken();
  int32_t argumentCommas = 0;
  if (!token.IsOperator(TokCloseParen)) {
    for (;;) {
      AppendTree(out, ParseExpression(TopLevel, 0));
      if (token.Kind() != TokenOperator) Fail(kArgumentsNotClosed);
      if (!token.IsOperator(TokComma)) break;
      NextToken();
      ++argumentCommas;
    }
    if (!token.IsOperator(TokCloseParen)) Fail(kArgumentsNotClosed);
  }
  NextToken();
  if (derivativeCommas > 0 && derivativeCommas != argumentCommas) Fail(kDerivativesDoNotMatch);
  return out;
}

// Four bits per argument, argument 1 lowest; values are not masked and run into the next
// fields, and the shift wraps at 32.
uint32_t ThreadContext::ParseDerivativeNotation(int32_t* commas) {
  uint32_t derivative = 0;
  uint32_t shift = 0;
  NextToken();
  if (token.IsOperator(TokCloseBracket)) {
    NextToken();
    return 0;
  }
  if (token.Kind() != TokenInteger) Fail(kNonIntegerDerivative);
  for (;;) {
    derivative = (derivative & ~(15u << shift)) | (static_cast<uint32_t>(token.Integer()) << shift);
    NextToken();
    if (token.Kind() != TokenOperator) Fail(kDerivativeNotClosed);
    if (!token.IsOperator(TokComma)) break;
    NextToken();
    ++*commas;
    shift = (shift + 4) & 31;
    if (token.Kind() != TokenInteger) Fail(kNonIntegerDerivative);
  }
  if (!token.IsOperator(TokCloseBracket)) Fail(kDerivativeNotClosed);
  NextToken();
  return derivative;
}

// symbol-reference := name ["(" index ["," index] ")"], index := {"+" | "-"} Integer
ExprHandle ThreadContext::ParseSymbolReference(SymbolDef* symbol, const char* name) {
  if (!TypeAllowed(symbol->rawType)) FailAbout("object '", name, "' is of a type not allowed in expressions");
  NextToken();
  int32_t index1 = 0, index2 = -1, count = 0;
  if (token.IsOperator(TokOpenParen)) {
    NextToken();
    index1 = ParseSignedIndex(name);
    count = 1;
    if (token.IsOperator(TokComma)) {
      NextToken();
      index2 = ParseSignedIndex(name);
      if (index2 < 0) Fail(kMatrixIndexNonPositive);
      count = 2;
    }
    if (!token.IsOperator(TokCloseParen)) Fail(kIndexNotClosed);
    NextToken();
  }
  if (!IndicesLegal(symbol->rawType, count, index1, index2))
    FailAbout("'", name, "' has illegal indices for object type");
  return ExprHandle(symbol, index1, index2);
}

int32_t ThreadContext::ParseSignedIndex(const char* name) {
  bool negative = false;
  while (token.IsOperator(TokPlus) || token.IsOperator(TokMinus)) {
    negative = negative != token.IsOperator(TokMinus);
    NextToken();
  }
  if (token.Kind() != TokenInteger) FailAbout("unrecognized function '", name, "' or non-integer index");
  const uint32_t value = static_cast<uint32_t>(token.Integer());
  NextToken();
  return static_cast<int32_t>(negative ? 0u - value : value);
}

}  // namespace quillon
