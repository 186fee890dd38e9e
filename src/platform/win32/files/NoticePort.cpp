#include "platform/win32/files/NoticePort.h"

#include <algorithm>
#include <system_error>
#include <thread>
#include <utility>

#include "base/PathSyntax.h"
#include "platform/win32/api/PostToLoop.h"
#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {
namespace {

constexpr std::chrono::milliseconds noticeDelay(200);  // from the first change of a run to the call
constexpr ULONG_PTR quitKey = 1;                       // of the message that ends the thread
constexpr std::size_t recordSpace = std::size_t{16} << 10;  // bytes
constexpr std::size_t ownSpace = std::size_t{4} << 10;      // for one item alone

// Notices may name an item by its short name, "LONGNA~1.TXT", if that is how it was reached.
bool MayBeShort(std::wstring_view name) {
  constexpr std::size_t longest = 12;
  const std::size_t mark = name.find(L'~');
  return name.size() <= longest && mark != name.npos && mark + 1 < name.size() &&
         name[mark + 1] >= L'0' && name[mark + 1] <= L'9';
}

// The name that the folder lists; empty for what is no longer there.
std::wstring ListedName(const std::string& folder, std::wstring_view name) {
  WIN32_FIND_DATAW found;
  const std::string path = base::PathSyntax::Windows().Join(folder, Narrow(name));
  const FindHandle finding(FindFirstFileExW(LongPath(path).c_str(), FindExInfoBasic, &found,
                                            FindExSearchNameMatch, nullptr, 0));
  return finding ? found.cFileName : L"";
}

}  // namespace

// --- The port.

std::shared_ptr<NoticePort> NoticePort::Open() {
  Handle handle(CreateIoCompletionPort(INVALID_HANDLE_VALUE, nullptr, 0, 1));
  if (!handle) return nullptr;
  const std::shared_ptr<NoticePort> port(new NoticePort(std::move(handle)));
  try {
    std::thread([port]() noexcept { port->Run(); }).detach();
  } catch (const std::system_error&) {
    return nullptr;
  }
  return port;
}

bool NoticePort::Add(HANDLE folder) {
  return CreateIoCompletionPort(folder, port_.Get(), 0, 0) != nullptr;
}

void NoticePort::Leave() {
  if (--users_ == 0) PostQueuedCompletionStatus(port_.Get(), 0, quitKey, nullptr);
}

void NoticePort::TellSoon(const std::weak_ptr<FolderNotices>& notices) {
  due_.push_back({std::chrono::steady_clock::now() + noticeDelay, notices});
}

DWORD NoticePort::TellWhatIsDue() {
  const auto now = std::chrono::steady_clock::now();
  for (; !due_.empty() && due_.front().When <= now; due_.pop_front()) {
    PostToLoop([notices = due_.front().Notices] {
      if (const auto open = notices.lock()) open->Tell();
    });
  }
  if (due_.empty()) return INFINITE;
  const auto rest = std::chrono::ceil<std::chrono::milliseconds>(due_.front().When - now);
  return static_cast<DWORD>(rest.count());
}

void NoticePort::Run() {
  for (;;) {
    DWORD size = 0;
    ULONG_PTR key = 0;
    OVERLAPPED* reading = nullptr;
    const bool isRead =
        GetQueuedCompletionStatus(port_.Get(), &size, &key, &reading, TellWhatIsDue()) != 0;
    if (reading != nullptr) {
      static_cast<NoticeReader*>(reading)->Take(isRead, size);
    } else if (isRead && key == quitKey) {
      return;
    }
  }
}

// --- The readers.

NoticeReader::NoticeReader(std::shared_ptr<NoticePort> port, std::weak_ptr<FolderNotices> notices,
                           std::string folder, DWORD filter, std::string name)
    : OVERLAPPED{},
      port_(std::move(port)),
      notices_(std::move(notices)),
      folder_(std::move(folder)),
      filter_(filter),
      name_(std::move(name)),
      records_((name_.empty() ? recordSpace : ownSpace) / sizeof(DWORD)) {}

bool NoticeReader::Begin() {
  constexpr DWORD everybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const std::lock_guard lock(mutex_);
  handle_ = Handle(CreateFileW(LongPath(folder_).c_str(), FILE_LIST_DIRECTORY, everybody, nullptr,
                               OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OVERLAPPED,
                               nullptr));
  return handle_ && port_->Add(handle_.Get()) && ReadNext();
}

void NoticeReader::End() {
  const std::lock_guard lock(mutex_);
  isWanted_ = false;
  if (!handle_) return;
  CancelIoEx(handle_.Get(), this);
  handle_ = {};
}

HANDLE NoticeReader::Opened() {
  const std::lock_guard lock(mutex_);
  return handle_.Get();
}

bool NoticeReader::ReadNext() {
  static_cast<OVERLAPPED&>(*this) = {};
  self_ = shared_from_this();
  port_->Use();
  if (ReadDirectoryChangesW(handle_.Get(), records_.data(),
                            static_cast<DWORD>(records_.size() * sizeof(DWORD)), FALSE, filter_,
                            nullptr, this, nullptr) != 0) {
    return true;
  }
  self_.reset();
  port_->Leave();
  return false;
}

void NoticeReader::Take(bool isRead, DWORD size) {
  std::shared_ptr<NoticeReader> self;
  bool isWanted = false;
  {
    const std::lock_guard lock(mutex_);
    self = std::move(self_);
    isWanted = isWanted_;
  }
  const std::shared_ptr<FolderNotices> notices = isWanted ? notices_.lock() : nullptr;
  if (notices) {
    bool isFirst = isRead && size > 0 ? TakeRecords(*notices, size) : notices->TakeEverything();
    {
      const std::lock_guard lock(mutex_);
      if (isWanted_ && (!isRead || !ReadNext())) {
        handle_ = {};  // a folder that is being deleted stays until nobody has it open
        if (notices->TakeEverything()) isFirst = true;
      }
    }
    if (isFirst) port_->TellSoon(notices);
  }
  port_->Leave();
}

bool NoticeReader::TakeRecords(FolderNotices& notices, DWORD size) const {
  const auto* const bytes = reinterpret_cast<const std::byte*>(records_.data());
  bool isFirst = false;
  for (DWORD at = 0; at + sizeof(FILE_NOTIFY_INFORMATION) <= size;) {
    const auto& record = *reinterpret_cast<const FILE_NOTIFY_INFORMATION*>(bytes + at);
    if (TakeRecord(notices, {record.FileName, record.FileNameLength / sizeof(wchar_t)})) {
      isFirst = true;
    }
    if (record.NextEntryOffset == 0) break;
    at += record.NextEntryOffset;
  }
  return isFirst;
}

bool NoticeReader::TakeRecord(FolderNotices& notices, std::wstring_view name) const {
  const bool mayBeShort = MayBeShort(name);
  if (!name_.empty()) {
    const bool isMine = mayBeShort || base::PathSyntax::Windows().Same(Narrow(name), name_);
    return isMine && notices.TakeEverything();
  }
  if (!mayBeShort) return notices.TakeName(Narrow(name));
  const std::wstring listed = ListedName(folder_, name);
  return listed.empty() ? notices.TakeEverything() : notices.TakeName(Narrow(listed));
}

}  // namespace tarnwell::platform
