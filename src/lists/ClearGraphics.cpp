#include "lists/ClearGraphics.h"

#include <cstdint>
#include <utility>

namespace tarnwell::lists {

void ClearGraphics(workspace::Workspace& workspace, workspace::FormLayout& layout,
                   lister::ListId given) {
  workspace.ForEachList([given](lister::ListerControl& list) {
    list.SetDragGraphicsOn(false);
    if (list.Id() != given) list.SetHoverGraphicsOn(false);
  });
  if (std::exchange(workspace.ClearedList, given) != given) {
    workspace.ForEachList([given](lister::ListerControl& list) {
      if (list.Id() != given) list.RedrawList();
    });
  }
  workspace.ActiveList = given;
  const auto pane = static_cast<std::int16_t>(lister::PaneOf(given));
  const bool expands = workspace.Form.Menus["mnuAutoExpandOn"].Checked;
  if (std::exchange(workspace.PreviousActivePane, pane) != pane && expands) layout.DoAutoExpand();
}

}  // namespace tarnwell::lists
