// What the commands of this run have done, as far as it can be taken back or done again.
//
// Plain records and their order; looks at no disk and starts nothing.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <unordered_set>
#include <vector>

#include "lister/rows/ItemColours.h"
#include "platform/FileOperation.h"

namespace tarnwell::fileops {

// One command, however many items it was for.
struct UndoStep {
  platform::CommandKind Kind = platform::CommandKind::Other;
  std::vector<platform::DoneItem> Items = {};
  std::vector<lister::ColouredItem> Colours = {};  // of CommandKind::Colour, which has no items
  std::uint64_t Irrevocable = 0;                   // items of the command that cannot be taken back
  // What did it; for what was done by other means, the operation that was started last before.
  platform::OperationId Operation = platform::NoOperation;
  // Of what came from another volume, all that steps below it in the history know from there.
  std::vector<platform::RenumberedItem> Renumbered = {};
};

// Whether a command is taken back, or what was taken back is done again.
enum class UndoWay : std::uint8_t { Undo, Redo };

class UndoHistory {
 public:
  static constexpr std::size_t Most = 100;

  // A command is done; not for undoes and redoes, which end in Finish. What was undone cannot be
  // done again from then on; the oldest step goes where there are too many. A step with nothing to
  // take back is not kept, and one of a command that did nothing changes nothing.
  void Add(UndoStep step);

  // What would be undone, or done again; null where there is nothing.
  const UndoStep* Next(UndoWay way) const;
  // Takes that step out; an empty one where there is none.
  UndoStep Take(UndoWay way);
  // The step that was taken out is done. `inverse` goes back to what has come of it; `rest` is
  // still to be done, since it was given up. Nothing is kept of an empty one.
  void Finish(UndoWay way, UndoStep inverse, UndoStep rest);

  // The items at these paths were deleted for good, but for those that `isGone` gives false for: no
  // step offers to take them back.
  void Forget(const std::unordered_set<std::string>& paths,
              const std::function<bool(const std::string& path)>& isGone);

  // Calls `look` with each step that is still to be taken that way, the next one first.
  template <typename Look>
  void ForEachStep(UndoWay way, Look look) {
    Steps& steps = Of(way);
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) look(*step);
  }

 private:
  using Steps = std::deque<UndoStep>;  // the newest at the end
  // Keeps of what the step has numbered anew that which steps below it know.
  void Push(UndoWay to, UndoStep&& step);
  Steps& Of(UndoWay way) { return steps_[static_cast<std::size_t>(way)]; }

  std::array<Steps, 2> steps_;  // by UndoWay
};

}  // namespace tarnwell::fileops
