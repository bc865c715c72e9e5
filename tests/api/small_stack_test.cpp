// The deepest text the parser accepts, and chains far longer, go through parsing, evaluation
// and printing on a thread whose stack is 1 MiB, the default of the target platform.
#include <gtest/gtest.h>

#include <pthread.h>

#include <functional>
#include <string>

#include "quillon.h"

namespace {

void RunOnSmallStack(const std::function<void()>& work) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, 1 << 20);
  pthread_t thread;
  auto trampoline = [](void* argument) -> void* {
    (*static_cast<const std::function<void()>*>(argument))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, trampoline, const_cast<std::function<void()>*>(&work)), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

std::string Repeat(const std::string& piece, int n) {
  std::string text;
  for (int i = 0; i < n; ++i) text += piece;
  return text;
}

// Parses, evaluates and prints text; returns whether it parsed.
bool RoundTrip(const std::string& text) {
  mathsymtable* table = mathsymtable_create(nullptr, 1);
  mathexpr* e = mathexpr_create(table, text.c_str());
  const bool parsed = !mathexpr_is_error(e);
  mathexpr_evaluate(e, 3);
  int32_t length = 0;
  mathexpr_as_text(e, nullptr, 0, &length, 1);
  mathexpr_destroy(e);
  mathsymtable_destroy(table);
  return parsed;
}

TEST(SmallStack, DeepestNestingAndLongChainsAreSafe) {
  const std::string texts[] = {
      Repeat("log(-(x + {", 51) + "y" + Repeat("}))", 51),
      Repeat("(x - ", 128) + "y" + Repeat(")", 128),
      Repeat("x^", 255) + "2",
      "x" + Repeat(" - x/y", 200000),
      "x" + Repeat(" * (y + 1)", 50000),
  };
  for (const std::string& text : texts) {
    bool parsed = false;
    RunOnSmallStack([&] { parsed = RoundTrip(text); });
    EXPECT_TRUE(parsed) << text.substr(0, 60);
  }
}

// A host resolver that looks a name up by parsing it, which asks the resolver again.
mathsymtable* selfResolving = nullptr;
int32_t QUILLON_CALL ParseOwnName(const char* name) {
  mathexpr_destroy(mathexpr_create(selfResolving, name));
  return 1;
}

TEST(SmallStack, ResolverThatParsesItsOwnNameStopsBeforeTheStackEnds) {
  bool parsed = false;
  RunOnSmallStack([&] {
    selfResolving = mathsymtable_create(ParseOwnName, 0);
    mathexpr* e = mathexpr_create(selfResolving, "q+1");
    parsed = !mathexpr_is_error(e);
    mathexpr_destroy(e);
    mathsymtable_destroy(selfResolving);
  });
  EXPECT_TRUE(parsed);
}

}  // namespace
