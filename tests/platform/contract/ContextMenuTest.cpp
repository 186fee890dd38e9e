#include "MenuServices.h"
#include "TempFolder.h"
#include "base/Caption.h"

namespace tarnwell::platform {
namespace {

TEST(ContextMenuContract, OffersEntriesByNumberAndRefusesWhatMustStay) {
  constexpr int first = 10, last = 32767;
  const TempFolder place;
  place.Make({"a.txt=text", "b.txt=", "dir/", "dir/c="});
  TestedMenus tested;
  const std::string folder = place / "", deeper = (place / "dir/c").substr(folder.size());
  for (const std::vector<std::string>& names :
       {std::vector<std::string>{"a.txt"}, {"a.txt", "b.txt"}, {"dir"}, {deeper}}) {
    const auto menu = tested.Create();
    const auto items = tested.Menus.ForItems(folder, names);
    ASSERT_NE(items, nullptr);
    std::vector<ContextEntry> entries;
    ASSERT_TRUE(items->Fill(menu ? menu->Handle() : 0, first, last, entries));
    std::map<std::string, int> ids;
    std::set<int> numbers;
    for (const ContextEntry& entry : entries) {
      const int id = entry.Id;
      if (entry.IsSeparator || id == 0) continue;
      EXPECT_TRUE(id >= first && id <= last && numbers.insert(id).second) << id;
      ids[base::WithoutMarks(entry.Caption)] = id;
    }
    for (const char* caption : {"Open", "Cut", "Copy", "Delete", "Properties"}) {
      EXPECT_TRUE(ids.contains(caption)) << caption;
    }
    EXPECT_EQ(items->Invoke(-1) + items->Invoke(last), NoOperation);
    tested.Operation.Refused = place / names.front();
    items->Invoke(ids["Cut"] - first);
    items->Invoke(ids["Delete"] - first);
    EXPECT_EQ(std::exchange(tested.Dialogs.Told, {}), "Refused 1|Refused 3|");
    tested.Operation.Refused.clear();
    tested.Dialogs.Yes = true;
    EXPECT_NE(items->Invoke(ids["Delete"] - first), NoOperation);
    const OperationRequest& asked = tested.Operation.Requests.back();
    EXPECT_TRUE(asked.Function == FileFunction::Delete && asked.Flags == AllowUndo);
    EXPECT_TRUE(asked.Items.starts_with((place / names.front()) + '\0'));
    tested.Dialogs.Told.clear();
  }
  EXPECT_EQ(place.Names(), "a.txt b.txt dir ");
  const auto within = tested.Menus.ForItems(folder, {});
  const auto menu = tested.Create();
  std::vector<ContextEntry> entries;
  ASSERT_TRUE(within != nullptr && within->Fill(menu ? menu->Handle() : 0, first, last, entries));
  for (const ContextEntry& entry : entries) {
    const std::string caption = base::WithoutMarks(entry.Caption);
    EXPECT_TRUE(caption != "Delete" && caption != "Cut");
  }
  for (const char* name : {"a.txt", "dir", "dir/c", "none", "none/c", "a.txt/c"}) {
    const base::Status status = tested.Menus.Find(place / name);
    const bool isThere = std::string_view("a.txt dir/c").find(name) != std::string_view::npos;
    EXPECT_EQ(static_cast<bool>(status), isThere) << name;
    EXPECT_EQ(status.Reason.empty(), isThere) << name;
  }
}

}  // namespace
}  // namespace tarnwell::platform
