#include "lister/list/KeepColour.h"

#include <utility>

#include "lister/rows/CellText.h"
#include "platform/CountedTexts.h"

namespace tarnwell::lister {

void ColourFailures::Add(const std::string& name, const base::Status& status) {
  if (count_++ > 0) return;
  first_ = "Cannot keep the colour of " + name + ": " + status.Reason;
}

void ColourFailures::Tell(ListState& list) const {
  if (count_ == 0 || list.IsTerminated) return;
  list.Events.StatusMessage(
      list.Id, count_ == 1 ? first_
                           : platform::Counted(list.Services.Forms, platform::CountedText::WithMore,
                                               count_ - 1, {first_}));
}

base::Status ColourReader::Read(const std::string& path, std::string& text) {
  const base::PathSyntax& syntax = files_.Syntax();
  const std::string folder = syntax.ParentOf(path);
  if (opened_ == nullptr || folder != folder_) {
    base::Status status;
    opened_ = files_.OpenFolder(folder, status);
    folder_ = folder;
    if (opened_ == nullptr) return status;
  }
  const bool isRoot = syntax.Same(path, folder);
  return opened_->ReadExtendedAttribute(isRoot ? "" : syntax.LastComponent(path),
                                        platform::ExtendedAttribute::Colour, text);
}

base::Status WriteColour(ListState& list, ColourReader& reader, const std::string& path,
                         ItemColour colour, std::vector<ColouredItem>& changed) {
  const std::string_view word = ItemColours[static_cast<std::size_t>(colour)].Word;
  std::string after(colour == ItemColour::Default ? "" : word);
  std::string before;
  const bool isKnown = static_cast<bool>(reader.Read(path, before));
  base::Status status =
      list.Services.Files.WriteExtendedAttribute(path, platform::ExtendedAttribute::Colour, after);
  if (status && isKnown && before != after)
    changed.push_back({path, std::move(before), std::move(after)});
  return status;
}

std::vector<ColouredItem> KeepColour(ListState& list, const std::string& path, ItemColour colour) {
  std::vector<ColouredItem> changed;
  ColourReader reader(list.Services.Files);
  ColourFailures failures;
  const base::Status status = WriteColour(list, reader, path, colour, changed);
  if (!status) failures.Add(NameText(list.Syntax, path), status);
  failures.Tell(list);
  return changed;
}

}  // namespace tarnwell::lister
