#include "shellmenu/MenuWords.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

#include "base/Caption.h"
#include "base/Number.h"
#include "base/Text.h"
#include "shellmenu/ShellMenuTables.h"

namespace tarnwell::shellmenu {
namespace {

constexpr std::size_t CaptionLimit = 255;  // characters that are looked at
constexpr std::size_t SlotLength = 2;

constexpr std::array<std::string_view, 6> ModeCaptions{"",      "Copy",   "Cut",
                                                       "Paste", "Delete", "Properties"};
constexpr std::array<std::string_view, 2> SlotWords{AddToSlot, ClearSlot};

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

std::string_view CaptionOf(MenuMode mode) {
  return ModeCaptions.at(static_cast<std::size_t>(mode));
}

MenuWord WordOf(std::string_view caption, int shellVerbMode) {
  caption = base::FirstCodePoints(caption.substr(0, caption.find('\0')), CaptionLimit);
  const std::string capitals = base::AsciiUpper(base::WithoutMarks(caption));
  const std::string_view text = Trimmed(capitals);
  const auto* const row = std::ranges::find(WordTable, text, &WordRow::Caption);
  if (row != std::end(WordTable)) {
    const bool invokes =
        row->Verb == Invokes::Always || (row->Verb == Invokes::ByShellVerbs && shellVerbMode != 0);
    return {std::string(row->Word), invokes};
  }
  for (const std::string_view word : SlotWords) {
    if (text.starts_with(word)) {
      return {std::string(word).append(base::LastCodePoints(text, SlotLength)), false};
    }
  }
  if (text.starts_with(UndoPrefix)) return {std::string(UndoWord), false};
  return {std::string(UnknownWord), true};
}

int TakeSlot(std::string& word) {
  for (const std::string_view bare : SlotWords) {
    if (!word.starts_with(bare)) continue;
    const auto number = base::ParseNumber(Trimmed(base::LastCodePoints(word, SlotLength)));
    word = bare;
    return number ? static_cast<int>(*number) - 1 : -1;
  }
  return -1;
}

}  // namespace tarnwell::shellmenu
