// Folders that other copies of the program ask this one to open. They wait while it starts, and
// while the user is in the middle of something that goes by what the panes show.
#pragma once

#include <QTimer>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace tarnwell::ui {

class FolderRequests {
 public:
  using Folders = std::vector<std::string>;

  // Neither is called from Add. `mayOpen` says whether what is neither a modal window nor a
  // menu lets folders be opened.
  FolderRequests(std::function<bool()> mayOpen, std::function<void(const Folders&)> open);

  void Add(const Folders& folders);
  // What waits is not opened any more.
  void Drop();

 private:
  void Look();

  std::function<bool()> mayOpen_;
  std::function<void(const Folders&)> open_;
  std::deque<Folders> waiting_;
  QTimer timer_;
};

}  // namespace tarnwell::ui
