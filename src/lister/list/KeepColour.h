// Colour codes of items, kept with the items themselves.
#pragma once

#include <cstdint>
#include <string>

#include "base/Status.h"
#include "lister/list/ListBody.h"
#include "lister/rows/ItemColours.h"

namespace tarnwell::lister {

// Gathers which items did not take their colour, to tell it at once.
class ColourFailures {
 public:
  void Add(const std::string& name, const base::Status& status);
  // By one StatusMessage; nothing if all went well.
  void Tell(ListState& list) const;

 private:
  std::uint64_t count_ = 0;
  std::string first_;
};

// Keeps the colour with the item of that path, Default takes it away.
base::Status WriteColour(ListState& list, const std::string& path, ItemColour colour);
// The same, and tells when the item does not take it.
void KeepColour(ListState& list, const std::string& path, ItemColour colour);

}  // namespace tarnwell::lister
