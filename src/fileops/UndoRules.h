// What takes a step back, what it is called, and what comes of it. Pure rules.
#pragma once

#include <string>
#include <vector>

#include "base/PathSyntax.h"
#include "fileops/UndoHistory.h"
#include "platform/FileOperation.h"
#include "platform/NumberForms.h"

namespace tarnwell::fileops {

// The step for people: "Copy of 3 items", `Rename of "a.txt"`. Valid UTF-8 and not long, whatever
// the item's name.
std::string StepText(const UndoStep& step, UndoWay way, const base::PathSyntax& syntax,
                     const platform::NumberForms& forms);

// Takes back what the step has made, moved or trashed. What it has made goes to the trash, as long
// as it is unchanged; a taken name and a missing folder are asked about. Nothing for colours.
std::vector<platform::OperationRequest> InverseOf(const UndoStep& step, UndoWay way);

// Items that came back under another path than they had, or as others (a volume numbers anew what
// comes from another one): the steps still to be taken that way go by where they are now, and what.
void FollowItems(UndoHistory& history, UndoWay way, const UndoStep& step,
                 const platform::OperationResult& result, const base::PathSyntax& syntax);

// The step that goes back to what that came to.
UndoStep StepAfter(const UndoStep& step, UndoWay way, const platform::OperationResult& result);
// What of the step is still as it was.
UndoStep RestOf(UndoStep step, const platform::OperationResult& result);

}  // namespace tarnwell::fileops
