// The part of ListerControl that says what an action works on.
#include "base/ItemList.h"
#include "lister/ListerParts.h"
#include "lister/list/ClickedItem.h"
#include "lister/list/DropRules.h"

namespace tarnwell::lister {

void ListerControl::SelectAll(std::string_view word) {
  parts_->Body->Input().SelectAll(word == "none");
}

void ListerControl::ArrowKey(std::int16_t& keyCode, bool& spaceHeld) {
  parts_->Body->Input().Arrow(keyCode, spaceHeld);
}

void ListerControl::SpaceKey() {
  parts_->Body->Input().Space();
}

void ListerControl::WheelScroll(bool up) {
  constexpr int notch = 3;  // rows
  parts_->State.View().ScrollRows(up ? -notch : notch);
}

void ListerControl::PrepareSelectionMouse() {
  LookAtDisk(LookReason::User);
  parts_->Body->Input().PrepareMouse();
}
void ListerControl::PrepareSelectionKeyboard() {
  LookAtDisk(LookReason::User);
  parts_->Body->Input().PrepareKeyboard();
}

std::string ListerControl::FirstSelected() {
  LookAtDisk(LookReason::User);
  const ListState& state = parts_->State;
  parts_->ActiveItemName.clear();
  std::int32_t position = 0;
  for (RowId row = NoRow; (row = parts_->Body->Input().NextSelected(position)) != NoRow;) {
    // No operation may get hold of a whole drive.
    if (IsDriveRoot(parts_->State, *parts_->Body, row)) return state.Drive + ":";
    base::ItemList::Add(parts_->ActiveItemName, parts_->Body->PathOf(row));
  }
  if (!parts_->ActiveItemName.empty()) base::ItemList::Add(parts_->ActiveItemName, "");
  return TextOfItems(parts_->ActiveItemName, state.Syntax);
}

std::string ListerControl::NextSelected() {
  const RowId row = parts_->Body->Input().NextSelected(SelectionCursor);
  return row == NoRow ? "end" : parts_->Body->PathOf(row);
}

const std::string& ListerControl::ActiveItemName() const {
  return parts_->ActiveItemName;
}

std::string ListerControl::TargetFolder(bool byKey, bool) const {
  const ListState& state = parts_->State;
  if (ShowsFound()) return "";
  std::string folder = state.Folder;
  if (!byKey && !IsFileList(Id())) {
    const std::string clicked = parts_->Body->PathOf(parts_->Body->Input().Clicked());
    if (!clicked.empty()) folder = clicked;
  }
  if (folder.empty() || !state.Services.Files.FolderExists(folder)) return "";
  return state.Syntax.AddSeparator(folder);
}

std::string ListerControl::PasteFolder() const {
  return TargetFolder(true, true);
}

std::string ListerControl::DropFolder() const {
  return parts_->State.DropFolder;
}

void ListerControl::GetClickedItem(std::string& folder, std::string& name, bool byKey,
                                   std::int32_t& kind) const {
  const ListState& state = parts_->State;
  const ListBody& body = *parts_->Body;
  const ClickedItem item = byKey ? DescribeItem(state, body, body.CurrentRow())
                                 : DescribeClicked(state, body, body.Input().Clicked());
  kind = item.Kind;
  folder = item.Folder;
  name = item.Name;
}

std::string ListerControl::DuplicateBaseName() const {
  std::int32_t position = 0;
  const RowId row = parts_->Body->Input().NextSelected(position);
  std::string path = parts_->Body->PathOf(row);
  if (path.empty() || IsDriveRoot(parts_->State, *parts_->Body, row)) return "";
  const std::string_view name = parts_->State.Syntax.LastComponent(path);
  const std::size_t dot = name.rfind('.');
  if (dot != std::string_view::npos && dot > 0) path.resize(path.size() - name.size() + dot);
  return path;
}

void ListerControl::BeginContextAction() {
  parts_->State.InAction = true;
  parts_->Body->Input().HoldClicked();
  parts_->State.View().Repaint();
}

void ListerControl::EndAction() {
  parts_->State.InAction = false;
  parts_->Body->Input().ForgetClicked();
  parts_->State.View().Repaint();
}

bool ListerControl::IsInAction() const {
  return parts_->State.InAction;
}

void ListerControl::EndDrop() {
  parts_->State.DropFolder.clear();
  parts_->User.DragLeft();
}

void ListerControl::Drag(int action) {
  constexpr int begin = 1;
  if (action == begin) parts_->State.View().BeginDrag();
}

}  // namespace tarnwell::lister
