// The order of letters by the user's language.
#pragma once

#include <string>
#include <string_view>

#include "platform/SortKeyCollation.h"

namespace tarnwell::platform {

class WindowsCollation : public SortKeyCollation {
 public:
  // Takes a locale's name ("da-DK"); the empty one means the user's choice.
  explicit WindowsCollation(std::string_view locale = "");

 private:
  std::string SystemKey(const std::string& text) const override;
  bool IsLetter(char32_t codePoint) const override;

  std::wstring locale_;
};

}  // namespace tarnwell::platform
