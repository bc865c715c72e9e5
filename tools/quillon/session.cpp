// The interactive session: one opening line, a prompt per expression, `:` commands, history kept
// in ~/.quillon_history, Tab completing catalogue names and the symbols seen so far.
#include "session.h"

#include <cctype>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <set>
#include <string>

#include "batch.h"
#include "function_list.h"

#ifdef QUILLON_HAVE_READLINE
#include <readline/history.h>
#include <readline/readline.h>
#endif

namespace {

constexpr const char* kOpening = "quillon, a symbolic mathematics engine: type an expression, :help for commands; Ctrl-D or quit to leave\n";
constexpr const char* kSessionHelp =
    ":mode N     evaluate with rewrite mode N from now on (now %#x)\n"
    ":series A,B declare series\n"
    ":help       show this text\n"
    ":quit       leave (as do quit, exit and Ctrl-D)\n";
constexpr int kHistoryLines = 1000;

std::set<std::string> symbolsSeen;

bool IsNameChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '@'; }

void RememberNames(const std::string& line) {
  for (size_t i = 0; i < line.size();) {
    if (!IsNameChar(line[i]) || std::isdigit(static_cast<unsigned char>(line[i])) != 0) {
      ++i;
      continue;
    }
    size_t end = i;
    while (end < line.size() && IsNameChar(line[end])) ++end;
    if (line[i] != '@') symbolsSeen.insert(line.substr(i, end - i));
    i = end;
  }
}

std::string Trimmed(const std::string& line) {
  const size_t first = line.find_first_not_of(" \t\r");
  if (first == std::string::npos) return "";
  return line.substr(first, line.find_last_not_of(" \t\r") - first + 1);
}

// Runs one `:` command; returns false when the session should end.
bool Command(Evaluator& evaluator, const std::string& line) {
  const size_t blank = line.find_first_of(" \t");
  const std::string name = line.substr(0, blank);
  const std::string argument = blank == std::string::npos ? "" : Trimmed(line.substr(blank));
  if (name == ":quit" || name == ":q") return false;
  if (name == ":mode" && !argument.empty()) {
    char* end = nullptr;
    const unsigned long long mode = std::strtoull(argument.c_str(), &end, 0);
    if (*end != 0 || argument[0] == '-' || mode > UINT32_MAX)
      std::fprintf(stderr, "bad mode '%s': an unsigned 32-bit number is needed\n", argument.c_str());
    else
      evaluator.SetMode(static_cast<uint32_t>(mode));
  } else if (name == ":series" && !argument.empty()) {
    evaluator.DeclareSeries(argument);
  } else if (name == ":help" || name == ":mode") {
    std::printf(kSessionHelp, evaluator.Mode());
  } else {
    std::fprintf(stderr, "unknown command '%s'; :help lists them\n", name.c_str());
  }
  return true;
}

// Handles one line; returns false when the session should end.
bool Handle(Evaluator& evaluator, const std::string& input) {
  const std::string line = Trimmed(input);
  if (line.empty()) return true;
  if (line == "quit" || line == "exit") return false;
  if (line[0] == ':') return Command(evaluator, line);
  RememberNames(line);
  const Outcome outcome = evaluator.Run(line);
  std::fprintf(outcome.ok ? stdout : stderr, "%s\n", outcome.text.c_str());
  std::fflush(stdout);
  return true;
}

#ifdef QUILLON_HAVE_READLINE

std::string HistoryFile() {
  const char* home = std::getenv("HOME");
  return home == nullptr ? "" : std::string(home) + "/.quillon_history";
}

// Catalogue names first, then the symbols seen, each once per completion.
char* NextCompletion(const char* text, int state) {
  static size_t functionIndex;
  static std::set<std::string>::const_iterator symbol;
  const size_t length = std::strlen(text);
  if (state == 0) {
    functionIndex = 0;
    symbol = symbolsSeen.begin();
  }
  while (const char* name = FunctionSpelling(functionIndex)) {
    ++functionIndex;
    if (std::strncmp(name, text, length) == 0) return strdup(name);
  }
  for (; symbol != symbolsSeen.end(); ++symbol)
    if (symbol->compare(0, length, text) == 0) return strdup((symbol++)->c_str());
  return nullptr;
}

char** Complete(const char* text, int, int) {
  rl_attempted_completion_over = 1;  // never fall back to file names
  return rl_completion_matches(text, NextCompletion);
}

// Ctrl-C drops the line being typed and gives a fresh prompt.
void AbandonLine(int) {
  std::fputs("^C\n", stdout);
  rl_replace_line("", 0);
  rl_on_new_line();
  rl_redisplay();
}

#endif

}  // namespace

int RunSession(Evaluator& evaluator) {
  std::fputs(kOpening, stdout);
#ifdef QUILLON_HAVE_READLINE
  const std::string history = HistoryFile();
  rl_readline_name = "quillon";
  rl_basic_word_break_characters = const_cast<char*>(" \t\n+-*/^(),{}[]<>=:;!&|");
  rl_special_prefixes = const_cast<char*>("");
  rl_attempted_completion_function = Complete;
  rl_catch_signals = 0;
  std::signal(SIGINT, AbandonLine);
  if (!history.empty()) read_history(history.c_str());
  while (char* input = readline("quillon> ")) {
    const std::string line = input;
    std::free(input);
    if (!Trimmed(line).empty()) add_history(line.c_str());
    if (!Handle(evaluator, line)) break;
  }
  std::putchar('\n');
  if (!history.empty()) {
    write_history(history.c_str());
    history_truncate_file(history.c_str(), kHistoryLines);
  }
#else
  for (std::string line; std::getline(std::cin, line);)
    if (!Handle(evaluator, line)) break;
#endif
  return 0;
}
