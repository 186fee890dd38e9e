#include "TempFolder.h"
#include "WatchTold.h"
#include "base/ItemList.h"
#include "base/PathSyntax.h"
#include "platform/win32/afar/OperationVolumes.h"
#include "platform/win32/afar/WindowsFarPlaces.h"
#include "platform/win32/files/FarPath.h"
#include "platform/win32/files/HomeFolder.h"
#include "platform/win32/files/ProtectedItems.h"
#include "platform/win32/files/VolumeRemoval.h"
#include "platform/win32/files/WindowsFolderWatch.h"
// Else pointers are "far" in the next one.
#define IS_32
#include <dbt.h>

namespace tarnwell::platform {
namespace {

std::string Refused(const std::string& program, const std::string& item,
                    FileFunction function = FileFunction::Delete) {
  return ProtectedItems(program).Refusal(function, base::ItemList::TextOf({item}));
}

TEST(ProtectedItems, StayWhateverTheyAreCalled) {
  const TempFolder here;
  here.Make({"data/own/", "other/"});
  const std::string own = here / "data/own", home = FindHomeFolder();
  ASSERT_FALSE(home.empty());
  EXPECT_EQ(Refused(own, own), "The folder of the program's own files cannot be deleted.");
  EXPECT_EQ(Refused(own, here / "DATA/Own", FileFunction::Rename),
            "The folder of the program's own files cannot be renamed.");
  EXPECT_EQ(Refused(own, here / "data\\", FileFunction::Move),
            "A folder that holds the program's own files cannot be moved.");
  EXPECT_EQ(Refused(own, home), "The home folder cannot be deleted.");
  EXPECT_EQ(Refused(own, base::PathSyntax::Windows().ParentOf(home)),
            "A folder that holds the home folder cannot be deleted.");
  EXPECT_EQ(Refused(own, R"(C:\windows)"), "The folder of Windows cannot be deleted.");
  for (const char* root : {R"(C:\)", R"(\\server\share)", R"(\\server\share\)"}) {
    EXPECT_EQ(Refused(own, root), "The root folder cannot be deleted.");
  }
  for (const std::string& free : {here / "other", here / "none", own + "\\x", home + "\\none"}) {
    EXPECT_EQ(Refused(own, free), "") << free;
  }
  EXPECT_EQ(Refused(own, own, FileFunction::Copy), "");
}

TEST(VolumeRemoval, TellsWhomItConcerns) {
  const TempFolder here;
  const Handle folder = OpenItem(here.Path(), true, FILE_LIST_DIRECTORY);
  std::vector<int> told;
  std::unique_ptr<VolumeRemoval> removal;
  const auto take = [&](RemovalStage stage) {
    told.push_back(static_cast<int>(stage));
    if (stage == RemovalStage::Done) removal.reset();
  };
  removal = std::make_unique<VolumeRemoval>(folder.Get(), take);
  const VolumeRemoval other(folder.Get(), [](RemovalStage) { ADD_FAILURE(); });
  if (removal->Registration() == nullptr) GTEST_SKIP() << "the system tells nothing";
  DEV_BROADCAST_HANDLE notice{};
  notice.dbch_size = sizeof notice;
  notice.dbch_devicetype = DBT_DEVTYP_HANDLE;
  notice.dbch_hdevnotify = removal->Registration();
  const HWND window = FindWindowExW(HWND_MESSAGE, nullptr, L"TarnwellRemoval", nullptr);
  for (const WPARAM event :
       {DBT_DEVICEQUERYREMOVE, DBT_DEVICEQUERYREMOVEFAILED, DBT_DEVICEREMOVEPENDING,
        DBT_DEVICEREMOVECOMPLETE, DBT_DEVICEREMOVECOMPLETE}) {
    EXPECT_EQ(SendMessageW(window, WM_DEVICECHANGE, event, reinterpret_cast<LPARAM>(&notice)),
              TRUE);
  }
  EXPECT_EQ(told, (std::vector{0, 1, 2}));
}

TEST(FolderWatch, LetsGoOfWhatIsBelowAFolder) {
  const TempFolder here;
  here.Make({"top/sub/", "topmost/"});
  WindowsFolderWatch watches;
  const auto letGo = watches.LettingGo();
  WatchTold stays, goes;
  const auto below = watches.Start(here / "top/sub", goes.Take());
  const auto beside = watches.Start(here / "topmost", stays.Take());
  EXPECT_EQ(letGo(here / "top/sub"), nullptr);
  letGo(here / "TOP").reset();
  EXPECT_TRUE(RunUntil([&] { return goes.Everything; }));
  goes.MakeLastChange(here / "top/sub/last");
  std::shared_ptr<void> until = letGo(here / "top");
  EXPECT_EQ(letGo(here / "top"), nullptr);
  std::filesystem::rename(PathOf(here / "top"), PathOf(here / "new"));
  until.reset();
  EXPECT_TRUE(RunUntil([&] { return goes.Gone; }));
  stays.MakeLastChange(here / "topmost/last");
  EXPECT_FALSE(stays.Everything);
}

TEST(FarPath, IsToldByTheNameAndTheTableOfDrives) {
  const auto found = [](const std::string& path) {
    const auto share = NetworkShareOf(path);
    return share ? share->Path + " " + share->Server : "";
  };
  EXPECT_EQ(found(R"(\\server\share\a\b)"), R"(\\server\share server)");
  EXPECT_EQ(found(R"(\\server)"), R"(\\server server)");
  EXPECT_EQ(found(R"(\\?\UNC\server\share\a)"), R"(\\server\share server)");
  for (const char* near : {R"(C:\a)", R"(\\?\C:\a)", R"(\\.\C:)", "a", ""}) {
    EXPECT_EQ(found(near), "") << near;
  }
  const auto standFor = [](DWORD flags, const wchar_t* target) {
    return DefineDosDeviceW(flags, L"Q:", target) != 0;
  };
  const std::pair<const wchar_t*, const char*> devices[] = {
      {LR"(\Device\Mup\;LanmanRedirector\;Q:0000abcd\server\share)", R"(\\server\share server)"},
      {LR"(\Device\LanmanRedirector\;Q:0000abcd\server\share)", R"(\\server\share server)"},
      {LR"(\Device\Mup)", R"(Q:\ Q:)"},
      {LR"(\??\UNC\server\share\folder)", R"(\\server\share server)"},
      {LR"(\??\C:\folder)", ""},
      {LR"(\Device\HarddiskVolume9)", ""}};
  for (const auto& [device, share] : devices) {
    if (!standFor(DDD_RAW_TARGET_PATH, device)) GTEST_SKIP() << "drives cannot be made here";
    EXPECT_EQ(found(R"(Q:\a)"), share) << Narrow(device);
    standFor(DDD_REMOVE_DEFINITION, nullptr);
  }
}

TEST(FarPlaces, AreFoundThroughLinksWithoutALookAtThem) {
  const std::map<std::string, std::string> links{{R"(C:\near\link)", R"(..\share\sub)"},
                                                 {R"(C:\chain)", R"(C:\near\link)"},
                                                 {R"(C:\share)", R"(\\nas\export)"},
                                                 {R"(C:\root)", R"(\share)"},
                                                 {R"(C:\loop)", "loop"}};
  const auto found = [&](const std::string& path, LastLink last = LastLink::Followed) {
    std::string plain;
    const auto readLink = [&](const std::string& item) {
      EXPECT_TRUE(item.starts_with(R"(C:\)")) << item;
      const auto link = links.find(item);
      return link == links.end() ? "" : link->second;
    };
    const auto place = FindFarPlace(path, last, plain, readLink);
    return place ? place->Key + " " + place->Name : plain;
  };
  const std::string nas = R"(\\nas\export nas)";
  for (const char* far : {R"(C:\share)", R"(C:\chain\file)", R"(C:\near\in\..\..\share\x)",
                          R"(C:\root\x)", R"(\\nas\export\x)"}) {
    EXPECT_EQ(found(far), nas) << far;
  }
  EXPECT_EQ(found(R"(C:\chain)", LastLink::Itself), R"(C:\chain)");
  EXPECT_EQ(found(R"(C:\shared\loop)"), R"(C:\shared\loop)");
  EXPECT_EQ(found(R"(C:\loop)"), R"(C:\loop)");
  EXPECT_EQ(found(R"(C:\)"), R"(C:\)");

  // Of items in one folder each is looked at, but not the way there again.
  std::vector<std::string> asked;
  const WindowsFarPlaces places(
      [&](const std::string& item) {
        asked.push_back(item);
        return item == R"(C:\a\b\y)" ? R"(\\nas\export)" : "";
      },
      std::chrono::hours(1));
  for (const char* path : {R"(C:\a\b\x)", R"(C:\a\b)", R"(C:\a\b\y)", R"(C:\a\bc)"}) {
    EXPECT_EQ(places.Find(path).has_value(), std::string_view(path).ends_with('y'));
  }
  EXPECT_EQ(asked, (std::vector<std::string>{R"(C:\a)", R"(C:\a\b)", R"(C:\a\b\x)", R"(C:\a\b\y)",
                                             R"(C:\a\bc)"}));
}

TEST(OperationVolumes, AreThoseOfTheFoldersWithoutACallToOtherMachines) {
  const TempFolder here;
  const WindowsFarPlaces far;
  const auto volumes = [&](const std::string& item, const std::string& to) {
    return VolumesOf(
        {FileFunction::Move, base::ItemList::TextOf({item}), base::ItemList::TextOf({to})}, &far);
  };
  using Names = std::vector<std::string>;
  const Names own = volumes(here / "a", here / "none/none/");
  EXPECT_TRUE(own.size() == 1 && own.front() != "0");
  EXPECT_EQ(volumes(R"(\\nobody\share\a\b)", R"(\\nobody\share\c\)"), Names{R"(\\nobody\share)"});
  EXPECT_EQ(volumes(here / "a", R"(\\nobody\share\c\)").size(), 2U);
}

}  // namespace
}  // namespace tarnwell::platform
