#include "platform/win32/system/WindowsDesktopNotices.h"

#include "platform/win32/shell/Com.h"
// Behind the system's own, which they need.
#include <shellapi.h>
#include <shobjidl.h>

#include <iterator>
#include <utility>

#include "base/Text.h"
#include "platform/win32/api/PostToLoop.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/system/HiddenWindow.h"

namespace tarnwell::platform {
namespace {

constexpr UINT BalloonEvent = WM_APP + 1;
constexpr UINT BalloonNumber = 1;
constexpr int ProgramIcon = 1;  // a resource

HWND HandleOf(const OwnerWindow& owner) {
  return reinterpret_cast<HWND>(owner ? owner() : 0);
}

// What a field of the system takes of a text, which cuts no character in two.
template <std::size_t Size>
void FillField(wchar_t (&field)[Size], const std::string& text) {
  std::wstring wide = Wide(text);
  if (wide.size() >= Size) {
    wide.resize(Size - 1);
    if (IS_HIGH_SURROGATE(wide.back())) wide.pop_back();
  }
  wide.copy(field, wide.size());
  field[wide.size()] = L'\0';
}

}  // namespace

// Of the main window on the task bar.
class WindowsDesktopNotices::Button {
 public:
  void Show(HWND window, const TaskEntry& entry) {
    if (window == nullptr) return;
    if (ITaskbarList3* const bar = TaskBar(); bar != nullptr) {
      bar->SetProgressState(window, StateOf(entry));
      if (entry.Percent.value_or(0) > 0) {
        bar->SetProgressValue(window, static_cast<ULONGLONG>(*entry.Percent), 100);
      }
    }
    if (entry.IsUrgent == isFlashing_) return;
    isFlashing_ = entry.IsUrgent;
    FLASHWINFO flash{sizeof flash, window, FLASHW_STOP, 0, 0};
    if (isFlashing_) flash.dwFlags = FLASHW_TRAY | FLASHW_TIMERNOFG;
    FlashWindowEx(&flash);
  }

 private:
  static TBPFLAG StateOf(const TaskEntry& entry) {
    if (!entry.Percent) return TBPF_NOPROGRESS;
    if (entry.IsUrgent) return TBPF_PAUSED;
    return *entry.Percent > 0 ? TBPF_NORMAL : TBPF_INDETERMINATE;
  }

  // Null where there is no task bar; looked for once.
  ITaskbarList3* TaskBar() {
    if (!isLookedFor_) {
      isLookedFor_ = true;
      if (FAILED(CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER,
                                  IID_PPV_ARGS(bar_.GetAddressOf()))) ||
          FAILED(bar_->HrInit())) {
        bar_.Reset();
      }
    }
    return bar_.Get();
  }

  ComPtr<ITaskbarList3> bar_;
  bool isLookedFor_ = false;
  bool isFlashing_ = false;
};

class WindowsDesktopNotices::Balloon {
 public:
  using Clicked = std::function<void()>;
  explicit Balloon(Clicked clicked) : clicked_(std::make_shared<Clicked>(std::move(clicked))) {}
  Balloon(const Balloon&) = delete;
  Balloon& operator=(const Balloon&) = delete;
  ~Balloon() { Remove(); }

  void Show(const Notification& notification) {
    NOTIFYICONDATAW data = Data();
    data.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP | NIF_INFO;
    data.uCallbackMessage = BalloonEvent;
    data.hIcon = LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(ProgramIcon));
    if (data.hIcon == nullptr) data.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    const std::string title = base::ForDisplay(notification.Title);
    FillField(data.szTip, title);
    FillField(data.szInfoTitle, title);
    FillField(data.szInfo, notification.Text);
    data.dwInfoFlags =
        (notification.IsTrouble ? NIIF_WARNING : NIIF_INFO) | NIIF_RESPECT_QUIET_TIME;
    isShown_ = Shell_NotifyIconW(NIM_ADD, &data) != FALSE;
    data.uVersion = NOTIFYICON_VERSION_4;
    if (isShown_) Shell_NotifyIconW(NIM_SETVERSION, &data);
  }

 private:
  NOTIFYICONDATAW Data() const {
    NOTIFYICONDATAW data{};
    data.cbSize = sizeof data;
    data.hWnd = window_.Get();
    data.uID = BalloonNumber;
    return data;
  }

  void Remove() {
    NOTIFYICONDATAW data = Data();
    if (std::exchange(isShown_, false)) Shell_NotifyIconW(NIM_DELETE, &data);
  }

  void TakeEvent(int event) {
    const bool isClick =
        event == NIN_BALLOONUSERCLICK || event == NIN_SELECT || event == NIN_KEYSELECT;
    if (!isClick && event != NIN_BALLOONTIMEOUT && event != NIN_BALLOONHIDE) return;
    Remove();
    if (!isClick || !*clicked_) return;
    // What is called may put another notification in this one's place.
    PostToLoop([told = std::weak_ptr<Clicked>(clicked_)] {
      if (const auto call = told.lock()) (*call)();
    });
  }

  const std::shared_ptr<Clicked> clicked_;
  bool isShown_ = false;
  HiddenWindow window_{L"TarnwellNotice",
                       [this](UINT message, WPARAM, LPARAM event) -> std::optional<LRESULT> {
                         if (message != BalloonEvent) return {};
                         TakeEvent(LOWORD(event));
                         return 0;
                       }};
};

WindowsDesktopNotices::WindowsDesktopNotices(OwnerWindow owner)
    : owner_(std::move(owner)), button_(std::make_unique<Button>()) {}

WindowsDesktopNotices::~WindowsDesktopNotices() = default;

void WindowsDesktopNotices::ShowTaskEntry(const TaskEntry& entry) {
  button_->Show(HandleOf(owner_), entry);
}

void WindowsDesktopNotices::Notify(const Notification& notification) {
  balloon_ = std::make_unique<Balloon>(notification.Clicked);
  balloon_->Show(notification);
}

}  // namespace tarnwell::platform
