#include "workspace/Highlight.h"

#include <array>
#include <string>
#include <string_view>

namespace tarnwell::workspace {
namespace {

constexpr std::array<std::string_view, 8> SwitchableHeadings = {
    "Attributes", "Comments", "DateLastAccessed", "DateCreated", "DateLastModified",
    "Extension",  "Size",     "FileType"};

}  // namespace

void ColourTitleBar(Workspace& workspace, lister::ListId list) {
  if (workspace.ActiveList != list) workspace.ActiveList = list;
}

void HighlightActiveList(Workspace& workspace, bool redraw) {
  if (!redraw || workspace.CurrentList == lister::FoundList) return;
  MainForm& form = workspace.Form;
  const TitleColours& colours = workspace.Titles;
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    if (!workspace.Panes[pane].Initialized) continue;
    form.TitleBar[pane].BackColour = colours.Inactive;
    form.TitleBar[pane].ForeColour = colours.InactiveText;
    workspace.Lists.Folders(pane).SetActive(false);
    workspace.Lists.Files(pane).SetActive(false);
  }
  // A damaged settings file can leave no pane open and so no active list.
  lister::ListerControl* current = workspace.Lists.Find(workspace.CurrentList);
  if (current != nullptr) {
    const auto active = lister::PaneOf(workspace.CurrentList);
    current->SetActive(true);
    form.TitleBar[active].BackColour = colours.Active;
    form.TitleBar[active].ForeColour = colours.ActiveText;
    form.cboCommand.Text.clear();
    form.txtCurrentPath.Text = form.TitleBar[active].Text;
  }
  const bool fileList = lister::IsFileList(workspace.CurrentList);
  form.Toolbar1["headascadd"].Enabled = fileList;
  form.Toolbar1["headdesadd"].Enabled = fileList;
  UpdateHeadingMenu(workspace);
  form.Touch();
}

void UpdateHeadingMenu(Workspace& workspace) {
  const lister::ListerControl* current = workspace.Lists.Find(workspace.CurrentList);
  if (current == nullptr || !lister::HasPane(workspace.CurrentList)) return;
  for (const std::string_view heading : SwitchableHeadings) {
    workspace.Form.Menus["mnuHeading" + std::string(heading)].Checked =
        current->HeadingActive(heading);
  }
}

}  // namespace tarnwell::workspace
