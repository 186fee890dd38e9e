// A folder of its own on the real disk for each test, and a child process with fewer rights.
#pragma once

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <sstream>
#include <system_error>

namespace tarnwell::platform {

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

 private:
  std::string path_;
};

inline void Put(const std::string& path, const std::string& content, mode_t mode = 0644) {
  std::ofstream(path, std::ios::binary) << content;
  ASSERT_EQ(chmod(path.c_str(), mode), 0) << path;
}

inline std::string Get(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

// Runs the check in a child process and gives what it gave; -1 if the child did not end by itself
// within ten seconds.
inline int InChild(const std::function<int()>& check) {
  const pid_t child = fork();
  if (child == 0) {
    alarm(10);
    _exit(check());
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

// In a child: gives up the rights of root, where there are any.
inline void BecomeNobody() {
  if (geteuid() != 0) return;
  constexpr uid_t nobody = 65534;
  if (setgroups(0, nullptr) != 0 || setegid(nobody) != 0 || seteuid(nobody) != 0) _exit(99);
}

}  // namespace tarnwell::platform
