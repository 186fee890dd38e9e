#include "platform/linux/LinuxFolderWatch.h"

#include <gio/gio.h>

#include <set>
#include <string>
#include <utility>

#include "platform/linux/GuardedCall.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/linux/ReachedPath.h"

namespace tarnwell::platform {
namespace {

constexpr guint delay = 200;             // milliseconds from the first change of a run to the call
constexpr std::size_t mostNames = 1000;  // reading more of them one by one costs more than all

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
  // Takes over the caller's references to the folder and its monitor.
  GioWatch(GFile* folder, GFileMonitor* monitor, FolderWatch::Changed changed)
      : changed_(std::move(changed)), folder_(folder), monitor_(monitor) {
    signal_ = g_signal_connect(monitor_, "changed", G_CALLBACK(&GioWatch::Note), this);
  }
  GioWatch(const GioWatch&) = delete;
  GioWatch& operator=(const GioWatch&) = delete;
  ~GioWatch() override {
    if (timer_ != 0) g_source_remove(timer_);
    g_signal_handler_disconnect(monitor_, signal_);
    g_file_monitor_cancel(monitor_);
    g_object_unref(monitor_);
    g_object_unref(folder_);
  }

 private:
  static void Note(GFileMonitor*, GFile* item, GFile* other, GFileMonitorEvent event,
                   gpointer data) noexcept {
    GuardedCall([&] {
      auto* const self = static_cast<GioWatch*>(data);
      if (g_file_equal(item, self->folder_) != FALSE) {
        if (!self->NoteFolder(event)) return;
      } else {
        self->NoteName(item);
        if (event == G_FILE_MONITOR_EVENT_RENAMED) self->NoteName(other);
      }
      if (self->timer_ == 0) self->timer_ = g_timeout_add(delay, &GioWatch::Report, self);
    });
  }

  // What happened to the folder itself; false where that concerns none of its items.
  bool NoteFolder(GFileMonitorEvent event) {
    switch (event) {
      case G_FILE_MONITOR_EVENT_UNMOUNTED:
        changes_.FolderGone = true;
        break;
      case G_FILE_MONITOR_EVENT_DELETED:
      case G_FILE_MONITOR_EVENT_RENAMED:
      case G_FILE_MONITOR_EVENT_MOVED_OUT:
      case G_FILE_MONITOR_EVENT_CREATED:  // it is back, or another one has its name
        changes_.Everything = true;
        break;
      default:
        return false;
    }
    return true;
  }

  void NoteName(GFile* item) {
    if (changes_.Everything || item == nullptr) return;
    char* const name = g_file_get_basename(item);
    if (name != nullptr) names_.emplace(name);
    g_free(name);
    if (names_.size() <= mostNames) return;
    changes_.Everything = true;
    names_.clear();
  }

  static gboolean Report(gpointer data) noexcept {
    auto* const self = static_cast<GioWatch*>(data);
    self->timer_ = 0;
    GuardedCall([self] { self->Tell(); });
    return G_SOURCE_REMOVE;
  }

  void Tell() {
    FolderChanges changes = std::exchange(changes_, {});
    // Of a folder that another program still uses the end is told late, if at all.
    if (!OpenPath(g_file_peek_path(folder_), O_PATH | O_DIRECTORY)) changes.FolderGone = true;
    const std::set<std::string> names = std::exchange(names_, {});
    if (!changes.Everything) changes.Names.assign(names.begin(), names.end());
    // A copy, since the call may end this object.
    const FolderWatch::Changed changed = changed_;
    changed(changes);
  }

  FolderWatch::Changed changed_;
  GFile* folder_;
  GFileMonitor* monitor_;
  gulong signal_;
  guint timer_ = 0;
  FolderChanges changes_;
  std::set<std::string> names_;
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
  if (monitor == nullptr) {
    g_object_unref(file);
    return nullptr;
  }
  return std::make_unique<GioWatch>(file, monitor, std::move(changed));
}

}  // namespace tarnwell::platform
