#include "platform/linux/FileOpener.h"

#include <gio/gdesktopappinfo.h>

#include <cerrno>
#include <string_view>

namespace tarnwell::platform {

base::Status FindOpener(const std::string& path, Opener& opener) {
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
    if (auto* const entry = g_desktop_app_info_new_from_filename(path.c_str())) {
      opener = {OpenerKind::Entry, GioObject<GAppInfo>(G_APP_INFO(entry))};
      return {};
    }
  }
  opener = {OpenerKind::Application,
            GioObject<GAppInfo>(g_app_info_get_default_for_type(type, FALSE))};
  if (opener.Application) return {};
  opener.Kind = OpenerKind::Program;
  if (isProgram) return {};
  return {ENOENT, "No application is registered for this kind of file (" + std::string(type) + ")"};
}

base::Status Launch(GAppInfo* application, const std::vector<std::string>& paths) {
  GList* files = nullptr;
  for (const std::string& path : paths) {
    files = g_list_prepend(files, g_file_new_for_path(path.c_str()));
  }
  files = g_list_reverse(files);
  GioError error;
  const gboolean done = g_app_info_launch(application, files, nullptr, error.Place());
  g_list_free_full(files, g_object_unref);
  return done != FALSE ? base::Status() : error.Status();
}

}  // namespace tarnwell::platform
