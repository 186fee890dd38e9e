// The main window's messages while a menu of the shell is there.
#pragma once

#include <shlobj.h>

#include "base/Status.h"
#include "platform/win32/api/Windows.h"
#include "platform/win32/shell/Com.h"

namespace tarnwell::platform {

// Has the window's messages go to `procedure`, which passes on what it leaves to the one before,
// the window's property "OldWndProc". The property "ObjectPtr" is the object, if there is one.
// Nothing changes where the window has the former property already, which counts as a success.
base::Status SubclassWindow(HWND window, WNDPROC procedure, void* object);
void UnsubclassWindow(HWND window);

// While this lives, the shell draws its entries and fills its submenus by the messages of the
// window. Closing the window waits until the end.
class MenuMessages {
 public:
  MenuMessages(HWND window, const ComPtr<IContextMenu>& menu);
  ~MenuMessages();
  MenuMessages(const MenuMessages&) = delete;
  MenuMessages& operator=(const MenuMessages&) = delete;

  // Whether the messages come.
  const base::Status& Outcome() const { return outcome_; }

 private:
  static LRESULT CALLBACK ShellMenuWindowProc(HWND window, UINT message, WPARAM first,
                                              LPARAM second);
  // Whether the shell has answered with `result`.
  bool Handle(UINT message, WPARAM first, LPARAM second, LRESULT& result) const;

  const HWND window_;
  ComPtr<IContextMenu2> menu2_;  // null where the shell's menu is of an older kind
  ComPtr<IContextMenu3> menu3_;
  base::Status outcome_;
  bool isCloseAsked_ = false;
};

}  // namespace tarnwell::platform
