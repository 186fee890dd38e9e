#include "FolderServices.h"
#include "TempFolder.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

TEST(Fingerprint, TellsEveryChangeBelow) {
  const TempFolder here;
  here.Make({"tree/a/one=1", "tree/b/", "tree/two=2"});
  // In whole seconds, so that it can be put back on every system.
  const auto time = std::chrono::floor<std::chrono::seconds>(fs::file_time_type::clock::now()) -
                    std::chrono::hours(1);
  fs::last_write_time(PathOf(here / "tree/two"), time);
  const auto print = [&](bool isWhole) { return FingerprintOf(here / "tree", isWhole); };
  const ItemFingerprint before = print(true);
  EXPECT_EQ(print(true), before);
  EXPECT_TRUE(before.Below != 0 && before.Number != 0);
  const auto expectChange = [&](const std::function<void()>& change,
                                const std::function<void()>& back) {
    change();
    EXPECT_NE(print(true), before);
    back();
    EXPECT_EQ(print(true), before);
  };
  const auto moves = [&](const std::string& from, const std::string& to) {
    expectChange([&] { fs::rename(PathOf(here / from), PathOf(here / to)); },
                 [&] { fs::rename(PathOf(here / to), PathOf(here / from)); });
  };
  moves("tree/a/one", "tree/b/one");
  moves("tree/a/one", "tree/a/uno");
  moves("tree/b", "b");
  expectChange([&] { here.Make({"tree/b/new="}); },
               [&] { fs::remove(PathOf(here / "tree/b/new")); });
  expectChange([&] { Put(here / "tree/two", "3"); },
               [&] { fs::last_write_time(PathOf(here / "tree/two"), time); });
  EXPECT_EQ(print(false).Below, 0U);
  EXPECT_EQ(FingerprintOf(here / "tree/two", true).Size, 1U);
  EXPECT_EQ(FingerprintOf(here / "none", true), ItemFingerprint());
}

}  // namespace
}  // namespace tarnwell::platform
