// Message lookup and formatting: templates by code, "%" filled from the parameter fields, and the
// record of the last failure.
#include "quillon/errors.h"
#include "shared/message_table.h"

namespace quillon {

const char* MessageTemplate(int32_t code) {
  for (int32_t i = 0; i < kMessageTableSize; ++i)
    if (kMessageTable[i].code == code) return kMessageTable[i].text;
  return "";
}

// "%" has no width, type or escape: it only takes the next field, or nothing once they run out.
std::string FormatMessage(int32_t code, std::string_view params, char separator) {
  const std::string_view pattern = MessageTemplate(code);
  std::string out;
  out.reserve(params.size() + pattern.size());
  const std::string separatorText = separator == 0 ? std::string() : std::string(1, separator);
  FieldTokenizer fields(params, separatorText);
  for (const char c : pattern) {
    if (c != '%')
      out += c;
    else if (!fields.AtEnd())
      out += fields.Next();
  }
  return out;
}

std::string db_exception::Message() const { return FormatMessage(code, params, separator); }

void ErrorRecord::Set(int32_t newCode, std::string newParams, char newSeparator) {
  code = newCode;
  params = std::move(newParams);
  separator = newSeparator;
}

void ErrorRecord::Clear() { Set(0, std::string(), ';'); }

}  // namespace quillon
