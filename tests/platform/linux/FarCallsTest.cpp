#include "TempFolder.h"
#include "platform/afar/FarFileSystem.h"
#include "platform/afar/FarFolder.h"
#include "platform/linux/afar/LinuxFarPlaces.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/files/LinuxFolder.h"
#include "platform/linux/posix/ReachedPath.h"

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

struct BusyPump : MessagePump {
  void DoEvents() override {}
  void WaitForEvents() override {}
};

struct NotedFolder : LinuxFolder {
  using LinuxFolder::LinuxFolder;
  mutable std::set<std::string> Named;

  void ReadManyAttributes(WantedAttributes& wanted) const override {
    int number = 0;
    for (std::string_view name; wanted.Next(name, number);) Named.emplace(name);
  }
};

struct WantedNames : WantedAttributes {
  explicit WantedNames(std::vector<std::string> names) : Names(std::move(names)) {}
  const std::vector<std::string> Names;
  std::size_t Given = 0;
  std::set<std::string> Folders;

  std::size_t Count() const override { return Names.size(); }
  bool Next(std::string_view& name, int& number) override {
    if (Given == Names.size()) return false;
    name = Names[static_cast<std::size_t>(number = static_cast<int>(Given++))];
    return true;
  }
  void Take(int number, const base::Status&, const ItemAttributes& attributes) override {
    if (attributes.Kind == ItemKind::Folder)
      Folders.insert(Names[static_cast<std::size_t>(number)]);
  }
  bool GoesOn(bool) override { return Folders.size() < 2; }
};

TEST(NearFolder, LooksAtFarItemsByThemselves) {
  const TempFolder folder;
  const std::string root = fs::canonical(folder.Path()).string();
  folder.Make({"share/", "link->share", "own/", "file=text", "late->share"});
  BusyPump pump;
  const FarCalls calls(pump, {},
                       std::make_shared<LinuxFarPlaces>(std::vector<MountedVolume>{
                           Mounted(root + "/share", "nfs", "nas:/export")}));
  const auto noted = std::make_shared<NotedFolder>(OpenPath(root, O_RDONLY | O_DIRECTORY));
  WantedNames wanted({"own", "link", "file", "share", "late"});
  NearFolder(noted, calls, root).ReadManyAttributes(wanted);
  EXPECT_EQ(noted->Named, (std::set<std::string>{"file", "own"}));
  EXPECT_EQ(wanted.Folders, (std::set<std::string>{"link", "share"}));  // and no more after these
}

TEST(FarFileSystem, ReachesPlacesByLinks) {
  const TempFolder folder;
  const std::string root = fs::canonical(folder.Path()).string();
  folder.Make({"share/", "link->share"});
  BusyPump pump;
  const FarCalls calls(pump, {},
                       std::make_shared<LinuxFarPlaces>(std::vector<MountedVolume>{
                           Mounted(root + "/share", "nfs", "nas:/export")}));
  const FarFileSystem files(std::make_shared<LinuxFileSystem>(), calls);
  EXPECT_EQ(calls.PlaceOf(root + "/link")->Name, "nas");
  EXPECT_TRUE(files.FolderExists(root + "/link"));
  base::Status status;
  ItemAttributes attributes;
  EXPECT_TRUE(files.OpenFolder(root, status)->ReadAttributes("link", attributes));
  EXPECT_EQ(attributes.Kind, ItemKind::Folder);
}

}  // namespace
}  // namespace tarnwell::platform
