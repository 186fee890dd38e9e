// The order of letters by the locale of the process.
#pragma once

#include <clocale>
#include <string>

#include "platform/SortKeyCollation.h"

namespace tarnwell::platform {

// In locales without rules of their own, or that are no UTF-8, the weights are the bytes.
class LinuxCollation : public SortKeyCollation {
 public:
  // Takes a locale's name; the empty one means the user's choice. An unknown one has no rules.
  explicit LinuxCollation(const char* locale = "");
  LinuxCollation(const LinuxCollation&) = delete;
  LinuxCollation& operator=(const LinuxCollation&) = delete;
  ~LinuxCollation() override;

 private:
  std::string SystemKey(const std::string& text) const override;
  bool IsLetter(char32_t codePoint) const override;

  locale_t locale_ = nullptr;
};

}  // namespace tarnwell::platform
