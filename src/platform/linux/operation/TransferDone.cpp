// What of a transfer can be taken back.
#include <fcntl.h>

#include "platform/linux/files/FindItem.h"
#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/operation/ItemTransfer.h"

namespace tarnwell::platform {

// What lies in a new folder is told with that: of the folders on the way only those that were there
// before have items of their own to tell of.
void ItemTransfer::NoteMade(const Item& item, const ItemFingerprint& print) {
  Level& level = walk_.Here();
  const bool replaces = item.Decided == Way::Replace;
  if (level.IsOwn) {
    level.Made.Below += ShareOf(item.Target, print);
    level.IsUnsure |= replaces || print == ItemFingerprint();
  } else if (replaces) {
    context_.NoteIrrevocable();
  } else if (moves_) {
    arrived_.push_back({FromPath(item.Name), ToPath(item.Target), print});
  } else {
    context_.NoteDone({FromPath(item.Name), ToPath(item.Target), print});
  }
}

ItemFingerprint ItemTransfer::PrintThere(const std::string& name) {
  struct statx found;
  const bool isThere = LookAt(targets_.Get(), name.c_str(), found) == NoError;
  return isThere ? FingerprintOf(found, walk_.Here().To) : ItemFingerprint();
}

void ItemTransfer::NoteFolder(const std::string& name, const Level& left) {
  Level& above = walk_.Here();
  if (above.IsOwn && (left.IsUnsure || !left.IsNew)) above.IsUnsure = true;
  if (!left.IsNew) {
    // Where nothing in it was moved, the folder itself is all that a move takes away.
    const bool holdsNothing = !above.IsOwn && moves_ && left.DoneBefore == CountDone();
    if (holdsNothing) arrived_.push_back({FromPath(name), {}, {}});
    return;
  }
  ItemFingerprint print = left.Made;
  if (left.IsUnsure && !above.IsOwn) {
    print.Below = FindBelow(targets_.Get(), left.Target.c_str(), [] { return true; });
  }
  const Way way = left.ReplacesFile ? Way::Replace : Way::Free;
  NoteMade({name, S_IFDIR, left.Target, way}, print);
}

std::uint64_t ItemTransfer::CountDone() const {
  return context_.Result().Done.size() + context_.Result().Irrevocable + arrived_.size();
}

// What is still at the source was copied alone; of a folder, what has gone from there was moved,
// and where nothing has, what lies below is alike on both sides.
void ItemTransfer::SettleArrived(std::size_t first, std::size_t deleted) {
  for (std::size_t at = first; at < arrived_.size(); ++at) {
    DoneItem& item = arrived_[at];
    const bool isGone = at < deleted && FindItem(item.From).Code == ENOENT;
    if (item.To.empty()) {
      if (isGone) context_.NoteIrrevocable();
      continue;
    }
    const bool isFolder = at < deleted && item.Print.Kind == S_IFDIR;
    const auto below = [&] { return FindBelow(AT_FDCWD, item.From.c_str(), [] { return true; }); };
    if (isGone || (isFolder && below() != item.Print.Below)) {
      item.Print.Below = 0;
    } else {
      item.From.clear();
    }
    context_.NoteDone(std::move(item));
  }
  arrived_.resize(std::min(first, arrived_.size()));
}

}  // namespace tarnwell::platform
