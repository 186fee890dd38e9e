#include "platform/linux/operation/CopyContent.h"

#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <limits>

namespace tarnwell::platform {
namespace {

constexpr std::uint64_t rangeSize = 8 << 20;  // between two questions whether to go on
constexpr std::uint64_t noEnd = std::numeric_limits<std::int64_t>::max();

bool IsFull(ErrorNumber error) {
  return error == ENOSPC || error == EDQUOT || error == EFBIG;
}

}  // namespace

ErrorNumber ContentCopier::Copy(int from, const struct statx& source, int to,
                                const struct statx& target, const TakeProgress& progress) {
  isReadError_ = false;
  length_ = 0;
  ChooseWays(source, target);
  const std::uint64_t size = source.stx_size;
  if (size > 0 && Clones(from, to)) {
    length_ = size;
    return progress(size) ? NoError : ECANCELED;
  }
  // Files of /proc and the like state no size, and still have content.
  if (size == 0) return CopyByHand(from, to, 0, noEnd, progress);
  const bool hasHoles = source.stx_blocks * 512 < size;
  if (size <= bufferSize && !hasHoles) return CopyByHand(from, to, 0, size, progress);
  return CopyByExtents(from, to, size, progress);
}

void ContentCopier::ChooseWays(const struct statx& source, const struct statx& target) {
  const ItemIdentity from{source.stx_dev_major, source.stx_dev_minor, 0};
  const ItemIdentity to{target.stx_dev_major, target.stx_dev_minor, 0};
  if (!ways_ || ways_->From != from || ways_->To != to) ways_ = Ways{from, to};
}

bool ContentCopier::Clones(int from, int to) {
  if (!ways_->Clone) return false;
  if (ioctl(to, FICLONE, from) == 0) return true;
  // Other errors may be this file's own.
  if (errno == EOPNOTSUPP || errno == ENOTTY || errno == EXDEV || errno == ENOSYS) {
    ways_->Clone = false;
  }
  return false;
}

ErrorNumber ContentCopier::CopyByExtents(int from, int to, std::uint64_t size,
                                         const TakeProgress& progress) {
  std::uint64_t at = 0;
  while (at < size) {
    std::uint64_t start = at;
    std::uint64_t end = size;
    if (const off_t data = lseek(from, static_cast<off_t>(at), SEEK_DATA); data >= 0) {
      start = std::min(static_cast<std::uint64_t>(data), size);
      const off_t hole = lseek(from, data, SEEK_HOLE);
      if (hole > data) end = std::min(static_cast<std::uint64_t>(hole), size);
    } else if (errno == ENXIO) {
      // Nothing but a hole from here on, or the source has become shorter.
      if (lseek(from, 0, SEEK_END) < static_cast<off_t>(size)) return NoError;
      start = size;
    }
    if (start > at && !progress(start - at)) return ECANCELED;
    if (start < end) {
      if (const ErrorNumber error = CopyRange(from, to, start, end, progress); error != NoError)
        return error;
      if (length_ < end) return NoError;  // the source has become shorter
    }
    at = end;
    length_ = end;
  }
  return ErrorOf(ftruncate(to, static_cast<off_t>(size)));
}

ErrorNumber ContentCopier::CopyRange(int from, int to, std::uint64_t start, std::uint64_t end,
                                     const TakeProgress& progress) {
  std::uint64_t at = start;
  while (at < end && ways_->Range) {
    off64_t read = static_cast<off64_t>(at);
    off64_t written = read;
    const auto wanted = static_cast<std::size_t>(std::min(end - at, rangeSize));
    const ssize_t got = copy_file_range(from, &read, to, &written, wanted, 0);
    if (got > 0) {
      at += static_cast<std::uint64_t>(got);
      length_ = at;
      if (!progress(static_cast<std::uint64_t>(got))) return ECANCELED;
      continue;
    }
    if (got < 0 && errno == EINTR) continue;
    if (got < 0 && IsFull(errno)) return errno;
    // Some file systems give nothing this way though there is something: so it goes by hand.
    if (got < 0 && errno != EIO) ways_->Range = false;
    break;
  }
  return at < end ? CopyByHand(from, to, at, end, progress) : NoError;
}

ErrorNumber ContentCopier::CopyByHand(int from, int to, std::uint64_t start, std::uint64_t end,
                                      const TakeProgress& progress) {
  std::uint64_t at = start;
  while (at < end) {
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(end - at, bufferSize));
    const ssize_t got = pread(from, buffer_.get(), wanted, static_cast<off_t>(at));
    if (got < 0 && errno == EINTR) continue;
    isReadError_ = got < 0;
    if (got < 0) return errno;
    if (got == 0) break;
    const auto count = static_cast<std::size_t>(got);
    if (const ErrorNumber error = WriteAll(to, count, at); error != NoError) return error;
    at += count;
    length_ = at;
    if (!progress(count)) return ECANCELED;
  }
  return NoError;
}

ErrorNumber ContentCopier::WriteAll(int to, std::size_t count, std::uint64_t at) {
  std::size_t done = 0;
  while (done < count) {
    const ssize_t written =
        pwrite(to, buffer_.get() + done, count - done, static_cast<off_t>(at + done));
    if (written < 0 && errno != EINTR) return errno;
    if (written > 0) done += static_cast<std::size_t>(written);
  }
  return NoError;
}

}  // namespace tarnwell::platform
