#include "platform/linux/LinuxFolderWatch.h"

#include <gio/gio.h>

#include <utility>

#include "platform/linux/GuardedCall.h"
#include "platform/linux/LinuxFileSystem.h"

namespace tarnwell::platform {
namespace {

constexpr guint delay = 200;  // milliseconds from the first change of a run to the call

bool IsRemote(GFile* folder) {
  const char* const attribute = G_FILE_ATTRIBUTE_FILESYSTEM_REMOTE;
  GFileInfo* const info = g_file_query_filesystem_info(folder, attribute, nullptr, nullptr);
  if (info == nullptr) return false;
  const bool remote = g_file_info_get_attribute_boolean(info, attribute) != FALSE;
  g_object_unref(info);
  return remote;
}

class GioWatch : public Watch {
 public:
  // Takes over the caller's reference to the monitor.
  GioWatch(GFileMonitor* monitor, FolderWatch::Changed changed)
      : changed_(std::move(changed)), monitor_(monitor) {
    signal_ = g_signal_connect(monitor_, "changed", G_CALLBACK(&GioWatch::Note), this);
  }
  GioWatch(const GioWatch&) = delete;
  GioWatch& operator=(const GioWatch&) = delete;
  ~GioWatch() override {
    if (timer_ != 0) g_source_remove(timer_);
    g_signal_handler_disconnect(monitor_, signal_);
    g_file_monitor_cancel(monitor_);
    g_object_unref(monitor_);
  }

 private:
  static void Note(GFileMonitor*, GFile*, GFile*, GFileMonitorEvent, gpointer data) {
    auto* const self = static_cast<GioWatch*>(data);
    if (self->timer_ == 0) self->timer_ = g_timeout_add(delay, &GioWatch::Report, self);
  }

  static gboolean Report(gpointer data) {
    auto* const self = static_cast<GioWatch*>(data);
    self->timer_ = 0;
    // A copy, since the call may end this object.
    const FolderWatch::Changed changed = self->changed_;
    GuardedCall([&] { changed({.Names = {}, .Everything = true}); });
    return G_SOURCE_REMOVE;
  }

  FolderWatch::Changed changed_;
  GFileMonitor* monitor_;
  gulong signal_;
  guint timer_ = 0;
};

}  // namespace

std::unique_ptr<Watch> LinuxFolderWatch::Start(const std::string& folder,
                                               FolderWatch::Changed changed) {
  // GIO would take a missing folder and wait for it to come.
  if (!LinuxFileSystem().FolderExists(folder)) return nullptr;
  GFile* const file = g_file_new_for_path(folder.c_str());
  GFileMonitor* const monitor =
      IsRemote(file) ? nullptr
                     : g_file_monitor_directory(file, G_FILE_MONITOR_WATCH_MOVES, nullptr, nullptr);
  g_object_unref(file);
  if (monitor == nullptr) return nullptr;
  return std::make_unique<GioWatch>(monitor, std::move(changed));
}

}  // namespace tarnwell::platform
