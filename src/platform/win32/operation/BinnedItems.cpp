#include "platform/win32/operation/BinnedItems.h"

#include "platform/win32/api/Windows.h"
// Behind the system's own, which they need.
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <unordered_set>

#include "base/PathSyntax.h"
#include "base/Text.h"
#include "platform/ItemKey.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/Fingerprint.h"
#include "platform/win32/files/NamingError.h"
#include "platform/win32/operation/ItemSort.h"
#include "platform/win32/shell/ItemIds.h"

namespace tarnwell::platform {
namespace {

constexpr std::string_view BinName = "::{645FF040-5081-101B-9F08-00AA002F954E}";
// System.Recycle.DeletedFrom, and the column that shows it.
constexpr SHCOLUMNID DeletedFrom = {
    {0x9B174B33, 0x40FF, 0x11D2, {0xA2, 0x7E, 0x00, 0xC0, 0x4F, 0xC3, 0x08, 0x71}}, 2};
constexpr UINT DeletedFromColumn = 1;
constexpr std::string_view RestoreVerb = "undelete", RestoreCaption = "RESTORE";
constexpr UINT FirstCommand = 1, LastCommand = 0x7FFF;

const base::PathSyntax& BinSyntax() {
  return base::PathSyntax::Windows();
}

struct ItemInBin {
  std::string Folder;  // that it was in
  std::string Name;    // as it is shown, which may be without the extension
  std::string Place;   // as DoneItem::To
};

struct FreeMenu {
  void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using Menu = std::unique_ptr<std::remove_pointer_t<HMENU>, FreeMenu>;

std::string TextOf(STRRET& given, const ITEMIDLIST* item) {
  wchar_t* text = nullptr;
  if (FAILED(StrRetToStrW(&given, item, &text))) return {};
  std::string narrow = Narrow(text);
  CoTaskMemFree(text);
  return narrow;
}

std::string NameIn(IShellFolder2& bin, const ITEMIDLIST* item, SHGDNF form) {
  STRRET given;
  return SUCCEEDED(bin.GetDisplayNameOf(item, form, &given)) ? TextOf(given, item) : "";
}

std::string FolderOfDeleted(IShellFolder2& bin, const ITEMIDLIST* item) {
  VARIANT value;
  VariantInit(&value);
  std::string folder;
  if (SUCCEEDED(bin.GetDetailsEx(item, &DeletedFrom, &value)) && value.vt == VT_BSTR) {
    folder = Narrow(value.bstrVal);
  }
  VariantClear(&value);
  SHELLDETAILS details;
  if (folder.empty() && SUCCEEDED(bin.GetDetailsOf(item, DeletedFromColumn, &details))) {
    folder = TextOf(details.str, item);
  }
  return folder;
}

base::Status OpenBin(ComPtr<IShellFolder2>& bin) {
  ITEMIDLIST* ids = nullptr;
  HRESULT result = SHGetKnownFolderIDList(FOLDERID_RecycleBinFolder, 0, nullptr, &ids);
  const ItemIds owned(ids);
  ComPtr<IShellFolder> desktop;
  if (SUCCEEDED(result)) result = SHGetDesktopFolder(&desktop);
  if (SUCCEEDED(result)) {
    result = desktop->BindToObject(ids, nullptr, IID_PPV_ARGS(bin.ReleaseAndGetAddressOf()));
  }
  return ShellError(result);
}

using TakeFromBin =
    std::function<bool(IShellFolder2& bin, const ITEMIDLIST* item, const ItemInBin& found)>;

// Until `take` gives false.
base::Status ForEachInBin(const TakeFromBin& take) {
  ComPtr<IShellFolder2> bin;
  if (base::Status status = OpenBin(bin); !status) return status;
  ComPtr<IEnumIDList> items;
  const HRESULT result = bin->EnumObjects(
      nullptr, SHCONTF_FOLDERS | SHCONTF_NONFOLDERS | SHCONTF_INCLUDEHIDDEN, &items);
  if (result != S_OK) return ShellError(result);  // an empty bin has none
  ITEMIDLIST* next = nullptr;
  while (items->Next(1, &next, nullptr) == S_OK) {
    const ItemIds item(next);
    ItemInBin found{.Folder = FolderOfDeleted(*bin.Get(), item.get()),
                    .Name = NameIn(*bin.Get(), item.get(), SHGDN_INFOLDER),
                    .Place = NameIn(*bin.Get(), item.get(), SHGDN_FORPARSING)};
    if (!BinSyntax().IsWhole(found.Place)) {
      found.Place = BinSyntax().Join(BinSyntax().Join(BinName, found.Folder), found.Name);
    }
    if (!take(*bin.Get(), item.get(), found)) break;
  }
  return {};
}

bool IsNameOf(std::string_view shown, std::string_view path) {
  return base::ToCapitals(BinSyntax().LastComponent(path)).starts_with(base::ToCapitals(shown));
}

// By the verb, or by the caption where the entries have no verbs.
std::optional<UINT> FindRestore(IContextMenu& menu, HMENU entries) {
  std::optional<UINT> byCaption;
  for (int at = 0; at < GetMenuItemCount(entries); ++at) {
    const UINT id = GetMenuItemID(entries, at);
    if (id < FirstCommand || id > LastCommand) continue;
    char verb[100] = {};
    const HRESULT result =
        menu.GetCommandString(id - FirstCommand, GCS_VERBA, nullptr, verb, sizeof verb - 1);
    if (SUCCEEDED(result) && verb == RestoreVerb) return id - FirstCommand;
    wchar_t caption[100] = {};
    GetMenuStringW(entries, static_cast<UINT>(at), caption, 99, MF_BYPOSITION);
    std::string text = base::ToCapitals(Narrow(caption));
    std::erase(text, '&');
    if (text == RestoreCaption) byCaption = id - FirstCommand;
  }
  return byCaption;
}

base::Status Undelete(IShellFolder2& bin, const ITEMIDLIST* item) {
  ComPtr<IContextMenu> menu;
  HRESULT result = bin.GetUIObjectOf(nullptr, 1, &item, IID_IContextMenu, nullptr,
                                     reinterpret_cast<void**>(menu.GetAddressOf()));
  if (FAILED(result)) return ShellError(result);
  const Menu entries(CreatePopupMenu());
  result = menu->QueryContextMenu(entries.get(), 0, FirstCommand, LastCommand, CMF_NORMAL);
  if (FAILED(result)) return ShellError(result);
  const std::optional<UINT> restore = FindRestore(*menu.Get(), entries.get());
  if (!restore) return {ERROR_NOT_SUPPORTED, "The bin offers no way back for it"};
  CMINVOKECOMMANDINFO call{};
  call.cbSize = sizeof call;
  call.fMask = CMIC_MASK_NOASYNC;
  call.lpVerb = MAKEINTRESOURCEA(*restore);
  call.nShow = SW_SHOWNORMAL;
  return ShellError(menu->InvokeCommand(&call));
}

bool IsSetFor(HKEY user, const std::wstring& key, const wchar_t* name) {
  constexpr const wchar_t* system = L"Software\\Microsoft\\Windows\\CurrentVersion\\";
  DWORD value = 0, size = sizeof value;
  return RegGetValueW(user, (system + key).c_str(), name, RRF_RT_REG_DWORD, nullptr, &value,
                      &size) == ERROR_SUCCESS &&
         value != 0;
}

// By the properties of the bin, or by the policy "Do not move deleted files to the Recycle Bin".
bool IsBinOff(const wchar_t* volume) {
  constexpr const wchar_t* policies = L"Policies\\Explorer";
  constexpr const wchar_t* ofPolicies = L"NoRecycleFiles";
  if (IsSetFor(HKEY_CURRENT_USER, policies, ofPolicies) ||
      IsSetFor(HKEY_LOCAL_MACHINE, policies, ofPolicies)) {
    return true;
  }
  wchar_t name[MAX_PATH];  // with an id in braces
  if (GetVolumeNameForVolumeMountPointW(volume, name, MAX_PATH) == 0) return false;
  std::wstring_view id = name;
  id = id.substr(0, id.rfind(L'}') + 1);
  id.remove_prefix(std::min(id.size(), id.find(L'{')));
  return IsSetFor(HKEY_CURRENT_USER, L"Explorer\\BitBucket\\Volume\\" + std::wstring(id),
                  L"NukeOnDelete");
}

}  // namespace

bool HasBin(const std::string& path) {
  wchar_t volume[MAX_PATH + 1];
  if (GetVolumePathNameW(Wide(path).c_str(), volume, MAX_PATH) == 0) return false;
  return GetDriveTypeW(volume) == DRIVE_FIXED && !IsBinOff(volume);
}

std::vector<DoneItem> FindInBin(const std::vector<BinnedItem>& items) {
  std::vector<DoneItem> done;
  if (items.empty()) return done;
  std::unordered_set<std::string> folders;
  std::unordered_map<ItemKey, const BinnedItem*> byPrint;
  std::unordered_map<std::string, const BinnedItem*> byPath;
  for (const BinnedItem& item : items) {
    folders.insert(BinSyntax().Key(BinSyntax().ParentOf(item.Path)));
    byPath.emplace(BinSyntax().Key(item.Path), &item);
    if (item.Print.Number != 0) byPrint.emplace(KeyOf(item.Print, {}), &item);
  }
  const auto take = [](auto& known, const auto& key, const ItemFingerprint* print) {
    const auto found = known.find(key);
    if (found == known.end() || (print != nullptr && *print != found->second->Print)) return "";
    const char* const path = found->second->Path.c_str();
    known.erase(found);
    return path;
  };
  static_cast<void>(ForEachInBin([&](IShellFolder2&, const ITEMIDLIST*, const ItemInBin& found) {
    if (!folders.contains(BinSyntax().Key(found.Folder))) return true;
    const bool hasPath = BinSyntax().IsWhole(found.Place);
    const ItemFingerprint print = hasPath ? FingerprintOf(found.Place, false) : ItemFingerprint();
    const std::string path = BinSyntax().Key(BinSyntax().Join(found.Folder, found.Name));
    const std::string was = print.Number != 0 ? take(byPrint, KeyOf(print, {}), &print)
                                              : take(byPath, path, hasPath ? &print : nullptr);
    if (!was.empty()) done.push_back({was, found.Place, print});
    return done.size() < items.size();
  }));
  return done;
}

base::Status RestoreFromBin(const std::string& place, const std::string& target) {
  const bool hasPath = BinSyntax().IsWhole(place);
  // What comes of a question that the shell asks shows by the place alone.
  if (!hasPath && SortOf(target) != ItemSort::None) return NamingError(ERROR_ALREADY_EXISTS);
  base::Status status{ERROR_FILE_NOT_FOUND, "It is not in the bin any more"};
  const base::Status opened =
      ForEachInBin([&](IShellFolder2& bin, const ITEMIDLIST* item, const ItemInBin& found) {
        if (!BinSyntax().Same(found.Place, place)) return true;
        if (!BinSyntax().Same(BinSyntax().ParentOf(target), found.Folder) ||
            !IsNameOf(found.Name, target)) {
          status = {ERROR_INVALID_PARAMETER, "The bin puts it back to where it was alone"};
        } else {
          status = Undelete(bin, item);
        }
        return false;
      });
  if (!opened) return opened;
  const bool isThere = hasPath && SortOf(place) != ItemSort::None;
  if (status && (isThere || SortOf(target) == ItemSort::None)) {
    return {ERROR_CANCELLED, "It is still in the bin"};
  }
  return status;
}

}  // namespace tarnwell::platform
