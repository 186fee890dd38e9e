// Gives items the colours back that they had.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "lister/rows/ItemColours.h"
#include "platform/FileSystem.h"

namespace tarnwell::fileops {

struct ColourOutcome {
  std::vector<lister::ColouredItem> Done;  // what goes back to this
  std::vector<lister::ColouredItem> Rest;  // not looked at any more, in their order
  // Of those left as they are, with the reason: a sentence for each of the first of them.
  std::vector<std::string> Left;
  std::size_t LeftCount = 0;
};

// An item that has got another colour since is left. `goesOn` is asked before each, with how many
// are done, and ends the work by false.
ColourOutcome RestoreColours(const std::vector<lister::ColouredItem>& items,
                             platform::FileSystem& files,
                             const std::function<bool(std::size_t done)>& goesOn);

}  // namespace tarnwell::fileops
