// Builds the adapters, hands them to the core, and runs.

#include <QIcon>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>

#include "app/CommandArguments.h"
#include "app/Platform.h"
#include "app/Process.h"
#include "fileops/OperationNotices.h"
#include "fileops/OperationQueue.h"
#include "fileops/UndoHistory.h"
#include "lists/ShowCut.h"
#include "shell/Application.h"
#include "ui/forms/AcknowWindow.h"
#include "ui/forms/DisconnectWindow.h"
#include "ui/forms/FindWindow.h"
#include "ui/forms/HelpWindow.h"
#include "ui/forms/MapDriveWindow.h"
#include "ui/forms/MsgBoxWindow.h"
#include "ui/forms/NotReadWindow.h"
#include "ui/forms/OperationDialogs.h"
#include "ui/forms/OptionsWindow.h"
#include "ui/forms/PlaceQuestionWindow.h"
#include "ui/forms/QtFormHost.h"
#include "ui/forms/RecycleBinWindow.h"
#include "ui/forms/RenameItemsWindow.h"
#include "ui/forms/SkinChooserWindow.h"
#include "ui/forms/SplashWindow.h"
#include "ui/forms/TipWindow.h"
#include "ui/forms/UpdateWindow.h"
#include "ui/main/FoundList.h"
#include "ui/main/MainWindow.h"
#include "ui/operation/OperationViews.h"
#include "ui/operation/QtOperationEngine.h"
#include "ui/properties/QtItemWindows.h"
#include "ui/services/EndWithLastWindow.h"
#include "ui/services/FolderRequests.h"
#include "ui/services/GuardedApplication.h"
#include "ui/services/MessageFilter.h"
#include "ui/services/QtDialogs.h"
#include "ui/services/QtFileClipboard.h"
#include "ui/services/QtMessagePump.h"
#include "ui/services/QtNumberForms.h"
#include "ui/services/QtPopupMenus.h"
#include "ui/services/QtTray.h"
#include "ui/services/QtWeb.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/FilePath.h"
#include "ui/toolkit/IconSource.h"
#include "ui/toolkit/ScrollAccess.h"
#include "ui/toolkit/SkinStyle.h"

namespace {

using namespace tarnwell;

const base::Version ProgramVersion{TARNWELL_VERSION_MAJOR, TARNWELL_VERSION_MINOR,
                                   TARNWELL_VERSION_REVISION};

// For the end that leaves no time for windows: the display has gone, and with it the way back into
// main. What the user did is saved all the same, and no file is left half copied.
shell::Application* runningApplication = nullptr;
ui::QtOperationEngine* runningEngine = nullptr;
ui::QtItemWindows* openItemWindows = nullptr;

void SaveAtExit() {
  if (runningEngine != nullptr) runningEngine->CancelAndWait();
  if (openItemWindows != nullptr) openItemWindows->CancelAndWait();
  if (runningApplication != nullptr) runningApplication->MainObject().SaveWithoutWindows();
}

std::string ProgramSite() {
  const char* const site = std::getenv("TARNWELL_SITE");
  return site != nullptr && *site != '\0' ? site : TARNWELL_SITE;
}

std::vector<platform::Library> AllLibraries(const app::Platform& system) {
  std::vector<platform::Library> libraries = system.Libraries;
  libraries.insert(libraries.begin(), {std::string("Qt ") + qVersion(), "LGPL 3"});
  return libraries;
}

// For who starts the program without a terminal.
void ShowStartError(const std::string& reason) {
  QMessageBox box(QMessageBox::Critical, QStringLiteral("Tarnwell"),
                  ui::ToShownLines("Tarnwell cannot be started so: " + reason + "."));
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

template <typename... Forms>
void BindDialogs(ui::QtFormHost& host) {
  (host.Bind<Forms>([](Forms& form) { return ui::WindowOf(form); }), ...);
}

}  // namespace

int main(int argc, char** argv) {
  if (const auto code = app::PrepareProcess(argc, argv)) return *code;
  app::CommandArguments arguments = app::ReadArguments(app::WordsOf(argc, argv), ProgramVersion);
  if (arguments.ExitCode && (arguments.Error.empty() || app::IsErrorOutputSeen())) {
    return *arguments.ExitCode;
  }
  if (!arguments.Folders.empty() && app::AskRunningCopy(arguments.Folders)) return EXIT_SUCCESS;
  argc = 1;  // the rest is not for the toolkit
  ui::GuardedApplication qtApplication(argc, argv);
  QApplication::setApplicationName(QStringLiteral("tarnwell"));
  QApplication::setApplicationDisplayName(QStringLiteral("Tarnwell"));
  QApplication::setDesktopFileName(QStringLiteral("tarnwell"));
  QApplication::setQuitOnLastWindowClosed(false);
  // A desktop in a language that is written from right to left would mirror what has a layout,
  // while the forms place the rest themselves, and all texts are English.
  QApplication::setLayoutDirection(Qt::LeftToRight);
  QApplication::setStyle(new ui::SkinStyle);
  ui::TellOfScrollAreas();

  if (arguments.ExitCode) {
    ShowStartError(arguments.Error);
    return *arguments.ExitCode;
  }

  ui::QtMessagePump pump;
  const app::Platform system = app::MakePlatform(pump);
  std::unique_ptr<tools::MessageLog> log;
  std::unique_ptr<ui::MessageFilter> filter;
  if (system.LogFile) {
    log = std::make_unique<tools::MessageLog>(*system.LogFile, *system.Clock);
    filter = std::make_unique<ui::MessageFilter>(qtApplication, *log);
  }
  platform::FileSystem& files = *system.Files;
  const ui::QtNumberForms forms;
  ui::QtFormHost host;
  const ui::IconSource icons(ui::ToQtPath(system.DataFolder), system.Icons);
  ui::QtDialogs dialogs(icons);
  const QIcon programIcon = icons.Own("tarnwell");
  QApplication::setWindowIcon(programIcon);

  const ui::OperationTools operationTools{files.Syntax(), *system.Clock, forms, icons};
  ui::QtOperationEngine engine(system.Operations, operationTools);
  fileops::UndoHistory history;
  fileops::OperationQueue operations(engine, *system.Clock, files.Syntax(), forms, history);

  ui::QtPopupMenus popups(icons);
  ui::QtFileClipboard clipboard(system.CutByShell);
  const auto openFolder = [](const std::string& folder) {
    if (runningApplication != nullptr) runningApplication->MainObject().OpenFolder(folder);
  };
  std::optional<ui::QtItemWindows> itemWindows;
  std::optional<shell::OwnWindows> ownWindows;
  if (system.Inspector) {
    itemWindows.emplace(ui::PropertiesTools{operationTools, files, *system.Inspector}, openFolder);
    ownWindows.emplace(shell::OwnWindows{*itemWindows, *system.Trash, *system.Network});
  }
  const app::Desktop desktop =
      system.MakeDesktop({clipboard, operations, dialogs, itemWindows ? &*itemWindows : nullptr,
                          openFolder, forms, popups.Look()});
  platform::PopupMenus& itemPopups = desktop.ItemPopups ? *desktop.ItemPopups : popups;
  const auto closeMenus = [&](const std::function<void()>& then) {
    popups.CloseThen([&itemPopups, then] { itemPopups.CloseThen(then); });
  };
  ui::QtTray tray(programIcon, closeMenus, system.IsTraySilent);
  ui::QtWeb web(QStringLiteral("Tarnwell/") + QString::fromStdString(ProgramVersion.Text()));

  shell::Application application({host,
                                  files,
                                  *system.Drives,
                                  *system.Watches,
                                  pump,
                                  *system.Clock,
                                  dialogs,
                                  *system.System,
                                  *system.Order,
                                  *desktop.Launcher,
                                  operations,
                                  engine,
                                  history,
                                  *desktop.ItemMenus,
                                  itemPopups,
                                  popups,
                                  forms,
                                  *system.Stamps,
                                  *desktop.Keys,
                                  *system.UserSettings,
                                  tray,
                                  web,
                                  ownWindows,
                                  desktop.Shell.get(),
                                  *system.Search,
                                  ProgramSite(),
                                  AllLibraries(system),
                                  log.get(),
                                  std::move(arguments.Folders),
                                  system.CompileRegex},
                                 ProgramVersion);
  ui::OperationViews views(operations, operationTools, [&application] {
    return application.MainObject().Space().Settings.OperationsInWindow;
  });
  host.Bind<shell::Splash>([&](shell::Splash& form) -> std::unique_ptr<ui::FormWindow> {
    return std::make_unique<ui::SplashWindow>(form, programIcon);
  });
  host.Bind<shell::frmAcknow>(
      [](shell::frmAcknow& form) { return std::make_unique<ui::AcknowWindow>(form); });
  QPointer<QMainWindow> mainWindow;
  host.Bind<workspace::MainForm>([&](workspace::MainForm&) -> std::unique_ptr<ui::FormWindow> {
    auto window = std::make_unique<ui::MainWindow>(application.MainObject(), icons, views);
    popups.SetWindow(window.get());
    mainWindow = window.get();
    if (system.TakeOwner) system.TakeOwner(window->winId());
    return window;
  });
  host.Bind<shell::popMsgBox>([&](shell::popMsgBox& form) -> std::unique_ptr<ui::FormWindow> {
    return std::make_unique<ui::MsgBoxWindow>(form, icons, [&host, &form] { host.Unload(form); });
  });
  host.Bind<settings::frmOptions>(
      [](settings::frmOptions& form) { return std::make_unique<ui::OptionsWindow>(form); });
  host.Bind<settings::frmSkinChooser>(
      [](settings::frmSkinChooser& form) { return std::make_unique<ui::SkinChooserWindow>(form); });
  host.Bind<tools::frmUpdate>(
      [](tools::frmUpdate& form) { return std::make_unique<ui::UpdateWindow>(form); });
  host.Bind<tools::frmTip>(
      [&](tools::frmTip& form) { return std::make_unique<ui::TipWindow>(form, icons); });
  host.Bind<tools::frmMapDrive>(
      [](tools::frmMapDrive& form) { return std::make_unique<ui::MapDriveWindow>(form); });
  host.Bind<tools::frmDisconnect>(
      [](tools::frmDisconnect& form) { return std::make_unique<ui::DisconnectWindow>(form); });
  host.Bind<tools::popPlaceQuestion>([](tools::popPlaceQuestion& form) {
    return std::make_unique<ui::PlaceQuestionWindow>(form);
  });
  host.Bind<tools::frmHelp>(
      [](tools::frmHelp& form) { return std::make_unique<ui::HelpWindow>(form); });
  host.Bind<tools::frmFind>([&](tools::frmFind& form) {
    return std::make_unique<ui::FindWindow>(form, [&](QDialog& window) {
      return new ui::FoundList(application.MainObject(), icons, window, *mainWindow);
    });
  });
  host.Bind<tools::popNotRead>(
      [](tools::popNotRead& form) { return std::make_unique<ui::NotReadWindow>(form); });
  host.Bind<fileops::frmRenameItems>([&](fileops::frmRenameItems& form) {
    return std::make_unique<ui::RenameItemsWindow>(form, icons);
  });
  host.Bind<fileops::frmRecycleBin>([&](fileops::frmRecycleBin& form) {
    return std::make_unique<ui::RecycleBinWindow>(form, icons);
  });
  BindDialogs<fileops::popNewFolder, fileops::popCopyMove, fileops::popDelete, fileops::popRename>(
      host);

  const auto bringForward = [&] {
    if (!mainWindow) return;
    application.MainObject().BringBack();
    mainWindow->raise();
    mainWindow->activateWindow();
  };
  ui::FolderRequests requests(
      [&] {
        return application.StartForm().LoadFinished && !pump.IsWaiting() &&
               !(mainWindow && app::IsBelowSystemDialog(mainWindow->winId()));
      },
      [&](const std::vector<std::string>& folders) {
        application.MainObject().OpenFolders(folders);
      });
  std::shared_ptr<void> otherCopies =
      app::WhenAskedToOpen([&](const std::vector<std::string>& folders, const std::string& token) {
        if (!token.empty()) qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token));
        if (application.StartForm().LoadFinished) bringForward();
        requests.Add(folders);
      });
  // Another copy with folders is one of its own from now on.
  const auto leaveOtherCopies = [&] {
    otherCopies.reset();
    requests.Drop();
  };
  // What the system or the session asks for: operations are given up, and then all ends.
  const auto endNow = [&] {
    leaveOtherCopies();
    pump.Leave();
    operations.CancelAll();
    operations.WhenIdle([&] {
      closeMenus([&] {
        application.RequestQuit();
        if (host.OpenForms().empty()) QCoreApplication::exit();
      });
    });
  };
  // Menus may be up that cannot be closed as long as this is waited for.
  const auto saveWhenIdle = [&] {
    if (!operations.IsIdle()) return false;
    application.MainObject().SaveWithoutWindows();
    return true;
  };
  const std::shared_ptr<void> termination = app::WhenAskedToEnd(endNow, saveWhenIdle);
  qtApplication.MayQuit = [&] {
    if (operations.IsIdle()) return true;
    endNow();
    return false;
  };
  // What the user has closed goes at once, and the process when the operations are done, and what
  // they had to tell was seen.
  host.AllGone = [&] {
    leaveOtherCopies();
    clipboard.CutChanged = {};
    if (itemWindows) itemWindows->Close();
    operations.WhenIdle([&] {
      QMetaObject::invokeMethod(&qtApplication, ui::EndWithLastWindow, Qt::QueuedConnection);
    });
  };
  const fileops::OperationNotices notices(
      operations, *system.Notices,
      [] { return QGuiApplication::applicationState() == Qt::ApplicationActive; }, bringForward);
  clipboard.CutChanged = [&application](const std::string& items) {
    lists::ShowCut(application.MainObject().Space(), items);
  };
  runningApplication = &application;
  runningEngine = &engine;
  openItemWindows = itemWindows ? &*itemWindows : nullptr;
  std::atexit(SaveAtExit);

  // Within the loop, so that an end asked for meanwhile leaves it.
  QTimer::singleShot(0, &qtApplication, [&] {
    application.Start();
    if (host.OpenForms().empty()) QCoreApplication::exit();
  });
  QApplication::exec();
  leaveOtherCopies();
  // Whatever ended the loop, the program ends as if closed; what still runs now, nobody hears of.
  pump.Leave();
  engine.CancelAndWait();
  application.RequestQuit();
  application.MainObject().SaveWithoutWindows();
  // Windows that were closed last still look at what they showed.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  clipboard.CutChanged = {};
  runningApplication = nullptr;
  runningEngine = nullptr;
  openItemWindows = nullptr;
  const int code = application.StartForm().StartFailed ? EXIT_FAILURE : EXIT_SUCCESS;
  const bool isQuiet = (!itemWindows || itemWindows->CancelAndWait()) && !engine.AnyLeft();
  // Threads that other machines keep would use what ends here, should those answer at last. All
  // that is to be kept has been saved.
  if (!isQuiet || system.AnyCallsLeft()) std::_Exit(code);
  return code;
}
