#include "lister/files/FileStatus.h"

#include <cstdint>

#include "base/Text.h"
#include "lister/rows/CellText.h"
#include "platform/CountedTexts.h"

namespace tarnwell::lister {

using platform::CountedText;

namespace {

void Append(std::string& text, const std::string& sentence) {
  if (sentence.empty()) return;
  if (!text.empty()) text += ". ";
  text += sentence;
}

std::string OnShow(const platform::NumberForms& forms, const FileRows& rows,
                   const RowTotals& totals) {
  const auto all = static_cast<std::uint64_t>(rows.All().size());
  const auto items = static_cast<std::uint64_t>(rows.Count());
  const std::string folders =
      platform::Counted(forms, CountedText::Folders, static_cast<std::uint64_t>(totals.Folders));
  std::string text;
  if (rows.HoldsPaths()) text = "Found below " + base::ForDisplay(rows.Folder()) + ": ";
  text += items == all ? platform::Counted(forms, CountedText::OnShow, all, {folders})
                       : platform::Counted(forms, CountedText::OnShowOfItems, all,
                                           {forms.Grouped(items), folders});
  if (totals.Bytes > 0) text += ", " + ByteText(forms, totals.Bytes);
  return text;
}

std::string Selected(const platform::NumberForms& forms, const RowTotals& totals) {
  if (totals.Selected == 0) return "";
  std::string text =
      platform::Counted(forms, CountedText::Selected, static_cast<std::uint64_t>(totals.Selected));
  if (totals.SelectedBytes > 0) text += ", " + ByteText(forms, totals.SelectedBytes);
  return text;
}

std::string Unreadable(const platform::NumberForms& forms, const FileRows& rows,
                       const std::string& reason) {
  const auto count = static_cast<std::uint64_t>(rows.UnreadableCount());
  return count > 0 ? platform::Counted(forms, CountedText::NotRead, count, {reason}) : "";
}

}  // namespace

std::string FileSummary(const FileListState& files) {
  const platform::NumberForms& forms = files.List.Services.Forms;
  std::string text = files.Progress;
  Append(text, files.Trouble);
  // While a folder is read, rows and sizes are those of a moment ago.
  if (!text.empty() && files.Rows.All().empty()) return text;
  if (!files.Progress.empty() && files.Rows.SelectedCount() == 0) return text;
  Append(text, files.Note);
  const RowTotals& totals = files.Rows.Totals();
  if (files.Progress.empty()) Append(text, OnShow(forms, files.Rows, totals));
  Append(text, Selected(forms, totals));
  if (!files.Progress.empty()) return text;
  if (!files.Reason.empty()) Append(text, Unreadable(forms, files.Rows, files.Reason));
  if (!files.Unfollowed.empty() && files.List.Syntax.Same(files.Unfollowed, files.Rows.Folder())) {
    Append(text, "Changes on disk are not followed here");
  }
  if (files.Space.Total > 0) {
    const std::uint64_t free = files.Space.Free;
    Append(text, platform::Counted(forms, CountedText::SizeFree, free, {ByteText(forms, free)}));
  }
  return text;
}

EmptyNote NoteOf(const FileListState& files) {
  if (!files.NamesAreRead || files.Rows.Count() > 0) return {};
  const platform::NumberForms& forms = files.List.Services.Forms;
  if (const std::uint64_t all = files.Rows.All().size(); all > 0) {
    return {.Text = platform::Counted(forms, CountedText::HiddenByFilter, all), .ByFilter = true};
  }
  if (!files.Trouble.empty()) return {.Text = files.Trouble};
  if (files.ShowsFound()) return {.Text = "What was found is no longer there"};
  if (files.HiddenCount == 0) return {.Text = "This folder is empty"};
  return {.Text = platform::Counted(forms, CountedText::Hidden, files.HiddenCount)};
}

void ShowSummary(FileListState& files) {
  const bool isNews = !files.Trouble.empty() || !files.Note.empty() || !files.Reason.empty();
  files.List.SetStatus(FileSummary(files), files.Rows.Marks(), isNews);
}

}  // namespace tarnwell::lister
