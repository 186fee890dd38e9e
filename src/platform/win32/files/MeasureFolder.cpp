#include "platform/win32/files/MeasureFolder.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/win32/api/Handle.h"
#include "platform/win32/api/SystemError.h"
#include "platform/win32/files/ItemLook.h"
#include "platform/win32/files/SystemPath.h"

namespace tarnwell::platform {
namespace {

constexpr int CountPerCall = 64;  // items between two questions whether to go on

struct ListedItem {
  DWORD Attributes = 0;
  DWORD Tag = 0;  // of a reparse point
  std::uint64_t Bytes = 0;
  std::uint64_t OnDisk = 0;
  std::uint64_t Number = 0;  // on the volume; 0 where it is not told
};

// The system tells the tag of a reparse point where other items have the size of their extended
// attributes ([MS-FSCC] 2.4.17).
template <class Entry>
ListedItem ItemOf(const Entry& entry) {
  ListedItem item{.Attributes = entry.FileAttributes,
                  .Tag = entry.EaSize,
                  .Bytes = static_cast<std::uint64_t>(entry.EndOfFile.QuadPart),
                  .OnDisk = static_cast<std::uint64_t>(entry.AllocationSize.QuadPart)};
  if constexpr (requires { entry.FileId; }) {
    constexpr std::uint64_t none = ~std::uint64_t{0};  // of volumes whose numbers are longer
    item.Number = static_cast<std::uint64_t>(entry.FileId.QuadPart);
    if (item.Number == none) item.Number = 0;
  }
  return item;
}

// Items of an open folder, some hundred at a time.
class ItemBuffer {
 public:
  // Gives the next ones to `take`, until that returns false. ERROR_NO_MORE_FILES at the end.
  template <class Take>
  DWORD Read(HANDLE folder, const Take& take) {
    if (hasNumbers_) {
      const DWORD error = ReadAs<FILE_ID_BOTH_DIR_INFO>(folder, FileIdBothDirectoryInfo, take);
      // There are servers, and drivers of file systems, that do not know this list.
      hasNumbers_ = error != ERROR_INVALID_PARAMETER && error != ERROR_INVALID_FUNCTION &&
                    error != ERROR_INVALID_LEVEL && error != ERROR_NOT_SUPPORTED;
      if (hasNumbers_) return error;
    }
    return ReadAs<FILE_FULL_DIR_INFO>(folder, FileFullDirectoryInfo, take);
  }

 private:
  template <class Entry, class Take>
  DWORD ReadAs(HANDLE folder, FILE_INFO_BY_HANDLE_CLASS list, const Take& take) {
    if (GetFileInformationByHandleEx(folder, list, bytes_.get(), Size) == 0) return GetLastError();
    for (const std::byte* at = bytes_.get();;) {
      const auto& entry = *reinterpret_cast<const Entry*>(at);
      const std::wstring_view name(entry.FileName, entry.FileNameLength / sizeof(wchar_t));
      if (name != L"." && name != L".." && !take(ItemOf(entry), name)) return ERROR_CANCELLED;
      if (entry.NextEntryOffset == 0) return ERROR_SUCCESS;
      at += entry.NextEntryOffset;
    }
  }

  static constexpr DWORD Size = 65536;  // bytes; the most that all servers take
  std::unique_ptr<std::byte[]> bytes_ = std::make_unique<std::byte[]>(Size);
  bool hasNumbers_ = true;
};

bool IsNoTrouble(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ||
         error == ERROR_DIRECTORY || error == ERROR_DELETE_PENDING;
}

class MeasureWalk {
 public:
  MeasureWalk(const FileSystem::GoOn& goOn, FolderTotal& total) : goOn_(goOn), total_(total) {}

  base::Status Run(const std::wstring& folder) {
    const Handle first = OpenItem(folder, true, FILE_LIST_DIRECTORY);
    if (!first) return LastError();
    FILE_STANDARD_INFO facts;
    if (GetFileInformationByHandleEx(first.Get(), FileStandardInfo, &facts, sizeof facts) != 0) {
      total_.FoldersOnDisk += static_cast<std::uint64_t>(facts.AllocationSize.QuadPart);
    }
    BY_HANDLE_FILE_INFORMATION volume;
    if (GetFileInformationByHandle(first.Get(), &volume) != 0)
      volume_ = volume.dwVolumeSerialNumber;

    path_ = folder;
    if (const DWORD error = ReadItems(first.Get()); error != ERROR_SUCCESS) {
      return SystemError(error);
    }
    while (!waiting_.empty() && goes_) EnterNext();
    return {};
  }

 private:
  struct WaitingFolder {
    std::size_t ParentLength;  // of the path of the folder that it is in
    std::wstring Name;
  };

  // The last that was found, so that those that wait are few and lie along the path.
  void EnterNext() {
    const WaitingFolder next = std::move(waiting_.back());
    waiting_.pop_back();
    path_.resize(next.ParentLength);
    if (!path_.ends_with(L'\\')) path_ += L'\\';
    path_ += next.Name;
    GoOn();
    if (!goes_) return;
    // A link that has taken the folder's place meanwhile is opened itself, and holds nothing.
    const Handle opened = OpenItem(path_, false, FILE_LIST_DIRECTORY);
    Note(opened ? ReadItems(opened.Get()) : GetLastError());
  }

  DWORD ReadItems(HANDLE folder) {
    DWORD error = ERROR_SUCCESS;
    while (error == ERROR_SUCCESS) {
      error = buffer_.Read(folder, [this](const ListedItem& item, std::wstring_view name) {
        TakeItem(item, name);
        GoOn();
        return goes_;
      });
    }
    // The root of a drive without items has not even "." to tell of.
    const bool isEnd = error == ERROR_NO_MORE_FILES || error == ERROR_FILE_NOT_FOUND;
    return isEnd || error == ERROR_CANCELLED ? ERROR_SUCCESS : error;
  }

  void TakeItem(const ListedItem& item, std::wstring_view name) {
    const bool isLink = IsLinkTag(item.Attributes, item.Tag);
    if ((item.Attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && !isLink) {
      ++total_.Folders;
      total_.FoldersOnDisk += item.OnDisk;
      waiting_.push_back({path_.size(), std::wstring(name)});
      return;
    }
    ++total_.Files;
    if (isLink) return;
    if (item.Number != 0) {
      const FileIdentity file{volume_, item.Number};
      if (!inWalk_.Add(file)) return;
      if (total_.Counted != nullptr && !total_.Counted->Add(file)) {
        total_.RepeatedBytes += item.Bytes;
        total_.RepeatedOnDisk += item.OnDisk;
      }
    }
    total_.Bytes += item.Bytes;
    total_.OnDisk += item.OnDisk;
  }

  // To be asked after each item and before each folder: many folders may hold nothing.
  void GoOn() {
    if (++sinceCall_ < CountPerCall) return;
    sinceCall_ = 0;
    goes_ = goes_ && goOn_(total_);
  }

  void Note(DWORD error) {
    if (error == ERROR_SUCCESS || IsNoTrouble(error)) return;
    if (total_.Unreadable++ == 0) total_.Trouble = SystemError(error);
  }

  const FileSystem::GoOn& goOn_;
  FolderTotal& total_;
  std::uint64_t volume_ = 0;
  std::wstring path_;  // of the folder that is read
  std::vector<WaitingFolder> waiting_;
  CountedFiles inWalk_;
  ItemBuffer buffer_;
  int sinceCall_ = 0;
  bool goes_ = true;
};

}  // namespace

base::Status MeasureFolder(const std::string& folder, const FileSystem::GoOn& goOn,
                           FolderTotal& total) {
  const SystemPath path(folder);
  if (path.Error() != ERROR_SUCCESS) return SystemError(path.Error());
  return MeasureWalk(goOn, total).Run(path.Wide());
}

}  // namespace tarnwell::platform
