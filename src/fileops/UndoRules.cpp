#include "fileops/UndoRules.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "base/ItemList.h"
#include "base/Text.h"
#include "lister/rows/CellText.h"
#include "platform/CountedTexts.h"

namespace tarnwell::fileops {

using platform::CommandKind;
using platform::CountedText;
using platform::DoneItem;

namespace {

enum class TakeBack : std::uint8_t { ToTrash, FromTrash, Back };

struct StepRow {
  CommandKind Kind;
  std::string_view Named;  // of one item
  CountedText Numbered;    // of several
  TakeBack Undo;
  TakeBack Redo;
  // The item is called as it was before the command, not as it is after it.
  bool IsCalledAsBefore;
  bool IsMade;  // by the command
};

constexpr StepRow StepRows[] = {
    {CommandKind::Copy, "Copy of \"%1\"", CountedText::CopyStep, TakeBack::ToTrash,
     TakeBack::FromTrash, false, true},
    {CommandKind::Duplicate, "Duplicate of \"%1\"", CountedText::DuplicateStep, TakeBack::ToTrash,
     TakeBack::FromTrash, false, true},
    {CommandKind::NewFolder, "New folder \"%1\"", CountedText::NewFolderStep, TakeBack::ToTrash,
     TakeBack::FromTrash, false, true},
    {CommandKind::Shortcut, "Shortcut \"%1\"", CountedText::ShortcutStep, TakeBack::ToTrash,
     TakeBack::FromTrash, false, true},
    {CommandKind::Move, "Move of \"%1\"", CountedText::MoveStep, TakeBack::Back, TakeBack::Back,
     false, false},
    {CommandKind::Rename, "Rename of \"%1\"", CountedText::RenameStep, TakeBack::Back,
     TakeBack::Back, true, false},
    {CommandKind::Trash, "Deletion of \"%1\"", CountedText::TrashStep, TakeBack::FromTrash,
     TakeBack::ToTrash, true, false},
    {CommandKind::Restore, "Restore of \"%1\"", CountedText::RestoreStep, TakeBack::ToTrash,
     TakeBack::FromTrash, false, false},
    {CommandKind::Colour, "Colour of \"%1\"", CountedText::ColourStep, TakeBack::Back,
     TakeBack::Back, false, false},
};

// Others are never a step.
const StepRow& RowOf(const UndoStep& step) {
  const auto* const row = std::ranges::find(StepRows, step.Kind, &StepRow::Kind);
  return row == std::end(StepRows) ? StepRows[0] : *row;
}

std::string_view PathToCall(const UndoStep& step, UndoWay way) {
  if (!step.Colours.empty()) return step.Colours.front().Path;
  const DoneItem& item = step.Items.front();
  const bool wasFirst = RowOf(step).IsCalledAsBefore == (way == UndoWay::Undo);
  return wasFirst ? item.From : item.To;
}

TakeBack ActOf(const UndoStep& step, UndoWay way) {
  return way == UndoWay::Undo ? RowOf(step).Undo : RowOf(step).Redo;
}

// Where the volume takes both for the same name, a move would find the item itself in its way.
bool ChangesCaseAlone(const DoneItem& item) {
  return item.From != item.To && base::ToCapitals(item.From) == base::ToCapitals(item.To);
}

// But for what a volume gives anew to an item that comes from another one.
bool IsAlike(platform::ItemFingerprint left, const platform::ItemFingerprint& right) {
  left.Device = right.Device;
  left.Number = right.Number;
  left.Born = right.Born;
  left.Below = right.Below;
  return left == right;
}

bool IsSameItem(const platform::ItemFingerprint& left, const platform::ItemFingerprint& right) {
  return left.Device == right.Device && left.Number == right.Number && left.Born == right.Born;
}

// What a copy was made from is not where it was.
bool LeavesOriginal(const UndoStep& step, UndoWay way) {
  return way == UndoWay::Undo && RowOf(step).IsMade;
}

// Where the path, or the nearest folder above it, is a key.
template <typename Keys>
auto FindAbove(Keys& keys, std::string path, const base::PathSyntax& syntax) {
  auto found = keys.find(path);
  for (std::string next = syntax.ParentOf(path); found == keys.end() && next != path;
       next = syntax.ParentOf(path)) {
    path = std::move(next);
    found = keys.find(path);
  }
  return found;
}

// What has come of an item, or of a folder above it, that was to go back to where it had been.
struct Return {
  std::string To;  // empty where it was left as it is
  platform::ItemFingerprint Print;
  bool IsOther = false;
};
using Returns = std::unordered_map<std::string, Return>;  // by where it had been

// Of the item that had its very place; others may have had that in turn.
bool IsThatOne(const platform::ItemFingerprint& print, const Return& now) {
  const bool mayBeOther = now.IsOther || (now.To.empty() && print.Device != now.Print.Device);
  return IsAlike(print, now.Print) && (mayBeOther || IsSameItem(print, now.Print));
}

Returns ReturnsOf(const UndoStep& step, const platform::OperationResult& result,
                  const base::PathSyntax& syntax) {
  std::unordered_map<std::string, const DoneItem*> items;
  for (const DoneItem& item : step.Items) items.emplace(item.To, &item);
  std::unordered_set<std::string_view> touched;
  Returns returns;
  for (const DoneItem& now : result.Done) {
    const auto found = FindAbove(items, now.From, syntax);
    if (found == items.end()) continue;
    const DoneItem& item = *found->second;
    touched.insert(item.To);
    // Of a folder that was merged into another one, what lay in it comes by itself.
    const bool isSelf = now.From == item.To;
    const std::string before = item.From + now.From.substr(item.To.size());
    const bool isOther = step.IsRenumbered || now.Print.Device != item.Print.Device ||
                         (isSelf && !IsSameItem(now.Print, item.Print));
    if (isOther || now.To != before)
      returns.try_emplace(before, Return{now.To, now.Print, isOther});
  }
  for (const DoneItem& item : step.Items) {
    if (!result.Aborted && !touched.contains(item.To))
      returns.try_emplace(item.From,
                          Return{.To = {}, .Print = item.Print, .IsOther = step.IsRenumbered});
  }
  return returns;
}

std::uint16_t FlagsOf(TakeBack act) {
  switch (act) {
    case TakeBack::ToTrash:
      return platform::AllowUndo | platform::NeverForGood;
    case TakeBack::FromTrash:
      return platform::FromTrash;
    case TakeBack::Back:
      break;
  }
  return platform::OwnTargets;
}

}  // namespace

std::string StepText(const UndoStep& step, UndoWay way, const base::PathSyntax& syntax,
                     const platform::NumberForms& forms) {
  constexpr std::size_t longest = 50, head = 35, tail = 12;
  const StepRow& row = RowOf(step);
  const std::size_t count = step.Items.size() + step.Colours.size();
  if (count != 1) return platform::Counted(forms, row.Numbered, count);
  const std::string name = lister::NameText(syntax, PathToCall(step, way));
  return platform::Filled(row.Named, {base::Shorten(name, longest, head, tail)});
}

std::vector<platform::OperationRequest> InverseOf(const UndoStep& step, UndoWay way) {
  if (step.Items.size() == 1 && ChangesCaseAlone(step.Items[0])) {
    const DoneItem& item = step.Items[0];
    return {{.Function = platform::FileFunction::Rename,
             .Items = base::ItemList::TextOf({item.To}),
             .Destination = base::ItemList::TextOf({item.From}),
             .Flags = 0,
             .Expected = {item.Print}}};
  }
  const TakeBack act = ActOf(step, way);
  platform::OperationRequest moved{.Function = platform::FileFunction::Move,
                                   .Items = {},
                                   .Destination = {},
                                   .Flags = FlagsOf(act)};
  platform::OperationRequest made{.Function = platform::FileFunction::Delete,
                                  .Items = {},
                                  .Destination = base::ItemList::TextOf({""}),
                                  .Flags = FlagsOf(TakeBack::ToTrash)};
  for (const DoneItem& item : step.Items) {
    const bool isMade = act == TakeBack::ToTrash || item.From.empty();
    platform::OperationRequest& request = isMade ? made : moved;
    base::ItemList::Add(request.Items, item.To);
    if (!isMade) base::ItemList::Add(request.Destination, item.From);
    request.Expected.push_back(item.Print);
  }
  std::vector<platform::OperationRequest> requests;
  for (platform::OperationRequest* const request : {&moved, &made}) {
    if (!request->Items.empty()) requests.push_back(std::move(*request));
  }
  return requests;
}

void FollowItems(UndoHistory& history, UndoWay way, const UndoStep& step,
                 const platform::OperationResult& result, const base::PathSyntax& syntax,
                 const Fingerprint& fingerprint) {
  if (LeavesOriginal(step, way)) return;
  Returns returns = ReturnsOf(step, result, syntax);
  if (returns.empty()) return;
  std::unordered_set<std::string> taken;  // where steps that come before take items away from
  history.ForEachStep(way, [&](UndoStep& later) {
    std::vector<std::string> arrived;
    for (DoneItem& item : later.Items) {
      const auto above = FindAbove(returns, item.From, syntax);
      if (above != returns.end() && above->first != item.From && !above->second.To.empty())
        item.From.replace(0, above->first.size(), above->second.To);
      const auto found = FindAbove(returns, item.To, syntax);
      if (found == returns.end()) continue;
      const auto& [before, now] = *found;
      const bool isSelf = before == item.To;
      if (isSelf && !IsThatOne(item.Print, now)) continue;
      if (isSelf) arrived.push_back(before);
      const bool isElsewhere = FindAbove(taken, item.To, syntax) != taken.end();
      if (now.To.empty()) {
        if (!isElsewhere) item.Print = {};
        continue;
      }
      item.To.replace(0, before.size(), now.To);
      if (!now.IsOther || isElsewhere) continue;
      platform::ItemFingerprint print = fingerprint(item.To);
      if (!IsAlike(print, item.Print)) continue;
      print.Below = item.Print.Below;
      item.Print = print;
      later.IsRenumbered = true;
    }
    // Before that step, another item was there, or none.
    for (const std::string& path : arrived) returns.erase(path);
    if (LeavesOriginal(later, way)) return;
    for (const DoneItem& item : later.Items) taken.insert(item.From);
  });
}

UndoStep StepAfter(const UndoStep& step, UndoWay way, const platform::OperationResult& result) {
  UndoStep after{
      .Kind = step.Kind, .Items = result.Done, .Colours = {}, .Irrevocable = result.Irrevocable};
  if (ActOf(step, way) == TakeBack::Back) {
    // What a move that was given up had copied so far is nothing to be done again.
    std::unordered_set<std::string_view> made;
    for (const DoneItem& item : step.Items) {
      if (item.From.empty()) made.insert(item.To);
    }
    std::erase_if(after.Items, [&](const DoneItem& item) { return made.contains(item.From); });
  }
  // What lies below a folder was looked at before it went, and nothing else came back.
  std::unordered_map<std::string_view, std::uint64_t> below;
  for (const DoneItem& item : step.Items) {
    if (item.Print.Below != 0) below.emplace(item.To, item.Print.Below);
  }
  for (DoneItem& item : after.Items) {
    const auto known = below.find(item.From);
    if (known != below.end() && item.Print.Below == 0) item.Print.Below = known->second;
  }
  return after;
}

UndoStep RestOf(UndoStep step, const platform::OperationResult& result) {
  std::unordered_set<std::string_view> done;
  for (const DoneItem& item : result.Done) done.insert(item.From);
  std::erase_if(step.Items, [&](const DoneItem& item) { return done.contains(item.To); });
  return step;
}

}  // namespace tarnwell::fileops
