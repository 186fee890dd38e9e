#include "platform/linux/files/LinuxFolderWatch.h"

#include <glib.h>
#include <sys/inotify.h>

#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "platform/GuardedCall.h"
#include "platform/linux/files/NoticeQueue.h"
#include "platform/linux/posix/ReachedPath.h"

namespace tarnwell::platform {
namespace {

constexpr guint delay = 200;             // milliseconds from the first change of a run to the call
constexpr std::size_t mostNames = 1000;  // reading more of them one by one costs more than all

class QueueWatch : public Watch, private NoticeTaker {
 public:
  QueueWatch(std::shared_ptr<NoticeQueue> queue, std::string folder, FolderWatch::Changed changed)
      : queue_(std::move(queue)),
        folder_(std::move(folder)),
        changed_(std::move(changed)),
        number_(queue_->Add(folder_, *this)) {}
  QueueWatch(const QueueWatch&) = delete;
  QueueWatch& operator=(const QueueWatch&) = delete;
  ~QueueWatch() override {
    if (timer_ != 0) g_source_remove(timer_);
    if (IsWatching()) queue_->Remove(number_, *this);
  }

  bool IsWatching() const { return number_ >= 0; }

 private:
  void Take(std::uint32_t kind, std::string_view name) override {
    if ((kind & IN_UNMOUNT) != 0) {
      changes_.FolderGone = true;
    } else if ((kind & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED | IN_Q_OVERFLOW)) != 0) {
      changes_.Everything = true;
    } else if (!name.empty()) {
      NoteName(name);
    } else if ((kind & IN_ATTRIB) == 0) {
      return;
    }
    if (timer_ == 0) timer_ = g_timeout_add(delay, &QueueWatch::Report, this);
  }

  void NoteName(std::string_view name) {
    if (changes_.Everything) return;
    names_.emplace(name);
    if (names_.size() <= mostNames) return;
    changes_.Everything = true;
    names_.clear();
  }

  static gboolean Report(gpointer data) noexcept {
    auto* const self = static_cast<QueueWatch*>(data);
    self->timer_ = 0;
    GuardedCall([self] { self->Tell(); });
    return G_SOURCE_REMOVE;
  }

  void Tell() {
    FolderChanges changes = std::exchange(changes_, {});
    // Of a folder that another program still uses the end is told late, if at all.
    if (!OpenPath(folder_, O_PATH | O_DIRECTORY)) changes.FolderGone = true;
    const std::set<std::string> names = std::exchange(names_, {});
    if (!changes.Everything) changes.Names.assign(names.begin(), names.end());
    if (changes.Names.empty() && !changes.Everything && !changes.FolderGone) return;
    // A copy, since the call may end this object.
    const FolderWatch::Changed changed = changed_;
    changed(changes);
  }

  const std::shared_ptr<NoticeQueue> queue_;
  const std::string folder_;
  const FolderWatch::Changed changed_;
  const int number_;
  guint timer_ = 0;
  FolderChanges changes_;
  std::set<std::string> names_;
};

}  // namespace

std::unique_ptr<Watch> LinuxFolderWatch::Start(const std::string& folder,
                                               FolderWatch::Changed changed) {
  if (!queue_ || !queue_->IsOpen()) queue_ = std::make_shared<NoticeQueue>();
  auto watch = std::make_unique<QueueWatch>(queue_, folder, std::move(changed));
  if (!watch->IsWatching()) return nullptr;
  return watch;
}

}  // namespace tarnwell::platform
