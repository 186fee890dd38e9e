// Settings of this user and this program in a file of the desktop's settings folder: groups of
// lines "name=value", as the Desktop Entry Specification of freedesktop.org has them.
#pragma once

#include <string>
#include <utility>

#include "platform/UserSettings.h"

namespace tarnwell::platform {

// The file is read anew for each value. It is made when the first is written, with its folder. A
// file that is damaged is not written over: it moves aside as <path>.unread.
class LinuxUserSettings : public UserSettings {
 public:
  explicit LinuxUserSettings(std::string path) : path_(std::move(path)) {}

  // tarnwell/tarnwell.conf in $XDG_CONFIG_HOME, or else in .config of the home folder; empty where
  // there is neither. Nothing is kept then.
  static std::string UsualPath();

  int ReadNumber(const std::string& section, const std::string& name, int usual) const override;
  base::Status WriteNumber(const std::string& section, const std::string& name, int value) override;
  std::vector<std::string> ReadTexts(const std::string& section,
                                     const std::string& name) const override;
  base::Status WriteTexts(const std::string& section, const std::string& name,
                          const std::vector<std::string>& texts) override;

 private:
  // `change` gets what is in the file, as GLib reads it.
  template <typename Change>
  base::Status Rewrite(const Change& change);

  std::string path_;
};

}  // namespace tarnwell::platform
