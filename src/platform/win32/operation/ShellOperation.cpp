#include "platform/win32/operation/ShellOperation.h"

#include "platform/win32/api/Windows.h"
// Behind the system's own, which it needs.
#include <shellapi.h>
#include <shobjidl.h>

#include <algorithm>
#include <iterator>
#include <system_error>
#include <unordered_set>

#include "base/PathSyntax.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/NamingError.h"
#include "platform/win32/operation/ItemSort.h"
#include "platform/win32/shell/Com.h"
#include "platform/win32/shell/ShellPath.h"

namespace tarnwell::platform {
namespace {

// Flags that the port has from the shell have its numbers.
constexpr FILEOP_FLAGS SharedFlags = Silent | RenameOnCollision | NoConfirmation | AllowUndo |
                                     FilesOnly | SimpleProgress | NoConfirmNewFolder |
                                     NoErrorWindows;
static_assert(SharedFlags ==
              (FOF_SILENT | FOF_RENAMEONCOLLISION | FOF_NOCONFIRMATION | FOF_ALLOWUNDO |
               FOF_FILESONLY | FOF_SIMPLEPROGRESS | FOF_NOCONFIRMMKDIR | FOF_NOERRORUI));
static_assert(static_cast<UINT>(FileFunction::Move) == FO_MOVE &&
              static_cast<UINT>(FileFunction::Copy) == FO_COPY &&
              static_cast<UINT>(FileFunction::Delete) == FO_DELETE &&
              static_cast<UINT>(FileFunction::Rename) == FO_RENAME);

struct ShellSentence {
  int Code;
  const char* Text;
};

constexpr int OperationCancelled = 0x75;

constexpr const char* PathTooLong =
    "The path, or one below it, is longer than the 259 characters that Windows copies, moves and "
    "deletes by. Shorten a name in it, then try again.";
constexpr const char* PathUnfit =
    "Windows cannot work with this path, or with that of the target. Look at the names in them.";
constexpr const char* DiscReadOnly = "The disc can only be read.";

// From the table of SHFileOperationW in the system's documentation. They are older than the numbers
// of winerror.h, and in the way of some of them.
constexpr ShellSentence ShellSentences[] = {
    {0x71, "It is to go where it is already."},
    {0x72, "Several items are to go by one name."},
    {0x73, "Another name cannot lead to another folder. Move the item instead."},
    {0x74, "The root folder of a drive cannot be moved or renamed."},
    {OperationCancelled, "It was cancelled."},
    {0x76, "A folder cannot go into itself."},
    {0x78, "You may not read this item. Ask its owner for the permission."},
    {0x79, PathTooLong},
    {0x7A, "Several targets are not possible here."},
    {0x7C, PathUnfit},
    {0x7D, "It is to go where it is already."},
    {0x7E, "There is a file of this name, and a folder cannot take its place."},
    {0x80, "There is a folder of this name, and a file cannot take its place."},
    {0x81, PathTooLong},
    {0x82, DiscReadOnly},
    {0x83, DiscReadOnly},
    {0x84, DiscReadOnly},
    {0x85, "The file is too large for the drive. Choose one of another file system."},
    {0x86, DiscReadOnly},
    {0x87, DiscReadOnly},
    {0x88, DiscReadOnly},
    {0xB7, "There is an item of this name already, or a path below is longer than 259 characters."},
    {0x402, PathUnfit},
    {0x10000, "Something went wrong at the target."},
    {0x10074, "The root folder of a drive cannot be renamed."},
};

// A path in the list that is empty would end it.
std::wstring ListFor(const std::vector<std::string>& paths) {
  std::wstring list;
  for (const std::string& path : paths) (list += Wide(path)) += L'\0';
  return list += L'\0';
}

std::string TargetOf(const ShellWork& work, std::size_t at) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  if ((work.Flags & OwnTargets) != 0) return work.To.at(at);
  const std::string& to = work.To.front();
  const bool isFolder = to.ends_with(syntax.Separator);
  return isFolder ? syntax.Join(to, syntax.LastComponent(work.From.at(at))) : to;
}

// What of a move replaces nothing.
ShellWork HarmlessPart(const ShellWork& work) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  ShellWork part{.Function = work.Function, .From = {}, .To = {}, .Flags = work.Flags};
  std::unordered_set<std::string> taken;
  for (std::size_t at = 0; at < work.From.size(); ++at) {
    const std::string target = TargetOf(work, at);
    const bool isFree = syntax.Same(work.From.at(at), target) || SortOf(target) == ItemSort::None;
    if (!taken.insert(syntax.Key(target)).second || !isFree) continue;
    part.From.push_back(work.From.at(at));
    if ((work.Flags & OwnTargets) != 0) part.To.push_back(target);
  }
  if ((work.Flags & OwnTargets) == 0) part.To = work.To;
  return part;
}

ShellOutcome CallShellFor(const ShellWork& work) {
  const std::wstring from = ListFor(work.From), to = ListFor(work.To);
  SHFILEOPSTRUCTW call{};
  call.wFunc = static_cast<UINT>(work.Function);
  call.pFrom = from.c_str();
  call.pTo = to.c_str();
  call.fFlags = work.Flags & SharedFlags;
  if ((work.Flags & OwnTargets) != 0) call.fFlags |= FOF_MULTIDESTFILES;
  // What has no bin would be deleted for good without a word.
  const bool isTrashed = work.Function == FileFunction::Delete && (work.Flags & AllowUndo) != 0;
  if (isTrashed) call.fFlags |= FOF_WANTNUKEWARNING;
  const int code = SHFileOperationW(&call);
  return {code, call.fAnyOperationsAborted != FALSE};
}

}  // namespace

bool ShellOutcome::IsCancelled() const {
  return Code == ERROR_CANCELLED || Code == OperationCancelled;
}

// The shells that ask are those that have the newer way of doing the same, by which the older goes.
bool AsksToReplace() {
  ComPtr<IFileOperation> operation;
  return SUCCEEDED(CoCreateInstance(CLSID_FileOperation, nullptr, CLSCTX_INPROC_SERVER,
                                    IID_PPV_ARGS(operation.GetAddressOf()))) &&
         SUCCEEDED(operation->SetOperationFlags(0));
}

ShellOutcome RunShellOperation(const ShellWork& work) {
  const bool mayAsk = work.Function == FileFunction::Move && (work.Flags & NoConfirmation) == 0;
  if (!mayAsk || AsksToReplace()) return CallShellFor(work);
  const ShellWork part = HarmlessPart(work);
  ShellOutcome outcome;
  if (!part.From.empty()) outcome = CallShellFor(part);
  const bool isLeft = part.From.size() < work.From.size();
  if (isLeft && outcome.Code == 0) outcome.Code = ERROR_ALREADY_EXISTS;
  return outcome;
}

base::Status ShellFailure(int code) {
  const auto* const found = std::ranges::find(ShellSentences, code, &ShellSentence::Code);
  if (found != std::end(ShellSentences)) return {code, found->Text};
  return NamingError(static_cast<DWORD>(code));
}

base::Status FitForShell(const std::string& path) {
  if (!AreNamesOfTheShell(path)) {
    return {ERROR_INVALID_NAME,
            "Windows has other uses for this name, or takes no dot or blank at its end. Rename the "
            "item first."};
  }
  return Wide(path).size() < MAX_PATH ? base::Status() : TooLongForShell();
}

base::Status TooLongForShell() {
  return {ERROR_FILENAME_EXCED_RANGE, PathTooLong};
}

}  // namespace tarnwell::platform
