#include "platform/linux/afar/OperationVolumes.h"

#include <set>
#include <unordered_set>

#include "base/ItemList.h"
#include "base/PathSyntax.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/ReachedPath.h"

namespace tarnwell::platform {
namespace {

const base::PathSyntax& VolumeSyntax() {
  return base::PathSyntax::Posix();
}

std::string VolumeAt(std::string folder, const FarPlaces* places) {
  if (places != nullptr) {
    if (const auto place = places->Find(folder)) return place->Key;
  }
  for (;;) {
    const Descriptor opened = OpenPath(folder, O_PATH | O_DIRECTORY);
    struct statx found;
    if (opened && LookAt(opened.Get(), "", found) == NoError) {
      return std::to_string(found.stx_dev_major) + ":" + std::to_string(found.stx_dev_minor);
    }
    std::string above = VolumeSyntax().ParentOf(folder);
    if (above.empty() || above == folder) return {};
    folder = std::move(above);
  }
}

}  // namespace

std::vector<std::string> VolumesOf(const OperationRequest& request, const FarPlaces* places) {
  std::unordered_set<std::string> folders;
  std::string last;
  const auto addFolderOf = [&](std::string_view item) {
    std::string folder = VolumeSyntax().ParentOf(item);
    if (folder != last) folders.insert(folder);
    last = std::move(folder);
  };
  for (const std::string_view item : base::ItemList(request.Items)) addFolderOf(item);
  const bool areOwn = (request.Flags & (OwnTargets | FromTrash)) != 0;
  const bool isTarget = !areOwn && request.Function != FileFunction::Rename;
  for (const std::string_view target : base::ItemList(request.Destination)) {
    isTarget ? static_cast<void>(folders.emplace(target)) : addFolderOf(target);
    if (isTarget) break;
  }
  std::set<std::string> volumes;
  for (const std::string& folder : folders) volumes.insert(VolumeAt(folder, places));
  volumes.erase(std::string());
  return {volumes.begin(), volumes.end()};
}

}  // namespace tarnwell::platform
