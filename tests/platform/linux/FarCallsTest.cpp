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

// A share whose space is told when the test lets it, and so are the items of a folder from some on.
class SlowFiles : public LinuxFileSystem {
 public:
  mutable std::atomic<int> Calls = 0;
  std::atomic<bool> Answers = false;
  std::size_t Listed = 1'000'000;

  std::unique_ptr<OpenedFolder> OpenFolder(const std::string& folder,
                                           base::Status& status) const override {
    struct Slow : LinuxFolder {
      Slow(const SlowFiles& files, const std::string& path)
          : LinuxFolder(OpenPath(path, O_RDONLY | O_DIRECTORY)), Files(files) {}
      base::Status Read(const TakeEntry& take) override {
        return LinuxFolder::Read([&](const FolderEntry& entry) {
          while (++Given > Files.Listed && !Files.Answers) std::this_thread::yield();
          const ItemAttributes attributes{.Size = entry.Name.size()};
          FolderEntry told = entry;
          if (Given % 3 != 0) told.Attributes = &attributes;
          return take(told);
        });
      }
      const SlowFiles& Files;
      std::size_t Given = 0;
    };
    status = {};
    return std::make_unique<Slow>(*this, folder);
  }

  base::Status MeasureFolder(const std::string&, const GoOn&, FolderTotal&) const override {
    throw std::bad_alloc();
  }
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
                       std::make_shared<LinuxFarPlaces>(std::vector<MountedVolume>{
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
  int asked = 0;
  FolderTotal total;
  const auto goOn = [&](const FolderTotal&) { return ++asked < 500; };
  EXPECT_THROW(files.MeasureFolder(root + "/share", goOn, total), std::bad_alloc);
  base::Status status;
  const auto near = files.OpenFolder(root, status);
  ItemAttributes attributes;
  EXPECT_TRUE(near->ReadAttributes("link", attributes));
  EXPECT_EQ(attributes.Kind, ItemKind::Folder);
}

// Where nothing is mounted from elsewhere, as on most machines.
TEST(FarFileSystem, ReadsALargeFolderAheadAndNeedNotWaitForIt) {
  const TempFolder folder;
  std::set<std::string> made;
  for (int number = 0; number < 4500; ++number) {
    const std::string name = std::to_string(number) + std::string(number % 200, 'x');
    made.insert(name);
    close(creat((folder.Path() + "/" + name).c_str(), 0600));
  }
  BusyPump pump;
  const FarCalls calls(pump, {}, std::make_shared<LinuxFarPlaces>(std::vector<MountedVolume>{}));
  const auto slow = std::make_shared<SlowFiles>();
  const FarFileSystem files(slow, calls);
  std::multiset<std::string> names;
  for (const std::size_t most : {2047, 2048, 2049, 4500, 5000}) {
    names.clear();
    std::size_t known = 0;
    const auto take = [&](const FolderEntry& entry) {
      names.emplace(entry.Name);
      known += entry.Attributes != nullptr && entry.Attributes->Size == entry.Name.size() ? 1 : 0;
      return names.size() < most;
    };
    EXPECT_TRUE(files.ReadFolder(folder.Path(), take));
    EXPECT_EQ(names.size(), std::min(most, made.size()));
    EXPECT_EQ(known, names.size() - names.size() / 3);
  }
  EXPECT_TRUE(std::ranges::equal(names, made));

  // A disk that is silent is left to itself.
  slow->Listed = 3000;
  int waits = 0;
  names.clear();
  {
    const WaitScope giveUp(pump, [&](const std::string& place) {
      EXPECT_EQ(place, folder.Path());
      return names.size() < 2700 || ++waits < 3;
    });
    const auto take = [&](const FolderEntry& entry) { return !names.emplace(entry.Name)->empty(); };
    EXPECT_EQ(files.ReadFolder(folder.Path(), take).Code, ECANCELED);
  }
  EXPECT_EQ(waits, 3);
  EXPECT_LE(names.size(), 3000U);
  EXPECT_TRUE(calls.AnyLeft());
  slow->Answers = true;
  while (calls.AnyLeft()) std::this_thread::yield();
}

}  // namespace
}  // namespace tarnwell::platform
