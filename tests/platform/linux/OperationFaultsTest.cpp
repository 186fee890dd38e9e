// File operations where system calls fail, each in a child process whose calls are refused by the
// kernel itself, and where others get in their way.
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/fs.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <functional>
#include <future>
#include <thread>
#include <utility>
#include <vector>

#include "OperationFixture.h"
#include "platform/linux/operation/HoldFolder.h"
#include "platform/linux/posix/SystemError.h"
#include "platform/linux/posix/TemporaryName.h"
#include "platform/linux/system/LinuxTermination.h"

namespace tarnwell::platform {
namespace {

// Does the work on a thread of its own, where the kernel holds each of these system calls up until
// `meddle` has been told the second argument, for calls of the "at" family the name. False where
// the kernel does not do that.
bool RunMeddled(const std::vector<unsigned>& calls,
                const std::function<void(const char* name)>& meddle,
                const std::function<void()>& work) {
  std::promise<int> made;
  std::thread worker([&] {
    std::vector<sock_filter> steps{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    for (const unsigned call : calls) {
      steps.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1));
      steps.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF));
    }
    steps.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog program{static_cast<unsigned short>(steps.size()), steps.data()};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    const int heard = static_cast<int>(
        syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &program));
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
  return heard >= 0;
}

namespace fs = std::filesystem;

struct AtLeast {
  unsigned Argument;
  unsigned Value;
};

// From now on such a call fails with the error when all the conditions hold.
void Refuse(unsigned call, unsigned error, const std::vector<AtLeast>& conditions) {
  std::vector<sock_filter> steps{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
  const auto after = static_cast<unsigned char>(2 * conditions.size() + 1);
  steps.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, after));
  for (std::size_t at = 0; at < conditions.size(); ++at) {
    steps.push_back(BPF_STMT(
        BPF_LD | BPF_W | BPF_ABS,
        static_cast<unsigned>(offsetof(seccomp_data, args)) + 8 * conditions[at].Argument));
    const auto rest = static_cast<unsigned char>(2 * (conditions.size() - at) - 1);
    steps.push_back(BPF_JUMP(BPF_JMP | BPF_JGE | BPF_K, conditions[at].Value, 0, rest));
  }
  steps.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | error));
  steps.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  const sock_fprog program{static_cast<unsigned short>(steps.size()), steps.data()};
  if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
      prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) {
    _exit(77);
  }
}

#define EXPECT_HELD(code)                                    \
  if (const int held = (code); held == 77) {                 \
    GTEST_SKIP() << "needs the right to have calls refused"; \
  } else {                                                   \
    EXPECT_EQ(held, 0);                                      \
  }

TEST(OperationFaults, AReadErrorInTheMiddleOfAFile) {
  const TempFolder here;
  const TempFolder there(otherVolume);
  fs::create_directory(here / "tree");
  Put(here / "tree/large", std::string(1'000'000, 'L'));
  Put(here / "tree/small", "small");
  EXPECT_HELD(InChild([&] {
    // Files that get numbers beyond these cannot be read to their ends.
    std::vector<int> low;
    while (low.empty() || low.back() < 99) low.push_back(dup(0));
    Refuse(SYS_pread64, EIO, {{0, 100}, {3, 262'144}});
    Refuse(SYS_copy_file_range, ENOSYS, {});
    Refuse(SYS_ioctl, ENOTTY, {{1, FICLONE}});
    struct : ScriptedUser {
      std::function<void()> Repair;
      TroubleChoice OnTrouble(const OperationTrouble& trouble) override {
        if (trouble.Step != OperationStep::Read || trouble.Reason.Reason.empty()) _exit(1);
        if (Repair) Repair();
        return ScriptedUser::OnTrouble(trouble);
      }
    } user;
    const std::string heard = "large:" + std::to_string(EIO) + " ";
    const int code = Do(user, FileFunction::Move, {here / "tree"}, there.Path()).Code;
    if (code != EIO || user.Heard != heard) return 2;
    if (Get(here / "tree/large").size() != 1'000'000 || fs::exists(here / "tree/small")) return 3;
    if (Describe(there.Path()).size() != 2 || Get(there / "tree/small") != "small") return 4;
    user.Trouble = TroubleChoice::Retry;
    user.Repair = [&] {
      for (const int each : low) close(each);
    };
    if (Do(user, FileFunction::Move, {here / "tree"}, there.Path(), NoConfirmation).Code != 0) {
      return 5;
    }
    return user.Heard == heard + heard && here.Names().empty() &&
                   Get(there / "tree/large") == std::string(1'000'000, 'L')
               ? 0
               : 6;
  }));
}

TEST(OperationFaults, AttributesThatAVolumeCannotKeep) {
  const TempFolder here;
  const TempFolder there(otherVolume);
  fs::create_directory(here / "tree");
  for (const char* name : {"a", "b", "plain"}) Put(here / ("tree/") + name, name);
  setxattr((here / "tree/a").c_str(), "user.tarnwell.color", "red", 3, 0);
  // Somebody named may do everything, the group nothing.
  const std::string list(
      "\2\0\0\0\1\0\7\0\xFF\xFF\xFF\xFF\2\0\7\0\xD2\4\0\0\4\0\0\0\xFF\xFF\xFF\xFF"
      "\20\0\7\0\xFF\xFF\xFF\xFF\40\0\0\0\xFF\xFF\xFF\xFF",
      44);
  ASSERT_EQ(
      setxattr((here / "tree/b").c_str(), "system.posix_acl_access", list.data(), list.size(), 0),
      0);
  EXPECT_HELD(InChild([&] {
    Refuse(SYS_fsetxattr, ENOTSUP, {});
    struct : ScriptedUser {
      LossAnswer Answer;
      LossAnswer OnLoss(const std::string& path) override {
        Heard += NameOf(path) + " ";
        return Answer;
      }
    } user;
    if (Do(user, FileFunction::Copy, {here / "tree"}, there / "copy").Code != 0) return 1;
    if (!user.Heard.empty()) return 2;
    struct stat copy {};
    if (stat((there / "copy/b").c_str(), &copy) != 0 || (copy.st_mode & 077) != 0) return 3;
    if (Do(user, FileFunction::Move, {here / "tree"}, there.Path()).Code != ENOTSUP) return 4;
    if (!fs::exists(here / "tree/a") || !fs::exists(here / "tree/b")) return 5;
    if (user.Heard.size() != 4 || fs::exists(here / "tree/plain")) return 6;
    user.Answer = {LossChoice::MoveAnyway, true};
    const int code = Do(user, FileFunction::Move, {here / "tree"}, there.Path()).Code;
    return code == 0 && user.Heard.size() == 6 && here.Names().empty() ? 0 : 7;
  }));
  Put(here / "many", "more of them than are told");
  EXPECT_HELD(InChild([&] {
    Refuse(SYS_flistxattr, E2BIG, {});
    ScriptedUser user;
    const int code = Do(user, FileFunction::Move, {here / "many"}, there.Path()).Code;
    return code == ENOTSUP && fs::exists(here / "many") ? 0 : 1;
  }));
}

TEST(OperationFaults, AFolderTakesTheNameOfAFileWhereNamesCannotBeExchanged) {
  for (const bool exchanges : {true, false}) {
    for (const FileFunction function : {FileFunction::Move, FileFunction::Copy}) {
      const TempFolder here;
      fs::create_directories(here / "from/item/sub");
      fs::create_directory(here / "to");
      Put(here / "to/item", "old");
      Put(here / "from/item/one", "new");
      fs::create_hard_link(here / "from/item/one", here / "from/item/sub/two");
      const auto before = Describe(here / "from");
      EXPECT_HELD(InChild([&] {
        if (!exchanges) Refuse(SYS_renameat2, EINVAL, {{4, 2}});
        ScriptedUser user;
        user.Conflict.Choice = ConflictChoice::Replace;
        if (Do(user, function, {here / "from/item"}, here / "to/").Code != 0) return 1;
        return Describe(here / "to") == before ? 0 : 2;
      }));
    }
  }
}

TEST(OperationFaults, WhatIsReplacedIsFoundAgainWhereverThatEnds) {
  const TempFolder here;
  fs::create_directories(here / "item/sub");
  fs::create_directory(here / "to");
  Put(here / "to/item", "old");
  EXPECT_HELD(InChild([&] {
    Refuse(SYS_renameat2, EINVAL, {{4, 2}});
    Refuse(SYS_unlinkat, EIO, {});
    ScriptedUser user;
    user.Conflict.Choice = ConflictChoice::Replace;
    OperationRequest request{FileFunction::Move, here / "item" + '\0', here / "to/" + '\0'};
    RunOperation(request, user, here.Path());
    const std::string aside = here / "to/item (being replaced)";
    if (Get(here / "aside.txt") != here / "to/item" + '\0' + aside + '\0') return 1;
    return Get(aside) == "old" && fs::exists(here / "to/item/sub") ? 0 : 2;
  }));
}

TEST(OperationFaults, AFailingLookAtTheTargetIsTold) {
  const TempFolder here;
  fs::create_directory(here / "to");
  Put(here / "file", "x");
  EXPECT_HELD(InChild([&] {
    struct : ScriptedUser {
      TroubleChoice OnTrouble(const OperationTrouble& trouble) override {
        Heard += trouble.Path + ":" + std::to_string(trouble.Reason.Code);
        return TroubleChoice::Skip;
      }
    } user;
    user.Meanwhile = [&] {
      if (user.Asked != 1) return;
      unsigned target = 0;  // the last number under which that folder is open
      for (unsigned number = 0; number < 99; ++number) {
        std::error_code none;
        const fs::path open = fs::read_symlink("/proc/self/fd/" + std::to_string(number), none);
        if (open == here / "to") target = number;
      }
      Refuse(SYS_statx, EIO, {{0, target}});
    };
    if (Do(user, FileFunction::Copy, {here / "file"}, here / "to/").Code != EIO) return 1;
    return user.Heard == here / "to/file:" + std::to_string(EIO) ? 0 : 2;
  }));
}

TEST(OperationFaults, AFileThatMayNotGrowAnyFurther) {
  const TempFolder here;
  fs::create_directory(here / "to");
  Put(here / "file", std::string(2'000'000, 'x'));
  EXPECT_EQ(InChild([&] {
              OutliveFailedWrites();
              const rlimit limit{1'000'000, 1'000'000};
              setrlimit(RLIMIT_FSIZE, &limit);
              ScriptedUser user;
              const int code = Do(user, FileFunction::Move, {here / "file"}, here / "to/file").Code;
              if (code != 0) return 1;  // a rename needs no room
              const int grown = Do(user, FileFunction::Copy, {here / "to"}, here / "twin").Code;
              return grown == EFBIG && NamesBelow(here.Path()) == "to to/file twin " ? 0 : 2;
            }),
            0);
}

TEST(OperationFaults, MoreNestedFoldersThanFilesMayBeOpen) {
  const TempFolder here;
  std::string deep = here / "top";
  for (int level = 0; level < 70; ++level) deep += "/sub";
  fs::create_directories(deep);
  EXPECT_EQ(InChild([&] {
              const rlimit few{40, 40};
              setrlimit(RLIMIT_NOFILE, &few);
              ScriptedUser user;
              const base::Status end =
                  SystemError(Do(user, FileFunction::Copy, {here / "top"}, here / "twin").Code);
              if (end.Code != EMFILE || end.Reason.find("ulimit -n") == std::string::npos) return 1;
              return user.Heard.starts_with("sub:") ? 0 : 2;
            }),
            0);
}

TEST(OperationFaults, WhatKilledRunsLeftIsSweptAndNothingElse) {
  const TempFolder here;
  fs::create_directories(here / "to/tree");
  fs::create_directory(here / "tree");
  Put(here / "tree/file", "x");
  const std::string to = here / "to/";
  ASSERT_EQ(InChild([&] {
              TemporaryName name;
              if (name.Renew() != NoError) return 1;
              fs::create_directories(to + "tree/" + name.Text() + "/sub");
              if (name.Renew() != NoError) return 1;
              Put(to + name.Text(), "half");
              const std::string half = name.Text();
              Put(to + half.substr(0, half.size() - 4) + " (2).tmp", "copy that a user made");
              return 0;
            }),
            0);
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
}

const std::vector<unsigned> pathCalls{SYS_statx, SYS_openat, SYS_readlinkat, SYS_renameat2,
                                      SYS_unlinkat};

TEST(OperationRaces, AMoveDeletesNothingThatTookThePlaceOfWhatItCopied) {
  for (const bool isLink : {true, false}) {
    bool swapped = true;
    for (int at = 1; swapped; ++at) {
      const TempFolder here;
      const TempFolder there(otherVolume);
      isLink ? fs::create_symlink("nowhere", here / "item") : Put(here / "item", "old");
      Put(here / "other", "mine");
      swapped = false;
      int calls = 0;
      ScriptedUser user;
      const bool held = RunMeddled(
          pathCalls,
          [&](const char* name) {
            if (name != std::string("item") || ++calls != at) return;
            swapped = true;
            fs::rename(here / "other", here / "item");
          },
          [&] { Do(user, FileFunction::Move, {here / "item"}, there / "item"); });
      if (!held) GTEST_SKIP() << "needs the right to hold calls up";
      const std::string now = swapped ? "item" : "other";
      EXPECT_TRUE(Get(here / now) == "mine" || Get(there / now) == "mine") << isLink << at;
      EXPECT_EQ(NamesBelow(here.Path()).find(".tarnwell"), std::string::npos) << isLink << at;
    }
  }
}

TEST(OperationRaces, NothingIsCopiedIntoAFolderThatSomebodyPutInThePlaceOfANewOne) {
  if (geteuid() != 0) GTEST_SKIP() << "needs somebody else";
  const TempFolder here;
  for (const char* tree : {"files", "folders"}) fs::create_directories(here / tree + "/private");
  Put(here / "files/secret", "x");
  for (const char* tree : {"files", "folders"}) {
    const TempFolder there;
    std::string taken;
    ScriptedUser user;
    int code = 0;
    const bool held = RunMeddled(
        {SYS_openat},
        [&](const char* name) {
          const std::string path = there / name;
          if (!taken.empty() || name[0] == '/' || there.Names() != std::string(name) + " ") return;
          fs::rename(path, there / "aside");
          fs::create_directory(taken = path);
          chown(path.c_str(), 65534, 65534);
        },
        [&] { code = Do(user, FileFunction::Copy, {here / tree}, there / tree).Code; });
    if (!held) GTEST_SKIP() << "needs the right to hold calls up";
    EXPECT_EQ(code, ESTALE);
    EXPECT_TRUE(!taken.empty() && fs::is_empty(taken)) << tree;
  }
}

TEST(OperationRaces, OneFolderUnderTwoMountsIsNoTargetForItself) {
  const TempFolder here;
  fs::create_directories(here / "real/folder/empty");
  fs::create_directory(here / "view");
  Put(here / "real/file", "x");
  fs::create_symlink("file", here / "real/link");
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

TEST(OperationRaces, WhatOthersAreMakingIsLeftAndWhatKilledMovesHeldComesBack) {
  const TempFolder here;
  const TempFolder there(otherVolume);
  fs::create_directory(here / "tree");
  Put(here / "tree/held", "x");
  ASSERT_EQ(InChild([&] {
              const int tree = open((here / "tree").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
              return (new HoldFolder(tree))->Take("held").Value();  // its end does not come
            }),
            0);
  TemporaryName name;
  ASSERT_EQ(name.Renew(), NoError);
  Put(here / "tree/" + name.Text(), "being written");
  ScriptedUser user;
  EXPECT_EQ(Do(user, FileFunction::Move, {here / "tree"}, there.Path()).Code, EBUSY);
  EXPECT_EQ(NamesBelow(there.Path()), "tree tree/held ");
  EXPECT_EQ(NamesBelow(here.Path()), std::string("tree tree/") + name.Text() + " ");
  EXPECT_EQ(user.Heard, std::string("remark:") + name.Text() + " ");
}

}  // namespace
}  // namespace tarnwell::platform
