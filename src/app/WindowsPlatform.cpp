#include <atomic>
#include <utility>

#include "app/FarOperations.h"
#include "app/Platform.h"
#include "app/WindowsIcons.h"
#include "platform/afar/FarFileSystem.h"
#include "platform/afar/FarStamps.h"
#include "platform/pcre/PcreRegex.h"
#include "platform/win32/afar/OperationVolumes.h"
#include "platform/win32/afar/WindowsFarPlaces.h"
#include "platform/win32/api/ProcessText.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/Fingerprint.h"
#include "platform/win32/files/ProtectedItems.h"
#include "platform/win32/files/WindowsFileSystem.h"
#include "platform/win32/files/WindowsFolderStamps.h"
#include "platform/win32/files/WindowsFolderWatch.h"
#include "platform/win32/menu/WindowsContextMenu.h"
#include "platform/win32/menu/WindowsPopupMenus.h"
#include "platform/win32/operation/RunOperation.h"
#include "platform/win32/search/WindowsFileSearch.h"
#include "platform/win32/shell/CutItems.h"
#include "platform/win32/shell/WindowsLauncher.h"
#include "platform/win32/shell/WindowsShellWindows.h"
#include "platform/win32/system/WindowsClock.h"
#include "platform/win32/system/WindowsCollation.h"
#include "platform/win32/system/WindowsDesktopNotices.h"
#include "platform/win32/system/WindowsDrives.h"
#include "platform/win32/system/WindowsKeyboard.h"
#include "platform/win32/system/WindowsLibraries.h"
#include "platform/win32/system/WindowsLogFile.h"
#include "platform/win32/system/WindowsSystemInfo.h"
#include "platform/win32/system/WindowsUserSettings.h"

namespace tarnwell::app {
namespace {

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
  made.Fingerprint = platform::FingerprintOf;
  return WithCareAfar(std::move(made), calls);
}

}  // namespace

Platform MakePlatform(platform::MessagePump& pump) {
  const auto ownerId = std::make_shared<std::atomic<std::uintptr_t>>(0);
  const platform::OwnerWindow owner = [ownerId] { return ownerId->load(); };
  const auto files = std::make_shared<platform::WindowsFileSystem>();
  auto system =
      std::make_unique<platform::WindowsSystemInfo>(platform::ProgramPlaces::OfProcess(), *files);
  const std::string folder = system->ProgramFolder();
  files->ProtectProgram(folder);
  const platform::FarCalls calls(pump, {}, std::make_shared<platform::WindowsFarPlaces>());
  Platform made;
  made.DataFolder = system->DataFolder();
  made.Libraries = platform::WindowsLibraries();
  made.Libraries.push_back({"PCRE2 " + platform::PcreVersion(), "BSD"});
  made.System = std::move(system);
  made.Files = std::make_unique<platform::FarFileSystem>(files, calls);
  made.Drives = std::make_unique<platform::WindowsDrives>();
  auto watches = std::make_unique<platform::WindowsFolderWatch>();
  files->LetGoBy(watches->LettingGo());
  made.Watches = std::move(watches);
  made.Stamps = std::make_unique<platform::FarStamps>(
      std::make_shared<platform::WindowsFolderStamps>(), calls);
  made.Search = std::make_unique<platform::WindowsFileSearch>();
  made.CompileRegex = platform::CompilePcre;
  made.Clock = std::make_unique<platform::WindowsClock>();
  made.Order = std::make_unique<platform::WindowsCollation>();
  made.UserSettings = std::make_unique<platform::WindowsUserSettings>();
  const std::string log = platform::Narrow(platform::EnvironmentText(L"TARNWELL_MSGLOG"));
  made.LogFile = platform::WindowsLogFile::Open(log.c_str(), folder);
  // All that was typed has been looked at. The folder that the program was started in could not be
  // deleted, nor its drive taken away, as long as it is the current one.
  made.System->SetCurrentFolder(folder.substr(0, 3));
  made.Operations = OperationsBy(calls, folder);
  made.Notices = std::make_unique<platform::WindowsDesktopNotices>(owner);
  made.Icons = ShellIcons();
  made.CutByShell = platform::ItemsCutHere;
  made.TakeOwner = [ownerId](std::uintptr_t window) { *ownerId = window; };
  made.AnyCallsLeft = [calls] { return calls.AnyLeft(); };
  made.MakeDesktop = [owner, &files = *made.Files, calls](const DesktopTools& tools) -> Desktop {
    return {std::make_unique<platform::WindowsLauncher>(
                platform::LaunchTools{files, tools.Dialogs, tools.Forms, tools.OpenFolder, owner}),
            std::make_unique<platform::WindowsContextMenu>(
                platform::ShellMenuTools{owner, tools.Operation, tools.Dialogs, calls}),
            std::make_unique<platform::WindowsPopupMenus>(owner, tools.Menus),
            std::make_unique<platform::WindowsKeyboard>(),
            std::make_unique<platform::WindowsShellWindows>(owner)};
  };
  return made;
}

}  // namespace tarnwell::app
