#include "platform/linux/menu/LinuxItemMenu.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <optional>
#include <utility>

#include "base/ItemList.h"
#include "base/PathSyntax.h"
#include "platform/CountedTexts.h"
#include "platform/OpenQuestion.h"
#include "platform/linux/files/FindItem.h"
#include "platform/linux/menu/FileOpener.h"
#include "platform/linux/menu/LinkItems.h"
#include "platform/linux/menu/OpenItems.h"
#include "platform/linux/menu/PasteFiles.h"
#include "platform/linux/posix/ItemText.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

// What an entry is offered for.
enum class Suits {
  All,
  Items,      // not the open folder itself
  OneFolder,  // to put something there
};

struct Row {
  MenuVerb Verb;
  const char* Caption;  // null for a separator
  Suits For;
};
constexpr Row rows[] = {
    {MenuVerb::Open, "&Open", Suits::Items},
    {MenuVerb::OpenWith, "Open Wit&h", Suits::All},
    {MenuVerb::None, nullptr, Suits::All},
    {MenuVerb::Cut, "Cu&t", Suits::Items},
    {MenuVerb::Copy, "&Copy", Suits::Items},
    {MenuVerb::Paste, "&Paste", Suits::OneFolder},
    {MenuVerb::None, nullptr, Suits::All},
    {MenuVerb::CreateShortcut, "Create &Shortcut", Suits::Items},
    {MenuVerb::Delete, "&Delete", Suits::Items},
    {MenuVerb::None, nullptr, Suits::All},
    {MenuVerb::Properties, "P&roperties", Suits::All},
};
// The rows, and the separator and the last entry of the submenu.
constexpr std::size_t leastRoom = std::size(rows) + 2;

constexpr FailureWords notOpened{.Named = "%1 could not be opened.",
                                 .Numbered = CountedText::NotOpened};

std::string WithoutAccessKeys(std::string text) {
  for (std::size_t at = text.find('&'); at != text.npos; at = text.find('&', at + 2)) {
    text.insert(at, 1, '&');
  }
  return text;
}

std::vector<std::string> PathsOf(const std::string& folder, const std::vector<std::string>& names) {
  const base::PathSyntax& syntax = base::PathSyntax::Posix();
  if (names.empty()) return {folder.size() > 1 ? syntax.RemoveRightSlash(folder) : folder};
  std::vector<std::string> paths;
  paths.reserve(names.size());
  for (const std::string& name : names) paths.push_back(syntax.Join(folder, name));
  return paths;
}

}  // namespace

LinuxItemMenu::LinuxItemMenu(const MenuTools& tools, const std::string& folder,
                             const std::vector<std::string>& names)
    : tools_(tools), folder_(folder), names_(names), paths_(PathsOf(folder, names)) {}

base::Status LinuxItemMenu::Fill(std::uintptr_t, int firstId, int lastId,
                                 std::vector<ContextEntry>& entries) {
  if (lastId - firstId + 1 < static_cast<int>(leastRoom)) return SystemError(ERANGE);
  firstId_ = firstId;
  room_ = static_cast<std::size_t>(lastId - firstId) + 1;
  actions_.clear();
  types_ = tools_.Calls.GetAt<std::vector<std::string>>(
      FarPlaceOfAny(), [paths = paths_] { return TypesOf(paths); }, {});
  applications_ = ApplicationsFor(types_);
  const auto suits = [&](Suits what) {
    switch (what) {
      case Suits::Items:
        return !names_.empty();
      case Suits::OneFolder:
        return IsOneFolder();
      case Suits::All:
        break;
    }
    return true;
  };
  std::size_t openWith = 0;
  for (const Row& row : rows) {
    if (!suits(row.For)) continue;
    const bool isSeparator = row.Caption == nullptr;
    // Between groups that are there.
    if (isSeparator && (entries.empty() || entries.back().IsSeparator)) continue;
    const bool isSubmenu = row.Verb == MenuVerb::OpenWith;
    if (isSubmenu) openWith = entries.size();
    ContextEntry entry = Numbered({isSubmenu ? MenuVerb::None : row.Verb});
    entry.IsSeparator = isSeparator;
    if (!isSeparator) entry.Caption = row.Caption;
    entry.IsDefault = row.Verb == MenuVerb::Open;
    entry.Enabled = row.Verb != MenuVerb::Paste || tools_.Clipboard.HasFiles();
    entries.push_back(std::move(entry));
  }
  // The submenu is numbered last: it leaves out what finds no number.
  entries[openWith].Children = ApplicationEntries();
  return {};
}

// Types are of what links lead to.
std::optional<FarPlace> LinuxItemMenu::FarPlaceOfAny() const {
  const FarPlaces* const places = tools_.Calls.Places();
  if (places == nullptr || !places->Any()) return {};
  for (const std::string& path : paths_) {
    if (auto place = places->Find(path)) return place;
  }
  return {};
}

ContextEntry LinuxItemMenu::Numbered(const Action& action) {
  ContextEntry entry;
  entry.Id = firstId_ + static_cast<int>(actions_.size());
  actions_.push_back(action);
  return entry;
}

std::vector<ContextEntry> LinuxItemMenu::ApplicationEntries() {
  std::vector<ContextEntry> entries;
  for (std::size_t at = 0; at < applications_.size() && actions_.size() + 2 < room_; ++at) {
    ContextEntry entry = Numbered({MenuVerb::OpenWith, at});
    entry.Caption = WithoutAccessKeys(NameOf(applications_[at].get()));
    entry.Picture = PictureOf(applications_[at].get());
    entries.push_back(std::move(entry));
  }
  if (!entries.empty()) {
    entries.push_back(Numbered({}));
    entries.back().IsSeparator = true;
  }
  entries.push_back(Numbered({MenuVerb::OtherApplication}));
  entries.back().Caption = "&Other Application...";
  return entries;
}

bool LinuxItemMenu::IsOneFolder() const {
  return paths_.size() == 1 && types_ == std::vector<std::string>{"inode/directory"};
}

OperationId LinuxItemMenu::Invoke(int offset) {
  const auto at = static_cast<std::size_t>(offset);
  if (offset < 0 || at >= actions_.size()) return NoOperation;
  FailureList failures(tools_.Forms);
  switch (actions_[at].Verb) {
    case MenuVerb::None:
      break;
    case MenuVerb::Open:
      Open();
      break;
    case MenuVerb::OpenWith:
      OpenWith(applications_[actions_[at].Application].get());
      break;
    case MenuVerb::OtherApplication:
      ChooseApplication();
      break;
    case MenuVerb::Cut:
      if (IsRefused(FileFunction::Move)) break;
      [[fallthrough]];
    case MenuVerb::Copy:
      tools_.Clipboard.Put(
          {.Items = base::ItemList::TextOf(paths_), .IsCut = actions_[at].Verb == MenuVerb::Cut});
      break;
    case MenuVerb::Paste:
      return PasteFiles(paths_.front(), tools_.Clipboard, tools_.Operation, tools_.Dialogs,
                        tools_.Forms, tools_.Calls);
    case MenuVerb::CreateShortcut:
      CreateShortcuts(failures);
      failures.Show(tools_.Dialogs, {.Named = "%1 could not be given a shortcut.",
                                     .Numbered = CountedText::NoShortcut});
      break;
    case MenuVerb::Delete:
      return IsRefused(FileFunction::Delete) ? NoOperation : Trash();
    case MenuVerb::Properties:
      tools_.Windows.ShowProperties(paths_);
      break;
  }
  return NoOperation;
}

std::vector<std::string> LinuxItemMenu::ItemsThere(FailureList& failures) const {
  std::vector<std::string> found;
  for (const std::string& path : paths_) {
    const base::Status status = tools_.Calls.Ask(
        path, [path] { return FindItem(path); }, LastLink::Itself);
    failures.Add(path, status);
    if (status) found.push_back(path);
  }
  return found;
}

void LinuxItemMenu::CreateShortcuts(FailureList& failures) {
  const auto outcomes = std::make_shared<std::vector<LinkOutcome>>();
  const base::Status status = tools_.Calls.Run(
      folder_,
      [outcomes, folder = folder_, names = names_] { *outcomes = LinkItems(folder, names); });
  if (!status) return failures.Add(folder_, status);
  std::vector<PlacedItem> made;
  for (const LinkOutcome& each : *outcomes) {
    failures.Add(each.Item, each.Status);
    if (each.Status) made.push_back({.From = "", .To = each.Link});
  }
  if (!made.empty()) tools_.Operation.NoteDone(CommandKind::Shortcut, made);
}

void LinuxItemMenu::Open() {
  FailureList failures(tools_.Forms);
  const std::vector<std::string> found = ItemsThere(failures);
  if (IsOneFolder() && !found.empty()) {
    tools_.Windows.OpenFolder(found.front());
  } else {
    for (const LaunchFailure& failure : OpenItems(found, folder_, OpeningTools())) {
      failures.Add(failure.Path, failure.Status);
    }
  }
  failures.Show(tools_.Dialogs, notOpened);
}

void LinuxItemMenu::OpenWith(GAppInfo* application) {
  FailureList failures(tools_.Forms);
  const std::vector<std::string> found = ItemsThere(failures);
  if (!found.empty() && AskAboutMany(found.size(), tools_.Dialogs, tools_.Forms)) {
    const base::Status status = Launch(application, found);
    for (const std::string& path : found) failures.Add(path, status);
  }
  failures.Show(tools_.Dialogs, notOpened);
}

void LinuxItemMenu::ChooseApplication() {
  const ApplicationList all = ApplicationsAfter(applications_);
  std::vector<ApplicationChoice> choices;
  choices.reserve(all.size());
  for (const GioObject<GAppInfo>& each : all) {
    choices.push_back({.Id = IdOf(each.get()),
                       .Name = NameOf(each.get()),
                       .Picture = PictureOf(each.get()),
                       .IsRegistered = choices.size() < applications_.size()});
  }
  const std::string type = types_.empty() ? std::string() : TypeName(types_.front());
  const std::optional<ChosenApplication> chosen =
      tools_.Windows.ChooseApplication(paths_.front(), type, choices);
  if (!chosen) return;
  if (chosen->Id.empty()) {
    RunCommand(chosen->Command);
    return;
  }
  const auto place = std::ranges::find(choices, chosen->Id, &ApplicationChoice::Id);
  if (place == choices.end()) return;
  GAppInfo* const application = all[static_cast<std::size_t>(place - choices.begin())].get();
  if (chosen->AlwaysUse && !types_.empty()) {
    if (const base::Status status = UseAlways(application, types_.front()); !status) {
      Tell(place->Name, "could not be made the usual application", status);
    }
  }
  OpenWith(application);
}

void LinuxItemMenu::RunCommand(const std::string& command) {
  FailureList failures(tools_.Forms);
  const std::vector<std::string> found = ItemsThere(failures);
  failures.Show(tools_.Dialogs, notOpened);
  if (found.empty() || !AskAboutMany(found.size(), tools_.Dialogs, tools_.Forms)) return;
  const base::Status status = OpenWithCommand(command, found, folder_, tools_.Calls);
  if (!status) Tell(command, "could not be started", status);
}

void LinuxItemMenu::Tell(const std::string& name, const std::string& what,
                         const base::Status& status) {
  tools_.Dialogs.ShowCritical(
      "Tarnwell", '"' + base::ForDisplay(name) + "\" " + what + ".\n\n" + status.Reason);
}

bool LinuxItemMenu::IsRefused(FileFunction function) const {
  const std::string refusal = tools_.Operation.Refusal(function, base::ItemList::TextOf(paths_));
  if (!refusal.empty()) tools_.Dialogs.ShowCritical("Tarnwell", refusal);
  return !refusal.empty();
}

OperationId LinuxItemMenu::Trash() {
  // Yes is the usual answer: what is in the trash can be brought back.
  const std::string question =
      paths_.size() == 1
          ? Filled("Do you want to move %1 to the trash?", {QuotedName(paths_.front())})
          : Counted(tools_.Forms, CountedText::TrashQuestion, paths_.size());
  if (!tools_.Dialogs.AskYesNo("Delete", question, true)) return NoOperation;
  return tools_.Operation.Start({.Kind = CommandKind::Trash,
                                 .Requests = {{.Function = FileFunction::Delete,
                                               .Items = base::ItemList::TextOf(paths_),
                                               .Destination = base::ItemList::TextOf({""}),
                                               .Flags = AllowUndo}}});
}

}  // namespace tarnwell::platform
