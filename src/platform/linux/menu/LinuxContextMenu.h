// The context menu for items, made of what the desktop registers.
#pragma once

#include "platform/ContextMenu.h"
#include "platform/Dialogs.h"
#include "platform/FileClipboard.h"
#include "platform/FileOperation.h"
#include "platform/ItemWindows.h"
#include "platform/NumberForms.h"
#include "platform/afar/FarCalls.h"

namespace tarnwell::platform {

// What the entries work with.
struct MenuTools {
  FileClipboard& Clipboard;
  FileOperation& Operation;
  platform::Dialogs& Dialogs;
  ItemWindows& Windows;
  const NumberForms& Forms;
  FarCalls Calls{};
};

// Open, Open With, Cut, Copy, Paste, Create Shortcut, Delete and Properties, each where it makes
// sense for the items. Entries of items that have gone meanwhile, or that may not go, say so.
class LinuxContextMenu : public ContextMenu {
 public:
  explicit LinuxContextMenu(const MenuTools& tools) : tools_(tools) {}

  base::Status Find(const std::string& path) const override;
  std::unique_ptr<ItemMenu> ForItems(const std::string& folder,
                                     const std::vector<std::string>& names) override;

 private:
  const MenuTools tools_;
};

}  // namespace tarnwell::platform
