#include "tools/frmHelp.h"

#include <algorithm>
#include <cstddef>

namespace tarnwell::tools {
namespace {

struct HelpLook {
  int FontSize;
  bool Bold;
  base::Colour ForeColour;
};

// By HelpStyle.
constexpr HelpLook HelpLooks[] = {
    {12, true, base::Black}, {10, true, base::Rgb(22, 96, 177)}, {10, false, base::Black}};

// In twips.
constexpr base::Twips BarWidth = 300;
constexpr base::Twips FirstFarEnd = -20;
constexpr base::Twips SmallStep = 13 * base::TwipsPerPixel;
constexpr base::Twips LabelLeft = 90;
constexpr base::Twips LabelGap = 30;

}  // namespace

void frmHelp::ShowOver(forms::Form& owner) {
  const bool isNew = View == nullptr;
  host_.Open(*this);
  if (isNew) CentreOn(owner);
  host_.Show(*this, &owner);
}

void frmHelp::Load() {
  Caption = "Help";
  BackColour = Picture1.BackColour = base::White;
  Picture1.Top = 0;
  cmdGuide.Caption = "User &Guide";
  cmdGuide.ToolTip = "How to do things, one page a task, and all keys.";
  cmdGuide.Default = true;
  VScroll1 = {};
  VScroll1.Width = BarWidth;
  VScroll1.Max = FirstFarEnd;
  VScroll1.SmallChange = SmallStep;
  for (std::size_t i = 0; i < lbltxt.size(); ++i) {
    const HelpPart& part = HelpText()[i];
    const HelpLook& look = HelpLooks[static_cast<std::size_t>(part.Style)];
    HelpLabel& label = lbltxt[i];
    label.Visible = false;
    label.Caption = part.Text;
    // One blank line before the text, and one to keep it off the next heading.
    if (part.Style == HelpStyle::Body) label.Caption = "\r\n" + label.Caption + "\r\n";
    label.FontSize = look.FontSize;
    label.Bold = look.Bold;
    label.ForeColour = look.ForeColour;
  }
}

void frmHelp::Resize(base::Twips width, base::Twips height, const HeightOf& heightOf) {
  Picture1.Left = 0;
  Picture1.Width = width;
  VScroll1.Left = width - BarWidth;
  VScroll1.Top = 0;
  VScroll1.Height = height;
  VScroll1.LargeChange = std::max(height, SmallStep);
  PlaceLabels(heightOf);
  SetRange(height);
  for (HelpLabel& label : lbltxt) label.Visible = true;
  Touch();
}

void frmHelp::PlaceLabels(const HeightOf& heightOf) {
  base::Twips top = 0;
  for (HelpLabel& label : lbltxt) {
    label.Left = LabelLeft;
    label.Width = std::max(Picture1.Width - LabelLeft, 0);
    label.Top = top;
    label.Height = heightOf(label);
    top = label.Top + label.Height + LabelGap;
  }
}

void frmHelp::SetRange(base::Twips height) {
  const base::Twips bottom = lbltxt.back().Top + lbltxt.back().Height;
  const base::Twips overflow = bottom - height;
  // The panel has to be as high as what it holds, or it would cut that off.
  Picture1.Height = std::max(height, bottom);
  VScroll1.Visible = overflow >= 1;
  VScroll1.Max = VScroll1.Visible ? -overflow : 0;
  VScroll1Change(VScroll1.Value);
}

void frmHelp::VScroll1Change(base::Twips value) {
  VScroll1.Value = Picture1.Top = std::clamp(value, VScroll1.Max, VScroll1.Min);
  Touch();
}

void frmHelp::Scroll(HelpScroll how) {
  const forms::ScrollBar& bar = VScroll1;
  switch (how) {
    case HelpScroll::LineUp:
      return VScroll1Change(bar.Value + bar.SmallChange);
    case HelpScroll::LineDown:
      return VScroll1Change(bar.Value - bar.SmallChange);
    case HelpScroll::PageUp:
      return VScroll1Change(bar.Value + bar.LargeChange);
    case HelpScroll::PageDown:
      return VScroll1Change(bar.Value - bar.LargeChange);
    case HelpScroll::Top:
      return VScroll1Change(bar.Min);
    case HelpScroll::Bottom:
      return VScroll1Change(bar.Max);
  }
}

}  // namespace tarnwell::tools
