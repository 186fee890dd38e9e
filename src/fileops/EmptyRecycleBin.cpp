#include "fileops/EmptyRecycleBin.h"

#include <cstdint>
#include <exception>
#include <memory>
#include <stdexcept>
#include <unordered_map>
#include <utility>
#include <vector>

#include "fileops/TrashRequests.h"
#include "forms/PointerScope.h"
#include "lists/WatchPanes.h"

namespace tarnwell::fileops {
namespace {

// All that a trash tells of itself from the start on.
class TrashReading : public platform::TrashListener {
 public:
  std::unordered_map<std::uint64_t, platform::TrashedItem> Items;
  std::vector<platform::TrashTrouble> Troubles;
  bool IsSettled = false;

  void OnItems(std::vector<platform::TrashedItem> items) override {
    for (platform::TrashedItem& item : items) {
      const std::uint64_t id = item.Id;
      Items.insert_or_assign(id, std::move(item));
    }
  }
  void OnGone(const std::vector<std::uint64_t>& ids) override {
    for (const std::uint64_t id : ids) Items.erase(id);
  }
  void OnTroubles(const std::vector<platform::TrashTrouble>& troubles) override {
    Troubles = troubles;
  }
  void OnSettled() override { IsSettled = true; }

  std::vector<std::uint64_t> Ids() const {
    std::vector<std::uint64_t> ids;
    ids.reserve(Items.size());
    for (const auto& [id, item] : Items) ids.push_back(id);
    return ids;
  }
  // Null for those that have gone.
  std::vector<const platform::TrashedItem*> Find(const std::vector<std::uint64_t>& ids) const {
    std::vector<const platform::TrashedItem*> found;
    found.reserve(ids.size());
    for (const std::uint64_t id : ids) {
      const auto item = Items.find(id);
      found.push_back(item == Items.end() ? nullptr : &item->second);
    }
    return found;
  }
};

TrashSum SumOf(const TrashReading& reading) {
  TrashSum sum;
  for (const auto& [id, item] : reading.Items) sum.Add(item);
  return sum;
}

std::string Question(const TrashReading& reading, const TrashForms& forms) {
  std::string text = "Do you want to delete everything in the recycle bin for good?\r\n\r\n" +
                     TrashSumText(SumOf(reading), forms);
  for (const platform::TrashTrouble& trouble : reading.Troubles) {
    text += "\r\n\r\n" + TrashTroubleText(trouble) + " What lies there stays.";
  }
  return text;
}

void TellNotEmptied(forms::Messenger& messages, const std::string& parentName = "") {
  messages.Message("An error occurred and the recycle bin may not have been emptied.",
                   forms::MessageKind::Ok, parentName);
}

}  // namespace

void EmptyCommand::EmptyRecycleBin(std::string& rootPath, const std::string& parentName) {
  if (std::exchange(runs_, true)) return;
  givenUp_ = false;
  const forms::PointerScope pointers(services_.Host, &workspace_.Form.Toolbar1);
  try {
    Empty(rootPath.empty() ? std::string() : services_.Drives.DriveOf(rootPath), parentName);
  } catch (const std::exception&) {
    TellNotEmptied(services_.Messages, parentName);
  }
  runs_ = false;
}

void EmptyCommand::Empty(const std::string& drive, const std::string& parentName) {
  TrashReading reading;
  std::unique_ptr<platform::TrashView> view = services_.Trash.Follow(reading, drive);
  while (!reading.IsSettled && !givenUp_) services_.Pump.WaitForEvents();
  if (givenUp_) return;
  if (reading.Items.empty()) {
    if (reading.Troubles.empty()) return;
    throw std::runtime_error(reading.Troubles[0].Reason.Reason);
  }
  // What comes while the question is open was not asked about, and stays.
  const std::vector<std::uint64_t> asked = reading.Ids();
  const std::string refusal = services_.Operation.Refusal(
      platform::FileFunction::Delete, RequestToPurge(reading.Find(asked)).Items);
  if (!refusal.empty()) {
    return services_.Messages.Message(refusal, forms::MessageKind::Ok, parentName);
  }
  services_.Messages.Message(Question(reading, services_.Forms), forms::MessageKind::YesNo,
                             parentName);
  if (givenUp_ || services_.Messages.MessageResult() != "YES") return;
  platform::OperationRequest request = RequestToPurge(reading.Find(asked));
  if (request.Items.empty()) return;
  view.reset();  // following each item out would take longer than deleting it
  platform::OperationOrder order;
  order.Kind = platform::CommandKind::Delete;
  order.Requests.push_back(std::move(request));
  order.Title = "Emptying the recycle bin";
  services_.Operation.WhenDone(services_.Operation.Start(std::move(order)),
                               [this, parentName](const platform::OperationResult& result) {
                                 lists::LookAtPanes(workspace_);
                                 if (result.Code == 0 || result.Aborted) return;
                                 TellNotEmptied(services_.Messages, parentName);
                               });
}

void EmptyByShell(workspace::Workspace& workspace, forms::FormHost& host,
                  forms::Messenger& messages, platform::ShellWindows& shell,
                  const std::string& rootPath) {
  const forms::PointerScope pointers(host, &workspace.Form.Toolbar1);
  try {
    shell.EmptyRecycleBin(rootPath);
  } catch (const std::exception&) {
    TellNotEmptied(messages);
  }
}

}  // namespace tarnwell::fileops
