// What no operation takes away.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "platform/FileOperation.h"
#include "platform/win32/files/ItemHandle.h"

namespace tarnwell::platform {

// The root of every drive and share, what a volume is mounted on, the home folder, the folders of
// the system and of the program's own files, and whatever holds one of them or leads there. They
// are told by what they are and not by their paths, so that no link and no drive that stands for a
// folder is a way round. Reads nothing until it is asked, and knows from then on what it has read.
class ProtectedItems {
 public:
  // A full path; empty for none.
  explicit ProtectedItems(std::string programFolder) : programFolder_(std::move(programFolder)) {}

  // Why the function may not take one of the items away, as a sentence for people; empty where it
  // may. They are full paths, each ended by a NUL, of which a copy takes none away. Looks at no
  // item in a folder that holds none of the kind.
  std::string Refusal(FileFunction function, const std::string& items);

 private:
  // The first that fits is told.
  enum class Kind {
    Root,
    Home,
    System,
    Program,
    Mount,
    HoldsHome,
    HoldsSystem,
    HoldsProgram,
    HoldsMount
  };

  struct Found {
    std::unordered_map<ItemIdentity, Kind, HashItemIdentity> Items;
    std::unordered_set<ItemIdentity, HashItemIdentity> Folders;  // that they lie in

    // Takes the item of the path as one of the kind, and all on the way there as its holders.
    void TakeWay(std::string path, Kind kind, Kind holder);
  };

  const Found& Read();
  static std::string Sentence(Kind kind, FileFunction function);

  std::string programFolder_;
  std::optional<Found> found_;
};

}  // namespace tarnwell::platform
