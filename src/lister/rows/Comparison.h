// Comparing the items of two folders by name, and by size and date where that is asked for.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/PathSyntax.h"
#include "platform/NumberForms.h"

namespace tarnwell::lister {

class FileRows;

// What a comparison says of an item, always as seen from the list that shows it. Folders are
// compared by name alone. Several may stand together; none of them: the same in both lists.
struct CompareMarks {
  bool OnlyHere : 1 = false;  // the other list has no item of that name and kind
  bool Larger : 1 = false;    // its size differs: it has more bytes here
  bool Smaller : 1 = false;   //   or fewer
  bool Newer : 1 = false;     // its date of last change differs, to the second: later here
  bool Older : 1 = false;     //   or earlier

  bool Shares(CompareMarks other) const {
    return (OnlyHere && other.OnlyHere) || (Larger && other.Larger) || (Smaller && other.Smaller) ||
           (Newer && other.Newer) || (Older && other.Older);
  }
  bool Any() const { return OnlyHere || Larger || Smaller || Newer || Older; }
  bool operator==(const CompareMarks&) const = default;
};

// One item as a list hands it to others.
struct CompareRecord {
  std::string Name;      // bytes, less the case where the platform has no use for it
  std::string Size;      // bytes in digits; empty for a folder and where it is not known
  std::string Modified;  // whole seconds since 1970 in digits; empty likewise
  // Bit 0: a folder. From bit 8 on what CompareAgainst found. Of the last record, which it adds and
  // which has no name: how many items the other list has and this one lacks.
  std::int32_t State = 0;
};

// How many rows have each mark. A row that differs in size and date counts for both.
struct MarkCounts {
  int OnlyHere = 0;
  int Larger = 0, Smaller = 0, Newer = 0, Older = 0;

  // `rows` more have these marks; fewer if it is below 0.
  void Add(CompareMarks marks, int rows);
  // Those that any row has.
  CompareMarks Kinds() const;
};

struct CompareTally : MarkCounts {
  int Differing = 0;
  int Same = 0;         // files
  int SameFolders = 0;  // folders with a partner, whatever they hold
};

// What a comparison found in a list.
struct CompareCounts {
  CompareTally All;
  CompareTally Shown;       // those of All that the filter takes
  bool IsFiltered = false;  // it does not take all
  int Missing = 0;          // items of the other list that this one has no partner for
};

// Of all rows, whether or not the filter shows them.
std::vector<CompareRecord> MakeRecords(const FileRows& rows, const base::PathSyntax& syntax);
// Marks all rows by the records of another list, and the records by the rows, by the bits of
// `mode`: 1 size, 2 date. Items pair one to one by name and kind; where names differ in case alone
// and that does not count, the first of one list goes with the first of the other.
CompareCounts MarkRows(FileRows& rows, std::vector<CompareRecord>& records, std::int32_t mode,
                       const base::PathSyntax& syntax);
// Marks all rows by what MarkRows left in records that were made of them.
CompareCounts MarkOwnRows(FileRows& rows, const std::vector<CompareRecord>& records,
                          const base::PathSyntax& syntax);
// What the status line says of a comparison. Under a filter: how many are on show, of how many.
std::string CompareSummary(const CompareCounts& counts, const platform::NumberForms& forms);

}  // namespace tarnwell::lister
