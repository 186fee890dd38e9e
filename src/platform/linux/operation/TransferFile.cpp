#include <unistd.h>

#include <array>
#include <climits>

#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/operation/CopyAttributes.h"
#include "platform/linux/operation/ItemTransfer.h"
#include "platform/linux/operation/PendingFile.h"

namespace tarnwell::platform {
ItemTransfer::Failure ItemTransfer::CopyFile(const Item& item) {
  // No waiting, should another item have taken its place.
  constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
  const Descriptor from(openat(walk_.Folder(), item.Name.c_str(), flags));
  struct statx source;
  const ErrorNumber error = from ? LookAt(from.Get(), "", source) : errno;
  if (error != NoError) return {OperationStep::Read, error};
  if (!S_ISREG(source.stx_mode)) return {OperationStep::Read, EINVAL, "Not a regular file"};

  // Its other names must find it, and what takes long must not lie hidden.
  Level& level = walk_.Here();
  const bool isLinked = source.stx_nlink > 1;
  if ((isLinked || source.stx_size > SmallFileSize) && !level.ReplacesFile && !PutInPlace()) {
    return {};  // the user has heard of it
  }
  if (isLinked) {
    const ErrorNumber linked = links_.Link(source, target_.Folder.Get(), targets_.Get(),
                                           item.Target.c_str(), MayGoFor(item));
    if (linked == NoError) {
      NoteMade(item, source, PrintThere(item.Target));
      return FinishItem(item, source);
    }
    if (linked != ENOENT) return {OperationStep::Write, linked, nullptr, true};
  }
  const std::uint64_t bytesBefore = context_.BytesDone();
  const Failure failure = CopyContentOf(item, from.Get(), source);
  if (failure.Error == NoError) return FinishItem(item, source);
  context_.SetBytesDone(bytesBefore);
  return failure;
}

ItemTransfer::Failure ItemTransfer::CopyContentOf(const Item& item, int from,
                                                  const struct statx& source) {
  const auto written = [](ErrorNumber error) {
    return Failure{OperationStep::Write, error, nullptr, true};
  };
  const char* const name = item.Target.c_str();
  const bool replaces = item.Decided == Way::Replace;
  const bool isSmall = source.stx_size <= SmallFileSize;
  const bool isHidden = isSmall && !replaces && !walk_.Here().Temporary.empty();
  PendingFile pending(targets_.Get());
  ErrorNumber error = isHidden ? pending.CreateAs(name, copier_.FirstMode(source))
                               : pending.Create(copier_.FirstMode(source), replaces && isSmall);
  struct statx copy;
  if (error == NoError) error = LookAt(pending.Get(), "", copy);
  if (error != NoError) return written(error);

  const FileCopier::Outcome outcome =
      copier_.Copy(from, source, pending.Get(), copy, walk_.Here().HandsDown, [&](auto bytes) {
        context_.AddBytes(bytes);
        ReportIfDue(item);
        return context_.GoesOn();
      });
  if (outcome.Error != NoError) {
    return {outcome.Step, outcome.Error, outcome.Reason, outcome.Step == OperationStep::Write};
  }
  error = flushed_.Take(pending.Get(), copy);
  if (error != NoError) return written(error);
  if (outcome.LosesSome && LeavesForLoss(FromPath(item.Name))) {
    return {.Step = OperationStep::Write, .Error = ENOTSUP, .IsSettled = true};
  }
  error = copier_.LookAtCopy(pending.Get(), source, walk_.Here().IsOwn, copy);
  if (error != NoError) return written(error);
  if (moves_ && copy.stx_size != copier_.Length()) {
    return {OperationStep::Write, EIO, "The copy has not the size of the file", true};
  }
  error = pending.Place(name, MayGoFor(item));
  if (error != NoError) return written(error);
  NoteMade(item, source, FingerprintOf(copy, walk_.Here().To));
  if (outcome.IsChanged) context_.Remark(OperationRemark::Changed, FromPath(item.Name));
  if (source.stx_nlink > 1) {
    std::string now;
    for (std::size_t depth = 1; depth < walk_.Depth(); ++depth) {
      const Level& level = walk_.At(depth);
      now += (level.Temporary.empty() ? level.Target : level.Temporary) + "/";
    }
    links_.Add(source, copy, ToPath(item.Target).substr(target_.Path.size() + 1),
               now + item.Target);
  }
  return {};
}

// A copy has its original to go back to; a move would leave nothing of what is lost.
bool ItemTransfer::LeavesForLoss(const std::string& path) {
  return moves_ && context_.AskLoss(path) != LossChoice::MoveAnyway;
}

ItemTransfer::Failure ItemTransfer::CopyLink(const Item& item) {
  const int from = walk_.Folder();
  const int to = targets_.Get();
  // Looked at first: what comes into its place later is another item than the one that was copied.
  struct statx source;
  if (const ErrorNumber error = LookAt(from, item.Name.c_str(), source); error != NoError) {
    return {OperationStep::Read, error};
  }
  const Failure hasChanged{OperationStep::Read, EBUSY, "The link has changed while it was copied"};
  if (!S_ISLNK(source.stx_mode)) return hasChanged;
  std::array<char, PATH_MAX> text;
  const ssize_t length = readlinkat(from, item.Name.c_str(), text.data(), text.size() - 1);
  if (length < 0) return errno == EINVAL ? hasChanged : Failure{OperationStep::Read, errno};
  text.at(static_cast<std::size_t>(length)) = '\0';

  const bool replaces = item.Decided == Way::Replace;
  TemporaryName temporary;
  ErrorNumber error = replaces ? temporary.Renew() : NoError;
  const char* const name = replaces ? temporary.Text() : item.Target.c_str();
  if (error == NoError && symlinkat(text.data(), to, name) != 0) error = errno;
  if (error == NoError) {
    CopyLinkAttributes(source, to, name);
    if (replaces) error = TakePlaceOf(to, name, to, item.Target.c_str(), MayGoFor(item));
    if (error != NoError) unlinkat(to, name, 0);
  }
  if (error != NoError) return {OperationStep::Write, error, nullptr, true};
  NoteMade(item, source, PrintThere(item.Target));
  return FinishItem(item, source);
}

// A name is on the disk when its folder is. What new folders hold is seen to when they are left.
ItemTransfer::Failure ItemTransfer::FinishItem(const Item& item, const struct statx& source) {
  if (moves_ && !walk_.Here().IsNew) {
    struct statx folder;
    ErrorNumber error = LookAt(targets_.Get(), "", folder);
    if (error == NoError) error = flushed_.Take(targets_.Get(), folder);
    if (error != NoError) {
      ForgetCopied();
      return {OperationStep::Flush, error, nullptr, true};
    }
  }
  return Done(item, source);
}

}  // namespace tarnwell::platform
