// ThreadContext: the parser's state for one thread (catalogue, symbol table, character source,
// current token), and the parser itself, whose grammar functions are its members.
#pragma once

#include <cstdint>
#include <mutex>
#include <unordered_set>

#include "core/expr_handle.h"
#include "core/function_table.h"
#include "language/lexer.h"
#include "language/symbol_table.h"
#include "language/token.h"

namespace quillon {

// Deepest nesting of brackets, calls, indices, prefix operators and right operands that the
// parser accepts; it keeps every walk that recurses with nesting well inside a 1 MiB stack.
inline constexpr int32_t kMaxNesting = 256;

// The levels of nesting that a formula parsed by a host's resolver adds to the name it resolves:
// a parse and a resolver between two levels take far more stack than a bracket does, so that
// resolvers nest at most some 30 deep.
inline constexpr int32_t kResolverNesting = 8;

class ThreadContext {
 public:
  explicit ThreadContext(FunctionTable* functions) : functions(functions) {}
  ThreadContext(const ThreadContext&) = delete;
  ThreadContext& operator=(const ThreadContext&) = delete;

  // Parses text into an unsimplified tree; a syntax error gives a tree that is one ErrorENode
  // "syntax error: ...". The flags are handed on and not used. A parse started while this one
  // runs (by a host's resolver) works on a context of its own and leaves this parse intact.
  ExprHandle ParseText(const SharedText& text, SymbolTable* table, uint32_t flags);

  FunctionTable* functions;
  SymbolTable* symbols = nullptr;
  Lexer* lexer = nullptr;
  Token token;
  StringLexer stringLexer;

 private:
  // Where an expression stands: at the top or in brackets, as a right operand, as the operand
  // of a prefix operator, inside a postfix bracket.
  enum Context { TopLevel = 0, RightOperand = 1, PrefixOperand = 2, PostfixBracket = 3 };

  // Parses on a context of its own while this one is busy parsing.
  ExprHandle ParseInside(const SharedText& text, SymbolTable* table, uint32_t flags);
  ExprHandle ParseSource(SymbolTable* table, Lexer* source, uint32_t flags);
  ExprHandle ParseExpression(Context context, int32_t minimum);
  ExprHandle ParseOperand(Context context, int32_t minimum);
  ExprHandle ParsePrimary();
  ExprHandle ParseWildcard();
  ExprHandle ParseBracket(FunctionDef* def);
  ExprHandle ParseName();
  ExprHandle ParseFunctionCall(FunctionDef* def);
  uint32_t ParseDerivativeNotation(int32_t* commas);
  ExprHandle ParseSymbolReference(SymbolDef* symbol, const char* name);
  int32_t ParseSignedIndex(const char* name);
  void NextToken() { lexer->NextToken(token); }
  // Appends the tree of an argument to the node of out.
  static void AppendTree(ExprHandle& out, const ExprHandle& argument);
  // The literal of the current token, which is read past.
  ExprHandle TakeLiteral(ExprHandle literal);

  int32_t nesting_ = 0;
  // The level just outside the top-level expression: -1, or for a parse started by a resolver
  // the level of the expression that holds the name being resolved.
  int32_t baseNesting_ = -1;
  ThreadContext* nested_ = nullptr;  // the context of a parse started by a resolver meanwhile
  bool parsing_ = false;
  bool retired_ = false;  // let go of while parsing: the parse frees the context when it ends

  friend class ActiveParse;
  friend void RetireContext(ThreadContext* context);
};

// Lets go of a context: it is freed now, or when the parse that is using it returns, so that a
// resolver calling quillon_init never frees a context under the parse that called it.
void RetireContext(ThreadContext* context);

// The calling thread's context word: null until quillon_init runs on the thread.
ThreadContext*& ContextWord();

// The threads that have passed through quillon_init, by the address of their context word. A
// thread that ends frees its context and leaves the set, so that the set never holds the address
// of storage that is gone. Callers hold InitLock() around all three.
void RegisterThisThread();
template <class Visit>
void ForEachContextWord(Visit visit);
std::mutex& InitLock();

std::unordered_set<ThreadContext**>& ThreadSet();

// Called by the platform's thread-exit hook with the word of a thread that registered: frees its
// context and takes the word out of the set. Takes InitLock() itself.
void ReleaseThreadContext(ThreadContext** word);

template <class Visit>
void ForEachContextWord(Visit visit) {
  for (ThreadContext** word : ThreadSet()) visit(*word);
}

}  // namespace quillon
