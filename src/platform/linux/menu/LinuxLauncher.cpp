#include "platform/linux/menu/LinuxLauncher.h"

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "base/PathSyntax.h"
#include "base/Text.h"
#include "platform/afar/FarFileSystem.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/menu/FarOpening.h"
#include "platform/linux/menu/TerminalCall.h"
#include "platform/linux/posix/GioObject.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

base::Status OpenAddress(const std::string& address, const char* scheme) {
  const GioObject<GAppInfo> application(g_app_info_get_default_for_uri_scheme(scheme));
  if (!application) {
    return {ENOENT,
            "No application is registered for this kind of address (" + std::string(scheme) + ")"};
  }
  GList addresses{const_cast<char*>(address.c_str()), nullptr, nullptr};
  GioError error;
  const gboolean done =
      g_app_info_launch_uris(application.get(), &addresses, nullptr, error.Place());
  return done != FALSE ? base::Status() : error.Status();
}

// An address is none with "file", which leads to a path.
bool IsAddress(const std::string& file, GioText& scheme) {
  scheme.reset(g_uri_parse_scheme(file.c_str()));
  return scheme != nullptr && std::string_view(scheme.get()) != "file";
}

FarFileSystem FilesBy(const FarCalls& calls) {
  return {std::make_shared<LinuxFileSystem>(), calls};
}

// Also where it may not be read.
bool IsFolder(const FarCalls& calls, const std::string& path) {
  const auto look = [path] {
    std::error_code error;
    return std::filesystem::is_directory(path, error);
  };
  return calls.Get<bool>(path, look, false);
}

base::Status CheckFolder(const FarCalls& calls, const std::string& folder) {
  if (folder.empty() || IsFolder(calls, folder)) return {};
  return {ENOENT, "There is no folder " + base::ForDisplay(folder)};
}

base::Status Start(const FarCalls& calls, const std::string& path, const LaunchRequest& request,
                   const std::vector<std::string>& arguments) {
  std::vector<std::string> words{path};
  words.insert(words.end(), arguments.begin(), arguments.end());
  return StartProgramAt(calls, words, request.Folder, StartIn::Fitting,
                        request.KeepsTerminal ? TerminalEnd::Shell : TerminalEnd::Closes);
}

}  // namespace

base::Status LinuxLauncher::OpenItem(const std::string& path, const LaunchRequest& request,
                                     const std::vector<std::string>& arguments) const {
  const FarFileSystem files = FilesBy(tools_.Calls);
  if (!files.Exists(path)) return SystemError(ENOENT);
  if (IsFolder(tools_.Calls, path)) {
    // As a pane has it, which knows no "..".
    const std::string folder = std::filesystem::path(path).lexically_normal().string();
    tools_.Windows.OpenFolder(folder == "/" ? folder : files.Syntax().RemoveRightSlash(folder));
    return {};
  }
  Opener opener;
  base::Status found = FindOpenerAt(tools_.Calls, path, opener);
  const bool isBareName = request.File.find('/') == std::string::npos;
  if (isBareName && opener.Kind != OpenerKind::Document) return SystemError(ENOENT);
  if (opener.Kind == OpenerKind::Entry) return Launch(opener.Entry.get(), {});
  if (!arguments.empty() && !isBareName) return Start(tools_.Calls, path, request, arguments);
  if (!found) return found;
  if (opener.Kind == OpenerKind::Program) return Start(tools_.Calls, path, request, arguments);
  return opener.Application ? Launch(opener.Application.get(), {path}) : NoApplication(opener.Type);
}

base::Status LinuxLauncher::Execute(const LaunchRequest& request) {
  std::string path = request.File;
  if (path.empty()) return SystemError(ENOENT);
  if (path.find('\0') != std::string::npos) return SystemError(EINVAL);
  std::vector<std::string> arguments;
  base::Status status = AddWords(request.Parameters, arguments);
  if (status) status = CheckFolder(tools_.Calls, request.Folder);
  if (!status) return status;
  if (path.find('/') == std::string::npos) {
    if (const std::string program = FindProgram(path); !program.empty()) {
      return Start(tools_.Calls, program, request, arguments);
    }
  }
  if (!path.starts_with('/')) {
    GioText scheme;
    const std::string item = LinuxFileSystem().Syntax().Join(request.Folder, path);
    if (IsAddress(path, scheme)) {
      status = OpenAddress(path, scheme.get());
      // A file may be called "Re:x" as well.
      if (status.Code != ENOENT || !FilesBy(tools_.Calls).Exists(item)) return status;
      path = item;
    } else if (scheme) {
      const GioText local(g_filename_from_uri(path.c_str(), nullptr, nullptr));
      if (!local) return SystemError(EINVAL);
      path = local.get();
    } else {
      path = item;
    }
  }
  return OpenItem(path, request, arguments);
}

base::Status LinuxLauncher::OpenTerminal(const std::string& folder) {
  const base::Status status = CheckFolder(tools_.Calls, folder);
  return status ? StartProgramAt(tools_.Calls, {UserShell()}, folder, StartIn::Terminal) : status;
}

}  // namespace tarnwell::platform
