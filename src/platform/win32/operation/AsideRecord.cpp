#include "platform/win32/operation/AsideRecord.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>

#include "base/ItemList.h"
#include "base/PathSyntax.h"
#include "platform/operation/AsideLines.h"
#include "platform/win32/api/Handle.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/ReplaceContent.h"

namespace tarnwell::platform {
namespace {

// Of all copies of the program that the user has running.
class RecordLock {
 public:
  RecordLock() : mutex_(CreateMutexW(nullptr, FALSE, L"Local\\TarnwellAside")) {
    if (mutex_) WaitForSingleObject(mutex_.Get(), INFINITE);
  }
  RecordLock(const RecordLock&) = delete;
  RecordLock& operator=(const RecordLock&) = delete;
  ~RecordLock() {
    if (mutex_) ReleaseMutex(mutex_.Get());
  }

 private:
  Handle mutex_;
};

}  // namespace

AsideRecord::AsideRecord(const std::string& programFolder) {
  if (!programFolder.empty()) {
    file_ = base::PathSyntax::Windows().Join(programFolder, AsideRecordName);
  }
}

void AsideRecord::Keep(const std::vector<PlacedItem>& steps) const {
  if (!steps.empty()) Change([&](std::vector<std::string>& paths) { AddSteps(paths, steps); });
}

void AsideRecord::Drop(const std::vector<PlacedItem>& steps) const {
  if (!steps.empty()) Change([&](std::vector<std::string>& paths) { EraseSteps(paths, steps); });
}

void AsideRecord::Change(const std::function<void(std::vector<std::string>& paths)>& change) const {
  if (file_.empty()) return;
  const RecordLock lock;
  std::string before;
  {
    const std::filesystem::path path(LongPath(file_));
    std::ifstream file(path, std::ios::binary);
    // One that cannot be read holds the items of others, and stays.
    if (!file && std::filesystem::exists(path)) return;
    if (file) before.assign(std::istreambuf_iterator<char>(file), {});
  }
  std::vector<std::string> paths;
  for (const std::string_view path : base::ItemList(before)) paths.emplace_back(path);
  change(paths);
  if (paths.empty()) {
    DeleteFileW(LongPath(file_).c_str());
  } else {
    static_cast<void>(ReplaceContent(file_, base::ItemList::TextOf(paths)));
  }
}

}  // namespace tarnwell::platform
