// What the program gets from the system that it runs on. Each system answers these by its own
// adapters, in one file.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Collation.h"
#include "platform/ContextMenu.h"
#include "platform/DesktopNotices.h"
#include "platform/Dialogs.h"
#include "platform/FileClipboard.h"
#include "platform/FileSearch.h"
#include "platform/FolderStamps.h"
#include "platform/FolderWatch.h"
#include "platform/ItemFacts.h"
#include "platform/ItemWindows.h"
#include "platform/Keyboard.h"
#include "platform/Launcher.h"
#include "platform/Library.h"
#include "platform/LogFile.h"
#include "platform/MessagePump.h"
#include "platform/NetworkPlaces.h"
#include "platform/NumberForms.h"
#include "platform/PopupMenu.h"
#include "platform/Regex.h"
#include "platform/ShellWindows.h"
#include "platform/SystemInfo.h"
#include "platform/TrashCan.h"
#include "platform/UserSettings.h"
#include "ui/operation/OperationSystem.h"
#include "ui/toolkit/IconSource.h"

namespace tarnwell::app {

// What works by windows, which it is given, or by the display.
struct DesktopTools {
  platform::FileClipboard& Clipboard;
  platform::FileOperation& Operation;
  platform::Dialogs& Dialogs;
  platform::ItemWindows* Windows;                      // null where there is no Inspector
  std::function<void(const std::string&)> OpenFolder;  // in the pane in use
  const platform::NumberForms& Forms;
  const platform::MenuLook Menus;
};
struct Desktop {
  std::unique_ptr<platform::Launcher> Launcher;
  std::unique_ptr<platform::ContextMenu> ItemMenus;
  std::unique_ptr<platform::PopupMenus> ItemPopups;  // for those; null where the toolkit's serve
  std::unique_ptr<platform::Keyboard> Keys;
  std::unique_ptr<platform::ShellWindows> Shell;  // null where the three below are there
};

// What needs no window; to be made once the application is there.
struct Platform {
  std::unique_ptr<platform::SystemInfo> System;
  std::string DataFolder;  // of the files that came with the program; empty if there is none
  std::vector<platform::Library> Libraries;
  std::unique_ptr<platform::FileSystem> Files;
  std::shared_ptr<void> Mounts;  // of the desktop; behind the next two
  std::unique_ptr<platform::Drives> Drives;
  std::unique_ptr<platform::NetworkPlaces> Network;  // null where the system has a shell
  std::unique_ptr<platform::FolderWatch> Watches;
  std::unique_ptr<platform::FolderStamps> Stamps;
  std::unique_ptr<platform::TrashCan> Trash;  // goes by the drives and watches; null as Network
  std::unique_ptr<platform::FileSearch> Search;
  platform::CompileRegex CompileRegex;
  std::unique_ptr<platform::Clock> Clock;
  std::unique_ptr<platform::Collation> Order;
  std::unique_ptr<platform::ItemInspector> Inspector;  // null as Network
  std::unique_ptr<platform::UserSettings> UserSettings;
  std::unique_ptr<platform::LogFile> LogFile;  // null unless messages are to be logged
  ui::OperationSystem Operations;
  std::unique_ptr<platform::DesktopNotices> Notices;
  ui::SystemIcons Icons;  // empty where the desktop has themes
  // What the system's own menu has cut for this program; empty where the clipboard tells of that.
  std::function<std::string()> CutByShell;
  // Whether a question for the notification area would wait for a desktop that hangs; may be empty.
  std::function<bool()> IsTraySilent;
  // To be told the main window, as platform/OwnerWindow.h has it; empty where that is of no use.
  std::function<void(std::uintptr_t)> TakeOwner;
  // Whether calls to other machines still run that nobody waits for.
  std::function<bool()> AnyCallsLeft;
  std::function<Desktop(const DesktopTools& tools)> MakeDesktop;
};
// The pump lets messages through while other machines are waited for.
Platform MakePlatform(platform::MessagePump& pump);

}  // namespace tarnwell::app
