// What must hold for the record reader and writer whatever the content: checked by the fuzz target
// for contents that it makes up, and by a test for the contents kept in corpus/.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "settings/RecordReader.h"
#include "settings/RecordWriter.h"

namespace tarnwell::fuzz {

inline bool SameWhenWritten(const settings::SettingRecord& read,
                            const settings::SettingRecord& again) {
  if (read.Key != again.Key) return false;
  for (std::size_t index = 0; index < read.Fields.size(); ++index) {
    const base::Value& value = read.Fields[index];
    const base::Value written = base::HoldsNothing(value) ? base::Value(0.0) : value;
    if (again.Fields[index] != written) return false;
  }
  return true;
}

// The first rule that the content breaks; empty when it breaks none.
inline std::string BrokenRule(std::string_view content) {
  settings::RecordReader reader(content);
  settings::SettingRecord record;
  std::size_t count = 0;
  while (!reader.AtEnd()) {
    if (!reader.Read(record)) return "gives no record before the end";
    if (++count > content.size()) return "reads a record without getting any further";

    std::string line;
    if (!settings::AppendRecord(line, record)) {
      if (!line.empty()) return "writes a part of a record that cannot be carried";
      continue;
    }
    settings::RecordReader lineReader(line);
    settings::SettingRecord again;
    if (!lineReader.Read(again) || !lineReader.AtEnd() || !SameWhenWritten(record, again)) {
      return "reads back another record than was written: " + line;
    }
  }
  return reader.Read(record) ? "gives a record at the end" : "";
}

}  // namespace tarnwell::fuzz
