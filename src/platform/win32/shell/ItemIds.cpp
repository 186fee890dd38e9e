#include "platform/win32/shell/ItemIds.h"

#include "base/PathSyntax.h"
#include "platform/win32/api/SystemError.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/shell/ShellPath.h"

namespace tarnwell::platform {
base::Status ShellError(HRESULT result) {
  if (SUCCEEDED(result)) return {};
  return {static_cast<int>(result), ComError(result).Reason};
}

base::Status ReadItemIds(const std::string& path, ItemIds& ids) {
  if (!AreNamesOfTheShell(path)) return ShellError(HRESULT_FROM_WIN32(ERROR_INVALID_NAME));
  ITEMIDLIST* found = nullptr;
  const HRESULT result = SHParseDisplayName(Wide(path).c_str(), nullptr, &found, 0, nullptr);
  ids.reset(found);
  return ShellError(result);
}

base::Status ReadItemIds(IShellFolder& folder, const std::string& name, ItemIds& ids) {
  if (!base::PathSyntax::Windows().IsName(name)) {
    return ShellError(HRESULT_FROM_WIN32(ERROR_INVALID_NAME));
  }
  ITEMIDLIST* found = nullptr;
  std::wstring wide = Wide(name);
  const HRESULT result =
      folder.ParseDisplayName(nullptr, nullptr, wide.data(), nullptr, &found, nullptr);
  ids.reset(found);
  return ShellError(result);
}

base::Status OpenShellFolder(const ITEMIDLIST& ids, ComPtr<IShellFolder>& folder) {
  return ShellError(
      SHBindToObject(nullptr, &ids, nullptr, IID_PPV_ARGS(folder.ReleaseAndGetAddressOf())));
}

base::Status OpenParent(const ITEMIDLIST& ids, ComPtr<IShellFolder>& folder, ItemIds& child) {
  const ITEMIDLIST* last = nullptr;
  const HRESULT result = SHBindToParent(&ids, IID_PPV_ARGS(folder.ReleaseAndGetAddressOf()), &last);
  child.reset(SUCCEEDED(result) ? ILCloneChild(last) : nullptr);
  return ShellError(result);
}

}  // namespace tarnwell::platform
