#include "lister/tree/FolderInput.h"

#include <algorithm>

#include "base/Text.h"
#include "lister/list/ListBody.h"

namespace tarnwell::lister {

FolderInput::FolderInput(const FolderTree& tree, ListState& list, ListBody& body)
    : CommonInput(list, body), tree_(tree), pressed_(body) {}

// --- Rows on show.

RowId FolderInput::Next(RowId row) const {
  const FolderNode& node = tree_.Node(row);
  if (node.IsExpanded && !node.Children.empty()) return node.Children.front();
  for (; row != FolderTree::TopRow; row = tree_.Node(row).Parent) {
    const std::vector<RowId>& siblings = tree_.Node(tree_.Node(row).Parent).Children;
    const auto next = static_cast<std::size_t>(tree_.Node(row).Position) + 1;
    if (next < siblings.size()) return siblings[next];
  }
  return NoRow;
}

RowId FolderInput::Previous(RowId row) const {
  if (row == FolderTree::TopRow) return NoRow;
  const FolderNode& node = tree_.Node(row);
  if (node.Position == 0) return node.Parent;
  return LastIn(tree_.Node(node.Parent).Children[static_cast<std::size_t>(node.Position) - 1]);
}

RowId FolderInput::LastIn(RowId row) const {
  while (tree_.Node(row).IsExpanded && !tree_.Node(row).Children.empty()) {
    row = tree_.Node(row).Children.back();
  }
  return row;
}

// The cursor may be in a branch that is still being read, and collapsed until then.
RowId FolderInput::RowBelow(RowId row) const {
  if (!tree_.Has(FolderTree::TopRow)) return NoRow;
  for (RowId above = row; above > RootRow; above = tree_.Node(above).Parent) {
    if (above != row && !tree_.Node(above).IsExpanded) row = above;
  }
  const RowId next = row == NoRow ? NoRow : Next(row);
  return next == NoRow ? FolderTree::TopRow : next;
}

// --- Keys.

KeyAction FolderInput::ActionOf(int keyCode, int shift) {
  using This = FolderInput;
  static constexpr KeyBinding<FolderInput> Bindings[] = {
      {HomeKey, AnyShift, &This::MoveByKey},   {EndKey, AnyShift, &This::MoveByKey},
      {PageUpKey, AnyShift, &This::MoveByKey}, {PageDownKey, AnyShift, &This::MoveByKey},
      {LeftKey, 0, &This::FoldByKey},          {RightKey, 0, &This::FoldByKey},
  };
  KeyAction own = FindAction(*this, Bindings, keyCode, shift);
  return own ? own : CommonInput::ActionOf(keyCode, shift);
}

void FolderInput::Arrow(int keyCode, bool) {
  if (Current() == NoRow || (keyCode != UpKey && keyCode != DownKey)) return;
  MoveTo(keyCode == UpKey ? Previous(Current()) : Next(Current()));
}

void FolderInput::MoveByKey(int keyCode, int) {
  RowId row = Current();
  if (row == NoRow) return;
  if (keyCode == HomeKey) row = FolderTree::TopRow;
  if (keyCode == EndKey) row = LastIn(FolderTree::TopRow);
  if (keyCode == PageUpKey || keyCode == PageDownKey) {
    for (int left = std::max(1, list_.View().PageRows()); left > 0; --left) {
      const RowId next = keyCode == PageUpKey ? Previous(row) : Next(row);
      if (next == NoRow) break;
      row = next;
    }
  }
  MoveTo(row);
}

// Left and right: the branch closes or opens, or the cursor leaves or enters it.
void FolderInput::FoldByKey(int keyCode, int) {
  const RowId row = Current();
  if (row == NoRow) return;
  const FolderNode& node = tree_.Node(row);
  const bool isOpen = node.IsExpanded && !node.Children.empty();
  if (keyCode == LeftKey) {
    if (isOpen) return body_.Collapse(row);
    MoveTo(row == FolderTree::TopRow ? NoRow : node.Parent);
  } else {
    if (isOpen) return MoveTo(node.Children.front());
    if (node.HasChildren()) body_.Expand(row);
  }
}

void FolderInput::MoveTo(RowId row) {
  if (row != NoRow) body_.MoveCurrent(row);
}

void FolderInput::ShowTyped(const std::string& text) {
  list_.SetStatus(text.empty() ? "" : "Find: " + base::ForDisplay(text));
}

void FolderInput::AskNewFolder(int, int) {
  if (Current() == NoRow) return;
  const std::string folder = list_.Syntax.AddSeparator(tree_.PathOf(Current()));
  list_.Events.NewFolderAt(list_.Id, folder, "");
}

void FolderInput::EnterFolder(const std::string& folder) {
  const base::PathSyntax& syntax = list_.Syntax;
  if (tree_.Has(FolderTree::TopRow) && syntax.IsWithin(folder, tree_.PathOf(FolderTree::TopRow))) {
    body_.OpenFolder(folder);
    return;
  }
  const std::string drive = list_.Services.Drives.DriveOf(folder);
  if (drive.empty()) return;
  list_.SetDriveFolder(drive, folder);
  body_.LoadDrive(drive, true);
}

// --- Mouse.

void FolderInput::MouseDown(const RowPointer& at) {
  constexpr int main = 1, other = 2;
  if (at.Event.Button == main) DragFinished(at.Event);  // the end of one that got lost
  pressed_.Clear();
  if (!MayStart()) return;
  Focused();
  if (at.Event.Button != main && at.Event.Button != other) return;
  SetTyped("");
  if (at.Event.Button == main && at.Part == RowPart::Branch) return;
  SetClicked(at.Part == RowPart::None ? NoRow : at.Row);
  if (at.Event.Button == other) return RaiseRightClick(at);
  if (at.Part == RowPart::Item && at.Row != FolderTree::TopRow) pressed_.Set(at.Row);
}

void FolderInput::MouseMoved(const RowPointer& at) {
  if (Action() == MouseAction::Drag) {
    list_.Events.DragMoved(list_.Id, at.Event);
    return;
  }
  const RowId row = pressed_.Get();
  if (row == NoRow || !MayStart()) return;
  pressed_.Clear();
  // What is dragged is the node with the cursor, which a read that runs can hold up on its way.
  if (row != Current()) MoveTo(row);
  if (row == Current()) BeginDrag(at.Event);
}

void FolderInput::Release(const RowPointer& at) {
  constexpr int main = 1;
  const bool isClick = Action() == MouseAction::None && at.Event.Button == main &&
                       at.Part == RowPart::Item && at.Row == Clicked() && at.Row == tree_.Open();
  pressed_.Clear();
  DragFinished(at.Event);
  if (isClick) list_.Events.OpenFolderChosen(list_.Id);
}

}  // namespace tarnwell::lister
