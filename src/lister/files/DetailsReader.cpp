#include "lister/files/DetailsReader.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "lister/files/RowWalk.h"
#include "platform/CountedTexts.h"

namespace tarnwell::lister {

namespace {

// With more rows than this, those on the screen are shown before the others are looked at.
constexpr int ManyRows = 1000;

}  // namespace

template <typename Lacks, typename Look>
void DetailsReader::Go(ReadJob& job, std::string_view what, Lacks lacks, Look look) {
  RowWalk walk(files_);
  const std::vector<RowId>& all = files_.Rows.All();
  const std::int64_t total = std::count_if(all.begin(), all.end(), lacks);
  std::int64_t done = 0;
  bool showsScreen = total > ManyRows;
  RowRange changed;  // since the view was told
  const auto tell = [&] {
    if (changed.First <= changed.Last) {
      files_.View().CellsChanged(RootRow, changed.First, changed.Last);
    }
    changed = {};
  };
  while (done < total) {
    const RowId row = walk.Next();
    if (row == NoRow) break;
    if (!lacks(row)) continue;
    ++done;
    const bool isOther = look(row);
    // Other rows may have come before it while another machine was waited for.
    const int position = files_.Rows.PositionOf(row);
    if (isOther && position >= 0) {
      const bool isFirst = changed.Last < changed.First;
      changed.First = isFirst ? position : std::min(changed.First, position);
      changed.Last = std::max(changed.Last, position);
    }
    if (!job.Goes()) break;
    const bool screenIsDone = showsScreen && !walk.IsOnScreen();
    if (!screenIsDone && !job.Pace.IsDue()) continue;
    showsScreen = showsScreen && !screenIsDone;
    tell();
    const auto percent = static_cast<std::uint64_t>(100 * done / total);
    if (!job.Pump(platform::Counted(files_.List.Services.Forms,
                                    platform::CountedText::ReadingPercent, percent, {what})))
      return;
    walk.LookAgain();
  }
  tell();
}

void DetailsReader::ReadAttributes(ReadJob& job) {
  Go(
      job, "Reading details", [&](RowId row) { return !files_.Rows.Row(row).WasTried; },
      [&](RowId row) { return ReadAttributesOf(row, *job.Folder); });
}

bool DetailsReader::ReadAttributesOf(RowId row, const platform::OpenedFolder& folder) {
  const FileRow before = files_.Rows.Row(row);
  platform::ItemAttributes attributes;
  const base::Status status = folder.ReadAttributes(files_.Rows.Name(row), attributes);
  if (status) {
    files_.Rows.SetAttributes(row, attributes);
    files_.ShowKnownSize(row);
  } else {
    files_.Rows.SetUnreadable(row);
    if (files_.Reason.empty()) files_.Reason = status.Reason;
  }
  const FileRow& now = files_.Rows.Row(row);
  kindsChanged_ = kindsChanged_ || now.IsFolder() != before.IsFolder();
  return !now.LooksLike(before);
}

bool DetailsReader::LacksExtendedAttributes() {
  if (files_.Rows.All().empty()) return false;
  const ExtendedAttributes shown = Shown();
  // What is taken from the screen is asked for anew when it comes back.
  asked_.Colours = complete_.Colours || (asked_.Colours && shown.Colours);
  asked_.Comments = complete_.Comments || (asked_.Comments && shown.Comments);
  return (shown.Colours && !asked_.Colours) || (shown.Comments && !asked_.Comments);
}

void DetailsReader::ReadExtendedAttributes(ReadJob& job) {
  while (LacksExtendedAttributes() && job.Goes()) {
    const ExtendedAttributes shown = Shown();
    const ExtendedAttributes lacking{shown.Colours && !asked_.Colours,
                                     shown.Comments && !asked_.Comments};
    asked_.Colours |= lacking.Colours;
    asked_.Comments |= lacking.Comments;
    if (!job.Folder) continue;
    std::vector<bool> done(static_cast<std::size_t>(files_.Rows.StoreSize()) + 1);
    Go(
        job, "Reading notes", [&](RowId row) { return !done[static_cast<std::size_t>(row)]; },
        [&](RowId row) {
          done[static_cast<std::size_t>(row)] = true;
          return ReadExtendedAttributesOf(row, lacking, *job.Folder);
        });
    if (!job.Goes()) return;
    complete_.Colours |= lacking.Colours;
    complete_.Comments |= lacking.Comments;
  }
}

void DetailsReader::ReadExtendedAttributesOf(ReadJob& job, const std::vector<RowId>& rows) {
  if (!complete_.Colours && !complete_.Comments) return;
  for (const RowId row : rows) {
    if (job.Pace.IsDue()) job.Pump("Reading notes");
    if (job.IsSuperseded()) return;
    if (!files_.Rows.IsUsed(row)) continue;
    const bool isOther = ReadExtendedAttributesOf(row, complete_, *job.Folder);
    const int position = files_.Rows.PositionOf(row);
    if (isOther && position >= 0) files_.View().CellsChanged(RootRow, position, position);
  }
}

bool DetailsReader::ReadExtendedAttributesOf(RowId row, ExtendedAttributes wanted,
                                             const platform::OpenedFolder& folder) {
  ItemColour colour = files_.Rows.Row(row).Colour;
  std::string comment(files_.Rows.Comment(row));
  Read(files_.Rows.Name(row), wanted, folder, colour, comment);
  if (colour == files_.Rows.Row(row).Colour && comment == files_.Rows.Comment(row)) return false;
  files_.Rows.SetExtendedAttributes(row, colour, std::move(comment));
  return true;
}

// What cannot be read is as good as not there.
void DetailsReader::Read(std::string_view name, ExtendedAttributes wanted,
                         const platform::OpenedFolder& folder, ItemColour& colour,
                         std::string& comment) {
  using platform::ExtendedAttribute;
  if (wanted.Colours) {
    std::string word;
    const bool known =
        static_cast<bool>(folder.ReadExtendedAttribute(name, ExtendedAttribute::Colour, word));
    colour = known ? ColourOfWord(word) : ItemColour::Default;
  }
  if (wanted.Comments && !folder.ReadExtendedAttribute(name, ExtendedAttribute::Comment, comment))
    comment.clear();
}

}  // namespace tarnwell::lister
