// What menu entries and toolbar buttons do: one table from name to command.
#pragma once

#include <string_view>

#include "commands/Switches.h"
#include "lists/ListCommands.h"
#include "settings/Skin.h"
#include "tools/CompareFolders.h"
#include "workspace/FormLayout.h"
#include "workspace/PaneSet.h"

namespace tarnwell::commands {

// Commands whose work lies beyond the panes.
class ProgramCommands {
 public:
  virtual ~ProgramCommands() = default;
  virtual void Exit() = 0;
  virtual void ShowOptions() = 0;
  virtual void FindFiles() = 0;
  virtual void SaveFileListing() = 0;
  virtual void OpenRecycleBin() = 0;
  virtual void EmptyRecycleBin() = 0;
  virtual void MapNetworkDrive() = 0;
  virtual void DisconnectNetworkDrive() = 0;
  virtual void ShowTips() = 0;
  virtual void ColorChooser() = 0;
  virtual void OpenHelp() = 0;
  virtual void OpenWebSite() = 0;
  virtual void ShowAbout() = 0;
  virtual void CheckForUpdate() = 0;
  virtual void RestoreWindow() = 0;
  virtual void ExitFromTray() = 0;
};

// What the commands work with.
struct CommandParts {
  workspace::Workspace& Space;
  workspace::PaneSet& Panes;
  workspace::FormLayout& Layout;
  lists::ListCommands& Lists;
  commands::Switches& Switches;
  tools::FolderComparison& Comparison;
  settings::Skin& Skin;
  ProgramCommands& Program;
};

class Commands {
 public:
  explicit Commands(CommandParts parts) : parts_(parts) {}

  // Whether a command goes by that name; names count by case.
  static bool IsCommand(std::string_view name);

  // Of a menu entry, by its name. An unknown one does nothing.
  void MenuClick(std::string_view name) const;
  // Of a toolbar button, by its key, after the click has pressed or raised it. An unknown one does
  // nothing; what fails is dropped.
  void ButtonClick(std::string_view key) const;

 private:
  CommandParts parts_;
};

}  // namespace tarnwell::commands
