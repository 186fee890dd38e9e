#include <QGuiApplication>
#include <QSettings>
#include <cstdlib>
#include <utility>

#include "app/FarOperations.h"
#include "app/LinuxTrayPanel.h"
#include "app/Platform.h"
#include "platform/afar/FarFileSystem.h"
#include "platform/afar/FarStamps.h"
#include "platform/linux/afar/LinuxFarPlaces.h"
#include "platform/linux/afar/OperationVolumes.h"
#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/files/LinuxFolderStamps.h"
#include "platform/linux/files/LinuxFolderWatch.h"
#include "platform/linux/files/LinuxItemInspector.h"
#include "platform/linux/files/ProtectedItems.h"
#include "platform/linux/menu/LinuxContextMenu.h"
#include "platform/linux/menu/LinuxLauncher.h"
#include "platform/linux/network/LinuxNetworkPlaces.h"
#include "platform/linux/operation/RunOperation.h"
#include "platform/linux/search/LinuxFileSearch.h"
#include "platform/linux/system/LinuxClock.h"
#include "platform/linux/system/LinuxCollation.h"
#include "platform/linux/system/LinuxDesktopNotices.h"
#include "platform/linux/system/LinuxDrives.h"
#include "platform/linux/system/LinuxLibraries.h"
#include "platform/linux/system/LinuxLogFile.h"
#include "platform/linux/system/LinuxSystemInfo.h"
#include "platform/linux/system/LinuxUserSettings.h"
#include "platform/linux/system/XcbKeyboard.h"
#include "platform/linux/trash/LinuxTrashCan.h"
#include "platform/pcre/PcreRegex.h"
#include "ui/toolkit/FilePath.h"

namespace tarnwell::app {

namespace {

Desktop MakeDesktop(const DesktopTools& tools, const platform::FarCalls& calls) {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return {std::make_unique<platform::LinuxLauncher>(
              platform::OpenTools{tools.Dialogs, *tools.Windows, tools.Forms, calls}),
          std::make_unique<platform::LinuxContextMenu>(platform::MenuTools{
              tools.Clipboard, tools.Operation, tools.Dialogs, *tools.Windows, tools.Forms, calls}),
          nullptr,
          std::make_unique<platform::XcbKeyboard>(x11 != nullptr ? x11->connection() : nullptr),
          nullptr};
}

ui::OperationSystem OperationsBy(const platform::FarCalls& calls, const std::string& folder) {
  ui::OperationSystem made;
  made.Run = [folder](const platform::OperationRequest& request, platform::OperationUser& user) {
    return platform::RunOperation(request, user, folder);
  };
  made.Refusal = [folder](platform::FileFunction function, const std::string& items) {
    return platform::ProtectedItems(folder).Refusal(function, items);
  };
  made.VolumesOf = [calls](const platform::OperationRequest& request) {
    return platform::VolumesOf(request, calls.Places());
  };
  made.Fingerprint = [](const std::string& path, bool isWhole) {
    return platform::FingerprintOf(path, isWhole);
  };
  return WithCareAfar(std::move(made), calls);
}

}  // namespace

Platform MakePlatform(platform::MessagePump& pump) {
  auto system = std::make_unique<platform::LinuxSystemInfo>(platform::ProgramPlaces::OfProcess());
  const std::string folder = system->ProgramFolder();
  const platform::FarCalls calls(pump, {}, std::make_shared<platform::LinuxFarPlaces>());
  Platform made;
  made.DataFolder = system->DataFolder();
  made.Libraries = platform::LinuxLibraries();
  made.Libraries.push_back({"PCRE2 " + platform::PcreVersion(), "BSD"});
  if (system->IsPortable()) {
    // What the toolkit's own dialogs remember, too.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, ui::ToQtPath(folder));
  }
  const std::string settings =
      system->IsPortable() ? folder + "/tarnwell.conf" : platform::LinuxUserSettings::UsualPath();
  made.System = std::move(system);
  made.Files = std::make_unique<platform::FarFileSystem>(
      std::make_shared<platform::LinuxFileSystem>(folder), calls);
  auto mounts = std::make_shared<platform::DesktopMounts>();
  made.Drives = std::make_unique<platform::LinuxDrives>(*mounts);
  made.Network = std::make_unique<platform::LinuxNetworkPlaces>(*mounts);
  made.Mounts = std::move(mounts);
  made.Watches = std::make_unique<platform::LinuxFolderWatch>();
  made.Stamps =
      std::make_unique<platform::FarStamps>(std::make_shared<platform::LinuxFolderStamps>(), calls);
  made.Trash = std::make_unique<platform::LinuxTrashCan>(platform::TrashPlaces::OfProcess(),
                                                         *made.Watches, *made.Drives);
  made.Search = std::make_unique<platform::LinuxFileSearch>();
  made.CompileRegex = platform::CompilePcre;
  made.Clock = std::make_unique<platform::LinuxClock>();
  made.Order = std::make_unique<platform::LinuxCollation>();
  made.Inspector = std::make_unique<platform::LinuxItemInspector>();
  made.UserSettings = std::make_unique<platform::LinuxUserSettings>(settings);
  made.LogFile = platform::LinuxLogFile::Open(std::getenv("TARNWELL_MSGLOG"), folder);
  made.Operations = OperationsBy(calls, folder);
  made.Notices = std::make_unique<platform::LinuxDesktopNotices>("tarnwell");
  made.IsTraySilent = IsTrayPanelSilent;
  made.AnyCallsLeft = [calls] { return calls.AnyLeft(); };
  made.MakeDesktop = [calls](const DesktopTools& tools) { return MakeDesktop(tools, calls); };
  return made;
}

}  // namespace tarnwell::app
