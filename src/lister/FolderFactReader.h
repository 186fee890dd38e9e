// Finds out what headings, order and colours want to know of the folders on show, in slices between
// the commands: while it lets messages through, commands run as they come.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "lister/FolderListState.h"

namespace tarnwell::lister {

class FolderFactReader {
 public:
  explicit FolderFactReader(FolderListState& folders) : folders_(folders), tree_(folders.Tree) {}

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
  // True when the row looks different now. `opened` holds the row; null if it cannot be opened.
  bool FillRow(RowId row, std::uint8_t wanted, const platform::OpenedFolder* opened);
  Outcome Pump(Pacer& pace);

  FolderListState& folders_;
  FolderTree& tree_;
  bool running_ = false;
  bool again_ = false;  // the tree, or what is wanted of it, has changed in a run
};

}  // namespace tarnwell::lister
