#include "workspace/PaneHistory.h"

#include <iterator>

namespace tarnwell::workspace {
namespace {

void EraseAt(PaneHistory& history, std::size_t place) {
  history.Folders.erase(std::next(history.Folders.begin(), static_cast<std::ptrdiff_t>(place)));
  if (place < history.Here) --history.Here;
}

}  // namespace

void Visit(PaneHistory& history, const std::string& folder) {
  std::vector<std::string>& folders = history.Folders;
  if (!folders.empty()) {
    if (folders[history.Here] == folder) return;
    folders.resize(history.Here + 1);
  }
  folders.push_back(folder);
  history.Here = folders.size() - 1;
  if (folders.size() > MostInHistory) EraseAt(history, 0);
}

void Forget(PaneHistory& history, std::size_t place) {
  EraseAt(history, place);
  // What stood on either side of it may be the same folder.
  const std::vector<std::string>& folders = history.Folders;
  const bool meet = place > 0 && place < folders.size() && folders[place] == folders[place - 1];
  if (meet) EraseAt(history, place == history.Here ? place - 1 : place);
}

}  // namespace tarnwell::workspace
