// The command that gives many items other names at once.
#pragma once

#include <string>
#include <vector>

#include "fileops/RenameRules.h"
#include "fileops/RenameTable.h"
#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "platform/Clock.h"
#include "platform/FileOperation.h"
#include "platform/FileSystem.h"
#include "platform/NumberForms.h"
#include "workspace/Workspace.h"

namespace tarnwell::fileops {

struct RenameServices {
  const platform::FileSystem& Files;
  platform::FileOperation& Operations;
  const platform::Clock& Clock;
  const platform::NumberForms& Forms;
  forms::FormHost& Host;
  forms::Messenger& Messages;
  platform::CompileRegex Regex;  // null where there are no regular expressions
};

class RenameItemsCommand {
 public:
  RenameItemsCommand(workspace::Workspace& workspace, RenameServices services)
      : workspace_(workspace), services_(std::move(services)) {}

  // Asks for the names of what is selected in the current list, and renames it: all or nothing. Of
  // one item alone the list's status tells what to do.
  void RenameSelected();
  // The same for full paths, and gives the operation, after which the list is yet to be read again.
  platform::OperationId RenameItems(std::vector<std::string> paths);

 private:
  std::vector<std::string> Selected() const;
  // The steps; none where nothing is to be done.
  std::vector<platform::PlacedItem> Ask(const std::vector<std::string>& paths,
                                        std::size_t& changes);
  platform::OperationId Start(const std::vector<platform::PlacedItem>& steps, std::size_t changes);

  workspace::Workspace& workspace_;
  RenameServices services_;
};

}  // namespace tarnwell::fileops
