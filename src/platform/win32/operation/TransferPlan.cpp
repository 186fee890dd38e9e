#include "platform/win32/operation/TransferPlan.h"

#include <algorithm>
#include <utility>

#include "base/PathSyntax.h"
#include "platform/ItemKey.h"
#include "platform/win32/files/Fingerprint.h"

namespace tarnwell::platform {
namespace {

const base::PathSyntax& PlanSyntax() {
  return base::PathSyntax::Windows();
}

// Volumes keep times to two seconds at the worst.
bool HoldsTheSame(const ItemFingerprint& item, const ItemFingerprint& source) {
  constexpr std::int64_t coarsest = 2'000'000'000;  // nanoseconds
  const std::int64_t later = item.Modified - source.Modified;
  return item.Size == source.Size && later >= -coarsest && later <= coarsest;
}

std::string_view StemOf(std::string_view name, ItemSort sort) {
  const std::size_t dot = sort == ItemSort::File ? name.rfind('.') : name.npos;
  return name.substr(0, dot == 0 ? name.npos : dot);
}

}  // namespace

// --- Before

void TransferPlan::Add(std::size_t item, const std::string& from, const std::string& to) {
  Unit unit{.Item = item, .From = from, .To = to, .Sort = SortOf(from)};
  const ItemSort there = SortOf(to);
  if (unit.Sort == ItemSort::Folder && FolderExists(to) && !PlanSyntax().Same(from, to)) {
    AddParts(item, from, to);
    unit.IsMerge = true;
  } else if (there != ItemSort::None) {
    unit.IsTaken = true;
    unit.Target = FingerprintOf(to, false);
    KeepNames(PlanSyntax().ParentOf(to));
  }
  if (!unit.IsMerge && (moves_ || unit.IsTaken)) LookAtSource(unit);
  units_.push_back(std::move(unit));
}

void TransferPlan::LookAtSource(Unit& unit) {
  unit.Source = FingerprintOf(unit.From, false);
  if (!moves_) return;
  const std::string folder = PlanSyntax().ParentOf(unit.To);
  if (folder != folder_) {
    folder_ = folder;
    device_ = FingerprintOf(folder, false).Device;
  }
  // On a move within a volume the numbers last.
  if (device_ != unit.Source.Device) KeepKeys(unit, unit.From, {});
}

void TransferPlan::AddParts(std::size_t item, const std::string& from, const std::string& to) {
  const std::size_t first = units_.size();
  ReadNames(from, [&](const std::string& name, ItemSort) {
    Add(item, PlanSyntax().Join(from, name), PlanSyntax().Join(to, name));
  });
  for (std::size_t at = first; at < units_.size(); ++at) units_[at].IsPart = true;
}

void TransferPlan::KeepKeys(const Unit& unit, const std::string& path, const std::string& below) {
  const ItemFingerprint print = below.empty() ? unit.Source : FingerprintOf(path, false);
  keys_[unit.From].emplace(below, KeyOf(print, path));
  if (below.empty() ? unit.Sort != ItemSort::Folder : SortOf(path) != ItemSort::Folder) return;
  ReadNames(path, [&](const std::string& name, ItemSort) {
    KeepKeys(unit, PlanSyntax().Join(path, name), below + PlanSyntax().Separator + name);
  });
}

void TransferPlan::KeepNames(const std::string& folder) {
  const auto [names, isNew] = names_.try_emplace(folder);
  if (!isNew) return;
  ReadNames(folder, [&names = names->second](const std::string& name, ItemSort) {
    names.insert(PlanSyntax().Key(name));
  });
}

bool TransferPlan::IsOfFiles() const {
  return std::ranges::all_of(units_, [](const Unit& unit) {
    const bool isFile = unit.Sort == ItemSort::File && !unit.IsMerge;
    return isFile && !(unit.IsTaken && FolderExists(unit.To));
  });
}

// --- After

std::vector<TransferPlan::Left> TransferPlan::Settle(OperationTalk& talk) {
  std::vector<Left> left;
  for (const Unit& unit : units_) {
    // What came there under its own name is no twin of another.
    const auto names = names_.find(PlanSyntax().ParentOf(unit.To));
    if (!unit.IsTaken && names != names_.end()) {
      names->second.insert(PlanSyntax().Key(PlanSyntax().LastComponent(unit.To)));
    }
  }
  std::set<std::size_t> come;  // items of which something has
  for (std::size_t at = 0; at < units_.size(); ++at) {
    Unit& unit = units_[at];
    const Outcome outcome = unit.IsMerge ? OutcomeOfMerge(at) : OutcomeOf(unit);
    const bool isKnownLeft = !left.empty() && left.back().Item == unit.Item;
    if (outcome == Outcome::Done && !unit.IsMerge) NoteDone(unit, talk);
    if (outcome == Outcome::Replaced || outcome == Outcome::Gone) talk.NoteIrrevocable();
    const bool isHalf = outcome == Outcome::Half;
    if (outcome == Outcome::Left || isHalf) {
      if (!unit.IsMerge && (isHalf || !unit.IsTaken)) NoteArrived(unit, talk);
      if (!isKnownLeft) left.push_back(LeftOf(unit, isHalf));
    }
    const bool hasCome = outcome == Outcome::Done || outcome == Outcome::Replaced;
    if (unit.IsMerge ? !isKnownLeft && outcome != Outcome::Left : hasCome) come.insert(unit.Item);
    if (!unit.IsPart && come.contains(unit.Item)) talk.NotePlaced(unit.From, unit.To);
  }
  return left;
}

TransferPlan::Outcome TransferPlan::OutcomeOf(Unit& unit) {
  const bool stays = SortOf(unit.From) != ItemSort::None;
  if (!unit.IsTaken) {
    if (SortOf(unit.To) == ItemSort::None) return stays ? Outcome::Left : Outcome::Gone;
    if (moves_ && stays) return Outcome::Left;
    return IsWhole(unit) ? Outcome::Done : Outcome::Half;
  }
  if (moves_ && stays) return Outcome::Left;
  if (FindTwin(unit)) return IsWhole(unit) ? Outcome::Done : Outcome::Half;
  if (moves_) return Outcome::Replaced;
  if (PlanSyntax().Same(unit.From, unit.To)) return Outcome::Left;
  const ItemFingerprint now = FingerprintOf(unit.To, false);
  const bool isAlike = unit.Sort == ItemSort::File && HoldsTheSame(now, unit.Source);
  return isAlike || now != unit.Target ? Outcome::Replaced : Outcome::Left;
}

TransferPlan::Left TransferPlan::LeftOf(const Unit& unit, bool isHalf) {
  const std::string target = unit.To + unit.Missing;
  const bool isShort = isHalf && SortOf(target) != ItemSort::None;
  return {unit.Item, unit.From + unit.Missing, target, unit.IsTaken && !isHalf, isShort};
}

// Shells have told of full drives, and of what others hold open, that all was well.
bool TransferPlan::IsWhole(Unit& unit) const {
  if (moves_) return true;
  if (unit.Sort == ItemSort::Folder) {
    unit.Missing = FirstMissing(unit.From, unit.To);
    return unit.Missing.empty();
  }
  const ItemFingerprint from = FingerprintOf(unit.From, false), to = FingerprintOf(unit.To, false);
  return from.Kind != to.Kind || from.Size == to.Size;  // of a link, the copy may be a file
}

// All that lies in it has been told. What went though nothing was in it cannot be taken back.
TransferPlan::Outcome TransferPlan::OutcomeOfMerge(std::size_t at) const {
  const Unit& unit = units_[at];
  if (!moves_) return Outcome::Done;
  if (SortOf(unit.From) != ItemSort::None) return Outcome::Left;
  const bool hasParts = at > 0 && PlanSyntax().IsWithin(units_[at - 1].From, unit.From);
  return hasParts ? Outcome::Done : Outcome::Gone;
}

// Of what has not come to its end: what is at its target has come there all the same. Where
// nothing of a folder has gone it was copied alone.
void TransferPlan::NoteArrived(const Unit& unit, OperationTalk& talk) {
  if (SortOf(unit.To) == ItemSort::None) return;
  DoneItem done{.From = moves_ ? std::string() : unit.From,
                .To = unit.To,
                .Print = FingerprintOf(unit.To, true)};
  if (moves_ && unit.Sort == ItemSort::Folder &&
      FingerprintOf(unit.From, true).Below != done.Print.Below) {
    done.From = unit.From;
    done.Print.Below = 0;
  }
  talk.NoteDone(std::move(done));
}

// The shell tells of new names only where it was to give them: a user who keeps both has them made
// as well. The twin bears the name's beginning, and holds the same.
bool TransferPlan::FindTwin(Unit& unit) {
  const base::PathSyntax& syntax = PlanSyntax();
  const std::string folder = syntax.ParentOf(unit.To);
  std::vector<NewItem>& items = NewItemsIn(folder);
  const std::string stem = syntax.Key(StemOf(syntax.LastComponent(unit.To), unit.Sort));
  auto twin = items.end();
  for (auto item = items.begin(); item != items.end(); ++item) {
    const bool fits = item->Sort == unit.Sort && syntax.Key(item->Name).find(stem) != stem.npos &&
                      HoldsTheSame(item->Print, unit.Source);
    if (fits && (twin == items.end() || item->Name.size() < twin->Name.size())) twin = item;
  }
  if (twin == items.end()) return false;
  unit.To = syntax.Join(folder, twin->Name);
  items.erase(twin);
  return true;
}

std::vector<TransferPlan::NewItem>& TransferPlan::NewItemsIn(const std::string& folder) {
  const auto [items, isNew] = new_.try_emplace(folder);
  if (!isNew) return items->second;
  const std::set<std::string>& known = names_[folder];
  ReadNames(folder, [&](const std::string& name, ItemSort sort) {
    if (known.contains(PlanSyntax().Key(name))) return;
    items->second.push_back({name, sort, FingerprintOf(PlanSyntax().Join(folder, name), false)});
  });
  return items->second;
}

void TransferPlan::NoteDone(const Unit& unit, OperationTalk& talk) {
  ItemFingerprint print = FingerprintOf(unit.To, !moves_);
  NoteRenumbered(unit, print, talk);
  talk.NoteDone({unit.From, unit.To, print});
}

void TransferPlan::NoteRenumbered(const Unit& unit, const ItemFingerprint& now,
                                  OperationTalk& talk) {
  const auto keys = keys_.find(unit.From);
  if (keys == keys_.end()) return;
  for (const auto& [below, before] : keys->second) {
    const std::string path = unit.To + below;
    const ItemFingerprint print = below.empty() ? now : FingerprintOf(path, false);
    if (print == ItemFingerprint()) continue;
    talk.NoteRenumbered({before, KeyOf(print, path), print.Device, print.Number, print.Born});
  }
}

}  // namespace tarnwell::platform
