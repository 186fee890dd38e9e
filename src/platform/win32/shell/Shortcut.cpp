#include "platform/win32/shell/Shortcut.h"

#include <shlobj.h>

#include "base/Text.h"
#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {

std::string FolderOfShortcut(const std::string& path) {
  if (!base::AsciiUpper(path).ends_with(".LNK")) return {};
  ComPtr<IShellLinkW> link;
  ComPtr<IPersistFile> file;
  if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER,
                              IID_PPV_ARGS(link.GetAddressOf()))) ||
      FAILED(link.As(&file)) || FAILED(file->Load(Wide(path).c_str(), STGM_READ))) {
    return {};
  }
  wchar_t target[MAX_PATH];
  WIN32_FIND_DATAW found{};
  if (link->GetPath(target, MAX_PATH, &found, 0) != S_OK) return {};
  return (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? Narrow(target) : std::string();
}

}  // namespace tarnwell::platform
