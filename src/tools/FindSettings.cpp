#include "tools/FindSettings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <variant>

namespace tarnwell::tools {
namespace {

struct NumberField {
  int FindSettings::*Member;
  int Count;  // of its values, from 0 on
};

struct KeptField {
  std::string_view Key;
  std::variant<std::string FindSettings::*, bool FindSettings::*, NumberField> Member;
};

constexpr auto KeptFields = std::to_array<KeptField>({
    {"folder", &FindSettings::Folder},
    {"name", &FindSettings::Name},
    {"name-regex", &FindSettings::IsNameRegex},
    {"text", &FindSettings::Text},
    {"text-regex", &FindSettings::IsTextRegex},
    {"match-case", &FindSettings::MatchesCase},
    {"whole-words", &FindSettings::IsWholeWords},
    {"binary", &FindSettings::LooksIntoBinary},
    {"largest", &FindSettings::LargestFile},
    {"largest-unit", NumberField{&FindSettings::LargestFileUnit, FindUnitCount}},
    {"size-from", &FindSettings::SizeFrom},
    {"size-from-unit", NumberField{&FindSettings::SizeFromUnit, FindUnitCount}},
    {"size-to", &FindSettings::SizeTo},
    {"size-to-unit", NumberField{&FindSettings::SizeToUnit, FindUnitCount}},
    {"dates", NumberField{&FindSettings::Dates, FindDatesCount}},
    {"date-from", &FindSettings::DateFrom},
    {"date-to", &FindSettings::DateTo},
    {"files", &FindSettings::FindsFiles},
    {"folders", &FindSettings::FindsFolders},
    {"links", &FindSettings::FindsLinks},
    {"others", &FindSettings::FindsOthers},
    {"depth", NumberField{&FindSettings::Depth, FindDepthCount}},
    {"levels", &FindSettings::Levels},
    {"hidden", &FindSettings::TakesHidden},
    {"volumes", &FindSettings::EntersVolumes},
});

constexpr std::string_view HexDigits = "0123456789ABCDEF";

bool StandsForItself(char letter) {
  return letter > ' ' && letter < '\x7F' && letter != '%' && letter != '&' && letter != '=';
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char letter : text) {
    if (StandsForItself(letter)) {
      escaped += letter;
      continue;
    }
    const auto byte = static_cast<unsigned char>(letter);
    escaped += {'%', HexDigits[byte / 16], HexDigits[byte % 16]};
  }
  return escaped;
}

// False for what Escaped never gives.
bool Unescape(std::string_view escaped, std::string& text) {
  text.clear();
  for (std::size_t at = 0; at < escaped.size(); ++at) {
    if (escaped[at] != '%') {
      if (!StandsForItself(escaped[at])) return false;
      text += escaped[at];
      continue;
    }
    if (at + 2 >= escaped.size()) return false;
    const std::size_t high = HexDigits.find(escaped[++at]), low = HexDigits.find(escaped[++at]);
    if (high == HexDigits.npos || low == HexDigits.npos || high + low == 0) return false;
    text += static_cast<char>(high * 16 + low);
  }
  return true;
}

bool ReadValue(std::string_view value, const NumberField& field, FindSettings& settings) {
  int number = 0;
  const char* const end = value.data() + value.size();
  const auto [stop, error] = std::from_chars(value.data(), end, number);
  if (error != std::errc() || stop != end || number < 0 || number >= field.Count) return false;
  settings.*field.Member = number;
  return true;
}

bool ReadValue(std::string_view value, bool FindSettings::*member, FindSettings& settings) {
  settings.*member = value == "1";
  return value == "1" || value == "0";
}

bool ReadValue(std::string_view value, std::string FindSettings::*member, FindSettings& settings) {
  return Unescape(value, settings.*member);
}

std::string ValueOf(const NumberField& field, const FindSettings& settings) {
  return std::to_string(settings.*field.Member);
}

std::string ValueOf(bool FindSettings::*member, const FindSettings& settings) {
  return settings.*member ? "1" : "0";
}

std::string ValueOf(std::string FindSettings::*member, const FindSettings& settings) {
  return Escaped(settings.*member);
}

}  // namespace

std::string WriteFindSettings(const FindSettings& settings) {
  const FindSettings usual;
  std::string line;
  for (const KeptField& field : KeptFields) {
    std::visit(
        [&](const auto& member) {
          const std::string value = ValueOf(member, settings);
          if (value == ValueOf(member, usual)) return;
          if (!line.empty()) line += '&';
          line.append(field.Key).append("=").append(value);
        },
        field.Member);
  }
  return line;
}

std::optional<FindSettings> ReadFindSettings(std::string_view line) {
  FindSettings settings;
  while (!line.empty()) {
    const std::string_view part = line.substr(0, line.find('&'));
    line.remove_prefix(std::min(part.size() + 1, line.size()));
    const std::size_t sign = part.find('=');
    if (sign == part.npos) return {};
    const auto field = std::ranges::find(KeptFields, part.substr(0, sign), &KeptField::Key);
    if (field == KeptFields.end()) continue;
    const std::string_view value = part.substr(sign + 1);
    const bool isRead = std::visit(
        [&](const auto& member) { return ReadValue(value, member, settings); }, field->Member);
    if (!isRead) return {};
  }
  return settings;
}

}  // namespace tarnwell::tools
