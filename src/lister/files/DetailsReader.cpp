#include "lister/files/DetailsReader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "lister/files/RowWalk.h"
#include "platform/CountedTexts.h"

namespace tarnwell::lister {

namespace {

// With more rows than this, those on the screen are shown before the others are looked at.
constexpr int ManyRows = 1000;

}  // namespace

// A walk over the rows that something is to be found out for. It may be found out for some while
// others are asked for.
class DetailsReader::Pass {
 public:
  using Lacks = std::function<bool(RowId)>;

  Pass(FileListState& files, ReadJob& job, std::string_view what, Lacks lacks)
      : files_(files),
        job_(job),
        what_(what),
        lacks_(std::move(lacks)),
        walk_(files),
        asked_(static_cast<std::size_t>(files.Rows.StoreSize()) + 1) {
    total_ = std::count_if(files.Rows.All().begin(), files.Rows.All().end(), lacks_);
    showsScreen_ = total_ > ManyRows;
  }
  Pass(const Pass&) = delete;
  Pass& operator=(const Pass&) = delete;
  ~Pass() { Tell(); }

  std::int64_t Total() const { return total_; }

  // The row to be asked for; each comes once.
  RowId Next() {
    while (given_ < total_) {
      const RowId row = walk_.Next();
      if (row == NoRow) break;
      Asked& asked = asked_[static_cast<std::size_t>(row)];
      if (asked != Asked::Not || !lacks_(row)) continue;
      ++given_;
      asked = walk_.IsOnScreen() ? Asked::ForScreen : Asked::ForRest;
      if (asked == Asked::ForScreen) ++onScreen_;
      return row;
    }
    return NoRow;
  }
  // What came of it is in the row.
  void Note(RowId row, bool isOther) {
    ++done_;
    if (asked_[static_cast<std::size_t>(row)] == Asked::ForScreen) --onScreen_;
    // Other rows may have come before it meanwhile.
    const int position = files_.Rows.PositionOf(row);
    if (!isOther || position < 0) return;
    const bool isFirst = changed_.Last < changed_.First;
    changed_.First = isFirst ? position : std::min(changed_.First, position);
    changed_.Last = std::max(changed_.Last, position);
  }
  // To be asked after each row, and now and then while none comes; lets messages through.
  bool GoesOn(bool isWaiting = false) {
    if (!job_.Goes()) return false;
    const bool screenIsDone = showsScreen_ && onScreen_ == 0 && !walk_.IsOnScreen();
    if (!screenIsDone && !isWaiting && !job_.Pace.IsDue()) return true;
    showsScreen_ = showsScreen_ && !screenIsDone;
    Tell();
    const auto percent = static_cast<std::uint64_t>(100 * done_ / total_);
    if (!job_.Pump(platform::Counted(files_.List.Services.Forms,
                                     platform::CountedText::ReadingPercent, percent, {what_}))) {
      return false;
    }
    walk_.LookAgain();
    return true;
  }

 private:
  enum class Asked : std::uint8_t { Not, ForScreen, ForRest };

  void Tell() {
    changed_.Last = std::min(changed_.Last, files_.Rows.Count() - 1);  // fewer may be on show now
    if (changed_.First <= changed_.Last) {
      files_.View().CellsChanged(RootRow, changed_.First, changed_.Last);
    }
    changed_ = {};
  }

  FileListState& files_;
  ReadJob& job_;
  const std::string_view what_;
  const Lacks lacks_;
  RowWalk walk_;
  std::vector<Asked> asked_;  // by row
  std::int64_t total_ = 0;
  std::int64_t given_ = 0;
  std::int64_t done_ = 0;
  std::int64_t onScreen_ = 0;  // that are asked for and have not come
  bool showsScreen_ = false;   // is to, once it is whole
  RowRange changed_;           // since the view was told
};

// Rows as a folder asks for them.
class DetailsReader::Wanted : public platform::WantedAttributes {
 public:
  Wanted(DetailsReader& reader, Pass& pass) : reader_(reader), pass_(pass) {}

  std::size_t Count() const override { return static_cast<std::size_t>(pass_.Total()); }
  bool Next(std::string_view& name, int& number) override {
    number = pass_.Next();
    if (number != NoRow) name = reader_.files_.Rows.Name(number);
    return number != NoRow;
  }
  void Take(int number, const base::Status& status,
            const platform::ItemAttributes& attributes) override {
    pass_.Note(number, reader_.SetAttributesOf(number, status, attributes));
  }
  bool GoesOn(bool isWaiting) override { return pass_.GoesOn(isWaiting); }

 private:
  DetailsReader& reader_;
  Pass& pass_;
};

void DetailsReader::ReadAttributes(ReadJob& job) {
  Pass pass(files_, job, "Reading details",
            [&](RowId row) { return !files_.Rows.Row(row).WasTried; });
  Wanted wanted(*this, pass);
  job.Folder->ReadManyAttributes(wanted);
}

bool DetailsReader::SetAttributesOf(RowId row, const base::Status& status,
                                    const platform::ItemAttributes& attributes) {
  const FileRow before = files_.Rows.Row(row);
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
    Pass pass(files_, job, "Reading notes", [](RowId) { return true; });
    for (RowId row = pass.Next(); row != NoRow; row = pass.Next()) {
      pass.Note(row, ReadExtendedAttributesOf(row, lacking, *job.Folder));
      if (!pass.GoesOn()) return;
    }
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
