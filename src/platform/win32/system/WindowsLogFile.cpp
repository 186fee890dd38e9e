#include "platform/win32/system/WindowsLogFile.h"

#include <algorithm>

#include "base/Text.h"
#include "platform/win32/api/ProcessText.h"
#include "platform/win32/api/SystemError.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/ReplaceContent.h"
#include "platform/win32/system/WriteToTerminal.h"

namespace tarnwell::platform {
namespace {

constexpr std::string_view logMark = "# Tarnwell message log\n";

base::Status WriteLog(const Handle& file, std::string_view text) {
  OVERLAPPED atEnd{};  // by the documentation of WriteFile
  atEnd.Offset = atEnd.OffsetHigh = 0xFFFFFFFF;
  DWORD written = 0;
  if (WriteFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &written, &atEnd) ==
      FALSE) {
    return LastError();
  }
  return written == text.size() ? base::Status() : SystemError(ERROR_DISK_FULL);
}

// Fewer bytes than asked for at the file's end, or where it cannot be read.
std::string ReadLog(const Handle& file, std::int64_t place, std::int64_t size) {
  std::string text(static_cast<std::size_t>(size), '\0');
  OVERLAPPED where{};
  where.Offset = static_cast<DWORD>(place);
  where.OffsetHigh = static_cast<DWORD>(place >> 32);
  DWORD got = 0;
  if (ReadFile(file.Get(), text.data(), static_cast<DWORD>(size), &got, &where) == FALSE) got = 0;
  text.resize(got);
  return text;
}

struct LogFacts {
  std::int64_t Size = 0;
  bool IsGone = false;  // deleted, but for this handle
  bool IsOnlyName = true;
};

base::Status LookAtLog(const Handle& file, LogFacts& facts) {
  FILE_STANDARD_INFO found{};
  if (GetFileInformationByHandleEx(file.Get(), FileStandardInfo, &found, sizeof found) == FALSE) {
    return LastError();
  }
  facts.Size = found.EndOfFile.QuadPart;
  facts.IsGone = found.DeletePending != FALSE || found.NumberOfLinks == 0;
  facts.IsOnlyName = found.NumberOfLinks <= 1;
  return {};
}

bool IsLogLink(const Handle& file) {
  FILE_ATTRIBUTE_TAG_INFO found{};
  return GetFileInformationByHandleEx(file.Get(), FileAttributeTagInfo, &found, sizeof found) !=
             FALSE &&
         (found.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

}  // namespace

std::unique_ptr<WindowsLogFile> WindowsLogFile::Open(const char* wanted,
                                                     const std::string& programFolder,
                                                     std::int64_t limit) {
  const std::string_view word = wanted != nullptr ? wanted : "";
  if (word.empty() || word == "0") return nullptr;
  // The current folder may be another one when the file is opened again.
  const std::string path =
      word == "1" ? programFolder + R"(\_MsgLog.txt)" : Narrow(FullPath(Wide(word)));
  std::unique_ptr<WindowsLogFile> log(new WindowsLogFile(path, limit));
  if (const base::Status status = log->OpenFile(); !status) {
    log->GiveUp(status);
    return nullptr;
  }
  return log;
}

WindowsLogFile::WindowsLogFile(const std::string& path, std::int64_t limit)
    : path_(path), longPath_(LongPath(path)), limit_(limit) {}

// Others may read the file and delete it, but not write to it: who opens it here has it.
base::Status WindowsLogFile::OpenFile() {
  file_ = {};
  Handle file(CreateFileW(longPath_.c_str(), GENERIC_READ | GENERIC_WRITE,
                          FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                          FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  if (!file) {
    const DWORD error = GetLastError();
    if (error != ERROR_SHARING_VIOLATION) return SystemError(error);
    return {ERROR_SHARING_VIOLATION, "Another run of the program writes to it"};
  }
  if (GetFileType(file.Get()) != FILE_TYPE_DISK) return {ERROR_BAD_FILE_TYPE, "It is no file"};
  if (IsLogLink(file)) return {ERROR_BAD_FILE_TYPE, "It is a link"};
  LogFacts found;
  if (const base::Status status = LookAtLog(file, found); !status) return status;
  if (!found.IsOnlyName) return {ERROR_TOO_MANY_LINKS, "It has another name as well"};
  if (found.Size > 0 && ReadLog(file, 0, std::int64_t(logMark.size())) != logMark) {
    return {ERROR_ALREADY_EXISTS, "It is there already, and no message log"};
  }
  file_ = std::move(file);
  if (found.Size > 0 && ReadLog(file_, found.Size - 1, 1) != "\n") {
    return WriteLog(file_, "\n");  // a crash of the system has cut a line off
  }
  return {};
}

void WindowsLogFile::Append(std::string_view line) {
  if (!file_) return;
  if (const base::Status status = Write(std::string(line) + '\n'); !status) GiveUp(status);
}

// Who wants to begin anew may delete the file at any time.
base::Status WindowsLogFile::Write(std::string_view line) {
  LogFacts found;
  base::Status status = LookAtLog(file_, found);
  if (!status) return status;
  if (found.IsGone) {
    status = OpenFile();
  } else if (found.Size + static_cast<std::int64_t>(line.size()) > limit_) {
    status = DropOlderHalf(found.Size);
  }
  if (status) status = LookAtLog(file_, found);
  if (!status) return status;
  std::string text(found.Size == 0 ? logMark : "");
  status = WriteLog(file_, text.append(line));
  if (!status) {  // a full disk may have taken a part of it
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = found.Size;
    SetFileInformationByHandle(file_.Get(), FileEndOfFileInfo, &end, sizeof end);
  }
  return status;
}

// In one step, so that a crash meanwhile costs no line.
base::Status WindowsLogFile::DropOlderHalf(std::int64_t size) {
  // A byte more, in case a line begins just there.
  const std::int64_t length = std::min(size, limit_ / 2 + 1);
  const std::string newer = ReadLog(file_, size - length, length);
  if (newer.size() != static_cast<std::size_t>(length)) return SystemError(ERROR_READ_FAULT);
  std::string kept(logMark);
  kept.append(newer, std::min(newer.find('\n'), newer.size() - 1) + 1);
  file_ = {};  // what is open is not replaced
  const base::Status status = ReplaceContent(path_, kept);
  return status ? OpenFile() : status;
}

void WindowsLogFile::GiveUp(const base::Status& status) {
  file_ = {};
  WriteToTerminal(TerminalStream::Error, "tarnwell: the message log \"" + base::ForDisplay(path_) +
                                             "\" cannot be written: " + status.Reason + "\n");
}

}  // namespace tarnwell::platform
