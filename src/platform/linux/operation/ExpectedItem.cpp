#include "platform/linux/operation/ExpectedItem.h"

#include <cerrno>

#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/posix/ItemIdentity.h"

namespace tarnwell::platform {

void TellOfOther(OperationContext& context, const std::string& path, ErrorNumber error) {
  const bool isGone = error == ENOENT;
  context.Remark(isGone ? OperationRemark::GoneSince : OperationRemark::ChangedSince, path);
  context.NoteLeft(error);
}

bool IsAsExpected(OperationContext& context, int folder, const std::string& name,
                  const std::string& path, const ItemFingerprint* expected) {
  if (expected == nullptr) return true;
  struct statx found;
  ErrorNumber error;
  while ((error = LookAt(folder, name.c_str(), found)) != NoError && error != ENOENT &&
         context.Retries(OperationStep::Find, path, error)) {
  }
  if (error == ENOENT) TellOfOther(context, path, error);
  if (error != NoError) return false;
  ItemFingerprint print = FingerprintOf(found, TraitsOf(folder));
  if (expected->Below != 0 && S_ISDIR(found.stx_mode)) {
    print.Below = FindBelow(folder, name.c_str(), [&] { return context.GoesOn(); });
  }
  if (context.IsCancelled()) return false;
  if (print == *expected) return true;
  TellOfOther(context, path, ESTALE);
  return false;
}

}  // namespace tarnwell::platform
