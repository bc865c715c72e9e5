// Parsing of the command line: `--name=value` and `--name value` alike, `--` ending the options,
// and every refusal naming what was wrong.
#include "options.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "quillon.h"
#include "symbol_types.h"

namespace {

constexpr const char* kHelp =
    "usage: quillon [options] [--] [EXPR ... | -]\n"
    "\n"
    "Parses each EXPR, evaluates it and prints the result. With '-', or with no EXPR and\n"
    "standard input not a terminal, reads one expression per line from standard input. With\n"
    "no EXPR on a terminal, starts an interactive session (type :help there).\n"
    "\n"
    "options:\n"
    "  -h, --help      show this text\n"
    "  --version       show the version of the program and of its library\n"
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
    "  --functions [PREFIX]\n"
    "                  list the functions and operators of the language whose spelling starts\n"
    "                  with PREFIX, with their number of arguments where it is fixed\n"
    "  --              end of the options: what follows is an EXPR even if it starts with '-'\n"
    "  Every option with a value also takes it as --option=VALUE.\n"
    "\n"
    "Every name that is neither a function of the catalogue nor declared is taken as a series,\n"
    "so that x(-1) is the lag of x. Names of the catalogue come first: a bare d is the\n"
    "difference operator.\n"
    "\n"
    "Output line k belongs to input line k: an expression that fails prints an empty line on\n"
    "standard output and its message on standard error (\"line 3: syntax error: ...\" when read\n"
    "from standard input), and the exit status is 1. A bad option is named on standard error\n"
    "and the exit status is 2.\n"
    "\n"
    "examples:\n"
    "  quillon 'x + x*y - 3'\n"
    "  quillon --mode=0x20003 '(a + b)^3'\n"
    "  quillon --raw --spaced '(a-b)-c'\n"
    "  quillon --matrix m 'm(1,2) * 2'\n"
    "  quillon -- '-x + 2*x'\n"
    "  quillon --functions @mov\n"
    "  printf 'x^2\\n2*y + 3*y\\n' | quillon -\n";

ParseOutcome Refuse(const std::string& why) {
  std::fprintf(stderr, "quillon: %s\ntry 'quillon --help' for more\n", why.c_str());
  return {false, 2};
}

ParseOutcome Done() { return {false, 0}; }

// Splits `--name=value` in two so that both spellings take one path; after `--` nothing is split.
std::vector<std::string> Expanded(int argc, char** argv) {
  std::vector<std::string> args;
  bool optionsEnded = false;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    const size_t equals = arg.find('=');
    if (arg == "--") optionsEnded = true;
    if (optionsEnded || arg.compare(0, 2, "--") != 0 || equals == std::string::npos) {
      args.push_back(arg);
      continue;
    }
    args.push_back(arg.substr(0, equals));
    args.push_back(arg.substr(equals + 1));
  }
  return args;
}

void Declare(Options& options, const std::string& list, int32_t type) {
  for (size_t start = 0; start <= list.size();) {
    const size_t comma = std::min(list.find(',', start), list.size());
    if (comma > start) options.declared.emplace_back(list.substr(start, comma - start), type);
    start = comma + 1;
  }
}

// A mode is an unsigned 32-bit number, decimal or 0x-hexadecimal.
bool ReadMode(const std::string& text, uint32_t& mode) {
  if (text.empty() || text[0] == '-' || text[0] == '+') return false;
  char* end = nullptr;
  errno = 0;
  const unsigned long long value = std::strtoull(text.c_str(), &end, 0);
  if (*end != 0 || errno != 0 || value > UINT32_MAX) return false;
  mode = static_cast<uint32_t>(value);
  return true;
}

int32_t DeclaredType(const std::string& flag) {
  if (flag == "--series") return kSeriesType;
  if (flag == "--scalar") return kScalarType;
  if (flag == "--matrix") return kMatrixType;
  if (flag == "--vector") return kVectorType;
  return 0;
}

}  // namespace

ParseOutcome ParseArguments(int argc, char** argv, Options& options) {
  std::vector<std::string> args = Expanded(argc, argv);
  std::vector<char*> pointers = {argv[0]};
  for (std::string& arg : args) pointers.push_back(arg.data());
  const int count = static_cast<int>(pointers.size());
  for (int i = 1; i < count; ++i) {
    const std::string arg = pointers[i];
    const bool hasValue = i + 1 < count;
    if (arg == "--") {
      for (++i; i < count; ++i) options.expressions.push_back(pointers[i]);
      break;
    }
    bool missingValue = false;
    if (TakeNumericOption(count, pointers.data(), i, options.numeric, missingValue)) {
      if (missingValue) return Refuse("option " + arg + " needs a value");
      continue;
    }
    if (const int32_t type = DeclaredType(arg); type != 0) {
      if (!hasValue) return Refuse("option " + arg + " needs a list of names");
      Declare(options, pointers[++i], type);
    } else if (arg == "-h" || arg == "--help") {
      std::fputs(kHelp, stdout);
      return Done();
    } else if (arg == "--version") {
      std::printf("quillon %d.%d.%d\n", QUILLON_VERSION_MAJOR, QUILLON_VERSION_MINOR, QUILLON_VERSION_PATCH);
      return Done();
    } else if (arg == "--raw") {
      options.raw = true;
    } else if (arg == "--spaced") {
      options.spaced = true;
    } else if (arg == "--mode") {
      if (!hasValue) return Refuse("option --mode needs a value");
      if (!ReadMode(pointers[++i], options.mode))
        return Refuse(std::string("bad mode '") + pointers[i] + "': an unsigned 32-bit number is needed");
    } else if (arg == "--functions") {
      options.listFunctions = true;
      if (hasValue && pointers[i + 1][0] != '-') options.functionPrefix = pointers[++i];
    } else if (arg == "-") {
      options.readStdin = true;
    } else if (arg.size() > 1 && arg[0] == '-' && !(arg[1] >= '0' && arg[1] <= '9')) {
      return Refuse("unknown option '" + arg + "'");
    } else {
      options.expressions.push_back(arg);
    }
  }
  return {};
}
