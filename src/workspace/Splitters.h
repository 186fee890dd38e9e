// The mouse on the form's own surface: shows where a splitter can be taken hold of, lets bars
// follow the mouse, and gives the panes their new measures when the button comes up.
//
// While a bar is dragged nothing but the bars moves.
#pragma once

#include <cstdint>
#include <optional>

#include "forms/FormHost.h"
#include "workspace/FormLayout.h"
#include "workspace/SplitterZones.h"
#include "workspace/Workspace.h"

namespace tarnwell::workspace {

class Splitters {
 public:
  Splitters(Workspace& workspace, FormLayout& layout, forms::FormHost& host)
      : workspace_(workspace), layout_(layout), host_(host) {}

  // Places are twips within the form. Any button counts.
  void MouseMove(float x, float y);
  void MouseDown(float x, float y);
  void MouseUp();

  // Ends the drag of a bar as if it had not begun. False when none runs.
  bool GiveUp();

 private:
  bool IsVertical() const;
  bool IsBetweenPanes() const;  // the zone is a bar between panes
  PaneRecord& Pane(std::int16_t pane);
  std::optional<Place> FolderListPlace(std::int16_t pane) const;
  void Search(float x, float y);
  bool FindPanesBeside(float place);
  void ShowBars(const Place& list, const PaneRecord& pane);
  void Follow(float way);
  void HideBars();
  void TakeMeasures();

  Workspace& workspace_;
  FormLayout& layout_;
  forms::FormHost& host_;
};

}  // namespace tarnwell::workspace
