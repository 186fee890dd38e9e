// The files of the skins. There is one for each name, whatever the case of its letters; on a file
// system that has case, and where several files share a name so, the one that is spelled as asked
// for counts, else the first in the order of their bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/FolderStamps.h"

namespace tarnwell::settings {

class SkinFiles {
 public:
  // The folder need not be there.
  SkinFiles(platform::FileSystem& files, const platform::FolderStamps& stamps, std::string folder)
      : files_(files), stamps_(stamps), folder_(std::move(folder)) {}

  // The names, without ending and blanks around, in the order of their letters.
  std::vector<std::string> List() const;

  base::Status Read(const std::string& name, std::string& content) const;
  // Makes or replaces the file in one step, and the folder where it is missing. A link is replaced
  // itself: what it leads to stays.
  base::Status Write(const std::string& name, const std::string& content);
  // A name that another file has gives an error. The letters' case alone may change.
  base::Status Rename(const std::string& name, const std::string& newName);
  base::Status Remove(const std::string& name);

  // Copies of files from and to elsewhere, by their whole paths, unread. An import replaces no
  // skin; an export overwrites what stands there, but for a default skin, and gives no skin a
  // second file.
  base::Status Import(const std::string& path, const std::string& name);
  base::Status Export(const std::string& name, const std::string& path) const;

 private:
  struct Entry {
    std::string Name;  // of the skin
    std::string File;  // its name in the folder
    bool IsLink = false;
  };
  std::vector<Entry> Entries() const;
  std::optional<Entry> Find(std::string_view name) const;
  std::string PathOf(std::string_view file) const { return files_.Syntax().Join(folder_, file); }
  base::Status ReplaceLink(const std::string& path, const std::string& content);

  platform::FileSystem& files_;
  const platform::FolderStamps& stamps_;
  std::string folder_;
};

// Whether the name, in any case of letters, is of one of the skins that come with the program.
bool IsDefaultSkin(std::string_view name);

}  // namespace tarnwell::settings
