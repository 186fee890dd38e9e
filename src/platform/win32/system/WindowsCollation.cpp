#include "platform/win32/system/WindowsCollation.h"

#include "base/Text.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {
namespace {

// Hyphen and apostrophe are signs like others: by themselves they count less than all letters.
constexpr DWORD KeyFlags = LCMAP_SORTKEY | SORT_STRINGSORT;

}  // namespace

WindowsCollation::WindowsCollation(std::string_view locale) : locale_(Wide(locale)) {
  FillTable(!WindowsCollation::SystemKey("a").empty());
}

std::string WindowsCollation::SystemKey(const std::string& text) const {
  const wchar_t* const locale = locale_.empty() ? LOCALE_NAME_USER_DEFAULT : locale_.c_str();
  const std::wstring wide = Wide(text);
  const auto make = [&](std::string& key) {  // its length counts in bytes
    return LCMapStringEx(locale, KeyFlags, wide.data(), static_cast<int>(wide.size()),
                         reinterpret_cast<wchar_t*>(key.data()), static_cast<int>(key.size()),
                         nullptr, nullptr, 0);
  };
  std::string key(text.size() * 8 + 64, '\0');
  int length = make(key);
  if (length == 0 && GetLastError() == ERROR_INSUFFICIENT_BUFFER) {
    std::string none;
    key.resize(static_cast<std::size_t>(make(none)));
    length = make(key);
  }
  key.resize(static_cast<std::size_t>(length));
  if (key.ends_with('\0')) key.pop_back();
  return key;
}

bool WindowsCollation::IsLetter(char32_t codePoint) const {
  std::string text;
  base::AppendCodePoint(text, codePoint);
  const std::wstring wide = Wide(text);
  WORD type = 0;
  return wide.size() == 1 && GetStringTypeW(CT_CTYPE1, wide.data(), 1, &type) != FALSE &&
         (type & C1_ALPHA) != 0;
}

}  // namespace tarnwell::platform
