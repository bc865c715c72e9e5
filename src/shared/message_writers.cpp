// The two message writers, the silent flag, the break flag and the user break. All process-wide:
// the host sets the callbacks once at start.
#include <cstdio>

#include "quillon/errors.h"

namespace quillon {

namespace {

int32_t WriteToStandardOutput(const char* text) {
  if (text != nullptr) std::printf("%s\n", text);
  return 0;
}

MessageWriterFn writer1 = WriteToStandardOutput;
MessageWriterFn writer2 = WriteToStandardOutput;
bool silent = false;
int32_t ownBreakFlag = 0;
int32_t* breakFlag = &ownBreakFlag;

int32_t WriteThrough(MessageWriterFn writer, const char* text) {
  if (silent) return 0;
  if (writer(text) != 0) *breakFlag = 1;
  return *breakFlag;
}

}  // namespace

void SetMessageWriter1(MessageWriterFn writer) {
  writer1 = writer != nullptr ? writer : WriteToStandardOutput;
}

void SetMessageWriter2(MessageWriterFn writer) {
  writer2 = writer != nullptr ? writer : WriteToStandardOutput;
}

void SilentOn() { silent = true; }
void SilentOff() { silent = false; }

int32_t WriteMessage1(const char* text) { return WriteThrough(writer1, text); }
int32_t WriteMessage1(const std::string& text) { return WriteThrough(writer1, text.c_str()); }
int32_t WriteMessage2(const char* text) { return WriteThrough(writer2, text); }
int32_t WriteMessage2(const std::string& text) { return WriteThrough(writer2, text.c_str()); }

void SetBreakFlagLocation(int32_t* flag) { breakFlag = flag != nullptr ? flag : &ownBreakFlag; }
int32_t BreakFlag() { return *breakFlag; }
void ClearBreak() { *breakFlag = 0; }

void UserBreak() {
  WriteMessage1("Aborted by user");
  ClearBreak();
  throw db_exception(kCodeUserBreak);
}

}  // namespace quillon
