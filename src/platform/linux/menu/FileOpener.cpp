#include "platform/linux/menu/FileOpener.h"

#include <gio/gdesktopappinfo.h>

#include <cerrno>
#include <memory>
#include <string_view>

#include "platform/linux/menu/ProgramFiles.h"
#include "platform/linux/menu/TerminalCall.h"

namespace tarnwell::platform {
namespace {

constexpr std::string_view entryType = "application/x-desktop";

struct KeyFileUnref {
  void operator()(GKeyFile* file) const { g_key_file_unref(file); }
};

bool StartsInTerminal(GAppInfo* application) {
  return G_IS_DESKTOP_APP_INFO(application) &&
         g_desktop_app_info_get_boolean(G_DESKTOP_APP_INFO(application),
                                        G_KEY_FILE_DESKTOP_KEY_TERMINAL) != FALSE;
}

// The same application, started by way of a terminal call. GLib knows terminals too, but hands them
// the names of files as they are.
base::Status PutInTerminal(GAppInfo* application, GioObject<GAppInfo>& inTerminal) {
  const char* const group = G_KEY_FILE_DESKTOP_GROUP;
  const std::string prefix = TerminalPrefix();
  const char* const file = G_IS_DESKTOP_APP_INFO(application)
                               ? g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(application))
                               : nullptr;
  if (prefix.empty()) return NoTerminal(g_app_info_get_name(application));
  if (file == nullptr) return {ENOENT, "The desktop's entry of the application is gone"};
  const std::unique_ptr<GKeyFile, KeyFileUnref> entry(g_key_file_new());
  GioError error;
  if (g_key_file_load_from_file(entry.get(), file, G_KEY_FILE_KEEP_TRANSLATIONS, error.Place()) ==
      FALSE) {
    return error.Status();
  }
  const GioText command(
      g_key_file_get_string(entry.get(), group, G_KEY_FILE_DESKTOP_KEY_EXEC, error.Place()));
  if (!command) return error.Status();
  g_key_file_set_string(entry.get(), group, G_KEY_FILE_DESKTOP_KEY_EXEC,
                        (prefix + " " + command.get()).c_str());
  for (const char* const key :
       {G_KEY_FILE_DESKTOP_KEY_TERMINAL, G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE}) {
    g_key_file_set_boolean(entry.get(), group, key, FALSE);
  }
  auto* const made = g_desktop_app_info_new_from_keyfile(entry.get());
  if (made == nullptr) return {EINVAL, "The desktop's entry of the application is not valid"};
  inTerminal.reset(G_APP_INFO(made));
  return {};
}

}  // namespace

base::Status FindOpener(const std::string& path, Opener& opener) {
  const GioObject<GFile> file(g_file_new_for_path(path.c_str()));
  GioError error;
  const GioObject<GFileInfo> info(
      g_file_query_info(file.get(),
                        G_FILE_ATTRIBUTE_STANDARD_TYPE "," G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE
                                                       "," G_FILE_ATTRIBUTE_ACCESS_CAN_EXECUTE,
                        G_FILE_QUERY_INFO_NONE, nullptr, error.Place()));
  if (!info) return error.Status();
  const bool mayRun =
      g_file_info_get_file_type(info.get()) == G_FILE_TYPE_REGULAR &&
      g_file_info_get_attribute_boolean(info.get(), G_FILE_ATTRIBUTE_ACCESS_CAN_EXECUTE) != FALSE;
  const char* const type = g_file_info_get_content_type(info.get());
  if (type == nullptr) return {ENOENT, "The kind of this file is not known"};

  opener = {};
  opener.Type = type;
  opener.Application.reset(g_app_info_get_default_for_type(type, FALSE));
  if (type == entryType) {
    if (!mayRun && !IsRegisteredEntry(path)) return {};
    auto* const entry = g_desktop_app_info_new_from_filename(path.c_str());
    if (entry == nullptr) return {};
    opener.Kind = OpenerKind::Entry;
    opener.Entry.reset(G_APP_INFO(entry));
  } else if (mayRun && ContentOf(path) != FileContent::Other) {
    opener.Kind = OpenerKind::Program;
  }
  return {};
}

base::Status NoApplication(const std::string& type) {
  return {ENOENT, "No application is registered for this kind of file (" + type + ")"};
}

base::Status Launch(GAppInfo* application, const std::vector<std::string>& paths, bool inTerminal) {
  GioObject<GAppInfo> wrapped;
  if (inTerminal || StartsInTerminal(application)) {
    if (base::Status status = PutInTerminal(application, wrapped); !status) return status;
    application = wrapped.get();
  }
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
