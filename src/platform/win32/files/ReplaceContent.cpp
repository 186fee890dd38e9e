#include "platform/win32/files/ReplaceContent.h"

#include <algorithm>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string_view>

#include "base/PathSyntax.h"
#include "platform/win32/api/Handle.h"
#include "platform/win32/api/SystemError.h"
#include "platform/win32/files/FilePermissions.h"
#include "platform/win32/files/ItemLook.h"
#include "platform/win32/files/LinkTarget.h"
#include "platform/win32/files/NamedStreams.h"
#include "platform/win32/files/NamingError.h"
#include "platform/win32/files/SystemPath.h"

namespace tarnwell::platform {
namespace {

// What a program that looks for viruses, or an index, holds open it frees within moments.
constexpr int HeldAttempts = 10;
constexpr DWORD HeldRest = 10;  // milliseconds

// Makes the call until its error is no longer one of those that say so.
template <class Call>
DWORD WaitUntilFree(const Call& call, DWORD held, DWORD alsoHeld) {
  for (int attempt = 1;; ++attempt) {
    const DWORD error = call();
    if ((error != held && error != alsoHeld) || attempt == HeldAttempts) return error;
    Sleep(HeldRest);
  }
}

constexpr int NameAttempts = 100;

// What a file keeps for life, and can be made with.
constexpr DWORD LastingAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                    FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_ENCRYPTED |
                                    FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

std::wstring TemporaryPath(const std::wstring& folder) {
  std::random_device chance;
  const std::uint64_t number = (std::uint64_t{chance()} << 32U) | chance();
  wchar_t name[64];
  std::swprintf(name, std::size(name), L".tarnwell-%lx-%016" PRIx64 L".tmp", GetCurrentProcessId(),
                number);
  return folder.ends_with(L'\\') ? folder + name : folder + L'\\' + name;
}

// The file that is replaced, open.
struct OldFile {
  Handle File;
  FILE_BASIC_INFO Facts{};

  // An error where it may not be written. Not open where there is none.
  base::Status Open(const std::wstring& path) {
    WIN32_FIND_DATAW found;
    const DWORD error = LookAtItem(path, found);
    if (error == ERROR_FILE_NOT_FOUND) return {};
    if (error != ERROR_SUCCESS) return SystemError(error);
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
      return NoFileError();
    }
    // To move over it, only the folder is asked; a file that is set read-only has to stay all the
    // same.
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) {
      return {ERROR_ACCESS_DENIED, "The file is set read-only"};
    }
    const auto open = [&]() -> DWORD {
      File = Handle(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, ShareAll,
                                nullptr, OPEN_EXISTING, 0, nullptr));
      return File ? ERROR_SUCCESS : GetLastError();
    };
    const DWORD opened = WaitUntilFree(open, ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION);
    if (opened != ERROR_SUCCESS) return SystemError(opened);
    const bool isKnown =
        GetFileInformationByHandleEx(File.Get(), FileBasicInfo, &Facts, sizeof Facts) != 0;
    return isKnown ? base::Status() : LastError();
  }
};

// The file under its temporary name, removed unless it was moved.
class TemporaryFile {
 public:
  TemporaryFile() = default;
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    file_ = Handle();
    if (!path_.empty()) DeleteFileW(path_.c_str());
  }

  DWORD Create(const std::wstring& folder, DWORD attributes) {
    for (int attempt = 0; attempt < NameAttempts; ++attempt) {
      const std::wstring path = TemporaryPath(folder);
      // Shares may keep the right to change permissions from those who may change files.
      for (const DWORD right : {WRITE_DAC, 0L}) {
        file_ = Handle(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE | right,
                                   ShareAll, nullptr, CREATE_NEW, attributes, nullptr));
        if (file_ || GetLastError() != ERROR_ACCESS_DENIED) break;
      }
      if (file_) {
        path_ = path;
        return GoesWithHandle(true);
      }
      if (GetLastError() != ERROR_FILE_EXISTS) return GetLastError();
    }
    return ERROR_FILE_EXISTS;
  }

  DWORD Write(std::string_view content) {
    constexpr std::size_t most = 1U << 20U;
    while (!content.empty()) {
      const auto length = static_cast<DWORD>(std::min(content.size(), most));
      DWORD written = 0;
      if (WriteFile(file_.Get(), content.data(), length, &written, nullptr) == 0) {
        return GetLastError();
      }
      if (written == 0) return ERROR_DISK_FULL;
      content.remove_prefix(written);
    }
    return FlushFileBuffers(file_.Get()) != 0 ? ERROR_SUCCESS : GetLastError();
  }

  // Takes over what belongs to the file beside its content.
  DWORD TakeOver(const OldFile& old, const std::wstring& oldPath) {
    if (const DWORD error = TakePermissions(file_.Get(), old.File.Get()); error != ERROR_SUCCESS) {
      return error;
    }
    FILE_BASIC_INFO made{};  // what is 0 stays
    made.CreationTime = old.Facts.CreationTime;
    SetFileInformationByHandle(file_.Get(), FileBasicInfo, &made, sizeof made);
    if (!KeepsStreams(oldPath)) return ERROR_SUCCESS;
    const DWORD error = GoesWithHandle(false);
    return error == ERROR_SUCCESS ? CopyStreams(oldPath, path_) : error;
  }

  // In place of a file whose permissions let it be replaced, or of none.
  DWORD MoveTo(const std::wstring& path, bool replaces) {
    if (const DWORD error = GoesWithHandle(false); error != ERROR_SUCCESS) return error;
    file_ = Handle();
    const auto move = [&]() -> DWORD {
      constexpr DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
      return MoveFileExW(path_.c_str(), path.c_str(), how) != 0 ? ERROR_SUCCESS : GetLastError();
    };
    const DWORD error = WaitUntilFree(move, ERROR_SHARING_VIOLATION, ERROR_ACCESS_DENIED);
    if (error == ERROR_SUCCESS) path_.clear();
    // The system says so of a file that is open.
    return error == ERROR_ACCESS_DENIED && replaces ? ERROR_SHARING_VIOLATION : error;
  }

 private:
  // So that nothing is left of it where the program ends in between.
  DWORD GoesWithHandle(bool goes) {
    FILE_DISPOSITION_INFO end{};
    end.DeleteFile = goes ? TRUE : FALSE;
    const bool isSet =
        SetFileInformationByHandle(file_.Get(), FileDispositionInfo, &end, sizeof end) != 0;
    return isSet || goes ? ERROR_SUCCESS : GetLastError();
  }

  std::wstring path_;
  Handle file_;
};

}  // namespace

base::Status ReplaceContent(const std::string& path, const std::string& content) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  if (path.ends_with(syntax.Separator)) return NoFileError();
  std::string target = path;
  if (const DWORD error = FollowLinks(target); error != ERROR_SUCCESS) return SystemError(error);
  const SystemPath file(target);
  OldFile old;
  if (base::Status status = old.Open(file.Wide()); !status) return status;
  if (!old.File && !syntax.IsName(syntax.LastComponent(target))) {
    return NamingError(ERROR_INVALID_NAME);
  }

  const DWORD attributes = old.Facts.FileAttributes & LastingAttributes;
  const std::string folder = syntax.ParentOf(target);
  TemporaryFile temporary;
  DWORD error = temporary.Create(SystemPath(folder.empty() ? "." : folder).Wide(),
                                 attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL);
  if (error == ERROR_SUCCESS) error = temporary.Write(content);
  if (error == ERROR_SUCCESS && old.File) error = temporary.TakeOver(old, file.Wide());
  const bool replaces = static_cast<bool>(old.File);
  old.File = Handle();
  if (error == ERROR_SUCCESS) error = temporary.MoveTo(file.Wide(), replaces);
  return SystemError(error);
}

}  // namespace tarnwell::platform
