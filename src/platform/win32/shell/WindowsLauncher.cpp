#include "platform/win32/shell/WindowsLauncher.h"

#include <shlwapi.h>

#include <algorithm>
#include <cctype>
#include <string_view>
#include <utility>

#include "base/PathSyntax.h"
#include "base/Text.h"
#include "platform/OpenQuestion.h"
#include "platform/win32/api/ProcessText.h"
#include "platform/win32/api/SystemError.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/shell/ExecuteByShell.h"
#include "platform/win32/shell/ProgramFiles.h"
#include "platform/win32/shell/ShellPath.h"
#include "platform/win32/shell/Shortcut.h"

namespace tarnwell::platform {
namespace {

const base::PathSyntax& pathRules = base::PathSyntax::Windows();

// "https://..." and "mailto:...", but not "C:...": no scheme has one letter.
bool IsAddress(std::string_view file) {
  const std::size_t colon = file.find(':');
  return colon != file.npos && colon > 1 &&
         std::ranges::all_of(file.substr(0, colon), [](char letter) {
           return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '+' ||
                  letter == '-' || letter == '.';
         });
}

// What was typed, from the working folder on. "D:" is the root, whatever the folder in use there,
// and "\a" is meant on the drive of the working folder.
std::string PathFrom(const std::string& folder, const std::string& file) {
  if (file.size() == 2 && file[1] == ':') return pathRules.AddSeparator(file);
  std::string path = file;
  if (!pathRules.IsWhole(file)) {
    const bool isOfDrive = file.starts_with(pathRules.Separator) && pathRules.IsWhole(folder) &&
                           !folder.starts_with(pathRules.NetworkMark);
    path = isOfDrive ? folder.substr(0, 2) + file : pathRules.Join(folder, file);
  }
  return Narrow(FullPath(Wide(path)));
}

// The command line of a terminal that stays open: what is between the outer quotes is run as it is.
std::wstring StayingOpen(const std::wstring& file, const std::wstring& parameters) {
  const bool hasBlank = file.find(L' ') != file.npos;
  const std::wstring program = hasBlank ? L'"' + file + L'"' : file;
  return L"/k \"" + program + (parameters.empty() ? L"" : L" " + parameters) + L'"';
}

// Of an address that is a file's; empty for others.
std::string PathOfAddress(const std::string& address) {
  wchar_t path[MAX_PATH];
  DWORD length = MAX_PATH;
  const HRESULT result = PathCreateFromUrlW(Wide(address).c_str(), path, &length, 0);
  return result == S_OK ? Narrow(path) : std::string();
}

std::wstring TerminalProgram() {
  const std::wstring program = EnvironmentText(L"ComSpec");
  return program.empty() ? FindProgram(L"cmd") : program;
}

}  // namespace

base::Status WindowsLauncher::CheckFolder(const std::string& folder) const {
  if (folder.empty() || tools_.Files.FolderExists(folder)) return {};
  return {ERROR_PATH_NOT_FOUND, "There is no folder " + base::ForDisplay(folder)};
}

base::Status WindowsLauncher::Call(std::wstring file, std::wstring parameters,
                                   const std::string& folder) const {
  ShellVerb call{.File = std::move(file), .Parameters = std::move(parameters)};
  if (!folder.empty()) {
    if (base::Status status = ReadShellPath(folder, call.Folder); !status) return status;
  }
  call.Owner = reinterpret_cast<HWND>(tools_.Owner());
  return ExecuteByShell(call);
}

base::Status WindowsLauncher::Start(const std::wstring& file, const LaunchRequest& request) const {
  const std::wstring parameters = Wide(request.Parameters);
  if (request.KeepsTerminal && StartsInTerminal(file)) {
    return Call(TerminalProgram(), StayingOpen(file, parameters), request.Folder);
  }
  return Call(file, parameters, request.Folder);
}

base::Status WindowsLauncher::OpenItem(const std::string& path,
                                       const LaunchRequest& request) const {
  ItemAttributes attributes;
  if (base::Status status = tools_.Files.ReadAttributes(path, "", attributes); !status) {
    return status;
  }
  if (attributes.Kind == ItemKind::Folder) {
    tools_.OpenFolder(pathRules.IsDriveRoot(path) ? path : pathRules.RemoveRightSlash(path));
    return {};
  }
  std::wstring file;
  const base::Status status = ReadShellPath(path, file);
  return status ? Start(file, request) : status;
}

base::Status WindowsLauncher::Execute(const LaunchRequest& request) {
  std::string file = request.File;
  if (file.empty()) return SystemError(ERROR_FILE_NOT_FOUND);
  if (file.find('\0') != file.npos) return SystemError(ERROR_INVALID_NAME);
  if (base::Status status = CheckFolder(request.Folder); !status) return status;
  if (IsAddress(file)) {
    const std::string local = PathOfAddress(file);
    if (local.empty()) return Call(Wide(file), Wide(request.Parameters), request.Folder);
    file = local;
  }
  std::ranges::replace(file, '/', pathRules.Separator);
  const bool isBareName = file.find_first_of("\\:") == file.npos;
  if (isBareName) {
    const std::wstring program = FindProgram(Wide(file));
    if (!program.empty()) return Start(program, request);
  }
  const std::string item = PathFrom(request.Folder, file);
  if (!isBareName || tools_.Files.Exists(item)) return OpenItem(item, request);
  const base::Status status = Call(Wide(file), Wide(request.Parameters), request.Folder);
  if (status || !request.KeepsTerminal || status.Code != ERROR_FILE_NOT_FOUND) return status;
  // A command of the terminal's own.
  return Call(TerminalProgram(), StayingOpen(Wide(file), Wide(request.Parameters)), request.Folder);
}

// The terminal of old goes to no folder of the network.
base::Status WindowsLauncher::OpenTerminal(const std::string& folder) {
  if (base::Status status = CheckFolder(folder); !status) return status;
  std::wstring program;
  if (folder.starts_with(pathRules.NetworkMark)) program = FindProgram(L"powershell");
  return Call(program.empty() ? TerminalProgram() : program, {}, folder);
}

base::Status WindowsLauncher::OpenFile(const std::string& path, const std::string& folder,
                                       bool isOnly) const {
  if (isOnly) {
    if (const std::string target = FolderOfShortcut(path);
        !target.empty() && tools_.Files.FolderExists(target)) {
      tools_.OpenFolder(target);
      return {};
    }
  }
  std::wstring file;
  if (base::Status status = ReadShellPath(path, file); !status) return status;
  const base::Status status = Call(file, {}, folder);
  if (status.Code == ERROR_CANCELLED) return {};
  if (isOnly && status.Code == ERROR_NO_ASSOCIATION) {
    return AskWhatOpens(file, reinterpret_cast<HWND>(tools_.Owner()));
  }
  return status;
}

std::vector<LaunchFailure> WindowsLauncher::OpenFiles(const std::vector<std::string>& paths,
                                                      const std::string& folder) {
  std::vector<LaunchFailure> failures;
  if (!AskAboutMany(paths.size(), tools_.Dialogs, tools_.Forms)) return failures;
  for (const std::string& path : paths) {
    ItemAttributes attributes;
    base::Status status = tools_.Files.ReadAttributes(path, "", attributes);
    if (status) status = OpenFile(path, folder, paths.size() == 1);
    if (!status) failures.push_back({path, status});
  }
  return failures;
}

}  // namespace tarnwell::platform
