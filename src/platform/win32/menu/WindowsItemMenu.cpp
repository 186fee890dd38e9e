#include "platform/win32/menu/WindowsItemMenu.h"

#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "base/ItemList.h"
#include "base/Text.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/menu/MenuEntries.h"
#include "platform/win32/shell/ShellPath.h"

namespace tarnwell::platform {
namespace {

constexpr std::string_view DeleteVerb = "DELETE";

// Of the shell's verbs, in capitals, those that take items away.
struct TakingVerb {
  std::string_view Verb;
  FileFunction Function;
};
constexpr TakingVerb takingVerbs[] = {{"CUT", FileFunction::Move},
                                      {DeleteVerb, FileFunction::Delete}};

}  // namespace

base::Status WindowsItemMenu::Fill(std::uintptr_t menu, int firstId, int lastId,
                                   std::vector<ContextEntry>& entries) {
  const auto handle = reinterpret_cast<HMENU>(menu);
  if (handle == nullptr) return ShellError(E_HANDLE);
  const HRESULT result = menu_->QueryContextMenu(handle, 0, static_cast<UINT>(firstId),
                                                 static_cast<UINT>(lastId), CMF_EXPLORE);
  if (FAILED(result)) return ShellError(result);
  if (isWithin_) RemoveTaking(handle, {firstId, lastId});
  entries = EntriesOf(handle, {firstId, lastId}, *menu_.Get());
  if (const HWND owner = Owner(); owner != nullptr) {
    messages_.emplace(owner, menu_);
    const base::Status& outcome = messages_->Outcome();
    char window[32];
    std::snprintf(window, sizeof window, "%llX",
                  static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(owner)));
    if (!outcome) {
      tools_.Dialogs.ShowCritical("Tarnwell", std::string("Error subclassing window &H") + window +
                                                  "\n\nErr# " + std::to_string(outcome.Code) +
                                                  ": " + outcome.Reason);
    }
  }
  return {};
}

// A slip of the mouse beside the items would take away the folder that is open.
void WindowsItemMenu::RemoveTaking(HMENU menu, const IdRange& range) const {
  for (const ContextEntry& entry : EntriesOf(menu, range, *menu_.Get())) {
    if (entry.IsSeparator || entry.Id == 0) continue;
    const std::string verb = base::AsciiUpper(VerbOf(*menu_.Get(), entry.Id - range.First));
    if (std::ranges::find(takingVerbs, verb, &TakingVerb::Verb) != std::end(takingVerbs)) {
      RemoveMenu(menu, static_cast<UINT>(entry.Id), MF_BYCOMMAND);
    }
  }
}

OperationId WindowsItemMenu::Invoke(int offset) {
  if (offset < 0) return NoOperation;
  const std::string verb = base::AsciiUpper(VerbOf(*menu_.Get(), offset));
  if (IsRefused(verb)) return NoOperation;
  // The shell does the same with the operation, which can be taken back in the program then. With
  // Shift it deletes for good.
  if (verb == DeleteVerb && GetKeyState(VK_SHIFT) >= 0) return Trash();
  if (verb == DeleteVerb && IsTooDeep()) return NoOperation;
  CMINVOKECOMMANDINFOEX call{};
  call.cbSize = sizeof call;
  call.fMask = CMIC_MASK_UNICODE | CMIC_MASK_PTINVOKE;
  call.hwnd = Owner();
  call.lpVerb = MAKEINTRESOURCEA(offset);
  call.lpVerbW = MAKEINTRESOURCEW(offset);
  const std::wstring folder = Wide(folder_);
  call.lpDirectory = folder_.c_str();  // narrow texts of the process are UTF-8
  call.lpDirectoryW = folder.c_str();
  call.nShow = SW_SHOWNORMAL;
  GetCursorPos(&call.ptInvoke);
  menu_->InvokeCommand(reinterpret_cast<CMINVOKECOMMANDINFO*>(&call));
  return NoOperation;
}

OperationId WindowsItemMenu::Trash() const {
  return tools_.Operation.Start({.Kind = CommandKind::Trash,
                                 .Requests = {{.Function = FileFunction::Delete,
                                               .Items = base::ItemList::TextOf(paths_),
                                               .Destination = base::ItemList::TextOf({""}),
                                               .Flags = AllowUndo}}});
}

bool WindowsItemMenu::IsTooDeep() const {
  for (const std::string& path : paths_) {
    const std::string unfit = UnfitBelow(path, {});
    if (unfit.empty()) continue;
    const std::string told = unfit.size() > 1 ? path + unfit : path;
    tools_.Dialogs.ShowCritical("Tarnwell",
                                base::ForDisplay(told) + "\n\n" + LengthFault().Reason + ".");
    return true;
  }
  return false;
}

bool WindowsItemMenu::IsRefused(const std::string& verb) const {
  const auto* const taking = std::ranges::find(takingVerbs, verb, &TakingVerb::Verb);
  if (taking == std::end(takingVerbs)) return false;
  const std::string refusal =
      tools_.Operation.Refusal(taking->Function, base::ItemList::TextOf(paths_));
  if (!refusal.empty()) tools_.Dialogs.ShowCritical("Tarnwell", refusal);
  return !refusal.empty();
}

}  // namespace tarnwell::platform
