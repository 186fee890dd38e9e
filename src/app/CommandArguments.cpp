#include "app/CommandArguments.h"

#include <chrono>
#include <future>
#include <thread>
#include <utility>

#include "app/Process.h"
#include "base/Text.h"
#include "lister/list/ListId.h"

namespace tarnwell::app {
namespace {

constexpr int WrongArguments = 2;
constexpr std::chrono::seconds Patience{3};  // with a folder on another machine

constexpr char Help[] =
    "Usage: tarnwell [FOLDER...]\n"
    "Work with files in up to five panes at once.\n"
    "\n"
    "Each FOLDER opens in a pane, from the first on, in place of what that pane had open; up to "
    "five.\n"
    "Where the program runs already, it opens them there.\n"
    "\n"
    "  --help     show this and exit\n"
    "  --version  show the version and exit\n";

CommandArguments Refuse(const std::string& reason) {
  WriteErrorOutput("tarnwell: " + reason + "\nTry 'tarnwell --help'.\n");
  return {.Folders = {}, .ExitCode = WrongArguments, .Error = reason};
}

// The thread is left to a machine that does not answer: panes can wait for that, and be told not
// to.
TypedFolder LookPatiently(const std::string& typed) {
  std::packaged_task<TypedFolder()> look([typed] { return LookAtTyped(typed); });
  std::future<TypedFolder> found = look.get_future();
  std::thread(std::move(look)).detach();
  if (found.wait_for(Patience) == std::future_status::ready) return found.get();
  return {FullPathOf(typed), ""};
}

}  // namespace

CommandArguments ReadArguments(const std::vector<std::string>& words,
                               const base::Version& version) {
  std::vector<std::string> typed;
  bool onlyFolders = false;
  for (const std::string& word : words) {
    if (onlyFolders || word.size() < 2 || word.front() != '-') {
      typed.push_back(word);
    } else if (word == "--") {
      onlyFolders = true;
    } else if (word == "--help") {
      WriteOutput(Help);
      return {.Folders = {}, .ExitCode = 0, .Error = {}};
    } else if (word == "--version") {
      WriteOutput("tarnwell " + version.Text() + "\n");
      return {.Folders = {}, .ExitCode = 0, .Error = {}};
    } else {
      return Refuse("there is no option " + base::ForDisplay(word));
    }
  }
  CommandArguments read;
  if (typed.size() > lister::PaneCount) return Refuse("there are only five panes");
  for (const std::string& word : typed) {
    TypedFolder folder = LookPatiently(word);
    if (!folder.Trouble.empty()) {
      return Refuse("the folder '" + base::ForDisplay(word) +
                    "' cannot be opened: " + folder.Trouble);
    }
    read.Folders.push_back(std::move(folder.Path));
  }
  return read;
}

}  // namespace tarnwell::app
