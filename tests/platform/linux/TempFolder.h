// A folder of its own on the real disk for each test, and a child process with fewer rights.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>

namespace tarnwell::platform {

// Open to every user, and removed with all it holds.
class TempFolder {
 public:
  TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder();

  const std::string& Path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }
  // The names in the folder, sorted, each followed by a blank.
  std::string Names() const;

 private:
  std::string path_;
};

void Put(const std::string& path, const std::string& content, mode_t mode = 0644);
std::string Get(const std::string& path);

// Runs the check in a child process and gives what it gave; -1 if the child did not end by itself
// within ten seconds.
int InChild(const std::function<int()>& check);

// In a child: gives up the rights of root, where there are any.
void BecomeNobody();

}  // namespace tarnwell::platform
