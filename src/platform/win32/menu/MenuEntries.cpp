#include "platform/win32/menu/MenuEntries.h"

#include "base/Text.h"
#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {
namespace {

std::string CaptionAt(HMENU menu, int place) {
  const auto position = static_cast<UINT>(place);
  const int length = GetMenuStringW(menu, position, nullptr, 0, MF_BYPOSITION);
  if (length <= 0) return "";
  std::wstring caption(static_cast<std::size_t>(length) + 1, L'\0');
  caption.resize(static_cast<std::size_t>(
      GetMenuStringW(menu, position, caption.data(), length + 1, MF_BYPOSITION)));
  return Narrow(caption);
}

}  // namespace

std::vector<ContextEntry> EntriesOf(HMENU menu, const IdRange& range, IContextMenu& shell) {
  std::vector<ContextEntry> entries;
  for (int place = 0; place < GetMenuItemCount(menu); ++place) {
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_ID | MIIM_FTYPE | MIIM_STATE | MIIM_SUBMENU;
    if (GetMenuItemInfoW(menu, static_cast<UINT>(place), TRUE, &info) == 0) continue;
    ContextEntry& entry = entries.emplace_back();
    const auto id = static_cast<int>(info.wID);
    const bool isChosen = info.hSubMenu == nullptr && id >= range.First && id <= range.Last;
    entry.Id = isChosen ? id : 0;
    entry.IsSeparator = (info.fType & MFT_SEPARATOR) != 0;
    entry.Enabled = (info.fState & MFS_DISABLED) == 0;
    entry.IsDefault = (info.fState & MFS_DEFAULT) != 0;
    entry.IsChecked = (info.fState & MFS_CHECKED) != 0;
    if (entry.IsSeparator) continue;
    entry.Caption = CaptionAt(menu, place);
    if (!entry.Caption.empty() || !isChosen) continue;
    entry.Caption = VerbOf(shell, id - range.First);
    if (!entry.Caption.empty()) entry.Caption.front() = base::AsciiUpper(entry.Caption).front();
  }
  return entries;
}

std::string VerbOf(IContextMenu& shell, int offset) {
  wchar_t verb[128] = L"";
  const HRESULT result =
      shell.GetCommandString(static_cast<UINT_PTR>(offset), GCS_VERBW, nullptr,
                             reinterpret_cast<char*>(verb), static_cast<UINT>(std::size(verb)));
  return SUCCEEDED(result) ? Narrow(verb) : "";
}

}  // namespace tarnwell::platform
