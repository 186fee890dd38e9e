#include "lister/files/OpenFiles.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "lister/rows/CellText.h"
#include "platform/CountedTexts.h"
#include "platform/Launcher.h"

namespace tarnwell::lister {
namespace {

using platform::ItemKind;
using platform::LaunchFailure;

constexpr std::size_t mostTold = 10;

// What the item is by now.
base::Status LookAt(const FileListState& files, RowId row, ItemKind& kind) {
  kind = files.Rows.Row(row).Kind;
  if (kind == ItemKind::Folder) return {};
  platform::ItemAttributes attributes{.Kind = kind};
  base::Status status = files.List.Services.Files.ReadAttributes(
      files.FolderOf(row), std::string(files.Rows.OwnName(row)), attributes);
  kind = attributes.Kind;
  if (status && attributes.IsLink && kind == ItemKind::Other) {
    return {.Code = -1, .Reason = "The link leads to no file and no folder"};
  }
  return status;
}

void Tell(ListState& list, const std::vector<LaunchFailure>& failures) {
  // A question may have stood while the program came to its end.
  if (failures.empty() || list.IsTerminated) return;
  std::string text;
  for (std::size_t at = 0; at < failures.size() && at < mostTold; ++at) {
    if (at > 0) text += "\r\n";
    text += "Cannot open " + NameText(list.Syntax, failures[at].Path) + ": " +
            failures[at].Status.Reason;
  }
  if (failures.size() > mostTold) {
    text += "\r\n" + platform::Counted(list.Services.Forms, platform::CountedText::DotsAndMore,
                                       failures.size() - mostTold);
  }
  list.Events.StatusMessage(list.Id, text);
}

void Open(FileListState& files, const std::vector<std::string>& paths,
          std::vector<LaunchFailure> failures) {
  if (!paths.empty()) {
    const std::string folder = files.List.Syntax.ParentOf(paths.front());
    for (LaunchFailure& failure : files.List.Services.Launcher.OpenFiles(paths, folder)) {
      failures.push_back(std::move(failure));
    }
  }
  Tell(files.List, failures);
}

}  // namespace

void OpenRow(FileListState& files, RowId row) {
  if (!files.Rows.Has(row)) return;
  const std::string path = files.PathOf(row);
  ItemKind kind;
  const base::Status status = LookAt(files, row, kind);
  if (kind == ItemKind::Folder) {
    files.List.Events.OpenChildFolder(files.List.Id, path, files.FolderOf(row));
  } else if (status) {
    Open(files, {path}, {});
  } else {
    Open(files, {}, {{path, status}});
  }
}

void OpenSelectedOr(FileListState& files, RowId row) {
  ItemKind kind = ItemKind::Folder;
  if (files.Rows.Has(row) && files.Rows.Row(row).IsSelected) LookAt(files, row, kind);
  if (kind == ItemKind::Folder || files.Rows.SelectedCount() < 2) return OpenRow(files, row);
  std::vector<std::string> paths;
  std::vector<LaunchFailure> failures;
  for (int position = 0; position < files.Rows.Count(); ++position) {
    const RowId each = files.Rows.At(position);
    if (!files.Rows.Row(each).IsSelected) continue;
    const base::Status status = LookAt(files, each, kind);
    if (kind == ItemKind::Folder) continue;
    if (status) {
      paths.push_back(files.PathOf(each));
    } else {
      failures.push_back({files.PathOf(each), status});
    }
  }
  Open(files, paths, std::move(failures));
}

}  // namespace tarnwell::lister
