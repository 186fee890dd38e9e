#include "fileops/UndoHistory.h"

#include <utility>

namespace tarnwell::fileops {
namespace {

using platform::CommandKind;

bool IsEmpty(const UndoStep& step) {
  return step.Items.empty() && step.Colours.empty();
}

bool CanBeUndone(const UndoStep& step) {
  return step.Kind != CommandKind::Other && step.Kind != CommandKind::Delete && !IsEmpty(step);
}

void Push(std::deque<UndoStep>& steps, UndoStep step) {
  if (IsEmpty(step)) return;
  steps.push_back(std::move(step));
  if (steps.size() > UndoHistory::Most) steps.pop_front();
}

UndoStep Take(std::deque<UndoStep>& steps) {
  UndoStep step;
  if (steps.empty()) return step;
  step = std::move(steps.back());
  steps.pop_back();
  return step;
}

}  // namespace

void UndoHistory::Add(UndoStep step) {
  if (IsEmpty(step) && step.Irrevocable == 0) return;
  redo_.clear();
  if (CanBeUndone(step)) Push(undo_, std::move(step));
}

UndoStep UndoHistory::TakeUndo() {
  return Take(undo_);
}

UndoStep UndoHistory::TakeRedo() {
  return Take(redo_);
}

void UndoHistory::Undone(UndoStep inverse) {
  Push(redo_, std::move(inverse));
}

void UndoHistory::Redone(UndoStep inverse) {
  Push(undo_, std::move(inverse));
}

void UndoHistory::PutBackUndo(UndoStep rest) {
  Push(undo_, std::move(rest));
}

void UndoHistory::PutBackRedo(UndoStep rest) {
  Push(redo_, std::move(rest));
}

}  // namespace tarnwell::fileops
