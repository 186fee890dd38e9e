#include "platform/linux/OpenItems.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/linux/FileOpener.h"
#include "platform/linux/LinuxLauncher.h"
#include "platform/linux/StartProgram.h"

namespace tarnwell::platform {
namespace {

struct OpenedTogether {
  GioObject<GAppInfo> Application;
  std::vector<std::string> Paths;
};

std::string Quoted(const std::string& word) {
  const GioText quoted(g_shell_quote(word.c_str()));
  return quoted.get();
}

}  // namespace

void OpenItems(const std::vector<std::string>& paths, const std::string& folder,
               FailureList& failures) {
  std::vector<OpenedTogether> groups;
  for (const std::string& path : paths) {
    Opener opener;
    if (const base::Status found = FindOpener(path, opener); !found) {
      failures.Add(path, found);
    } else if (opener.Kind == OpenerKind::Program) {
      failures.Add(path, StartProgram(path, "", folder));
    } else if (opener.Kind == OpenerKind::Entry) {
      failures.Add(path, Launch(opener.Application.get(), {}));
    } else {
      const auto same = std::ranges::find_if(groups, [&opener](const OpenedTogether& group) {
        return g_app_info_equal(group.Application.get(), opener.Application.get()) != FALSE;
      });
      if (same == groups.end()) {
        groups.push_back({std::move(opener.Application), {path}});
      } else {
        same->Paths.push_back(path);
      }
    }
  }
  for (const OpenedTogether& group : groups) {
    const base::Status status = Launch(group.Application.get(), group.Paths);
    for (const std::string& path : group.Paths) failures.Add(path, status);
  }
}

base::Status OpenWithCommand(const std::string& command, const std::vector<std::string>& paths,
                             const std::string& folder) {
  int count = 0;
  char** parsed = nullptr;
  GioError error;
  if (g_shell_parse_argv(command.c_str(), &count, &parsed, error.Place()) == FALSE) {
    return {EINVAL, error.Status().Reason};
  }
  LaunchRequest request{.File = parsed[0], .Parameters = {}, .Folder = folder};
  for (int at = 1; at < count; ++at) request.Parameters += Quoted(parsed[at]) + " ";
  g_strfreev(parsed);
  for (const std::string& path : paths) request.Parameters += Quoted(path) + " ";
  return LinuxLauncher().Execute(request);
}

}  // namespace tarnwell::platform
