#include "tools/FileListing.h"

#include <cstdio>
#include <exception>
#include <string_view>

#include "base/Text.h"
#include "forms/PointerScope.h"

namespace tarnwell::tools {
namespace {

constexpr std::string_view Title = "Export File Listing...";
constexpr std::string_view FirstFolder = "c:\\";
constexpr std::size_t LeastPath = 3;  // characters

// The drive's root, or the path itself where it has none.
std::string RootOf(const std::string& path, const base::PathSyntax& syntax) {
  std::string root = path;
  for (std::string above; !syntax.Same(above = syntax.ParentOf(root), root);) root = above;
  return root;
}

}  // namespace

std::string ListingName(const platform::LocalTime& time) {
  char text[64];
  std::snprintf(text, sizeof text, "FileListing%02d-%02d-%02d-%02d%02d%02d.csv", time.Year % 100,
                time.Month, time.Day, time.Hour, time.Minute, time.Second);
  return text;
}

void FileListing::SaveFileListing() {
  if (isRunning_) return;
  isRunning_ = true;
  isGivenUp_ = false;
  const forms::PointerScope pointers(services_.Host, &space_.Form.Toolbar1);
  try {
    const Outcome outcome = Save();
    if (outcome == Outcome::Failed && !isGivenUp_) {
      services_.Messenger.Message(
          "There was a problem writing the folder / file listing to the specified file.",
          forms::MessageKind::Ok);
    }
    if (outcome == Outcome::Saved || outcome == Outcome::Cancelled) {
      services_.System.SetCurrentFolder(
          RootOf(services_.System.ProgramFolder(), services_.Files.Syntax()));
    }
  } catch (const std::exception&) {
    services_.Messenger.Message("An error occurred while exporting the file listing.",
                                forms::MessageKind::Ok);
  }
  isRunning_ = false;
}

FileListing::Outcome FileListing::Save() {
  const std::optional<std::string> answer = AskFile();
  if (!answer) return Outcome::Cancelled;
  const std::string& file = *answer;
  if (base::CodePointCount(file) < LeastPath) return Outcome::Dropped;
  const std::string folder = services_.Files.Syntax().GetFolderPath(file);
  if (!folder.empty()) space_.Settings.FolderFileListing = folder;
  return space_.Lists[space_.CurrentList].SaveListing(file) ? Outcome::Saved : Outcome::Failed;
}

std::optional<std::string> FileListing::AskFile() const {
  const std::string& last = space_.Settings.FolderFileListing;
  std::string folder = last.empty() ? std::string(FirstFolder) : last;
  if (!services_.Files.Syntax().IsWhole(folder) || !services_.Files.FolderExists(folder)) {
    folder = services_.Drives.HomeFolder();
  }
  const platform::Clock& clock = services_.Clock;
  const std::optional<std::string> answer =
      services_.Dialogs.AskSaveFile({.Title = std::string(Title),
                                     .FilterName = "File Listing",
                                     .FilterPattern = "*.csv",
                                     .DefaultSuffix = "csv",
                                     .Name = ListingName(clock.ToLocal(clock.Now())),
                                     .Folder = folder,
                                     .IsCentred = true});
  if (!answer) return std::nullopt;
  std::string file(base::Trim(*answer));
  // The question about replacing was for another name.
  const bool isTaken = file != *answer && services_.Files.Exists(file);
  if (isTaken && !services_.Dialogs.AskYesNo(
                     std::string(Title),
                     base::ForDisplay(file) + " already exists.\nDo you want to replace it?")) {
    return std::nullopt;
  }
  return file;
}

}  // namespace tarnwell::tools
