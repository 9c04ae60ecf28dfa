#include "ormelix/session/zeitraum.h"

#include <cstdio>
#include <string>

#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

namespace {

std::int32_t ReadKey(const std::string& digits) { return ValueHelpers::ToLong(Variant(digits)); }

std::int16_t ReadPart(const std::string& digits) { return ValueHelpers::ToInteger(Variant(digits)); }

}  // namespace

std::int32_t ComposeZeitraum(std::int32_t year, std::int32_t month) {
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%04d%02d", year, month);
  return ReadKey(buffer);
}

void clsZeitraum::Add(std::int16_t pMonth, std::int16_t pYear) { Item = ComposeZeitraum(pYear, pMonth); }

void clsZeitraum::AddDate(Date pDate) {
  Item = ReadKey(std::to_string(DateHelpers::Year(pDate)) + std::to_string(DateHelpers::Month(pDate)));
}

std::int16_t clsZeitraum::GetMonth() const {
  std::string text = std::to_string(Item);
  return ReadPart(text.size() < 2 ? text : text.substr(text.size() - 2));
}

std::int16_t clsZeitraum::GetYear() const {
  std::string text = std::to_string(Item);
  return ReadPart(text.substr(0, 4));
}

Date clsZeitraum::GetDate() const { return DateHelpers::DateSerial(GetYear(), GetMonth(), 1); }

}  // namespace ormelix
