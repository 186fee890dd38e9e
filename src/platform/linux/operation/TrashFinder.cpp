#include "platform/linux/operation/TrashFinder.h"

#include <fcntl.h>

#include <algorithm>
#include <utility>

#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/trash/TrashVolumes.h"

namespace tarnwell::platform {
namespace {

std::uint64_t DeviceOf(const struct statx& item) {
  return FileIdentityOf(item).Device;
}

// As GLib numbers them: "a.txt", "a.2.txt", "a.3.txt"; "b", "b.2".
std::string NameInTrash(const std::string& name, unsigned number) {
  if (number == 1) return name;
  const std::size_t dot = std::min(name.find('.'), name.size());
  return name.substr(0, dot) + "." + std::to_string(number) + name.substr(dot);
}

// The folder that the volume of the open one begins with. By the folders themselves: what is
// mounted twice has two tops, and the one above is meant.
std::string TopOf(int folder) {
  constexpr int flags = O_PATH | O_DIRECTORY | O_CLOEXEC;
  Descriptor at(openat(folder, ".", flags));
  struct statx found;
  if (!at || LookAt(at.Get(), "", found) != NoError) return {};
  for (;;) {
    Descriptor above(openat(at.Get(), "..", flags));
    struct statx next;
    if (!above || LookAt(above.Get(), "", next) != NoError) return {};
    const bool isTop = DeviceOf(next) != DeviceOf(found) || IdentityOf(next) == IdentityOf(found);
    if (isTop) return OwnPathOf(at);
    at = std::move(above);
    found = next;
  }
}

}  // namespace

std::vector<TrashFinder::Trash> TrashFinder::TrashesOf(int folder, const struct statx& item) {
  const TrashPlaces places = TrashPlaces::OfProcess();
  std::vector<Trash> trashes;
  const auto add = [&](TrashPath path) {
    base::Status status;
    OpenTrash opened = OpenTrash::Of(path, status);
    struct statx found;
    const bool isThere = status && opened.Files && LookAt(opened.Files.Get(), "", found) == NoError;
    if (!isThere || DeviceOf(found) != DeviceOf(item)) return;
    trashes.push_back({std::move(path), std::move(opened)});
  };
  if (!places.HomeTrash.empty()) add(TrashPath(places.HomeTrash, places.User));
  if (const std::string top = TopOf(folder); !top.empty()) {
    add(TrashPath::SharedOn(top, places.User));
    add(TrashPath::OwnOn(top, places.User));
  }
  return trashes;
}

std::optional<DoneItem> TrashFinder::FindIn(const Trash& trash, const std::string& path,
                                            const struct statx& before) {
  const std::string first = path.substr(path.rfind('/') + 1);
  const int files = trash.Opened.Files.Get();
  struct statx found;
  for (unsigned number = 1;; ++number) {
    const std::string name = NameInTrash(first, number);
    const ErrorNumber error = LookAt(files, name.c_str(), found);
    if (error == NoError && IdentityOf(found) == IdentityOf(before)) {
      return DoneItem{path, trash.Path.PlaceOf(name), FingerprintOf(found, TraitsOf(files))};
    }
    // A note alone takes the name as well.
    const std::string note = name + std::string(NoteEnding);
    const int notes = trash.Opened.Notes.Get();
    if (error != NoError && LookAt(notes, note.c_str(), found) != NoError) return {};
  }
}

std::optional<DoneItem> TrashFinder::Find(int folder, const std::string& path,
                                          const struct statx& before) {
  const auto [at, isNew] = trashes_.try_emplace(DeviceOf(before));
  for (bool isFresh = isNew;; isFresh = true) {
    if (isFresh) at->second = TrashesOf(folder, before);
    for (const Trash& trash : at->second) {
      if (std::optional<DoneItem> found = FindIn(trash, path, before)) return found;
    }
    // It may have been made just now.
    if (isFresh) return {};
  }
}

}  // namespace tarnwell::platform
