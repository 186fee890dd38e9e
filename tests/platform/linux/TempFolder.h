// A folder of its own on the real disk for each test, and a child process with fewer rights.
#pragma once

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Test.h"

namespace tarnwell::platform {

inline void Put(const std::string& path, const std::string& content, mode_t mode = 0644) {
  std::ofstream(path, std::ios::binary) << content;
  ASSERT_EQ(chmod(path.c_str(), mode), 0) << path;
}

inline std::filesystem::path PathOf(const std::string& path) {
  return path;
}

inline std::string Get(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

// Open to every user, and removed with all it holds.
class TempFolder {
 public:
  explicit TempFolder(const std::string& where = testing::TempDir())
      : path_(where + "tarnwell-XXXXXX") {
    if (mkdtemp(path_.data()) == nullptr || chmod(path_.c_str(), 0777) != 0) {
      throw std::system_error(errno, std::generic_category(), path_);
    }
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::string& Path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }
  // The names in the folder, sorted, each followed by a blank.
  std::string Names() const {
    std::set<std::string> sorted;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      sorted.insert(entry.path().filename().string());
    }
    std::string names;
    for (const std::string& name : sorted) names += name + " ";
    return names;
  }

  // Makes "folder/", "file=content", "link->target" and "fifo|", and the folders they are in.
  void Make(const std::vector<std::string>& items) const {
    for (const std::string& item : items) {
      const std::size_t content = item.find('='), target = item.find("->");
      const std::string path = *this / item.substr(0, std::min({content, target, item.find('|')}));
      std::filesystem::create_directories(std::filesystem::path(path).parent_path());
      if (content != item.npos) {
        Put(path, item.substr(content + 1));
      } else if (target != item.npos) {
        std::filesystem::create_symlink(item.substr(target + 2), path);
      } else if (item.ends_with('|')) {
        ASSERT_EQ(mkfifo(path.c_str(), 0644), 0) << path;
      }
    }
  }

 private:
  std::string path_;
};

inline struct stat StatOf(const std::string& path) {
  struct stat found {};
  EXPECT_EQ(lstat(path.c_str(), &found), 0) << path;
  return found;
}

constexpr int LacksRight = 77;  // what a child ends with where it may not do what it needs to

// Checks in a child process, which has ten seconds; what fails there fails the test.
inline void InChild(const std::function<void()>& check) {
  const pid_t child = fork();
  if (child == 0) {
    alarm(10);
    check();
    _exit(testing::Test::HasFailure() ? 1 : 0);
  }
  int status = 0;
  ASSERT_TRUE(child > 0 && waitpid(child, &status, 0) == child);
  if (WIFEXITED(status) && WEXITSTATUS(status) == LacksRight) GTEST_SKIP() << "needs more rights";
  EXPECT_EQ(status, 0) << "in the child process";
}

// Makes a folder in each folder, deeper than a path may be long. `each` makes what else is there.
inline void Deepen(
    const std::string& top, int depth, const std::string& name,
    const std::function<void(int folder)>& each = [](int) {}) {
  int folder = open(top.c_str(), O_PATH | O_DIRECTORY);
  for (int level = 0; level < depth; ++level) {
    each(folder);
    mkdirat(folder, name.c_str(), 0755);
    const int next = openat(folder, name.c_str(), O_PATH | O_DIRECTORY);
    ASSERT_GE(next, 0);
    close(folder);
    folder = next;
  }
  close(folder);
}

// In a child: gives up the rights of root, where there are any.
inline void BecomeNobody() {
  if (geteuid() != 0) return;
  constexpr uid_t nobody = 65534;
  if (setgroups(0, nullptr) != 0 || setegid(nobody) != 0 || seteuid(nobody) != 0) _exit(99);
}

}  // namespace tarnwell::platform
