#include "lister/ListerUser.h"

#include "lister/list/ClickedItem.h"
#include "lister/list/DropRules.h"
#include "lister/list/ListBody.h"
#include "platform/CountedTexts.h"

namespace tarnwell::lister {

std::vector<platform::Drive> ListerUser::Drives() const {
  return list_.Services.Drives.List();
}

void ListerUser::ChooseDrive(const std::string& drive) {
  if (!drive.empty()) body_.LoadDrive(drive, true);
}

// --- Toolbar.

void ListerUser::SetFilterText(const std::string& text) {
  if (text != list_.Filter.Text()) body_.SetFilterText(text);
}

void ListerUser::SetExtensionFilter(const std::string& extension) {
  if (extension != list_.Filter.Extension()) body_.SetExtensionFilter(extension);
}

std::vector<ExtensionChoice> ListerUser::ExtensionChoices() const {
  return body_.ExtensionChoices();
}

void ListerUser::UpButton() {
  list_.Events.UpFolderButton(list_.Id);
}

void ListerUser::NewFolderButton() {
  list_.Events.NewFolderAsked(list_.Id);
}

// --- Drops.

std::string ListerUser::DropTarget(RowId row) const {
  if (IsFolder(list_, body_, row)) return body_.PathOf(row);
  return IsFileList(list_.Id) && !body_.ShowsFound() ? list_.Folder : "";
}

bool ListerUser::TakesDrop(const std::string& folder, const std::string& items,
                           std::string_view action) const {
  return !list_.Fields.MouseLocked && MayDrop(items, folder, action, list_.Syntax);
}

void ListerUser::DragOver(RowId row) {
  const RowId folder = IsFolder(list_, body_, row) ? row : NoRow;
  const bool same = list_.DragGraphicsOn && list_.DragRow == folder;
  list_.DragRow = folder;
  list_.DragGraphicsOn = true;
  if (!same) list_.View().Repaint();
}

void ListerUser::DragLeft() {
  list_.DragRow = NoRow;
  list_.SetDragGraphicsOn(false);
}

void ListerUser::DropOn(const std::string& folder, Drop drop) {
  DragLeft();
  if (drop.SourceText.empty()) drop.SourceText = TextOfItems(drop.Items, list_.Syntax);
  if (drop.Items.empty() && drop.Source == NoList) return;
  list_.DropFolder = folder.empty() ? "" : list_.Syntax.AddSeparator(folder);
  if (drop.Source != NoList) list_.Events.DropSourceSet(drop.Source);
  list_.Events.ItemsDropped(list_.Id, drop);
  if (drop.Foreign == 0) return;
  list_.Events.StatusMessage(
      list_.Id, platform::Counted(list_.Services.Forms, platform::CountedText::DroppedForeign,
                                  static_cast<std::uint64_t>(drop.Foreign)));
}

}  // namespace tarnwell::lister
