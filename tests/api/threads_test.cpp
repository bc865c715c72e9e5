// Threads that start the library at the same moment and then parse, evaluate and print trees of
// their own. Runs in a process of its own, so that the first calls of all race; the
// ThreadSanitizer build of this suite is what proves the shared counters safe.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "quillon.h"

namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 20;

struct Row {
  const char* text;
  const char* expected;
};

constexpr Row kRows[] = {
    {"x^2 + 3*x + x^2", "3*x+2*x^2"},
    {"log(exp(y)) + 1/2 + 1/3", "(5/6)+y"},
    {"{c, b, a}", "{c,b,a}"},
    {"(a+b)*(a+b)", "(a+b)^2"},
};

std::string TextOf(mathexpr* e) {
  char buffer[256];
  int32_t length = 0;
  mathexpr_as_text(e, buffer, sizeof buffer, &length, 0);
  return std::string(buffer, static_cast<size_t>(length));
}

// One thread's work: a table of its own, and every tree made, evaluated, printed and destroyed
// on the thread. Returns the first text that differs from its row, or an empty text.
std::string Work() {
  mathsymtable* table = mathsymtable_create(nullptr, 1);
  std::string wrong;
  for (int round = 0; round < kRounds && wrong.empty(); ++round) {
    for (const Row& row : kRows) {
      mathexpr* e = mathexpr_create(table, row.text);
      mathexpr* shared = mathexpr_clone(e);
      mathexpr_evaluate(shared, 3);
      const std::string got = TextOf(shared);
      if (got != row.expected && wrong.empty()) wrong = row.text + (" gave " + got);
      mathexpr* x = mathexpr_create(table, "x");
      mathexpr* d = mathexpr_deriv(e, x);
      TextOf(d);
      for (mathexpr* handle : {d, x, shared, e}) mathexpr_destroy(handle);
    }
  }
  mathsymtable_destroy(table);
  return wrong;
}

TEST(Threads, EightThreadsStartTheLibraryAndWorkOnTheirOwnTrees) {
  std::atomic<bool> go{false};
  std::vector<std::string> wrong(kThreads);
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&, i] {
      while (!go) std::this_thread::yield();
      wrong[i] = Work();
    });
  }
  go = true;
  for (std::thread& t : threads) t.join();
  for (int i = 0; i < kThreads; ++i) EXPECT_EQ(wrong[i], "") << "thread " << i;
}

}  // namespace
