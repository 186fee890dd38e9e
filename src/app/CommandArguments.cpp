#include "app/CommandArguments.h"

#include <getopt.h>

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "lister/list/ListId.h"

namespace tarnwell::app {
namespace {

constexpr int WrongArguments = 2;

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
  return {.Folders = {}, .ExitCode = WrongArguments};
}

// As far as possible by the way that was typed: a link stays one.
std::filesystem::path FullPath(const std::filesystem::path& typed, std::error_code& error) {
  for (const std::filesystem::path& part : typed) {
    if (part == "." || part == "..") return std::filesystem::canonical(typed, error);
  }
  return std::filesystem::absolute(typed, error);
}

// Opens it, since permissions tell only half.
std::error_code AddFolder(const char* typed, std::vector<std::string>& folders) {
  std::error_code error;
  const std::filesystem::path path = FullPath(typed, error);
  if (!error) std::filesystem::directory_iterator(path, error);
  if (!error) folders.push_back(path.string());
  return error;
}

}  // namespace

CommandArguments ReadArguments(int argc, char** argv, const base::Version& version) {
  constexpr option options[] = {
      {"help", no_argument, nullptr, 'h'}, {"version", no_argument, nullptr, 'v'}, {}};
  opterr = 0;
  for (int found = 0; (found = getopt_long(argc, argv, "", options, nullptr)) != -1;) {
    if (found == 'h') {
      std::fputs(Help, stdout);
      return {.Folders = {}, .ExitCode = 0};
    }
    if (found == 'v') {
      std::printf("tarnwell %s\n", version.Text().c_str());
      return {.Folders = {}, .ExitCode = 0};
    }
    return Refuse(std::string("there is no option ") + argv[optind - 1]);
  }
  CommandArguments read;
  if (argc - optind > lister::PaneCount) return Refuse("there are only five panes");
  for (int at = optind; at < argc; ++at) {
    const std::error_code error = AddFolder(argv[at], read.Folders);
    if (error) {
      return Refuse(std::string("the folder '") + argv[at] +
                    "' cannot be opened: " + error.message());
    }
  }
  return read;
}

}  // namespace tarnwell::app
