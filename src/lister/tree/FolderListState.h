// What the parts of a folder list work on together.
#pragma once

#include <optional>
#include <set>
#include <string>

#include "lister/list/ListBody.h"
#include "lister/list/Pacer.h"
#include "lister/tree/FolderTree.h"

namespace tarnwell::lister {

struct FolderListState {
  FolderListState(ListState& list, FolderFollower& follower)
      : List(list), Follower(follower), Tree(list.Syntax, list.Names) {}

  ListState& List;
  FolderFollower& Follower;
  FolderTree Tree;

  // Of the command that runs; commands never nest.
  std::optional<Pacer> Pace;
  bool Stopped = false;  // by the user
  std::string Trouble;   // for the status line

  std::set<RowId> Fresh;  // rows that are marked so, and maybe others

  ListerView& View() { return List.View(); }

  // Lets messages through when it is time to. False when the command is to end.
  bool GoesOn() {
    if (!Stopped && !List.IsTerminated && Pace->IsDue()) LetThrough();
    return !Stopped && !List.IsTerminated;
  }
  void LetThrough() {
    Pace->Pump();
    if (!List.Fields.CancelRequested) return;
    Stopped = true;
    Trouble = "Reading stopped";
  }
};

}  // namespace tarnwell::lister
