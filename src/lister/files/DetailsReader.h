// Finds out what reading a folder alone does not tell of its items: attributes, colours, comments.
//
// Goes in slices, first over the rows on the screen, and lets messages through between them. Tells
// the view which cells changed, a range for each slice; sorts nothing.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "lister/files/FileListState.h"
#include "lister/list/ReadJob.h"

namespace tarnwell::lister {

class DetailsReader {
 public:
  explicit DetailsReader(FileListState& files) : files_(files) {}

  // The rows are of a folder that has just been read: no attributes are known.
  void Forget() { asked_ = complete_ = {}; }

  // Attributes of the rows for which they have not been asked since the folder was read. Returns
  // early when the job goes on no longer.
  void ReadAttributes(ReadJob& job);
  // The extended attributes that are on show and have not been asked for.
  void ReadExtendedAttributes(ReadJob& job);
  bool LacksExtendedAttributes();
  // Reads those of one item that are known of the others; the rest stays as it was.
  void ReadExtendedAttributesOf(std::string_view name, const platform::OpenedFolder& folder,
                                ItemColour& colour, std::string& comment) const {
    Read(name, complete_, folder, colour, comment);
  }

  // The same of rows that came after the others.
  void ReadExtendedAttributesOf(ReadJob& job, const std::vector<RowId>& rows);

  // An item turned out to be a folder, or none, since this was last asked.
  bool TakeKindsChanged() { return std::exchange(kindsChanged_, false); }

 private:
  struct ExtendedAttributes {
    bool Colours = false;
    bool Comments = false;
  };

  class Pass;
  class Wanted;

  // True when the row looks different now.
  bool SetAttributesOf(RowId row, const base::Status& status,
                       const platform::ItemAttributes& attributes);
  bool ReadExtendedAttributesOf(RowId row, ExtendedAttributes wanted,
                                const platform::OpenedFolder& folder);
  static void Read(std::string_view name, ExtendedAttributes wanted,
                   const platform::OpenedFolder& folder, ItemColour& colour, std::string& comment);
  ExtendedAttributes Shown() const { return {files_.ShowsColours(), files_.ShowsComments()}; }

  FileListState& files_;
  ExtendedAttributes asked_;     // whether or not the user stopped the reading
  ExtendedAttributes complete_;  // known of all rows
  bool kindsChanged_ = false;
};

}  // namespace tarnwell::lister
