#include "lister/list/ListBody.h"

#include "base/Text.h"
#include "lister/rows/CellText.h"

namespace tarnwell::lister {

ListState::ListState(ListId id, ListFields& fields, const ListServices& services,
                     ListerEvents& events)
    : ListAppearance(id),
      Fields(fields),
      Services(services),
      Events(events),
      Syntax(services.Files.Syntax()),
      Names(services.Order),
      Keys(!IsFileList(id)),
      Expanded(Syntax),
      Active(Syntax) {}

void ListState::SetDragGraphicsOn(bool on) {
  if (std::exchange(DragGraphicsOn, on) != on) View().Repaint();
}

void ListState::SetStatus(std::string text, CompareMarks marks, bool isNews) {
  if (text.empty()) {
    text = Summary;
    isNews = false;
  }
  if (Status == text && Marks == marks && HasNews == isNews) return;
  Status = std::move(text);
  HasNews = isNews;
  Marks = marks;
  View().StatusChanged();
}

std::string ListState::DriveFolder(const std::string& drive) const {
  const std::string root = PlainPath(Syntax, Syntax.DriveRoot(drive));
  const std::string remembered = Active.Find(root);
  if (!remembered.empty() && Syntax.IsWithin(remembered, root)) {
    return PlainPath(Syntax, remembered);
  }
  const std::string home = Services.Drives.HomeFolder();
  const bool holdsHome = !home.empty() && Syntax.Same(Services.Drives.DriveOf(home), drive);
  return holdsHome ? PlainPath(Syntax, home) : root;
}

void ListState::SetDriveFolder(const std::string& drive, const std::string& folder) {
  Active.Set(Syntax.DriveRoot(drive), PlainPath(Syntax, folder));
  if (Folder.empty()) Drive = drive;
}

RowState ListBody::StateOf(RowId row) const {
  RowState state = OwnStateOf(row);
  state.IsTarget = row > RootRow && ((state_.DragGraphicsOn && row == state_.DragRow) ||
                                     (state_.InAction && row == Input().Clicked()));
  return state;
}

std::string ListBody::LinkNote(RowId row) const {
  const RowState state = OwnStateOf(row);
  if (!state.IsLink) return "";
  const std::string path = PathOf(row);
  std::string what = state.IsBroken ? "Broken link" : "Link";
  // A pointer that rests is not to wait for another machine.
  if (Follower.IsAfar(state_.Syntax.ParentOf(path))) return what;
  const std::string target = state_.Services.Files.ReadLink(path);
  if (!target.empty()) what += " to " + base::ForDisplay(target);
  return what;
}

std::string ListBody::BriefText(RowId row, HeadingId heading) const {
  if (!IsDate(heading)) return CellText(row, heading);
  return BriefDateText(state_.Services.Forms, state_.Services.Clock, MomentOf(row, heading));
}

}  // namespace tarnwell::lister
