// Port: what a platform adapter without menus and windows of its own shows for items.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tarnwell::platform {

struct ApplicationChoice {
  std::string Id;             // names the application to whoever made the list
  std::string Name;           // for people
  std::string Picture;        // in the desktop's icon theme; may be empty
  bool IsRegistered = false;  // for the type in question
};

struct ChosenApplication {
  std::string Id;          // empty when the user typed a command instead
  std::string Command;     // a program and its arguments
  bool AlwaysUse = false;  // from now on for all files of the type
};

// Programs among the files that the user wants to open.
struct RunQuestion {
  std::vector<std::string> Programs;  // full paths, at least one
  std::string Command;                // what the only one starts, where that is something else
  std::size_t Files = 1;              // how many are to be opened, the programs among them
  bool CanOpen = false;               // an application takes each of the programs as a document
};

enum class RunChoice { Cancel, Run, RunInTerminal, Open };

class ItemWindows {
 public:
  virtual ~ItemWindows() = default;
  // Opens a window that lives on by itself. Full paths, at least one.
  virtual void ShowProperties(const std::vector<std::string>& paths) = 0;
  // What to open the item with; nothing on cancel. `path` is the first of the items, `type` what
  // its type is called.
  virtual std::optional<ChosenApplication> ChooseApplication(
      const std::string& path, const std::string& type,
      const std::vector<ApplicationChoice>& applications) = 0;
  // Asks before programs start. Closed by other means than a button it counts as Cancel.
  virtual RunChoice AskRun(const RunQuestion& question) = 0;
  // Shows what the folder holds in the pane that the user works in.
  virtual void OpenFolder(const std::string& path) = 0;
};

}  // namespace tarnwell::platform
