// The dialog for the settings that need no menu. A click takes effect at once; the number in the
// text box waits for cmdApply or cmdOK.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/Colour.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"
#include "settings/Skin.h"
#include "settings/ViewSwitches.h"
#include "workspace/Workspace.h"

namespace tarnwell::settings {

enum class OptionsCategory { None = 0, General = 1, Speed = 2 };

// The colours of the two labels that choose a category. They stand on white.
inline constexpr base::Colour ChosenLabel = base::Rgb(0, 115, 201);
inline constexpr base::Colour OtherLabel = base::Black;
inline constexpr base::Colour HoverLabel = base::Rgb(79, 168, 234);

class frmOptions : public forms::Form {
 public:
  static constexpr std::size_t RowCount = 3;  // of check boxes

  frmOptions(workspace::Workspace& space, ViewSwitches& switches, Skin& skin, forms::FormHost& host)
      : Form("frmOptions"), space_(space), switches_(switches), skin_(skin), host_(host) {}

  forms::Frame Frame1;
  forms::Label lblGeneral;
  forms::Label lblSpeed;
  forms::Frame frmGeneral;
  forms::Frame Frame3;
  std::array<forms::OptionButton, 2> optMin;
  forms::Frame Frame4;
  std::array<forms::OptionButton, 2> optOperations;
  forms::Frame frmSpeed;
  forms::Label lblSlower;
  forms::Label lblFaster;
  std::array<forms::Label, RowCount> lblRow;
  std::array<forms::CheckBox, 2 * RowCount> chk;  // Yes and No of each row in turn
  forms::Label lblNumColor;
  forms::TextBox txtNumColor;
  forms::Label lblFiles;
  forms::Button cmdOK;
  forms::Button cmdApply;

  void Load() override;

  OptionsCategory Category() const { return category_; }
  void ShowOptions(OptionsCategory category);
  // Whether the frame lies where it is seen.
  bool IsInView(const forms::Frame& frame) const { return frame.Left == visible_.Left; }
  // Puts the label that is not chosen back to its usual colour.
  void ResetColors();
  // Stores the number of the text box and tells the lists. What is empty, no number, below 0 or
  // more than 32 bits hold becomes 50, of which they hear nothing.
  void Apply();
  // Brings the controls of an open dialog up to settings that were changed elsewhere; a number that
  // is being typed stays unless its setting has changed.
  void ShowSettings();

  // --- What the user does.

  void LabelClick(OptionsCategory category) { ShowOptions(category); }
  void LabelMouseMove(OptionsCategory category);
  void Frame1MouseMove() { ResetColors(); }
  // The box of that number gets the value; a value that is new to it is a click.
  void Check(std::size_t box, bool on);
  void Select(std::size_t option);
  void SelectOperations(std::size_t option);
  void cmdApplyClick() { Apply(); }
  void cmdOKClick();
  // By the frame's button or Escape.
  void Close() { host_.Unload(*this); }

 private:
  struct Slot {
    base::Twips Left = 0;
    base::Twips Top = 0;
  };
  void chkClick(std::size_t box);
  bool Setting(std::size_t row) const;
  static void Put(forms::Frame& frame, const Slot& slot);
  forms::Label& LabelOf(OptionsCategory category);

  workspace::Workspace& space_;
  ViewSwitches& switches_;
  Skin& skin_;
  forms::FormHost& host_;
  OptionsCategory category_ = OptionsCategory::None;
  Slot visible_;
  Slot hidden_;
  int clicks_ = 0;               // clicks of check boxes that are being handled
  std::int32_t shownCount_ = 0;  // the FileCountMax that the text box was filled with
};

}  // namespace tarnwell::settings
