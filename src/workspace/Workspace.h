// What the main form keeps for its whole life: controls, pane records, lists, settings, and which
// list is the active one. Plain data; the rules over it stand in the files beside this one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "lister/ListerControl.h"
#include "workspace/ArrangePanes.h"
#include "workspace/ListSet.h"
#include "workspace/MainForm.h"
#include "workspace/PaneHistory.h"
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

// Of the drag of a splitter that runs, in twips: what was as the button went down.
struct SplitterDrag {
  std::int16_t ZonePane = -1;        // whose split it is
  std::int16_t DragPaneBefore = -1;  // the open panes on either side of a bar between panes
  std::int16_t DragPaneAfter = -1;
  float DragStartX = 0;  // of the pointer
  float DragStartY = 0;
  float BarStartLeft = 0;  // of LineVert
  float BarStartTop = 0;   // of LineHorz
  float SizeAfter = 0;     // Width of columns, HeightH of rows
  float SizeBefore = 0;
  float OriginAfter = 0;  // Left of columns, Top of rows
  float OriginBefore = 0;
  float SplitStart = 0;  // Height of columns, WidthH of rows
};

// What the mouse is doing on the form.
inline constexpr std::string_view ResizingWestEast = "DoResizingWestEast";  // drags a bar
inline constexpr std::string_view ResizingNorthSouth = "DoResizingNorthSouth";
inline constexpr std::string_view DragStart = "DragStart";  // drags items out of a list

struct Workspace {
  Workspace(const FormTables& tables, ListSet::Factory factory)
      : Form(tables), Lists(std::move(factory)) {}

  MainForm Form;
  PaneRecords Panes;
  PerPane<PaneHistory> Histories;
  ListSet Lists;
  lister::CutItems Cut;
  ProgramSettings Settings;
  TitleColours Titles;

  int OpenBrackets = 0;      // routines that run and keep the lists from following the disk
  int PaneBrackets = 0;      // those of them that keep the lists of all panes from it
  int OperationsAtWork = 0;  // that go on beside the user, and keep lists from watching it

  std::int16_t OpenPaneCount = 0;
  lister::ListId ActiveList = lister::NoList;   // takes keys and the wheel
  lister::ListId CurrentList = lister::NoList;  // what commands act on
  lister::ListId EnteredList = lister::NoList;  // the list of the last ListFocused
  std::int16_t ActiveItem = 0;  // number of the item that had the focus last, from the top
  bool SpaceHeld = false;       // from Space down in a list until it comes up
  lister::ListId DragSourceList = lister::ForeignList;  // the list that a drop comes from
  lister::ListId ClearedList = lister::NoList;          // the list of the last ClearGraphics
  std::int16_t InitialActivePane = -1;                  // first open pane at start, -1 for none
  std::int16_t PreviousActivePane = -99;                // the pane that auto expand saw last

  base::Twips PaneGap = 0;             // thickness of a splitter bar
  base::Twips CommandStripHeight = 0;  // kept free under the panes for the command line
  WorkArea Area;                       // as last laid out
  bool CommandLineChanged = false;     // the next arrangement takes every open pane anew
  base::Twips LastFormWidth = -1;      // outer size and layout of the form as last arranged
  base::Twips LastFormHeight = -1;
  std::int32_t LastLayout = -1;

  workspace::MouseZone MouseZone = workspace::MouseZone::Nowhere;  // where the pointer is
  std::string ResizeAction;  // one of the words above; empty where the mouse does nothing of that
  SplitterDrag Drag;

  // 1: cut, copy and paste are the platform's; 0: the program's own, by the two values below.
  std::int32_t ShellVerbMode = 1;
  std::string InternalClipAction;                      // CopyWord or MoveWord
  lister::ListId InternalClipSource = lister::NoList;  // NoList when nothing is kept

  bool KeyArmed = false;  // a key may act: a held key acts once, until some key is released

  bool IsWin9x = false;
  std::string OsName;  // of a Windows of the 9x line; empty on every other system

  PaneRecord& PaneOfList(lister::ListId list) { return Panes[lister::PaneOf(list)]; }
  // Of the list of an open pane, or in a window of its own.
  bool IsOpen(lister::ListId list) { return !lister::HasPane(list) || PaneOfList(list).IsOpen(); }

  // A bar is dragged.
  bool IsResizing() const {
    return ResizeAction == ResizingWestEast || ResizeAction == ResizingNorthSouth;
  }

  // Calls `work` with the folder list, then the file list, of each pane that has been set up, and
  // with the list of what was found, if there is one.
  template <typename Work>
  void ForEachList(Work work) {
    for (int pane = 0; pane < lister::PaneCount; ++pane) {
      if (!Panes[pane].Initialized) continue;
      work(Lists.Folders(pane));
      work(Lists.Files(pane));
    }
    if (lister::ListerControl* const found = Lists.Find(lister::FoundList)) work(*found);
  }
};

}  // namespace tarnwell::workspace
