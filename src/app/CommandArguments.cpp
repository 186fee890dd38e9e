#include "app/CommandArguments.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <future>
#include <system_error>
#include <thread>
#include <utility>

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
  std::fprintf(stderr, "tarnwell: %s\nTry 'tarnwell --help'.\n", reason.c_str());
  return {.Folders = {}, .ExitCode = WrongArguments, .Error = reason};
}

// As far as possible by the way that was typed: a link stays one.
std::filesystem::path FullPath(const std::filesystem::path& typed, std::error_code& error) {
  for (const std::filesystem::path& part : typed) {
    if (part == "." || part == "..") return std::filesystem::canonical(typed, error);
  }
  return std::filesystem::absolute(typed, error);
}

struct Looked {
  std::string Path;
  std::error_code Error;
};

// Opens it, since permissions tell only half.
Looked LookAt(const std::string& typed) {
  Looked looked;
  const std::filesystem::path path = FullPath(typed, looked.Error);
  if (!looked.Error) std::filesystem::directory_iterator(path, looked.Error);
  looked.Path = path.string();
  return looked;
}

// The thread is left to a machine that does not answer: panes can wait for that, and be told not
// to.
Looked LookPatiently(const std::string& typed) {
  std::packaged_task<Looked()> look([typed] { return LookAt(typed); });
  std::future<Looked> found = look.get_future();
  std::thread(std::move(look)).detach();
  if (found.wait_for(Patience) == std::future_status::ready) return found.get();
  Looked unknown;
  unknown.Path = std::filesystem::absolute(typed, unknown.Error).lexically_normal().string();
  return unknown;
}

}  // namespace

CommandArguments ReadArguments(int argc, char** argv, const base::Version& version) {
  std::vector<std::string> typed;
  bool onlyFolders = false;
  for (int at = 1; at < argc; ++at) {
    const std::string word = argv[at];
    if (onlyFolders || word.size() < 2 || word.front() != '-') {
      typed.push_back(word);
    } else if (word == "--") {
      onlyFolders = true;
    } else if (word == "--help") {
      std::fputs(Help, stdout);
      return {.Folders = {}, .ExitCode = 0, .Error = {}};
    } else if (word == "--version") {
      std::printf("tarnwell %s\n", version.Text().c_str());
      return {.Folders = {}, .ExitCode = 0, .Error = {}};
    } else {
      return Refuse("there is no option " + base::ForDisplay(word));
    }
  }
  CommandArguments read;
  if (typed.size() > lister::PaneCount) return Refuse("there are only five panes");
  for (const std::string& word : typed) {
    Looked looked = LookPatiently(word);
    if (looked.Error) {
      return Refuse("the folder '" + base::ForDisplay(word) +
                    "' cannot be opened: " + looked.Error.message());
    }
    read.Folders.push_back(std::move(looked.Path));
  }
  return read;
}

}  // namespace tarnwell::app
