// The part of ListerControl that says what an action works on.
#include "lister/ListerParts.h"

namespace tarnwell::lister {

void ListerControl::SelectAll(std::string_view word) {
  parts_->Body->Input().SelectAll(word == "none");
}

void ListerControl::ArrowKey(std::int16_t& keyCode, bool& spaceHeld) {
  parts_->Body->Input().Arrow(keyCode, spaceHeld, parts_->Shift);
}

void ListerControl::SpaceKey() {
  parts_->Body->Input().Space();
}

void ListerControl::WheelScroll(bool up) {
  constexpr int notch = 3;  // rows
  parts_->State.View().ScrollRows(up ? -notch : notch);
}

void ListerControl::PrepareSelectionMouse() {
  parts_->Body->Input().PrepareMouse();
}
void ListerControl::PrepareSelectionKeyboard() {
  parts_->Body->Input().PrepareKeyboard();
}

std::string ListerControl::FirstSelected() {
  return "";
}

std::string ListerControl::NextSelected() {
  const RowId row = parts_->Body->Input().NextSelected(SelectionCursor);
  return row == NoRow ? "end" : PathOf(row);
}

const std::string& ListerControl::ActiveItemName() const {
  return parts_->ActiveItemName;
}

std::string ListerControl::TargetFolder(bool, bool) const {
  return "";
}
std::string ListerControl::PasteFolder() const {
  return TargetFolder(true, true);
}
std::string ListerControl::DropFolder() const {
  return parts_->DropFolder;
}

void ListerControl::GetClickedItem(std::string& folder, std::string& name, bool,
                                   std::int32_t& kind) const {
  folder.clear();
  name.clear();
  kind = 0;
}

std::string ListerControl::DuplicateBaseName() const {
  return "";
}

void ListerControl::BeginContextAction() {}
void ListerControl::EndAction() {}
void ListerControl::EndDrop() {}

void ListerControl::Drag(int action) {
  constexpr int begin = 1;
  if (action == begin) parts_->State.View().BeginDrag();
}

}  // namespace tarnwell::lister
