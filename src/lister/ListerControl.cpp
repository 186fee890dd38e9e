#include "lister/ListerControl.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <memory>
#include <tuple>
#include <utility>

#include "base/Text.h"
#include "lister/ListerParts.h"
#include "lister/list/ListingFile.h"

namespace tarnwell::lister {
namespace {

constexpr std::string_view HeadLeft = "headleft";
constexpr std::string_view HeadRight = "headright";

struct SortWord {
  std::string_view Word;
  bool Descending;
  bool Adds;
};

constexpr SortWord SortWords[] = {
    {"asc", false, false}, {"des", true, false}, {"ascadd", false, true}, {"desadd", true, true}};

// Highest number of a list with that many entries, in 16 bits.
std::int16_t HighestNumber(std::size_t count) {
  constexpr std::size_t most = std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(static_cast<int>(std::min(count, most + 1)) - 1);
}

}  // namespace

ListerControl::ListerControl(ListId list, const ListServices& services, ListerEvents& events)
    : parts_(std::make_unique<Parts>(list, *this, services, events)) {}

ListerControl::~ListerControl() = default;

ListId ListerControl::Id() const {
  return parts_->State.Id;
}

std::int32_t ListerControl::FolderListType() const {
  return IsFileList(Id()) ? 2 : 1;
}

const std::string& ListerControl::CurrentFolder() const {
  return parts_->State.Folder;
}

void ListerControl::SetCurrentFolder(const std::string& folder) {
  parts_->Body->SetFolder(folder);
}

void ListerControl::Initialize() {
  // Settings and colours came without a word to the widget for each.
  parts_->State.View().StyleChanged();
  parts_->State.View().HeadingsChanged();
}

void ListerControl::ResetStartItem() {
  parts_->Body->Input().ResetStart();
}

void ListerControl::SetDragGraphicsOn(bool on) {
  parts_->State.SetDragGraphicsOn(on);
}
void ListerControl::SetHoverGraphicsOn(bool on) {
  if (std::exchange(parts_->State.HoverGraphicsOn, on) != on) parts_->State.View().Repaint();
}

void ListerControl::Terminate() {
  parts_->Body->Input().Stop();
  parts_->State.IsTerminated = true;
  parts_->Body->Terminate();
  View = nullptr;
}

void ListerControl::SetActive(bool active) {
  if (std::exchange(parts_->State.IsActive, active) != active) parts_->State.View().StyleChanged();
}

void ListerControl::TakeFocus(std::string_view modifier) {
  parts_->Body->Input().SetModifiers(modifier == "shift"  ? ShiftDown
                                     : modifier == "ctrl" ? CtrlDown
                                                          : 0);
  parts_->State.View().TakeFocus();
}

void ListerControl::EnterMarks() {
  parts_->State.View().EnterMarks();
}

void ListerControl::RedrawList() {
  parts_->State.View().Repaint();
}

void ListerControl::EndWait() {
  CancelRequested = CancelRequested || parts_->State.IsWaiting;
}

void ListerControl::RefreshList() {
  parts_->Body->Refresh();
}

void ListerControl::RefreshAfterOperation() {
  RefreshList();
}

void ListerControl::SetEnhancedMode(bool on) {
  SetProperty("ShowColor", base::Value(on));
  if (parts_->State.Table[HeadingId::Comments].Active == on) return;
  parts_->Columns.Toggle(static_cast<int>(HeadingId::Comments));
}

// The widget follows the size of the list by itself; what is left is to paint it anew.
void ListerControl::SetLayout(std::int32_t) {
  parts_->State.View().Repaint();
}

void ListerControl::SetProperty(std::string_view name, const base::Value& value) {
  if (name == "ActiveHeading") {
    parts_->Columns.Click(base::ToInt16(value) - 1);
  } else if (name == "ActiveString") {
    parts_->Body->Input().SetTyped(base::ToText(value));
  } else if (parts_->State.Settings.Set(name, value)) {
    parts_->Body->SettingsChanged();
    parts_->State.View().Repaint();
  }
}

void ListerControl::ReloadColors() {
  parts_->State.View().StyleChanged();
}
void ListerControl::RedrawHeadings() {
  parts_->State.View().HeadingsChanged();
}
void ListerControl::RedrawItems() {
  parts_->State.View().Repaint();
}

// --- Drives and folders.

std::string ListerControl::InitialDrive() const {
  return parts_->State.Drive;
}

void ListerControl::LoadDrive(std::string& drive, bool) {
  if (drive.empty()) drive = parts_->State.Drive;
  if (drive.empty()) drive = parts_->State.Syntax.DefaultDrive;
  parts_->Body->LoadDrive(drive, false);
}

std::string ListerControl::DriveFolder(const std::string& drive) const {
  const ListState& state = parts_->State;
  if (!drive.empty()) return state.DriveFolder(drive);
  if (!state.Folder.empty()) return state.Folder;
  return state.DriveFolder(state.Drive.empty() ? std::string(state.Syntax.DefaultDrive)
                                               : state.Drive);
}

bool ListerControl::FolderExists(const std::string& folder) const {
  return parts_->State.Services.Files.FolderExists(folder);
}

void ListerControl::SetDriveFolder(const std::string& drive, const std::string& folder) {
  parts_->State.SetDriveFolder(drive, folder);
}

void ListerControl::LoadFolderContents(std::string& folder, bool) {
  parts_->Body->LoadContents(folder);
}

void ListerControl::ShowFound(const std::string& folder) {
  parts_->Body->ShowFound(folder);
}
void ListerControl::AddFound(const std::vector<platform::FoundItem>& items) {
  parts_->Body->AddFound(items);
}
bool ListerControl::ShowsFound() const {
  return parts_->Body->ShowsFound();
}
std::vector<platform::FoundItem> ListerControl::FoundItems() const {
  return parts_->Body->FoundItems();
}
void ListerControl::FollowMoved(const std::vector<platform::PlacedItem>& placed) {
  parts_->Body->FollowMoved(placed);
}

void ListerControl::OpenFolder(int, const std::string& folder) {
  parts_->Body->OpenFolder(folder);
}

void ListerControl::ExpandFolder(int, const std::string& folder, int) {
  parts_->Body->ExpandFolder(folder);
}
void ListerControl::GoToFolder(const std::string& folder) {
  parts_->Body->Input().GoToFolder(folder);
}

// A node is known by its path.
std::string ListerControl::CurrentNodeKey() const {
  return IsFileList(Id()) ? "" : parts_->State.Folder;
}

std::int32_t ListerControl::CurrentNodeLevel() const {
  return parts_->Body->OpenLevel();
}

std::string ListerControl::ParentOfKey(const std::string& key) const {
  return parts_->Body->ParentOfKey(key);
}

// --- Sorting and headings.

void ListerControl::SortCommand(std::string_view word) {
  const auto known = std::find_if(std::begin(SortWords), std::end(SortWords),
                                  [&](const SortWord& entry) { return entry.Word == word; });
  if (known == std::end(SortWords)) return;
  parts_->Columns.Sort(known->Descending, known->Adds);
}

std::int16_t ListerControl::SortKeyCount() const {
  return static_cast<std::int16_t>(parts_->State.Keys.Entries().size());
}

bool ListerControl::GetSortKey(int level, std::string& key, std::string& direction) const {
  if (level < 0 || level >= SortKeyCount()) return false;
  const SortKey& entry = parts_->State.Keys.Entries()[static_cast<std::size_t>(level)];
  key = parts_->State.Table[entry.Heading].Key;
  direction = entry.Descending ? "des" : "asc";
  return true;
}

void ListerControl::AddSortKey(int level, const std::string& key, const std::string& direction) {
  const int heading = parts_->State.Table.FindByKey(key);
  if (heading < 0 || (direction != "asc" && direction != "des")) return;
  if (!parts_->State.Keys.Set(level, {static_cast<HeadingId>(heading), direction == "des"})) return;
  parts_->Columns.Resort();
}

void ListerControl::MoveHeading(std::string_view word) {
  if (word == HeadLeft || word == HeadRight) parts_->Columns.MoveActive(word == HeadLeft);
}

void ListerControl::ChooseHeading(std::string_view word) {
  if (word == HeadLeft || word == HeadRight) parts_->Columns.Choose(word == HeadLeft);
}

void ListerControl::TurnSort() {
  parts_->Columns.DoubleClick(parts_->State.ActiveHeading, false);
}

void ListerControl::HeadingMenuClick(std::string_view menuName) {
  for (int heading = 0; heading < HeadingCount; ++heading) {
    const std::string& name = parts_->State.Table[static_cast<HeadingId>(heading)].MenuName;
    if (!name.empty() && name == menuName) parts_->Columns.Toggle(heading);
  }
}

bool ListerControl::HeadingActive(std::string_view name) const {
  return parts_->State.Table.IsActive(name);
}

base::Value ListerControl::HeadingProperty(int heading, std::string_view attribute) const {
  return parts_->State.Table.Property(heading, attribute);
}

void ListerControl::SetHeadingProperty(int heading, std::string_view attribute,
                                       const base::Value& value) {
  parts_->Columns.Set(heading, attribute, value);
}

bool ListerControl::NameSized() const {
  return parts_->State.Table.NameSized;
}

void ListerControl::SetNameSized(bool sized) {
  parts_->State.Table.NameSized = sized;
  parts_->State.View().HeadingsChanged();
}

void ListerControl::PlaceCursor(const std::vector<platform::PlacedItem>& placed,
                                std::function<bool()> tells) {
  parts_->Body->PlaceCursor(placed, std::move(tells));
}

// --- What is kept from run to run.

std::int16_t ListerControl::ExpandedCount() const {
  return HighestNumber(parts_->State.Expanded.Paths().size());
}

std::string ListerControl::ExpandedFolder(int number) const {
  if (number < 0 || number > ExpandedCount()) return "";
  return parts_->State.Expanded.Paths()[static_cast<std::size_t>(number)];
}

void ListerControl::AddExpanded(const std::string& folder) {
  parts_->State.Expanded.Add(folder);
}

std::int16_t ListerControl::ActiveItemCount() const {
  return HighestNumber(parts_->State.Active.Entries().size());
}

void ListerControl::GetActiveItem(int number, std::string& folder, std::string& item) const {
  folder.clear();
  item.clear();
  if (number < 0 || number > ActiveItemCount()) return;
  std::tie(folder, item) = parts_->State.Active.Entries()[static_cast<std::size_t>(number)];
}

void ListerControl::AddActiveItem(const std::string& folder, const std::string& item) {
  parts_->State.Active.Set(folder, item);
}

// --- Tools.

std::vector<ColouredItem> ListerControl::SetItemColor(const std::string& word,
                                                      std::int32_t& count) {
  const ItemColour colour = ColourOfWord(word);
  const bool isKnown = colour != ItemColour::Default || word == ItemColours[0].Word;
  std::vector<ColouredItem> changed;
  if (isKnown) changed = parts_->Body->SetItemColour(colour);
  count = parts_->Body->FileCount();
  return changed;
}

void ListerControl::CalculateFolderSizes() {
  parts_->Body->CalculateFolderSizes();
}
void ListerControl::CalculateItemSize() {
  parts_->Body->CalculateItemSize();
}

std::vector<CompareRecord> ListerControl::CompareRecords() const {
  return parts_->Body->CompareRecords();
}
void ListerControl::CompareAgainst(std::vector<CompareRecord>& records, std::int32_t& mode) {
  parts_->Body->CompareAgainst(records, mode);
}
void ListerControl::CompareSelf(const std::vector<CompareRecord>& records) {
  parts_->Body->CompareSelf(records);
}

bool ListerControl::SaveListing(const std::string& path) {
  return WriteListing(parts_->State, *parts_->Body, path);
}

void ListerControl::ShowStatus(const std::string& text) {
  parts_->Body->ShowStatus(base::ForDisplay(text));
}

void ListerControl::WatchStart() {
  if (!parts_->State.IsTerminated) parts_->Body->Follower.Start();
}
void ListerControl::WatchStop() {
  parts_->Body->Follower.Stop();
}
void ListerControl::WatchResume() {
  if (!parts_->State.IsTerminated) parts_->Body->Follower.Resume();
}

void ListerControl::LookAtDisk(LookReason reason) {
  if (parts_->State.IsTerminated) return;
  FolderFollower& follower = parts_->Body->Follower;
  const bool mayLook = Visible || reason == LookReason::Mounts;  // these are told of once
  if (!mayLook || parts_->State.Services.OpenBrackets > 0) return follower.LookAgainLater();
  follower.Look(reason);
  if (reason != LookReason::User) parts_->Body->LookAtFound();
}

void ListerControl::DrivesChanged() {
  parts_->State.View().DrivesChanged();
  LookAtDisk(LookReason::Mounts);
  parts_->Body->DrivesChanged();
}

// --- For the widget.

const ListRows& ListerControl::Rows() const {
  return *parts_->Body;
}
ListRows& ListerControl::Rows() {
  return *parts_->Body;
}
const ListInput& ListerControl::Input() const {
  return parts_->Body->Input();
}
ListInput& ListerControl::Input() {
  return parts_->Body->Input();
}
const ListAppearance& ListerControl::Shown() const {
  return parts_->State;
}
ListColumns& ListerControl::Columns() {
  return parts_->Columns;
}
const ListerUser& ListerControl::User() const {
  return parts_->User;
}
ListerUser& ListerControl::User() {
  return parts_->User;
}
const platform::NumberForms& ListerControl::Forms() const {
  return parts_->State.Services.Forms;
}

void ListerControl::CatchUp() {
  parts_->Body->CatchUp();
}

}  // namespace tarnwell::lister
