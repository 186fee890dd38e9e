#include "lister/rows/Comparison.h"

#include <array>
#include <bit>
#include <charconv>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

#include "lister/rows/FileRows.h"
#include "platform/CountedTexts.h"

namespace tarnwell::lister {

using platform::CountedText;

namespace {

constexpr std::int32_t FolderBit = 1;
constexpr int FirstMarkBit = 8;
constexpr std::int32_t SizeMode = 1, DateMode = 2;

std::int32_t BitsOf(const CompareMarks& marks) {
  const int bits =
      marks.OnlyHere | marks.Larger << 1 | marks.Smaller << 2 | marks.Newer << 3 | marks.Older << 4;
  return bits << FirstMarkBit;
}

CompareMarks MarksOf(std::int32_t state) {
  const auto has = [state](int bit) { return (state >> (FirstMarkBit + bit) & 1) != 0; };
  return {
      .OnlyHere = has(0), .Larger = has(1), .Smaller = has(2), .Newer = has(3), .Older = has(4)};
}

void AppendListed(std::string& list, const std::string& text) {
  if (!list.empty()) list += ", ";
  list += text;
}

std::int64_t WholeSeconds(std::int64_t nanoseconds) {
  constexpr std::int64_t second = 1'000'000'000;
  return nanoseconds / second - (nanoseconds % second < 0);
}

// Below 0, 0 or above 0; 0 as well where the other side is not known.
template <typename Number>
int CompareWith(Number here, const std::string& there) {
  Number other = 0;
  const char* const end = there.data() + there.size();
  if (std::from_chars(there.data(), end, other).ptr != end || there.empty()) return 0;
  return (here > other) - (here < other);
}

// What is to be said of the row, and of its partner in the other list.
struct Verdict {
  CompareMarks Here, There;
};

Verdict Compare(const FileRow& row, const CompareRecord& record, std::int32_t mode) {
  Verdict verdict;
  if (row.IsFolder() || !row.HasAttributes) return verdict;
  if ((mode & SizeMode) != 0) {
    const int size = CompareWith(row.Size, record.Size);
    verdict.Here.Larger = verdict.There.Smaller = size > 0;
    verdict.Here.Smaller = verdict.There.Larger = size < 0;
  }
  if ((mode & DateMode) != 0 && row.Modified != platform::UnknownTime) {
    const int date = CompareWith(WholeSeconds(row.Modified), record.Modified);
    verdict.Here.Newer = verdict.There.Older = date > 0;
    verdict.Here.Older = verdict.There.Newer = date < 0;
  }
  return verdict;
}

// The names of rows as records hold them.
class NameKeys {
 public:
  explicit NameKeys(const base::PathSyntax& syntax) : syntax_(syntax) {}

  // Holds until the next call.
  std::string_view Of(std::string_view name) {
    if (syntax_.CaseSensitive) return name;
    key_.clear();
    syntax_.AppendKey(name, key_);
    return key_;
  }

 private:
  const base::PathSyntax& syntax_;
  std::string key_;
};

bool IsOf(const CompareRecord& record, std::string_view key, bool isFolder) {
  return record.Name == key && ((record.State & FolderBit) != 0) == isFolder;
}

// Hands out records, those from `first` on, by key and kind, each once, those of the same key in
// their order. A table with a slot for each record and as many free ones, since a node for each
// would cost twice the time.
class RecordIndex {
 public:
  explicit RecordIndex(const std::vector<CompareRecord>& records, std::size_t first = 0)
      : records_(records), slots_(std::bit_ceil(2 * (records.size() - first) + 1)) {
    for (std::size_t at = first; at < records.size(); ++at) {
      const std::size_t hash = std::hash<std::string_view>()(records[at].Name);
      std::size_t place = hash & (slots_.size() - 1);
      while (slots_[place].Number != 0) place = Behind(place);
      slots_[place] = {static_cast<std::uint32_t>(hash), static_cast<std::uint32_t>(at + 1)};
    }
  }

  std::optional<std::size_t> Take(std::string_view key, bool isFolder) {
    const std::size_t hash = std::hash<std::string_view>()(key);
    for (std::size_t place = hash & (slots_.size() - 1); slots_[place].Number != 0;
         place = Behind(place)) {
      Slot& slot = slots_[place];
      if (slot.IsTaken || slot.Hash != static_cast<std::uint32_t>(hash)) continue;
      if (!IsOf(records_[slot.Number - 1], key, isFolder)) continue;
      slot.IsTaken = true;
      return slot.Number - 1;
    }
    return std::nullopt;
  }

 private:
  struct Slot {
    std::uint32_t Hash = 0;    // its lower half
    std::uint32_t Number = 0;  // of the record, from 1; 0 for a free slot
    bool IsTaken = false;
  };

  std::size_t Behind(std::size_t place) const { return (place + 1) & (slots_.size() - 1); }

  const std::vector<CompareRecord>& records_;
  std::vector<Slot> slots_;
};

// What MarkRows adds; no item is without a name.
bool HasTally(const std::vector<CompareRecord>& records) {
  return !records.empty() && records.back().Name.empty();
}

template <typename Work>
void ForEachRow(const FileRows& rows, Work work) {
  for (RowId row = 1; row <= rows.StoreSize(); ++row) {
    if (rows.IsUsed(row)) work(row);
  }
}

void Count(const CompareMarks& marks, bool isFolder, CompareTally& tally) {
  const bool differs = marks.Larger || marks.Smaller || marks.Newer || marks.Older;
  tally.Add(marks, 1);
  tally.Differing += differs;
  if (!marks.Any()) ++(isFolder ? tally.SameFolders : tally.Same);
}

void MarkAndCount(FileRows& rows, RowId row, const CompareMarks& marks, CompareCounts& counts) {
  const bool isFolder = rows.Row(row).IsFolder();
  rows.SetMarks(row, marks);
  Count(marks, isFolder, counts.All);
  if (counts.IsFiltered && rows.Has(row)) Count(marks, isFolder, counts.Shown);
}

bool IsFiltered(const FileRows& rows) {
  return static_cast<std::size_t>(rows.Count()) != rows.All().size();
}

}  // namespace

void MarkCounts::Add(CompareMarks marks, int rows) {
  OnlyHere += marks.OnlyHere * rows;
  Larger += marks.Larger * rows;
  Smaller += marks.Smaller * rows;
  Newer += marks.Newer * rows;
  Older += marks.Older * rows;
}

CompareMarks MarkCounts::Kinds() const {
  return {.OnlyHere = OnlyHere > 0,
          .Larger = Larger > 0,
          .Smaller = Smaller > 0,
          .Newer = Newer > 0,
          .Older = Older > 0};
}

std::vector<CompareRecord> MakeRecords(const FileRows& rows, const base::PathSyntax& syntax) {
  std::vector<CompareRecord> records;
  records.reserve(rows.All().size() + 1);
  ForEachRow(rows, [&](RowId row) {
    const FileRow& item = rows.Row(row);
    CompareRecord& record = records.emplace_back();
    record.Name = syntax.Key(rows.Name(row));
    record.State = item.IsFolder() ? FolderBit : 0;
    if (item.IsFolder() || !item.HasAttributes) return;
    record.Size = std::to_string(item.Size);
    if (item.Modified != platform::UnknownTime) {
      record.Modified = std::to_string(WholeSeconds(item.Modified));
    }
  });
  return records;
}

CompareCounts MarkRows(FileRows& rows, std::vector<CompareRecord>& records, std::int32_t mode,
                       const base::PathSyntax& syntax) {
  if (HasTally(records)) records.pop_back();
  RecordIndex index(records);
  NameKeys keys(syntax);
  const std::int32_t onlyThere = BitsOf({.OnlyHere = true});
  for (CompareRecord& record : records) record.State = (record.State & FolderBit) | onlyThere;
  CompareCounts counts;
  counts.IsFiltered = IsFiltered(rows);
  std::size_t paired = 0;
  ForEachRow(rows, [&](RowId row) {
    Verdict verdict{.Here = {.OnlyHere = true}, .There = {}};
    if (const auto at = index.Take(keys.Of(rows.Name(row)), rows.Row(row).IsFolder())) {
      CompareRecord& record = records[*at];
      verdict = Compare(rows.Row(row), record, mode);
      record.State = (record.State & FolderBit) | BitsOf(verdict.There);
      ++paired;
    }
    MarkAndCount(rows, row, verdict.Here, counts);
  });
  counts.Missing = static_cast<int>(records.size() - paired);
  records.emplace_back().State = counts.All.OnlyHere;
  return counts;
}

CompareCounts MarkOwnRows(FileRows& rows, const std::vector<CompareRecord>& records,
                          const base::PathSyntax& syntax) {
  CompareCounts counts;
  counts.IsFiltered = IsFiltered(rows);
  if (HasTally(records)) counts.Missing = records.back().State;
  NameKeys keys(syntax);
  // As a rule each record is that of the next row. Once one is not, the rest are looked up.
  std::size_t next = 0;
  std::optional<RecordIndex> rest;
  ForEachRow(rows, [&](RowId row) {
    const std::string_view key = keys.Of(rows.Name(row));
    const bool isFolder = rows.Row(row).IsFolder();
    std::optional<std::size_t> at;
    if (!rest && next < records.size() && IsOf(records[next], key, isFolder)) {
      at = next++;
    } else {
      if (!rest) rest.emplace(records, next);
      at = rest->Take(key, isFolder);
    }
    MarkAndCount(rows, row, at ? MarksOf(records[*at].State) : CompareMarks(), counts);
  });
  return counts;
}

std::string CompareSummary(const CompareCounts& counts, const platform::NumberForms& forms) {
  const CompareTally& all = counts.All;
  const auto counted = [&](CountedText text, int CompareTally::*count, std::string_view more = "") {
    const auto number = static_cast<std::uint64_t>(all.*count);
    // As a rule those on show are all there are.
    const std::string shown = forms.Grouped(static_cast<std::uint64_t>(counts.Shown.*count));
    const std::string part =
        counts.IsFiltered ? platform::Counted(forms, CountedText::NumberOfNumber, number, {shown})
                          : forms.Grouped(number);
    return platform::Counted(forms, text, number, {part, more});
  };
  constexpr std::pair<CountedText, int CompareTally::*> ways[] = {
      {CountedText::Larger, &CompareTally::Larger},
      {CountedText::Smaller, &CompareTally::Smaller},
      {CountedText::Newer, &CompareTally::Newer},
      {CountedText::Older, &CompareTally::Older}};
  std::string details;
  for (const auto& [text, count] : ways) {
    if (all.*count > 0) AppendListed(details, counted(text, count));
  }
  const bool same = all.OnlyHere + all.Differing == 0;
  std::string text;
  // What differs comes first: a narrow list cuts the end.
  if (!same) AppendListed(text, counted(CountedText::OnlyHere, &CompareTally::OnlyHere));
  if (counts.Missing > 0) {
    const auto missing = static_cast<std::uint64_t>(counts.Missing);
    AppendListed(text, platform::Counted(forms, CountedText::Missing, missing));
  }
  if (!same) {
    const CountedText differ = details.empty() ? CountedText::Differ : CountedText::DifferSo;
    AppendListed(text, counted(differ, &CompareTally::Differing, details));
  }
  if (all.SameFolders == 0 || all.Same > 0) {
    const CountedText files =
        counts.IsFiltered ? CountedText::FilesSame : CountedText::AllFilesSame;
    AppendListed(text, counted(same ? files : CountedText::Same, &CompareTally::Same));
  }
  if (all.SameFolders > 0) {
    AppendListed(text, counted(CountedText::FoldersOfSameName, &CompareTally::SameFolders));
  }
  return "Compared: " + text;
}

}  // namespace tarnwell::lister
