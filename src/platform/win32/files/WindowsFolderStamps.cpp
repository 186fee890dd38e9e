#include "platform/win32/files/WindowsFolderStamps.h"

#include <system_error>
#include <thread>
#include <utility>

#include "base/PathSyntax.h"
#include "platform/win32/api/FileTime.h"
#include "platform/win32/api/PostToLoop.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/FarPath.h"
#include "platform/win32/files/ItemHandle.h"

namespace tarnwell::platform {
namespace {

FolderStamp StampOf(const Handle& folder) {
  FILE_BASIC_INFO found;
  if (!folder ||
      GetFileInformationByHandleEx(folder.Get(), FileBasicInfo, &found, sizeof found) == 0 ||
      (found.FileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
    return {};
  }
  const auto timeOf = [](const LARGE_INTEGER& time) {
    const std::int64_t known =
        FromFileTime({static_cast<DWORD>(time.LowPart), static_cast<DWORD>(time.HighPart)});
    return known == UnknownTime ? 0 : known;
  };
  const ItemIdentity identity = IdentityOf(folder.Get());
  return {.IsThere = true,
          .Device = identity.Volume,
          .Inode = identity.Number,
          .Modified = timeOf(found.LastWriteTime),
          .Changed = timeOf(found.ChangeTime)};
}

// Nor does a drive that stands for another folder count as the place itself.
bool DiffersFromOwnPath(const Handle& opened, const std::string& folder) {
  const std::wstring own = FinalPathOf(opened.Get());
  if (own.empty()) return false;
  return !base::PathSyntax::Windows().Same(FromLongPath(own), folder);
}

// Whether the volume is another machine's, wherever the path begins.
bool IsRemote(const Handle& opened) {
  FILE_REMOTE_PROTOCOL_INFO protocol;
  return GetFileInformationByHandleEx(opened.Get(), FileRemoteProtocolInfo, &protocol,
                                      sizeof protocol) != 0;
}

// Shared by the request, its thread and the answer. The thread touches Folders and Stamps alone,
// before the answer is posted.
struct StampInquiry {
  std::vector<std::string> Folders;
  std::vector<FolderStamp> Stamps;
  FolderStamps::Told Told;
  bool IsWanted = true;
};

class WindowsStampRequest : public StampRequest {
 public:
  explicit WindowsStampRequest(std::shared_ptr<StampInquiry> inquiry)
      : inquiry_(std::move(inquiry)) {}
  WindowsStampRequest(const WindowsStampRequest&) = delete;
  WindowsStampRequest& operator=(const WindowsStampRequest&) = delete;
  ~WindowsStampRequest() override { inquiry_->IsWanted = false; }

 private:
  std::shared_ptr<StampInquiry> inquiry_;
};

}  // namespace

FolderFacts WindowsFolderStamps::ReadFacts(const std::string& folder) const {
  const bool isShare = NetworkShareOf(folder).has_value();
  const Handle opened = OpenItem(folder, true);
  if (!opened) return {.Stamp = {}, .IsLocal = !isShare};
  return {.Stamp = StampOf(opened),
          .IsLocal = !isShare && !IsRemote(opened),
          .IsByLink = DiffersFromOwnPath(opened, folder)};
}

FolderStamp WindowsFolderStamps::Read(const std::string& folder) const {
  return StampOf(OpenItem(folder, true));
}

std::unique_ptr<StampRequest> WindowsFolderStamps::Ask(std::vector<std::string> folders,
                                                       Told told) {
  const auto inquiry = std::make_shared<StampInquiry>();
  inquiry->Folders = std::move(folders);
  inquiry->Told = std::move(told);
  const auto look = [inquiry]() noexcept {
    for (const std::string& folder : inquiry->Folders) {
      inquiry->Stamps.push_back(StampOf(OpenItem(folder, true)));
    }
    PostToLoop([inquiry] {
      if (inquiry->IsWanted) inquiry->Told(inquiry->Stamps);
    });
  };
  try {
    std::thread(look).detach();
  } catch (const std::system_error&) {
    return nullptr;
  }
  return std::make_unique<WindowsStampRequest>(inquiry);
}

}  // namespace tarnwell::platform
