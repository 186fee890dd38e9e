#include "RunUntil.h"
#include "SystemServices.h"
// Behind the system's own, which it needs.
#define IS_32
#include <dbt.h>

namespace tarnwell::platform {
namespace {

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
  HWND const window = FindWindowW(L"TarnwellDrives", nullptr);
  ASSERT_NE(window, nullptr) << "the system makes no windows here";
  DEV_BROADCAST_VOLUME volume{sizeof volume, DBT_DEVTYP_VOLUME, 0, 1 << 5, 0};
  const auto tell = [&](WPARAM event) {
    SendMessageW(window, WM_DEVICECHANGE, event, reinterpret_cast<LPARAM>(&volume));
  };
  tell(DBT_DEVICEARRIVAL);
  EXPECT_EQ(told, 0);  // not in the midst of another call
  EXPECT_TRUE(RunUntil([&told] { return told == 1; }));
  tell(DBT_DEVICEREMOVECOMPLETE);
  drives.OnChange({});
  bool isBehind = false;
  PostToLoop([&isBehind] { isBehind = true; });
  EXPECT_TRUE(RunUntil([&isBehind] { return isBehind; }));
  EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace tarnwell::platform
