#include "platform/linux/afar/OperationVolumes.h"

#include "platform/afar/RequestVolumes.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/ReachedPath.h"

namespace tarnwell::platform {

std::vector<std::string> VolumesOf(const OperationRequest& request, const FarPlaces* places) {
  return VolumesOf(request, places, [](const std::string& folder) -> std::string {
    const Descriptor opened = OpenPath(folder, O_PATH | O_DIRECTORY);
    struct statx found;
    if (!opened || LookAt(opened.Get(), "", found) != NoError) return {};
    return std::to_string(found.stx_dev_major) + ":" + std::to_string(found.stx_dev_minor);
  });
}

}  // namespace tarnwell::platform
