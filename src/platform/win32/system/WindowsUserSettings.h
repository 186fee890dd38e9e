// Settings of this user and this program in the registry.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/UserSettings.h"

namespace tarnwell::platform {

// Below HKEY_CURRENT_USER a key for each section: numbers are of the type REG_DWORD, rows of texts
// REG_MULTI_SZ. Each value is read anew. Keys are made when the first value is written there.
class WindowsUserSettings : public UserSettings {
 public:
  explicit WindowsUserSettings(std::string_view key = R"(Software\Tarnwell)");

  int ReadNumber(const std::string& section, const std::string& name, int usual) const override;
  base::Status WriteNumber(const std::string& section, const std::string& name, int value) override;
  std::vector<std::string> ReadTexts(const std::string& section,
                                     const std::string& name) const override;
  base::Status WriteTexts(const std::string& section, const std::string& name,
                          const std::vector<std::string>& texts) override;

 private:
  std::wstring KeyOf(const std::string& section) const;
  base::Status Write(const std::string& section, const std::string& name, unsigned long type,
                     const void* data, std::size_t bytes) const;
  base::Status Forget(const std::string& section, const std::string& name) const;
  base::Status Outcome(const std::string& section, long error) const;

  std::wstring key_;
};

}  // namespace tarnwell::platform
