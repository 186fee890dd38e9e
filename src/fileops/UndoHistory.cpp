#include "fileops/UndoHistory.h"

#include <utility>

#include "platform/ItemKey.h"

namespace tarnwell::fileops {
namespace {

using platform::CommandKind;

bool HasNothing(const UndoStep& step) {
  return step.Items.empty() && step.Colours.empty();
}

bool CanBeUndone(CommandKind kind) {
  return kind != CommandKind::Other && kind != CommandKind::Delete;
}

}  // namespace

void UndoHistory::Add(UndoStep step) {
  if (HasNothing(step) && step.Irrevocable == 0) return;
  Of(UndoWay::Redo).clear();
  if (!CanBeUndone(step.Kind)) return;
  Finish(UndoWay::Redo, std::move(step), {});
}

const UndoStep* UndoHistory::Next(UndoWay way) const {
  const Steps& steps = steps_[static_cast<std::size_t>(way)];
  return steps.empty() ? nullptr : &steps.back();
}

UndoStep UndoHistory::Take(UndoWay way) {
  UndoStep step;
  if (Of(way).empty()) return step;
  step = std::move(Of(way).back());
  Of(way).pop_back();
  return step;
}

void UndoHistory::Finish(UndoWay way, UndoStep inverse, UndoStep rest) {
  Push(way, std::move(rest));
  Push(way == UndoWay::Undo ? UndoWay::Redo : UndoWay::Undo, std::move(inverse));
}

void UndoHistory::Push(UndoWay to, UndoStep&& step) {
  if (HasNothing(step)) return;
  if (!step.Renumbered.empty()) {
    std::unordered_set<platform::ItemKey> known;
    for (const UndoStep& below : Of(to)) {
      for (const platform::DoneItem& item : below.Items) known.insert(KeyOf(item.Print, item.To));
      for (const platform::RenumberedItem& item : below.Renumbered) known.insert(item.After);
    }
    std::erase_if(step.Renumbered, [&](const auto& item) { return !known.contains(item.Before); });
    step.Renumbered.shrink_to_fit();
  }
  Of(to).push_back(std::move(step));
  if (Of(to).size() > Most) Of(to).pop_front();
}

// Others may have lain at such a path before.
void UndoHistory::Forget(const std::unordered_set<std::string>& paths,
                         const std::function<bool(const std::string& path)>& isGone) {
  for (const UndoWay way : {UndoWay::Undo, UndoWay::Redo}) {
    std::unordered_set<std::string> left = paths;
    ForEachStep(way, [&](UndoStep& step) {
      std::erase_if(step.Items,
                    [&](const auto& item) { return left.erase(item.To) > 0 && isGone(item.To); });
      for (const platform::DoneItem& item : step.Items) left.erase(item.From);
    });
    std::erase_if(Of(way), HasNothing);
  }
}

}  // namespace tarnwell::fileops
