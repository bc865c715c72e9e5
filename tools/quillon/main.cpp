// quillon: the command-line way to try the engine. Each expression is parsed, evaluated and
// printed back; it uses only the public C interface, as any host does.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <unistd.h>

#include "numeric_mode.h"
#include "endless_normalize.h"
#include "quillon.h"

#ifdef QUILLON_HAVE_READLINE
#include <readline/history.h>
#include <readline/readline.h>
#endif

namespace {

// Raw types given to declared names; every other name is taken as a series.
constexpr int32_t kSeriesType = 15;  // class 4: series, any lag or lead
constexpr int32_t kScalarType = 35;  // class 8: no index
constexpr int32_t kMatrixType = 40;  // class 8: two indices, both above 0
constexpr int32_t kVectorType = 42;  // class 8: one index, above 0

constexpr const char* kUsage = "usage: quillon [options] [EXPR ... | -]\n";

constexpr const char* kHelp =
    "usage: quillon [options] [EXPR ... | -]\n"
    "\n"
    "Parses each EXPR, evaluates it and prints the result. With '-', or with no EXPR and\n"
    "standard input not a terminal, reads one expression per line from standard input\n"
    "(blank lines are skipped). With no EXPR on a terminal, starts an interactive session\n"
    "with line editing and history where the build has GNU readline; end it with Ctrl-D.\n"
    "\n"
    "options:\n"
    "  --mode N        evaluate with rewrite mode N (default 3: canonical, then simplify);\n"
    "                  1 simplify, 2 canonical, 4 display, 0x10000 numeric, 0x20000 expand,\n"
    "                  0x40000 factor, 0x80000 time expand, 0x100000 flatten, or a sum of them\n"
    "  --raw           print each expression as parsed, without evaluating it\n"
    "  --spaced        print with blanks around the outermost operators\n"
    "  --series A,B    declare series (raw type 15, class 4): lags such as A(-1) shift them\n"
    "  --scalar C      declare scalars (raw type 35, class 8): no index allowed\n"
    "  --matrix M      declare matrices (raw type 40, class 8): M(i,j) with i, j above 0\n"
    "  --vector V      declare vectors (raw type 42, class 8): V(i) with i above 0\n"
    "  --at X=V,...    compute each EXPR numerically with these values of its symbols\n"
    "  --csv FILE      compute each EXPR for every row of FILE, a comma-separated table whose\n"
    "                  first line names the symbols; prints a line per row, a column per\n"
    "                  EXPR (a list {a,b} gives two)\n"
    "  --subexpr       print each EXPR prepared for numeric evaluation (repeated parts as\n"
    "                  temporaries #T, symbols as input slots #S) and the symbol of each slot\n"
    "  --help          show this text\n"
    "\n"
    "Every name that is neither a function of the catalogue nor declared is taken as a series,\n"
    "so that x(-1) is the lag of x.\n"
    "\n"
    "An expression that fails prints its message on standard error, and the exit status is 1;\n"
    "a bad option prints the usage and the exit status is 2.\n"
    "\n"
    "examples:\n"
    "  quillon 'x + x*y - 3'\n"
    "  quillon --mode 0x20003 '(a + b)^3'\n"
    "  quillon --raw --spaced '(a-b)-c'\n"
    "  quillon --matrix m 'm(1,2) * 2'\n"
    "  printf 'x^2\\n2*y + 3*y\\n' | quillon -\n";

struct Options {
  uint32_t mode = 3;
  bool raw = false;
  bool spaced = false;
  bool readStdin = false;
  std::vector<std::pair<std::string, int32_t>> declared;
  std::vector<std::string> expressions;
  NumericOptions numeric;
};

int32_t QUILLON_CALL AnySeries(const char*) { return kSeriesType; }

void Declare(Options& options, const char* names, int32_t type) {
  std::string list = names;
  for (size_t start = 0; start <= list.size();) {
    const size_t comma = std::min(list.find(',', start), list.size());
    if (comma > start) options.declared.emplace_back(list.substr(start, comma - start), type);
    start = comma + 1;
  }
}

// Returns 0 when the arguments are good, or the exit status to end with.
int ParseArguments(int argc, char** argv, Options& options) {
  const struct {
    const char* flag;
    int32_t type;
  } declarations[] = {{"--series", kSeriesType}, {"--scalar", kScalarType}, {"--matrix", kMatrixType},
                      {"--vector", kVectorType}};
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    const bool hasValue = i + 1 < argc;
    bool missingValue = false;
    if (TakeNumericOption(argc, argv, i, options.numeric, missingValue)) {
      if (missingValue) return 2;
      continue;
    }
    bool known = false;
    for (const auto& d : declarations) {
      if (arg != d.flag) continue;
      if (!hasValue) break;
      Declare(options, argv[++i], d.type);
      known = true;
    }
    if (known) continue;
    if (arg == "--help") {
      std::fputs(kHelp, stdout);
      return -1;
    }
    if (arg == "--raw") {
      options.raw = true;
    } else if (arg == "--spaced") {
      options.spaced = true;
    } else if (arg == "--mode" && hasValue) {
      char* end = nullptr;
      options.mode = static_cast<uint32_t>(std::strtoul(argv[++i], &end, 0));
      if (*end != 0) return 2;
    } else if (arg == "-") {
      options.readStdin = true;
    } else if (arg.size() > 1 && arg[0] == '-' && arg[1] == '-') {
      return 2;
    } else {
      options.expressions.push_back(arg);
    }
  }
  return 0;
}

std::string TextOf(mathexpr* e, bool spaced) {
  std::string text(256, '\0');
  int32_t length = 0;
  mathexpr_as_text(e, text.data(), static_cast<int32_t>(text.size()), &length, spaced);
  if (length >= static_cast<int32_t>(text.size())) {
    text.assign(static_cast<size_t>(length) + 1, '\0');
    mathexpr_as_text(e, text.data(), static_cast<int32_t>(text.size()), &length, spaced);
  }
  text.resize(static_cast<size_t>(length));
  return text;
}

// An error prints as <"message">; the message alone goes to standard error.
std::string MessageOf(const std::string& text) {
  if (text.size() >= 4 && text.compare(0, 2, "<\"") == 0 && text.compare(text.size() - 2, 2, "\">") == 0)
    return text.substr(2, text.size() - 4);
  return text;
}

// Evaluating would never end: the message goes to standard error and e is destroyed.
bool RefusedAsEndless(mathexpr* e, const std::string& text) {
  const std::string form = EndlessNormalizeForm(e, text);
  if (form.empty()) return false;
  std::fprintf(stderr, "%s\n", EndlessNormalizeMessage(form).c_str());
  mathexpr_destroy(e);
  return true;
}

class Session {
 public:
  explicit Session(const Options& options) : options_(options), table_(mathsymtable_create(AnySeries, 1)) {
    for (const auto& [name, type] : options.declared) mathsymtable_add(table_, name.c_str(), type);
  }
  ~Session() { mathsymtable_destroy(table_); }
  mathsymtable* Table() const { return table_; }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Prints the result of one expression; returns false when it is an error.
  bool Run(const std::string& text) {
    mathexpr* e = mathexpr_create(table_, text.c_str());
    if (!options_.raw && RefusedAsEndless(e, text)) return false;
    if (!options_.raw) mathexpr_evaluate(e, options_.mode);
    const bool failed = mathexpr_is_error(e) != 0;
    const std::string out = TextOf(e, options_.spaced);
    mathexpr_destroy(e);
    if (failed) {
      std::fprintf(stderr, "%s\n", MessageOf(out).c_str());
      return false;
    }
    std::printf("%s\n", out.c_str());
    std::fflush(stdout);
    return true;
  }

 private:
  const Options& options_;
  mathsymtable* table_;
};

bool IsBlank(const std::string& line) { return line.find_first_not_of(" \t\r") == std::string::npos; }

int RunLines(Session& session) {
  int status = 0;
  std::string line;
  for (int c; (c = std::getchar()) != EOF;) {
    if (c != '\n') {
      line += static_cast<char>(c);
      continue;
    }
    if (!IsBlank(line) && !session.Run(line)) status = 1;
    line.clear();
  }
  if (!IsBlank(line) && !session.Run(line)) status = 1;
  return status;
}

int RunInteractive(Session& session) {
  int status = 0;
#ifdef QUILLON_HAVE_READLINE
  while (char* input = readline("quillon> ")) {
    const std::string line = input;
    std::free(input);
    if (IsBlank(line)) continue;
    add_history(line.c_str());
    if (!session.Run(line)) status = 1;
  }
  std::putchar('\n');
#else
  status = RunLines(session);
#endif
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  const int bad = ParseArguments(argc, argv, options);
  if (bad < 0) return 0;
  if (bad > 0) {
    std::fputs(kUsage, stderr);
    std::fputs("try 'quillon --help' for more\n", stderr);
    return bad;
  }
  Session session(options);
  int status = 0;
  if (options.numeric.Active()) {
    status = RunNumeric(options.numeric, session.Table(), options.mode, options.expressions);
    quillon_cleanup();
    return status;
  }
  for (const std::string& text : options.expressions)
    if (!session.Run(text)) status = 1;
  if (options.readStdin || (options.expressions.empty() && !isatty(STDIN_FILENO)))
    status = RunLines(session) != 0 ? 1 : status;
  else if (options.expressions.empty())
    status = RunInteractive(session);
  quillon_cleanup();
  return status;
}
