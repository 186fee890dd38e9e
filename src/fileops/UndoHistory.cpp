#include "fileops/UndoHistory.h"

#include <utility>

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
  const auto push = [this](UndoWay to, UndoStep&& step) {
    if (HasNothing(step)) return;
    Of(to).push_back(std::move(step));
    if (Of(to).size() > Most) Of(to).pop_front();
  };
  push(way, std::move(rest));
  push(way == UndoWay::Undo ? UndoWay::Redo : UndoWay::Undo, std::move(inverse));
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
