// Programs in a terminal. Terminals read the words that they are given in ways of their own: some
// replace what looks like a variable, some hand a word to a shell, some take nothing but valid
// text. So a terminal is given this program once more, and the words in letters and digits alone;
// there it turns into what is to run.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Status.h"

namespace tarnwell::platform {

// What becomes of the terminal when the program in it has ended.
enum class TerminalEnd {
  Closes,
  Shell,  // the user's shell goes on in it
};

// The words that start a terminal, and in it the program of the path in front, in the folder (empty
// for that of this process); none where there is no terminal.
std::vector<std::string> TerminalCall(const std::vector<std::string>& words,
                                      const std::string& folder,
                                      TerminalEnd end = TerminalEnd::Closes);
// What, in front of a line of words, makes it run in a terminal; empty where there is none. Without
// anything that would have to be quoted.
std::string TerminalPrefix();

// The program of the user's shell: $SHELL, or that of the password file.
std::string UserShell();

base::Status NoTerminal(const std::string& program);

// For the first line of main: turns this process into what a terminal call asks for, and comes back
// only where that fails, with the exit code. Nothing if the arguments are no such call.
std::optional<int> AnswerTerminalCall(int count, char** arguments);

}  // namespace tarnwell::platform
