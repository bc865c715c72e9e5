// Failure reporting of the shared layer: the message table and its formatter, the record of the
// last failure, the field tokenizer, and the process-wide host callbacks, writers and flags.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "quillon/db_exception.h"

namespace quillon {

// The template of a code, or the empty text for a code the table does not know.
const char* MessageTemplate(int32_t code);

// The code's template with each "%" replaced by the next field of params. A "%" past the last
// field vanishes, fields left over are ignored, and a separator inside double quotes does not
// split a field (the quotes stay in it).
std::string FormatMessage(int32_t code, std::string_view params, char separator = ';');

// The record of a failure that whatever keeps the last failure holds as a member.
class ErrorRecord {
 public:
  ErrorRecord() = default;
  virtual ~ErrorRecord() = default;

  void Set(int32_t code, std::string params, char separator = ';');
  void Set(const db_exception& failure) { Set(failure.code, failure.params, failure.separator); }
  // Back to code 0, no parameters, separator ";".
  void Clear();
  std::string Format() const { return FormatMessage(code, params, separator); }

  int32_t code = 0;
  std::string params;
  char separator = ';';
};

// Splits a text into fields at a separator text that stands outside double quotes.
class FieldTokenizer {
 public:
  FieldTokenizer(std::string_view text, std::string_view separator);

  bool AtEnd() const { return atEnd_; }
  // The next field, quotes included. Throws db_exception(kCodeTextIncomplete) past the end.
  std::string Next();

 private:
  std::string text_;
  std::string separator_;
  size_t position_ = 0;
  bool atEnd_;
};

// ---- Host callbacks -------------------------------------------------------------------------
// Set once at start by the host; process-wide and unlocked. Passing nullptr restores the default.

// Asks the host for the value of a keyword into buffer; 0 means no answer.
using HostQueryFn = int32_t (*)(char* buffer, int32_t size, const char* keyword);
// Shows one line; a non-zero result asks for a break.
using MessageWriterFn = int32_t (*)(const char* text);

void SetHostQuery(HostQueryFn query);
void SetMessageWriter1(MessageWriterFn writer);
void SetMessageWriter2(MessageWriterFn writer);

// The keywords the layer asks the host about. ORDER HostKey: rows of kHostKeys in host_query.cpp.
enum class HostKey { AppInfo, DateStyle, GetMaxAlphaLen, GetTempDir, FreqConvMethod, PageFreq };

// A text answer, asked with the keyword's own buffer size (GetTempDir takes callerSize); the
// empty text when the host gives none.
std::string QueryHostText(HostKey key, int32_t callerSize = 260);
// An integer answer (4-byte buffer); 0 when the host gives none.
int32_t QueryHostInteger(HostKey key);

// ---- Message writers, silence and breaks ----------------------------------------------------

// While silent, the writers are not called and the writes report 0.
void SilentOn();
void SilentOff();

// Writes a line through writer 1 or 2; a non-zero answer of the writer sets the break flag.
// Returns the break flag (0 while silent). A null text reaches the writer as it is.
int32_t WriteMessage1(const char* text);
int32_t WriteMessage1(const std::string& text);
int32_t WriteMessage2(const char* text);
int32_t WriteMessage2(const std::string& text);

// Where the break flag lives; the host may point it at a word of its own (nullptr: the layer's).
void SetBreakFlagLocation(int32_t* flag);
int32_t BreakFlag();
void ClearBreak();

// Writes "Aborted by user" through writer 1, clears the break flag and throws
// db_exception(kCodeUserBreak).
[[noreturn]] void UserBreak();

}  // namespace quillon
