#include "platform/win32/shell/ItemIds.h"

#include <string_view>

#include "base/PathSyntax.h"
#include "platform/win32/api/SystemError.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/shell/ShellPath.h"

namespace tarnwell::platform {
namespace {

base::Status ByShellsNumber(base::Status status) {
  status.Code = static_cast<int>(HRESULT_FROM_WIN32(static_cast<DWORD>(status.Code)));
  return status;
}

base::Status OutcomeFor(const std::string& path, HRESULT result) {
  const bool isTooLong = FAILED(result) && Wide(path).size() >= MAX_PATH;
  return isTooLong ? ByShellsNumber(LengthFault()) : ShellError(result);
}

}  // namespace

base::Status ShellError(HRESULT result) {
  if (SUCCEEDED(result)) return {};
  return {static_cast<int>(result), ComError(result).Reason};
}

base::Status ReadItemIds(const std::string& path, ItemIds& ids) {
  ids.reset();
  if (!AreNamesOfTheShell(path)) return ByShellsNumber(NamesFault());
  ITEMIDLIST* found = nullptr;
  const HRESULT result = SHParseDisplayName(Wide(path).c_str(), nullptr, &found, 0, nullptr);
  ids.reset(found);
  return OutcomeFor(path, result);
}

base::Status ReadItemIds(IShellFolder& folder, const std::string& path, ItemIds& ids) {
  ids.reset();
  const std::string_view name = base::PathSyntax::Windows().LastComponent(path);
  if (!base::PathSyntax::Windows().IsName(name)) return ByShellsNumber(NamesFault());
  ITEMIDLIST* found = nullptr;
  std::wstring wide = Wide(name);
  const HRESULT result =
      folder.ParseDisplayName(nullptr, nullptr, wide.data(), nullptr, &found, nullptr);
  ids.reset(found);
  return OutcomeFor(path, result);
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
