// Places the controls of the main form and shows what is open.
#pragma once

#include <string_view>

#include "forms/Messenger.h"
#include "workspace/SystemTray.h"
#include "workspace/Workspace.h"

namespace tarnwell::workspace {

class FormLayout {
 public:
  FormLayout(Workspace& workspace, forms::Messenger& messenger, SystemTray& tray)
      : workspace_(workspace), messenger_(messenger), tray_(tray) {}

  // The one entry for every rearrangement. With `force` false, nothing moves unless the form's
  // size or the layout has changed or a bar is dragged. A minimised form is left as it is, but may
  // go to the notification area; what was forced meanwhile is made up for by the next call. Takes
  // the keyboard and what stands in the command line, unless the inside alone has changed.
  void ResizeForm(bool force);

  // "vertical": panes as columns; any other word: as rows. The word of the layout in force
  // rearranges nothing.
  void SwitchLayout(std::string_view word);

  // Gives the active pane the most of the room, the others equal shares of the rest, and
  // rearranges.
  void DoAutoExpand();
  // Switches that on or off; both the menu entries and the toolbar button follow.
  void SwitchAutoExpand(bool turnOn);
  // The mouse moved over the title of a pane: under auto expand another pane's becomes the active
  // one and expands.
  void TitleMouseMove(int pane);

 private:
  bool IsSameLayout() const;
  bool IsSameOutside() const;
  bool IsSameSize() const;
  bool IsUnchanged() const;
  void NoteChanges();
  void HideControls();
  void Arrange();
  void Apply(const Arrangement& arrangement);
  void ShowControls();
  void ShowList(lister::ListId list, bool hasRoom);
  bool RedrawLists(int pane);  // false for one that has none to redraw

  Workspace& workspace_;
  forms::Messenger& messenger_;
  SystemTray& tray_;
  base::Twips lastInsideWidth_ = -1;
  base::Twips lastInsideHeight_ = -1;
  bool isOwed_ = false;  // an arrangement that does not ask whether anything has changed
};

// Brings the layout's buttons and its picture in the menu up to date.
void ShowLayout(Workspace& workspace);

}  // namespace tarnwell::workspace
