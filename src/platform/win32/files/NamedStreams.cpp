#include "platform/win32/files/NamedStreams.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/win32/api/Handle.h"
#include "platform/win32/api/SystemError.h"
#include "platform/win32/files/ItemLook.h"

namespace tarnwell::platform {
namespace {

constexpr DWORD LongestNote = 65536;  // bytes

std::wstring StreamOf(const std::wstring& path, ExtendedAttribute attribute) {
  return path + (attribute == ExtendedAttribute::Colour ? L":tarnwell.color" : L":xdg.comment");
}

bool HasStreams(HANDLE item) {
  DWORD traits = 0;
  return GetVolumeInformationByHandleW(item, nullptr, 0, nullptr, nullptr, &traits, nullptr, 0) !=
             0 &&
         (traits & FILE_NAMED_STREAMS) != 0;
}

DWORD WriteStream(const std::wstring& path, std::string_view text) {
  // One that is there is cut at its end rather than made anew, which the system refuses for hidden
  // files.
  const Handle stream(CreateFileW(path.c_str(), GENERIC_WRITE, ShareAll, nullptr, OPEN_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD written = 0;
  const bool isKept = stream &&
                      WriteFile(stream.Get(), text.data(), static_cast<DWORD>(text.size()),
                                &written, nullptr) != 0 &&
                      written == text.size() && SetEndOfFile(stream.Get()) != 0;
  return isKept ? ERROR_SUCCESS : GetLastError();
}

DWORD RemoveStream(const std::wstring& path) {
  if (DeleteFileW(path.c_str()) != 0) return ERROR_SUCCESS;
  const DWORD error = GetLastError();
  return error == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : error;
}

DWORD CopyStream(const std::wstring& from, const std::wstring& to) {
  const Handle source(CreateFileW(from.c_str(), GENERIC_READ, ShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!source) return GetLastError();
  const Handle target(CreateFileW(to.c_str(), GENERIC_WRITE, ShareAll, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!target) return GetLastError();
  std::vector<char> part(65536);
  for (;;) {
    DWORD length = 0, written = 0;
    if (ReadFile(source.Get(), part.data(), static_cast<DWORD>(part.size()), &length, nullptr) ==
        0) {
      return GetLastError();
    }
    if (length == 0) return ERROR_SUCCESS;
    if (WriteFile(target.Get(), part.data(), length, &written, nullptr) == 0) return GetLastError();
    if (written != length) return ERROR_DISK_FULL;
  }
}

}  // namespace

bool KeepsStreams(const std::wstring& path) {
  const Handle item = OpenItem(path, true);
  return item && HasStreams(item.Get());
}

base::Status ReadNote(const std::wstring& path, ExtendedAttribute attribute, std::string& text) {
  text.clear();
  const Handle stream(CreateFileW(StreamOf(path, attribute).c_str(), GENERIC_READ, ShareAll,
                                  nullptr, OPEN_EXISTING, 0, nullptr));
  if (!stream) {
    const DWORD error = GetLastError();
    // A link may lead to a volume that keeps none, and takes the colon for a part of the name.
    const bool isNone = error == ERROR_FILE_NOT_FOUND || error == ERROR_INVALID_NAME;
    return SystemError(isNone ? ERROR_SUCCESS : error);
  }
  text.resize(LongestNote);
  DWORD length = 0;
  const bool isRead = ReadFile(stream.Get(), text.data(), LongestNote, &length, nullptr) != 0;
  text.resize(length);
  return isRead ? base::Status() : LastError();
}

base::Status WriteNote(const std::wstring& path, ExtendedAttribute attribute,
                       const std::string& text) {
  if (text.size() > LongestNote) return {ERROR_BUFFER_OVERFLOW, "The text is too long"};
  Handle item = OpenItem(path, true, FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES);
  if (!item) {
    const DWORD error = GetLastError();
    WIN32_FIND_DATAW found;
    const bool isLink = LookAtItem(path, found) == ERROR_SUCCESS && IsLinkEntry(found);
    const bool leadsNowhere =
        isLink && (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ||
                   error == ERROR_CANT_RESOLVE_FILENAME);
    return leadsNowhere ? base::Status{static_cast<int>(error), "The link leads nowhere"}
                        : SystemError(error);
  }
  if (!HasStreams(item.Get())) {
    return {ERROR_NOT_SUPPORTED, "This file system keeps no colours and comments"};
  }
  FILE_BASIC_INFO facts;
  if (GetFileInformationByHandleEx(item.Get(), FileBasicInfo, &facts, sizeof facts) == 0) {
    return LastError();
  }
  const std::wstring final = FinalPathOf(item.Get());
  const std::wstring stream = StreamOf(final.empty() ? path : final, attribute);
  const DWORD error = text.empty() ? RemoveStream(stream) : WriteStream(stream, text);
  if (error == ERROR_DISK_FULL) return {ERROR_DISK_FULL, "The drive has no room left for it"};
  if (error != ERROR_SUCCESS) return SystemError(error);
  SetFileInformationByHandle(item.Get(), FileBasicInfo, &facts, sizeof facts);
  return {};
}

DWORD CopyStreams(const std::wstring& from, const std::wstring& to) {
  WIN32_FIND_STREAM_DATA stream;
  const FindHandle streams(FindFirstStreamW(from.c_str(), FindStreamInfoStandard, &stream, 0));
  if (!streams) return GetLastError() == ERROR_HANDLE_EOF ? ERROR_SUCCESS : GetLastError();
  do {
    const std::wstring_view name(stream.cStreamName);
    if (name.starts_with(L"::")) continue;  // the content
    const DWORD error = CopyStream(from + stream.cStreamName, to + stream.cStreamName);
    if (error != ERROR_SUCCESS) return error;
  } while (FindNextStreamW(streams.Get(), &stream) != 0);
  return GetLastError() == ERROR_HANDLE_EOF ? ERROR_SUCCESS : GetLastError();
}

}  // namespace tarnwell::platform
