// TextBuilder and the positional appends; see text_builder.h.
#include "shared/text_builder.h"

#include <cstring>

namespace quillon {

TextBuilder::TextBuilder(int32_t capacity) : buffer_(SharedText::WithRoom(capacity)) {}

void TextBuilder::Append(const char* bytes, int32_t n) {
  if (used_ + n > Capacity()) {
    int32_t capacity = Capacity();
    while (capacity < used_ + n) capacity *= 2;
    buffer_.Resize(capacity + 1);
    buffer_.Set<char>(capacity, 0);
  }
  if (n > 0) std::memcpy(buffer_.MutableElements<char>() + used_, bytes, static_cast<size_t>(n));
  used_ += n;
  const int32_t endLength = line_end_.TextLength();
  if (used_ >= endLength)
    at_line_end_ = std::memcmp(buffer_.c_str() + used_ - endLength, line_end_.c_str(), endLength) == 0;
}

void TextBuilder::Append(const char* text) { Append(text, static_cast<int32_t>(std::strlen(text))); }

SharedText TextBuilder::Take() {
  SharedText result = buffer_.Substring(0, used_);
  used_ = 0;
  at_line_end_ = false;
  return result;
}

namespace {

void GrowFor(SharedText& text, int32_t needed) {
  int32_t capacity = text.Length() - 1;
  if (needed <= capacity) return;
  do capacity = capacity == 0 ? 100 : capacity * 2;
  while (capacity < needed);
  text.Resize(capacity + 1);
  text.Set<char>(capacity, 0);
}

}  // namespace

void AppendByteAt(SharedText& text, int32_t* position, char byte) {
  GrowFor(text, *position + 1);
  text.Set<char>((*position)++, byte);
}

void AppendRunAt(SharedText& text, int32_t* position, const char* bytes, int32_t n) {
  if (n <= 0) return;
  GrowFor(text, *position + n);
  std::memcpy(text.MutableElements<char>() + *position, bytes, static_cast<size_t>(n));
  *position += n;
}

}  // namespace quillon
