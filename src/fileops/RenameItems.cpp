#include "fileops/RenameItems.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "base/ItemList.h"
#include "fileops/frmRenameItems.h"
#include "forms/PointerScope.h"
#include "lists/ShowPlaced.h"
#include "lists/WatchPanes.h"
#include "platform/CountedTexts.h"

namespace tarnwell::fileops {

std::vector<std::string> RenameItemsCommand::Selected() const {
  std::vector<std::string> paths;
  lister::ListerControl* const list = workspace_.Lists.Find(workspace_.CurrentList);
  if (list == nullptr) return paths;
  list->FirstSelected();
  for (const std::string_view path : base::ItemList(list->ActiveItemName())) {
    paths.emplace_back(path);
  }
  return paths;
}

void RenameItemsCommand::RenameSelected() {
  const lister::ListId id = workspace_.CurrentList;
  lister::ListerControl* const list = workspace_.Lists.Find(id);
  if (list == nullptr) return;
  std::size_t changes = 0;
  const std::vector<platform::PlacedItem> steps = Ask(Selected(), changes);
  if (steps.empty()) return;
  lists::WatchBracket watches(workspace_, [this] { lists::WatchResumePanesAll(workspace_); });
  const lists::CursorMark mark = lists::MarkCursor(workspace_, id);
  watches.EndAfter(services_.Operations, Start(steps, changes),
                   [this, id, mark](const platform::OperationResult& result) {
                     const bool stands = lists::StandsAt(workspace_, mark);
                     if (auto* const shown = workspace_.Lists.Find(id)) shown->RefreshList();
                     if (stands) lists::ShowPlaced(workspace_, id, result.Placed);
                   });
}

namespace {

bool AreSameInAnyOrder(std::vector<std::string> left, std::vector<std::string> right) {
  std::ranges::sort(left);
  std::ranges::sort(right);
  return left == right;
}

}  // namespace

// A menu has the clicked item first. Counters count as the list shows the items.
platform::OperationId RenameItemsCommand::RenameItems(std::vector<std::string> paths) {
  const std::vector<std::string> selected = Selected();
  if (AreSameInAnyOrder(selected, paths)) paths = selected;
  std::size_t changes = 0;
  const std::vector<platform::PlacedItem> steps = Ask(paths, changes);
  return steps.empty() ? platform::NoOperation : Start(steps, changes);
}

std::vector<platform::PlacedItem> RenameItemsCommand::Ask(const std::vector<std::string>& paths,
                                                          std::size_t& changes) {
  lister::ListerControl* const list = workspace_.Lists.Find(workspace_.CurrentList);
  if (list == nullptr) return {};
  if (paths.size() < 2) {
    list->ShowStatus("Select two or more items to rename them together; F2 renames one");
    return {};
  }
  const std::string refusal =
      services_.Operations.Refusal(platform::FileFunction::Rename, base::ItemList::TextOf(paths));
  if (!refusal.empty()) {
    services_.Messages.Message(refusal, forms::MessageKind::Ok);
    return {};
  }
  std::optional<RenameTable> table;
  {
    const forms::PointerScope pointer(services_.Host);
    table.emplace(services_.Files, services_.Clock, paths);
  }
  frmRenameItems form(services_.Host, *table, {services_.Forms, services_.Clock, services_.Regex});
  services_.Host.Open(form);
  form.Ask(workspace_.Form);
  if (form.Result != RenameAnswer) return {};
  changes = table->ChangeCount();
  return table->Steps();
}

platform::OperationId RenameItemsCommand::Start(const std::vector<platform::PlacedItem>& steps,
                                                std::size_t changes) {
  platform::OperationRequest request{.Function = platform::FileFunction::Rename,
                                     .Items = {},
                                     .Destination = {},
                                     .Flags = platform::OwnTargets};
  for (const platform::PlacedItem& step : steps) {
    base::ItemList::Add(request.Items, step.From);
    base::ItemList::Add(request.Destination, step.To);
  }
  return services_.Operations.Start(
      {.Kind = platform::CommandKind::Rename,
       .Requests = {std::move(request)},
       .Title = platform::Counted(services_.Forms, platform::CountedText::Renaming, changes)});
}

}  // namespace tarnwell::fileops
