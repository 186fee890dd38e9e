// The way of a walk down a tree of folders, depth first.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/linux/posix/FolderChain.h"
#include "platform/linux/posix/NameList.h"

namespace tarnwell::platform {

// Holds the folders from the first to the one at hand, the path of that, a `Level` for each, which
// is whatever the walker keeps of it, and the names that are still to be taken in each. The walker
// opens and reads the folders: where that follows no link, items that are moved or swapped for
// links during the walk lead nowhere else. Depth and length of the paths have no limit.
template <typename Level>
class TreeWalk {
 public:
  // Puts a name on the list of those that are to be taken in the folder at hand. Those that come
  // after a mark can be made the names of the folder that is entered next, or forgotten.
  void Add(const char* name) { names_.Add(name); }
  std::size_t Mark() const { return names_.Size(); }
  void ForgetFrom(std::size_t mark) { names_.Cut(mark); }
  // Those of the folder at hand.
  void ForgetNames() { names_.Cut(steps_.back().FirstName); }

  // Goes down into a folder, which has the names from the mark on. `name` is the one that it has in
  // the folder at hand, and the full path of the first.
  void Enter(Descriptor folder, const ItemIdentity& self, std::string_view name, std::size_t mark,
             Level level) {
    if (!IsEmpty() && !path_.ends_with('/')) path_ += '/';
    path_ += name;
    folders_.Enter(std::move(folder), self);
    steps_.push_back({std::move(level), mark, path_.size()});
  }
  // Goes back up, and forgets the names that were not taken.
  Level Leave() {
    ForgetNames();
    Level left = std::move(steps_.back().Kept);
    steps_.pop_back();
    folders_.Leave();
    path_.resize(IsEmpty() ? 0 : steps_.back().PathLength);
    return left;
  }

  // Calls `take` with each name, which may enter that folder, as long as `goesOn` gives true, and
  // `leave`, which has to Leave, for each folder where nothing is left to be taken. Ends when the
  // way is as long as `depth`.
  template <typename GoesOn, typename Take, typename LeaveFolder>
  void Run(std::size_t depth, GoesOn goesOn, Take take, LeaveFolder leave) {
    while (Depth() > depth) {
      if (names_.Size() > steps_.back().FirstName && goesOn()) {
        take(names_.TakeLast());
      } else {
        leave();
      }
    }
  }

  bool IsEmpty() const { return steps_.empty(); }
  std::size_t Depth() const { return steps_.size(); }
  // Of the folder at the depth, counted from 0 for the first.
  Level& At(std::size_t depth) { return steps_[depth].Kept; }
  const Level& At(std::size_t depth) const { return steps_[depth].Kept; }

  // Of the folder at hand.
  Level& Here() { return steps_.back().Kept; }
  const Level& Here() const { return steps_.back().Kept; }
  int Folder() const { return folders_.Get(); }  // -1 if the way back to it was lost
  const ItemIdentity& Self() const { return folders_.Self(); }
  const std::string& Path() const { return path_; }
  std::string Name() const { return path_.substr(path_.rfind('/') + 1); }
  std::string PathOf(std::string_view name) const {
    std::string path = path_;
    if (!path.ends_with('/')) path += '/';
    return path.append(name);
  }

 private:
  struct Step {
    Level Kept;
    std::size_t FirstName = 0;   // where its names begin
    std::size_t PathLength = 0;  // of its own path
  };

  FolderChain folders_;
  std::vector<Step> steps_;
  NameList names_;
  std::string path_;
};

}  // namespace tarnwell::platform
