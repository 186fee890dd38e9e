// The platform as the program gets it: one reference for each port that is in use.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "fileops/OperationQueue.h"
#include "fileops/UndoHistory.h"
#include "forms/FormHost.h"
#include "platform/Clock.h"
#include "platform/Collation.h"
#include "platform/ContextMenu.h"
#include "platform/Dialogs.h"
#include "platform/FileSearch.h"
#include "platform/FileSystem.h"
#include "platform/FolderStamps.h"
#include "platform/FolderWatch.h"
#include "platform/ItemWindows.h"
#include "platform/Keyboard.h"
#include "platform/Launcher.h"
#include "platform/Library.h"
#include "platform/MessagePump.h"
#include "platform/NetworkPlaces.h"
#include "platform/NumberForms.h"
#include "platform/PopupMenu.h"
#include "platform/Regex.h"
#include "platform/ShellWindows.h"
#include "platform/SystemInfo.h"
#include "platform/TrashCan.h"
#include "platform/Tray.h"
#include "platform/UserSettings.h"
#include "platform/Web.h"
#include "tools/MessageLog.h"

namespace tarnwell::shell {

// What the program's own windows for the trash and the network go by.
struct OwnWindows {
  platform::ItemWindows& Items;
  platform::TrashCan& Trash;
  platform::NetworkPlaces& Network;
};

struct Services {
  forms::FormHost& Host;
  platform::FileSystem& Files;
  platform::Drives& Drives;
  platform::FolderWatch& Watches;
  platform::MessagePump& Pump;
  platform::Clock& Clock;
  platform::Dialogs& Dialogs;
  platform::SystemInfo& System;
  platform::Collation& Order;
  platform::Launcher& Launcher;
  fileops::OperationQueue& Operation;
  const platform::OperationEngine& Engine;  // behind the operations
  fileops::UndoHistory& History;
  platform::ContextMenu& ItemMenus;
  platform::PopupMenus& ItemPopups;  // for those
  platform::PopupMenus& Popups;
  const platform::NumberForms& Forms;
  platform::FolderStamps& Stamps;
  const platform::Keyboard& Keys;
  platform::UserSettings& User;
  platform::Tray& Tray;
  platform::Web& Web;
  // One of the two is there.
  std::optional<OwnWindows> Own;
  platform::ShellWindows* Shell;
  platform::FileSearch& Search;
  std::string Site{};                          // the address of the program's site
  std::vector<platform::Library> Libraries{};  // that the program is linked with
  tools::MessageLog* Log = nullptr;            // null unless messages are logged
  std::vector<std::string> StartFolders{};     // full paths, for the panes from the first on
  platform::CompileRegex Regex{};              // null where there are no regular expressions
};

}  // namespace tarnwell::shell
