#include "settings/RecordReader.h"

#include <algorithm>
#include <optional>

#include "base/Number.h"
#include "base/Text.h"

namespace tarnwell::settings {
namespace {

constexpr std::string_view Blanks = " \t";
constexpr std::size_t CarriedDigits = 15;

base::Value ValueOfPlainText(std::string_view text) {
  if (text.empty()) return {};
  if (base::EqualsIgnoringCase(text, "#TRUE#")) return true;
  if (base::EqualsIgnoringCase(text, "#FALSE#")) return false;
  const std::optional<double> number = base::ParseNumber(text);
  if (!number) return std::string(text);
  // More digits than a record can carry would change the number each time it is written back.
  if (text.size() <= CarriedDigits) return *number;
  return base::ParseNumber(base::SpellNumber(*number)).value_or(*number);
}

}  // namespace

bool RecordReader::Read(SettingRecord& record) {
  record = {};
  if (AtEnd()) return false;
  record.Key = ReadField().Text;
  for (base::Value& value : record.Fields) {
    const Field field = ReadField();
    value = field.IsQuoted ? base::Value(std::string(field.Text)) : ValueOfPlainText(field.Text);
  }
  return true;
}

// At the end of the content an empty field, without quotes.
RecordReader::Field RecordReader::ReadField() {
  SkipBlanks();
  const bool isQuoted = content_.substr(position_).starts_with('"');
  if (isQuoted) ++position_;
  const std::size_t end =
      std::min(content_.find_first_of(isQuoted ? "\"\r\n" : ",\r\n", position_), content_.size());
  std::string_view text = content_.substr(position_, end - position_);
  position_ = end;
  if (!isQuoted) {
    text = text.substr(0, text.find_last_not_of(Blanks) + 1);  // npos + 1 is 0
  } else if (content_.substr(end).starts_with('"')) {
    ++position_;
    SkipBlanks();
  }
  SkipDelimiter();
  return {text, isQuoted};
}

void RecordReader::SkipBlanks() {
  position_ = std::min(content_.find_first_not_of(Blanks, position_), content_.size());
}

void RecordReader::SkipDelimiter() {
  const std::string_view rest = content_.substr(position_);
  if (rest.starts_with("\r\n")) {
    position_ += 2;
  } else if (rest.starts_with(',') || rest.starts_with('\r') || rest.starts_with('\n')) {
    position_ += 1;
  }
}

}  // namespace tarnwell::settings
