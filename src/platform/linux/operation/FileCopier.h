// One file's content and attributes.
#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>

#include "platform/OperationUser.h"
#include "platform/linux/operation/CopyContent.h"
#include "platform/linux/posix/ErrorNumber.h"
#include "platform/linux/posix/ItemIdentity.h"

namespace tarnwell::platform {

// Files up to this size may be written under their own names, into a folder that has none yet.
inline constexpr std::uint64_t SmallFileSize = 1 << 20;

// Fills open files, one after the other, and asks nobody. Remembers what volumes cannot do; each
// thread has its own.
class FileCopier {
 public:
  explicit FileCopier(bool moves) : moves_(moves) {}

  // The permissions that a copy is made with.
  mode_t FirstMode(const struct statx& source) const;

  struct Outcome {
    OperationStep Step = OperationStep::Read;  // or Write: which side the error is on
    ErrorNumber Error;
    const char* Reason = nullptr;  // where the system's own words would mislead
    bool IsChanged = false;        // others wrote the source meanwhile; an error for a move
    bool LosesSome = false;        // see CopyAttributes
  };

  // `copy` is the empty file `to` as it was made; see ContentCopier and CopyAttributes.
  Outcome Copy(int from, const struct statx& source, int to, const struct statx& copy,
               bool mayInherit, const ContentCopier::TakeProgress& progress);
  // Bytes that the last copy found.
  std::uint64_t Length() const { return content_.Length(); }
  // Looks at the file that was filled last, for its fingerprint: in a folder that is `isOwn`, that
  // is new or lies below a new one, at what this takes.
  ErrorNumber LookAtCopy(int file, const struct statx& source, bool isOwn, struct statx& copy);

 private:
  const bool moves_;
  const uid_t user_ = geteuid();
  const gid_t group_ = getegid();
  ContentCopier content_;
  ItemIdentity keepsTimes_;  // volume, without a number, that has kept a copy's time as it was
};

}  // namespace tarnwell::platform
