// What the widget of a list shows besides the rows.
#pragma once

#include <algorithm>
#include <string>

#include "lister/list/ListId.h"
#include "lister/list/ListSettings.h"
#include "lister/rows/Comparison.h"
#include "lister/rows/Headings.h"
#include "lister/rows/NameFilter.h"

namespace tarnwell::lister {

struct ListAppearance {
  explicit ListAppearance(ListId id) : Id(id), Table(IsFileList(id)) {}

  const ListId Id;
  ListSettings Settings;
  Headings Table;
  int ActiveHeading = 0;
  bool IsActive = false;
  NameFilter Filter;  // of a file list; a folder list shows all
  std::string Status;
  bool HasNews = false;         // Status tells more than what the list holds
  CompareMarks Marks;           // those that rows have, whether or not the filter shows them
  bool DragGraphicsOn = false;  // what is dragged lies over the list
  bool HoverGraphicsOn = false;

  std::string News() const { return HasNews ? Status : std::string(); }
  int BorderWidth() const { return std::clamp(Settings.BorderWidth, 0, 8); }  // pixels
};

}  // namespace tarnwell::lister
