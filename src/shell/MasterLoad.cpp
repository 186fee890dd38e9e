// The load of the main form: its stages, and what each of them does.
#include <algorithm>
#include <exception>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "commands/MenuTable.h"
#include "commands/ToolbarTable.h"
#include "fileops/AsideItems.h"
#include "lister/rows/CellText.h"
#include "shell/Master.h"
#include "shell/ProgramFiles.h"
#include "workspace/Highlight.h"

namespace tarnwell::shell {
namespace {

// Measures of the form, in twips.
constexpr base::Twips PaneGap = 60;
constexpr base::Twips CommandStripHeight = 335;
constexpr base::Twips TitleTop = 410;
constexpr base::Twips TitleBarHeight = 255;
constexpr base::Twips TitlePictureHeight = 315;
constexpr base::Twips TitlePictureWidth = 315;
constexpr base::Twips CommandLineHeight = 315;
constexpr int OldSystemBorder = 2;

}  // namespace

struct Master::Stage {
  std::string_view Status;
  void (Master::*Run)();
};

// The words are shown as they stand, and a failing stage is named by them.
const Master::Stage Master::Stages[] = {
    {"setting up menus...", nullptr},  // they come with the form
    {"creating menu links...", &Master::LinkMenus},
    {"assigning images...", &Master::AssignImages},
    {"detecting environment...", &Master::DetectEnvironment},
    {"creating toolbars...", &Master::CreateToolbars},
    {"setting intial properties...", &Master::SetInitialProperties},
    {"checking for proper shut down...", &Master::CheckShutDown},
    {"getting last settings used...", &Master::GetLastSettings},
    {"storing start up information...", &Master::PlaceRunFile},
    {"preparing initial views...", &Master::PrepareViews},
    {"getting mouse information...", &Master::GetMouseInformation},
    {"highlighting active list...", &Master::ShowActiveList},
};

void Master::Load() {
  space_.Form.ResizeEnabled = true;
  space_.Form.FirstResizePending = true;
  try {
    for (const Stage& stage : Stages) {
      splash_.ShowStatus(std::string(stage.Status));
      if (stage.Run != nullptr) (this->*stage.Run)();
    }
  } catch (const std::exception&) {
    messages_.Message(
        "An error has occurred while starting Tarnwell.\r\n\r\n"
        "The error occurred during this stage: " +
            splash_.txtStatus.Caption + "\r\n\r\nPlease send an e-mail to " +
            std::string(tools::SupportAddress) +
            " regarding possible fixes to this issue and quote error number: "
            "TW0101. Tarnwell must now close.",
        forms::MessageKind::Ok);
    splash_.StartFailed = true;
  }
}

void Master::LinkMenus() {
  space_.Form.MenuImages.Attach();
}

void Master::AssignImages() {
  workspace::MainForm& form = space_.Form;
  form.MenuImages.DrawImages(true);
  form.MenuImages.TakeImages(form.ImageList1);
  for (const commands::MenuImageRow& row : commands::MenuImageTable()) {
    form.MenuImages.SetImage(row.Caption, form.ImageList1.Index(row.ImageKey));
  }
}

void Master::DetectEnvironment() {
  const platform::SystemInfo& system = services_.System;
  const auto found = [this](const char* name) {
    space_.OsName = name;
    space_.IsWin9x = true;
  };
  if (system.IsWindows95()) found("Windows 95");
  if (system.IsWindows98()) found("Windows 98");
  if (system.IsWindowsMe()) found("Windows Me");
}

void Master::CreateToolbars() {
  commands::SetToolbarIcons(space_.Form);
}

void Master::SetInitialProperties() {
  try {
    SetControlProperties();
  } catch (const std::exception&) {
    messages_.Message("A error occurred while setting up the initial form properties.",
                      forms::MessageKind::Ok);
  }
}

void Master::SetControlProperties() {
  workspace::MainForm& form = space_.Form;
  space_.PaneGap = PaneGap;
  space_.CommandStripHeight = CommandStripHeight;
  space_.Area.TitleTop = TitleTop;
  FitTitles(0);
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    form.cmdClosePane[pane].Width = TitlePictureWidth;
    form.cmdTitle[pane].Width = TitlePictureWidth;
    form.TitleBar[pane].BackColour = colours_[settings::ColorInactiveTitle];
    for (const lister::ListId list : {lister::FolderListOf(pane), lister::FileListOf(pane)}) {
      form.lblNoRoom[list].Caption = "Area too small to display items.";
    }
    if (space_.IsWin9x) form.shpBack[pane].BorderStyle = OldSystemBorder;
  }
  for (forms::Shape* bar : {&form.LineVert, &form.LineHorz, &form.LineVert2, &form.LineHorz2}) {
    bar->Visible = false;
  }
  form.LineHorz.Height = form.LineHorz2.Height = PaneGap;
  form.LineVert.Width = form.LineVert2.Width = PaneGap;
  form.LineVert.BackColour = form.LineHorz.BackColour = base::Rgb(166, 202, 240);
  form.LineVert2.BackColour = form.LineHorz2.BackColour = base::Rgb(150, 150, 150);
  form.txtCurrentPath.BackColour = colours_[settings::ColorProgramBackground];
  form.txtCurrentPath.Height = CommandLineHeight;
  form.cboCommand.Height = CommandLineHeight;
  space_.KeyArmed = true;
}

// The row is as high as its pictures, which stand lower than the text box by a part of a gap.
void Master::FitTitles(base::Twips textHeight) {
  workspace::MainForm& form = space_.Form;
  const base::Twips pictures = std::max(TitlePictureHeight, textHeight);
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    form.TitleBar[pane].Height = pictures - (TitlePictureHeight - TitleBarHeight);
    form.cmdClosePane[pane].Height = form.cmdTitle[pane].Height = pictures;
  }
}

// What a run left that was killed while it replaced or renamed items.
void Master::TellOfAside() {
  const std::string record = ProgramFile(platform::AsideRecordName);
  std::string content;
  if (!services_.Files.Exists(record) || !services_.Files.ReadFile(record, content)) return;
  fileops::AsideItems items(services_.Files, content);
  std::string told;
  for (const auto& [item, aside] : items.Found()) {
    told += (told.empty() ? " The item\r\n" : "\r\n\r\nThe item\r\n") + base::ForDisplay(item) +
            "\r\nis whole, and is now called\r\n" +
            lister::NameText(services_.Files.Syntax(), aside);
  }
  if (!told.empty()) {
    const bool asks = items.CanGoBack();
    messages_.Message("Tarnwell was ended while it was replacing or renaming an item." + told +
                          (asks ? "\r\n\r\nDo you want the old name back, where it is free?" : ""),
                      asks ? forms::MessageKind::YesNo : forms::MessageKind::Ok);
    if (asks && messages_.MessageResult() == "YES") TellOfTrouble(items.GoBack());
  }
  if (items.Away().empty()) {
    services_.Files.RemoveFile(record);
  } else if (items.Away() != content) {
    services_.Files.WriteFile(record, items.Away());
  }
}

void Master::TellOfTrouble(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += "\r\n" + line;
  if (!text.empty())
    messages_.Message("The old name could not be given back:\r\n" + text, forms::MessageKind::Ok);
}

void Master::CheckShutDown() {
  TellOfAside();
  if (!services_.Files.Exists(ProgramFile(RunMarkerName))) return;
  messages_.Message(
      "It appears as though Tarnwell did not shut down properly or another copy is already "
      "running.\r\n\r\nDo you want to reset to all of Tarnwell's default settings?",
      forms::MessageKind::YesNo);
  if (messages_.MessageResult() == "YES") services_.Files.RemoveFile(settingsFile_.Path());
}

void Master::GetLastSettings() {
  markers_ = settings::LoadLastSettings(
      {space_, panes_, settingsFile_, skin_, switches_, services_.Files.Syntax(),
       [this](const std::string& text) { splash_.ShowStatus(text); },
       static_cast<int>(services_.StartFolders.size())});
}

// Whatever has the name makes room first: through a link the marker would empty another file.
base::Status Master::MakeRunMarker() {
  const std::string marker = ProgramFile(RunMarkerName);
  if (services_.Files.Exists(marker)) {
    if (base::Status status = services_.Files.RemoveFile(marker); !status) return status;
  }
  return services_.Files.WriteFile(marker, "");
}

// A full or read-only disk keeps nobody from looking at files, least of all from making room.
void Master::PlaceRunFile() {
  base::Status status = services_.System.FolderTrouble();
  if (status) status = MakeRunMarker();
  if (status) return;
  messages_.Message("Tarnwell cannot write to its own folder, " + services_.System.ProgramFolder() +
                        ":\r\n" + status.Reason +
                        ".\r\n\r\nYou can go on, but your settings may not be kept.",
                    forms::MessageKind::Ok);
}

void Master::PrepareViews() {
  workspace::MainForm& form = space_.Form;
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    form.cmdClosePane[pane].Visible = false;
    form.TitleBar[pane].Visible = false;
    form.cmdTitle[pane].Visible = false;
    if (!space_.Panes[pane].Initialized) continue;
    space_.Lists.Folders(pane).Visible = false;
    space_.Lists.Files(pane).Visible = false;
  }
  form.Toolbar1.Visible = false;
  form.Refresh();
  form.Toolbar1.Visible = true;
}

void Master::GetMouseInformation() {
  space_.ActiveList = space_.InitialActivePane;
}

void Master::ShowActiveList() {
  workspace::HighlightActiveList(space_, false);
  space_.Form.ResizeEnabled = true;
  space_.Form.UnloadHandler = [this] { Shutdown(); };
  toSave_ = toUnmark_ = true;
  services_.Drives.OnChange(
      [this] { space_.ForEachList([](lister::ListerControl& list) { list.DrivesChanged(); }); });
  splash_.LoadFinished = true;
}

}  // namespace tarnwell::shell
