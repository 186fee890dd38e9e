#include <fstream>
#include <iostream>
#include <random>

#include "TestApplication.h"
#include "shell/TestRun.h"
#include "ui/list/ListerStyle.h"
#include "ui/toolkit/Contrast.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {
namespace {

struct Pair {
  QColor Front, Back;
  double Least;
};
using Pairs = std::map<std::string, Pair>;

void Add(Pairs& pairs, const std::string& of, const QPalette& palette, std::size_t rows = 20) {
  constexpr struct {
    const char* Name;
    QPalette::ColorRole Front, Back;
    QPalette::ColorGroup Group = QPalette::Active;
    double Least = ReadableContrast;
  } all[] = {
      {"text", QPalette::WindowText, QPalette::Window},
      {"selected text", QPalette::HighlightedText, QPalette::Highlight},
      {"hint in fields", QPalette::PlaceholderText, QPalette::Base},
      {"text in fields", QPalette::Text, QPalette::Base},
      {"text on buttons", QPalette::ButtonText, QPalette::Button},
      {"link", QPalette::Link, QPalette::Window},
      {"visited link", QPalette::LinkVisited, QPalette::Window},
      {"tool-tip", QPalette::ToolTipText, QPalette::ToolTipBase},
      {"greyed", QPalette::WindowText, QPalette::Window, QPalette::Disabled, MarkContrast},
      {"greyed in fields", QPalette::Text, QPalette::Base, QPalette::Disabled, MarkContrast},
      {"greyed buttons", QPalette::ButtonText, QPalette::Button, QPalette::Disabled, MarkContrast},
  };
  for (const auto& [name, front, back, group, least] : all) {
    if (rows-- == 0) break;
    pairs[of + ", " + name] = {palette.color(group, front), palette.color(group, back), least};
  }
  pairs[of + ", greyed, raised"] = {palette.color(QPalette::Disabled, QPalette::ButtonText),
                                    palette.color(QPalette::Button).lighter(118), MarkContrast};
}

void Add(Pairs& pairs, const std::string& of, const RowColours& row, const ListerStyle& style) {
  pairs[of + ", name"] = {row.Text, row.Fill, ReadableContrast};
  pairs[of + ", other cells"] = {row.Secondary, row.Fill, ReadableContrast};
  const auto worst = std::ranges::min(
      style.Tints, {}, [&row](const QColor& tint) { return Contrast(row.Text, tint); });
  pairs[of + ", worst colour code"] = {row.Text, worst, ReadableContrast};
}

PaletteColours ProgramOf(const workspace::MainForm& form) {
  return ProgramColours(ToQColor(form.BackColour), ToQColor(form.ListBackColour),
                        ToQColor(form.ListForeColour), ToQColor(form.AccentColour));
}

// All that is shown in the skin.
Pairs PairsOf(const std::string& skin) {
  std::ifstream file(TARNWELL_TESTS "/../data/skins/" + skin + ".twk");
  shell::TestMachine machine;
  machine.Files.AddFile("C:\\Tarnwell\\skins\\Earl Grey.twk",
                        {std::istreambuf_iterator<char>(file), {}});
  shell::TestRun run(machine);
  run.Start();
  const workspace::MainForm& form = run.Form();
  const PaletteColours program = ProgramOf(form);
  Pairs pairs;
  Add(pairs, "windows", MakePalette(program));
  Add(pairs, "menus", MakePalette(MenuColours(program)));
  Add(pairs, "menu bar", MakePalette(*BarColours(form.MenuBackColour, program)), 2);
  const workspace::TitleColours& titles = run.Space().Titles;
  const auto told = [&](const char* of, base::Colour text, base::Colour back) {
    pairs[of] = {ToQColor(text), ToQColor(back), ReadableContrast};
  };
  told("title, active", titles.ActiveText, titles.Active);
  told("title, other", titles.InactiveText, titles.Inactive);
  told("current folder", form.txtCurrentPath.ForeColour, form.txtCurrentPath.BackColour);
  told("command line", form.cboCommand.ForeColour, form.cboCommand.BackColour);
  for (const bool active : {true, false}) {
    const ListerStyle style =
        MakeListerStyle(run.Space().Lists.Files(0).Shown().Settings.Colours, active, {});
    const std::string of = active ? "active list" : "other list";
    Add(pairs, of + ", row", style.Plain, style);
    Add(pairs, of + ", hovered", style.Hovered, style);
    Add(pairs, of + ", selected", style.Selected, style);
    const auto mark = [&](const char* name, const QColor& front, const QColor& back) {
      pairs[of + name] = {front, back, MarkContrast};
    };
    pairs[of + ", heading"] = {style.HeadingText, style.Heading, ReadableContrast};
    pairs[of + ", heading hovered"] = {style.HeadingHover, style.Heading, ReadableContrast};
    // Told by the arrow, and by a frame where the cursor is.
    pairs[of + ", selected row"] = {style.Selected.Fill, style.Plain.Fill, 1.1};
    mark(", arrow on a selected row", style.Arrow, style.Selected.Fill);
    mark(", arrow on a row", style.Arrow, style.Plain.Fill);
    mark(", frame of the cursor", style.ItemOutline, style.Plain.Fill);
    mark(", frame of the filter", style.Toolbar.color(QPalette::Highlight),
         style.Toolbar.color(QPalette::Window));
    if (!active) continue;
    mark(", outline", style.Outline, style.Pane);
    Add(pairs, "drive list", style.Drives, 2);
    Add(pairs, "list toolbar", style.Toolbar, 3);
    Add(pairs, "status line", style.Status, 1);
  }
  return pairs;
}

// Set TARNWELL_CONTRASTS to anything to have the table printed.
TEST(SkinPalettes, TheFourSkinsCanBeRead) {
  TestApplication();
  std::map<std::string, std::string> table;
  for (const char* skin : {"Traditional", "Earl Grey", "Grasshopper", "Roxy"}) {
    for (const auto& [name, pair] : PairsOf(skin)) {
      const double contrast = Contrast(pair.Front, pair.Back);
      EXPECT_GE(contrast, pair.Least) << skin << ": " << name;
      table[name] += QString::asprintf(" %.1f |", contrast).toStdString();
    }
  }
  if (!qEnvironmentVariableIsSet("TARNWELL_CONTRASTS")) return;
  std::cout
      << "| Text or mark | Traditional | Earl Grey | Grasshopper | Roxy |\n|---|---|---|---|---|\n";
  for (const auto& [name, row] : table) std::cout << "| " << name << " |" << row << "\n";
}

TEST(SkinPalettes, WhatIsDerivedCanBeReadInAnySkin) {
  std::mt19937 random(15);
  for (int i = 0; i < 1000; ++i) {
    // Now and then several colours are equal, or black, or white.
    base::Colour any[5];
    for (base::Colour& each : any) {
      each = static_cast<base::Colour>(random() & 0xFFFFFF);
      if (random() % 4 == 0) each = any[0];
      if (random() % 8 == 0) each = random() % 2 == 0 ? base::White : base::Black;
    }
    const PaletteColours program =
        ProgramColours(ToQColor(any[0]), ToQColor(any[1]), ToQColor(any[2]), ToQColor(any[3]));
    Pairs pairs;
    Add(pairs, "windows", MakePalette(program));
    Add(pairs, "menus", MakePalette(MenuColours(program)));
    Add(pairs, "menu bar", MakePalette(*BarColours(any[4], program)));
    const ListerStyle style = MakeListerStyle({.ListBackground = any[1],
                                               .ListText = any[2],
                                               .ActiveItemOutline = any[3],
                                               .TextSecondary = any[4]},
                                              true, {});
    for (const RowColours* const row : {&style.Hovered, &style.Selected}) {
      pairs["row"] = {row->Text, row->Fill, ReadableContrast};
      pairs["cells"] = {row->Secondary, row->Fill, ReadableContrast};
    }
    for (const auto& [name, pair] : pairs) {
      ASSERT_GE(Contrast(pair.Front, pair.Back), pair.Least)
          << name << std::hex << " " << any[0] << " " << any[1] << " " << any[2] << " " << any[3];
    }
  }
}

}  // namespace
}  // namespace tarnwell::ui
