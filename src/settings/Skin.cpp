#include "settings/Skin.h"

#include <array>
#include <cstdint>
#include <exception>

#include "base/Text.h"
#include "settings/RecordReader.h"
#include "workspace/Highlight.h"

namespace tarnwell::settings {
namespace {

// The colours that lists paint themselves with, in the order in which they get them.
constexpr std::array ListColours = {
    ColorActiveHeading,       ColorActiveHeadingText, ColorInactiveHeading,
    ColorInactiveHeadingText, ColorHeadingHoverText,  ColorProgramBackground,
    ColorPaneBackground,      ColorDriveList,         ColorDriveText,
    ColorStatusBackground,    ColorStatusText,        ColorMinorToolbar,
    ColorListBackground,      ColorListText,          ColorActiveListOutline,
    ColorInActiveListOutline, ColorActiveItemOutline, ColorActiveItemUnderline,
    ColorTextSecondary,
};

constexpr std::int32_t OldSystemBorder = 2;  // pixels

}  // namespace

void Skin::LoadSkin(const std::string& name) {
  targets_.Space.Settings.SkinName = base::ToCapitals(name);
  std::string content;
  if (!skins_.Read(name, content)) {
    messenger_.Message(
        "The last used 'skin' could not be found.\r\n\r\n"
        "It is recommended that you create a suitable color scheme by selecting 'Choose Skin' "
        "from the 'Layout' menu.",
        forms::MessageKind::Ok);
    return;
  }
  bool& resizeEnabled = targets_.Space.Form.ResizeEnabled;
  const bool wasEnabled = resizeEnabled;
  RecordReader reader(content);
  SettingRecord record;
  while (reader.Read(record)) {
    if (base::HoldsNothing(record.Fields[0])) continue;
    try {
      ApplySetting(targets_, record, GlobalScope);
    } catch (const std::exception&) {
      // A value that cannot be read leaves its colour as it was.
    }
  }
  // A place of the window in the file has stopped the arranging, for a start that is over.
  resizeEnabled = wasEnabled;
  ApplySkinChange();
  if (loaded_) loaded_();
}

void Skin::SendProperty(std::string_view name, const base::Value& value) {
  try {
    targets_.Space.ForEachList([&](lister::ListerControl& list) { list.SetProperty(name, value); });
  } catch (const std::exception&) {
    // The lists before the failing one have the value.
  }
}

void Skin::ApplySkinChange() {
  for (const SkinColour colour : ListColours) {
    SendProperty(SkinColourKeys[colour], targets_.Colours[colour]);
  }
  if (targets_.Space.IsWin9x) SendProperty("BorderWidth", OldSystemBorder);
  try {
    PaintForm();
  } catch (const std::exception&) {
    // What was painted so far stays.
  }
}

void Skin::PaintForm() {
  workspace::Workspace& space = targets_.Space;
  workspace::MainForm& form = space.Form;
  const SkinColours& colours = targets_.Colours;
  form.MenuBackColour = colours[ColorMainMenu];
  form.BackColour = colours[ColorProgramBackground];
  form.ListBackColour = colours[ColorListBackground];
  form.ListForeColour = colours[ColorListText];
  form.AccentColour = colours[ColorActiveItemOutline];
  form.HasSkin = colours != SkinColours{};
  form.txtCurrentPath.BackColour = colours[ColorProgramBackground];
  form.txtCurrentPath.ForeColour = colours[ColorCurrentFolderText];
  form.cboCommand.BackColour = colours[ColorCommandLineList];
  form.cboCommand.ForeColour = colours[ColorCommandLineText];
  space.Titles = {.Active = colours[ColorActiveTitle],
                  .ActiveText = colours[ColorActiveTitleText],
                  .Inactive = colours[ColorInactiveTitle],
                  .InactiveText = colours[ColorInactiveTitleText]};
  workspace::HighlightActiveList(space, true);
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    form.shpBack[pane].BackColour = colours[ColorPaneBackground];
    const lister::ListId folderList = lister::FolderListOf(pane);
    const lister::ListId fileList = lister::FileListOf(pane);
    form.lblNoRoom[folderList].BackColour = colours[ColorPaneBackground];
    form.lblNoRoom[fileList].BackColour = colours[ColorPaneBackground];
    if (!space.Panes[pane].Initialized) continue;
    lister::ListerControl& folders = space.Lists[folderList];
    lister::ListerControl& files = space.Lists[fileList];
    folders.ReloadColors();
    files.ReloadColors();
    folders.RedrawHeadings();
    files.RedrawHeadings();
    folders.RedrawItems();
    files.RedrawItems();
  }
  if (lister::ListerControl* const found = space.Lists.Find(lister::FoundList)) {
    found->ReloadColors();
    found->RedrawHeadings();
    found->RedrawItems();
  }
  form.Touch();
}

}  // namespace tarnwell::settings
