// The commands that take back what was done, and do it again.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "fileops/OperationQueue.h"
#include "fileops/UndoHistory.h"
#include "forms/Messenger.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/MessagePump.h"
#include "platform/NumberForms.h"
#include "workspace/Workspace.h"

namespace tarnwell::fileops {

struct UndoServices {
  OperationQueue& Operations;
  UndoHistory& History;
  const platform::OperationEngine& Engine;
  platform::FileSystem& Files;
  platform::MessagePump& Pump;
  const platform::Clock& Clock;
  const platform::NumberForms& Forms;
  forms::Messenger& Messages;
};

class UndoCommand {
 public:
  UndoCommand(workspace::Workspace& workspace, const UndoServices& services)
      : workspace_(workspace), services_(services) {}

  // Takes the last command back, or does again what was taken back last. Asks first where an
  // operation is still at work that was started later. What has changed since is left, and told of.
  // An operation like any other, but for colours: these let messages through, and a call meanwhile
  // does nothing. A call right after another one waits for that. What is given up can be gone on
  // with by the next call.
  void Undo() { TakeBack(UndoWay::Undo); }
  void Redo() { TakeBack(UndoWay::Redo); }

  // "Undo: Copy of 3 items"; empty where there is nothing to undo.
  std::string Caption() const;

  // Items that a command has given colours.
  void NoteColours(std::vector<lister::ColouredItem> items);

  // Ends the giving back of colours.
  void GiveUp() { givenUp_ = true; }

 private:
  void TakeBack(UndoWay way);
  // Whether the one begun last is at work, and for so short a time that nobody has seen it.
  bool HasJustBegun() const;
  bool MayBegin(UndoWay way);
  // The title of an operation at work that was started after the step was made; empty for none.
  std::string WorkSince(const UndoStep& step) const;
  void Start(UndoWay way);
  void Finish(UndoWay way, const UndoStep& step, platform::OperationId operation,
              const platform::OperationResult& result);
  void GiveColoursBack(UndoWay way);
  std::string TextOf(const UndoStep& step, UndoWay way) const;
  void Show(const std::string& text);

  workspace::Workspace& workspace_;
  UndoServices services_;
  platform::OperationId last_ = platform::NoOperation;
  std::deque<UndoWay> next_;  // to be begun when that is done
  bool isBusy_ = false;       // asks, or gives colours back
  bool givenUp_ = false;
};

}  // namespace tarnwell::fileops
