// What is known of a pane: a folder list, a file list and a title row.
#pragma once

#include <cstdint>
#include <string>

#include "base/Measure.h"
#include "workspace/PerPane.h"

namespace tarnwell::workspace {

// How the panes lie: columns side by side, each with its folder list above its file list, or rows
// one above another, each with its folder list left of its file list. Any other number that a
// settings file may hold is horizontal too.
enum PaneLayout : std::int32_t { Vertical = 0, Horizontal = 1 };

// Splits are kept on this grid, and these are what panes begin with; twips.
inline constexpr base::Twips SplitGrid = 100;
inline constexpr base::Twips DefaultHeight = 4000;
inline constexpr base::Twips DefaultWidthH = 4100;

enum PaneStatus : std::int32_t { Open = 0, Closed = 1 };

// Bits of PaneRecord::NameSized: the list whose widths are the user's.
enum SizedLists : std::int32_t { SizedTree = 1, SizedFiles = 2 };

// Measures are twips. Fields marked "saved" are settings keys of the same name.
struct PaneRecord {
  std::string InitialDrive;    // saved: drive on which the folder list opens
  bool Initialized = false;    // the pane's lists exist
  std::int32_t Status = Open;  // saved: PaneStatus
  bool FolderHasRoom = false;  // the folder list is large enough to be shown
  bool FileHasRoom = false;
  float PercentWidth = 0;    // saved: vertical layout, share of the width, 0 to 1
  float PercentHeight = 0;   // saved; nothing else reads it
  float PercentWidthH = 0;   // saved; nothing else reads it
  float PercentHeightH = 0;  // saved: horizontal layout, share of the height, 0 to 1
  base::Twips FolderListHeight = 0;
  base::Twips FileListHeight = 0;
  base::Twips FolderListWidth = 0;
  base::Twips FileListWidth = 0;
  bool NeedsRedraw = false;       // ResizeForm must place and show this pane anew
  std::int16_t Order = 0;         // saved; nothing else reads it
  std::int16_t ControlGroup = 0;  // saved: the pane whose controls stand in this slot
  base::Twips Width = 0;          // saved: vertical layout, width of the pane
  base::Twips WidthH = 0;         // saved: horizontal layout, width of the folder list
  base::Twips Height = 0;         // saved: vertical layout, height of the folder list
  base::Twips HeightH = 0;        // saved: horizontal layout, height of the pane
  base::Twips Left = 0;           // saved: vertical layout, left edge of the pane
  base::Twips Top = 0;            // horizontal layout, top edge of the pane
  std::int32_t NameSized = 0;     // saved: SizedLists, as loaded; lists that exist know themselves
  std::int32_t Accent = 0;        // saved as PaneAccent: 1 to 8, by PaneAccent.h; others are none
  std::string CurrentPath;        // folder that the folder list has open
  bool DriveLoaded = false;       // the folder list has loaded its drive

  bool IsOpen() const { return Status == Open; }
};

using PaneRecords = PerPane<PaneRecord>;

}  // namespace tarnwell::workspace
