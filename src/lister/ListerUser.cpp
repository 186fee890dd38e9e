// The part of ListerControl that the widget tells of mouse, keys and buttons.
#include "lister/ListerParts.h"
#include "lister/list/ClickedItem.h"
#include "lister/list/DropRules.h"
#include "lister/rows/CellText.h"

namespace tarnwell::lister {

void ListerControl::Focused() {
  parts_->Body->Input().Focused();
}
bool ListerControl::KeyDown(int keyCode, int shift) {
  parts_->Shift = shift;
  return parts_->Body->Input().KeyDown(keyCode, shift);
}

void ListerControl::KeyUp(int keyCode) {
  parts_->Body->Input().KeyUp(keyCode);
}

void ListerControl::TypeText(std::string_view text) {
  parts_->Body->Input().TypeText(text);
}

void ListerControl::MouseDown(const RowPointer& at) {
  parts_->Body->Input().MouseDown(at);
}
void ListerControl::MouseMoved(const RowPointer& at) {
  parts_->Body->Input().MouseMoved(at);
}
void ListerControl::MouseUp(const RowPointer& at) {
  parts_->Body->Input().MouseUp(at);
  parts_->State.Events.MouseReleased(id_);
}

void ListerControl::WheelTurned(int delta) {
  parts_->Body->Input().WheelTurned(delta);
}

void ListerControl::MoveCurrent(RowId row) {
  parts_->Body->MoveCurrent(row);
}
void ListerControl::Activate(RowId row) {
  parts_->Body->Activate(row);
}
void ListerControl::Expand(RowId row) {
  parts_->Body->Expand(row);
}
void ListerControl::Collapse(RowId row) {
  parts_->Body->Collapse(row);
}
void ListerControl::ChooseDrive(const std::string& drive) {
  if (!drive.empty()) parts_->Body->LoadDrive(drive, true);
}

void ListerControl::ClickHeading(int heading) {
  if (heading < 0 || heading >= HeadingCount) return;
  parts_->ActiveHeading = heading;
  parts_->State.View().HeadingsChanged();
}

void ListerControl::DoubleClickHeading(int heading, bool shift) {
  if (heading < 0 || heading >= HeadingCount) return;
  ClickHeading(heading);
  const auto id = static_cast<HeadingId>(heading);
  const SortKeys& keys = parts_->State.Keys;
  const SortKey* const key = keys.Find(id);
  // A heading that is among the keys already changes its direction, in a new sort if it is the only
  // one.
  const bool turns = key != nullptr && !key->Descending && (shift || keys.Entries().size() == 1);
  SortCommand(std::string(turns ? "des" : "asc") + (shift ? "add" : ""));
}

void ListerControl::ToggleHeading(int heading) {
  if (heading < 0 || heading >= HeadingCount) return;
  const bool active = parts_->State.Table[static_cast<HeadingId>(heading)].Active;
  SetHeadingProperty(heading, "active", base::Value(!active));
  parts_->State.Events.HeadingsChanged(id_);
}

void ListerControl::SetFilterText(const std::string& text) {
  if (text != FilterText()) parts_->Body->SetFilterText(text);
}
void ListerControl::SetExtensionFilter(const std::string& extension) {
  if (extension != FilterExtension()) parts_->Body->SetExtensionFilter(extension);
}

void ListerControl::UpButton() {
  parts_->State.Events.UpFolderButton(id_);
}
void ListerControl::NewFolderButton() {
  parts_->State.Events.NewFolderAsked(id_);
}

std::string ListerControl::Bookmark(int slot) const {
  return parts_->Body->Input().Bookmark(slot);
}
void ListerControl::GoToBookmark(int slot) {
  parts_->Body->Input().GoToBookmark(slot);
}

void ListerControl::DragOver(RowId row) {
  const RowId folder = IsFolder(parts_->State, *parts_->Body, row) ? row : NoRow;
  const bool same = parts_->DragGraphicsOn && parts_->DragRow == folder;
  parts_->DragRow = folder;
  parts_->DragGraphicsOn = true;
  if (!same) parts_->State.View().Repaint();
}

void ListerControl::DragLeft() {
  parts_->DragRow = NoRow;
  SetDragGraphicsOn(false);
}

std::string ListerControl::DropTarget(RowId row) const {
  if (IsFolder(parts_->State, *parts_->Body, row)) return PathOf(row);
  return IsFileList(id_) ? parts_->State.Folder : "";
}

bool ListerControl::TakesDrop(const std::string& folder, const std::string& items,
                              std::string_view action) const {
  return !MouseLocked && MayDrop(items, folder, action, parts_->State.Syntax);
}

void ListerControl::DropOn(const std::string& folder, Drop drop) {
  DragLeft();
  if (drop.SourceText.empty()) drop.SourceText = TextOfItems(drop.Items, parts_->State.Syntax);
  if (drop.Items.empty() && drop.Source == NoList) return;
  parts_->DropFolder = folder.empty() ? "" : parts_->State.Syntax.AddSeparator(folder);
  if (drop.Source != NoList) parts_->State.Events.DropSourceSet(drop.Source);
  parts_->State.Events.ItemsDropped(id_, drop);
  if (drop.Foreign == 0) return;
  parts_->State.Events.StatusMessage(
      id_, CountText(parts_->State.Services.Forms, static_cast<std::uint64_t>(drop.Foreign),
                     "dropped item") +
               (drop.Foreign == 1 ? " is no file" : " are no files") +
               " of this computer and could not be taken.");
}

}  // namespace tarnwell::lister
