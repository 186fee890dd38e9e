// The form where skins are made and kept. What it changes takes effect at once; what is not saved
// is taken back, on request, by loading the skin again.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "platform/Dialogs.h"
#include "platform/FileSystem.h"
#include "settings/Skin.h"
#include "settings/SkinFiles.h"
#include "settings/clsCommonDia.h"

namespace tarnwell::settings {

struct ChooserServices {
  forms::FormHost& Host;
  platform::FileSystem& Files;
  platform::Drives& Drives;
  platform::Dialogs& Dialogs;
  forms::Messenger& Messenger;
};

class frmSkinChooser : public forms::Form {
 public:
  static constexpr base::Colour NoColour = -1;

  // `version` is the program's, as skin files carry it.
  frmSkinChooser(const ChooserServices& services, const SettingTargets& targets, Skin& skin,
                 SkinFiles& skins, double version);

  forms::Label TabStrip1;  // its one tab
  forms::ListBox lstSkins;
  forms::Button cmdLoad;
  forms::Button cmdSave;
  forms::Button cmdResave;
  forms::Button cmdRename;
  forms::Button cmdDel;
  forms::Button cmdImport;
  forms::Button cmdExport;
  forms::Label Frame1;  // round the rows
  // By the numbers of SkinColours.h.
  std::array<forms::Label, SkinColourCount> lblItem;
  std::array<forms::Picture, SkinColourCount> Picture1;
  std::array<forms::Button, SkinColourCount> cmdChoose;
  forms::Button cmdOK;
  forms::Button cmdCancel;

  // The colour picked up from a swatch, NoColour where none is held.
  base::Colour HeldColour() const { return held_; }

  void Load() override;

  // Opens the form over the middle of `owner`, or brings the open one there, with the current skin
  // chosen in the list.
  void ColorChooser(forms::Form& owner);

  // --- What the user does.
  void lstSkinsClick(int index);  // -1 for none
  void lstSkinsDblClick() { LoadFromList(); }
  void cmdLoadClick() { LoadFromList(); }
  void cmdSaveClick();
  void cmdResaveClick();
  void cmdRenameClick();
  void cmdDelClick();
  void cmdImportClick();
  void cmdExportClick();
  void Picture1Click(std::size_t index);  // picks the colour up, or drops the one that is held
  void cmdChooseClick(std::size_t index);
  void DropHeldColour();  // Escape, where a colour is held: lets it go
  // Each closes the form, unless the user wants to go on with changes that are not saved.
  void cmdOKClick() { CloseBy("OK"); }
  void cmdCancelClick() { CloseBy("CANCEL"); }
  void CloseClick() { CloseBy(""); }  // by its frame, or by Escape

  // Asks about changes that are not saved. False where the user wants the form to stay open; true
  // at once where there are none, or the form is not open.
  bool QueryUnload();

 private:
  struct NameQuestion {
    const char* Title;
    const char* Prompt;
    const char* DefaultName;    // what is said to the name of a default skin
    bool DefaultFirst = false;  // that is looked at before the punctuation
    bool KeepsTyped = false;    // what was refused is offered again
  };
  void CloseBy(const char* word);
  void FillPictureBoxes();
  void FillSkinList();
  void LoadFromList();
  // `saved` comes back true whatever happens; the status tells what did.
  base::Status SaveSkin(const std::string& name, bool& saved);
  void SetColourItem(std::size_t index, base::Colour colour);  // no negative one
  void ShowColour(std::size_t index, base::Colour colour);
  bool IsValidSkinName(const std::string& name);
  void SaveCurrentSkin(const std::string& word, bool& saved);
  std::optional<std::string> AskName(const NameQuestion& question, const std::string& offered);
  // The skin chosen in the list; with none, or a default one where these are told of, a message.
  std::optional<std::string> Selected(const char* noneText, const char* defaultText = nullptr);
  bool IsChanged() const;
  std::string Ask(const std::string& text, forms::MessageKind kind);
  void Tell(const std::string& text);
  void TellFailure(const char* done, const std::string& name, const base::Status& status);
  std::string Content() const;

  ChooserServices services_;
  SettingTargets targets_;
  Skin& skin_;
  SkinFiles& skins_;
  double version_;
  clsCommonDia colourDialog_;
  base::Colour held_ = NoColour;
  SkinColours saved_{};  // the colours as last loaded or saved
  std::string closingWord_;
};

}  // namespace tarnwell::settings
