// The other ports in memory, and all of them together as a test of a list or a form wants them.
#pragma once

#include "base/Caption.h"
#include "base/ItemList.h"
#include "fakes/FakeTrashCan.h"
#include "fakes/MemoryFileSystem.h"
#include "lister/ListerControl.h"
#include "lister/rows/CellText.h"
#include "platform/Clock.h"
#include "platform/ContextMenu.h"
#include "platform/FileOperation.h"
#include "platform/FileSearch.h"
#include "platform/FolderWatch.h"
#include "platform/ItemWindows.h"
#include "platform/Keyboard.h"
#include "platform/MessagePump.h"
#include "platform/NetworkPlaces.h"
#include "platform/NumberForms.h"
#include "platform/PopupMenu.h"
#include "platform/ShellWindows.h"
#include "platform/SystemInfo.h"
#include "platform/Tray.h"
#include "platform/UserSettings.h"

namespace tarnwell::fakes {

// Offers what a test puts into Volumes.
class FakeDrives : public platform::Drives {
 public:
  explicit FakeDrives(const base::PathSyntax& syntax) : syntax_(syntax) {
    Volumes.push_back({std::string(syntax.DefaultDrive), "System"});
    if (!syntax.RootMark.empty()) Volumes.push_back({"D", "Data"});
  }

  std::vector<platform::Drive> Volumes;
  std::string Home;

  // What the platform does after volumes came or went.
  void Change() const {
    if (changed_) changed_();
  }

  std::vector<platform::Drive> List() const override { return Volumes; }
  std::string HomeFolder() const override { return Home; }
  std::string DriveOf(const std::string& path) const override {
    std::string best;
    for (const auto& [name, label] : Volumes) {
      const bool isNearer = syntax_.DriveRoot(name).size() >= syntax_.DriveRoot(best).size();
      if (isNearer && syntax_.IsWithin(path, syntax_.DriveRoot(name))) best = name;
    }
    return best;
  }
  void OnChange(std::function<void()> changed) override { changed_ = std::move(changed); }

 private:
  const base::PathSyntax& syntax_;
  std::function<void()> changed_;
};

class FakeFolderWatch : public platform::FolderWatch {
 public:
  bool Refuses = false;  // no folder can be watched

  // The folders under watch, in the order of their starts.
  std::vector<std::string> Watched() const {
    std::vector<std::string> folders;
    for (const auto& [number, entry] : *entries_) folders.push_back(entry.first);
    return folders;
  }
  // Tells everyone who watches the folder that it changed.
  void Notify(const std::string& folder,
              const platform::FolderChanges& changes = {{}, true, false}) {
    // A listener may start and stop watches.
    for (const auto entries = *entries_; const auto& [number, entry] : entries) {
      if (entries_->contains(number) && entry.first == folder) entry.second(changes);
    }
  }

  std::unique_ptr<platform::Watch> Start(const std::string& folder, Changed changed) override {
    if (Refuses) return nullptr;
    entries_->insert({++last_, {folder, std::move(changed)}});
    return std::make_unique<Handle>(entries_, last_);
  }

 private:
  // Each watched folder with its listener, by the number of the watch.
  using Entries = std::map<int, std::pair<std::string, Changed>>;
  struct Handle : platform::Watch {
    Handle(std::shared_ptr<Entries> entries, int number)
        : All(std::move(entries)), Number(number) {}
    ~Handle() override { All->erase(Number); }
    std::shared_ptr<Entries> All;
    int Number;
  };
  std::shared_ptr<Entries> entries_ = std::make_shared<Entries>();
  int last_ = 0;
};

// Stamps of the folders in memory.
class FakeFolderStamps : public platform::FolderStamps {
 public:
  explicit FakeFolderStamps(const MemoryFileSystem& files) : files_(files) {}

  std::string Afar, ByLink;                       // folders that are so, and what is below them
  std::vector<std::function<void()>> Unanswered;  // looks afar; a call answers one

  platform::FolderFacts ReadFacts(const std::string& folder) const override {
    const auto is = [&](const std::string& top) { return !top.empty() && folder.starts_with(top); };
    return {.Stamp = Read(folder), .IsLocal = !is(Afar), .IsByLink = is(ByLink)};
  }
  platform::FolderStamp Read(const std::string& folder) const override {
    return files_.StampOf(folder);
  }
  std::unique_ptr<platform::StampRequest> Ask(std::vector<std::string> folders,
                                              Told told) override {
    Unanswered.push_back([told, stamp = Read(folders.at(0))] { told({stamp}); });
    return std::make_unique<platform::StampRequest>();
  }

 private:
  const MemoryFileSystem& files_;
};

// A pump whose messages are the callbacks that a test posts. A callback may call the code that
// pumps, and so nest calls.
class FakePump : public platform::MessagePump {
 public:
  int Calls = 0;

  // Runs at the next call of DoEvents; a second one posted runs at the call after that.
  void Post(std::function<void()> message) { messages_.push_back(std::move(message)); }
  // Forgets what has not run.
  void Drop() { messages_.clear(); }

  void DoEvents() override {
    ++Calls;
    if (messages_.empty()) return;
    const std::function<void()> message = std::move(messages_.front());
    messages_.erase(messages_.begin());
    message();
  }
  void WaitForEvents() override { DoEvents(); }

 private:
  std::vector<std::function<void()>> messages_;
};

// Notes what was to be shown.
struct FakeItemWindows : platform::ItemWindows {
  std::vector<std::vector<std::string>> Properties;
  void ShowProperties(const std::vector<std::string>& paths) override {
    Properties.push_back(paths);
  }
  std::optional<platform::ChosenApplication> ChooseApplication(
      const std::string&, const std::string&,
      const std::vector<platform::ApplicationChoice>&) override {
    return {};
  }
  platform::RunChoice AskRun(const platform::RunQuestion&) override { return {}; }
  void OpenFolder(const std::string&) override {}
};

// The same of the windows of a shell.
struct FakeShellWindows : platform::ShellWindows {
  std::vector<std::string> Told;
  int Instance = 33;
  std::function<void()> OnEmpty = [] {};

  void OpenRecycleBin() override { Told.push_back("open bin"); }
  void EmptyRecycleBin(const std::string& rootPath) override {
    Told.push_back("empty " + rootPath);
    OnEmpty();
  }
  void MapNetworkDrive() override { Told.push_back("map"); }
  void DisconnectNetworkDrive() override { Told.push_back("disconnect"); }
  int ShowProperties(const std::vector<std::string>& paths) override {
    Told.push_back("properties");
    for (const std::string& path : paths) Told.back() += " " + path;
    return Instance;
  }
};

// A clock whose time zone is UTC.
class FakeClock : public platform::Clock {
 public:
  std::int64_t Time = 0;  // nanoseconds since 1970
  std::int64_t Tick = 0;  // milliseconds
  // Added to Tick each time it is asked for, so that work that measures time finds it has passed.
  std::int64_t TickStep = 0;

  std::int64_t Now() const override { return Time; }
  platform::LocalTime ToLocal(std::int64_t nanoseconds) const override {
    using namespace std::chrono;
    const sys_seconds moment(floor<seconds>(std::chrono::nanoseconds(nanoseconds)));
    const sys_days day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(moment - day);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
  }
  std::int64_t Ticks() const override {
    const_cast<FakeClock*>(this)->Tick += TickStep;
    return Tick;
  }
};

// Letters by their code points.
class FakeCollation : public platform::Collation {
 public:
  void AppendWeights(std::string_view text, std::string& key) const override {
    for (const char letter : text) key += letter == '\1' ? '\2' : letter;
  }
};

// Remembers what was to be opened.
class FakeLauncher : public platform::Launcher {
 public:
  std::vector<platform::LaunchRequest> Requests;
  base::Status Fault;

  base::Status Execute(const platform::LaunchRequest& request) override {
    Requests.push_back(request);
    return Fault;
  }
  base::Status OpenTerminal(const std::string& folder) override {
    return Execute({.File = "terminal", .Parameters = {}, .Folder = folder});
  }
  std::vector<platform::LaunchFailure> OpenFiles(const std::vector<std::string>& paths,
                                                 const std::string& folder) override {
    std::vector<platform::LaunchFailure> failures;
    for (const std::string& path : paths) {
      Requests.push_back({.File = path, .Parameters = {}, .Folder = folder});
      if (!Fault) failures.push_back({path, Fault});
    }
    return failures;
  }
};

// Notes what is asked for; a test may do the work. What follows is done at once, unless it is to be
// held back until Finish.
class FakeFileOperation : public platform::FileOperation {
 public:
  std::vector<platform::OperationRequest> Requests;
  std::vector<platform::CommandKind> Kinds;  // of the orders, and of what was noted
  std::vector<platform::PlacedItem> Noted;
  std::function<int(const platform::OperationRequest&)> OnRun;  // gives the result's code
  std::string Refused;                                          // the item that stays where it is
  std::vector<platform::PlacedItem> Placed;                     // given with it
  bool Holds = false;

  platform::OperationId Start(platform::OperationOrder order) override {
    Kinds.push_back(order.Kind);
    platform::OperationResult all;
    for (const platform::OperationRequest& request : order.Requests) {
      Requests.push_back(request);
      platform::Add(all, {.Code = OnRun ? OnRun(request) : 0, .Placed = Placed});
    }
    results_.push_back(std::move(all));
    return results_.size();
  }
  void WhenDone(platform::OperationId operation, platform::OperationDone then) override {
    if (Holds && operation != platform::NoOperation) {
      held_.emplace_back(operation, std::move(then));
      return;
    }
    then(operation == platform::NoOperation ? platform::OperationResult()
                                            : results_.at(operation - 1));
  }
  void NoteDone(platform::CommandKind kind,
                const std::vector<platform::PlacedItem>& items) override {
    Kinds.push_back(kind);
    Noted.insert(Noted.end(), items.begin(), items.end());
  }
  // All that is held back is done now. One that throws leaves the others for another call.
  void Finish() {
    while (!held_.empty()) {
      const auto [operation, then] = std::move(held_.front());
      held_.erase(held_.begin());
      then(results_.at(operation - 1));
    }
  }
  std::string Refusal(platform::FileFunction function, const std::string& items) const override {
    const bool isRefused = !Refused.empty() && base::ItemList(items).First() == Refused;
    return isRefused ? "Refused " + std::to_string(static_cast<int>(function)) : "";
  }

 private:
  std::vector<platform::OperationResult> results_;
  std::vector<std::pair<platform::OperationId, platform::OperationDone>> held_;
};

// A platform's menu of the entries that a test puts into Captions, a line for an empty one. One
// that begins with "> " is the only entry of a submenu.
class FakeContextMenu : public platform::ContextMenu {
 public:
  explicit FakeContextMenu(const platform::FileSystem& files) : files_(files) {}

  std::vector<std::string> Captions{
      "&Open", "", "Cu&t", "&Copy", "&Paste", "Create &Shortcut", "&Delete", "P&roperties"};
  bool Refuses = false;                                   // there is no menu for any items
  base::Status Fault;                                     // of a menu that cannot be filled
  std::uintptr_t FilledMenu = 0;                          // last
  std::string Asked;                                      // "folder: name, name" of the last menu
  std::vector<std::string> Invoked;                       // captions without marks
  std::vector<int> Offsets;                               // of the last
  std::function<void()> OnInvoke;                         // the platform at work
  platform::OperationId Started = platform::NoOperation;  // by an entry

  base::Status Find(const std::string& path) const override {
    return files_.Exists(path) ? base::Status() : MemoryFileSystem::NotFound();
  }
  std::unique_ptr<platform::ItemMenu> ForItems(const std::string& folder,
                                               const std::vector<std::string>& names) override {
    Asked = folder + ":";
    for (const std::string& name : names) Asked += " " + name;
    return Refuses ? nullptr : std::make_unique<Menu>(*this);
  }

 private:
  struct Menu : platform::ItemMenu {
    explicit Menu(FakeContextMenu& owner) : Owner(owner) {}
    base::Status Fill(std::uintptr_t menu, int firstId, int,
                      std::vector<platform::ContextEntry>& entries) override {
      Owner.FilledMenu = menu;
      for (const std::string& caption : Owner.Captions) {
        const bool isBelow = caption.starts_with("> ");
        if (isBelow) entries.emplace_back().Caption = "More";
        std::vector<platform::ContextEntry>& place = isBelow ? entries.back().Children : entries;
        place.emplace_back().Id = firstId++;
        place.back().Caption = caption.substr(isBelow ? 2 : 0);
        entries.back().IsSeparator = caption.empty();
      }
      return Owner.Fault;
    }
    platform::OperationId Invoke(int offset) override {
      Owner.Offsets = {offset};
      const std::string_view caption = Owner.Captions.at(static_cast<std::size_t>(offset));
      Owner.Invoked.push_back(
          base::WithoutMarks(caption.substr(caption.starts_with("> ") ? 2 : 0)));
      if (Owner.OnInvoke) Owner.OnInvoke();
      return std::exchange(Owner.Started, platform::NoOperation);
    }
    FakeContextMenu& Owner;
  };
  const platform::FileSystem& files_;
};

// A pop-up menu in which a test chooses by caption.
class FakePopupMenus : public platform::PopupMenus {
 public:
  using Entries = std::vector<platform::ContextEntry>;

  std::string Choice;             // caption without marks, also in a submenu; empty: Escape
  std::string Refused;            // an entry of this caption cannot be added
  bool Refuses = false;           // no menu can be made
  Entries Shown;                  // the last menu, from the top down
  std::pair<int, int> Place;      // where it was shown
  int Tracked = 0;                // how many were shown
  std::function<void()> OnTrack;  // while one is shown
  std::uintptr_t Handle = 0;      // of each menu

  std::unique_ptr<platform::PopupMenu> Create() override {
    Shown.clear();
    return Refuses ? nullptr : std::make_unique<Menu>(*this);
  }
  void CloseThen(std::function<void()> then) override { then(); }
  // Null if there is none.
  const platform::ContextEntry* Find(const std::string& caption) const {
    return Find(Shown, caption);
  }
  // The captions of the last menu, one a line, those of submenus indented.
  std::string Text() const { return TextOf(Shown, ""); }

 private:
  struct Menu : platform::PopupMenu {
    explicit Menu(FakePopupMenus& owner) : Owner(owner) {}
    bool InsertOnTop(const platform::ContextEntry& entry) override {
      if (!entry.IsSeparator && entry.Caption == Owner.Refused) return false;
      Owner.Shown.insert(Owner.Shown.begin(), entry);
      return true;
    }
    void Remove(int id) override {
      std::erase_if(Owner.Shown, [id](const auto& entry) { return entry.Id == id; });
    }
    std::uintptr_t Handle() const override { return Owner.Handle; }
    int Track(int x, int y) override {
      ++Owner.Tracked;
      Owner.Place = {x, y};
      if (Owner.OnTrack) Owner.OnTrack();
      const platform::ContextEntry* const chosen = Owner.Find(Owner.Choice);
      return chosen == nullptr ? 0 : chosen->Id;
    }
    FakePopupMenus& Owner;
  };
  static const platform::ContextEntry* Find(const Entries& entries, const std::string& caption) {
    for (const platform::ContextEntry& entry : entries) {
      if (!entry.IsSeparator && base::WithoutMarks(entry.Caption) == caption) return &entry;
      if (const auto* const below = Find(entry.Children, caption)) return below;
    }
    return nullptr;
  }
  static std::string TextOf(const Entries& entries, const std::string& indent) {
    std::string text;
    for (const platform::ContextEntry& entry : entries) {
      text += indent + (entry.IsSeparator ? "-" : entry.Caption) + "|" + std::to_string(entry.Id) +
              "\n" + TextOf(entry.Children, indent + " ");
    }
    return text;
  }
};

class FakeSystemInfo : public platform::SystemInfo {
 public:
  bool Windows98 = false, WindowsMe = false;
  base::Status Trouble;
  std::string CurrentFolder;

  bool IsWindows95() const override { return false; }
  bool IsWindows98() const override { return Windows98; }
  bool IsWindowsMe() const override { return WindowsMe; }
  std::string ProgramFolder() const override { return "C:\\Tarnwell"; }
  base::Status FolderTrouble() const override { return Trouble; }
  std::string FolderOf(std::string_view) const override { return "C:\\Tarnwell"; }
  std::string SkinFolder() const override { return "C:\\Tarnwell\\skins"; }
  std::string GuidePage() const override { return "C:\\Tarnwell\\guide\\index.html"; }
  void SetCurrentFolder(const std::string& folder) override { CurrentFolder = folder; }
};

// As English writes them, but for the marks that a test puts here.
class FakeNumberForms : public platform::NumberForms {
 public:
  std::string GroupMark = ",", DecimalMark = ".", DateMark = "-";

  std::string Grouped(std::uint64_t number) const override {
    std::string text = std::to_string(number);
    for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, GroupMark);
    return text;
  }
  std::string Decimal(double number, int decimals) const override {
    std::string text = std::to_string(std::lround(decimals == 0 ? number : number * 10));
    return decimals == 0 ? text : text.insert(text.size() - 1, DecimalMark);
  }
  std::string DateAndMinute(const platform::LocalTime& time) const override {
    const std::string text = DateAndTime(time);
    return text.substr(0, text.size() - 3);
  }
  std::string DateAndTime(const platform::LocalTime& time) const override {
    std::string text = lister::IsoText(time);
    return text.replace(text.find('-', 1), 1, DateMark).replace(text.rfind('-'), 1, DateMark);
  }
};

// Keeps numbers under "section/name".
class FakeUserSettings : public platform::UserSettings {
 public:
  std::map<std::string, int> Numbers;
  base::Status WriteFault;

  int ReadNumber(const std::string& section, const std::string& name, int usual) const override {
    const auto found = Numbers.find(section + "/" + name);
    return found == Numbers.end() ? usual : found->second;
  }
  base::Status WriteNumber(const std::string& section, const std::string& name,
                           int value) override {
    if (WriteFault) Numbers[section + "/" + name] = value;
    return WriteFault;
  }

  std::map<std::string, std::vector<std::string>> Texts;
  std::vector<std::string> ReadTexts(const std::string& section,
                                     const std::string& name) const override {
    const auto found = Texts.find(section + "/" + name);
    return found == Texts.end() ? std::vector<std::string>() : found->second;
  }
  base::Status WriteTexts(const std::string& section, const std::string& name,
                          const std::vector<std::string>& texts) override {
    if (WriteFault) Texts[section + "/" + name] = texts;
    return WriteFault;
  }
};

class FakeKeyboard : public platform::Keyboard {
 public:
  platform::HeldKeys Keys;
  platform::HeldKeys Held() const override { return Keys; }
};

// Places that a test puts here. What was begun waits in Running until the test tells its user.
class FakeNetworkPlaces : public platform::NetworkPlaces {
 public:
  struct Task : platform::AskingTask {
    explicit Task(FakeNetworkPlaces& owner) : Owner(owner) {}
    ~Task() override { Owner.Running = nullptr; }
    void Answer(const platform::PlaceAnswer& answer) override { Owner.Answers.push_back(answer); }
    void TakeBack() override { Owner.Acts.emplace_back("take back"); }
    FakeNetworkPlaces& Owner;
  };

  platform::NetworkKinds Kinds;
  std::vector<platform::OfferedPlace> Offers;
  std::vector<platform::ConnectedPlace> Places;
  std::vector<std::string> Acts;  // "connect ADDRESS PASSWORD", "disconnect ID"
  std::vector<platform::PlaceAnswer> Answers;
  platform::PlaceUser* Running = nullptr;
  std::function<void()> Changed;

  std::unique_ptr<platform::PlaceTask> FindKinds(
      std::function<void(const platform::NetworkKinds&)> told) override {
    told(Kinds);
    return std::make_unique<platform::PlaceTask>();
  }
  std::unique_ptr<platform::PlaceTask> FindOffers(
      std::function<void(const std::vector<platform::OfferedPlace>&)> told) override {
    told(Offers);
    return std::make_unique<platform::PlaceTask>();
  }
  std::unique_ptr<platform::AskingTask> Connect(const std::string& address,
                                                const std::string& password,
                                                platform::PlaceUser& user) override {
    return Begin("connect " + address + " " + password, user);
  }
  std::unique_ptr<platform::AskingTask> Disconnect(const std::string& id,
                                                   platform::PlaceUser& user) override {
    return Begin("disconnect " + id, user);
  }
  std::vector<platform::ConnectedPlace> Connected() const override { return Places; }
  void OnChange(std::function<void()> changed) override { Changed = std::move(changed); }

 private:
  std::unique_ptr<Task> Begin(const std::string& act, platform::PlaceUser& user) {
    Acts.push_back(act);
    Running = &user;
    return std::make_unique<Task>(*this);
  }
};

// Tells what a test tells by the search that was begun last.
class FakeFileSearch : public platform::FileSearch {
 public:
  platform::SearchRequest Request;
  Told Tell;
  int Running = 0;

  std::unique_ptr<platform::RunningSearch> Start(platform::SearchRequest request,
                                                 Told told) override {
    Request = std::move(request);
    Tell = std::move(told);
    return std::make_unique<Search>(Running);
  }

 private:
  struct Search : platform::RunningSearch {
    explicit Search(int& running) : Running(running) { ++Running; }
    ~Search() override { --Running; }
    int& Running;
  };
};

// A notification area, with the icon that a test may click.
class FakeTray : public platform::Tray {
 public:
  bool IsThere = true;
  std::optional<Events> Icon;

  bool Add(const Texts&, Events events) override {
    if (IsThere) Icon = std::move(events);
    return IsThere;
  }
  void Remove() override { Icon.reset(); }
  // What the user does may take the icon away.
  void Take(std::function<void()> Events::*event) {
    const auto act = *Icon.*event;
    act();
  }
};

// All of the above by one syntax.
struct FakePlatform {
  explicit FakePlatform(const base::PathSyntax& syntax = base::PathSyntax::Windows())
      : Files(syntax), Drives(syntax) {}

  MemoryFileSystem Files;
  FakeDrives Drives;
  FakeFolderWatch Watches;
  FakeFolderStamps Stamps{Files};
  int OpenBrackets = 0;
  FakePump Pump;
  FakeClock Clock;
  FakeCollation Order;
  FakeLauncher Launcher;
  FakeFileOperation Operation;
  FakeContextMenu ItemMenus{Files};
  FakePopupMenus Popups;
  FakeSystemInfo System;
  FakeKeyboard Keys;
  FakeUserSettings User;
  FakeTray Tray;
  FakeItemWindows Items;
  FakeTrashCan Trash;
  FakeNetworkPlaces Network;
  FakeFileSearch Search;
  FakeNumberForms Forms;
  lister::CutItems Cut;

  lister::ListServices Services() { return Services(OpenBrackets); }
  lister::ListServices Services(const int& openBrackets) {
    return {Files, Drives, Watches, Pump, Clock, Order, Launcher, Forms, Stamps, Cut, openBrackets};
  }
};

}  // namespace tarnwell::fakes
