// Writes the records of a settings or skin file.
#pragma once

#include <string>

#include "settings/SettingRecord.h"

namespace tarnwell::settings {

// Appends the record as one line, ended by CR LF: the key in quotes and the five fields. A string
// stands in quotes, a number as base::SpellNumber has it, a Boolean as #TRUE# or #FALSE#, and a
// field that holds nothing is the number 0.
//
// Nothing in a record can stand for a double quote, CR or LF: where the key or a string holds one,
// the text stays as it is and the result is false.
bool AppendRecord(std::string& text, const SettingRecord& record);

}  // namespace tarnwell::settings
