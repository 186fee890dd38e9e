// Follows folders of a list on disk, with a bracket in which it rests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/FolderWatch.h"

namespace tarnwell::lister {

class FolderFollower {
 public:
  using Changed =
      std::function<void(const std::string& folder, const platform::FolderChanges& changes)>;
  // No more folders than this: watches are a scarce good.
  static constexpr std::size_t Most = 128;

  // Another number after items of the folder came, went or got another name; 0 for one that is
  // gone.
  using Stamp = std::function<std::int64_t(const std::string& folder)>;

  FolderFollower(platform::FolderWatch& watches, Stamp stamp, Changed changed)
      : watches_(watches), stamp_(std::move(stamp)), changed_(std::move(changed)) {}

  // From now on this is the one folder to watch, at once unless stopped. Empty for none. To be
  // called before the folder is read, so that no change falls between the two. Each time anew: the
  // path may lead to another folder by now.
  void Follow(const std::string& folder);
  // The folder is to be watched beside the others, if there is room; also to be called before it is
  // read.
  void Add(const std::string& folder);
  // The first folders of these, as many as there may be, are to be watched and no others.
  void KeepOnly(const std::vector<std::string>& folders);
  bool Follows(const std::string& folder) const;

  // No notices until Start or Resume, whatever is followed meanwhile.
  void Stop();
  // What happened since Stop is known already, and not told.
  void Start();
  // Tells of the folders that are not as they were when they were last to be read: at Stop notices
  // may have been under way.
  void Resume();

 private:
  struct Entry {
    std::unique_ptr<platform::Watch> Watching;  // null while stopped, and where there can be none
    std::int64_t Stamp = 0;                     // before it was last read
  };

  void Watch(const std::string& folder, Entry& entry);
  void Notice(const std::string& folder, const platform::FolderChanges& changes);

  platform::FolderWatch& watches_;
  Stamp stamp_;
  Changed changed_;
  std::map<std::string, Entry> entries_;  // by folder
  bool stopped_ = false;
};

}  // namespace tarnwell::lister
