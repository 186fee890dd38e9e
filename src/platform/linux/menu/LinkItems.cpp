#include "platform/linux/menu/LinkItems.h"

#include <unistd.h>

#include <climits>

#include "base/PathSyntax.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"
#include "platform/linux/posix/TwinName.h"

namespace tarnwell::platform {
namespace {

constexpr unsigned lastTwin = 999'999;

ErrorNumber LinkTo(int folder, const std::string& name) {
  struct statx found;
  if (const ErrorNumber error = LookAt(folder, name.c_str(), found); error != NoError) return error;
  const std::string wanted = "Link to " + name;
  const TwinParts parts = SplitTwinName(wanted, S_ISDIR(found.stx_mode));
  ErrorNumber error = EEXIST;
  if (wanted.size() <= NAME_MAX) {
    error = ErrorOf(symlinkat(name.c_str(), folder, wanted.c_str()));
  }
  for (unsigned number = parts.Number + 1; error == EEXIST && number <= lastTwin; ++number) {
    const std::string twin = MakeTwinName(parts, number, NAME_MAX);
    error = ErrorOf(symlinkat(name.c_str(), folder, twin.c_str()));
  }
  return error;
}

}  // namespace

std::vector<std::pair<std::string, base::Status>> LinkItems(const std::string& folder,
                                                            const std::vector<std::string>& names) {
  const Descriptor opened = OpenPath(folder, O_PATH | O_DIRECTORY);
  const ErrorNumber error = errno;
  std::vector<std::pair<std::string, base::Status>> outcomes;
  outcomes.reserve(names.size());
  for (const std::string& name : names) {
    outcomes.emplace_back(base::PathSyntax::Posix().Join(folder, name),
                          SystemError(opened ? LinkTo(opened.Get(), name) : error));
  }
  return outcomes;
}

}  // namespace tarnwell::platform
