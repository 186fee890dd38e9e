#include <utility>

#include "app/Process.h"
#include "platform/win32/api/ProcessText.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/WindowsFileSystem.h"
#include "platform/win32/system/RunningCopy.h"
#include "platform/win32/system/WindowsSystemInfo.h"
#include "platform/win32/system/WindowsTermination.h"
#include "platform/win32/system/WriteToTerminal.h"
// Behind the system's own, which it needs.
#include <shellapi.h>

namespace tarnwell::app {
namespace {

std::string OwnFolder() {
  platform::WindowsFileSystem files;
  return platform::WindowsSystemInfo(platform::ProgramPlaces::OfProcess(), files).ProgramFolder();
}

}  // namespace

std::optional<int> PrepareProcess(int /*argc*/, char** /*argv*/) {
  // A drive without a disk is an error wherever it is asked, and no question of the system.
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
  return {};
}

// Those of the process, since names in them may be no text of any code page. A separator before the
// quotation mark at the end has taken that for a part of the word, where it can only be the end.
std::vector<std::string> WordsOf(int /*argc*/, char** /*argv*/) {
  int count = 0;
  wchar_t** const all = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> words;
  for (int at = 1; at < count; ++at) {
    words.push_back(platform::Narrow(all[at]));
    if (words.back().ends_with('"')) words.back().back() = '\\';
  }
  LocalFree(all);
  return words;
}

void WriteOutput(const std::string& text) {
  platform::WriteToTerminal(platform::TerminalStream::Output, text);
}

void WriteErrorOutput(const std::string& text) {
  platform::WriteToTerminal(platform::TerminalStream::Error, text);
}

bool IsErrorOutputSeen() {
  return platform::IsTerminalSeen(platform::TerminalStream::Error);
}

TypedFolder LookAtTyped(const std::string& typed) {
  TypedFolder folder{FullPathOf(typed), {}};
  base::Status status;
  if (!platform::WindowsFileSystem().OpenFolder(folder.Path, status)) {
    folder.Trouble = status.Reason;
  }
  return folder;
}

std::string FullPathOf(const std::string& typed) {
  return platform::FullFolder(typed);
}

bool AskRunningCopy(const std::vector<std::string>& folders) {
  return platform::AskRunningCopy(OwnFolder(), folders);
}

std::shared_ptr<void> WhenAskedToOpen(OpensFolders opens) {
  return std::make_shared<platform::RunningCopy>(
      OwnFolder(),
      [opens = std::move(opens)](const std::vector<std::string>& folders) { opens(folders, ""); });
}

bool IsBelowSystemDialog(std::uintptr_t window) {
  GUITHREADINFO facts{};
  facts.cbSize = sizeof facts;
  const bool isInMenu = GetGUIThreadInfo(GetCurrentThreadId(), &facts) != FALSE &&
                        (facts.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE)) != 0;
  return isInMenu || IsWindowEnabled(reinterpret_cast<HWND>(window)) == FALSE;
}

std::shared_ptr<void> WhenAskedToEnd(std::function<void()> quit, std::function<bool()> save) {
  return std::make_shared<platform::WindowsTermination>(std::move(quit), std::move(save));
}

}  // namespace tarnwell::app
