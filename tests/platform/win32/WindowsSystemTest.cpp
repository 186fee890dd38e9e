#include "RunUntil.h"
#include "SystemServices.h"
#include "platform/win32/system/RunningCopy.h"
#include "platform/win32/system/WindowsDesktopNotices.h"
#include "platform/win32/system/WindowsKeyboard.h"
#include "platform/win32/system/WindowsTermination.h"
// Behind the system's own, which it needs.
#define IS_32
#include <dbt.h>
#include <shellapi.h>

namespace tarnwell::platform {
namespace {

// What was posted before this has been made then.
void FinishPosts() {
  bool isBehind = false;
  PostToLoop([&isBehind] { isBehind = true; });
  EXPECT_TRUE(RunUntil([&isBehind] { return isBehind; }));
}

HWND HiddenWindowOf(const wchar_t* name) {
  HWND const window = FindWindowW(name, nullptr);
  EXPECT_NE(window, nullptr) << "the system makes no windows here";
  return window;
}

TEST(WindowsDrives, FindsTheDriveOfAnyPath) {
  const WindowsDrives drives;
  const char* const cases[][2] = {{R"(C:\)", "C"},
                                  {R"(d:\a\b)", "D"},
                                  {R"(\\nas\photos\2024)", R"(\\nas\photos)"},
                                  {R"(\\nas\photos)", R"(\\nas\photos)"},
                                  {R"(\\nas\)", ""},
                                  {R"(\\nas)", ""},
                                  {"a", ""}};
  for (const auto& [path, drive] : cases) EXPECT_EQ(drives.DriveOf(path), drive) << path;
  const auto all = drives.List();
  EXPECT_TRUE(std::ranges::all_of(all, [](const Drive& each) {
    return each.Label.size() > 5 && each.Label.ends_with(" (" + each.Name + ":)");
  }));
}

TEST(WindowsDrives, TellsFromTheLoopOfVolumesThatComeAndGo) {
  WindowsDrives drives;
  int told = 0;
  drives.OnChange([&told] { ++told; });
  HWND const window = HiddenWindowOf(L"TarnwellDrives");
  DEV_BROADCAST_VOLUME volume{sizeof volume, DBT_DEVTYP_VOLUME, 0, 1 << 5, 0};
  const auto tell = [&](WPARAM event) {
    SendMessageW(window, WM_DEVICECHANGE, event, reinterpret_cast<LPARAM>(&volume));
  };
  tell(DBT_DEVICEARRIVAL);
  EXPECT_EQ(told, 0);  // not in the midst of another call
  EXPECT_TRUE(RunUntil([&told] { return told == 1; }));
  tell(DBT_DEVICEREMOVECOMPLETE);
  drives.OnChange({});
  FinishPosts();
  EXPECT_EQ(told, 1);
}

TEST(WindowsTermination, HoldsTheSessionUpUntilAllIsSaved) {
  std::string done;
  const WindowsTermination termination(
      [&done] {
        done += "quit ";
        PostToLoop([&done] { done += "saved "; });
      },
      [&done] { return done.ends_with("saved "); });
  HWND const window = HiddenWindowOf(L"TarnwellTermination");
  EXPECT_NE(SendMessageW(window, WM_QUERYENDSESSION, 0, 0), 0);
  SendMessageW(window, WM_ENDSESSION, FALSE, 0);  // another program has kept the session
  EXPECT_EQ(done, "");
  SendMessageW(window, WM_ENDSESSION, TRUE, 0);
  EXPECT_EQ(done, "quit saved ");
  SendMessageW(window, WM_CLOSE, 0, 0);
  EXPECT_EQ(done, "quit saved quit ");
  FinishPosts();
}

TEST(WindowsDesktopNotices, TellOfAClickOnTheNewestNotification) {
  std::string clicked;
  const auto click = [] {
    SendMessageW(HiddenWindowOf(L"TarnwellNotice"), WM_APP + 1, 0, NIN_BALLOONUSERCLICK);
  };
  {
    WindowsDesktopNotices notices({});
    notices.ShowTaskEntry({.Percent = 50, .IsUrgent = true});  // there is no window yet
    const auto notify = [&](const std::string& name) {
      notices.Notify({.Title = std::string(100, 'x'), .Text = "Done.", .Clicked = [&clicked, name] {
                        clicked += name;
                      }});
    };
    notify("a");
    click();
    notify("b");
    click();
    FinishPosts();
    EXPECT_EQ(clicked, "b");
    click();
  }
  FinishPosts();
  EXPECT_EQ(clicked, "b");
  EXPECT_EQ(FindWindowW(L"TarnwellNotice", nullptr), nullptr);
}

TEST(RunningCopy, TheOldestOfTheSameFolderIsAsked) {
  const std::string folder = R"(C:\Programs\Tarnwell)";
  EXPECT_FALSE(AskRunningCopy(folder, {R"(C:\)"}));
  std::string opened;
  const auto take = [&opened](const std::string& name) {
    return [&opened, name](const std::vector<std::string>& folders) {
      opened += name + ":";
      for (const std::string& each : folders) opened += each + ";";
    };
  };
  auto first = std::make_unique<RunningCopy>(folder, take("1"));
  const RunningCopy second(folder, take("2")), other(folder + "2", take("other"));
  EXPECT_TRUE(AskRunningCopy(R"(c:\programs\TARNWELL)", {R"(C:\ä)", R"(\\nas\b)", "no path"}));
  EXPECT_EQ(opened, "");  // who asks does not wait for that
  FinishPosts();
  EXPECT_EQ(opened, R"(1:C:\ä;\\nas\b;)");
  EXPECT_TRUE(AskRunningCopy(folder, {}));
  first.reset();
  EXPECT_TRUE(AskRunningCopy(folder, {}));
  FinishPosts();
  EXPECT_EQ(opened, R"(1:C:\ä;\\nas\b;2:)");
}

TEST(WindowsKeyboard, TellsWhichKeysAreDown) {
  const auto held = [](BYTE key) {
    keybd_event(key, 0, 0, 0);
    const HeldKeys keys = WindowsKeyboard().Held();
    keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
    return std::string(keys.Space ? "space " : "") + (keys.Any ? "any" : "");
  };
  EXPECT_EQ(held(VK_SPACE), "space any");
  EXPECT_EQ(held('A'), "any");
  EXPECT_EQ(held(VK_SHIFT), "");
}

}  // namespace
}  // namespace tarnwell::platform
