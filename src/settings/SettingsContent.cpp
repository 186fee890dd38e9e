#include "settings/SettingsContent.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/Text.h"
#include "base/Value.h"
#include "settings/ApplySetting.h"
#include "settings/RecordWriter.h"

namespace tarnwell::settings {
namespace {

using base::Value;
using workspace::PaneRecord;
using workspace::ProgramSettings;
using workspace::Workspace;

// Fields that are not used are written as the number 0, which nothing stands for.
SettingRecord Record(std::string_view key, Value f1 = {}, Value f2 = {}, Value f3 = {},
                     Value f4 = {}) {
  return {std::string(key), {std::move(f1), std::move(f2), std::move(f3), std::move(f4), Value()}};
}

SettingRecord ProgramPosition(const Workspace& space) {
  const workspace::MainForm& form = space.Form;
  const auto top = static_cast<float>(form.Top);
  const auto left = static_cast<float>(form.Left);
  // A minimised window comes back as what it was.
  const bool minimised = form.State == forms::WindowState::Minimised;
  if ((minimised ? form.LastWindowState : form.State) == forms::WindowState::Maximised) {
    return Record("ProgramPosition", std::string("max"), top, left);
  }
  return Record("ProgramPosition", top, left, static_cast<float>(form.Width),
                static_cast<float>(form.Height));
}

template <auto Member>
Value Setting(const Workspace& space) {
  return space.Settings.*Member;
}

// In memory the value is text, and it does not outlive the run.
Value Zero(const Workspace&) {
  return std::int32_t{0};
}

struct SingleRow {
  std::string_view Key;
  Value (*Take)(const Workspace&);
  std::string_view Entry = {};  // without Take: the setting is the tick of this menu entry

  Value Of(const Workspace& space) const {
    return Take != nullptr ? Take(space) : Value(space.Form.Menus[Entry].Checked);
  }
};

// ShowCommandLine stands twice in every file, with the same value.
constexpr std::array ProgramRows = {
    SingleRow{"FolderFileListing", Zero},
    SingleRow{"SkipWin9XWarningPanes", Setting<&ProgramSettings::SkipWin9XWarningPanes>},
    SingleRow{"SkinName", Setting<&ProgramSettings::SkinName>},
    SingleRow{"Layout", Setting<&ProgramSettings::Layout>},
    SingleRow{"CompareMode", Setting<&ProgramSettings::CompareMode>},
    SingleRow{"UseEnhancedMode", Setting<&ProgramSettings::UseEnhancedMode>},
    SingleRow{"ShowCommandLine", nullptr, "mnuCommandOn"},
    SingleRow{"ShowColor", nullptr, "mnuColorOn"},
    SingleRow{"ShowFileIcons", Setting<&ProgramSettings::ShowFileIcons>},
    SingleRow{"ShowFolderIcons", Setting<&ProgramSettings::ShowFolderIcons>},
    SingleRow{"FileCountMax", Setting<&ProgramSettings::FileCountMax>},
    SingleRow{"MinimizeToTaskBar", Setting<&ProgramSettings::MinimizeToTaskBar>},
    SingleRow{"IsFirstColorCodingOverMax", Setting<&ProgramSettings::IsFirstColorCodingOverMax>},
    SingleRow{"FirstColorEver", Setting<&ProgramSettings::FirstColorEver>},
    SingleRow{"ShowCommandLine", nullptr, "mnuCommandOn"},
    SingleRow{"LayoutAutoExpand", nullptr, "mnuAutoExpandOn"},
    SingleRow{"OnlineVersion", Setting<&ProgramSettings::OnlineVersion>},
};

template <auto Member>
Value Field(const PaneRecord& pane) {
  if constexpr (std::is_same_v<decltype(pane.*Member), const std::int16_t&>) {
    return std::int32_t{pane.*Member};
  } else {
    return pane.*Member;
  }
}

struct PaneFieldRow {
  std::string_view Key;
  Value (*Take)(const PaneRecord&);
};

// As loaded while the lists do not exist.
Value NameSized(const Workspace& space, int pane) {
  if (!space.Panes[pane].Initialized) return space.Panes[pane].NameSized;
  return std::int32_t{(space.Lists.Folders(pane).NameSized() ? workspace::SizedTree : 0) |
                      (space.Lists.Files(pane).NameSized() ? workspace::SizedFiles : 0)};
}

// Records of all panes that stand behind the blocks of each.
struct ClosingRow {
  std::string_view Key;
  Value (*Take)(const Workspace&, int pane);
};

constexpr std::array ClosingRows = {
    ClosingRow{"NameSized", NameSized},
    ClosingRow{"PaneAccent",
               [](const Workspace& space, int pane) -> Value { return space.Panes[pane].Accent; }},
};

constexpr std::array PaneFieldRows = {
    PaneFieldRow{"PercentWidth", Field<&PaneRecord::PercentWidth>},
    PaneFieldRow{"PercentHeight", Field<&PaneRecord::PercentHeight>},
    PaneFieldRow{"PercentWidthH", Field<&PaneRecord::PercentWidthH>},
    PaneFieldRow{"PercentHeightH", Field<&PaneRecord::PercentHeightH>},
    PaneFieldRow{"Status", Field<&PaneRecord::Status>},
    PaneFieldRow{"Order", Field<&PaneRecord::Order>},
    PaneFieldRow{"ControlGroup", Field<&PaneRecord::ControlGroup>},
    PaneFieldRow{"Width", Field<&PaneRecord::Width>},
    PaneFieldRow{"Height", Field<&PaneRecord::Height>},
    PaneFieldRow{"WidthH", Field<&PaneRecord::WidthH>},
    PaneFieldRow{"HeightH", Field<&PaneRecord::HeightH>},
    PaneFieldRow{"Left", Field<&PaneRecord::Left>},
};

constexpr std::array SwitchRows = {
    SingleRow{"ShowHidden", nullptr, "mnuHidden"},
    SingleRow{"ShowSystem", nullptr, "mnuSystem"},
};

constexpr std::array<std::string_view, 7> HeadingAttributes = {
    "key", "Width", "Index", "active", "MenuName", "Caption", "ToolTip"};

// Behind the blocks of the panes.
constexpr std::array LastRows = {
    SingleRow{"OperationsInWindow", Setting<&ProgramSettings::OperationsInWindow>},
};

void AppendBookmarks(std::string& text, const ProgramSettings& settings) {
  for (std::size_t slot = 0; slot < settings.Bookmarks.size(); ++slot) {
    const auto number = static_cast<std::int32_t>(slot);
    if (!AppendRecord(text, Record("BookMark", number, settings.Bookmarks[slot].Path))) {
      AppendRecord(text, Record("BookMark", number, std::string(workspace::EmptyBookmark)));
    }
  }
}

void AppendHeadings(std::string& text, const lister::ListerControl& list) {
  for (std::int32_t heading = 0; heading < lister::HeadingCount; ++heading) {
    for (const std::string_view attribute : HeadingAttributes) {
      AppendRecord(text, Record("Heading", std::int32_t{list.Id()}, heading, std::string(attribute),
                                list.HeadingProperty(heading, attribute)));
    }
  }
}

void AppendSorting(std::string& text, const lister::ListerControl& list) {
  std::string key;
  std::string direction;
  for (std::int32_t level = 0; level < list.SortKeyCount(); ++level) {
    if (!list.GetSortKey(level, key, direction)) continue;
    AppendRecord(text, Record("SORTING", std::int32_t{list.Id()}, level, key, direction));
  }
}

void AppendPane(std::string& text, const Workspace& space, int pane) {
  const lister::ListerControl& folders = space.Lists.Folders(pane);
  const lister::ListerControl& files = space.Lists.Files(pane);
  const std::int32_t folderId = folders.Id();
  const std::int32_t fileId = files.Id();
  AppendRecord(text, Record("ListType", fileId, files.ListType));
  AppendRecord(text, Record("InitialDrive", folderId, folders.InitialDrive()));
  AppendRecord(text, Record("ListMode", fileId, files.ListMode));
  for (int i = 0; i <= folders.ExpandedCount(); ++i) {
    const std::string folder = folders.ExpandedFolder(i);
    if (!folder.empty()) AppendRecord(text, Record("Expanded", folderId, folder));
  }
  std::string folder;
  std::string item;
  for (int i = 0; i <= folders.ActiveItemCount(); ++i) {
    folders.GetActiveItem(i, folder, item);
    if (!item.empty()) AppendRecord(text, Record("Active", folderId, folder, item));
  }
  AppendHeadings(text, folders);
  AppendHeadings(text, files);
  AppendSorting(text, folders);
  AppendSorting(text, files);
}

bool SpeaksOfPane(const SettingRecord& record, int pane) {
  if (!IsPaneKey(base::AsciiUpper(record.Key))) return false;
  try {
    const std::int32_t list = base::ToInt32(record.Fields[0]);
    return list == lister::FolderListOf(pane) || list == lister::FileListOf(pane);
  } catch (const base::ConversionError&) {
    return false;
  }
}

void AppendLoadedPane(std::string& text, const std::vector<SettingRecord>& loaded, int pane) {
  for (const SettingRecord& record : loaded) {
    if (SpeaksOfPane(record, pane)) AppendRecord(text, record);
  }
}

}  // namespace

std::string SettingsContent(const Workspace& space, const std::vector<SettingRecord>& loaded) {
  std::string text;
  AppendRecord(text, ProgramPosition(space));
  for (const SingleRow& row : ProgramRows) AppendRecord(text, Record(row.Key, row.Of(space)));
  for (const PaneFieldRow& row : PaneFieldRows) {
    SettingRecord record = Record(row.Key);
    for (std::size_t i = 0; i < space.Panes.size(); ++i) {
      record.Fields[i] = row.Take(space.Panes[i]);
    }
    AppendRecord(text, record);
  }
  for (const SingleRow& row : SwitchRows) AppendRecord(text, Record(row.Key, row.Of(space)));
  AppendBookmarks(text, space.Settings);
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    if (space.Panes[pane].Initialized) {
      AppendPane(text, space, pane);
    } else {
      AppendLoadedPane(text, loaded, pane);
    }
  }
  for (const SingleRow& row : LastRows) AppendRecord(text, Record(row.Key, row.Of(space)));
  for (const ClosingRow& row : ClosingRows) {
    SettingRecord record = Record(row.Key);
    for (int pane = 0; pane < lister::PaneCount; ++pane) {
      record.Fields[static_cast<std::size_t>(pane)] = row.Take(space, pane);
    }
    AppendRecord(text, record);
  }
  AppendRecord(text, Record("End"));
  return text;
}

}  // namespace tarnwell::settings
