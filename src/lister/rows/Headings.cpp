#include "lister/rows/Headings.h"

#include <algorithm>
#include <stdexcept>

#include "base/Text.h"

namespace tarnwell::lister {
namespace {

struct HeadingDefault {
  std::string_view Name;  // as menus call it; empty for headings that no menu switches
  std::string_view Key;
  std::string_view Caption;
  std::string_view ToolTip;
  base::Twips Width;
  bool InFileList;
};

// In the order of HeadingId.
constexpr std::array<HeadingDefault, HeadingCount> Defaults{{
    {"", "sName", "Name", "Name of the item", 3600, true},
    {"Extension", "sExtension", "Extension", "What follows the last dot of the name", 1150, true},
    {"Size", "sSize", "Size", "Size in bytes", 1500, true},
    {"DateLastModified", "sModified", "Date Modified", "When the content was last changed", 2100,
     true},
    {"DateCreated", "sCreated", "Date Created", "When the item was made", 2100, false},
    {"DateLastAccessed", "sAccessed", "Date Accessed", "When the content was last read", 2100,
     false},
    {"FileType", "sType", "File Type", "Kind of the item", 1500, false},
    {"Attributes", "sAttributes", "Attributes",
     "R read-only, H hidden, S system, L link to another item", 1000, false},
    {"Comments", "sComments", "Comments", "Comment on the item", 2400, false},
    {"", "sPath", "Path", "Folder that holds the item", 3600, false},
    {"", "sPermissions", "Permissions", "What owner, group and others may do", 1300, false},
}};

std::size_t Checked(int heading) {
  if (heading < 0 || heading >= HeadingCount) throw std::out_of_range("heading number");
  return static_cast<std::size_t>(heading);
}

using Table = std::array<Heading, HeadingCount>;

// What says which heading this is cannot be changed: the list sorts by the key, and the menu
// switches by its name. A value of the wrong type is still an error.
void KeepIdentity(Table&, Heading&, const base::Value& value) {
  base::ToText(value);
}

void WriteIndex(Table& table, Heading& heading, const base::Value& value) {
  const std::int16_t index = base::ToInt16(value);
  const auto holder = std::find_if(table.begin(), table.end(),
                                   [&](const Heading& other) { return other.Index == index; });
  if (holder != table.end()) std::swap(holder->Index, heading.Index);
}

struct Attribute {
  std::string_view Name;
  base::Value (*Read)(const Heading&);
  void (*Write)(Table&, Heading&, const base::Value&);
};

constexpr Attribute Attributes[] = {
    {"key", [](const Heading& heading) { return base::Value(heading.Key); }, KeepIdentity},
    {"Width", [](const Heading& heading) { return base::Value(heading.Width); },
     [](Table&, Heading& heading, const base::Value& value) {
       heading.Width = std::clamp(base::ToInt32(value), LeastHeadingWidth, MostHeadingWidth);
     }},
    {"Index", [](const Heading& heading) { return base::Value(std::int32_t{heading.Index}); },
     WriteIndex},
    {"active", [](const Heading& heading) { return base::Value(heading.Active); },
     [](Table& table, Heading& heading, const base::Value& value) {
       heading.Active = base::ToBoolean(value) || &heading == table.data();  // the name stays
     }},
    {"MenuName", [](const Heading& heading) { return base::Value(heading.MenuName); },
     KeepIdentity},
    {"Caption", [](const Heading& heading) { return base::Value(heading.Caption); },
     [](Table&, Heading& heading, const base::Value& value) {
       heading.Caption = base::ToText(value);
     }},
    {"ToolTip", [](const Heading& heading) { return base::Value(heading.ToolTip); },
     [](Table&, Heading& heading, const base::Value& value) {
       heading.ToolTip = base::ToText(value);
     }},
};

const Attribute& FindAttribute(std::string_view name) {
  for (const Attribute& known : Attributes) {
    if (base::EqualsIgnoringCase(known.Name, name)) return known;
  }
  throw std::out_of_range("heading attribute");
}

}  // namespace

Headings::Headings(bool fileList) {
  for (std::size_t number = 0; number < table_.size(); ++number) {
    const HeadingDefault& start = Defaults[number];
    Heading& heading = table_[number];
    heading.Key = start.Key;
    heading.Width = start.Width;
    heading.Index = static_cast<std::int16_t>(number);
    heading.Active = number == 0 || (fileList && start.InFileList);
    if (!start.Name.empty()) heading.MenuName = "mnuHeading" + std::string(start.Name);
    heading.Caption = start.Caption;
    heading.ToolTip = start.ToolTip;
  }
}

base::Value Headings::Property(int heading, std::string_view attribute) const {
  return FindAttribute(attribute).Read(table_[Checked(heading)]);
}

void Headings::SetProperty(int heading, std::string_view attribute, const base::Value& value) {
  FindAttribute(attribute).Write(table_, table_[Checked(heading)], value);
}

int Headings::Beside(int heading, bool left) const {
  const std::array<HeadingId, HeadingCount> order = Order();
  const int step = left ? -1 : 1;
  int place = table_[Checked(heading)].Index + step;
  for (; place >= 0 && place < HeadingCount; place += step) {
    const HeadingId beside = order[static_cast<std::size_t>(place)];
    if (IsShown(beside)) return static_cast<int>(beside);
  }
  return -1;
}

bool Headings::Move(int heading, bool left) {
  Heading& moved = table_[Checked(heading)];
  const int beside = IsShown(static_cast<HeadingId>(heading)) ? Beside(heading, left) : -1;
  if (beside < 0) return false;
  std::swap(moved.Index, table_[static_cast<std::size_t>(beside)].Index);
  return true;
}

bool Headings::IsActive(std::string_view name) const {
  for (std::size_t number = 0; number < Defaults.size(); ++number) {
    if (!name.empty() && Defaults[number].Name == name) return table_[number].Active;
  }
  return false;
}

void Headings::SetNeeds(HeadingId id, const HeadingNeeds& needs) {
  needs_[static_cast<std::size_t>(id)] = needs;
}

void Headings::ResetWidths() {
  NameSized = false;
  for (std::size_t number = 0; number < table_.size(); ++number) {
    table_[number].Width = Defaults[number].Width;
  }
}

base::Twips Headings::ShownWidth(HeadingId id) const {
  const auto number = static_cast<std::size_t>(id);
  const base::Twips width = table_[number].Width;
  const base::Twips needed = needs_[number].Column;
  if (width != Defaults[number].Width || needed <= 0) return width;
  return std::clamp(needed, LeastHeadingWidth, MostHeadingWidth);
}

int Headings::FindByKey(std::string_view key) const {
  for (std::size_t number = 0; number < table_.size(); ++number) {
    if (table_[number].Key == key) return static_cast<int>(number);
  }
  return -1;
}

std::array<HeadingId, HeadingCount> Headings::Order() const {
  std::array<HeadingId, HeadingCount> order{};
  for (std::size_t number = 0; number < table_.size(); ++number) {
    order[static_cast<std::size_t>(table_[number].Index)] = static_cast<HeadingId>(number);
  }
  return order;
}

}  // namespace tarnwell::lister
