#include "platform/win32/system/WindowsKeyboard.h"

#include <algorithm>
#include <array>

#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {
namespace {

// Virtual key codes (winuser.h) below the first are buttons of the mouse.
constexpr int FirstKey = VK_BACK, LastKey = VK_OEM_CLEAR;

constexpr std::array<int, 14> HeldAside = {
    VK_SHIFT, VK_CONTROL, VK_MENU, VK_LSHIFT, VK_RSHIFT,  VK_LCONTROL, VK_RCONTROL,
    VK_LMENU, VK_RMENU,   VK_LWIN, VK_RWIN,   VK_CAPITAL, VK_NUMLOCK,  VK_SCROLL};

bool IsDown(int key) {
  return GetAsyncKeyState(key) < 0;
}

}  // namespace

HeldKeys WindowsKeyboard::Held() const {
  HeldKeys held{.Space = IsDown(VK_SPACE)};
  for (int key = FirstKey; key <= LastKey && !held.Any; ++key) {
    held.Any = IsDown(key) && std::ranges::count(HeldAside, key) == 0;
  }
  return held;
}

}  // namespace tarnwell::platform
