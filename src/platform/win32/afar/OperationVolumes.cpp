#include "platform/win32/afar/OperationVolumes.h"

#include "platform/afar/RequestVolumes.h"
#include "platform/win32/files/ItemHandle.h"

namespace tarnwell::platform {

std::vector<std::string> VolumesOf(const OperationRequest& request, const FarPlaces* places) {
  return VolumesOf(request, places, [](const std::string& folder) -> std::string {
    const Handle opened = OpenItem(folder, true);
    return opened ? std::to_string(IdentityOf(opened.Get()).Volume) : std::string();
  });
}

}  // namespace tarnwell::platform
