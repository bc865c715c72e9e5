// SharedText: a one-pointer handle on a reference-counted, copy-on-write body of elements.
// Element size 1 is text, whose length counts a terminating zero; sizes 4 and 16 are the
// working arrays of the rules. Every write to an element goes through MakeUnique first.
#pragma once

#include <cstdint>
#include <cstring>

#include "shared/allocator.h"

namespace quillon {

// The longest text a body can hold: its bytes and the terminator fill one block of the allocator.
inline constexpr int32_t kMaxTextLength = static_cast<int32_t>(kAllocationLimit) - 1;

struct SharedBody {
  uint32_t element_size;
  void* data;  // null when length is below 1
  int32_t length;
  int32_t ref_count;
};

class SharedText {
 public:
  // The empty text: one element, the terminator.
  SharedText() : SharedText("", 0) {}
  // A copy of a zero-terminated text; throws db_exception 1929 when it is longer than kMaxTextLength.
  explicit SharedText(const char* literal);
  // A text of n bytes copied from bytes, then the terminator.
  SharedText(const char* bytes, int32_t n);
  // A text with room for n characters; only position n (the terminator) is cleared. Like every
  // allocation here, it throws db_exception 1929 when the memory can't be had.
  static SharedText WithRoom(int32_t n);
  // An array of n uninitialised elements; throws db_exception 1929 when the data can't be had.
  static SharedText Array(int32_t n, uint32_t elementSize);

  SharedText(const SharedText& other) : body_(other.body_) { ++body_->ref_count; }
  SharedText(SharedText&& other) noexcept : body_(other.body_) { other.body_ = nullptr; }
  SharedText& operator=(const SharedText& other);
  SharedText& operator=(SharedText&& other) noexcept;
  ~SharedText() { Release(); }

  // --- bodies and elements
  int32_t Length() const { return body_->length; }
  uint32_t ElementSize() const { return body_->element_size; }
  int32_t RefCount() const { return body_->ref_count; }
  bool SharesBodyWith(const SharedText& other) const { return body_ == other.body_; }
  template <class T>
  const T* Elements() const { return static_cast<const T*>(body_->data); }
  template <class T>
  T Get(int32_t i) const { return Elements<T>()[i]; }
  // Pointer for writing: makes the body unique first.
  template <class T>
  T* MutableElements() {
    MakeUnique();
    return static_cast<T*>(body_->data);
  }
  template <class T>
  void Set(int32_t i, T value) { MutableElements<T>()[i] = value; }

  void MakeUnique();
  void Resize(int32_t n);
  // Replaces oldCount elements at `at` by newCount elements from source (which may be null).
  void Splice(int32_t at, int32_t oldCount, const void* source, int32_t newCount);
  // Stores the low element_size bytes of value (in memory order) into every element.
  void Fill(uint64_t value);

  // --- text
  const char* c_str() const { return body_->length > 0 ? static_cast<const char*>(body_->data) : ""; }
  int32_t TextLength() const { return body_->length - 1; }
  char At(int32_t i) const { return c_str()[i]; }
  uint32_t Hash(uint32_t seed) const;

  SharedText Substring(int32_t start, int32_t length) const;
  SharedText Wrap(const char* prefix, const char* suffix) const;
  friend SharedText operator+(const SharedText& a, const SharedText& b);
  friend SharedText operator+(const SharedText& a, const char* b);
  friend SharedText operator+(const char* a, const SharedText& b);

  // Three-way, bytes as unsigned over the shorter length, then the longer is greater.
  int Compare(const SharedText& other) const;
  bool Equals(const char* bytes, int32_t n) const;
  bool EqualsNoCase(const char* bytes, int32_t n) const;
  // First position at or after from where the needle stands; TextLength() if it does not.
  int32_t Find(const char* needle, int32_t needleLength, int32_t from) const;
  // Stores the text length in *length (if not null); copies min(capacity, length) bytes and
  // terminates only when that is below capacity.
  void CopyOut(char* buffer, int32_t capacity, int32_t* length) const;

 private:
  explicit SharedText(SharedBody* body) : body_(body) {}
  static SharedBody* NewBody(uint32_t elementSize, int32_t length);
  void Release();

  SharedBody* body_;
};

}  // namespace quillon
