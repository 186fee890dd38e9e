// What of a transfer can be taken back.
#include <fcntl.h>

#include "platform/ItemKey.h"
#include "platform/linux/files/FindItem.h"
#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/operation/ItemTransfer.h"

namespace tarnwell::platform {

// What lies in a new folder is told with that: of the folders on the way only those that were there
// before have items of their own to tell of.
void ItemTransfer::NoteMade(const Item& item, const struct statx& source,
                            const ItemFingerprint& print) {
  Level& level = walk_.Here();
  const bool replaces = item.Decided == Way::Replace;
  if (moves_) {
    const ItemFingerprint before = FingerprintOf(source, level.From);
    const auto key = [](const ItemFingerprint& of, auto path) {
      return KeyOf(of, of.Number == 0 ? path() : std::string());
    };
    renumbered_.push_back(
        {{key(before, [&] { return FromPath(item.Name); }),
          key(print, [&] { return ToPath(item.Target); }), print.Device, print.Number, print.Born},
         arrived_.size(),
         replaces && !level.IsOwn ? FromPath(item.Name) : std::string()});
  }
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
  NoteMade({name, S_IFDIR, left.Target, way}, left.Source, print);
}

std::uint64_t ItemTransfer::CountDone() const {
  return context_.Result().Done.size() + context_.Result().Irrevocable + arrived_.size();
}

// What is still at the source was copied alone; of a folder, what has gone from there was moved,
// and where nothing has, what lies below is alike on both sides.
void ItemTransfer::SettleArrived(std::size_t first, std::size_t deleted) {
  std::vector<bool> hasGone(arrived_.size() - std::min(first, arrived_.size()));
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
      hasGone[at - first] = true;
    } else {
      item.From.clear();
    }
    context_.NoteDone(std::move(item));
  }
  while (!renumbered_.empty() && renumbered_.back().Arrived >= first) {
    const Renumbered& item = renumbered_.back();
    const std::size_t at = item.Arrived - first;
    const bool isGone =
        item.From.empty() ? at < hasGone.size() && hasGone[at] : FindItem(item.From).Code == ENOENT;
    if (isGone) context_.NoteRenumbered(item.Now);
    renumbered_.pop_back();
  }
  arrived_.resize(std::min(first, arrived_.size()));
}

}  // namespace tarnwell::platform
