#include "platform/linux/network/ConnectPlace.h"

#include <dirent.h>
#include <gio/gio.h>

#include <cerrno>
#include <chrono>
#include <string_view>
#include <thread>

#include "platform/linux/network/AsyncCall.h"
#include "platform/linux/network/MountQuestions.h"
#include "platform/linux/network/SharedTask.h"
#include "platform/linux/posix/GioObject.h"

namespace tarnwell::platform {
namespace {

bool NamesFolder(std::string_view address) {
  const std::size_t host = address.find("://");
  return host != std::string_view::npos && address.find('/', host + 3) != std::string_view::npos;
}

bool HasEntry(const std::string& folder, std::string_view name) {
  const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.c_str()), &closedir);
  if (!open) return false;
  while (const dirent* const entry = readdir(open.get())) {
    if (name == entry->d_name) return true;
  }
  return false;
}

// The program that shows places as folders hears of a new one by itself, a moment later. The look
// is at its list alone; no other machine is asked.
void AwaitFolder(GTask* task, gpointer, gpointer data, GCancellable* cancel) {
  constexpr int mostLooks = 100;
  const std::string path = static_cast<const char*>(data);
  const std::size_t name = path.rfind('/') + 1;
  bool isThere = false;
  for (int look = 0; look < mostLooks && !isThere; ++look) {
    if (g_cancellable_is_cancelled(cancel) != FALSE) break;
    isThere = HasEntry(path.substr(0, name), std::string_view(path).substr(name));
    if (!isThere) std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  g_task_return_boolean(task, isThere ? TRUE : FALSE);
}

// One that cannot be seen as a folder.
base::Status NoFolder() {
  return {ENOTSUP,
          "It is connected, but only the package gvfs-fuse can show it as a folder, and that is "
          "missing or has not started"};
}

class Connecting : public std::enable_shared_from_this<Connecting> {
 public:
  Connecting(const std::string& address, const std::string& password, PlaceUser& user)
      : user_(&user),
        file_(g_file_new_for_uri(address.c_str())),
        namesFolder_(NamesFolder(address)),
        cancel_(g_cancellable_new()),
        questions_(user, password) {}

  void Start() {
    g_file_mount_enclosing_volume(file_.get(), G_MOUNT_MOUNT_NONE, questions_.Operation(),
                                  cancel_.get(), &AsyncCall<Connecting>::Done,
                                  Then(&Connecting::Mounted));
  }
  void GiveUp() {
    user_ = nullptr;
    g_cancellable_cancel(cancel_.get());
  }
  void Answer(const PlaceAnswer& answer) { questions_.Answer(answer); }
  void TakeBack() { questions_.TakeBack(); }

 private:
  gpointer Then(AsyncCall<Connecting>::Take take) {
    return AsyncCall<Connecting>::For(shared_from_this(), take);
  }
  void Tell(const PlaceOutcome& outcome) {
    if (user_ != nullptr) user_->OnDone(outcome);
  }
  void Mounted(GObject*, GAsyncResult* result);
  void Found(GObject*, GAsyncResult* result);
  void Looked(GObject*, GAsyncResult* result);
  void Appeared(GObject*, GAsyncResult* result);

  PlaceUser* user_;  // null behind a GiveUp
  GioObject<GFile> file_;
  bool namesFolder_;
  GioObject<GCancellable> cancel_;
  MountQuestions questions_;
  std::string top_;          // the place's own folder on this machine
  GioObject<GFile> target_;  // what is to be opened
};

void Connecting::Mounted(GObject*, GAsyncResult* result) {
  GioError error;
  const bool isDone =
      g_file_mount_enclosing_volume_finish(file_.get(), result, error.Place()) != FALSE ||
      g_error_matches(*error.Place(), G_IO_ERROR, G_IO_ERROR_ALREADY_MOUNTED) != FALSE;
  if (!isDone) return Tell(questions_.OutcomeOf(error));
  g_file_find_enclosing_mount_async(file_.get(), G_PRIORITY_DEFAULT, cancel_.get(),
                                    &AsyncCall<Connecting>::Done, Then(&Connecting::Found));
}

void Connecting::Found(GObject*, GAsyncResult* result) {
  GioError error;
  const GioObject<GMount> mount(
      g_file_find_enclosing_mount_finish(file_.get(), result, error.Place()));
  if (!mount) return Tell(questions_.OutcomeOf(error));
  const GioObject<GFile> root(g_mount_get_root(mount.get()));
  top_ = TextOf(GioText(g_file_get_path(root.get())).get());
  if (top_.empty()) return Tell({.Status = NoFolder()});
  target_.reset(namesFolder_ ? g_object_ref(file_.get())
                             : g_mount_get_default_location(mount.get()));
  g_file_query_info_async(target_.get(), G_FILE_ATTRIBUTE_STANDARD_TYPE, G_FILE_QUERY_INFO_NONE,
                          G_PRIORITY_DEFAULT, cancel_.get(), &AsyncCall<Connecting>::Done,
                          Then(&Connecting::Looked));
}

void Connecting::Looked(GObject*, GAsyncResult* result) {
  GioError error;
  const GioObject<GFileInfo> info(g_file_query_info_finish(target_.get(), result, error.Place()));
  if (!info) return Tell(questions_.OutcomeOf(error));
  if (g_file_info_get_file_type(info.get()) == G_FILE_TYPE_REGULAR) {
    target_.reset(g_file_get_parent(target_.get()));
  }
  const GioObject<GTask> task(g_task_new(nullptr, cancel_.get(), &AsyncCall<Connecting>::Done,
                                         Then(&Connecting::Appeared)));
  g_task_set_task_data(task.get(), g_strdup(top_.c_str()), &g_free);
  g_task_run_in_thread(task.get(), &AwaitFolder);
}

void Connecting::Appeared(GObject*, GAsyncResult* result) {
  const bool isThere = g_task_propagate_boolean(G_TASK(result), nullptr) != FALSE;
  const std::string folder = TextOf(GioText(g_file_get_path(target_.get())).get());
  if (!isThere || folder.empty()) return Tell({.Status = NoFolder()});
  Tell({.Folder = folder});
}

}  // namespace

std::unique_ptr<AskingTask> ConnectPlace(const std::string& address, const std::string& password,
                                         PlaceUser& user) {
  return StartTask(std::make_shared<Connecting>(address, password, user));
}

}  // namespace tarnwell::platform
