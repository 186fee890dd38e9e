#include "fileops/UndoColours.h"

#include "base/Status.h"
#include "lister/list/KeepColour.h"
#include "lister/rows/CellText.h"

namespace tarnwell::fileops {
namespace {

constexpr std::size_t MostLeft = 10;

base::Status GiveBack(const lister::ColouredItem& item, platform::FileSystem& files,
                      lister::ColourReader& reader) {
  std::string now;
  if (base::Status status = reader.Read(item.Path, now); !status) return status;
  if (now != item.After) return {.Code = -1, .Reason = "it has got another colour since"};
  return files.WriteExtendedAttribute(item.Path, platform::ExtendedAttribute::Colour, item.Before);
}

}  // namespace

ColourOutcome RestoreColours(const std::vector<lister::ColouredItem>& items,
                             platform::FileSystem& files,
                             const std::function<bool(std::size_t done)>& goesOn) {
  ColourOutcome outcome;
  lister::ColourReader reader(files);
  for (std::size_t at = 0; at < items.size(); ++at) {
    if (!goesOn(at)) {
      outcome.Rest.assign(items.begin() + static_cast<std::ptrdiff_t>(at), items.end());
      break;
    }
    const lister::ColouredItem& item = items[at];
    if (const base::Status status = GiveBack(item, files, reader); status) {
      outcome.Done.push_back({item.Path, item.After, item.Before});
    } else if (++outcome.LeftCount <= MostLeft) {
      outcome.Left.push_back(lister::NameText(files.Syntax(), item.Path) + ": " + status.Reason);
    }
  }
  return outcome;
}

}  // namespace tarnwell::fileops
