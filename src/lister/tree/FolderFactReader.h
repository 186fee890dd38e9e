// Finds out what headings, order and colours want to know of the folders on show, in slices between
// the commands: while it lets messages through, commands run as they come.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "lister/list/FolderSizes.h"
#include "lister/tree/FolderListState.h"

namespace tarnwell::lister {

class FolderFactReader {
 public:
  FolderFactReader(FolderListState& folders, FolderSizes& sizes)
      : folders_(folders), tree_(folders.Tree), sizes_(sizes) {}

  // Reads what is wanted and not known yet. Does nothing inside itself: the outer call sees what
  // has changed meanwhile.
  void Run();

  // Whether the colours of the children are shown: by the switch, and up to the limit.
  bool ShowsColours(RowId branch) const;

 private:
  enum class Outcome { Done, Changed, Stopped };

  // The FactBits that the list has use for.
  std::uint8_t Wanted() const;
  Outcome FillAll(std::uint8_t wanted, Pacer& pace);
  // The children of the branch.
  Outcome Fill(RowId branch, std::uint8_t wanted, Pacer& pace);
  // The folder that holds the children of the branch; null if it cannot be opened.
  std::unique_ptr<platform::OpenedFolder> Open(RowId branch) const;
  // True when the row looks different now. `opened` holds the row, or is null.
  bool FillRow(RowId row, std::uint8_t wanted, const platform::OpenedFolder* opened);
  Outcome Pump(Pacer& pace);
  // Whether the user has stopped it.
  bool HeedCancel();

  FolderListState& folders_;
  FolderTree& tree_;
  FolderSizes& sizes_;
  bool running_ = false;
  bool again_ = false;    // the tree, or what is wanted of it, has changed in a run
  bool stopped_ = false;  // by the user, or for good
};

}  // namespace tarnwell::lister
