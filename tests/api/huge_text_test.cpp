// Texts longer than the engine's 32-bit lengths: refused with an error value, never cut to
// their first bytes nor read through a failed allocation.
#include <gtest/gtest.h>

#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "quillon.h"
#include "shared/shared_text.h"
#include "support/api_helpers.h"

namespace quillon::testing {
namespace {

// A zero-terminated text of `length` bytes of "1+2+..." that costs address space, not memory:
// one block of memory mapped over and over.
class RepeatedText {
 public:
  explicit RepeatedText(size_t length) : size_((length / kBlock + 1) * kBlock) {
    const int fd = memfd_create("repeated_text", 0);
    if (fd < 0 || ftruncate(fd, kBlock) != 0) return;
    void* block = mmap(nullptr, kBlock, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
    for (size_t i = 0; i < kBlock; i += 2) std::memcpy(static_cast<char*>(block) + i, i % 4 == 0 ? "1+" : "2+", 2);
    munmap(block, kBlock);
    void* whole = mmap(nullptr, size_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (whole == MAP_FAILED) return;
    text_ = static_cast<char*>(whole);
    for (size_t at = 0; at < size_; at += kBlock)
      mmap(text_ + at, kBlock, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_FIXED, fd, 0);
    close(fd);
    text_[length] = 0;  // copies one page of the block, privately
  }
  ~RepeatedText() {
    if (text_ != nullptr) munmap(text_, size_);
  }
  RepeatedText(const RepeatedText&) = delete;
  RepeatedText& operator=(const RepeatedText&) = delete;

  const char* c_str() const { return text_; }

 private:
  static constexpr size_t kBlock = size_t{1} << 20;
  size_t size_;
  char* text_ = nullptr;
};

TEST(HugeText, TextsLongerThanTheEngineHoldsAreRefusedNotCut) {
  if (sizeof(void*) < 8) GTEST_SKIP() << "needs a 64-bit address space";
  const size_t lengths[] = {
      static_cast<size_t>(kMaxTextLength) + 1,  // used to crash after "malloc failed"
      (size_t{1} << 32) + 7,                    // used to parse as its first 7 bytes, 1+2+1+2
  };
  for (size_t length : lengths) {
    RepeatedText text(length);
    ASSERT_NE(text.c_str(), nullptr);
    mathexpr* e = mathexpr_create(nullptr, text.c_str());
    EXPECT_EQ(Structure(e), "<\"expression text too long\">") << length << " bytes";
    mathexpr_destroy(e);
  }
}

}  // namespace
}  // namespace quillon::testing
