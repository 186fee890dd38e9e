// What the commands of this run have done, as far as it can be taken back or done again.
//
// Plain records and their order; looks at no disk and starts nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

#include "lister/rows/ItemColours.h"
#include "platform/FileOperation.h"

namespace tarnwell::fileops {

// One command, however many items it was for.
struct UndoStep {
  platform::CommandKind Kind = platform::CommandKind::Other;
  std::vector<platform::DoneItem> Items;
  std::vector<lister::ColouredItem> Colours;  // of CommandKind::Colour, which has no items
  std::uint64_t Irrevocable = 0;              // items of the command that cannot be taken back
  // What did it; for what was done by other means, the operation that was started last before.
  platform::OperationId Operation = platform::NoOperation;
};

class UndoHistory {
 public:
  static constexpr std::size_t Most = 100;

  // A command is done; not for undoes and redoes, which end in Undone and Redone. What was undone
  // cannot be done again from then on; the oldest step goes where there are too many. A step with
  // nothing to take back is not kept, and one of a command that did nothing changes nothing.
  void Add(UndoStep step);

  // Null where there is none.
  const UndoStep* NextUndo() const { return undo_.empty() ? nullptr : &undo_.back(); }
  const UndoStep* NextRedo() const { return redo_.empty() ? nullptr : &redo_.back(); }

  // Takes the step out, an empty one where there is none; what came of it is put back by those
  // below.
  UndoStep TakeUndo();
  UndoStep TakeRedo();
  // The step that takes back what an undo has done, or a redo; none where that is nothing.
  void Undone(UndoStep inverse);
  void Redone(UndoStep inverse);
  // What was taken out and is still to be done, since the undo, or the redo, was given up.
  void PutBackUndo(UndoStep rest);
  void PutBackRedo(UndoStep rest);

 private:
  std::deque<UndoStep> undo_;  // the newest at the end
  std::deque<UndoStep> redo_;
};

}  // namespace tarnwell::fileops
