// What must hold for any content as a skin file: as RecordProperties.h for records.
#pragma once

#include "settings/TestProgram.h"

namespace tarnwell::fuzz {

// The first rule that the content breaks; empty when it breaks none. The program has been started.
inline std::string BrokenSkinRule(settings::TestProgram& program, const std::string& content) {
  program.AddSkin("fuzz.twk", content);
  program.CurrentSkin.LoadSkin("fuzz");
  const settings::SkinColours colours = program.Colours;
  program.CurrentSkin.LoadSkin("fuzz");
  if (program.Colours != colours) return "gives other colours the next time";
  program.Dialogs.Texts = {"saved"};
  program.Chooser.cmdSaveClick();
  program.Colours.fill(1);
  program.CurrentSkin.LoadSkin("saved");
  return program.Colours == colours ? "" : "gives other colours than were saved";
}

}  // namespace tarnwell::fuzz
