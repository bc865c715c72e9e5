// The life cycle as a process sees it from its start: this suite runs in a process of its own,
// since what it tests is the first call of all.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "core/well_known.h"
#include "language/thread_context.h"
#include "quillon.h"

namespace quillon {
namespace {

// Runs first: nothing has started the library yet.
TEST(LifeCycle, A_CleanupBeforeAnyInitDoesNothing) {
  quillon_cleanup();
  EXPECT_EQ(fnPlus, nullptr);
}

TEST(LifeCycle, B_ThreadsStartingAtOnceBuildOneCatalogue) {
  std::atomic<bool> go{false};
  std::atomic<int> recorded{0};
  std::vector<ThreadContext*> contexts(4, nullptr);
  std::vector<FunctionTable*> tables(4, nullptr);
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&, i] {
      while (!go) std::this_thread::yield();
      mathexpr* e = mathexpr_create(nullptr, "1 + log(2)");
      EXPECT_FALSE(mathexpr_is_error(e));
      mathexpr_destroy(e);
      contexts[i] = ContextWord();
      tables[i] = contexts[i]->functions;
      // Stay alive until all have recorded, so no context's address is reused by another.
      ++recorded;
      while (recorded < 4) std::this_thread::yield();
    });
  }
  go = true;
  for (auto& t : threads) t.join();
  for (int i = 1; i < 4; ++i) {
    EXPECT_EQ(tables[i], tables[0]) << "one catalogue for all threads";
    EXPECT_NE(contexts[i], contexts[0]) << "a context for each thread";
  }
}

TEST(LifeCycle, C_SecondInitReplacesTheContextButNotTheCatalogue) {
  quillon_init();
  FunctionTable* table = ContextWord()->functions;
  FunctionDef* plus = fnPlus;
  quillon_init();
  EXPECT_NE(ContextWord(), nullptr);
  EXPECT_EQ(ContextWord()->functions, table);
  EXPECT_EQ(fnPlus, plus);
}

TEST(LifeCycle, D_CleanupThenTheLibraryStartsAgain) {
  mathexpr* before = mathexpr_create(nullptr, "log(1)");
  mathexpr_destroy(before);
  quillon_cleanup();
  EXPECT_EQ(fnPlus, nullptr);
  EXPECT_EQ(ContextWord(), nullptr);
  mathexpr* after = mathexpr_create(nullptr, "exp(1)");
  EXPECT_FALSE(mathexpr_is_error(after));
  mathexpr_destroy(after);
  EXPECT_NE(fnPlus, nullptr);
  quillon_cleanup();
}

// The empty expression that answers a NULL handle may be a host's first handle; handing it on
// to a wrapper used to run a call of a catalogue that was never built.
TEST(LifeCycle, E_NeutralAnswerToANullHandleStartsTheLibrary) {
  ASSERT_EQ(fnJoin, nullptr);
  mathexpr* empty = mathexpr_clone(nullptr);
  mathexpr* joined = mathexpr_join(empty, empty);
  EXPECT_NE(fnJoin, nullptr);
  EXPECT_FALSE(mathexpr_is_error(joined));
  mathexpr_destroy(joined);
  mathexpr_destroy(empty);
  quillon_cleanup();
}

}  // namespace
}  // namespace quillon
