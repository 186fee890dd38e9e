#include "lister/list/KeepColour.h"

#include "lister/rows/CellText.h"

namespace tarnwell::lister {

void ColourFailures::Add(const std::string& name, const base::Status& status) {
  if (count_++ > 0) return;
  first_ = "Cannot keep the colour of " + name + ": " + status.Reason;
}

void ColourFailures::Tell(ListState& list) const {
  if (count_ == 0 || list.IsTerminated) return;
  const std::string more =
      count_ > 1 ? " (and " + list.Services.Forms.Grouped(count_ - 1) + " more)" : "";
  list.Events.StatusMessage(list.Id, first_ + more);
}

base::Status WriteColour(ListState& list, const std::string& path, ItemColour colour) {
  const std::string_view word = ItemColours[static_cast<std::size_t>(colour)].Word;
  return list.Services.Files.WriteExtendedAttribute(
      path, platform::ExtendedAttribute::Colour,
      colour == ItemColour::Default ? "" : std::string(word));
}

void KeepColour(ListState& list, const std::string& path, ItemColour colour) {
  ColourFailures failures;
  const base::Status status = WriteColour(list, path, colour);
  if (!status) failures.Add(NameText(list.Syntax, path), status);
  failures.Tell(list);
}

}  // namespace tarnwell::lister
