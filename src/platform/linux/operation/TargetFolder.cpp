#include "platform/linux/operation/TargetFolder.h"

#include <cerrno>

namespace tarnwell::platform {

std::optional<ErrorNumber> OpenOrMakePlace(OperationContext& context, const std::string& path,
                                           OpenPlace& place) {
  const ErrorNumber error = OpenPlaceAt(path, place);
  if (error != ENOENT) return error;
  if (!context.MakesFolder(path)) return {};
  const ErrorNumber made = MakeFolders(path);
  return made == NoError ? OpenPlaceAt(path, place) : made;
}

}  // namespace tarnwell::platform
