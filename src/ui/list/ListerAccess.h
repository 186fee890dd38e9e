// What assistive technology is told of a list's rows and headings: all that the toolkit tells, but
// that the headings of hidden columns are not to be seen.
#pragma once

namespace tarnwell::ui {

// From now on, of all lists. May be called again.
void TellOfHiddenHeadings();

}  // namespace tarnwell::ui
