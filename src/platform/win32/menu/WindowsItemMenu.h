// The shell's context menu for certain items.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/ContextMenu.h"
#include "platform/win32/menu/MenuEntries.h"
#include "platform/win32/menu/MenuMessages.h"
#include "platform/win32/menu/WindowsContextMenu.h"

namespace tarnwell::platform {

class WindowsItemMenu : public ItemMenu {
 public:
  // `paths` are the items', in full; `isWithin` says that the only one is the open folder.
  WindowsItemMenu(const ShellMenuTools& tools, ComPtr<IContextMenu> menu, std::string folder,
                  std::vector<std::string> paths, bool isWithin)
      : tools_(tools),
        menu_(std::move(menu)),
        folder_(std::move(folder)),
        paths_(std::move(paths)),
        isWithin_(isWithin) {}

  // Fails without a menu.
  base::Status Fill(std::uintptr_t menu, int firstId, int lastId,
                    std::vector<ContextEntry>& entries) override;
  // A deletion is an operation of the program; whatever else it begins is the shell's.
  OperationId Invoke(int offset) override;

 private:
  HWND Owner() const { return reinterpret_cast<HWND>(tools_.Owner()); }
  void RemoveTaking(HMENU menu, const IdRange& range) const;
  OperationId Trash() const;
  // The verb is in capitals.
  bool IsRefused(const std::string& verb) const;
  // For the shell to delete all of it, which the user has heard of then.
  bool IsTooDeep() const;

  const ShellMenuTools& tools_;
  const ComPtr<IContextMenu> menu_;
  const std::string folder_;
  const std::vector<std::string> paths_;
  const bool isWithin_;
  std::optional<MenuMessages> messages_;
};

}  // namespace tarnwell::platform
