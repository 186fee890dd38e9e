// The listing of a list as a file of comma separated values, by RFC 4180.
//
// A line of the captions of the headings on show, in their order; then a line for each row on show,
// from the top. A folder list has the path of each folder too, and a list
// of what was found the folder of each item. Lines end in CR LF; UTF-8 without a
// mark at the start; sizes in plain digits, dates as "yyyy-mm-dd hh:mm:ss" in local time.
//
// What is read from it leads back to each name: a byte that is no UTF-8 is written as "\xHH" and a
// backslash as "\\"; a field that begins with one of = + - @ ' or a tab or CR has one apostrophe in
// front, so that no spreadsheet takes it for a formula or drops its start.
#pragma once

#include <string>
#include <vector>

#include "lister/list/ListBody.h"

namespace tarnwell::lister {

// Adds one line. Fields are bytes; those with commas, quotes, line breaks, or blanks at their ends
// are put between quotes.
void AppendLine(std::string& text, const std::vector<std::string>& fields);

// Writes the file in one step. Lets messages through; rows that go meanwhile are left out. False
// when it cannot be written, the user stopped it or the list shows another folder by now; the
// status line then tells why.
bool WriteListing(ListState& list, const ListBody& body, const std::string& path);

}  // namespace tarnwell::lister
