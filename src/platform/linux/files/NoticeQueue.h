// The system's queue of notices about folders, read from the event loop.
#pragma once

#include <cstdint>
#include <map>
#include <string_view>

#include "platform/linux/posix/Descriptor.h"

struct inotify_event;

namespace tarnwell::platform {

// Gets the notices of one folder.
class NoticeTaker {
 public:
  // `kind`: the bits of inotify(7); also IN_Q_OVERFLOW where notices were lost. The name is empty
  // for the folder itself. Must not add or remove a taker.
  virtual void Take(std::uint32_t kind, std::string_view name) = 0;

 protected:
  ~NoticeTaker() = default;
};

// One for many folders: a user may have few of them. It knows folders by what they are and not by
// their paths, so that takers by several paths of one folder do not disturb each other, and a path
// that leads to another folder by now gives the notices of that.
class NoticeQueue {
 public:
  NoticeQueue();
  NoticeQueue(const NoticeQueue&) = delete;
  NoticeQueue& operator=(const NoticeQueue&) = delete;
  ~NoticeQueue();

  // False where the system has no more queues to give.
  bool IsOpen() const { return static_cast<bool>(queue_); }

  // The number of the folder, for Remove; -1 where it cannot be watched.
  int Add(std::string_view folder, NoticeTaker& taker);
  void Remove(int number, const NoticeTaker& taker);

 private:
  static int Listen(void* data) noexcept;  // as GLib calls it
  void ReadAll();
  void Hand(const inotify_event& notice, std::string_view name);

  Descriptor queue_;
  unsigned source_ = 0;
  std::multimap<int, NoticeTaker*> takers_;  // by number; numbers do not come again
};

}  // namespace tarnwell::platform
