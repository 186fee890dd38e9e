#include "platform/linux/menu/LinkItems.h"

#include <unistd.h>

#include <climits>
#include <utility>

#include "base/PathSyntax.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"
#include "platform/linux/posix/TwinName.h"

namespace tarnwell::platform {
namespace {

constexpr unsigned lastTwin = 999'999;

// Gives the name of the link.
ErrorNumber LinkTo(int folder, const std::string& name, std::string& link) {
  struct statx found;
  if (const ErrorNumber error = LookAt(folder, name.c_str(), found); error != NoError) return error;
  const std::string wanted = "Link to " + name;
  const TwinParts parts = SplitTwinName(wanted, S_ISDIR(found.stx_mode));
  ErrorNumber error = EEXIST;
  link = wanted;
  if (link.size() <= NAME_MAX) error = ErrorOf(symlinkat(name.c_str(), folder, link.c_str()));
  for (unsigned number = parts.Number + 1; error == EEXIST && number <= lastTwin; ++number) {
    link = MakeTwinName(parts, number, NAME_MAX);
    error = ErrorOf(symlinkat(name.c_str(), folder, link.c_str()));
  }
  return error;
}

}  // namespace

std::vector<LinkOutcome> LinkItems(const std::string& folder,
                                   const std::vector<std::string>& names) {
  const base::PathSyntax& syntax = base::PathSyntax::Posix();
  Descriptor opened;
  ErrorNumber unopened = NoError;
  std::string place;
  std::vector<LinkOutcome> outcomes;
  outcomes.reserve(names.size());
  for (const std::string& name : names) {
    const std::string path = syntax.Join(folder, name);
    if (std::string parent = syntax.GetFolderPath(path); parent != place) {
      place = std::move(parent);
      opened = OpenPath(place, O_PATH | O_DIRECTORY);
      unopened = opened ? NoError : errno;
    }
    std::string link;
    const ErrorNumber error =
        opened ? LinkTo(opened.Get(), std::string(syntax.LastComponent(path)), link) : unopened;
    outcomes.push_back({.Item = path,
                        .Link = error == NoError ? syntax.Join(place, link) : "",
                        .Status = SystemError(error)});
  }
  return outcomes;
}

}  // namespace tarnwell::platform
