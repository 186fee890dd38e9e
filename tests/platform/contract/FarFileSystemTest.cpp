#include "FolderServices.h"
#include "TempFolder.h"
#include "platform/afar/FarFileSystem.h"

namespace tarnwell::platform {
namespace {

// A folder that is another machine's.
class OneFarPlace : public FarPlaces {
 public:
  explicit OneFarPlace(std::string share = {}) : share_(std::move(share)) {}
  using FarPlaces::Find;
  std::optional<FarPlace> Find(const std::string& path, LastLink,
                               std::string& plain) const override {
    plain = path;
    if (share_.empty() || !path.starts_with(share_)) return {};
    return FarPlace{share_, "nas"};
  }
  bool Any() const override { return !share_.empty(); }
  std::optional<FarPlace> FindBelow(const std::string&) const override { return {}; }
  std::vector<std::string> MountedIn(const std::string&) const override { return {}; }

 private:
  const std::string share_;
};

// A share whose space is told when the test lets it, and so are the items of a folder from some on.
class SlowFiles : public TestedFiles {
 public:
  mutable std::atomic<int> Calls = 0;
  std::atomic<bool> Answers = false;
  std::size_t Listed = 1'000'000;

  std::unique_ptr<OpenedFolder> OpenFolder(const std::string& folder,
                                           base::Status& status) const override {
    struct Slow : OpenedFolder {
      Slow(const SlowFiles& files, std::unique_ptr<OpenedFolder> folder)
          : Files(files), Folder(std::move(folder)) {}
      base::Status Read(const TakeEntry& take) override {
        return Folder->Read([&](const FolderEntry& entry) {
          while (++Given > Files.Listed && !Files.Answers) std::this_thread::yield();
          const ItemAttributes attributes{.Size = entry.Name.size()};
          FolderEntry told = entry;
          told.Attributes = Given % 3 != 0 ? &attributes : nullptr;
          return take(told);
        });
      }
      base::Status ReadAttributes(std::string_view name,
                                  ItemAttributes& attributes) const override {
        return Folder->ReadAttributes(name, attributes);
      }
      base::Status ReadExtendedAttribute(std::string_view name, ExtendedAttribute attribute,
                                         std::string& text) const override {
        return Folder->ReadExtendedAttribute(name, attribute, text);
      }
      const SlowFiles& Files;
      const std::unique_ptr<OpenedFolder> Folder;
      std::size_t Given = 0;
    };
    return std::make_unique<Slow>(*this, TestedFiles::OpenFolder(folder, status));
  }

  base::Status MeasureFolder(const std::string&, const GoOn&, FolderTotal&) const override {
    throw std::bad_alloc();
  }
  base::Status ReadSpace(const std::string& folder, Space& space) const override {
    ++Calls;
    while (!Answers) std::this_thread::yield();
    return TestedFiles::ReadSpace(folder, space);
  }
};

struct BusyPump : MessagePump {
  void DoEvents() override {}
  void WaitForEvents() override {}
};

TEST(FarFileSystem, AsksASilentPlaceNoMoreUntilItAnswers) {
  const TempFolder folder;
  const std::string share = folder / "share";
  for (int number = 0; number < 1000; ++number) {
    folder.Make({"share/" + std::to_string(number) + "=text"});
  }
  BusyPump pump;
  using std::chrono::hours;
  const FarPatience patience{
      .Most = hours(1), .Glance = hours(1), .Silence = {}, .Retrial = hours(1)};
  const FarCalls calls(pump, patience, std::make_shared<OneFarPlace>(share));
  const auto slow = std::make_shared<SlowFiles>();
  const FarFileSystem files(slow, calls);
  Space space;
  int waits = 0;
  {
    const WaitScope giveUp(pump, [&](const std::string& place) {
      EXPECT_EQ(place, "nas");
      return ++waits < 3;
    });
    EXPECT_EQ(files.ReadSpace(share, space).Code, ECANCELED);
    EXPECT_EQ(waits, 3);
    EXPECT_EQ(files.ReadSpace(share, space).Reason, "nas does not answer");
    EXPECT_FALSE(files.FolderExists(share));
  }
  EXPECT_EQ(slow->Calls, 1);
  EXPECT_EQ(waits, 3);
  EXPECT_EQ(space.Total, 0U);
  EXPECT_TRUE(files.FolderExists(folder.Path()));

  slow->Answers = true;
  while (calls.AnyLeft()) std::this_thread::yield();
  EXPECT_TRUE(files.ReadSpace(share, space));
  EXPECT_GT(space.Total, 0U);
  std::set<std::string> names;
  const auto take = [&](const FolderEntry& entry) {
    names.emplace(entry.Name);
    return names.size() < 900;
  };
  EXPECT_TRUE(files.ReadFolder(share, take));
  EXPECT_EQ(names.size(), 900U);
  int asked = 0;
  FolderTotal total;
  const auto goOn = [&](const FolderTotal&) { return ++asked < 500; };
  EXPECT_THROW(files.MeasureFolder(share, goOn, total), std::bad_alloc);
}

// Where nothing is mounted from elsewhere, as on most machines.
TEST(FarFileSystem, ReadsALargeFolderAheadAndNeedNotWaitForIt) {
  const TempFolder folder;
  std::set<std::string> made;
  for (int number = 0; number < 4500; ++number) {
    const std::string name = std::to_string(number) + std::string(number % 100, 'x');
    made.insert(name);
    Put(folder / name, "");
  }
  BusyPump pump;
  const FarCalls calls(pump, {}, std::make_shared<OneFarPlace>());
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
