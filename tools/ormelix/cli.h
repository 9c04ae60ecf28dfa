// The command line of ormelix: arguments, bad-input failures, periods, terminals.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace cli {

// Bad input: one line on standard error saying what was wrong and what was
// expected, exit status 2, nothing written.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The words after the command, taken one kind at a time; what is left at the end
// is a failure.
class Arguments {
 public:
  explicit Arguments(std::vector<std::string> words) : words_(std::move(words)) {}

  bool Help() const;
  // --name
  bool TakeFlag(const std::string& name);
  // --name VALUE or --name=VALUE
  std::optional<std::string> TakeOption(const std::string& name);
  // The next word that is no option.
  std::optional<std::string> TakePositional();
  // Fails on any word not taken, naming it and the usage.
  void ExpectEnd(const std::string& usage) const;

 private:
  std::vector<std::string> words_;
};

// "YYYYMM" with month 1..12, else a UsageError naming the text.
std::int32_t ParsePeriod(const std::string& text);
// A four-digit year, else a UsageError.
std::int16_t ParseYear(const std::string& text);

bool IsTerminal(int fd);

// Shows how far long work has come, on standard error and only on a terminal.
class Progress {
 public:
  explicit Progress(std::string label);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  void Step(long done, long total);

 private:
  std::string label_;
  bool visible_;
  long total_ = 0;
  long shown_ = -1;
};

}  // namespace cli
