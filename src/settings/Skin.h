// The skin: the colours of the whole program.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "base/Value.h"
#include "forms/Messenger.h"
#include "settings/ApplySetting.h"
#include "settings/SkinFiles.h"

namespace tarnwell::settings {

class Skin {
 public:
  Skin(const SkinFiles& skins, const SettingTargets& targets, forms::Messenger& messenger)
      : skins_(skins), targets_(targets), messenger_(messenger) {}

  // Makes the name, in capitals, the current skin's, reads the colours from the file of that name
  // (in any case of letters) and shows them. A file that is missing or cannot be read is told to
  // the user; the colours stay.
  void LoadSkin(const std::string& name);

  // Runs after each load of a file; replaces what was given before.
  void OnLoaded(std::function<void()> loaded) { loaded_ = std::move(loaded); }

  // Shows the colours on the form and on all lists that are set up.
  void ApplySkinChange();

  // Gives both lists of every pane that is set up the named setting. A list that refuses it ends
  // the round.
  void SendProperty(std::string_view name, const base::Value& value);

 private:
  void PaintForm();

  const SkinFiles& skins_;
  SettingTargets targets_;
  forms::Messenger& messenger_;
  std::function<void()> loaded_;
};

}  // namespace tarnwell::settings
