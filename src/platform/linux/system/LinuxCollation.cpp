#include "platform/linux/system/LinuxCollation.h"

#include <langinfo.h>

#include <cstring>
#include <cwctype>

namespace tarnwell::platform {

LinuxCollation::LinuxCollation(const char* locale)
    : locale_(newlocale(LC_COLLATE_MASK | LC_CTYPE_MASK, locale, nullptr)) {
  const bool hasRules = locale_ != nullptr &&
                        std::strcmp(nl_langinfo_l(CODESET, locale_), "UTF-8") == 0 &&
                        LinuxCollation::SystemKey("a").find(LevelEnd) != std::string::npos;
  FillTable(hasRules);
}

LinuxCollation::~LinuxCollation() {
  if (locale_ != nullptr) freelocale(locale_);
}

std::string LinuxCollation::SystemKey(const std::string& text) const {
  std::string key(text.size() * 8 + 64, '\0');
  std::size_t length = strxfrm_l(key.data(), text.c_str(), key.size(), locale_);
  if (length >= key.size()) {
    key.resize(length + 1);
    length = strxfrm_l(key.data(), text.c_str(), key.size(), locale_);
  }
  key.resize(length);
  return key;
}

bool LinuxCollation::IsLetter(char32_t codePoint) const {
  return iswalpha_l(static_cast<wint_t>(codePoint), locale_) != 0;
}

}  // namespace tarnwell::platform
