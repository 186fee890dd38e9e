#include "TempFolder.h"
#include "platform/linux/afar/FarFileSystem.h"
#include "platform/linux/files/LinuxFileSystem.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

MountedVolume Mounted(const std::string& path, const std::string& type, const std::string& source) {
  return {.Id = 0, .Device = "0:9", .Root = "/", .Path = path, .Type = type, .Source = source};
}

TEST(FarPlaces, AreFoundThroughLinksWithoutALookAtThem) {
  const TempFolder folder;
  const std::string root = fs::canonical(folder.Path()).string();
  fs::create_directories(root + "/near/inner");
  fs::create_directory_symlink("../share/sub", root + "/near/link");  // there is no such folder
  fs::create_directory_symlink(root + "/near/link", root + "/chain");
  fs::create_directory_symlink("loop", root + "/loop");
  const std::vector<MountedVolume> mounts{
      Mounted(root + "/share", "nfs4", "[::1]:/export"),
      Mounted(root + "/places", "fuse.gvfsd-fuse", "gvfsd-fuse")};
  const auto found = [&](const std::string& path, LastLink last = LastLink::Followed) {
    std::string plain;
    const auto place = FindFarPlace(mounts, root + path, last, plain);
    return place ? place->Key.substr(root.size()) + " " + place->Name : plain.substr(root.size());
  };
  EXPECT_EQ(found("/share"), "/share [::1]");
  EXPECT_EQ(found("/chain/file"), "/share [::1]");
  EXPECT_EQ(found("/chain", LastLink::Itself), "/chain");
  EXPECT_EQ(found("/near/inner/../../share/x"), "/share [::1]");
  EXPECT_EQ(found("/shared/loop"), "/shared/loop");
  EXPECT_EQ(found("/loop"), "/loop");
  EXPECT_EQ(found("/places/sftp:host=nas,user=me/home"), "/places/sftp:host=nas,user=me nas");
}

// A share whose space is told when the test lets it.
class SlowFiles : public LinuxFileSystem {
 public:
  mutable std::atomic<int> Calls = 0;
  std::atomic<bool> Answers = false;

  base::Status ReadSpace(const std::string& folder, Space& space) const override {
    ++Calls;
    while (!Answers) std::this_thread::yield();
    return LinuxFileSystem::ReadSpace(folder, space);
  }
};

struct BusyPump : MessagePump {
  void DoEvents() override {}
  void WaitForEvents() override {}
};

TEST(FarFileSystem, AsksASilentPlaceNoMoreUntilItAnswers) {
  const TempFolder folder;
  const std::string root = fs::canonical(folder.Path()).string();
  fs::create_directories(root + "/share");
  fs::create_directory_symlink("share", root + "/link");
  for (int number = 0; number < 1000; ++number) {
    std::ofstream(root + "/share/" + std::to_string(number)) << "text";
  }
  BusyPump pump;
  using std::chrono::hours;
  const FarPatience patience{
      .Most = hours(1), .Glance = hours(1), .Silence = {}, .Retrial = hours(1)};
  const FarCalls calls(pump, patience,
                       std::make_shared<FarPlaces>(std::vector<MountedVolume>{
                           Mounted(root + "/share", "nfs", "nas:/export")}));
  const auto slow = std::make_shared<SlowFiles>();
  const FarFileSystem files(slow, calls);
  Space space;
  int waits = 0;
  {
    const WaitScope giveUp(pump, [&](const std::string& place) {
      EXPECT_EQ(place, "nas");
      return ++waits < 3;
    });
    EXPECT_EQ(files.ReadSpace(root + "/link", space).Code, ECANCELED);
    EXPECT_EQ(waits, 3);
    EXPECT_EQ(files.ReadSpace(root + "/share", space).Reason, "nas does not answer");
    EXPECT_FALSE(files.FolderExists(root + "/link"));
  }
  EXPECT_EQ(slow->Calls, 1);
  EXPECT_EQ(waits, 3);
  EXPECT_EQ(space.Total, 0U);
  EXPECT_TRUE(files.FolderExists(root));

  slow->Answers = true;
  while (calls.AnyLeft()) std::this_thread::yield();
  EXPECT_TRUE(files.ReadSpace(root + "/link", space));
  EXPECT_GT(space.Total, 0U);
  std::set<std::string> names;
  const auto take = [&](const FolderEntry& entry) {
    names.emplace(entry.Name);
    return names.size() < 900;
  };
  EXPECT_TRUE(files.ReadFolder(root + "/link", take));
  EXPECT_EQ(names.size(), 900U);
  base::Status status;
  const auto near = files.OpenFolder(root, status);
  ItemAttributes attributes;
  EXPECT_TRUE(near->ReadAttributes("link", attributes));
  EXPECT_EQ(attributes.Kind, ItemKind::Folder);
}

}  // namespace
}  // namespace tarnwell::platform
