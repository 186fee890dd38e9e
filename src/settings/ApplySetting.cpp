#include "settings/ApplySetting.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "base/Value.h"

namespace tarnwell::settings {
namespace {

using base::ToBoolean;
using base::ToInt16;
using base::ToInt32;
using base::ToSingle;
using base::ToText;
using workspace::PaneRecord;
using workspace::ProgramSettings;
using Effect = void (*)(const SettingTargets&, const SettingRecord&);

template <auto Member>
void StoreBoolean(const SettingTargets& targets, const SettingRecord& record) {
  targets.Space.Settings.*Member = ToBoolean(record.Fields[0]);
}

template <auto Member>
void StorePaneSingle(const SettingTargets& targets, const SettingRecord& record) {
  for (std::size_t i = 0; i < targets.Space.Panes.size(); ++i) {
    targets.Space.Panes[i].*Member = ToSingle(record.Fields[i]);
  }
}

template <auto Member>
void StorePaneInt16(const SettingTargets& targets, const SettingRecord& record) {
  for (std::size_t i = 0; i < targets.Space.Panes.size(); ++i) {
    targets.Space.Panes[i].*Member = ToInt16(record.Fields[i]);
  }
}

template <auto Member>
void StorePaneInt32(const SettingTargets& targets, const SettingRecord& record) {
  for (std::size_t i = 0; i < targets.Space.Panes.size(); ++i) {
    targets.Space.Panes[i].*Member = ToInt32(record.Fields[i]);
  }
}

void StoreLayout(const SettingTargets& targets, const SettingRecord& record) {
  targets.Space.Settings.Layout = ToInt32(record.Fields[0]);
  workspace::ShowLayout(targets.Space);
}

void StoreCompareMode(const SettingTargets& targets, const SettingRecord& record) {
  workspace::Workspace& space = targets.Space;
  const std::int32_t mode = ToInt32(record.Fields[0]);
  space.Settings.CompareMode = mode;
  forms::Toolbar& toolbar = space.Form.Toolbar1;
  toolbar["compare_size"].Pressed = mode != 0 && mode != workspace::CompareDate;
  toolbar["compare_date"].Pressed = mode != 0 && mode != workspace::CompareSize;
  targets.Switches.SetCompareMode();
}

void StoreProgramPosition(const SettingTargets& targets, const SettingRecord& record) {
  workspace::MainForm& form = targets.Space.Form;
  const auto twips = [&record](std::size_t field) {
    return base::RoundToTwips(ToSingle(record.Fields[field]));
  };
  // Placing the window must start no arrangement.
  form.ResizeEnabled = false;
  if (const auto* word = std::get_if<std::string>(&record.Fields[0]); word && *word == "max") {
    form.Top = twips(1);
    form.Left = twips(2);
    form.PlaceRead = form.Top >= 0;
    form.State = forms::WindowState::Maximised;
    return;
  }
  // A window that was minimised at the end reported a place far off the screen.
  if (ToSingle(record.Fields[0]) < 0) {
    form.State = forms::WindowState::Maximised;
    return;
  }
  form.Top = twips(0);
  form.Left = twips(1);
  form.Width = twips(2);
  form.Height = twips(3);
  form.PlaceRead = true;
}

void StoreStatus(const SettingTargets& targets, const SettingRecord& record) {
  workspace::Workspace& space = targets.Space;
  space.OpenPaneCount = 0;
  for (std::size_t i = 0; i < space.Panes.size(); ++i) {
    space.Panes[i].Status = ToInt32(record.Fields[i]);
    const bool open = space.Panes[i].IsOpen();
    space.Form.Toolbar1["pane" + std::to_string(i)].Pressed = open;
    space.Form.Menus["mnuPane" + std::to_string(i)].Checked = open;
    if (open) ++space.OpenPaneCount;
  }
}

std::size_t CheckedIndex(std::int32_t index, std::size_t count) {
  if (index < 0 || static_cast<std::size_t>(index) >= count) {
    throw std::out_of_range("index " + std::to_string(index));
  }
  return static_cast<std::size_t>(index);
}

void StoreBookmark(const SettingTargets& targets, const SettingRecord& record) {
  auto& bookmarks = targets.Space.Settings.Bookmarks;
  const std::size_t slot = CheckedIndex(ToInt32(record.Fields[0]), bookmarks.size());
  bookmarks[slot].Path = ToText(record.Fields[1]);
}

void StoreInitialDrive(const SettingTargets& targets, const SettingRecord& record) {
  const std::string drive = ToText(record.Fields[1]);
  if (drive.empty()) return;
  auto& panes = targets.Space.Panes;
  panes[ToInt32(record.Fields[0])].InitialDrive = drive;
}

struct EffectRow {
  std::string_view Key;  // in capitals
  Effect Apply;
};

// Each row's effect stands beside its key; most only store a field.
constexpr std::array GlobalEffects = {
    EffectRow{"SHOWFILEICONS", StoreBoolean<&ProgramSettings::ShowFileIcons>},
    EffectRow{"SHOWFOLDERICONS", StoreBoolean<&ProgramSettings::ShowFolderIcons>},
    EffectRow{"MINIMIZETOTASKBAR", StoreBoolean<&ProgramSettings::MinimizeToTaskBar>},
    EffectRow{"OPERATIONSINWINDOW", StoreBoolean<&ProgramSettings::OperationsInWindow>},
    EffectRow{"FIRSTCOLOREVER", StoreBoolean<&ProgramSettings::FirstColorEver>},
    EffectRow{"ISFIRSTCOLORCODINGOVERMAX",
              StoreBoolean<&ProgramSettings::IsFirstColorCodingOverMax>},
    EffectRow{"USEENHANCEDMODE", StoreBoolean<&ProgramSettings::UseEnhancedMode>},
    EffectRow{"SKIPWIN9XWARNINGPANES", StoreBoolean<&ProgramSettings::SkipWin9XWarningPanes>},
    EffectRow{"FILECOUNTMAX",
              [](const SettingTargets& targets, const SettingRecord& record) {
                targets.Space.Settings.FileCountMax = ToInt32(record.Fields[0]);
              }},
    EffectRow{"SHOWCOLOR",
              [](const SettingTargets& targets, const SettingRecord& record) {
                targets.Switches.ShowColor(ToBoolean(record.Fields[0]));
              }},
    EffectRow{"SHOWCOMMANDLINE",
              [](const SettingTargets& targets, const SettingRecord& record) {
                targets.Switches.ShowCommandLine(ToBoolean(record.Fields[0]), true);
              }},
    EffectRow{"LAYOUTAUTOEXPAND",
              [](const SettingTargets& targets, const SettingRecord& record) {
                targets.Layout.SwitchAutoExpand(ToBoolean(record.Fields[0]));
              }},
    EffectRow{"FOLDERFILELISTING",
              [](const SettingTargets& targets, const SettingRecord& record) {
                targets.Space.Settings.FolderFileListing = ToText(record.Fields[0]);
              }},
    EffectRow{"BOOKMARK", StoreBookmark},
    EffectRow{"SKINNAME",
              [](const SettingTargets& targets, const SettingRecord& record) {
                targets.Space.Settings.SkinName = ToText(record.Fields[0]);
              }},
    EffectRow{"ONLINEVERSION",
              [](const SettingTargets& targets, const SettingRecord& record) {
                targets.Space.Settings.OnlineVersion = base::ToDouble(record.Fields[0]);
              }},
    EffectRow{"SHOWHIDDEN",
              [](const SettingTargets& targets, const SettingRecord& record) {
                targets.Space.Form.Menus["mnuHidden"].Checked = ToBoolean(record.Fields[0]);
              }},
    EffectRow{"SHOWSYSTEM",
              [](const SettingTargets& targets, const SettingRecord& record) {
                targets.Space.Form.Menus["mnuSystem"].Checked = ToBoolean(record.Fields[0]);
              }},
    EffectRow{"LAYOUT", StoreLayout},
    EffectRow{"COMPAREMODE", StoreCompareMode},
    EffectRow{"PROGRAMPOSITION", StoreProgramPosition},
    EffectRow{"PERCENTWIDTH", StorePaneSingle<&PaneRecord::PercentWidth>},
    EffectRow{"PERCENTHEIGHT", StorePaneSingle<&PaneRecord::PercentHeight>},
    EffectRow{"PERCENTWIDTHH", StorePaneSingle<&PaneRecord::PercentWidthH>},
    EffectRow{"PERCENTHEIGHTH", StorePaneSingle<&PaneRecord::PercentHeightH>},
    EffectRow{"ORDER", StorePaneInt16<&PaneRecord::Order>},
    EffectRow{"CONTROLGROUP", StorePaneInt16<&PaneRecord::ControlGroup>},
    EffectRow{"WIDTH", StorePaneInt32<&PaneRecord::Width>},
    EffectRow{"HEIGHT", StorePaneInt32<&PaneRecord::Height>},
    EffectRow{"WIDTHH", StorePaneInt32<&PaneRecord::WidthH>},
    EffectRow{"HEIGHTH", StorePaneInt32<&PaneRecord::HeightH>},
    EffectRow{"LEFT", StorePaneInt32<&PaneRecord::Left>},
    EffectRow{"STATUS", StoreStatus},
    EffectRow{"NAMESIZED", StorePaneInt32<&PaneRecord::NameSized>},
    EffectRow{"PANEACCENT", StorePaneInt32<&PaneRecord::Accent>},
    EffectRow{"INITIALDRIVE", StoreInitialDrive},
};

struct PaneRow {
  std::string_view Key;  // in capitals
  bool ForFolderList;
  bool ForFileList;
  void (*Apply)(lister::ListerControl&, const SettingRecord&);
};

// The sort levels of file lists are saved and yet not taken back: a file list starts by name.
constexpr std::array PaneEffects = {
    PaneRow{"HEADING", true, true,
            [](lister::ListerControl& list, const SettingRecord& record) {
              list.SetHeadingProperty(ToInt32(record.Fields[1]), ToText(record.Fields[2]),
                                      record.Fields[3]);
            }},
    PaneRow{"SORTING", true, false,
            [](lister::ListerControl& list, const SettingRecord& record) {
              list.AddSortKey(ToInt32(record.Fields[1]), ToText(record.Fields[2]),
                              ToText(record.Fields[3]));
            }},
    PaneRow{"EXPANDED", true, false,
            [](lister::ListerControl& list, const SettingRecord& record) {
              list.AddExpanded(ToText(record.Fields[1]));
            }},
    PaneRow{"ACTIVE", true, false,
            [](lister::ListerControl& list, const SettingRecord& record) {
              list.AddActiveItem(ToText(record.Fields[1]), ToText(record.Fields[2]));
            }},
    PaneRow{"LISTTYPE", false, true,
            [](lister::ListerControl& list, const SettingRecord& record) {
              list.ListType = ToInt32(record.Fields[1]);
            }},
    PaneRow{"LISTMODE", false, true,
            [](lister::ListerControl& list, const SettingRecord& record) {
              list.ListMode = ToInt32(record.Fields[1]);
            }},
};

void ApplyToPane(const SettingTargets& targets, const SettingRecord& record, std::string_view key,
                 int pane) {
  const auto row = std::ranges::find(PaneEffects, key, &PaneRow::Key);
  if (row == PaneEffects.end()) return;
  const std::int32_t list = ToInt32(record.Fields[0]);
  const bool folderList = row->ForFolderList && list == lister::FolderListOf(pane);
  const bool fileList = row->ForFileList && list == lister::FileListOf(pane);
  if (folderList || fileList) {
    row->Apply(targets.Space.Lists[static_cast<lister::ListId>(list)], record);
  }
}

void ApplyGlobally(const SettingTargets& targets, const SettingRecord& record,
                   std::string_view key) {
  const auto row = std::ranges::find(GlobalEffects, key, &EffectRow::Key);
  if (row != GlobalEffects.end()) {
    row->Apply(targets, record);
    return;
  }
  for (std::size_t i = 0; i < SkinColourKeys.size(); ++i) {
    if (base::EqualsIgnoringCase(SkinColourKeys[i], key)) {
      targets.Colours[i] = ToInt32(record.Fields[0]);
      return;
    }
  }
}

}  // namespace

void ApplySetting(const SettingTargets& targets, const SettingRecord& record, int scope) {
  const std::string key = base::AsciiUpper(record.Key);
  if (scope == GlobalScope) {
    ApplyGlobally(targets, record, key);
  } else {
    ApplyToPane(targets, record, key, scope);
  }
}

bool IsPaneKey(std::string_view upperKey) {
  return upperKey == "INITIALDRIVE" ||
         std::ranges::find(PaneEffects, upperKey, &PaneRow::Key) != PaneEffects.end();
}

}  // namespace tarnwell::settings
