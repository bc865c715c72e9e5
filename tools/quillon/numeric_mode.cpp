// The numeric mode of the quillon program; see numeric_mode.h. Every value is computed by the
// batch evaluator, so the program shows what a host of quillon_program.h gets.
#include "numeric_mode.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <strings.h>

#include "evaluator.h"
#include "quillon_program.h"

bool TakeNumericOption(int argc, char** argv, int& i, NumericOptions& options, bool& bad) {
  const std::string arg = argv[i];
  if (arg == "--subexpr") {
    options.subexpr = true;
    return true;
  }
  std::string* value = arg == "--at" ? &options.at : arg == "--csv" ? &options.csvFile : nullptr;
  if (value == nullptr) return false;
  if (i + 1 >= argc || argv[i + 1][0] == 0) {
    bad = true;
    return true;
  }
  *value = argv[++i];
  return true;
}

namespace {

using Program = std::unique_ptr<quillon_program, decltype(&quillon_program_destroy)>;

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::string part;
  std::istringstream in(text);
  while (std::getline(in, part, separator)) parts.push_back(part);
  return parts;
}

std::string Trimmed(const std::string& text) {
  const size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// The shortest text that reads back as the same double; the language's spellings for the rest.
std::string NumberText(double v) {
  if (std::isnan(v)) return "NA";
  if (std::isinf(v)) return v > 0 ? "@Inf" : "-@Inf";
  char text[32];
  for (int precision = 15; precision <= 17; ++precision) {
    std::snprintf(text, sizeof text, "%.*g", precision, v);
    if (std::strtod(text, nullptr) == v) break;
  }
  return text;
}

std::string InputName(const quillon_program* p, int32_t i) {
  int32_t length = 0;
  quillon_program_input_name(p, i, nullptr, 0, &length);
  std::string name(static_cast<size_t>(length), '\0');
  quillon_program_input_name(p, i, name.data(), length, nullptr);
  return name;
}

// Values by symbol text; a name given in other case still matches, as the language's names do.
class Values {
 public:
  void Set(const std::string& name, std::vector<double> column) { columns_[name] = std::move(column); }
  const std::vector<double>* Find(const std::string& name) const {
    for (const auto& [key, column] : columns_)
      if (strcasecmp(key.c_str(), name.c_str()) == 0) return &column;
    return nullptr;
  }

 private:
  std::map<std::string, std::vector<double>> columns_;
};

bool ReadNumber(const std::string& text, double& value) {
  const std::string t = Trimmed(text);
  char* end = nullptr;
  value = std::strtod(t.c_str(), &end);
  if (t.empty() || t == "NA") value = NAN;
  return t.empty() || t == "NA" || *end == 0;
}

// Values given on the command line hold for every row.
bool ParsePoint(const std::string& at, int64_t rows, Values& values) {
  for (const std::string& pair : Split(at, ',')) {
    const size_t equal = pair.find('=');
    double value = 0;
    const std::string text = equal == std::string::npos ? "" : Trimmed(pair.substr(equal + 1));
    if (text.empty() || !ReadNumber(text, value)) {
      std::fprintf(stderr, "bad value in --at: %s\n", pair.c_str());
      return false;
    }
    values.Set(Trimmed(pair.substr(0, equal)), std::vector<double>(static_cast<size_t>(rows), value));
  }
  return true;
}

bool ReadTable(const std::string& file, Values& values, int64_t& rows) {
  std::ifstream in(file);
  std::string line;
  if (!in || !std::getline(in, line)) {
    std::fprintf(stderr, "cannot read %s\n", file.c_str());
    return false;
  }
  const std::vector<std::string> names = Split(line, ',');
  std::vector<std::vector<double>> columns(names.size());
  rows = 0;
  for (int64_t lineNumber = 2; std::getline(in, line); ++lineNumber) {
    if (Trimmed(line).empty()) continue;
    const std::vector<std::string> cells = Split(line, ',');
    for (size_t c = 0; c < names.size(); ++c) {
      double value = NAN;
      if (c < cells.size() && !ReadNumber(cells[c], value)) {
        std::fprintf(stderr, "%s:%lld: not a number: %s\n", file.c_str(), static_cast<long long>(lineNumber),
                     cells[c].c_str());
        return false;
      }
      columns[c].push_back(value);
    }
    ++rows;
  }
  for (size_t c = 0; c < names.size(); ++c) values.Set(Trimmed(names[c]), std::move(columns[c]));
  return true;
}

// The program of one expression with its input columns, or null after a message.
Program Compile(mathsymtable* table, const std::string& text, uint32_t mode) {
  mathexpr* e = mathexpr_create(table, text.c_str());
  mathexpr_evaluate(e, mode);
  if (mathexpr_is_error(e)) {
    const std::string message = TextOf(e, false);
    std::fprintf(stderr, "%s\n", message.size() > 4 ? message.substr(2, message.size() - 4).c_str() : message.c_str());
  }
  Program p(quillon_program_create(e), &quillon_program_destroy);
  mathexpr_destroy(e);
  return p;
}

// The output columns of each expression over rows, or false after a message.
using Columns = std::vector<std::vector<double>>;
bool Evaluate(mathsymtable* table, uint32_t mode, const std::vector<std::string>& expressions, const Values& values,
              int64_t rows, std::vector<Columns>& results) {
  for (const std::string& text : expressions) {
    Program p = Compile(table, text, mode);
    if (!p) return false;
    std::vector<const double*> inputs;
    for (int32_t i = 0; i < quillon_program_input_count(p.get()); ++i) {
      const std::string name = InputName(p.get(), i);
      const std::vector<double>* column = values.Find(name);
      if (column == nullptr) {
        std::fprintf(stderr, "no value for %s in %s\n", name.c_str(), text.c_str());
        return false;
      }
      inputs.push_back(column->data());
    }
    Columns& columns = results.emplace_back(static_cast<size_t>(quillon_program_output_count(p.get())),
                                            std::vector<double>(static_cast<size_t>(rows)));
    std::vector<double*> outputs;
    for (std::vector<double>& column : columns) outputs.push_back(column.data());
    quillon_program_evaluate(p.get(), rows, inputs.data(), outputs.data());
  }
  return true;
}

bool PrintPrepared(mathsymtable* table, uint32_t mode, const std::string& text) {
  mathexpr* e = mathexpr_create(table, ("@subexpr(" + text + ")").c_str());
  mathexpr_evaluate(e, mode);
  const bool failed = mathexpr_is_error(e) != 0;
  std::printf("%s\n", TextOf(e, false).c_str());
  mathexpr_destroy(e);
  if (failed) return false;
  Program p = Compile(table, text, mode);
  for (int32_t i = 0; p && i < quillon_program_input_count(p.get()); ++i)
    std::printf("#S%d = %s\n", i, InputName(p.get(), i).c_str());
  return true;
}

}  // namespace

int RunNumeric(const NumericOptions& options, mathsymtable* table, uint32_t mode,
               const std::vector<std::string>& expressions) {
  int status = 0;
  if (options.subexpr)
    for (const std::string& text : expressions)
      if (!PrintPrepared(table, mode, text)) status = 1;
  if (options.at.empty() && options.csvFile.empty()) return status;
  Values values;
  int64_t rows = 1;
  if (!options.csvFile.empty() && !ReadTable(options.csvFile, values, rows)) return 1;
  if (!options.at.empty() && !ParsePoint(options.at, rows, values)) return 1;
  std::vector<Columns> results;
  if (!Evaluate(table, mode, expressions, values, rows, results)) return 1;
  // A point prints a line per expression; a table a line per row, the expressions side by side.
  const bool byRow = !options.csvFile.empty();
  for (int64_t row = 0; row < rows; ++row) {
    const char* separator = "";
    for (const Columns& columns : results) {
      for (const std::vector<double>& column : columns) {
        std::printf("%s%s", separator, NumberText(column[static_cast<size_t>(row)]).c_str());
        separator = ",";
      }
      if (!byRow) separator = "\n";
    }
    std::printf("\n");
  }
  return status;
}
