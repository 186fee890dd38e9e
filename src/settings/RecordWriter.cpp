#include "settings/RecordWriter.h"

#include <algorithm>
#include <string_view>
#include <type_traits>
#include <variant>

#include "base/Number.h"

namespace tarnwell::settings {
namespace {

bool CanCarry(std::string_view text) {
  return text.find_first_of("\"\r\n") == std::string_view::npos;
}

bool CanCarry(const base::Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  return !text || CanCarry(std::string_view(*text));
}

std::string Quoted(std::string_view text) {
  return std::string("\"").append(text).append("\"");
}

std::string FieldText(const base::Value& value) {
  return std::visit(
      [](const auto& held) -> std::string {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, std::monostate>) {
          return "0";
        } else if constexpr (std::is_same_v<Held, std::string>) {
          return Quoted(held);
        } else if constexpr (std::is_same_v<Held, bool>) {
          return held ? "#TRUE#" : "#FALSE#";
        } else if constexpr (std::is_integral_v<Held>) {
          return std::to_string(held);
        } else {
          return base::SpellNumber(held);
        }
      },
      value);
}

}  // namespace

bool AppendRecord(std::string& text, const SettingRecord& record) {
  const auto canCarryField = [](const base::Value& value) { return CanCarry(value); };
  if (!CanCarry(std::string_view(record.Key)) ||
      !std::all_of(record.Fields.begin(), record.Fields.end(), canCarryField)) {
    return false;
  }
  text += Quoted(record.Key);
  for (const base::Value& value : record.Fields) text.append(",").append(FieldText(value));
  text += "\r\n";
  return true;
}

}  // namespace tarnwell::settings
