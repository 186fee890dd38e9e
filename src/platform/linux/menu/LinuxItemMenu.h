// The entries of the context menu for certain items.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/ContextMenu.h"
#include "platform/linux/menu/Applications.h"
#include "platform/linux/menu/FailureList.h"
#include "platform/linux/menu/LinuxContextMenu.h"
#include "platform/linux/menu/OpenItems.h"

namespace tarnwell::platform {

enum class MenuVerb {
  None,  // a separator, or the head of a submenu
  Open,
  OpenWith,
  OtherApplication,
  Cut,
  Copy,
  Paste,
  CreateShortcut,
  Delete,
  Properties,
};

class LinuxItemMenu : public ItemMenu {
 public:
  // Without names the menu is for the folder itself, as seen from within.
  LinuxItemMenu(const MenuTools& tools, const std::string& folder,
                const std::vector<std::string>& names);

  base::Status Fill(std::uintptr_t menu, int firstId, int lastId,
                    std::vector<ContextEntry>& entries) override;
  OperationId Invoke(int offset) override;

 private:
  struct Action {
    MenuVerb Verb = MenuVerb::None;
    std::size_t Application = 0;  // for OpenWith, among applications_
  };

  // The entry behind whose number the action stands.
  ContextEntry Numbered(const Action& action);
  std::vector<ContextEntry> ApplicationEntries();
  bool IsOneFolder() const;
  std::optional<FarPlace> FarPlaceOfAny() const;
  OpenTools OpeningTools() const {
    return {tools_.Dialogs, tools_.Windows, tools_.Forms, tools_.Calls};
  }
  void CreateShortcuts(FailureList& failures);
  void Open();
  void OpenWith(GAppInfo* application);
  void ChooseApplication();
  void RunCommand(const std::string& command);
  OperationId Trash();
  // Tells why the items stay where they are, if they do.
  bool IsRefused(FileFunction function) const;
  // Those of the items that are still there.
  std::vector<std::string> ItemsThere(FailureList& failures) const;
  void Tell(const std::string& name, const std::string& what, const base::Status& status);

  const MenuTools tools_;
  const std::string folder_;
  const std::vector<std::string> names_;
  std::vector<std::string> paths_;  // of the items, or of the folder itself
  std::vector<std::string> types_;
  ApplicationList applications_;  // registered for all of the types
  std::vector<Action> actions_;   // by the entries' numbers less the first
  int firstId_ = 0;
  std::size_t room_ = 0;  // how many numbers there are
};

}  // namespace tarnwell::platform
