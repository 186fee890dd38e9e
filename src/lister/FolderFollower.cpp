#include "lister/FolderFollower.h"

#include <algorithm>
#include <set>

namespace tarnwell::lister {

void FolderFollower::Follow(const std::string& folder) {
  std::erase_if(entries_, [&](const auto& entry) { return entry.first != folder; });
  if (!folder.empty()) Add(folder);
}

void FolderFollower::Add(const std::string& folder) {
  const auto known = entries_.find(folder);
  if (known == entries_.end() && entries_.size() >= Most) return;
  Entry& entry = known != entries_.end() ? known->second : entries_[folder];
  entry.Stamp = stamp_(folder);
  Watch(folder, entry);
}

void FolderFollower::KeepOnly(const std::vector<std::string>& folders) {
  const std::size_t count = std::min(folders.size(), Most);
  const std::set<std::string> wanted(folders.begin(),
                                     folders.begin() + static_cast<std::ptrdiff_t>(count));
  std::erase_if(entries_, [&](const auto& entry) { return !wanted.contains(entry.first); });
  for (const std::string& folder : wanted) {
    if (!entries_.contains(folder)) Add(folder);
  }
}

bool FolderFollower::Follows(const std::string& folder) const {
  const auto entry = entries_.find(folder);
  return entry != entries_.end() && entry->second.Watching;
}

void FolderFollower::Stop() {
  stopped_ = true;
  for (auto& [folder, entry] : entries_) Watch(folder, entry);
}

void FolderFollower::Start() {
  if (!stopped_) return;
  stopped_ = false;
  for (auto& [folder, entry] : entries_) Watch(folder, entry);
}

void FolderFollower::Resume() {
  if (!stopped_) return;
  Start();
  std::vector<std::string> changed;
  for (const auto& [folder, entry] : entries_) {
    if (stamp_(folder) != entry.Stamp) changed.push_back(folder);
  }
  for (const std::string& folder : changed) {
    Notice(folder, {.Names = {}, .Everything = true, .FolderGone = stamp_(folder) == 0});
  }
}

void FolderFollower::Watch(const std::string& folder, Entry& entry) {
  entry.Watching.reset();
  if (stopped_) return;
  entry.Watching = watches_.Start(
      folder, [this, folder](const platform::FolderChanges& changes) { Notice(folder, changes); });
}

void FolderFollower::Notice(const std::string& folder, const platform::FolderChanges& changes) {
  if (entries_.contains(folder)) changed_(folder, changes);
}

}  // namespace tarnwell::lister
