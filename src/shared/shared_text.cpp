// SharedText bodies, copy-on-write and the text operations; see shared_text.h.
#include "shared/shared_text.h"

#include <algorithm>

#include "quillon/db_exception.h"
#include "shared/allocator.h"
#include "shared/hash.h"
#include "shared/names.h"

namespace quillon {
namespace {

size_t DataSize(uint32_t elementSize, int32_t length) {
  return length > 0 ? static_cast<size_t>(elementSize) * static_cast<size_t>(length) : 0;
}

// A failed allocation leaves the shared layer as its exception, which passes through the
// exports to the host: no caller ever sees an empty block.
[[noreturn]] void FailAllocation(uint32_t elementSize) {
  throw db_exception(kCodeArrayAllocation, elementSize == 1 ? "text" : "working array", ';');
}

void* AllocateOrThrow(size_t size, uint32_t elementSize) {
  void* block = Allocate(size);
  if (block == nullptr) FailAllocation(elementSize);
  return block;
}

// The length of a zero-terminated text, refused rather than cut to 32 bits when too long.
int32_t HeldLength(const char* literal) {
  const size_t n = strnlen(literal, static_cast<size_t>(kMaxTextLength) + 1);
  if (n > static_cast<size_t>(kMaxTextLength)) FailAllocation(1);
  return static_cast<int32_t>(n);
}

}  // namespace

SharedBody* SharedText::NewBody(uint32_t elementSize, int32_t length) {
  void* data = length > 0 ? AllocateOrThrow(DataSize(elementSize, length), elementSize) : nullptr;
  void* block = Allocate(sizeof(SharedBody));
  if (block == nullptr) {
    if (data != nullptr) Free(data, DataSize(elementSize, length));
    FailAllocation(elementSize);
  }
  auto* body = static_cast<SharedBody*>(block);
  body->element_size = elementSize;
  body->length = length;
  body->ref_count = 1;
  body->data = data;
  return body;
}

SharedText::SharedText(const char* literal) : SharedText(literal, HeldLength(literal)) {}

SharedText::SharedText(const char* bytes, int32_t n) : body_(NewBody(1, n + 1)) {
  char* data = static_cast<char*>(body_->data);
  if (n > 0) std::memcpy(data, bytes, static_cast<size_t>(n));
  data[n] = 0;
}

SharedText SharedText::WithRoom(int32_t n) {
  SharedText text(NewBody(1, n + 1));
  static_cast<char*>(text.body_->data)[n] = 0;
  return text;
}

SharedText SharedText::Array(int32_t n, uint32_t elementSize) {
  SharedText array(NewBody(elementSize, 0));
  if (n > 0) array.body_->data = AllocateOrThrow(DataSize(elementSize, n), elementSize);
  array.body_->length = n;
  return array;
}

SharedText& SharedText::operator=(const SharedText& other) {
  ++other.body_->ref_count;
  Release();
  body_ = other.body_;
  return *this;
}

SharedText& SharedText::operator=(SharedText&& other) noexcept {
  std::swap(body_, other.body_);
  return *this;
}

void SharedText::Release() {
  if (body_ == nullptr || --body_->ref_count > 0) return;
  if (body_->data != nullptr) Free(body_->data, DataSize(body_->element_size, body_->length));
  body_->data = nullptr;
  body_->length = 0;
  Free(body_, sizeof(SharedBody));
  body_ = nullptr;
}

void SharedText::MakeUnique() {
  if (body_->ref_count <= 1) return;
  --body_->ref_count;
  SharedBody* copy = NewBody(body_->element_size, body_->length);
  if (body_->length > 0)
    std::memcpy(copy->data, body_->data, DataSize(body_->element_size, body_->length));
  body_ = copy;
}

void SharedText::Resize(int32_t n) {
  MakeUnique();
  const uint32_t size = body_->element_size;
  if (body_->length <= 0) {
    body_->data = n > 0 ? AllocateOrThrow(DataSize(size, n), size) : nullptr;
  } else if (n <= 0) {
    Free(body_->data, DataSize(size, body_->length));
    body_->data = nullptr;
    n = 0;
  } else {
    void* moved = Reallocate(body_->data, DataSize(size, body_->length), DataSize(size, n));
    if (moved == nullptr) FailAllocation(size);  // the old block and length still stand
    body_->data = moved;
  }
  body_->length = n;
}

void SharedText::Splice(int32_t at, int32_t oldCount, const void* source, int32_t newCount) {
  const size_t size = body_->element_size;
  const int32_t oldLength = body_->length;
  const int32_t tail = oldLength - at - oldCount;
  if (newCount < oldCount) {
    char* data = MutableElements<char>();
    std::memmove(data + (at + newCount) * size, data + (at + oldCount) * size, tail * size);
    Resize(oldLength - oldCount + newCount);
  } else if (newCount > oldCount) {
    Resize(oldLength - oldCount + newCount);
    char* data = MutableElements<char>();
    std::memmove(data + (at + newCount) * size, data + (at + oldCount) * size, tail * size);
  }
  if (source != nullptr && newCount > 0)
    std::memcpy(MutableElements<char>() + at * size, source, newCount * size);
}

void SharedText::Fill(uint64_t value) {
  const uint32_t size = std::min<uint32_t>(body_->element_size, sizeof value);
  char* data = MutableElements<char>();
  for (int32_t i = 0; i < body_->length; ++i)
    std::memcpy(data + static_cast<size_t>(i) * body_->element_size, &value, size);
}

uint32_t SharedText::Hash(uint32_t seed) const { return TextHash(c_str(), body_->length, seed); }

SharedText SharedText::Substring(int32_t start, int32_t length) const {
  if (start == 0 && length == TextLength()) {
    SharedText whole(*this);
    whole.MakeUnique();
    return whole;
  }
  return SharedText(c_str() + start, length);
}

SharedText SharedText::Wrap(const char* prefix, const char* suffix) const {
  const auto p = static_cast<int32_t>(std::strlen(prefix));
  const auto s = static_cast<int32_t>(std::strlen(suffix));
  SharedText result = WithRoom(p + TextLength() + s);
  char* data = static_cast<char*>(result.body_->data);
  std::memcpy(data, prefix, p);
  std::memcpy(data + p, c_str(), TextLength());
  std::memcpy(data + p + TextLength(), suffix, s);
  return result;
}

SharedText operator+(const SharedText& a, const SharedText& b) { return a.Wrap("", b.c_str()); }
SharedText operator+(const SharedText& a, const char* b) { return a.Wrap("", b); }
SharedText operator+(const char* a, const SharedText& b) { return b.Wrap(a, ""); }

int SharedText::Compare(const SharedText& other) const {
  const int32_t n = std::min(Length(), other.Length());
  const int c = n > 0 ? std::memcmp(c_str(), other.c_str(), static_cast<size_t>(n)) : 0;
  if (c != 0) return c < 0 ? -1 : 1;
  return Length() == other.Length() ? 0 : (Length() < other.Length() ? -1 : 1);
}

bool SharedText::Equals(const char* bytes, int32_t n) const {
  return TextLength() == n && std::memcmp(c_str(), bytes, static_cast<size_t>(n)) == 0;
}

bool SharedText::EqualsNoCase(const char* bytes, int32_t n) const {
  if (TextLength() != n) return false;
  for (int32_t i = 0; i < n; ++i)
    if (LowerByte(c_str()[i]) != LowerByte(bytes[i])) return false;
  return true;
}

int32_t SharedText::Find(const char* needle, int32_t needleLength, int32_t from) const {
  const int32_t n = TextLength();
  if (needleLength < 1 || from < 0) return n;
  for (int32_t i = from; i + needleLength <= n; ++i)
    if (std::memcmp(c_str() + i, needle, static_cast<size_t>(needleLength)) == 0) return i;
  return n;
}

void SharedText::CopyOut(char* buffer, int32_t capacity, int32_t* length) const {
  const int32_t n = TextLength();
  if (length != nullptr) *length = n;
  const int32_t copied = std::max(0, std::min(capacity, n));
  if (copied > 0) std::memcpy(buffer, c_str(), static_cast<size_t>(copied));
  if (copied < capacity) buffer[copied] = 0;
}

}  // namespace quillon
