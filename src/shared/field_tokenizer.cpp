// The field tokenizer: fields end at a separator text standing outside double quotes.
#include "quillon/errors.h"

namespace quillon {

FieldTokenizer::FieldTokenizer(std::string_view text, std::string_view separator)
    : text_(text), separator_(separator), atEnd_(text.empty()) {}

// A text that ends in a separator yields one more, empty, field: the end is only known once a
// scan finds no separator.
std::string FieldTokenizer::Next() {
  if (atEnd_) throw db_exception(kCodeTextIncomplete);
  const size_t start = position_;
  int32_t quotes = 0;
  for (size_t at = start; at < text_.size(); ++at) {
    if (quotes % 2 == 0 && text_.compare(at, separator_.size(), separator_) == 0) {
      position_ = at + separator_.size();
      return text_.substr(start, at - start);
    }
    if (text_[at] == '"') ++quotes;
  }
  atEnd_ = true;
  position_ = text_.size();
  return text_.substr(start);
}

}  // namespace quillon
