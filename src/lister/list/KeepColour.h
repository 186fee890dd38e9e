// Colour codes of items, kept with the items themselves.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

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

// Reads which colours items have, at the least cost where many of one folder follow each other.
class ColourReader {
 public:
  explicit ColourReader(const platform::FileSystem& files) : files_(files) {}
  // As the extended attribute has it, empty for none.
  base::Status Read(const std::string& path, std::string& text);

 private:
  const platform::FileSystem& files_;
  std::string folder_;
  std::unique_ptr<platform::OpenedFolder> opened_;
};

// Keeps the colour with the item of that path, Default takes it away. An item that has another one
// now comes to `changed`.
base::Status WriteColour(ListState& list, ColourReader& reader, const std::string& path,
                         ItemColour colour, std::vector<ColouredItem>& changed);
// The same for one item, and tells when it does not take the colour.
std::vector<ColouredItem> KeepColour(ListState& list, const std::string& path, ItemColour colour);

}  // namespace tarnwell::lister
