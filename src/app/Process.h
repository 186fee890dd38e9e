// How the program is started, found by other copies, and ended on the system that it runs on. Each
// system answers these in one file.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarnwell::app {

// To be called first of all. An exit code where the process was not started as the program, and is
// done already.
std::optional<int> PrepareProcess(int argc, char** argv);

// The words behind the program's name, as it holds names.
std::vector<std::string> WordsOf(int argc, char** argv);

// To where the process sends these; in UTF-8 as the program has texts.
void WriteOutput(const std::string& text);
void WriteErrorOutput(const std::string& text);
// Whether people see what is written to the error output, or have no display to be told on.
bool IsErrorOutputSeen();

// A folder as it was typed. As far as possible by the way that was typed: a link stays one.
struct TypedFolder {
  std::string Path;     // in full
  std::string Trouble;  // why it cannot be listed
};
// Opens it, since permissions tell only half. May wait for another machine, on any thread.
TypedFolder LookAtTyped(const std::string& typed);
// The path alone, without a look at the disk.
std::string FullPathOf(const std::string& typed);

// Other copies of the program of the same user with the same folder of its own files.
// Whether one that runs has taken the folders, which are full paths.
bool AskRunningCopy(const std::vector<std::string>& folders);
// While what it gives lives, `opens` is called from the event loop when another copy asks so.
// `token` is what brings a window to the front where the desktop asks for that; may be empty.
using OpensFolders =
    std::function<void(const std::vector<std::string>& folders, const std::string& token)>;
std::shared_ptr<void> WhenAskedToOpen(OpensFolders opens);

// Whether a menu or a dialog of the system itself is up over the window, which has this number
// there.
bool IsBelowSystemDialog(std::uintptr_t window);

// While what it gives lives, `quit` is called from the event loop when the system asks the program
// to end. A system that ends it by itself is held up until `save` has saved all, which gives false
// as long as that would be too early.
std::shared_ptr<void> WhenAskedToEnd(std::function<void()> quit, std::function<bool()> save);

}  // namespace tarnwell::app
