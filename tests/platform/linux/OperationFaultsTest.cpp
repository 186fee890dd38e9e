// File operations where system calls fail, each in a child process whose calls are refused by the
// kernel itself, and where others get in their way.
#include <linux/filter.h>
#include <linux/fs.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>

#include <future>

#include "OperationFixture.h"
#include "platform/linux/files/AsideRecord.h"
#include "platform/linux/operation/HoldFolder.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/SeekFree.h"
#include "platform/linux/posix/SystemError.h"
#include "platform/linux/posix/TemporaryName.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

// Puts the filter before all system calls that this thread makes from now on.
int Install(std::vector<sock_filter> steps, unsigned flags) {
  steps.insert(steps.begin(), BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)));
  steps.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  const sock_fprog program{static_cast<unsigned short>(steps.size()), steps.data()};
  prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
  return static_cast<int>(syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, flags, &program));
}

// Does the work on a thread of its own, where the kernel holds each of these system calls up until
// `meddle` has been told the second argument, for calls of the "at" family the name. Skips the test
// where the kernel does not do that.
void RunMeddled(const std::vector<unsigned>& calls,
                const std::function<void(const char* name)>& meddle,
                const std::function<void()>& work) {
  std::promise<int> made;
  std::thread worker([&] {
    std::vector<sock_filter> steps;
    for (const unsigned call : calls) {
      steps.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1));
      steps.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF));
    }
    const int heard = Install(steps, SECCOMP_FILTER_FLAG_NEW_LISTENER);
    made.set_value(heard);
    if (heard >= 0) work();
  });
  const int heard = made.get_future().get();
  pollfd wait{heard, POLLIN, 0};
  while (heard >= 0 && poll(&wait, 1, -1) == 1 && (wait.revents & POLLIN) != 0) {
    seccomp_notif call{};
    if (ioctl(heard, SECCOMP_IOCTL_NOTIF_RECV, &call) != 0) continue;
    meddle(reinterpret_cast<const char*>(call.data.args[1]));
    seccomp_notif_resp goOn{call.id, 0, 0, SECCOMP_USER_NOTIF_FLAG_CONTINUE};
    ioctl(heard, SECCOMP_IOCTL_NOTIF_SEND, &goOn);
  }
  worker.join();
  close(heard);
  if (heard < 0) GTEST_SKIP() << "needs the right to hold calls up";
}

struct AtLeast {
  unsigned Argument;
  unsigned Value;
};

// From now on such a call fails with the error when all the conditions hold.
void Refuse(unsigned call, unsigned error, const std::vector<AtLeast>& conditions) {
  const auto after = static_cast<unsigned char>(2 * conditions.size() + 1);
  std::vector<sock_filter> steps{BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, after)};
  for (std::size_t at = 0; at < conditions.size(); ++at) {
    steps.push_back(BPF_STMT(
        BPF_LD | BPF_W | BPF_ABS,
        static_cast<unsigned>(offsetof(seccomp_data, args)) + 8 * conditions[at].Argument));
    const auto rest = static_cast<unsigned char>(2 * (conditions.size() - at) - 1);
    steps.push_back(BPF_JUMP(BPF_JMP | BPF_JGE | BPF_K, conditions[at].Value, 0, rest));
  }
  steps.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | error));
  if (Install(steps, 0) != 0) _exit(LacksRight);
}

TEST(OperationFaults, NothingIsMovedThatCannotBeReadOrHasNotArrived) {
  const TempFolder here;
  const TempFolder there(otherVolume);
  struct : ScriptedUser {
    std::function<void()> Repair = [] {};
    TroubleChoice OnTrouble(const OperationTrouble& trouble) override {
      EXPECT_FALSE(trouble.Reason.Reason.empty());
      Repair();
      return ScriptedUser::OnTrouble(trouble);
    }
  } user;
  const std::string large(1'000'000, 'L');
  here.Make({"tree/large=" + large, "tree/small=small"});
  InChild([&] {
    // Files that get numbers beyond these cannot be read to their ends.
    std::vector<int> low;
    while (low.empty() || low.back() < 99) low.push_back(dup(0));
    Refuse(SYS_pread64, EIO, {{0, 100}, {3, 262'144}});
    Refuse(SYS_copy_file_range, ENOSYS, {});
    Refuse(SYS_ioctl, ENOTTY, {{1, FICLONE}});
    const std::string heard = "large:" + std::to_string(EIO) + " ";
    EXPECT_EQ(Do(user, FileFunction::Move, {here / "tree"}, there.Path()).Code, EIO);
    EXPECT_EQ(user.Heard, heard);
    EXPECT_EQ(NamesBelow(here.Path()) + NamesBelow(there.Path()),
              "tree tree/large tree tree/small ");
    EXPECT_EQ(Get(here / "tree/large").size(), large.size());
    user.Trouble = TroubleChoice::Retry;
    user.Repair = [&] { std::ranges::for_each(low, close); };
    EXPECT_EQ(Do(user, FileFunction::Move, {here / "tree"}, there.Path(), NoConfirmation).Code, 0);
    EXPECT_EQ(user.Heard + here.Names(), heard + heard);
    EXPECT_TRUE(Get(there / "tree/large") == large && Get(there / "tree/small") == "small");
  });
  // The system tells of lost writes but once.
  here.Make({"tree/sub/file=x"});
  InChild([&] {
    Refuse(SYS_syncfs, EIO, {});
    user.Trouble = TroubleChoice::Retry;
    user.Repair = [&] {
      if (!user.Heard.empty()) _exit(1);
    };
    EXPECT_EQ(Do(user, FileFunction::Move, {here / "tree"}, there / "to").Code, EIO);
    EXPECT_NE(user.Heard, "");
    EXPECT_EQ(NamesBelow(here.Path()), "tree tree/sub tree/sub/file ");
  });
}

TEST(OperationFaults, OfFilesCopiedTogetherThoseInTroubleAreAskedAboutInTheirOrder) {
  EXPECT_TRUE(IsSeekFree(Descriptor(open(otherVolume.c_str(), O_PATH | O_CLOEXEC)).Get()));
  EXPECT_FALSE(IsSeekFree(Descriptor(open("/proc", O_PATH | O_CLOEXEC)).Get()));
  for (const FileFunction function : {FileFunction::Copy, FileFunction::Move}) {
    const TempFolder here;
    const TempFolder there(otherVolume);
    for (int at = 0; at < 600; ++at) {
      const std::string name = "tree/" + std::to_string(at);
      here.Make({name + "=" + std::string(static_cast<std::size_t>(at) + 1, 'a')});
      if (at % 200 == 0) fs::create_hard_link(here / name, here / (name + " again"));
    }
    here.Make({"tree/link->17", "tree/sub/b=b"});
    auto expected = Describe(here / "tree");
    // The folder tells the names in the order in which the files are taken.
    std::string trouble;
    for (const auto& entry : fs::directory_iterator(here / "tree")) {
      const std::string name = entry.path().filename();
      if (name.size() != 3 || name < "590" || name > "599") continue;
      trouble += name + ":" + std::to_string(EIO) + " ";
      expected.erase("/" + name);
    }
    InChild([&] {
      Refuse(SYS_pread64, EIO, {{2, 591}});
      ScriptedUser user;
      const OperationResult result = Do(user, function, {here / "tree"}, there.Path());
      EXPECT_EQ(result.Code, EIO);
      EXPECT_EQ(user.Heard, trouble);
      EXPECT_EQ(Describe(there / "tree"), expected);
      EXPECT_GT(Told(result, 0).size(), 0U);
      EXPECT_EQ(user.Last.ItemsDone, user.Last.ItemsTotal);
    });
  }
}

TEST(OperationFaults, AttributesThatAVolumeCannotKeep) {
  const TempFolder here;
  const TempFolder there(otherVolume);
  here.Make({"tree/a=a", "tree/b=b", "tree/plain=", "many=more of them than are told"});
  setxattr((here / "tree/a").c_str(), "user.tarnwell.color", "red", 3, 0);
  // Somebody named may do everything, the group nothing.
  const std::string list(
      "\2\0\0\0\1\0\7\0\xFF\xFF\xFF\xFF\2\0\7\0\xD2\4\0\0\4\0\0\0\xFF\xFF\xFF\xFF"
      "\20\0\7\0\xFF\xFF\xFF\xFF\40\0\0\0\xFF\xFF\xFF\xFF",
      44);
  ASSERT_EQ(
      setxattr((here / "tree/b").c_str(), "system.posix_acl_access", list.data(), list.size(), 0),
      0);
  struct : ScriptedUser {
    LossAnswer Answer;
    LossAnswer OnLoss(const std::string& path) override {
      Heard += NameOf(path) + " ";
      return Answer;
    }
  } user;
  InChild([&] {
    Refuse(SYS_fsetxattr, ENOTSUP, {});
    EXPECT_EQ(Do(user, FileFunction::Copy, {here / "tree"}, there / "copy").Code, 0);
    EXPECT_EQ(user.Heard, "");
    EXPECT_EQ(StatOf(there / "copy/b").st_mode & 077, 0U);
    EXPECT_EQ(Do(user, FileFunction::Move, {here / "tree"}, there.Path()).Code, ENOTSUP);
    EXPECT_EQ(NamesBelow(here / "tree"), "a b ");
    EXPECT_EQ(user.Heard.size(), 4U);
    user.Answer = {LossChoice::MoveAnyway, true};
    EXPECT_EQ(Do(user, FileFunction::Move, {here / "tree"}, there.Path()).Code, 0);
    EXPECT_EQ(user.Heard.size(), 6U);
    EXPECT_EQ(here.Names(), "many ");
  });
  InChild([&] {
    Refuse(SYS_flistxattr, E2BIG, {});
    EXPECT_EQ(Do(user, FileFunction::Move, {here / "many"}, there.Path()).Code, ENOTSUP);
    EXPECT_EQ(here.Names(), "many ");
  });
}

TEST(OperationFaults, AFolderTakesTheNameOfAFileWhereNamesCannotBeExchanged) {
  for (const FileFunction function : {FileFunction::Move, FileFunction::Copy}) {
    for (const bool fails : {false, true}) {
      const TempFolder here;
      here.Make({"from/item/sub/", "from/item/one=new", "to/item=old"});
      fs::create_hard_link(here / "from/item/one", here / "from/item/sub/two");
      const auto before = Describe(here / "from");
      InChild([&] {
        Refuse(SYS_renameat2, EINVAL, {{4, 2}});
        if (fails) Refuse(SYS_unlinkat, EIO, {});
        ScriptedUser user;
        user.Conflict.Choice = ConflictChoice::Replace;
        const OperationRequest request{function, here / "from/item" + '\0', here / "to/" + '\0'};
        RunOperation(request, user, here.Path(), copyThreads);
        // What cannot go is found again.
        const std::string aside = here / "to/item (being replaced)";
        const std::string record = here / "to/item" + '\0' + aside + '\0';
        EXPECT_EQ(Get(here / "aside.txt"), fails ? record : "");
        EXPECT_EQ(Get(aside), fails ? "old" : "");
        fs::remove(aside);
        EXPECT_TRUE((fails && function == FileFunction::Copy) || Describe(here / "to") == before);
      });
    }
  }
}

TEST(OperationFaults, TheRecordHoldsTheItemsOfOperationsSideBySide) {
  const TempFolder here;
  std::vector<std::jthread> threads;
  for (const std::string name : {"a", "b", "c", "d"}) {
    threads.emplace_back([&here, name] {
      const AsideRecord record(here.Path());
      record.Keep("/kept/" + name, "/kept/aside " + name);
      for (int time = 0; time < 5; ++time) {
        record.Keep("/" + name, "/aside " + name);
        record.Drop("/aside " + name);
      }
    });
  }
  threads.clear();
  const std::string content = Get(here / "aside.txt");
  std::set<std::string> paths;
  for (const std::string_view path : base::ItemList(content)) paths.emplace(path);
  EXPECT_EQ(paths.size(), 8U);
  EXPECT_TRUE(std::ranges::all_of(paths, [](auto& path) { return path.starts_with("/kept/"); }));
  for (const char* name : {"a", "b", "c", "d"}) {
    AsideRecord(here.Path()).Drop(std::string("/kept/aside ") + name);
  }
  EXPECT_EQ(here.Names(), "");
}

TEST(OperationFaults, MoreNestedFoldersThanFilesMayBeOpen) {
  const TempFolder here;
  here.Make({"top/"});
  Deepen(here / "top", 70, "sub");
  InChild([&] {
    const rlimit few{40, 40};
    setrlimit(RLIMIT_NOFILE, &few);
    ScriptedUser user;
    // No thread counts ahead: the sanitizers look at one by descriptors of their own.
    const int code = Do(user, FileFunction::Copy, {here / "top"}, here / "twin", Silent).Code;
    EXPECT_EQ(code, EMFILE);
    EXPECT_NE(SystemError(code).Reason.find("ulimit -n"), std::string::npos);
    EXPECT_TRUE(user.Heard.starts_with("sub:"));
  });
}

TEST(OperationFaults, WhatKilledRunsLeftIsSweptAndNothingElse) {
  const TempFolder here;
  here.Make({"to/tree/", "tree/file=x"});
  const std::string to = here / "to/";
  InChild([&] {
    TemporaryName name;
    ASSERT_EQ(name.Renew(), NoError);
    fs::create_directories(to + "tree/" + name.Text() + "/sub");
    ASSERT_EQ(name.Renew(), NoError);
    Put(to + name.Text(), "half");
    const std::string half = name.Text();
    Put(to + half.substr(0, half.size() - 4) + " (2).tmp", "copy that a user made");
  });
  TemporaryName own;
  ASSERT_EQ(own.Renew(), NoError);
  Put(to + own.Text(), "being written");
  TemporaryOwner other = TemporaryOwner::OfProcess();
  const std::uint64_t run = std::exchange(other.Run, other.Run ^ 1);
  EXPECT_FALSE(other.IsGone(0));  // it may live in another container
  other.Run = run ^ 1ULL << 63;
  EXPECT_FALSE(other.IsGone(std::time(nullptr)));
  EXPECT_EQ(other.IsGone(0), other.Machine != 0);  // of a run before this one
  other.Machine ^= 1;
  EXPECT_FALSE(other.IsGone(0));
  Put(to + ".tarnwell-" + other.Text() + "-0123456789abcdef.tmp", "machine of others");
  Put(to + ".tarnwell-notes.tmp", "no such name at all");
  ScriptedUser user;
  EXPECT_EQ(Do(user, FileFunction::Copy, {here / "tree"}, to).Code, 0);
  EXPECT_EQ(NamesBelow(here / "to/tree"), "file ");
  std::string kept;
  for (const auto& entry : fs::directory_iterator(to)) {
    if (entry.is_regular_file()) kept += Get(entry.path()).substr(0, 1);
  }
  std::ranges::sort(kept);
  EXPECT_EQ(kept, "bcmn");

  // A move takes along what a killed one held, and leaves what others are making.
  const TempFolder there(otherVolume);
  InChild([&] {
    const int tree = open((here / "tree").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    EXPECT_EQ((new HoldFolder(tree))->Take("file"), NoError);  // its end does not come
  });
  Put(here / "tree/" + own.Text(), "being written");
  EXPECT_EQ(Do(user, FileFunction::Move, {here / "tree"}, there.Path()).Code, EBUSY);
  EXPECT_EQ(NamesBelow(there.Path()), "tree tree/file ");
  EXPECT_EQ(NamesBelow(here / "tree"), std::string(own.Text()) + " ");
  EXPECT_EQ(user.Heard, std::string("remark:") + own.Text() + " ");
}

const std::vector<unsigned> pathCalls{SYS_statx, SYS_openat, SYS_readlinkat, SYS_renameat2,
                                      SYS_unlinkat};

TEST(OperationRaces, AMoveDeletesNothingThatTookThePlaceOfWhatItCopied) {
  for (const bool isLink : {true, false}) {
    bool swapped = true;
    for (int at = 1; swapped; ++at) {
      const TempFolder here;
      const TempFolder there(otherVolume);
      here.Make({isLink ? "item->nowhere" : "item=old", "other=mine"});
      swapped = false;
      int calls = 0;
      ScriptedUser user;
      RunMeddled(
          pathCalls,
          [&](const char* name) {
            if (name != std::string("item") || ++calls != at) return;
            swapped = true;
            fs::rename(here / "other", here / "item");
          },
          [&] { Do(user, FileFunction::Move, {here / "item"}, there / "item"); });
      if (IsSkipped()) return;
      const std::string now = swapped ? "item" : "other";
      EXPECT_TRUE(Get(here / now) == "mine" || Get(there / now) == "mine") << isLink << at;
      EXPECT_EQ(NamesBelow(here.Path()).find(".tarnwell"), std::string::npos) << isLink << at;
    }
  }
}

TEST(OperationRaces, NothingGivesWayButWhatTheUserGaveUp) {
  struct : ScriptedUser {
    int Conflicts = 0;
    ConflictAnswer OnConflict(const OperationConflict&) override {
      return {++Conflicts == 1 ? ConflictChoice::Replace : ConflictChoice::Skip, false};
    }
  } user;
  const std::vector<unsigned> calls{SYS_renameat2, SYS_renameat, SYS_linkat, SYS_unlinkat};
  int refused = 0;
  for (const FileFunction function : {FileFunction::Move, FileFunction::Copy}) {
    for (const char* item : {"item=new", "item->new", "item/in=new"}) {
      bool swapped = true;
      for (int at = 1; swapped; ++at) {
        const TempFolder here;
        here.Make({item, "to/item=old", "other=of another operation"});
        user.Conflicts = 0;
        swapped = false;
        int call = 0;
        RunMeddled(
            calls,
            [&](const char*) {
              std::error_code none;
              if (user.Conflicts != 1 || ++call != at) return;
              swapped = true;
              fs::rename(here / "other", here / "to/item", none);
            },
            [&] {
              const int code = Do(user, function, {here / "item"}, here / "to/").Code;
              if (code == EEXIST) ++refused;
            });
        if (IsSkipped()) return;
        const std::string other = "of another operation";
        EXPECT_TRUE(Get(here / "to/item") == other || Get(here / "other") == other) << item << at;
        EXPECT_EQ(NamesBelow(here.Path()).find(".tarnwell"), std::string::npos) << item << at;
      }
    }
  }
  EXPECT_GE(refused, 6);
}

TEST(OperationRaces, NothingIsCopiedIntoAFolderThatSomebodyPutInThePlaceOfANewOne) {
  if (geteuid() != 0) GTEST_SKIP() << "needs somebody else";
  const TempFolder here;
  here.Make({"files/secret=x", "files/private/", "folders/private/"});
  for (const char* tree : {"files", "folders"}) {
    const TempFolder there;
    std::string taken;
    ScriptedUser user;
    int code = 0;
    RunMeddled(
        {SYS_openat},
        [&](const char* name) {
          const std::string path = there / name;
          if (!taken.empty() || name[0] == '/' || there.Names() != std::string(name) + " ") return;
          fs::rename(path, there / "aside");
          fs::create_directory(taken = path);
          chown(path.c_str(), 65534, 65534);
        },
        [&] { code = Do(user, FileFunction::Copy, {here / tree}, there / tree).Code; });
    if (IsSkipped()) return;
    EXPECT_EQ(code, ESTALE);
    EXPECT_TRUE(!taken.empty() && fs::is_empty(taken)) << tree;
  }
}

TEST(OperationRaces, OneFolderUnderTwoMountsIsNoTargetForItself) {
  const TempFolder here;
  here.Make({"real/folder/empty/", "real/file=x", "real/link->file", "view/"});
  if (std::system(("bindfs '" + here / "real' '" + here / "view' 2>/dev/null").c_str()) != 0) {
    GTEST_SKIP() << "bindfs is not installed, or may not mount";
  }
  const auto before = Describe(here / "real");
  ScriptedUser user;
  user.Conflict = {ConflictChoice::Replace, true};
  for (const auto& [from, to] : {std::pair("view", "real/"), std::pair("real", "view/")}) {
    const std::string folder = here / from;
    EXPECT_EQ(Do(user, FileFunction::Move, {folder + "/file", folder + "/link", folder + "/folder"},
                 here / to)
                  .Code,
              EEXIST);
    EXPECT_EQ(Describe(here / "real"), before);
  }
  EXPECT_EQ(std::system(("umount '" + here / "view'").c_str()), 0);
}

}  // namespace
}  // namespace tarnwell::platform
