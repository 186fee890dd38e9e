#include "platform/linux/files/AsideRecord.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <iterator>

#include "base/ItemList.h"
#include "platform/linux/files/ReplaceFile.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/operation/AsideLines.h"

namespace tarnwell::platform {

AsideRecord::AsideRecord(const std::string& programFolder) : folder_(programFolder) {
  if (!programFolder.empty()) file_ = programFolder + "/" + std::string(AsideRecordName);
}

void AsideRecord::Keep(const std::string& item, const std::string& aside) const {
  Change([&](std::vector<std::string>& paths) { paths.insert(paths.end(), {item, aside}); });
}

void AsideRecord::Drop(const std::string& aside) const {
  Change([&](std::vector<std::string>& paths) {
    for (std::size_t at = 0; at + 1 < paths.size(); at += 2) {
      if (paths[at + 1] != aside) continue;
      const auto pair = paths.begin() + static_cast<std::ptrdiff_t>(at);
      paths.erase(pair, pair + 2);
      return;
    }
  });
}

void AsideRecord::Keep(const std::vector<PlacedItem>& steps) const {
  if (!steps.empty()) Change([&](std::vector<std::string>& paths) { AddSteps(paths, steps); });
}

void AsideRecord::Drop(const std::vector<PlacedItem>& steps) const {
  if (!steps.empty()) Change([&](std::vector<std::string>& paths) { EraseSteps(paths, steps); });
}

// The lock is that of this open folder, so that it holds between threads as well.
void AsideRecord::Change(const std::function<void(std::vector<std::string>& paths)>& change) const {
  if (file_.empty()) return;
  const Descriptor folder(open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  while (folder && flock(folder.Get(), LOCK_EX) != 0 && errno == EINTR) {
  }
  std::ifstream file(file_, std::ios::binary);
  // One that cannot be read holds the items of others, and stays.
  if (!file && errno != ENOENT) return;
  const std::string before{std::istreambuf_iterator<char>(file), {}};
  std::vector<std::string> paths;
  for (const std::string_view path : base::ItemList(before)) paths.emplace_back(path);
  change(paths);
  if (paths.empty()) {
    unlink(file_.c_str());
  } else {
    ReplaceFile(file_, base::ItemList::TextOf(paths));
  }
}

}  // namespace tarnwell::platform
