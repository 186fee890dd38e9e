#include "platform/linux/files/AsideRecord.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>

#include "base/ItemList.h"
#include "platform/linux/files/ReplaceFile.h"
#include "platform/linux/posix/Descriptor.h"

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
  if (steps.empty()) return;
  Change([&](std::vector<std::string>& paths) {
    for (const PlacedItem& step : steps) paths.insert(paths.end(), {step.From, step.To});
  });
}

void AsideRecord::Drop(const std::vector<PlacedItem>& steps) const {
  if (steps.empty()) return;
  std::vector<std::string> dropped;
  for (const PlacedItem& step : steps) dropped.insert(dropped.end(), {step.From, step.To});
  Change([&](std::vector<std::string>& paths) {
    const auto found = std::search(paths.begin(), paths.end(), dropped.begin(), dropped.end());
    if (found == paths.end()) return;
    paths.erase(found, found + static_cast<std::ptrdiff_t>(dropped.size()));
  });
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
