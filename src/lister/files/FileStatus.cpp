#include "lister/files/FileStatus.h"

#include <cstdint>

#include "lister/rows/CellText.h"

namespace tarnwell::lister {

namespace {

void Append(std::string& text, const std::string& sentence) {
  if (sentence.empty()) return;
  if (!text.empty()) text += ". ";
  text += sentence;
}

std::string OnShow(const platform::NumberForms& forms, const FileRows& rows,
                   const RowTotals& totals) {
  const auto all = static_cast<std::uint64_t>(rows.All().size());
  const auto items = static_cast<std::uint64_t>(totals.Items);
  std::string text = items == all ? CountText(forms, items, "item")
                                  : forms.Grouped(items) + " of " + CountText(forms, all, "item");
  text += " (" + CountText(forms, static_cast<std::uint64_t>(totals.Folders), "folder") + ")";
  if (totals.Bytes > 0) text += ", " + ByteText(forms, totals.Bytes);
  return text;
}

std::string Selected(const platform::NumberForms& forms, const RowTotals& totals) {
  if (totals.Selected == 0) return "";
  std::string text = forms.Grouped(static_cast<std::uint64_t>(totals.Selected)) + " selected";
  if (totals.SelectedBytes > 0) text += ", " + ByteText(forms, totals.SelectedBytes);
  return text;
}

std::string Unreadable(const platform::NumberForms& forms, const FileRows& rows,
                       const std::string& reason) {
  std::uint64_t count = 0;
  for (RowId row = 1; row <= rows.StoreSize(); ++row) {
    count += rows.IsUsed(row) && rows.Row(row).WasTried && !rows.Row(row).HasAttributes;
  }
  return count > 0 ? CountText(forms, count, "item") + " could not be read: " + reason : "";
}

}  // namespace

std::string FileSummary(const FileListState& files) {
  const platform::NumberForms& forms = files.List.Services.Forms;
  std::string text = files.Progress;
  Append(text, files.Trouble);
  // While a folder is read, rows and sizes are those of a moment ago, and counting costs time.
  if (!text.empty() && files.Rows.All().empty()) return text;
  if (!files.Progress.empty() && files.Rows.SelectedCount() == 0) return text;
  Append(text, files.Note);
  const RowTotals totals = files.Rows.Totals();
  if (files.Progress.empty()) Append(text, OnShow(forms, files.Rows, totals));
  Append(text, Selected(forms, totals));
  if (!files.Progress.empty()) return text;
  if (!files.Reason.empty()) Append(text, Unreadable(forms, files.Rows, files.Reason));
  if (!files.Unfollowed.empty() && files.List.Syntax.Same(files.Unfollowed, files.Rows.Folder())) {
    Append(text, "Changes on disk are not followed here");
  }
  if (files.Space.Total > 0) Append(text, ByteText(forms, files.Space.Free) + " free");
  return text;
}

EmptyNote NoteOf(const FileListState& files) {
  if (!files.NamesAreRead || files.Rows.Count() > 0) return {};
  const platform::NumberForms& forms = files.List.Services.Forms;
  if (const std::uint64_t all = files.Rows.All().size(); all > 0) {
    return {.Text = all == 1 ? "The filter hides the only item here"
                             : "The filter hides all " + forms.Grouped(all) + " items here",
            .ByFilter = true};
  }
  if (!files.Trouble.empty()) return {.Text = files.Trouble};
  if (files.HiddenCount == 0) return {.Text = "This folder is empty"};
  return {.Text = files.HiddenCount == 1
                      ? "The only item here is hidden"
                      : "All " + forms.Grouped(files.HiddenCount) + " items here are hidden"};
}

void ShowSummary(FileListState& files) {
  const bool isNews = !files.Trouble.empty() || !files.Note.empty() || !files.Reason.empty();
  files.List.SetStatus(FileSummary(files), files.Rows.Marks(), isNews);
}

}  // namespace tarnwell::lister
