// The context menu with what it works with, by the names of the tests that every adapter passes.
#pragma once

#include "NotedDialogs.h"
#include "fakes/FakePlatform.h"
#include "platform/win32/menu/WindowsContextMenu.h"
#include "platform/win32/menu/WindowsPopupMenus.h"

namespace tarnwell::platform {

// A window that is never shown, and counts what comes to it.
struct TestWindow {
  TestWindow() {
    WNDCLASSW made{};
    made.lpfnWndProc = [](HWND window, UINT message, WPARAM first, LPARAM second) -> LRESULT {
      ++Messages[message];
      return message == WM_CLOSE ? 0 : DefWindowProcW(window, message, first, second);
    };
    made.hInstance = GetModuleHandleW(nullptr);
    made.lpszClassName = L"TarnwellTest";
    RegisterClassW(&made);
    Handle = CreateWindowExW(0, made.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                             made.hInstance, nullptr);
    Messages.clear();
  }
  ~TestWindow() { DestroyWindow(Handle); }
  TestWindow(const TestWindow&) = delete;
  TestWindow& operator=(const TestWindow&) = delete;

  HWND Handle = nullptr;
  inline static std::map<UINT, int> Messages;
};

struct TestedMenus {
  // One that entries are filled into; null where they are not.
  std::unique_ptr<PopupMenu> Create() { return Popups.Create(); }

  TestWindow Window;
  fakes::FakeFileOperation Operation;
  NotedDialogs Dialogs;
  MenuLook Look{[](int x, int y) { return std::pair(x, y); },
                [](const std::string& name, int size) {
                  const auto pixels = static_cast<std::size_t>(name == "red" ? size : 0);
                  return MenuPicture{static_cast<int>(pixels), pixels == 0 ? 0 : 1,
                                     std::vector<std::uint32_t>(pixels, 0xFFFF0000)};
                },
                [](const std::string& caption) { return caption == "&New" ? "F7" : ""; }};
  OwnerWindow Owner{[this] { return reinterpret_cast<std::uintptr_t>(Window.Handle); }};
  WindowsPopupMenus Popups{Owner, Look};
  WindowsContextMenu Menus{{Owner, Operation, Dialogs}};
};

}  // namespace tarnwell::platform
