#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "TempFolder.h"
#include "platform/linux/files/ItemPermissions.h"
#include "platform/linux/files/LinuxItemInspector.h"

namespace tarnwell::platform {
namespace {

unsigned ModeOf(const std::string& path) {
  struct stat found {};
  return lstat(path.c_str(), &found) == 0 ? found.st_mode & 07777U : 0;
}

std::string TroublesOf(const PermissionOutcome& outcome) {
  std::string text;
  for (const PermissionTrouble& trouble : outcome.Troubles) {
    text += trouble.Path.substr(trouble.Path.rfind('/') + 1) + ":" +
            std::to_string(trouble.Reason.Code) + " ";
  }
  return text;
}

PermissionOutcome Change(const std::string& path, const PermissionChange& change,
                         bool inside = false, std::uint64_t most = ~0ULL) {
  PermissionOutcome outcome;
  LinuxItemInspector().SetPermissions(
      path, change, inside, [&](const PermissionOutcome& soFar) { return soFar.Items < most; },
      outcome);
  return outcome;
}

TEST(LinuxItemInspector, TellsOfTheItemItselfAndWhereALinkLeads) {
  const TempFolder folder;
  const LinuxItemInspector inspector;
  const std::string odd = "\xff\n.png";
  Put(folder / odd, std::string("\x89PNG\r\n\x1a\n", 8), 0640);
  ASSERT_EQ(chmod((folder / odd).c_str(), 06750), 0);
  ASSERT_EQ(link((folder / odd).c_str(), (folder / "twin").c_str()), 0);
  mkdir((folder / "sub").c_str(), 0700);
  symlink(odd.c_str(), (folder / "link").c_str());
  symlink("sub", (folder / "to sub").c_str());
  symlink("nowhere/\xfe", (folder / "broken").c_str());
  const timespec times[2] = {{-1, 500'000'000}, {1'000'000'000, 7}};
  utimensat(AT_FDCWD, (folder / odd).c_str(), times, 0);

  ItemFacts facts;
  ASSERT_TRUE(inspector.ReadFacts(folder / odd, facts));
  EXPECT_TRUE(facts.Kind == ItemKind::File && !facts.IsLink && facts.Size == 8);
  EXPECT_TRUE(facts.HardLinks == 2 && facts.Mode == 06750 && facts.SizeOnDisk % 512 == 0);
  EXPECT_EQ(facts.Accessed, -500'000'000);
  EXPECT_EQ(facts.Modified, 1'000'000'000'000'000'007);
  EXPECT_EQ(facts.TypeName, "image/png");
  EXPECT_FALSE(facts.Owner.empty() || facts.Group.empty() || facts.Type.empty());
  EXPECT_EQ(facts.WhyFixed, "");

  ASSERT_TRUE(inspector.ReadFacts(folder / "link", facts));
  EXPECT_TRUE(facts.IsLink && !facts.IsBroken && facts.LinkTarget == odd);
  EXPECT_EQ(facts.TypeName, "image/png");
  EXPECT_NE(facts.WhyFixed.find("link"), std::string::npos);
  ASSERT_TRUE(inspector.ReadFacts(folder / "to sub/", facts));
  EXPECT_TRUE(facts.IsLink && facts.Kind == ItemKind::Folder && facts.LinkTarget == "sub");
  ASSERT_TRUE(inspector.ReadFacts(folder / "broken", facts));
  EXPECT_TRUE(facts.IsBroken && facts.LinkTarget == "nowhere/\xfe");
  EXPECT_EQ(inspector.ReadFacts(folder / "missing", facts).Code, ENOENT);

  if (geteuid() == 0) {
    lchown((folder / odd).c_str(), 4'000'000'000U, 4'000'000'001U);
    ASSERT_TRUE(inspector.ReadFacts(folder / odd, facts));
    EXPECT_EQ(facts.Owner + " " + facts.Group, "4000000000 4000000001");
    EXPECT_EQ(InChild([&] {
                BecomeNobody();
                ItemFacts seen;
                if (!inspector.ReadFacts(folder / odd, seen)) return 1;
                return seen.WhyFixed.find("4000000000") != std::string::npos ? 0 : 2;
              }),
              0);
  }
  VolumeFacts volume;
  ASSERT_TRUE(inspector.ReadVolume("/proc/self/", volume));
  EXPECT_EQ(volume.MountPoint + volume.FileSystem, "/procproc");
  ASSERT_TRUE(inspector.ReadVolume("/", volume) && volume.MountPoint == "/");
  EXPECT_TRUE(volume.Space.Total > 0 && volume.Space.Free <= volume.Space.Total);
}

TEST(LinuxItemInspector, ChangesTheTouchedBitsAndNeverWhatALinkLeadsTo) {
  const TempFolder folder, outside;
  Put(outside / "file", "", 0600);
  mkdir((outside / "sub").c_str(), 0700);
  for (const char* name : {"a", "a/b", "a/b/c"}) mkdir((folder / name).c_str(), 0700);
  Put(folder / "a/file\n", "", 0600);
  Put(folder / "a/b/program", "", 0700);
  ASSERT_EQ(chmod((folder / "a/b/program").c_str(), 04700), 0);
  symlink((outside / "file").c_str(), (folder / "a/link").c_str());
  symlink((outside / "sub").c_str(), (folder / "a/b/to sub").c_str());

  EXPECT_EQ(TroublesOf(Change(folder / "a/link", {0777, 0})), "link:95 ");
  EXPECT_EQ(TroublesOf(Change(folder / "a/b/to sub/", {0777, 0}, true)), "to sub:95 ");
  EXPECT_EQ(TroublesOf(Change(folder / "gone", {0777, 0})), "gone:2 ");
  EXPECT_EQ(Change(folder / "a", {01020, 0100}).Items, 1U);
  EXPECT_EQ(ModeOf(folder / "a"), 01620U);
  EXPECT_EQ(Change(folder / "a", {0700, 01020}, false).Failed, 0U);

  const PermissionOutcome all = Change(folder / "a/", {02055, 0}, true);
  EXPECT_EQ(all.Items, 5U);
  EXPECT_EQ(TroublesOf(all), "");
  EXPECT_EQ(ModeOf(folder / "a"), 02755U);
  EXPECT_EQ(ModeOf(folder / "a/file\n"), 0644U);
  EXPECT_EQ(ModeOf(folder / "a/b"), 0755U);
  EXPECT_EQ(ModeOf(folder / "a/b/program"), 04755U);
  EXPECT_EQ(ModeOf(folder / "a/b/c"), 0755U);
  EXPECT_EQ(ModeOf(outside / "file"), 0600U);
  EXPECT_EQ(ModeOf(outside / "sub"), 0700U);

  // Cancelled half way, no folder keeps what it was given for the time of the walk.
  EXPECT_EQ(Change(folder / "a", {0, 0777}, true, 2).Items, 2U);
  EXPECT_EQ(ModeOf(folder / "a"), 02000U);

  EXPECT_EQ(ChangedInside(0600, true, {0040, 0}), 0650U);
  EXPECT_EQ(ChangedInside(0755, true, {0, 0111}), 0755U);
  EXPECT_EQ(ChangedInside(0755, true, {0, 0055}), 0700U);
  EXPECT_EQ(ChangedInside(0744, true, {0200, 0}), 0744U);
  EXPECT_EQ(ChangedInside(0755, false, {0, 0111}), 0644U);
}

TEST(LinuxItemInspector, GoesOnBesideWhatItMayNotChange) {
  const TempFolder folder;
  EXPECT_EQ(InChild([&] {
              const bool isRoot = geteuid() == 0;
              BecomeNobody();
              for (const char* name : {"a", "a/shut", "a/b"}) mkdir((folder / name).c_str(), 0700);
              close(open((folder / "a/b/file").c_str(), O_CREAT | O_WRONLY, 0600));
              close(open((folder / "a/shut/file").c_str(), O_CREAT | O_WRONLY, 0600));
              chmod((folder / "a/shut").c_str(), 0);
              // A folder that the change opens is gone through; others are named.
              if (TroublesOf(Change(folder / "a", {0, 04}, true)) != "shut:13 ") return 2;
              if (TroublesOf(Change(folder / "a", {0500, 0}, true)) != "") return 3;
              if (ModeOf(folder / "a/shut/file") != 0600) return 4;
              if (isRoot) {
                const uid_t self = geteuid();
                if (seteuid(0) != 0 || mkdir((folder / "a/theirs").c_str(), 0755) != 0) return 5;
                if (seteuid(self) != 0) return 5;
              }
              const auto last = Change(folder / "a", {0, 0777}, true);
              if (TroublesOf(last) != (isRoot ? "theirs:1 " : "")) return 6;
              return last.Items == (isRoot ? 6U : 5U) && ModeOf(folder / "a") == 0 ? 0 : 7;
            }),
            0);
}

}  // namespace
}  // namespace tarnwell::platform
