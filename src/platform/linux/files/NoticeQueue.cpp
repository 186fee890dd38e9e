#include "platform/linux/files/NoticeQueue.h"

#include <glib-unix.h>
#include <sys/inotify.h>

#include <array>
#include <cstddef>
#include <string>

#include "platform/GuardedCall.h"
#include "platform/linux/posix/ReachedPath.h"

namespace tarnwell::platform {
namespace {

constexpr std::uint32_t WantedNotices = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO |
                                        IN_MODIFY | IN_CLOSE_WRITE | IN_ATTRIB | IN_DELETE_SELF |
                                        IN_MOVE_SELF | IN_ONLYDIR | IN_EXCL_UNLINK;
constexpr int readsAtOnce = 16;  // so that a flood of notices lets the user's input through
// Milliseconds between two looks. A program that writes all the time gives a notice for each write,
// and the system makes one of those that wait.
constexpr guint pause = 50;

}  // namespace

NoticeQueue::NoticeQueue() : queue_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  if (queue_) Listen(this);
}

NoticeQueue::~NoticeQueue() {
  if (source_ != 0) g_source_remove(source_);
}

int NoticeQueue::Add(std::string_view folder, NoticeTaker& taker) {
  const Descriptor opened = OpenPath(folder, O_PATH | O_DIRECTORY);
  if (!queue_ || !opened) return -1;
  const std::string held = "/proc/self/fd/" + std::to_string(opened.Get());
  const int number = inotify_add_watch(queue_.Get(), held.c_str(), WantedNotices);
  if (number >= 0) takers_.emplace(number, &taker);
  return number;
}

void NoticeQueue::Remove(int number, const NoticeTaker& taker) {
  const auto [first, last] = takers_.equal_range(number);
  for (auto at = first; at != last; ++at) {
    if (at->second != &taker) continue;
    takers_.erase(at);
    break;
  }
  // Of a folder that is gone there is nothing to end.
  if (!takers_.contains(number)) inotify_rm_watch(queue_.Get(), number);
}

int NoticeQueue::Listen(void* data) noexcept {
  auto* const self = static_cast<NoticeQueue*>(data);
  const auto read = [](int, GIOCondition, gpointer queue) -> gboolean {
    auto* const reader = static_cast<NoticeQueue*>(queue);
    reader->source_ = g_timeout_add(pause, &Listen, queue);
    GuardedCall([reader] { reader->ReadAll(); });
    return G_SOURCE_REMOVE;
  };
  self->source_ = g_unix_fd_add(self->queue_.Get(), G_IO_IN, read, self);
  return G_SOURCE_REMOVE;
}

void NoticeQueue::ReadAll() {
  alignas(inotify_event) std::array<char, 65536> bytes;
  for (int reads = 0; reads < readsAtOnce; ++reads) {
    const ssize_t got = read(queue_.Get(), bytes.data(), bytes.size());
    if (got <= 0) return;
    for (std::size_t at = 0; at < static_cast<std::size_t>(got);) {
      const auto& notice = *reinterpret_cast<const inotify_event*>(bytes.data() + at);
      at += sizeof notice + notice.len;
      Hand(notice, notice.len > 0 ? notice.name : "");
    }
  }
}

void NoticeQueue::Hand(const inotify_event& notice, std::string_view name) {
  if ((notice.mask & IN_Q_OVERFLOW) != 0) {
    for (const auto& [number, taker] : takers_) taker->Take(notice.mask, "");
    return;
  }
  const auto [first, last] = takers_.equal_range(notice.wd);
  for (auto at = first; at != last; ++at) at->second->Take(notice.mask, name);
}

}  // namespace tarnwell::platform
