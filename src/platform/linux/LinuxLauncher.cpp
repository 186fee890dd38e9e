#include "platform/linux/LinuxLauncher.h"

#include <gio/gdesktopappinfo.h>

#include <cerrno>
#include <string_view>

#include "base/PathSyntax.h"
#include "platform/linux/GioObject.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/linux/StartProgram.h"
#include "platform/linux/SystemError.h"

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

base::Status OpenWith(GAppInfo* application, GFile* file) {
  GList files{file, nullptr, nullptr};
  GioError error;
  const gboolean done =
      g_app_info_launch(application, file != nullptr ? &files : nullptr, nullptr, error.Place());
  return done != FALSE ? base::Status() : error.Status();
}

base::Status OpenFile(const std::string& path, const LaunchRequest& request) {
  const GioObject<GFile> file(g_file_new_for_path(path.c_str()));
  GioError error;
  const GioObject<GFileInfo> info(
      g_file_query_info(file.get(),
                        G_FILE_ATTRIBUTE_STANDARD_TYPE "," G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE
                                                       "," G_FILE_ATTRIBUTE_ACCESS_CAN_EXECUTE,
                        G_FILE_QUERY_INFO_NONE, nullptr, error.Place()));
  if (!info) return error.Status();
  const bool isProgram =
      g_file_info_get_file_type(info.get()) == G_FILE_TYPE_REGULAR &&
      g_file_info_get_attribute_boolean(info.get(), G_FILE_ATTRIBUTE_ACCESS_CAN_EXECUTE) != FALSE;
  const char* const type = g_file_info_get_content_type(info.get());
  if (type == nullptr) return {ENOENT, "The kind of this file is not known"};

  // An entry may start anything; the right to be executed tells that the user wants that.
  if (isProgram && std::string_view(type) == "application/x-desktop") {
    const GioObject<GDesktopAppInfo> entry(g_desktop_app_info_new_from_filename(path.c_str()));
    if (entry) return OpenWith(G_APP_INFO(entry.get()), nullptr);
  }
  if (!request.Parameters.empty()) return StartProgram(path, request.Parameters, request.Folder);
  const GioObject<GAppInfo> application(g_app_info_get_default_for_type(type, FALSE));
  if (application) return OpenWith(application.get(), file.get());
  if (isProgram) return StartProgram(path, "", request.Folder);
  return {ENOENT, "No application is registered for this kind of file (" + std::string(type) + ")"};
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
    const GioText program(g_find_program_in_path(path.c_str()));
    if (program) return StartProgram(program.get(), request.Parameters, request.Folder);
  }
  if (!path.starts_with('/') && !request.Folder.empty()) {
    path = files.Syntax().Join(request.Folder, path);
  }
  return files.Exists(path) ? OpenFile(path, request) : SystemError(ENOENT);
}

}  // namespace tarnwell::platform
