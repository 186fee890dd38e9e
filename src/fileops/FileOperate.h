// Copying, moving and deleting of items of the lists, and bringing the lists up to date after it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "fileops/DialogFields.h"
#include "forms/Messenger.h"
#include "lists/Navigation.h"
#include "lists/ShowPlaced.h"
#include "platform/FileOperation.h"
#include "workspace/Workspace.h"

namespace tarnwell::fileops {

class FileOperations {
 public:
  FileOperations(workspace::Workspace& workspace, const base::PathSyntax& syntax,
                 platform::FileOperation& platform, lists::Navigation& navigation,
                 forms::Messenger& messenger, DialogFields& fields)
      : workspace_(workspace),
        syntax_(syntax),
        platform_(platform),
        navigation_(navigation),
        messenger_(messenger),
        fields_(fields) {}

  // `action` is "copy", "move" or "delete"; "cancel" does nothing, and any other word is handed to
  // the platform as an operation that it does not know. The items are those given, each full path
  // ended by a NUL, or what is selected in the source list; NoList there does nothing. The target
  // list shows the target folder and is read again; with `refreshChild` its file list too. What
  // may not be moved or deleted is told of, and nothing is done. After "cancel" and where there are
  // no items, the lists stay as they are and follow no folder until some other command. Returns
  // once the work is handed over; the lists are brought up to date when it is done.
  void FileOperate(const std::string& action, lister::ListId source, lister::ListId target,
                   std::string folder, bool refreshChild, const std::string& items);

  // Copies one item without a word. `then` gets the platform's code, 0 for success.
  void PerformShellAction(const std::string& source, const std::string& destination,
                          std::function<void(std::int32_t result)> then);

 private:
  // What follows an operation needs of it.
  struct Carried {
    platform::FileFunction Function;
    lister::ListId Source;
    lister::ListId Target;
    bool RefreshesChild;
    std::string Leaving;  // the items, where the source list shows one that is to go
    lists::CursorMark Cursor;
  };

  platform::OperationId Start(platform::FileFunction function, const std::string& folder,
                              const std::string& items);
  void FollowUp(const Carried& carried, const platform::OperationResult& result);
  std::uint16_t FlagsOf(platform::FileFunction function, const std::string& items,
                        const std::string& folder) const;
  bool DeletesFolderOnShow(lister::ListId source, const std::string& items) const;

  workspace::Workspace& workspace_;
  const base::PathSyntax& syntax_;
  platform::FileOperation& platform_;
  lists::Navigation& navigation_;
  forms::Messenger& messenger_;
  DialogFields& fields_;
};

}  // namespace tarnwell::fileops
