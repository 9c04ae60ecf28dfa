#include "cli.h"

#include <unistd.h>

#include <cctype>
#include <cstdio>

#include "ormelix/error.h"

namespace cli {

bool Arguments::Help() const {
  for (const std::string& word : words_)
    if (word == "--help" || word == "-h") return true;
  return false;
}

bool Arguments::TakeFlag(const std::string& name) {
  for (auto it = words_.begin(); it != words_.end(); ++it) {
    if (*it == "--" + name) {
      words_.erase(it);
      return true;
    }
  }
  return false;
}

std::optional<std::string> Arguments::TakeOption(const std::string& name) {
  const std::string option = "--" + name;
  for (auto it = words_.begin(); it != words_.end(); ++it) {
    if (*it == option) {
      if (it + 1 == words_.end() || (it + 1)->rfind("--", 0) == 0)
        throw UsageError("option " + option + " needs a value");
      std::string value = *(it + 1);
      words_.erase(it, it + 2);
      return value;
    }
    if (it->rfind(option + "=", 0) == 0) {
      std::string value = it->substr(option.size() + 1);
      words_.erase(it);
      return value;
    }
  }
  return std::nullopt;
}

std::optional<std::string> Arguments::TakePositional() {
  for (auto it = words_.begin(); it != words_.end(); ++it) {
    if (it->rfind("--", 0) != 0) {
      std::string value = *it;
      words_.erase(it);
      return value;
    }
  }
  return std::nullopt;
}

void Arguments::ExpectEnd(const std::string& usage) const {
  if (!words_.empty()) throw UsageError("unexpected argument '" + words_.front() + "'; usage: " + usage);
}

namespace {

bool AllDigits(const std::string& text, std::size_t size) {
  if (text.size() != size) return false;
  for (char c : text)
    if (!std::isdigit(static_cast<unsigned char>(c))) return false;
  return true;
}

}  // namespace

std::int32_t ParsePeriod(const std::string& text) {
  bool digits = AllDigits(text, 6);
  int year = digits ? std::stoi(text.substr(0, 4)) : 0;
  int month = digits ? std::stoi(text.substr(4)) : 0;
  if (!digits || year < 1000 || month < 1 || month > 12)
    throw UsageError("period '" + ormelix::ShortenForMessage(text, 40) +
                     "' is not YYYYMM with a year from 1000 and a month from 01 to 12 (e.g. 202503)");
  return std::stoi(text);
}

std::int16_t ParseYear(const std::string& text) {
  if (!AllDigits(text, 4) || text[0] == '0')
    throw UsageError("year '" + ormelix::ShortenForMessage(text, 40) + "' is not a four-digit year (e.g. 2025)");
  return static_cast<std::int16_t>(std::stoi(text));
}

bool IsTerminal(int fd) { return isatty(fd) == 1; }

Progress::Progress(std::string label) : label_(std::move(label)), visible_(IsTerminal(2)) {}

Progress::~Progress() {
  if (visible_ && shown_ >= 0) std::fprintf(stderr, "\r%s %ld/%ld      \n", label_.c_str(), total_, total_);
}

void Progress::Step(long done, long total) {
  if (!visible_ || total <= 0) return;
  total_ = total;
  long percent = done * 100 / total;
  if (percent == shown_) return;
  shown_ = percent;
  std::fprintf(stderr, "\r%s %ld/%ld (%ld%%)", label_.c_str(), done, total_, percent);
  std::fflush(stderr);
}

}  // namespace cli
