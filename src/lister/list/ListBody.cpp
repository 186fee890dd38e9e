#include "lister/list/ListBody.h"

namespace tarnwell::lister {

ListState::ListState(ListerControl& control, const ListServices& services, ListerEvents& events)
    : Control(control),
      Services(services),
      Events(events),
      Syntax(services.Files.Syntax()),
      Names(services.Order),
      Table(IsFileList(control.Id())),
      Keys(!IsFileList(control.Id())),
      Expanded(Syntax),
      Active(Syntax) {}

void ListState::SetStatus(std::string text, CompareMarks marks) {
  if (Status == text && Marks == marks) return;
  Status = std::move(text);
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

}  // namespace tarnwell::lister
