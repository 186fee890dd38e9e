// What assistive technology is told of areas that scroll.
#pragma once

namespace tarnwell::ui {

// From now on, of all that are not lists or texts. The toolkit's own answer ends the program if a
// scroll bar has gone since the parts were counted, and is asked for now.
void TellOfScrollAreas();

}  // namespace tarnwell::ui
