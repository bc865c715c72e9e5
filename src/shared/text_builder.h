// TextBuilder: a text under construction, doubling its buffer so that repeated appends stay
// linear. Also the two positional append forms that keep the position in a caller's variable.
#pragma once

#include <cstdint>

#include "shared/shared_text.h"

namespace quillon {

class TextBuilder {
 public:
  // A builder with room for capacity bytes. Capacity 0 can never grow through Append (0 doubled
  // stays 0), so the first non-empty Append on it does not return; callers ask for room.
  explicit TextBuilder(int32_t capacity = 64);

  void Append(const char* bytes, int32_t n);
  void Append(const char* text);
  void Append(const SharedText& text) { Append(text.c_str(), text.TextLength()); }
  void AppendChar(char c) { Append(&c, 1); }

  int32_t Used() const { return used_; }
  int32_t Capacity() const { return buffer_.Length() - 1; }
  bool AtLineEnd() const { return at_line_end_; }
  const char* Peek() const { return buffer_.c_str(); }

  // Hands out the text written so far and resets the builder.
  SharedText Take();

 private:
  SharedText buffer_;
  int32_t used_ = 0;
  SharedText line_end_{"\r\n"};
  bool at_line_end_ = false;
};

// Appends at *position in text, growing it to twice its capacity (100 when it has none) as
// needed and keeping the terminator at the new end; the caller cuts the text at the end.
void AppendByteAt(SharedText& text, int32_t* position, char byte);
void AppendRunAt(SharedText& text, int32_t* position, const char* bytes, int32_t n);

}  // namespace quillon
