// What the main form keeps for its whole life: controls, pane records, lists, settings, and which
// list is the active one. Plain data; the rules over it stand in the files beside this one.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "lister/ListerControl.h"
#include "workspace/ListSet.h"
#include "workspace/MainForm.h"
#include "workspace/PaneRecord.h"
#include "workspace/ProgramSettings.h"

namespace tarnwell::workspace {

// The skin's colours that the form paints with itself.
struct TitleColours {
  base::Colour Active = 0;
  base::Colour ActiveText = 0;
  base::Colour Inactive = 0;
  base::Colour InactiveText = 0;
};

struct Workspace {
  Workspace(const FormTables& tables, ListSet::Factory factory)
      : Form(tables), Lists(std::move(factory)) {}

  MainForm Form;
  PaneRecords Panes;
  ListSet Lists;
  ProgramSettings Settings;
  TitleColours Titles;

  std::int16_t OpenPaneCount = 0;
  lister::ListId ActiveList = lister::NoList;   // takes keys and the wheel
  lister::ListId CurrentList = lister::NoList;  // what commands act on
  lister::ListId EnteredList = lister::NoList;  // the list of the last ListFocused
  std::int16_t ActiveItem = 0;  // number of the item that had the focus last, from the top
  bool SpaceHeld = false;       // from Space down in a list until it comes up
  // What the mouse is doing on the form: "DragStart" while items are dragged out of a list.
  std::string ResizeAction;
  std::int16_t InitialActivePane = -1;    // first open pane at start, -1 for none
  std::int16_t PreviousActivePane = -99;  // the pane that auto expand saw last

  base::Twips PaneGap = 0;             // thickness of a splitter bar
  base::Twips CommandStripHeight = 0;  // kept free under the panes for the command line
  base::Twips TitleTop = 0;            // top of the pane area
  std::int32_t AreaWidth = 0;          // width of the workspace as last laid out

  bool KeyArmed = false;  // a key may act: a held key acts once, until some key is released

  bool IsWin9x = false;
  std::string OsName;  // of a Windows of the 9x line; empty on every other system

  // Calls `work` with the folder list, then the file list, of each pane that has been set up.
  template <typename Work>
  void ForEachList(Work work) {
    for (int pane = 0; pane < lister::PaneCount; ++pane) {
      if (!Panes[static_cast<std::size_t>(pane)].Initialized) continue;
      work(Lists.Folders(pane));
      work(Lists.Files(pane));
    }
  }
};

}  // namespace tarnwell::workspace
