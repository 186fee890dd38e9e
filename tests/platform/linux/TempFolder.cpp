#include "TempFolder.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace tarnwell::platform {

TempFolder::TempFolder() : path_(testing::TempDir() + "tarnwell-XXXXXX") {
  if (mkdtemp(path_.data()) == nullptr || chmod(path_.c_str(), 0777) != 0) {
    throw std::filesystem::filesystem_error("no temporary folder", path_,
                                            {errno, std::generic_category()});
  }
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TempFolder::Names() const {
  std::set<std::string> sorted;
  for (const auto& entry : std::filesystem::directory_iterator(path_)) {
    sorted.insert(entry.path().filename().string());
  }
  std::string names;
  for (const std::string& name : sorted) names += name + " ";
  return names;
}

void Put(const std::string& path, const std::string& content, mode_t mode) {
  std::ofstream(path, std::ios::binary) << content;
  ASSERT_EQ(chmod(path.c_str(), mode), 0) << path;
}

std::string Get(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

int InChild(const std::function<int()>& check) {
  const pid_t child = fork();
  if (child == 0) {
    alarm(10);
    _exit(check());
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

void BecomeNobody() {
  if (geteuid() != 0) return;
  constexpr uid_t nobody = 65534;
  if (setgroups(0, nullptr) != 0 || setegid(nobody) != 0 || seteuid(nobody) != 0) _exit(99);
}

}  // namespace tarnwell::platform
