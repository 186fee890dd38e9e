#include "platform/linux/network/DisconnectPlace.h"

#include <cerrno>
#include <utility>

#include "platform/linux/network/AsyncCall.h"
#include "platform/linux/network/MountQuestions.h"
#include "platform/linux/network/SharedTask.h"
#include "platform/linux/posix/GioObject.h"

namespace tarnwell::platform {
namespace {

class UnmountByDesktop : public std::enable_shared_from_this<UnmountByDesktop> {
 public:
  UnmountByDesktop(GMount* mount, PlaceUser& user)
      : user_(&user),
        mount_(G_MOUNT(g_object_ref(mount))),
        cancel_(g_cancellable_new()),
        questions_(user, "") {}

  void Start() {
    g_mount_unmount_with_operation(
        mount_.get(), G_MOUNT_UNMOUNT_NONE, questions_.Operation(), cancel_.get(),
        &AsyncCall<UnmountByDesktop>::Done,
        AsyncCall<UnmountByDesktop>::For(shared_from_this(), &UnmountByDesktop::Unmounted));
  }
  void GiveUp() {
    user_ = nullptr;
    g_cancellable_cancel(cancel_.get());
  }
  void Answer(const PlaceAnswer& answer) { questions_.Answer(answer); }
  void TakeBack() { questions_.TakeBack(); }

 private:
  void Unmounted(GObject*, GAsyncResult* result) {
    GioError error;
    PlaceOutcome outcome;
    if (g_mount_unmount_with_operation_finish(mount_.get(), result, error.Place()) == FALSE) {
      outcome = questions_.OutcomeOf(error);
    }
    if (user_ != nullptr) user_->OnDone(outcome);
  }

  PlaceUser* user_;  // null behind a GiveUp
  GioObject<GMount> mount_;
  GioObject<GCancellable> cancel_;
  MountQuestions questions_;
};

// Of what a program of the user's own has mounted, these let go without further rights.
std::string UnmountProgram(const Mount& mount) {
  if (mount.Type.starts_with("fuse.")) {
    for (const char* const name : {"fusermount3", "fusermount"}) {
      if (GioText(g_find_program_in_path(name))) return name;
    }
  }
  return "umount";
}

class UnmountByProgram : public std::enable_shared_from_this<UnmountByProgram> {
 public:
  UnmountByProgram(Mount mount, PlaceUser& user)
      : user_(&user), mount_(std::move(mount)), cancel_(g_cancellable_new()) {}

  void Start();
  void GiveUp() {
    user_ = nullptr;
    g_cancellable_cancel(cancel_.get());
    if (process_) g_subprocess_force_exit(process_.get());
  }
  void Answer(const PlaceAnswer&) {}  // asks nothing
  void TakeBack() {}

 private:
  void Ended(GObject*, GAsyncResult* result);
  void NotStarted(GObject*, GAsyncResult*) { Tell(unstarted_); }
  void Tell(const base::Status& status) {
    if (user_ == nullptr) return;
    user_->OnDone({.Status = status, .IsInUse = status.Code == EBUSY});
  }

  PlaceUser* user_;  // null behind a GiveUp
  Mount mount_;
  GioObject<GCancellable> cancel_;
  GioObject<GSubprocess> process_;
  base::Status unstarted_;
};

void UnmountByProgram::Start() {
  const auto quiet = static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDOUT_SILENCE |
                                                   G_SUBPROCESS_FLAGS_STDERR_PIPE);
  const GioObject<GSubprocessLauncher> launcher(g_subprocess_launcher_new(quiet));
  g_subprocess_launcher_setenv(launcher.get(), "LC_ALL", "C", TRUE);
  const std::string program = UnmountProgram(mount_);
  const char* const lazily = program == "umount" ? "--" : "-u";
  const char* const words[] = {program.c_str(), lazily, mount_.Path.c_str(), nullptr};
  GioError error;
  process_.reset(g_subprocess_launcher_spawnv(launcher.get(), words, error.Place()));
  using Call = AsyncCall<UnmountByProgram>;
  if (process_) {
    g_subprocess_communicate_utf8_async(process_.get(), nullptr, cancel_.get(), &Call::Done,
                                        Call::For(shared_from_this(), &UnmountByProgram::Ended));
    return;
  }
  // To be told from the event loop.
  unstarted_ = error.Status();
  const GioObject<GTask> task(g_task_new(
      nullptr, nullptr, &Call::Done, Call::For(shared_from_this(), &UnmountByProgram::NotStarted)));
  g_task_return_boolean(task.get(), TRUE);
}

void UnmountByProgram::Ended(GObject*, GAsyncResult* result) {
  GioError error;
  char* said = nullptr;
  const bool isTold = g_subprocess_communicate_utf8_finish(process_.get(), result, nullptr, &said,
                                                           error.Place()) != FALSE;
  const GioText text(said);
  if (!isTold) return Tell(error.Status());
  if (g_subprocess_get_successful(process_.get()) != FALSE) return Tell({});
  const std::string reason = g_strstrip(text.get());
  const bool isInUse = reason.find("busy") != std::string::npos;
  Tell({isInUse ? EBUSY : EIO, reason.empty() ? UnmountProgram(mount_) + " failed" : reason});
}

}  // namespace

std::unique_ptr<AskingTask> DisconnectMount(GMount* mount, PlaceUser& user) {
  return StartTask(std::make_shared<UnmountByDesktop>(mount, user));
}

std::unique_ptr<AskingTask> DisconnectMount(const Mount& mount, PlaceUser& user) {
  return StartTask(std::make_shared<UnmountByProgram>(mount, user));
}

}  // namespace tarnwell::platform
