// What follows when items are dropped on a list, and the paste of the program's own clipboard.
#pragma once

#include <string>
#include <string_view>

#include "fileops/DialogFields.h"
#include "fileops/FileOperate.h"
#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "lister/list/ListerEvents.h"
#include "platform/FileSystem.h"
#include "workspace/Workspace.h"

namespace tarnwell::fileops {

class DropCommand {
 public:
  DropCommand(workspace::Workspace& workspace, const platform::FileSystem& files,
              const platform::Drives& drives, FileOperations& operations, forms::FormHost& host,
              forms::Messenger& messenger, DialogFields& fields)
      : workspace_(workspace),
        files_(files),
        drives_(drives),
        syntax_(files.Syntax()),
        operations_(operations),
        host_(host),
        messenger_(messenger),
        fields_(fields) {}

  // Copies or moves the items into the DropFolder of the list; asks if the drop does not say what
  // to do. The user can change the folder there, by a path from the DropFolder on too; one that
  // cannot be is told by a message, and then the dialog asks anew.
  void DropItems(lister::ListId list, const lister::Drop& drop);

  // Asks as for a drop, with the button of the word framed, then copies or moves what is selected
  // in the source list, or the item with its cursor, into the folder of the target list.
  void SendSelected(std::string_view word, lister::ListId source, lister::ListId target);

  // Copies or moves what is selected in the source list into the DropFolder of the target list, and
  // ends the source's action. Asks, unless told to do what the clipboard holds.
  void Paste(lister::ListId source, lister::ListId target, bool skipDialog);

 private:
  // Where a drop on the list goes; empty if that is no folder.
  std::string DestinationOf(lister::ListId list) const;
  // What to do, and the folder as the user leaves it. A dialog that is closed without a button
  // leaves the word of the last one, whatever that asked; that of a delete counts as none.
  struct Answer {
    std::string Word;
    std::string Folder;
  };
  // `framed`: the word of the button that Enter presses.
  Answer Ask(const std::string& text, const std::string& destination,
             std::string_view framed = platform::CopyWord);

  workspace::Workspace& workspace_;
  const platform::FileSystem& files_;
  const platform::Drives& drives_;
  const base::PathSyntax& syntax_;
  FileOperations& operations_;
  forms::FormHost& host_;
  forms::Messenger& messenger_;
  DialogFields& fields_;
};

}  // namespace tarnwell::fileops
