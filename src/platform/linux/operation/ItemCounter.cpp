#include "platform/linux/operation/ItemCounter.h"

#include <utility>

#include "platform/GuardedCall.h"
#include "platform/linux/files/MeasureFolder.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/ReachedPath.h"

namespace tarnwell::platform {

void ItemCounter::Start(std::vector<std::string> paths) {
  thread_ = std::jthread([this, paths = std::move(paths)](const std::stop_token& stop) {
    GuardedCall([&] { Count(stop, paths); });
    isDone_ = true;
  });
}

void ItemCounter::Count(const std::stop_token& stop, const std::vector<std::string>& paths) {
  std::uint64_t bytes = 0;
  std::uint64_t items = 0;
  CountedFiles counted;
  for (const std::string& path : paths) {
    if (stop.stop_requested()) return;
    const ReachedPath reached(path);
    struct statx found;
    if (reached.Error() != NoError || LookAt(reached.Folder(), reached.Rest(), found) != NoError)
      continue;
    ++items;
    if (S_ISREG(found.stx_mode) && (found.stx_nlink < 2 || counted.Add(FileIdentityOf(found)))) {
      bytes += found.stx_size;
    }
    const auto publish = [&](const FolderTotal& total) {
      bytes_ = bytes + total.Bytes - total.RepeatedBytes;
      items_ = items + total.Files + total.Folders;
      return !stop.stop_requested();
    };
    FolderTotal total;
    total.Counted = &counted;
    if (S_ISDIR(found.stx_mode)) MeasureFolder(path, publish, total);
    publish(total);
    bytes += total.Bytes - total.RepeatedBytes;
    items += total.Files + total.Folders;
  }
}

void ItemCounter::AddTo(OperationProgress& progress) const {
  progress.IsCounting = !isDone_;
  progress.BytesTotal += bytes_;
  progress.ItemsTotal += items_;
}

}  // namespace tarnwell::platform
