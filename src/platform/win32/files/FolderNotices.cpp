#include "platform/win32/files/FolderNotices.h"

#include <cstddef>
#include <utility>

#include "platform/win32/files/ItemHandle.h"

namespace tarnwell::platform {
namespace {

constexpr std::size_t mostNames = 1000;  // reading more of them one by one costs more than all

bool IsFolderThere(const std::string& path) {
  const Handle folder = OpenItem(path, true);
  FILE_BASIC_INFO found;
  return folder &&
         GetFileInformationByHandleEx(folder.Get(), FileBasicInfo, &found, sizeof found) != 0 &&
         (found.FileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}  // namespace

FolderNotices::FolderNotices(std::string folder, FolderWatch::Changed changed)
    : folder_(std::move(folder)), changed_(std::move(changed)) {}

bool FolderNotices::TakeName(std::string name) {
  const std::lock_guard lock(mutex_);
  if (!isEverything_) {
    names_.insert(std::move(name));
    if (names_.size() > mostNames) isEverything_ = true;
  }
  return BeginRun();
}

bool FolderNotices::TakeEverything() {
  const std::lock_guard lock(mutex_);
  isEverything_ = true;
  return BeginRun();
}

bool FolderNotices::BeginRun() {
  return !std::exchange(isRun_, true);
}

void FolderNotices::Tell() {
  if (!isOpen_) return;
  FolderChanges changes;
  {
    const std::lock_guard lock(mutex_);
    isRun_ = false;
    changes.Everything = std::exchange(isEverything_, false);
    const std::set<std::string> names = std::exchange(names_, {});
    if (!changes.Everything) changes.Names.assign(names.begin(), names.end());
  }
  changes.FolderGone = !IsFolderThere(folder_);
  // A copy, since the call may end this object.
  const FolderWatch::Changed changed = changed_;
  changed(changes);
}

}  // namespace tarnwell::platform
