// From the caption of an entry of the context menu to the word for what is to be done.
//
// Entries are told apart by their captions alone: one of the platform's that is called as one of
// the program's own is taken for that.
#pragma once

#include <string>
#include <string_view>

namespace tarnwell::shellmenu {

// What the menu is wanted for: to be shown, or to carry out one of the platform's entries unseen.
enum class MenuMode { Show = 0, Copy = 1, Cut = 2, Paste = 3, Delete = 4, Properties = 5 };

// The caption, without "&", of the entry that a mode carries out; empty for Show.
std::string_view CaptionOf(MenuMode mode);

struct MenuWord {
  std::string Word;
  bool IsPlatforms = false;  // the platform is to carry the entry out
};

// `shellVerbMode`: see Workspace::ShellVerbMode.
MenuWord WordOf(std::string_view caption, int shellVerbMode);

// Takes the slot, 0-based, off a word that names one at its end; -1 for any other word, and for
// what is no number.
int TakeSlot(std::string& word);

}  // namespace tarnwell::shellmenu
