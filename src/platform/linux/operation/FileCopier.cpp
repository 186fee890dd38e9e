#include "platform/linux/operation/FileCopier.h"

#include "platform/linux/operation/CopyAttributes.h"
#include "platform/linux/posix/ItemStat.h"

namespace tarnwell::platform {

// Nobody is to read it meanwhile who may not read the original.
mode_t FileCopier::FirstMode(const struct statx& source) const {
  const bool isOwn = source.stx_uid == user_ && source.stx_gid == group_;
  return source.stx_mode & (isOwn ? 0777U : 0700U);
}

FileCopier::Outcome FileCopier::Copy(int from, const struct statx& source, int to,
                                     const struct statx& copy, bool mayInherit,
                                     const ContentCopier::TakeProgress& progress) {
  ErrorNumber error = content_.Copy(from, source, to, copy, progress);
  if (error != NoError) {
    return {content_.IsReadError() ? OperationStep::Read : OperationStep::Write, error};
  }
  struct statx after;
  error = LookAt(from, "", after);
  if (error != NoError) return {OperationStep::Read, error};
  const bool isWhole = source.stx_size == 0 || content_.Length() == source.stx_size;
  Outcome outcome;
  outcome.IsChanged = !IsUnchanged(source, after);
  // Logs and recordings are never at rest. Their original stays, unless it is moved.
  if (outcome.IsChanged && moves_) {
    return {OperationStep::Read, EBUSY, "The file has changed while it was copied"};
  }
  if (!isWhole && !outcome.IsChanged) {
    return {OperationStep::Read, EIO, "The file gives less than its size tells"};
  }
  outcome.Step = OperationStep::Write;
  outcome.Error = CopyAttributes(from, source, to, copy, mayInherit, outcome.LosesSome);
  return outcome;
}

// In a new folder a fingerprint takes size and time alone, and a look at each of thousands of small
// files is to be felt: where one has kept its time to the last digit, all do.
ErrorNumber FileCopier::LookAtCopy(int file, const struct statx& source, bool isOwn,
                                   struct statx& copy) {
  const ItemIdentity volume{copy.stx_dev_major, copy.stx_dev_minor, 0};
  if (!moves_ && isOwn && volume == keepsTimes_) {
    copy.stx_size = content_.Length();
    copy.stx_mtime = source.stx_mtime;
    return NoError;
  }
  const ErrorNumber error = LookAt(file, "", copy);
  const bool hasFineTime = source.stx_mtime.tv_nsec % 10 != 0;
  if (error == NoError && hasFineTime &&
      Nanoseconds(copy.stx_mtime) == Nanoseconds(source.stx_mtime))
    keepsTimes_ = volume;
  return error;
}

}  // namespace tarnwell::platform
