// The program's own forms for the trash and for places on the network.
#pragma once

#include <functional>
#include <string>

#include "fileops/EmptyRecycleBin.h"
#include "fileops/frmRecycleBin.h"
#include "platform/Collation.h"
#include "platform/UserSettings.h"
#include "shell/Services.h"
#include "tools/frmDisconnect.h"
#include "tools/frmMapDrive.h"
#include "workspace/Workspace.h"

namespace tarnwell::shell {

struct OwnForms {
  // `openFolder` shows a folder in the pane in use, `openOnDrive` as one of the drive that holds
  // it.
  using OpenFolder = std::function<void(const std::string& path)>;
  OwnForms(workspace::Workspace& space, const OwnWindows& windows,
           const fileops::TrashServices& trash, const platform::Collation& order,
           platform::UserSettings& user, OpenFolder openFolder, OpenFolder openOnDrive)
      : Empty(space, trash),
        RecycleBin(space, trash, order, windows.Items, Empty, std::move(openFolder)),
        MapDrive({trash.Host, windows.Network, user, std::move(openOnDrive)}),
        Disconnect(trash.Host, windows.Network) {}

  fileops::EmptyCommand Empty;
  fileops::frmRecycleBin RecycleBin;
  tools::frmMapDrive MapDrive;
  tools::frmDisconnect Disconnect;
};

}  // namespace tarnwell::shell
