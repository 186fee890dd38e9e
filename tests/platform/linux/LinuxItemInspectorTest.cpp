#include "TempFolder.h"
#include "platform/linux/files/ItemPermissions.h"
#include "platform/linux/files/LinuxItemInspector.h"

namespace tarnwell::platform {
namespace {

unsigned ModeOf(const std::string& path) {
  return StatOf(path).st_mode & 07777U;
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
  folder.Make(
      {odd + "=\x89PNG\r\n\x1a\n", "sub/", "link->" + odd, "to sub->sub", "broken->nowhere/\xfe"});
  ASSERT_EQ(chmod((folder / odd).c_str(), 06750), 0);
  ASSERT_EQ(link((folder / odd).c_str(), (folder / "twin").c_str()), 0);
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
    InChild([&] {
      BecomeNobody();
      EXPECT_TRUE(inspector.ReadFacts(folder / odd, facts));
      EXPECT_NE(facts.WhyFixed.find("4000000000"), std::string::npos);
    });
  }
  VolumeFacts volume;
  ASSERT_TRUE(inspector.ReadVolume("/proc/self/", volume));
  EXPECT_EQ(volume.MountPoint + volume.FileSystem, "/procproc");
  ASSERT_TRUE(inspector.ReadVolume("/", volume) && volume.MountPoint == "/");
  EXPECT_TRUE(volume.Space.Total > 0 && volume.Space.Free <= volume.Space.Total);
}

TEST(LinuxItemInspector, ChangesTheTouchedBitsAndNeverWhatALinkLeadsTo) {
  const TempFolder folder, outside;
  outside.Make({"file=", "sub/"});
  folder.Make({"a/file\n=", "a/b/c/", "a/b/program=", "a/link->" + outside / "file",
               "a/b/to sub->" + outside / "sub"});
  for (const char* name : {"a", "a/b", "a/b/c"}) chmod((folder / name).c_str(), 0700);
  chmod((folder / "a/b/program").c_str(), 04700);
  for (const char* name : {"file", "sub"}) chmod((outside / name).c_str(), 0600);
  chmod((folder / "a/file\n").c_str(), 0600);

  EXPECT_EQ(TroublesOf(Change(folder / "a/link", {0777, 0})), "link:95 ");
  EXPECT_EQ(TroublesOf(Change(folder / "a/b/to sub/", {0777, 0}, true)), "to sub:95 ");
  EXPECT_EQ(TroublesOf(Change(folder / "gone", {0777, 0})), "gone:2 ");
  EXPECT_EQ(Change(folder / "a", {01020, 0100}).Items, 1U);
  EXPECT_EQ(ModeOf(folder / "a"), 01620U);
  EXPECT_EQ(Change(folder / "a", {0700, 01020}, false).Failed, 0U);

  const PermissionOutcome all = Change(folder / "a/", {02055, 0}, true);
  EXPECT_EQ(all.Items, 5U);
  EXPECT_EQ(TroublesOf(all), "");
  for (const auto& [path, mode] : std::map<std::string, unsigned>{{folder / "a", 02755},
                                                                  {folder / "a/file\n", 0644},
                                                                  {folder / "a/b", 0755},
                                                                  {folder / "a/b/program", 04755},
                                                                  {folder / "a/b/c", 0755},
                                                                  {outside / "file", 0600},
                                                                  {outside / "sub", 0600}}) {
    EXPECT_EQ(ModeOf(path), mode) << path;
  }

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
  const bool isRoot = geteuid() == 0;
  InChild([&] {
    BecomeNobody();
    folder.Make({"a/shut/file=", "a/b/file="});
    chmod((folder / "a/shut").c_str(), 0);
    // A folder that the change opens is gone through; others are named.
    EXPECT_EQ(TroublesOf(Change(folder / "a", {0, 04}, true)), "shut:13 ");
    EXPECT_EQ(TroublesOf(Change(folder / "a", {0500, 0}, true)), "");
    EXPECT_EQ(ModeOf(folder / "a/shut/file"), 0644U);
    if (isRoot) {
      const uid_t self = geteuid();
      ASSERT_EQ(seteuid(0), 0);
      folder.Make({"a/theirs/"});
      ASSERT_EQ(seteuid(self), 0);
    }
    const PermissionOutcome last = Change(folder / "a", {0, 0777}, true);
    EXPECT_EQ(TroublesOf(last), isRoot ? "theirs:1 " : "");
    EXPECT_TRUE(last.Items == (isRoot ? 6U : 5U) && ModeOf(folder / "a") == 0);
  });
}

}  // namespace
}  // namespace tarnwell::platform
