// Reads the records of a settings or skin file: six fields each, the key and five values.
//
// Reads by fields, not by lines: a comma and the end of a line (CR LF, LF or CR) both end a field,
// so that a line with too few fields takes the start of the next one for the rest. Any bytes at all
// are legal, and reading them takes time in proportion. Knows no keys and checks none.
#pragma once

#include <cstddef>
#include <string_view>

#include "settings/SettingRecord.h"

namespace tarnwell::settings {

class RecordReader {
 public:
  // The content must outlive the reader.
  explicit RecordReader(std::string_view content) : content_(content) {}

  // True when nothing is left to read, not even an empty field.
  bool AtEnd() const { return position_ == content_.size(); }

  // Reads the next record; false, with an empty record, at the end. A record that the end cuts
  // short is read as far as it goes, and the fields behind hold nothing.
  //
  // A field in quotes is a string, and ends at the next quote or the end of its line; what stands
  // between that quote and the next delimiter is a field of its own. Without quotes #TRUE# and
  // #FALSE# are Booleans in any case, a number is a double, rounded to the 15 digits that a record
  // can carry, and other text is a string. Blanks around a field do not count. The key is text,
  // whatever it spells.
  bool Read(SettingRecord& record);

 private:
  struct Field {
    std::string_view Text;
    bool IsQuoted = false;
  };

  Field ReadField();
  void SkipBlanks();
  void SkipDelimiter();

  std::string_view content_;
  std::size_t position_ = 0;
};

}  // namespace tarnwell::settings
