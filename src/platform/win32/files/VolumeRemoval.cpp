#include "platform/win32/files/VolumeRemoval.h"

// Else pointers are "far" in the next one.
#define IS_32
#include <dbt.h>

#include <array>
#include <unordered_map>
#include <utility>

namespace tarnwell::platform {
namespace {

using RemovalCalls = std::unordered_map<void*, const std::function<void(RemovalStage)>*>;

// By registration; of the thread that has the window.
RemovalCalls& CallsOfRemovals() {
  thread_local RemovalCalls calls;
  return calls;
}

constexpr std::array<std::pair<WPARAM, RemovalStage>, 3> removalEvents = {{
    {DBT_DEVICEQUERYREMOVE, RemovalStage::Asked},
    {DBT_DEVICEQUERYREMOVEFAILED, RemovalStage::GivenUp},
    {DBT_DEVICEREMOVECOMPLETE, RemovalStage::Done},
}};

LRESULT CALLBACK HearOfRemoval(HWND window, UINT message, WPARAM event, LPARAM data) {
  const auto* const notice = reinterpret_cast<const DEV_BROADCAST_HANDLE*>(data);
  if (message != WM_DEVICECHANGE || notice == nullptr ||
      notice->dbch_devicetype != DBT_DEVTYP_HANDLE) {
    return DefWindowProcW(window, message, event, data);
  }
  const auto found = CallsOfRemovals().find(notice->dbch_hdevnotify);
  for (const auto& [number, stage] : removalEvents) {
    if (number != event || found == CallsOfRemovals().end()) continue;
    const std::function<void(RemovalStage)> told = *found->second;  // may end with its owner
    told(stage);
    break;
  }
  return TRUE;
}

// Lives as long as the thread does.
HWND RemovalWindow() {
  thread_local const HWND window = [] {
    WNDCLASSW made{};
    made.lpfnWndProc = HearOfRemoval;
    made.hInstance = GetModuleHandleW(nullptr);
    made.lpszClassName = L"TarnwellRemoval";
    RegisterClassW(&made);
    return CreateWindowExW(0, made.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                           made.hInstance, nullptr);
  }();
  return window;
}

}  // namespace

VolumeRemoval::VolumeRemoval(HANDLE folder, std::function<void(RemovalStage)> told)
    : told_(std::move(told)) {
  DEV_BROADCAST_HANDLE wanted{};
  wanted.dbch_size = sizeof wanted;
  wanted.dbch_devicetype = DBT_DEVTYP_HANDLE;
  wanted.dbch_handle = folder;
  registration_ =
      RegisterDeviceNotificationW(RemovalWindow(), &wanted, DEVICE_NOTIFY_WINDOW_HANDLE);
  if (registration_ != nullptr) CallsOfRemovals()[registration_] = &told_;
}

VolumeRemoval::~VolumeRemoval() {
  if (registration_ == nullptr) return;
  CallsOfRemovals().erase(registration_);
  UnregisterDeviceNotification(registration_);
}

}  // namespace tarnwell::platform
