#include "platform/win32/shell/WindowsShellWindows.h"

#include <shellapi.h>
#include <shlobj.h>

#include "platform/win32/api/Handle.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/shell/ItemIds.h"
#include "platform/win32/shell/ShellPath.h"

namespace tarnwell::platform {
namespace {

// As ShellExecute has them: more than 32 is a success.
constexpr int sheetOpened = 33;
constexpr int noSheet = SE_ERR_FNF;

constexpr wchar_t recycleBin[] = L"/root,::{645FF040-5081-101B-9F08-00AA002F954E}";

// Some shells have the sheet in the item's menu alone.
bool InvokeSheet(const std::string& path, HWND owner) {
  ItemIds ids, child;
  ComPtr<IShellFolder> folder;
  ComPtr<IContextMenu> items;
  if (!ReadItemIds(path, ids) || !OpenParent(*ids, folder, child)) return false;
  LPCITEMIDLIST only = child.get();
  if (FAILED(folder->GetUIObjectOf(owner, 1, &only, IID_IContextMenu, nullptr,
                                   reinterpret_cast<void**>(items.GetAddressOf())))) {
    return false;
  }
  const HMENU menu = CreatePopupMenu();
  HRESULT result = items->QueryContextMenu(menu, 0, 1, 0x7FFF, CMF_NORMAL);
  CMINVOKECOMMANDINFO command{};
  command.cbSize = sizeof command;
  command.hwnd = owner;
  command.lpVerb = "properties";
  command.nShow = SW_SHOWNORMAL;
  if (SUCCEEDED(result)) result = items->InvokeCommand(&command);
  DestroyMenu(menu);
  return SUCCEEDED(result);
}

int ShowSheet(const std::string& path, HWND owner) {
  std::wstring file;
  if (!ReadShellPath(path, file)) return noSheet;
  SHELLEXECUTEINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = SEE_MASK_INVOKEIDLIST | SEE_MASK_NOCLOSEPROCESS | SEE_MASK_FLAG_NO_UI;
  info.hwnd = owner;
  info.lpVerb = L"properties";
  info.lpFile = file.c_str();
  info.lpParameters = L"";
  info.lpDirectory = L"";
  const bool isOpen = ShellExecuteExW(&info) != FALSE;
  const Handle process(info.hProcess);
  if (isOpen || InvokeSheet(Narrow(file), owner)) return sheetOpened;
  const auto instance = static_cast<int>(reinterpret_cast<INT_PTR>(info.hInstApp));
  return instance < sheetOpened ? instance : noSheet;
}

int ShowSheetOfAll(const std::vector<std::string>& paths) {
  std::vector<ItemIds> items;
  std::vector<LPCITEMIDLIST> ids;
  for (const std::string& path : paths) {
    std::wstring file;
    if (!ReadShellPath(path, file) || !ReadItemIds(Narrow(file), items.emplace_back())) {
      return noSheet;
    }
    ids.push_back(items.back().get());
  }
  ComPtr<IShellItemArray> array;
  ComPtr<IDataObject> data;
  if (FAILED(SHCreateShellItemArrayFromIDLists(static_cast<UINT>(ids.size()), ids.data(),
                                               array.GetAddressOf())) ||
      FAILED(array->BindToHandler(nullptr, BHID_DataObject, IID_PPV_ARGS(data.GetAddressOf()))) ||
      FAILED(SHMultiFileProperties(data.Get(), 0))) {
    return noSheet;
  }
  return sheetOpened;
}

}  // namespace

HWND WindowsShellWindows::Owner() const {
  return reinterpret_cast<HWND>(owner_());
}

// The folder has always been the text "0", where a number was meant.
void WindowsShellWindows::OpenRecycleBin() {
  ShellExecuteW(nullptr, L"Open", L"explorer.exe", recycleBin, L"0", SW_SHOWNORMAL);
}

void WindowsShellWindows::EmptyRecycleBin(const std::string& rootPath) {
  const std::wstring root = Wide(rootPath);
  SHEmptyRecycleBinW(Owner(), root.empty() ? nullptr : root.c_str(), 0);
}

void WindowsShellWindows::MapNetworkDrive() {
  WNetConnectionDialog(Owner(), RESOURCETYPE_DISK);
}

void WindowsShellWindows::DisconnectNetworkDrive() {
  WNetDisconnectDialog(Owner(), RESOURCETYPE_DISK);
}

int WindowsShellWindows::ShowProperties(const std::vector<std::string>& paths) {
  return paths.size() == 1 ? ShowSheet(paths.front(), Owner()) : ShowSheetOfAll(paths);
}

}  // namespace tarnwell::platform
