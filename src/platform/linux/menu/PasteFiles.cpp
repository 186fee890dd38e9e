#include "platform/linux/menu/PasteFiles.h"

#include <map>
#include <memory>
#include <utility>

#include "base/ItemList.h"
#include "base/PathSyntax.h"
#include "platform/CountedTexts.h"
#include "platform/linux/files/FindItem.h"
#include "platform/linux/menu/FailureList.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

// Links are followed.
ErrorNumber LookAtFolder(const std::string& path, ItemIdentity& identity) {
  const Descriptor folder = OpenPath(path, O_PATH | O_DIRECTORY);
  if (!folder) return errno;
  struct statx found;
  const ErrorNumber error = LookAt(folder.Get(), "", found);
  if (error == NoError) identity = IdentityOf(found);
  return error;
}

base::Status LookAtFolder(const FarCalls& calls, const std::string& path, ItemIdentity& identity) {
  const auto own = std::make_shared<ItemIdentity>();
  base::Status status =
      calls.Ask(path, [own, path] { return SystemError(LookAtFolder(path, *own)); });
  if (status) identity = *own;
  return status;
}

// Tells items that lie in one folder, by whatever path, from others.
class FolderTest {
 public:
  FolderTest(const ItemIdentity& folder, const FarCalls& calls) : folder_(folder), calls_(calls) {}

  bool HoldsItem(const std::string& path) {
    const std::string parent = base::PathSyntax::Posix().ParentOf(path);
    const auto [known, isNew] = known_.try_emplace(parent, false);
    ItemIdentity identity;
    if (isNew) known->second = LookAtFolder(calls_, parent, identity) && identity == folder_;
    return known->second;
  }

 private:
  const ItemIdentity folder_;
  const FarCalls& calls_;
  std::map<std::string, bool> known_;  // by the paths of the items' folders
};

// What has not left its place is still cut, unless someone has put something else there meanwhile.
void KeepWhatStayed(FileClipboard& clipboard, const ClipboardFiles& files, bool wentThrough,
                    const FarCalls& calls) {
  std::string stayed;
  const std::string_view mayHaveStayed = wentThrough ? std::string_view() : files.Items;
  for (const std::string_view path : base::ItemList(mayHaveStayed)) {
    const base::Status found = calls.Ask(
        std::string(path), [own = std::string(path)] { return FindItem(own); }, LastLink::Itself);
    if (found) base::ItemList::Add(stayed, path);
  }
  // Last: those calls may have let the user go on.
  const ClipboardFiles now = clipboard.Get();
  if (now.Items != files.Items || now.IsCut != files.IsCut) return;
  if (stayed.empty()) {
    clipboard.Clear();
  } else {
    clipboard.Put({.Items = stayed, .IsCut = true});
  }
}

}  // namespace

OperationId PasteFiles(const std::string& folder, FileClipboard& clipboard,
                       FileOperation& operation, Dialogs& dialogs, const NumberForms& forms,
                       const FarCalls& calls) {
  const ClipboardFiles files = clipboard.Get();
  if (files.Items.empty() && files.Foreign == 0) return NoOperation;
  ItemIdentity identity;
  if (const base::Status status = LookAtFolder(calls, folder, identity); !status) {
    FailureList failures(forms);
    failures.Add(folder, status);
    failures.Show(dialogs, {.Named = "%1 could not be opened to paste there.",
                            .Numbered = CountedText::NotOpenedForPaste});
    return NoOperation;
  }
  const std::string refusal =
      files.IsCut ? operation.Refusal(FileFunction::Move, files.Items) : std::string();
  if (!refusal.empty()) {
    dialogs.ShowCritical("Tarnwell", refusal);
    return NoOperation;
  }
  FolderTest target(identity, calls);
  FailureList nameless(forms);
  std::string fromHere, fromElsewhere;
  for (const std::string_view item : base::ItemList(files.Items)) {
    const std::string path(item);
    if (base::PathSyntax::Posix().LastComponent(path).empty()) {
      nameless.Add(path, {EINVAL, "The root of all folders goes nowhere"});
      continue;
    }
    base::ItemList::Add(target.HoldsItem(path) ? fromHere : fromElsewhere, path);
  }

  OperationRequest request{
      .Function = files.IsCut ? FileFunction::Move : FileFunction::Copy,
      .Items = fromElsewhere,
      .Destination = base::ItemList::TextOf({base::PathSyntax::Posix().AddSeparator(folder)}),
      .Flags = AllowUndo};
  OperationOrder order;
  order.Kind = files.IsCut ? CommandKind::Move : CommandKind::Copy;
  if (!fromElsewhere.empty()) order.Requests.push_back(request);
  if (!fromHere.empty() && !files.IsCut) {
    request.Items = fromHere;
    request.Flags |= RenameOnCollision;
    order.Requests.push_back(request);
  }
  OperationId pasted = NoOperation;
  if (!order.Requests.empty()) {
    pasted = operation.Start(std::move(order));
    if (files.IsCut) {
      operation.WhenDone(pasted, [&clipboard, files, calls](const OperationResult& result) {
        KeepWhatStayed(clipboard, files, result.Code == 0 && !result.Aborted, calls);
      });
    }
  }
  nameless.Show(dialogs, {.Named = "%1 could not be pasted.", .Numbered = CountedText::NotPasted});
  if (files.Foreign == 0) return pasted;
  dialogs.ShowCritical("Tarnwell", Counted(forms, CountedText::ForeignNotPasted,
                                           static_cast<std::uint64_t>(files.Foreign)));
  return pasted;
}

}  // namespace tarnwell::platform
