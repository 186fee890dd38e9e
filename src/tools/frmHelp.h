// The help: one page of text that scrolls, made of labels one below another, with a button at its
// top that leads to the user guide.
#pragma once

#include <array>
#include <functional>
#include <utility>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"
#include "tools/HelpText.h"

namespace tarnwell::tools {

// A label whose text is broken where its width ends.
struct HelpLabel : forms::Label {
  int FontSize = 10;  // points
  bool Bold = false;
};

enum class HelpScroll { LineUp, LineDown, PageUp, PageDown, Top, Bottom };

class frmHelp : public forms::Form {
 public:
  frmHelp(forms::FormHost& host, std::function<void()> openGuide)
      : Form("frmHelp"), host_(host), openGuide_(std::move(openGuide)) {}

  // How high the label has to be for its text, in twips.
  using HeightOf = std::function<base::Twips(const HelpLabel&)>;

  forms::Picture Picture1;  // holds the labels; its top is what the bar moves
  std::array<HelpLabel, HelpPartCount> lbltxt;
  forms::Button cmdGuide;  // moves with the labels; where it stands is up to the window
  forms::ScrollBar VScroll1;

  // Opens the form over the middle of the owner and shows it, not modally. One that is open already
  // stays where it is, and comes to the front.
  void ShowOver(forms::Form& owner);

  void Load() override;

  // The inside has that size from now on, in twips: lays all of it out anew. The bar, where there
  // is one, takes its own width of the labels' right ends. What is read stays in sight as far as
  // the range of the bar allows.
  void Resize(base::Twips width, base::Twips height, const HeightOf& heightOf);

  // --- What the user does.

  void VScroll1Change(base::Twips value);  // held within the range
  void Scroll(HelpScroll how);
  void cmdGuideClick() { openGuide_(); }
  // By the window's frame or Escape.
  void Close() { host_.Unload(*this); }

 private:
  void PlaceLabels(const HeightOf& heightOf);
  void SetRange(base::Twips height);

  forms::FormHost& host_;
  std::function<void()> openGuide_;
};

}  // namespace tarnwell::tools
