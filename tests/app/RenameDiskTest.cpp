#include <cstdlib>

#include "Test.h"
#include "base/ItemList.h"
#include "fileops/AsideItems.h"
#include "fileops/RenameTable.h"
#include "fileops/UndoRules.h"
#include "platform/linux/TempFolder.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/operation/RunOperation.h"
#include "platform/linux/system/LinuxClock.h"

namespace tarnwell::app {
namespace {

namespace fs = std::filesystem;
using Disk = std::map<std::string, std::string>;  // contents by paths
using Names = std::vector<std::string>;

struct RenameUser : platform::OperationUser {
  std::function<bool()> AtStep = [] { return true; };
  std::vector<std::string> Told;
  platform::TroubleChoice Answer = platform::TroubleChoice::Skip;
  void OnRemark(platform::OperationRemark, const std::string& path) override {
    Told.push_back(path);
  }
  bool GoesOn() override { return AtStep(); }
  platform::TroubleChoice OnTrouble(const platform::OperationTrouble& trouble) override {
    Told.push_back(trouble.Path + ": " + trouble.Reason.Reason);
    return Answer;
  }
};

class RenameOnDisk : public testing::Test {
 protected:
  RenameOnDisk() : files_(own_.Path()) {}

  // Folders and files that each know what they were once.
  void Make() {
    fs::remove_all(here_ / "top");
    fs::create_directory(here_ / "top");
    int number = 0;
    for (const std::string folder : {"top", "top/n0", "top/n0/n1"}) {
      for (int at = 0; at < 5; ++at) {
        const std::string path = here_ / (folder + "/n" + std::to_string(at));
        const bool isFolder = (folder == "top" && at < 2) || (folder == "top/n0" && at == 1);
        if (isFolder) {
          fs::create_directory(path);
          platform::Put(path + "/mark", std::to_string(++number));
        } else {
          platform::Put(path, std::to_string(++number));
        }
      }
    }
  }
  Disk Look() const {
    Disk disk;
    for (const auto& entry : fs::recursive_directory_iterator(here_ / "top")) {
      disk[entry.path()] = entry.is_directory() ? "/" : platform::Get(entry.path());
    }
    return disk;
  }
  std::size_t Pick(std::size_t count) { return random_() % count; }

  // Some of the items get the names of others, or new ones.
  fileops::RenameTable Wish() {
    std::vector<std::string> paths, names;
    for (const auto& [path, content] : Look()) {
      if (!path.ends_with("mark") && Pick(4) > 0) paths.push_back(path);
    }
    std::ranges::shuffle(paths, random_);
    for (const std::string& path : paths) names.push_back(path.substr(path.rfind('/') + 1));
    if (Pick(3) > 0) {
      for (std::string& name : names) name = "n" + std::to_string(Pick(7));
    } else {
      for (std::string& name : names) name = "n" + std::to_string((name.back() - '0' + 1) % 5);
    }
    fileops::RenameTable table(files_, clock_, paths);
    table.NameBy(names);
    // What clashes keeps its name, until nothing does.
    for (std::size_t left = paths.size(); table.FaultCount() > 0 && left > 0; --left) {
      for (std::size_t row = 0; row < table.Count(); ++row) {
        if (table.FaultOf(row) != fileops::RenameFault::None) names[row] = table[row].Name;
      }
      table.NameBy(names);
    }
    return table;
  }
  // By the wishes alone, each name by the folder that the item lay in.
  static Disk Expected(const Disk& before, const fileops::RenameTable& table) {
    std::map<std::string, std::string> names;
    for (std::size_t row = 0; row < table.Count(); ++row) {
      names[table[row].Folder + "/" + table[row].Name] = table[row].NewName;
    }
    Disk after;
    for (const auto& [path, content] : before) {
      std::string whole;
      for (std::size_t end = path.find('/', 1), start = 0; start != path.npos;
           start = end, end = path.find('/', end + 1)) {
        const auto name = names.find(path.substr(0, end));
        whole += name == names.end() ? path.substr(start, end - start) : "/" + name->second;
        if (end == path.npos) break;
      }
      after[whole] = content;
    }
    return after;
  }
  static platform::OperationRequest RequestOf(const std::vector<platform::PlacedItem>& steps) {
    platform::OperationRequest request{.Function = platform::FileFunction::Rename,
                                       .Items = {},
                                       .Destination = {},
                                       .Flags = platform::OwnTargets};
    for (const platform::PlacedItem& step : steps) {
      base::ItemList::Add(request.Items, step.From);
      base::ItemList::Add(request.Destination, step.To);
    }
    return request;
  }
  platform::OperationResult Run(const platform::OperationRequest& request) {
    return platform::RunOperation(request, user_, own_.Path());
  }

  platform::TempFolder here_{"/dev/shm/"}, own_{"/dev/shm/"};
  platform::LinuxFileSystem files_;
  platform::LinuxClock clock_;
  RenameUser user_;
  std::mt19937 random_{11};
};

// TARNWELL_RENAMES has it try more often.
TEST_F(RenameOnDisk, DoesAllOrNothingAndGoesBackAsAModelSays) {
  const char* const runs = getenv("TARNWELL_RENAMES");
  std::map<std::string, int> seen;
  for (int run = 0, most = runs == nullptr ? 300 : std::atoi(runs); run < most; ++run) {
    Make();
    const fileops::RenameTable table = Wish();
    const auto steps = table.Steps();
    if (steps.empty()) continue;
    Disk before = Look();
    Disk after = Expected(before, table);
    const std::size_t kind = Pick(4), at = Pick(steps.size());
    std::size_t asked = 0;
    user_.Told.clear();
    user_.AtStep = [] { return true; };
    if (kind == 1) user_.AtStep = [&] { return asked++ != at; };  // a cancel
    const std::string taken = steps[at].To;
    const bool blocks = kind == 2 && !fs::exists(taken);
    // Somebody takes a name that was free when it was looked at.
    if (blocks) platform::Put(before[taken] = taken, taken);
    const bool fails = kind == 1 || blocks;
    const platform::OperationResult done = Run(RequestOf(steps));
    ASSERT_EQ(Look(), fails ? before : after) << run;
    ASSERT_EQ(done.Code != 0, fails) << run;
    ASSERT_EQ(user_.Told.size(), blocks ? 1U : 0U) << run;
    ASSERT_FALSE(fs::exists(own_ / "aside.txt"));
    ++seen[fails ? "failed" : "done"];
    if (fails) {
      ASSERT_TRUE(done.Done.empty() && done.Placed.empty());
      continue;
    }
    fileops::UndoStep step{.Kind = platform::CommandKind::Rename, .Items = done.Done};
    for (const fileops::UndoWay way : {fileops::UndoWay::Undo, fileops::UndoWay::Redo}) {
      const auto back = fileops::InverseOf(step, way);
      ASSERT_EQ(back.size(), 1U);
      const platform::OperationResult undone = Run(back[0]);
      ASSERT_EQ(undone.Code, 0) << run;
      step = fileops::StepAfter(step, way, undone);
      ASSERT_EQ(Look(), way == fileops::UndoWay::Undo ? before : after) << run;
    }
  }
  EXPECT_TRUE(seen["failed"] > 50 && seen["done"] > 50);
}

// What others have done to items cannot be helped, but all the rest has its name back.
TEST_F(RenameOnDisk, LeavesWhatIsGoneAndTellsWhatKeepsItsNewName) {
  std::vector<std::string> paths;
  for (const std::string name : {"a", "b", "c", "d"}) {
    paths.push_back(here_ / name);
    platform::Put(paths.back(), name);
  }
  fileops::RenameTable table(files_, clock_, paths);
  table.NameBy(Names{"b", "c", "a", "e"});
  const auto done = Run(RequestOf(table.Steps()));
  fs::remove(here_ / "b");
  const auto back = fileops::InverseOf({.Kind = platform::CommandKind::Rename, .Items = done.Done},
                                       fileops::UndoWay::Undo);
  EXPECT_EQ(Run(back.at(0)).Done.size(), 3U);
  EXPECT_EQ(here_.Names(), "b c d ");
  EXPECT_EQ(platform::Get(paths[1]) + platform::Get(paths[2]), "bc");
  EXPECT_EQ(user_.Told, Names{here_ / "b"});

  user_.Told.clear();
  user_.Answer = platform::TroubleChoice::Retry;
  fileops::RenameTable two(files_, clock_, {paths[1], paths[2]});
  two.NameBy(Names{"x", "y"});
  user_.AtStep = [&, at = 0]() mutable {
    if (++at == 2) platform::Put(paths[1], "other"), platform::Put(here_ / "y", "other");
    return true;
  };
  const auto partly = Run(RequestOf(two.Steps()));
  EXPECT_TRUE(partly.Code != 0 && partly.Done.size() == 1);
  EXPECT_EQ(here_.Names(), "b c d x y ");
  EXPECT_EQ(user_.Told.size(), 2U);
  EXPECT_EQ(user_.Told.back(), paths[2] +
                                   ": It was to be called \"y\". There is an item of this "
                                   "name already.");
}

// Names go round in a circle; a child is killed between two steps.
TEST_F(RenameOnDisk, PutsBackWhatAKilledRunHasLeft) {
  const Names names{"a.x", "b", "c", "d"};
  for (std::size_t step = 0; step <= names.size(); ++step) {
    std::vector<std::string> paths;
    for (const std::string& name : names) {
      paths.push_back(here_ / name);
      platform::Put(paths.back(), name);
    }
    fileops::RenameTable table(files_, clock_, paths);
    table.NameBy(Names{"b", "c", "d", "a.x"});
    const auto steps = table.Steps();
    ASSERT_EQ(steps.size(), names.size() + 1);
    const pid_t child = fork();
    if (child == 0) {
      user_.AtStep = [&] { return step-- > 0 || (_exit(0), false); };
      Run(RequestOf(steps));
      _exit(1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    fileops::AsideItems items(files_, platform::Get(own_ / "aside.txt"));
    ASSERT_EQ(items.Found().size(), step == 0 ? 0U : 1U);
    EXPECT_EQ(items.CanGoBack(), step > 0);
    EXPECT_TRUE(items.GoBack().empty() && items.Away().empty());
    for (const std::string& name : names) EXPECT_EQ(platform::Get(here_ / name), name) << step;
    EXPECT_EQ(here_.Names(), "a.x b c d ");
    fs::remove(own_ / "aside.txt");
  }
}

}  // namespace
}  // namespace tarnwell::app
