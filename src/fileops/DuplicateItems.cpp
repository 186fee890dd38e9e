#include "fileops/DuplicateItems.h"

#include <cstdio>
#include <exception>
#include <utility>

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

platform::OperationId DuplicateCommand::DuplicateItems(const std::vector<std::string>& paths) {
  const forms::PointerScope pointer(host_);
  try {
    return paths.empty() ? platform::NoOperation : Start(paths);
  } catch (const std::exception&) {
    messenger_.Message("An unexpected error occurred while duplicating the items.",
                       forms::MessageKind::Ok);
    return platform::NoOperation;
  }
}

platform::OperationId DuplicateCommand::Start(const std::vector<std::string>& paths) {
  const std::string stamp = TimeStamp(clock_.ToLocal(clock_.Now()));
  platform::OperationOrder order;
  order.Kind = platform::CommandKind::Duplicate;
  std::vector<Item> items;
  items.reserve(paths.size());
  for (const std::string& path : paths) {
    const std::string copy = StampedPath(path, stamp);
    // A dot in a folder's name, with none in the item's, leads to a folder that is not there.
    const bool isAsked = files_.FolderExists(files_.Syntax().GetFolderPath(copy));
    items.push_back({path, isAsked});
    if (!isAsked) continue;
    order.Requests.push_back({.Function = platform::FileFunction::Copy,
                              .Items = base::ItemList::TextOf({path}),
                              .Destination = base::ItemList::TextOf({copy}),
                              .Flags = DuplicateFlags});
  }
  const platform::OperationId operation = platform_.Start(std::move(order));
  platform_.WhenDone(operation, [this, items = std::move(items)](const auto& result) {
    TellFailures(items, result.Codes);
  });
  return operation;
}

void DuplicateCommand::TellFailures(const std::vector<Item>& items, const std::vector<int>& codes) {
  std::string failures;
  std::size_t done = 0;
  for (const auto& [path, isAsked] : items) {
    if (isAsked && done == codes.size()) break;  // the user wanted no more of them
    if (!isAsked || codes[done++] != 0) failures += base::ForDisplay(path) + "\r\n";
  }
  if (failures.empty()) return;
  messenger_.Message("There was an error duplicating the following items:\r\n\r\n" + failures,
                     forms::MessageKind::Ok);
}

}  // namespace tarnwell::fileops
