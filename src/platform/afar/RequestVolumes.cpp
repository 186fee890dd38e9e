#include "platform/afar/RequestVolumes.h"

#include <set>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "base/ItemList.h"
#include "base/PathSyntax.h"

namespace tarnwell::platform {
namespace {

const base::PathSyntax& VolumeSyntax() {
  return base::PathSyntax::Native();
}

std::unordered_set<std::string> FoldersOf(const OperationRequest& request) {
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
  return folders;
}

}  // namespace

std::vector<std::string> VolumesOf(const OperationRequest& request, const FarPlaces* places,
                                   const std::function<std::string(const std::string&)>& volumeAt) {
  const auto nameOf = [&](std::string folder) {
    if (places != nullptr) {
      if (const auto place = places->Find(folder)) return place->Key;
    }
    for (;;) {
      std::string volume = volumeAt(folder);
      std::string above = VolumeSyntax().ParentOf(folder);
      if (!volume.empty() || above.empty() || above == folder) return volume;
      folder = std::move(above);
    }
  };
  std::set<std::string> volumes;
  for (const std::string& folder : FoldersOf(request)) volumes.insert(nameOf(folder));
  volumes.erase(std::string());
  return {volumes.begin(), volumes.end()};
}

}  // namespace tarnwell::platform
