// The thread that hears of changes in all watched folders.
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/api/Handle.h"
#include "platform/win32/files/FolderNotices.h"

namespace tarnwell::platform {

class NoticeReader;

// Lives until its last user has gone, and the last reading has ended.
class NoticePort {
 public:
  // Null where the system gives no more.
  static std::shared_ptr<NoticePort> Open();

  // A thread tells within 200 ms.
  void TellSoon(const std::weak_ptr<FolderNotices>& notices);
  bool Add(HANDLE folder);

  void Use() { ++users_; }
  void Leave();

 private:
  struct DueNotices {
    std::chrono::steady_clock::time_point When;
    std::weak_ptr<FolderNotices> Notices;
  };

  explicit NoticePort(Handle port) : port_(std::move(port)) {}
  void Run();
  // Milliseconds to the next; INFINITE without any.
  DWORD TellWhatIsDue();

  const Handle port_;
  std::atomic<std::size_t> users_ = 1;  // who opened it, each watch, and each reading under way
  std::deque<DueNotices> due_;          // of the thread alone, as each waits for the same time
};

// Reads what happens in one folder, over and over, and hands it to the notices.
class NoticeReader : public OVERLAPPED, public std::enable_shared_from_this<NoticeReader> {
 public:
  // `filter`: as FILE_NOTIFY_CHANGE_; `name`: the only item of the folder that counts, and stands
  // for everything; empty for all items.
  NoticeReader(std::shared_ptr<NoticePort> port, std::weak_ptr<FolderNotices> notices,
               std::string folder, DWORD filter, std::string name = {});

  // False where the folder cannot be read.
  bool Begin();
  // The reading ends soon, and hands nothing over any more.
  void End();
  // The folder, as long as it is read.
  HANDLE Opened();

  // On the port's thread: what a reading came to.
  void Take(bool isRead, DWORD size);

 private:
  bool ReadNext();
  bool TakeRecords(FolderNotices& notices, DWORD size) const;
  bool TakeRecord(FolderNotices& notices, std::wstring_view name) const;

  const std::shared_ptr<NoticePort> port_;
  const std::weak_ptr<FolderNotices> notices_;
  const std::string folder_;
  const DWORD filter_;
  const std::string name_;
  Handle handle_;
  std::vector<DWORD> records_;  // aligned as the system wants them
  std::mutex mutex_;
  bool isWanted_ = true;
  std::shared_ptr<NoticeReader> self_;  // while a reading is under way
};

}  // namespace tarnwell::platform
