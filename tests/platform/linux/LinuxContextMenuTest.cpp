#include "MenuServices.h"
#include "platform/linux/operation/RunOperation.h"

namespace tarnwell::platform {
namespace {

std::string CaptionsOf(const std::vector<ContextEntry>& entries) {
  std::string captions;
  for (const ContextEntry& entry : entries) {
    captions += entry.IsSeparator ? "-" : entry.Caption;
    if (!entry.Enabled) captions += "(off)";
    if (entry.IsDefault) captions += "(default)";
    captions += "|";
  }
  return captions;
}

class LinuxContextMenuTest : public testing::Test, protected TestedMenus {
 protected:
  static constexpr int First = 10, Last = 32767;

  LinuxContextMenuTest() {
    Place.Make({"a.txt=text", "b.txt=text", "p.png=no picture", "dir/", "way->dir"});
    Operation.OnRun = ForReal;
  }
  static int ForReal(const OperationRequest& request) {
    OperationUser user;
    return RunOperation(request, user).Code;
  }

  std::unique_ptr<ItemMenu> Make(const std::string& folder, const std::vector<std::string>& names,
                                 int last = Last) {
    Entries.clear();
    std::unique_ptr<ItemMenu> menu = Menus.ForItems(folder, names);
    EXPECT_TRUE(menu->Fill(0, First, last, Entries));
    return menu;
  }
  std::string Offer(const std::string& folder, const std::vector<std::string>& names) {
    Make(folder, names);
    return CaptionsOf(Entries);
  }
  // Invokes the entry of that caption, in the submenu too.
  OperationId Choose(const std::vector<std::string>& names, const std::string& caption) {
    return Choose(*Make(Place.Path(), names), caption);
  }
  OperationId Choose(ItemMenu& menu, const std::string& caption) {
    std::vector<ContextEntry> all = Entries;
    for (const ContextEntry& entry : Entries) {
      all.insert(all.end(), entry.Children.begin(), entry.Children.end());
    }
    const auto found = std::ranges::find(all, caption, &ContextEntry::Caption);
    EXPECT_NE(found, all.end()) << caption;
    return found == all.end() ? NoOperation : menu.Invoke(found->Id - First);
  }
  std::string Took() { return std::exchange(Dialogs.Told, {}); }

  TempFolder Place;
  std::vector<ContextEntry> Entries;
};

TEST_F(LinuxContextMenuTest, OffersWhatSuitsTheItems) {
  const std::string start = "&Open(default)|Open Wit&h|-|";
  const std::string end = "-|Create &Shortcut|&Delete|-|P&roperties|";
  EXPECT_EQ(Offer(Place.Path(), {"a.txt"}), start + "Cu&t|&Copy|" + end);
  EXPECT_EQ(Offer(Place.Path(), {"dir", "way"}), start + "Cu&t|&Copy|" + end);
  EXPECT_EQ(Offer(Place.Path(), {"dir"}), start + "Cu&t|&Copy|&Paste(off)|" + end);
  Clipboard.Files.Items = std::string("/x\0", 3);
  EXPECT_EQ(Offer(Place.Path() + "/", {"way"}), start + "Cu&t|&Copy|&Paste|" + end);
  EXPECT_EQ(Offer(Place.Path() + "/", {}), "Open Wit&h|-|&Paste|-|P&roperties|");
  EXPECT_EQ(Offer("/", {}), "Open Wit&h|-|&Paste|-|P&roperties|");
  EXPECT_EQ(Offer(Place.Path(), {"gone"}), start + "Cu&t|&Copy|" + end);
  EXPECT_EQ(Menus.ForItems("", {"a"}), nullptr);

  // Applications for every one of the types, the default first; numbers in range, none twice.
  Make(Place.Path(), {"a.txt"});
  EXPECT_EQ(CaptionsOf(Entries[1].Children).find("x|See && show|"), 0U);
  EXPECT_TRUE(CaptionsOf(Entries[1].Children).ends_with("|-|&Other Application...|"));
  EXPECT_EQ(Entries[1].Children[1].Picture, "eye");
  Make(Place.Path(), {"p.png", "a.txt"});
  EXPECT_EQ(CaptionsOf(Entries[1].Children), "See && show|-|&Other Application...|");
  std::set<int> ids{First - 1, Entries[1].Children[0].Id, Entries[1].Children[1].Id,
                    Entries[1].Children[2].Id};
  for (const ContextEntry& entry : Entries) ids.insert(entry.Id);
  EXPECT_EQ(ids.size(), Entries.size() + 4);
  EXPECT_EQ(*ids.begin(), First - 1);
  Make(Place.Path(), {"a.txt"}, First + 12);
  EXPECT_EQ(CaptionsOf(Entries[1].Children), "x|-|&Other Application...|");
  EXPECT_EQ(Entries[1].Children.back().Id, First + 12);
  EXPECT_EQ(Menus.ForItems("/", {"usr"})->Fill(0, First, First + 5, Entries).Code, ERANGE);

  EXPECT_EQ(Menus.Find(Place / "gone").Code, ENOENT);
  EXPECT_EQ(Menus.Find(Place / "a.txt/x").Code, ENOTDIR);
}

TEST_F(LinuxContextMenuTest, OpensItems) {
  const std::string folder = Place.Path() + "/";
  Put(Place / "odd", std::string("\0\1", 2));
  Put(Place / "run", Get(desktop.Folder / "tool"), 0755);
  Windows.Run = RunChoice::Run;
  Choose({"a.txt", "p.png", "b.txt", "run", "dir", "odd"}, "&Open");
  EXPECT_EQ(std::exchange(Windows.Noted, {}), "run run of 6, or open|");
  EXPECT_TRUE(desktop.WasTold("viewer", "\n[" + folder + "p.png]\n[" + folder + "dir]\n"));
  EXPECT_TRUE(desktop.WasTold("open it", "[" + folder + "a.txt]\n[" + folder + "b.txt]\n"));
  EXPECT_EQ(desktop.Told("run"), "run in " + Place.Path() + "\n");
  EXPECT_EQ(Took(),
            "\"odd\" could not be opened.\n\nNo application is registered for this kind of "
            "file (application/octet-stream)|");
  Choose({"way"}, "&Open");
  EXPECT_EQ(Windows.Noted, "open " + folder + "way|");
  Choose({"a.txt", "b.txt"}, "See && show");
  EXPECT_TRUE(desktop.WasTold("viewer", "[" + folder + "a.txt]\n[" + folder + "b.txt]\n"));

  Dialogs.Yes = false;
  Choose(std::vector<std::string>(31, "a.txt"), "&Open");
  EXPECT_EQ(Took(), "Do you want to open these 31 items?|");
  EXPECT_NE(access((desktop.Folder / "log.open it").c_str(), F_OK), 0);

  const std::unique_ptr<ItemMenu> late = Make(Place.Path(), {"a.txt", "dir\n2"});
  unlink((Place / "a.txt").c_str());
  for (const char* caption : {"&Open", "x", "&Other Application..."}) {
    Windows.Choice = {"", "true", false};
    Choose(*late, caption);
    EXPECT_EQ(Took(),
              "2 items could not be opened:\n\n\"a.txt\": No such file or directory\n"
              "\"dir\xE2\x90\x8A"
              "2\": No such file or directory|")
        << caption;
  }
  late->Invoke(-1);
  late->Invoke(5000);
}

TEST_F(LinuxContextMenuTest, OpensWithWhatTheUserChooses) {
  const std::string path = Place / "a.css";
  Put(path, "a {}");
  const auto choose = [&](const ChosenApplication& choice) {
    Windows.Choice = choice;
    Choose({"a.css"}, "&Other Application...");
  };
  choose({"windowed.desktop", "", true});
  EXPECT_TRUE(desktop.WasTold("windowed", "[" + path + "]"));
  EXPECT_EQ(Windows.Noted, "choose " + path + " CSS stylesheet|");
  EXPECT_EQ(Windows.Offered[0].Id, "opener.desktop");
  EXPECT_TRUE(Windows.Offered[1].IsRegistered);
  EXPECT_EQ(std::ranges::count(Windows.Offered, "viewer.desktop", &ApplicationChoice::Id), 1);
  const auto windowed =
      std::ranges::find(Windows.Offered, "windowed.desktop", &ApplicationChoice::Id);
  EXPECT_FALSE(windowed->IsRegistered);
  choose({"viewer.desktop", "", false});
  EXPECT_NE(desktop.Told("viewer"), "");
  EXPECT_EQ(Windows.Offered[0].Id, "windowed.desktop");  // what was to be used always

  choose({"", "'" + (desktop.Folder / "windowed") + "' -x 'y z'", false});
  EXPECT_EQ(desktop.Told("windowed"),
            "windowed in " + Place.Path() + "\n[-x]\n[y z]\n[" + path + "]\n");
  EXPECT_EQ(Took(), "");
  // What is asked about is the type of the first.
  Windows.Choice = {"windowed.desktop", "", true};
  Choose({"a.css", "a.txt"}, "&Other Application...");
  EXPECT_TRUE(desktop.WasTold("windowed", "a.txt]"));
  Choose({"a.txt"}, "&Open");
  EXPECT_NE(desktop.Told("open it"), "");
  choose({"", "no-such-program-anywhere", false});
  EXPECT_EQ(Took(),
            "\"no-such-program-anywhere\" could not be started.\n\nNo such file or directory|");
}

TEST_F(LinuxContextMenuTest, CutsCopiesAndPastes) {
  const std::string target = Place / "dir";
  Choose({"a.txt", "b.txt"}, "Cu&t");
  EXPECT_EQ(Clipboard.Files.Items, base::ItemList::TextOf({Place / "a.txt", Place / "b.txt"}));
  EXPECT_TRUE(Clipboard.Files.IsCut);
  Choose(*Make(Place.Path() + "/", {}), "&Paste");  // into its own folder
  EXPECT_TRUE(Operation.Requests.empty());
  EXPECT_TRUE(Clipboard.HasFiles());
  // A part of it cannot go: that part stays cut.
  Put(target + "/b.txt", "other");
  Operation.Holds = true;
  EXPECT_NE(Choose({"way"}, "&Paste"), NoOperation);
  EXPECT_NE(Clipboard.Files.Items, base::ItemList::TextOf({Place / "b.txt"}));
  Operation.Finish();  // the menu has gone
  Operation.Holds = false;
  EXPECT_EQ(Operation.Requests.back().Destination, Place / "way" + std::string("/\0", 2));
  EXPECT_EQ(Operation.Requests.back().Flags, AllowUndo);
  EXPECT_EQ(Get(target + "/a.txt"), "text");
  EXPECT_EQ(Get(target + "/b.txt"), "other");
  EXPECT_EQ(Clipboard.Files.Items, base::ItemList::TextOf({Place / "b.txt"}));
  EXPECT_TRUE(Clipboard.Files.IsCut);
  unlink((target + "/b.txt").c_str());
  Choose({"dir"}, "&Paste");
  EXPECT_EQ(Get(target + "/b.txt"), "text");
  EXPECT_FALSE(Clipboard.HasFiles());
  // What another program put there meanwhile is left alone.
  Choose({"p.png"}, "Cu&t");
  Operation.OnRun = [this](const OperationRequest&) {
    Clipboard.Files.Items = std::string("/new\0", 5);
    return 0;
  };
  Choose({"dir"}, "&Paste");
  EXPECT_EQ(Clipboard.Files.Items, std::string("/new\0", 5));

  // Copied: twins in the items' own folder, by whatever way they came; the rest as ever.
  Operation.OnRun = ForReal;
  Operation.Requests.clear();
  Clipboard.Files = {base::ItemList::TextOf({Place / "way/a.txt", Place / "p.png"}), false, 2};
  Choose({"dir"}, "&Paste");
  EXPECT_EQ(Operation.Requests.size(), 2U);
  EXPECT_EQ(Get(target + "/a (2).txt"), "text");
  EXPECT_EQ(Get(target + "/p.png"), "no picture");
  EXPECT_EQ(Took(),
            "2 items on the clipboard are no files of this computer and cannot be pasted.|");
  Clipboard.Files = {base::ItemList::TextOf({"/", Place / "b.txt"}), false, 0};
  Put(Place / "b.txt", "new");
  unlink((target + "/b.txt").c_str());
  Choose({"dir"}, "&Paste");
  EXPECT_EQ(Get(target + "/b.txt"), "new");
  EXPECT_EQ(Took(), "\"/\" could not be pasted.\n\nThe root of all folders goes nowhere|");
  Operation.Requests.clear();
  Choose({"p.png"}, "&Copy");
  EXPECT_FALSE(Clipboard.Files.IsCut);
  Operation.Refused = Place / "p.png";
  Choose({"p.png", "dir"}, "Cu&t");
  EXPECT_FALSE(Clipboard.Files.IsCut);
  Choose({"p.png"}, "&Delete");
  Clipboard.Files.IsCut = true;
  Choose({"dir"}, "&Paste");
  EXPECT_EQ(Took(), "Refused 1|Refused 3|Refused 1|");
  EXPECT_EQ(Operation.Requests.size(), 0U);
  const std::unique_ptr<ItemMenu> late = Make(Place.Path(), {"dir"});
  std::filesystem::remove_all(target);
  Choose(*late, "&Paste");
  EXPECT_EQ(Took(), "\"dir\" could not be opened to paste there.\n\nNo such file or directory|");
}

TEST_F(LinuxContextMenuTest, LinksTrashesAndShows) {
  const std::string longName(250, 'n');
  Put(Place / longName, "long");
  for (int times = 0; times < 2; ++times) Choose({"a.txt", "dir", longName}, "Create &Shortcut");
  EXPECT_EQ(std::filesystem::read_symlink(Place / "Link to a.txt"), "a.txt");
  ASSERT_EQ(Operation.Noted.size(), 6U);
  EXPECT_EQ(Operation.Noted[3].From + Operation.Noted[3].To, Place / "Link to a (2).txt");
  EXPECT_EQ(Get(Place / "Link to a (2).txt"), "text");
  EXPECT_EQ(std::filesystem::read_symlink(Place / "Link to dir (2)"), "dir");
  EXPECT_EQ(Get(Place / ("Link to " + longName.substr(0, 243) + " (3)")), "long");
  EXPECT_EQ(Took(), "");
  chmod(Place.Path().c_str(), 0555);
  InChild([this] {
    BecomeNobody();
    Choose({"a.txt", "dir", "gone"}, "Create &Shortcut");
    EXPECT_EQ(Took(),
              "3 items could not be given a shortcut:\n\n"
              "\"a.txt\": Permission denied\n\"dir\": Permission denied\n"
              "\"gone\": No such file or directory|");
  });
  chmod(Place.Path().c_str(), 0777);

  Operation.OnRun = nullptr;
  Dialogs.Yes = false;
  Choose({"a\tb"}, "&Delete");
  EXPECT_EQ(Took(),
            "Do you want to move \"a\xE2\x90\x89"
            "b\" to the trash? Yes|");
  EXPECT_TRUE(Operation.Requests.empty());
  Dialogs.Yes = true;
  Choose({"a.txt", "b.txt"}, "&Delete");
  EXPECT_EQ(Took(), "Do you want to move these 2 items to the trash? Yes|");
  const OperationRequest& request = Operation.Requests.back();
  EXPECT_EQ(request.Function, FileFunction::Delete);
  EXPECT_EQ(request.Items, base::ItemList::TextOf({Place / "a.txt", Place / "b.txt"}));
  EXPECT_EQ(request.Flags, AllowUndo);

  Choose({"a.txt", "dir"}, "P&roperties");
  Choose(*Make(Place.Path() + "/", {}), "P&roperties");
  EXPECT_EQ(Windows.Noted, "properties " + (Place / "a.txt") + "|properties " + (Place / "dir") +
                               "|properties " + Place.Path() + "|");
}

}  // namespace
}  // namespace tarnwell::platform
