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
#include "platform/ItemKey.h"
#include "platform/RenameDetours.h"

namespace tarnwell::fileops {

using platform::CommandKind;
using platform::CountedText;
using platform::DoneItem;
using platform::RenumberedItem;

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

using Returns = std::unordered_map<std::string, const DoneItem*>;  // by where the item had been

// Of what came back to another path than it had.
Returns ReturnsOf(const UndoStep& step, const platform::OperationResult& result,
                  const base::PathSyntax& syntax) {
  std::unordered_map<std::string, const DoneItem*> items;
  for (const DoneItem& item : step.Items) items.emplace(item.To, &item);
  Returns returns;
  for (const DoneItem& now : result.Done) {
    const auto found = FindAbove(items, now.From, syntax);
    if (found == items.end()) continue;
    const DoneItem& item = *found->second;
    // Of a folder that was merged into another one, what lay in it comes by itself.
    const std::string before = item.From + now.From.substr(item.To.size());
    if (now.To != before) returns.try_emplace(before, &now);
  }
  return returns;
}

// An item is numbered anew by each move to another volume, also by the one back. Others may be just
// like it, so that nothing but what the moves tell says which is which.
void Renumber(UndoHistory& history, UndoWay way, const UndoStep& step,
              const platform::OperationResult& result) {
  using Items = std::unordered_map<platform::ItemKey, const RenumberedItem*>;
  Items back;
  for (const RenumberedItem& item : result.Renumbered) back.emplace(item.Before, &item);
  Items renumbered;  // by what the item was before the step
  for (const RenumberedItem& item : step.Renumbered) {
    const auto found = back.find(item.After);
    if (found != back.end()) renumbered.emplace(item.Before, found->second);
  }
  if (renumbered.empty()) return;
  history.ForEachStep(way, [&](UndoStep& later) {
    for (DoneItem& item : later.Items) {
      if (item.Print.Number == 0) continue;
      const auto found = renumbered.find(KeyOf(item.Print, item.To));
      if (found == renumbered.end()) continue;
      item.Print.Device = found->second->Device;
      item.Print.Number = found->second->Number;
      item.Print.Born = found->second->Born;
    }
    for (RenumberedItem& item : later.Renumbered) {
      const auto found = renumbered.find(item.After);
      if (found != renumbered.end()) item.After = found->second->After;
    }
  });
}

// Of items that a detour brought to their names only the last step counts.
std::size_t ItemCountOf(const UndoStep& step) {
  return step.Items.size() + step.Colours.size() - platform::DetoursOf(step.Items).size();
}

// The other way round from the last to the first, all together.
platform::OperationRequest RenamesBack(const std::vector<DoneItem>& items) {
  platform::OperationRequest request{.Function = platform::FileFunction::Rename,
                                     .Items = {},
                                     .Destination = {},
                                     .Flags = platform::OwnTargets};
  for (auto item = items.rbegin(); item != items.rend(); ++item) {
    base::ItemList::Add(request.Items, item->To);
    base::ItemList::Add(request.Destination, item->From);
    request.Expected.push_back(item->Print);
  }
  return request;
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
  const std::size_t count = ItemCountOf(step);
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
  if (step.Kind == CommandKind::Rename && step.Items.size() > 1) return {RenamesBack(step.Items)};
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
                 const platform::OperationResult& result, const base::PathSyntax& syntax) {
  if (LeavesOriginal(step, way)) return;
  Renumber(history, way, step, result);
  Returns returns = ReturnsOf(step, result, syntax);
  if (returns.empty()) return;
  history.ForEachStep(way, [&](UndoStep& later) {
    std::vector<std::string> arrived;
    for (DoneItem& item : later.Items) {
      const auto above = FindAbove(returns, item.From, syntax);
      if (above != returns.end() && above->first != item.From)
        item.From.replace(0, above->first.size(), above->second->To);
      const auto found = FindAbove(returns, item.To, syntax);
      if (found == returns.end()) continue;
      const auto& [before, now] = *found;
      const bool isSelf = before == item.To;
      if (isSelf && !IsSameItem(item.Print, now->Print)) continue;
      if (isSelf) arrived.push_back(before);
      item.To.replace(0, before.size(), now->To);
    }
    // Before that step, another item was there, or none.
    for (const std::string& path : arrived) returns.erase(path);
  });
}

UndoStep StepAfter(const UndoStep& step, UndoWay way, const platform::OperationResult& result) {
  UndoStep after{.Kind = step.Kind,
                 .Items = result.Done,
                 .Colours = {},
                 .Irrevocable = result.Irrevocable,
                 .Renumbered = result.Renumbered};
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
