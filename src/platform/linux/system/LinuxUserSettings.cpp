#include "platform/linux/system/LinuxUserSettings.h"

#include <cerrno>
#include <cstdlib>
#include <memory>

#include "platform/linux/files/HomeFolder.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/posix/GioObject.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

struct KeyFileFree {
  void operator()(GKeyFile* file) const { g_key_file_free(file); }
};
using KeyFile = std::unique_ptr<GKeyFile, KeyFileFree>;

constexpr int MostDamaged = 100;  // files that are set aside

// False where the text is no such file; what it says up to there is in `file` all the same.
bool Parse(const std::string& text, GKeyFile* file) {
  const auto all =
      static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
  return text.empty() ||
         g_key_file_load_from_data(file, text.data(), text.size(), all, nullptr) != FALSE;
}

base::Status MoveAside(const std::string& path) {
  LinuxFileSystem files;
  base::Status status;
  for (int number = 1; number <= MostDamaged; ++number) {
    const std::string aside = path + ".unread" + (number == 1 ? "" : std::to_string(number));
    status = files.Rename(path, aside);
    if (status || !files.Exists(aside)) break;
  }
  return status;
}

base::Status WriteText(const std::string& path, const std::string& text) {
  const std::string folder = LinuxFileSystem().Syntax().ParentOf(path);
  if (g_mkdir_with_parents(folder.c_str(), 0700) != 0) return SystemError(errno);
  return LinuxFileSystem().WriteFile(path, text);
}

}  // namespace

std::string LinuxUserSettings::UsualPath() {
  const char* const folder = std::getenv("XDG_CONFIG_HOME");
  // A relative one is to be taken for none, by the rules of the variable.
  if (folder != nullptr && *folder == '/') return std::string(folder) + "/tarnwell/tarnwell.conf";
  const std::string home = FindHomeFolder();
  return home.empty() ? home : home + "/.config/tarnwell/tarnwell.conf";
}

int LinuxUserSettings::ReadNumber(const std::string& section, const std::string& name,
                                  int usual) const {
  std::string text;
  if (!LinuxFileSystem().ReadFile(path_, text)) return usual;
  const KeyFile file(g_key_file_new());
  Parse(text, file.get());
  GioError error;
  const int value =
      g_key_file_get_integer(file.get(), section.c_str(), name.c_str(), error.Place());
  return *error.Place() == nullptr ? value : usual;
}

std::vector<std::string> LinuxUserSettings::ReadTexts(const std::string& section,
                                                      const std::string& name) const {
  std::vector<std::string> texts;
  std::string text;
  if (!LinuxFileSystem().ReadFile(path_, text)) return texts;
  const KeyFile file(g_key_file_new());
  Parse(text, file.get());
  gsize count = 0;
  char** const found =
      g_key_file_get_string_list(file.get(), section.c_str(), name.c_str(), &count, nullptr);
  if (found != nullptr) texts.assign(found, found + count);
  g_strfreev(found);
  return texts;
}

base::Status LinuxUserSettings::WriteNumber(const std::string& section, const std::string& name,
                                            int value) {
  return Rewrite(
      [&](GKeyFile* file) { g_key_file_set_integer(file, section.c_str(), name.c_str(), value); });
}

base::Status LinuxUserSettings::WriteTexts(const std::string& section, const std::string& name,
                                           const std::vector<std::string>& texts) {
  std::vector<const char*> all;
  all.reserve(texts.size());
  for (const std::string& each : texts) all.push_back(each.c_str());
  return Rewrite([&](GKeyFile* file) {
    g_key_file_set_string_list(file, section.c_str(), name.c_str(), all.data(), all.size());
  });
}

template <typename Change>
base::Status LinuxUserSettings::Rewrite(const Change& change) {
  if (path_.empty()) return {ENOENT, "There is no home folder to keep settings in"};
  std::string text;
  base::Status status = LinuxFileSystem().ReadFile(path_, text);
  if (status || status.Code == ENOENT) {
    KeyFile file(g_key_file_new());
    status = {};
    if (!Parse(text, file.get())) {
      status = MoveAside(path_);
      file.reset(g_key_file_new());
    }
    change(file.get());
    const GioText whole(g_key_file_to_data(file.get(), nullptr, nullptr));
    if (status) status = WriteText(path_, whole.get());
  }
  if (!status) status.Reason = path_ + ": " + status.Reason;
  return status;
}

}  // namespace tarnwell::platform
