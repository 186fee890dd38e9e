// What operations tell of their work, so that it can be taken back, and what they go by when it is.
#include <sys/sysmacros.h>

#include "OperationFixture.h"
#include "platform/linux/afar/OperationVolumes.h"
#include "platform/linux/files/Fingerprint.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

TEST(OperationVolumes, AreThoseOfTheFoldersWithoutACallToOtherMachines) {
  const TempFolder here;
  const TempFolder there(otherVolume);
  const std::string root = fs::canonical(here.Path()).string();
  here.Make({"file=x", "link->" + there.Path(), "far/"});
  const FarPlaces far(std::vector<MountedVolume>{{.Id = 0,
                                                  .Device = "0:9",
                                                  .Root = "/",
                                                  .Path = root + "/far",
                                                  .Type = "nfs4",
                                                  .Source = "n:/"}});
  const auto volumes = [&](const std::vector<std::string>& items,
                           const std::vector<std::string>& to, int flags = 0,
                           FileFunction function = FileFunction::Move) {
    return VolumesOf({function, base::ItemList::TextOf(items), base::ItemList::TextOf(to),
                      static_cast<std::uint16_t>(flags)},
                     &far);
  };
  const auto nameOf = [](const std::string& path) {
    const dev_t device = StatOf(path).st_dev;
    return std::to_string(major(device)) + ":" + std::to_string(minor(device));
  };
  const std::string one = nameOf(root), other = nameOf(there.Path()), share = root + "/far";
  using Names = std::vector<std::string>;
  const Names both{std::min(one, other), std::max(one, other)};
  EXPECT_EQ(volumes({root + "/file"}, {root + "/"}), Names{one});
  EXPECT_EQ(volumes({root + "/file"}, {root + "/link"}), both);
  EXPECT_EQ(volumes({root + "/link"}, {}, 0, FileFunction::Delete), Names{one});
  EXPECT_EQ(volumes({root + "/link/x"}, {root + "/link/none/sub/"}), Names{other});
  EXPECT_EQ(volumes({root + "/far/a/b"}, {root + "/far/none"}), Names{share});
  EXPECT_EQ(volumes({root + "/file", root + "/x"}, {root + "/y", root + "/link/z"}, OwnTargets),
            both);
  EXPECT_EQ(volumes({root + "/link"}, {root + "/link2"}, 0, FileFunction::Rename), Names{one});
}

TEST(Fingerprints, TellEveryChangeBelow) {
  const TempFolder here;
  here.Make({"tree/a/one=1", "tree/b/", "tree/link->x", "tree/two=2"});
  const auto print = [&](bool isWhole) { return FingerprintOf(here / "tree", isWhole); };
  const ItemFingerprint before = print(true);
  EXPECT_EQ(print(true), before);
  EXPECT_NE(before.Below, 0U);
  utimensat(AT_FDCWD, (here / "tree/a").c_str(), nullptr, 0);  // of folders what they hold tells
  EXPECT_EQ(print(true), before);
  const auto expectChange = [&](const std::function<void()>& change,
                                const std::function<void()>& back) {
    change();
    EXPECT_NE(print(true), before);
    back();
    EXPECT_EQ(print(true), before);
  };
  const auto moves = [&](const std::string& from, const std::string& to) {
    expectChange([&] { fs::rename(here / from, here / to); },
                 [&] { fs::rename(here / to, here / from); });
  };
  moves("tree/a/one", "tree/b/one");
  moves("tree/a/one", "tree/a/uno");
  moves("tree/b", "b");
  expectChange([&] { here.Make({"tree/b/new="}); }, [&] { fs::remove(here / "tree/b/new"); });
  const auto time = fs::last_write_time(here / "tree/two");
  expectChange([&] { Put(here / "tree/two", "3"); },
               [&] { fs::last_write_time(here / "tree/two", time); });
  EXPECT_EQ(print(false).Below, 0U);
  EXPECT_EQ(FingerprintOf(here / "none", true), ItemFingerprint());
  EXPECT_EQ(FingerprintOf(here / "tree/link", true).Kind, std::uint32_t{S_IFLNK});

  // Where times are rounded, the same ones are found before that and after.
  struct statx found {};
  found.stx_mode = S_IFREG;
  const auto modified = [&](std::int64_t seconds, std::uint32_t rest) {
    found.stx_mtime.tv_sec = seconds;
    found.stx_mtime.tv_nsec = rest;
    return FingerprintOf(found, {.HasLastingNumbers = false, .HasFineTimes = false});
  };
  EXPECT_EQ(modified(7, 5), modified(6, 0));
  EXPECT_EQ(modified(-7, 5), modified(-8, 0));
  EXPECT_EQ(modified(7, 5).Device + modified(7, 5).Number, 0U);
}

}  // namespace
}  // namespace tarnwell::platform
