#include "platform/linux/trash/MeasureTrash.h"

#include <chrono>
#include <utility>

#include "platform/linux/files/MeasureFolder.h"

namespace tarnwell::platform {
namespace {

constexpr std::chrono::milliseconds handOverInterval(200);

}  // namespace

void MeasureTrash(const TrashPath& path, const std::vector<TrashTable::Unmeasured>& folders,
                  const std::function<bool()>& goesOn,
                  const std::function<void(std::vector<TrashEntry>)>& take) {
  base::Status status;
  const OpenTrash trash = OpenTrash::Of(path, status);
  if (!trash.Files) return;
  TrashReader reader(path, trash);
  KeptSizes measured;
  std::vector<TrashEntry> entries;
  auto handedOver = std::chrono::steady_clock::now();
  for (const auto& [key, noteTime] : folders) {
    Descriptor folder(
        openat(trash.Files.Get(), key.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    FolderTotal total;
    if (!folder || !MeasureFolder(
                       std::move(folder), [&](const FolderTotal&) { return goesOn(); }, total)) {
      continue;
    }
    if (!goesOn()) break;
    TrashEntry entry = reader.Read(key);
    if (!entry.IsThere || entry.Item.Kind != ItemKind::Folder) continue;
    entry.Item.Size = total.OnDisk + total.FoldersOnDisk;
    entry.Item.IsSizeKnown = true;
    const bool isKept = noteTime != 0 && noteTime == entry.NoteTime && total.Unreadable == 0;
    if (isKept) measured[key] = {entry.Item.Size, noteTime};
    entries.push_back(std::move(entry));
    const auto now = std::chrono::steady_clock::now();
    if (now - handedOver < handOverInterval) continue;
    take(std::exchange(entries, {}));
    handedOver = now;
  }
  take(std::move(entries));
  if (measured.empty()) return;
  ChangeSizesOf(trash, [&](KeptSizes& sizes) {
    for (const auto& [name, kept] : measured) sizes[name] = kept;
  });
}

}  // namespace tarnwell::platform
