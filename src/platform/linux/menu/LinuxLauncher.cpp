#include "platform/linux/menu/LinuxLauncher.h"

#include <cerrno>
#include <string_view>

#include "base/PathSyntax.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/menu/FileOpener.h"
#include "platform/linux/menu/StartProgram.h"
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

base::Status Start(const std::string& path, const LaunchRequest& request) {
  std::vector<std::string> words{path};
  const base::Status status = AddWords(request.Parameters, words);
  return status ? StartProgram(words, request.Folder, StartIn::Fitting) : status;
}

base::Status OpenFile(const std::string& path, const LaunchRequest& request) {
  Opener opener;
  base::Status found = FindOpener(path, opener);
  if (opener.Kind == OpenerKind::Entry) return Launch(opener.Entry.get(), {});
  if (!request.Parameters.empty()) return Start(path, request);
  if (!found) return found;
  if (opener.Kind == OpenerKind::Program) return Start(path, request);
  return opener.Application ? Launch(opener.Application.get(), {path}) : NoApplication(opener.Type);
}

}  // namespace

base::Status LinuxLauncher::Execute(const LaunchRequest& request) {
  const LinuxFileSystem files;
  std::string path = request.File;
  if (path.empty()) return SystemError(ENOENT);
  if (!path.starts_with('/')) {
    const GioText scheme(g_uri_parse_scheme(path.c_str()));
    if (scheme && std::string_view(scheme.get()) != "file") return OpenAddress(path, scheme.get());
    if (scheme) {
      const GioText local(g_filename_from_uri(path.c_str(), nullptr, nullptr));
      if (!local) return SystemError(EINVAL);
      path = local.get();
    }
  }
  if (path.find('/') == std::string::npos) {
    const std::string program = FindProgram(path);
    return program.empty() ? SystemError(ENOENT) : Start(program, request);
  }
  if (!path.starts_with('/') && !request.Folder.empty()) {
    path = files.Syntax().Join(request.Folder, path);
  }
  return files.Exists(path) ? OpenFile(path, request) : SystemError(ENOENT);
}

}  // namespace tarnwell::platform
