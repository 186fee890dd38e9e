#include "platform/win32/system/WindowsUserSettings.h"

#include "platform/win32/api/SystemError.h"
#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {

WindowsUserSettings::WindowsUserSettings(std::string_view key) : key_(Wide(key)) {}

std::wstring WindowsUserSettings::KeyOf(const std::string& section) const {
  return key_ + L'\\' + Wide(section);
}

int WindowsUserSettings::ReadNumber(const std::string& section, const std::string& name,
                                    int usual) const {
  DWORD value = 0;
  DWORD size = sizeof value;
  const LSTATUS error = RegGetValueW(HKEY_CURRENT_USER, KeyOf(section).c_str(), Wide(name).c_str(),
                                     RRF_RT_REG_DWORD, nullptr, &value, &size);
  return error == ERROR_SUCCESS ? static_cast<int>(value) : usual;
}

std::vector<std::string> WindowsUserSettings::ReadTexts(const std::string& section,
                                                        const std::string& name) const {
  const auto read = [&](void* data, DWORD& size) {
    return RegGetValueW(HKEY_CURRENT_USER, KeyOf(section).c_str(), Wide(name).c_str(),
                        RRF_RT_REG_MULTI_SZ, nullptr, data, &size);
  };
  std::wstring all;
  DWORD size = 0;  // in bytes
  LSTATUS error = read(nullptr, size);
  // Another program may write more meanwhile.
  for (bool isKnown = error == ERROR_SUCCESS; isKnown; isKnown = error == ERROR_MORE_DATA) {
    all.resize((size + 1) / sizeof(wchar_t));  // what others have put there may end in half a unit
    error = read(all.data(), size);
  }
  if (error != ERROR_SUCCESS) return {};
  all.resize(size / sizeof(wchar_t));
  std::vector<std::string> texts;
  // Each text ends with a NUL, and the row with another; an empty text is no end.
  for (std::size_t start = 0, end = 0; start + 1 < all.size(); start = end + 1) {
    end = all.find(L'\0', start);
    if (end == std::wstring::npos) break;
    texts.push_back(Narrow(std::wstring_view(all).substr(start, end - start)));
  }
  return texts;
}

base::Status WindowsUserSettings::WriteNumber(const std::string& section, const std::string& name,
                                              int value) {
  return Write(section, name, REG_DWORD, &value, sizeof value);
}

base::Status WindowsUserSettings::WriteTexts(const std::string& section, const std::string& name,
                                             const std::vector<std::string>& texts) {
  if (texts.empty()) return Forget(section, name);
  std::wstring all;
  for (const std::string& text : texts) all.append(Wide(text)).push_back(L'\0');
  all.push_back(L'\0');
  return Write(section, name, REG_MULTI_SZ, all.data(), all.size() * sizeof(wchar_t));
}

base::Status WindowsUserSettings::Write(const std::string& section, const std::string& name,
                                        unsigned long type, const void* data,
                                        std::size_t bytes) const {
  const LSTATUS error = RegSetKeyValueW(HKEY_CURRENT_USER, KeyOf(section).c_str(),
                                        Wide(name).c_str(), type, data, static_cast<DWORD>(bytes));
  return Outcome(section, error);
}

// A value of that type may not be empty.
base::Status WindowsUserSettings::Forget(const std::string& section,
                                         const std::string& name) const {
  const LSTATUS error =
      RegDeleteKeyValueW(HKEY_CURRENT_USER, KeyOf(section).c_str(), Wide(name).c_str());
  return Outcome(section, error == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : error);
}

base::Status WindowsUserSettings::Outcome(const std::string& section, long error) const {
  base::Status status = SystemError(static_cast<DWORD>(error));
  if (!status) {
    status.Reason = R"(HKEY_CURRENT_USER\)" + Narrow(KeyOf(section)) + ": " + status.Reason;
  }
  return status;
}

}  // namespace tarnwell::platform
