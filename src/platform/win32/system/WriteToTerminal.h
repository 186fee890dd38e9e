// The output of a program that has windows and is started from a terminal.
#pragma once

#include <string_view>

namespace tarnwell::platform {

enum class TerminalStream { Output, Error };

// Writes the text, in UTF-8, to where the process was told to send that stream; else to the
// terminal of the process that started it, if there is one. The process does not stay there: it
// outlives the terminal, and no key that is pressed there reaches it.
void WriteToTerminal(TerminalStream stream, std::string_view text);
// Whether people would see that in a terminal.
bool IsTerminalSeen(TerminalStream stream);

}  // namespace tarnwell::platform
