#include <algorithm>
#include <random>
#include <set>

#include "ListFixture.h"
#include "lister/ListInput.h"

namespace tarnwell::lister {
namespace {

class Selection : public ListFixture {
 protected:
  explicit Selection(ListId id = 102, const base::PathSyntax& syntax = base::PathSyntax::Windows())
      : ListFixture(id, syntax) {
    Events.Answers = &List;
    View.Page = 4;
  }

  void Load(std::string folder = "C:\\box") {
    List.LoadFolderContents(folder, true);
    Events.Take();
  }
  RowPointer At(int position, RowPart part, int shift = 0, int button = 1) const {
    const bool none = position < 0 || position >= List.ChildCount(RootRow);
    return {none ? NoRow : List.Child(RootRow, position),
            position,
            none ? RowPart::None : part,
            {button, shift, 15, 30}};
  }
  RowPointer On(RowId row, int button = 1) const {
    return {row, List.PositionOf(row), RowPart::Item, {button, 0, 15, 30}};
  }
  void Click(int position, RowPart part, int shift = 0) {
    List.MouseDown(At(position, part, shift));
    List.MouseUp(At(position, part, shift));
  }
  // Down at the first position, then over the others.
  void Pull(const std::vector<int>& positions, RowPart part, int shift = 0) {
    List.MouseDown(At(positions[0], part, shift));
    for (std::size_t at = 1; at < positions.size(); ++at) {
      List.MouseMoved(At(positions[at], part, shift));
    }
  }
  std::set<std::string> Selected() {
    std::set<std::string> names;
    List.SelectionCursor = 0;
    for (std::string path; (path = List.NextSelected()) != "end";) {
      names.emplace(Platform.Files.Syntax().LastComponent(path));
    }
    return names;
  }
  std::string Current() const { return List.CellText(List.CurrentRow(), HeadingId::Name); }
  // The positions that are selected, by both ways to ask.
  std::string Marks() const {
    std::string marks, ranges;
    for (int at = 0; at < List.ChildCount(RootRow); ++at) {
      marks += List.Look(List.Child(RootRow, at)).IsSelected ? '#' : '.';
    }
    ranges.resize(marks.size(), '.');
    for (const RowRange range : List.SelectedRanges()) {
      for (int at = range.First; at <= range.Last; ++at) ranges[static_cast<std::size_t>(at)] = '#';
    }
    EXPECT_EQ(marks, ranges);
    return marks;
  }
};

// What a user expects, by names alone.
struct Model {
  Texts Rows;
  std::set<std::string> Selected, Before;
  std::string Current, Anchor;

  int PositionOf(const std::string& name) const {
    return static_cast<int>(std::find(Rows.begin(), Rows.end(), name) - Rows.begin());
  }
  void Choose(int position, int shift) {
    const std::string& row = Rows[static_cast<std::size_t>(position)];
    if ((shift & ShiftDown) != 0) {
      if (PositionOf(Anchor) == static_cast<int>(Rows.size())) Anchor = Current;
      if (PositionOf(Anchor) == static_cast<int>(Rows.size())) Anchor = row;
      if (shift == ShiftDown) Selected.clear();
      const auto [first, last] = std::minmax({PositionOf(Anchor), position});
      Selected.insert(Rows.begin() + first, Rows.begin() + last + 1);
      return;
    }
    Anchor = row;
    if (shift == CtrlDown) return Toggle(row);
    Selected = {row};
  }
  void Toggle(const std::string& row) {
    if (Selected.erase(row) == 0) Selected.insert(row);
  }
};

TEST_F(Selection, IsWhatUsersExpectWhateverTheyDo) {
  for (int number = 0; number < 24; ++number) {
    Platform.Files.AddFile("C:\\box\\f" + std::to_string(number));
  }
  Load();
  std::mt19937 random(11);
  const auto pick = [&](int below) { return static_cast<int>(random() % unsigned(below)); };
  constexpr int masks[] = {0, ShiftDown, CtrlDown, ShiftDown | CtrlDown};
  constexpr int keys[] = {UpKey, DownKey, HomeKey, EndKey, PageUpKey, PageDownKey};
  Model model;
  for (int round = 0; round < 3000; ++round) {
    model.Rows = Names();
    model.Current = Current();
    const int count = static_cast<int>(model.Rows.size());
    const int place = pick(count), shift = masks[pick(4)], steps[] = {-1, 1, -99, 99, -4, 4};
    const std::string row = model.Rows[static_cast<std::size_t>(place)];
    const std::set<std::string> before = model.Selected;
    const int changes = View.SelectionChanges;
    bool once = true;
    switch (pick(7)) {
      case 0:
        Click(place, pick(2) == 0 ? RowPart::Item : RowPart::Rest, shift);
        model.Choose(place, shift);
        break;
      case 1:
        Click(place, RowPart::Gap, shift);
        model.Choose(place, CtrlDown);
        break;
      case 2: {
        const int key = pick(6), here = model.PositionOf(model.Current);
        List.KeyDown(keys[key], shift);
        int there = std::clamp(here + steps[key], 0, count - 1);
        if (here == count) there = keys[key] == EndKey ? count - 1 : 0;
        if (shift != CtrlDown) model.Choose(there, shift);
        EXPECT_EQ(Current(), model.Rows[static_cast<std::size_t>(there)]);
        break;
      }
      case 3: {  // a sweep or a frame, taken back now and then
        once = false;
        const int end = pick(count + 4) - 2;
        const RowPart part = pick(2) == 0 ? RowPart::Gap : RowPart::Rest;
        Pull({place, pick(count), end}, part, shift);
        const bool takenBack = pick(3) == 0;
        EXPECT_TRUE(!takenBack || List.KeyDown(EscapeKey, 0));
        List.MouseUp(At(end, part));
        if (part == RowPart::Gap || (shift & ShiftDown) == 0) {
          // A frame over a row that is selected leaves it as what ranges start from.
          if (part == RowPart::Gap || !before.contains(row)) model.Anchor = row;
        } else {
          model.Choose(place, shift);
          model.Selected = before;
        }
        if (takenBack) break;
        const bool keeps = part == RowPart::Gap || shift != 0;
        if (!keeps) model.Selected.clear();
        const auto [first, last] = std::minmax({place, std::clamp(end, 0, count - 1)});
        for (int at = first; at <= last; ++at) {
          const std::string& name = model.Rows[static_cast<std::size_t>(at)];
          const bool toggles = part == RowPart::Rest && shift == CtrlDown;
          const bool selects =
              toggles ? !before.contains(name) : part == RowPart::Rest || !before.contains(row);
          if (selects) model.Selected.insert(name);
          if (!selects) model.Selected.erase(name);
        }
        break;
      }
      case 4:
        if (pick(8) != 0) break;
        if (pick(2) == 0) {
          List.KeyDown('A', CtrlDown);
          model.Selected = {model.Rows.begin(), model.Rows.end()};
        } else {
          Click(count, RowPart::None, shift);
          if (shift == 0) model.Selected.clear();
        }
        break;
      case 5:
        once = false;
        if (count > 8) Platform.Files.Remove("C:\\box\\" + row);
        if (pick(2) == 0) Platform.Files.AddFile("C:\\box\\n" + std::to_string(round));
        List.RefreshList();
        break;
      case 6:
        once = false;
        List.SetFilterText(pick(2) == 0 ? "" : "*" + std::to_string(pick(10)) + "*");
        if (List.ChildCount(RootRow) == 0) List.SetFilterText("");
        break;
    }
    const Texts rows = Names();
    std::erase_if(model.Selected, [&](const std::string& name) {
      return std::find(rows.begin(), rows.end(), name) == rows.end();
    });
    ASSERT_EQ(Selected(), model.Selected) << round;
    EXPECT_TRUE(!once || View.SelectionChanges - changes == (before != model.Selected)) << round;
    Marks();
  }
}

}  // namespace
}  // namespace tarnwell::lister
