// Follows folders of a list on disk, with a bracket in which it rests.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/FolderWatch.h"

namespace tarnwell::lister {

class FolderFollower {
 public:
  // The folder is empty, and the changes are Everything, where any of the folders may have changed.
  using Changed =
      std::function<void(const std::string& folder, const platform::FolderChanges& changes)>;
  // No more folders than this: watches are a scarce good.
  static constexpr std::size_t Most = 128;

  FolderFollower(platform::FolderWatch& watches, Changed changed)
      : watches_(watches), changed_(std::move(changed)) {}

  // From now on this is the one folder to watch, at once unless stopped. Empty for none. To be
  // called before the folder is read, so that no change falls between the two.
  void Follow(const std::string& folder);
  // The folder is to be watched beside the others, if there is room; also to be called before it is
  // read.
  void Add(const std::string& folder);
  // The first folders of these, as many as there may be, are to be watched and no others.
  void KeepOnly(const std::vector<std::string>& folders);
  bool Follows(const std::string& folder) const;

  // No notices until Resume, whatever is followed meanwhile.
  void Stop();
  // Tells by an empty folder that something may have been missed, unless CaughtUp or Follow said
  // otherwise.
  void Resume();
  bool IsStopped() const { return stopped_; }
  // What is followed has been read since Stop.
  void CaughtUp() { missed_ = false; }

 private:
  struct Entry {
    std::unique_ptr<platform::Watch> Watching;  // null while stopped, and where there can be none
    bool IsWorn =
        false;  // the folder may have gone and come again: to be renewed with the next read
  };

  void Watch(const std::string& folder, Entry& entry);
  void Notice(const std::string& folder, const platform::FolderChanges& changes);

  platform::FolderWatch& watches_;
  Changed changed_;
  std::map<std::string, Entry> entries_;  // by folder
  bool stopped_ = false;
  bool missed_ = false;  // changes, since they were not watched for
};

}  // namespace tarnwell::lister
