#include "fileops/DuplicateItems.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <iterator>

#include "base/ItemList.h"
#include "base/Text.h"
#include "forms/PointerScope.h"

namespace tarnwell::fileops {
namespace {

// 1664: files by patterns alone, no question for new folders, and no windows for errors, which come
// back as the result.
constexpr std::uint16_t DuplicateFlags =
    platform::FilesOnly | platform::NoConfirmNewFolder | platform::NoErrorWindows;

}  // namespace

std::string TimeStamp(const platform::LocalTime& time) {
  char text[48];
  std::snprintf(text, sizeof text, "%02d%02d%02d-%02d%02d%02d", time.Year % 100, time.Month,
                time.Day, time.Hour, time.Minute, time.Second);
  return text;
}

std::string StampedPath(std::string_view path, std::string_view stamp) {
  std::string stamped(path);
  const std::size_t dot = path.rfind('.');
  stamped.insert(dot == std::string_view::npos ? path.size() : dot, stamp);
  return stamped;
}

std::vector<platform::PlacedItem> DuplicateCommand::DuplicateItems(
    const std::vector<std::string>& paths) {
  std::vector<platform::PlacedItem> placed;
  const forms::PointerScope pointer(host_);
  try {
    const std::string stamp = TimeStamp(clock_.ToLocal(clock_.Now()));
    std::string failures;
    for (const std::string& path : paths) {
      platform::OperationResult result = Duplicate(path, StampedPath(path, stamp));
      std::ranges::move(result.Placed, std::back_inserter(placed));
      if (result.Code != 0) failures += base::ForDisplay(path) + "\r\n";
      if (result.Aborted) break;  // the user wants no more of them
    }
    if (failures.empty()) return placed;
    messenger_.Message("There was an error duplicating the following items:\r\n\r\n" + failures,
                       forms::MessageKind::Ok);
  } catch (const std::exception&) {
    messenger_.Message("An unexpected error occurred while duplicating the items.",
                       forms::MessageKind::Ok);
  }
  return placed;
}

platform::OperationResult DuplicateCommand::Duplicate(const std::string& path,
                                                      const std::string& copy) {
  // A dot in a folder's name, with none in the item's, leads to a folder that is not there.
  const std::string folder = files_.Syntax().GetFolderPath(copy);
  if (!files_.FolderExists(folder)) return {.Code = -1};
  return platform_.Run({.Function = platform::FileFunction::Copy,
                        .Items = base::ItemList::TextOf({path}),
                        .Destination = base::ItemList::TextOf({copy}),
                        .Flags = DuplicateFlags});
}

}  // namespace tarnwell::fileops
