// The shell's own context menu for items.
#pragma once

#include <string>

#include "platform/ContextMenu.h"
#include "platform/Dialogs.h"
#include "platform/OwnerWindow.h"
#include "platform/afar/FarCalls.h"
#include "platform/win32/shell/ItemIds.h"

namespace tarnwell::platform {

// What the entries work with.
struct ShellMenuTools {
  OwnerWindow Owner;
  FileOperation& Operation;
  platform::Dialogs& Dialogs;
  FarCalls Calls{};
};

// The entries are the shell's, and so is all that they do, with its questions, its progress and its
// messages; it deletes within an operation of the program. The menu for an open folder is that of
// the folder as an item, but takes nothing away. A menu needs one of WindowsPopupMenus to be filled
// into.
class WindowsContextMenu : public ContextMenu {
 public:
  explicit WindowsContextMenu(ShellMenuTools tools) : tools_(std::move(tools)) {}
  // What has been copied stays for other programs.
  ~WindowsContextMenu() override { OleFlushClipboard(); }
  WindowsContextMenu(const WindowsContextMenu&) = delete;
  WindowsContextMenu& operator=(const WindowsContextMenu&) = delete;

  base::Status Find(const std::string& path) const override;
  std::unique_ptr<ItemMenu> ForItems(const std::string& folder,
                                     const std::vector<std::string>& names) override;

 private:
  // Whether another machine that the folder may be on answers.
  base::Status Reach(const std::string& folder) const;

  const ComThread com_;
  const ShellMenuTools tools_;
  // Items are asked for one after the other, mostly of one folder.
  mutable std::string folder_;
  mutable ComPtr<IShellFolder> opened_;
};

}  // namespace tarnwell::platform
