#include "platform/win32/menu/MenuMessages.h"

#include "platform/win32/api/SystemError.h"

namespace tarnwell::platform {
namespace {

constexpr const wchar_t* PreviousProcedure = L"OldWndProc";
constexpr const wchar_t* SubclassObject = L"ObjectPtr";

WNDPROC PreviousOf(HWND window) {
  return reinterpret_cast<WNDPROC>(GetPropW(window, PreviousProcedure));
}

}  // namespace

base::Status SubclassWindow(HWND window, WNDPROC procedure, void* object) {
  if (PreviousOf(window) != nullptr) return {};
  const LONG_PTR previous =
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
  if (previous == 0) return LastError();
  if (SetPropW(window, PreviousProcedure, reinterpret_cast<HANDLE>(previous)) != 0 &&
      (object == nullptr || SetPropW(window, SubclassObject, object) != 0)) {
    return {};
  }
  const base::Status fault = LastError();
  SetWindowLongPtrW(window, GWLP_WNDPROC, previous);
  RemovePropW(window, PreviousProcedure);
  return fault;
}

void UnsubclassWindow(HWND window) {
  const WNDPROC previous = PreviousOf(window);
  if (previous == nullptr) return;
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
  RemovePropW(window, PreviousProcedure);
  RemovePropW(window, SubclassObject);
}

MenuMessages::MenuMessages(HWND window, const ComPtr<IContextMenu>& menu) : window_(window) {
  menu.As(&menu2_);
  menu.As(&menu3_);
  outcome_ = SubclassWindow(window_, ShellMenuWindowProc, this);
}

MenuMessages::~MenuMessages() {
  if (GetPropW(window_, SubclassObject) == this) UnsubclassWindow(window_);
  if (isCloseAsked_) PostMessageW(window_, WM_CLOSE, 0, 0);
}

LRESULT CALLBACK MenuMessages::ShellMenuWindowProc(HWND window, UINT message, WPARAM first,
                                                   LPARAM second) {
  const WNDPROC previous = PreviousOf(window);
  if (previous == nullptr) return DefWindowProcW(window, message, first, second);
  auto* const messages = static_cast<MenuMessages*>(GetPropW(window, SubclassObject));
  if (message == WM_CLOSE && messages != nullptr) {
    messages->isCloseAsked_ = true;
    EndMenu();
    return 0;
  }
  LRESULT answer = 0;
  const bool isAnswered = messages != nullptr && messages->Handle(message, first, second, answer);
  const LRESULT result = CallWindowProcW(previous, window, message, first, second);
  if (message == WM_DESTROY) UnsubclassWindow(window);
  return isAnswered ? answer : result;
}

bool MenuMessages::Handle(UINT message, WPARAM first, LPARAM second, LRESULT& result) const {
  switch (message) {
    case WM_MENUCHAR:
      // The older kind cannot tell which entry is meant.
      return menu3_ != nullptr && menu3_->HandleMenuMsg2(message, first, second, &result) == S_OK &&
             result != 0;
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
    case WM_INITMENUPOPUP:
      if (menu3_ != nullptr) {
        menu3_->HandleMenuMsg2(message, first, second, &result);
      } else if (menu2_ != nullptr) {
        menu2_->HandleMenuMsg(message, first, second);
      }
      result = message == WM_INITMENUPOPUP ? 0 : TRUE;
      return menu2_ != nullptr || menu3_ != nullptr;
    default:
      return false;
  }
}

}  // namespace tarnwell::platform
