#include "platform/linux/system/LinuxLogFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "platform/linux/operation/PendingFile.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

constexpr std::string_view firstLine = "# Tarnwell message log\n";
constexpr mode_t ownersOnly = 0600;

ErrorNumber WriteAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(file, text.data(), text.size());
    if (written < 0 && errno != EINTR) return errno;
    if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
  }
  return NoError;
}

// Fewer bytes than asked for at the file's end, or where it cannot be read.
std::string ReadFrom(int file, std::int64_t place, std::size_t size) {
  std::string text(size, '\0');
  std::size_t got = 0;
  while (got < size) {
    const auto at = static_cast<off_t>(place + static_cast<std::int64_t>(got));
    const ssize_t read = pread(file, text.data() + got, size - got, at);
    if (read < 0 && errno == EINTR) continue;
    if (read <= 0) break;
    got += static_cast<std::size_t>(read);
  }
  text.resize(got);
  return text;
}

}  // namespace

std::unique_ptr<LinuxLogFile> LinuxLogFile::Open(const char* wanted,
                                                 const std::string& programFolder,
                                                 std::int64_t limit) {
  const std::string_view word = wanted != nullptr ? wanted : "";
  if (word.empty() || word == "0") return nullptr;
  const std::string path = word == "1" ? programFolder + "/_MsgLog.txt" : std::string(word);
  std::unique_ptr<LinuxLogFile> log(new LinuxLogFile(path, limit));
  if (const base::Status status = log->OpenFile(); !status) {
    log->GiveUp(status);
    return nullptr;
  }
  return log;
}

LinuxLogFile::LinuxLogFile(const std::string& path, std::int64_t limit)
    : path_(path), name_(path, path.rfind('/') + 1), limit_(limit) {}

// Takes no link, and neither waits for who reads a pipe nor becomes the owner of a terminal.
base::Status LinuxLogFile::OpenFile() {
  file_ = {};
  if (!folder_) {
    const std::string folder = path_.substr(0, path_.size() - name_.size());
    folder_ = OpenPath(folder.empty() ? "." : folder, O_PATH | O_DIRECTORY);
    if (!folder_) return SystemError(errno);
  }
  if (name_.empty()) return SystemError(EISDIR);
  constexpr int flags =
      O_RDWR | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
  Descriptor file(openat(folder_.Get(), name_.c_str(), flags, ownersOnly));
  if (!file) return errno == ELOOP ? base::Status{ELOOP, "It is a link"} : SystemError(errno);
  struct stat found {};
  if (fstat(file.Get(), &found) != 0) return SystemError(errno);
  if (!S_ISREG(found.st_mode)) return NoRegularFile();
  if (found.st_nlink > 1) return {EMLINK, "It has another name as well"};
  // Where there are no locks, two runs may write to one log; lines stay whole even so.
  if (flock(file.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    return {EBUSY, "Another run of the program writes to it"};
  }
  if (found.st_size > 0 && ReadFrom(file.Get(), 0, firstLine.size()) != firstLine) {
    return {EEXIST, "It is there already, and no message log"};
  }
  file_ = std::move(file);
  if (found.st_size > 0 && ReadFrom(file_.Get(), found.st_size - 1, 1) != "\n") {
    return SystemError(WriteAll(file_.Get(), "\n"));  // a crash of the system has cut a line off
  }
  return {};
}

void LinuxLogFile::Append(std::string_view line) {
  if (!file_) return;
  if (const base::Status status = Write(std::string(line) + '\n'); !status) GiveUp(status);
}

// Who wants to begin anew may empty the file or delete it at any time.
base::Status LinuxLogFile::Write(std::string_view line) {
  struct stat found {};
  if (fstat(file_.Get(), &found) != 0) return SystemError(errno);
  base::Status status;
  if (found.st_nlink == 0) {
    status = OpenFile();
  } else if (found.st_size + static_cast<std::int64_t>(line.size()) > limit_) {
    status = DropOlderHalf(found.st_size);
  }
  if (!status) return status;
  if (fstat(file_.Get(), &found) != 0) return SystemError(errno);
  std::string start(found.st_size == 0 ? firstLine : "");
  const ErrorNumber error = WriteAll(file_.Get(), start.append(line));
  // A full disk may have taken a part of it.
  if (error != NoError && ftruncate(file_.Get(), found.st_size) != 0) return SystemError(errno);
  return SystemError(error);
}

// Beside the file, and renamed when whole, so that a crash meanwhile costs no line.
base::Status LinuxLogFile::DropOlderHalf(std::int64_t size) {
  // A byte more, in case a line begins just there.
  const std::int64_t wanted = std::min(size, limit_ / 2 + 1);
  const auto length = static_cast<std::size_t>(wanted);
  const std::string newer = ReadFrom(file_.Get(), size - wanted, length);
  if (newer.size() != length) return SystemError(EIO);
  std::string kept(firstLine);
  kept.append(newer, std::min(newer.find('\n'), length - 1) + 1);

  PendingFile pending(folder_.Get());
  ErrorNumber error = pending.Create(ownersOnly, true);
  if (error == NoError) error = WriteAll(pending.Get(), kept);
  if (error == NoError) error = pending.Place(name_.c_str(), [](int, const char*) { return true; });
  return error == NoError ? OpenFile() : SystemError(error);
}

void LinuxLogFile::GiveUp(const base::Status& status) {
  file_ = {};
  std::fprintf(stderr, "tarnwell: the message log \"%s\" cannot be written: %s\n", path_.c_str(),
               status.Reason.c_str());
}

}  // namespace tarnwell::platform
