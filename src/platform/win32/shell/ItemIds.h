// Items as the shell knows them.
#pragma once

#include <shlobj.h>

#include <memory>
#include <string>

#include "base/Status.h"
#include "platform/win32/api/Windows.h"
#include "platform/win32/shell/Com.h"

namespace tarnwell::platform {

struct FreeItemIds {
  void operator()(ITEMIDLIST* ids) const { CoTaskMemFree(ids); }
};
// A list of item ids: the way to an item from the desktop or from a folder.
using ItemIds = std::unique_ptr<ITEMIDLIST, FreeItemIds>;

// The outcome of a call of the shell with the number that it gave, an HRESULT below 0 for a
// failure.
base::Status ShellError(HRESULT result);

// All of these may wait for a drive or for another machine, and need a ComThread.

// The item at a full path, from the desktop on. Fails for what is not there, and for what the shell
// would take for something else, see AreNamesOfTheShell. A path of MAX_PATH characters and more may
// fail, too, which the reason says.
base::Status ReadItemIds(const std::string& path, ItemIds& ids);
// The same from its folder on.
base::Status ReadItemIds(IShellFolder& folder, const std::string& path, ItemIds& ids);

// The folder with those ids from the desktop on.
base::Status OpenShellFolder(const ITEMIDLIST& ids, ComPtr<IShellFolder>& folder);
// The folder that holds an item, and what the item is called there.
base::Status OpenParent(const ITEMIDLIST& ids, ComPtr<IShellFolder>& folder, ItemIds& child);

}  // namespace tarnwell::platform
