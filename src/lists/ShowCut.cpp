#include "lists/ShowCut.h"

namespace tarnwell::lists {

void ShowCut(workspace::Workspace& workspace, const std::string& items) {
  workspace.Cut.Take(items);
  workspace.ForEachList([](lister::ListerControl& list) { list.RedrawList(); });
}

}  // namespace tarnwell::lists
