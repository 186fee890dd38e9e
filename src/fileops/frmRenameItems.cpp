#include "fileops/frmRenameItems.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

#include "platform/CountedTexts.h"

namespace tarnwell::fileops {

using platform::CountedText;

const std::array<PatternField, 14> PatternFields{{
    {"{name}", "Name without extension"},
    {"{ext}", "Extension"},
    {"{part 1-4}", "Part of the name: characters 1 to 4"},
    {"{part -4-}", "Part of the name: the last 4 characters"},
    {"{counter}", "Counter"},
    {"{parent}", "Name of the folder"},
    {"{date}", "Date of the last change"},
    {"{time}", "Time of the last change"},
    {"{year}", "Year"},
    {"{month}", "Month"},
    {"{day}", "Day"},
    {"{hour}", "Hour"},
    {"{minute}", "Minute"},
    {"{second}", "Second"},
}};

namespace {

constexpr std::array<std::string_view, NameCaseCount> NameCaseCaptions{
    "As it is", "small letters", "CAPITALS", "Each Word With A Capital", "First letter a capital"};

// False with a sentence for people where the box holds no such number.
template <typename Number>
bool ReadNumber(const forms::TextBox& box, std::string_view what, std::int64_t least,
                std::int64_t most, Number& number, std::string& fault) {
  std::int64_t read = 0;
  const char* const end = box.Text.data() + box.Text.size();
  const auto [stop, error] = std::from_chars(box.Text.data(), end, read);
  if (error == std::errc() && stop == end && read >= least && read <= most) {
    number = static_cast<Number>(read);
    return true;
  }
  fault = "The counter's " + std::string(what) + " is no number that serves here.";
  return false;
}

}  // namespace

frmRenameItems::frmRenameItems(forms::FormHost& host, RenameTable& table, Services services)
    : OperationDialog("frmRenameItems", host),
      table_(table),
      services_(std::move(services)),
      rules_(services_.Regex) {}

void frmRenameItems::Load() {
  Caption = "Rename Items";
  const RenameRules usual;
  txtPattern.Text = usual.Pattern;
  txtStart.Text = txtStep.Text = txtDigits.Text = "1";
  chkRegex.Caption = "Regular e&xpression";
  chkRegex.Visible = rules_.TakesRegex();
  chkMatchCase.Caption = "&Match case";
  chkExtension.Caption = "In the extension &too";
  lstCase.Items.assign(NameCaseCaptions.begin(), NameCaseCaptions.end());
  lstCase.ListIndex = 0;
  lstExtensionCase = lstCase;
  cmdFromRules.Caption = "Start &Over From the Rules";
  cmdNextFault.Caption = "Next &Problem";
  cmdRename.Caption = "&Rename";
  cmdRename.Default = true;
  cmdCancel.Caption = "Ca&ncel";
  std::string fault;
  ReadRules(fault);
  ShowState(fault);
}

bool frmRenameItems::ReadRules(std::string& fault) {
  constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t mostDigits = 18;
  RenameRules rules{.Pattern = txtPattern.Text,
                    .Counter = {},
                    .Find = txtFind.Text,
                    .Replace = txtReplace.Text,
                    .IsRegex = chkRegex.Checked,
                    .MatchesCase = chkMatchCase.Checked,
                    .TakesExtension = chkExtension.Checked,
                    .CaseOfName = static_cast<NameCase>(lstCase.ListIndex),
                    .CaseOfExtension = static_cast<NameCase>(lstExtensionCase.ListIndex)};
  return ReadNumber(txtStart, "start", least, most, rules.Counter.Start, fault) &&
         ReadNumber(txtStep, "step", least, most, rules.Counter.Step, fault) &&
         ReadNumber(txtDigits, "least number of digits", 1, mostDigits, rules.Counter.Digits,
                    fault) &&
         rules_.Read(rules, fault);
}

GoesOn frmRenameItems::Slice() const {
  constexpr std::int64_t longest = 20;  // milliseconds
  constexpr unsigned itemsAtOnce = 32;
  return [&clock = services_.Clock, start = services_.Clock.Ticks(), items = 0U]() mutable {
    return ++items % itemsAtOnce != 0 || clock.Ticks() - start < longest;
  };
}

void frmRenameItems::RulesTyped() {
  std::string fault;
  if (ReadRules(fault)) return ShowNames(table_.NameBy(rules_, Slice()));
  isAtWork_ = false;
  ShowState(fault);
}

// A line end behind the last line is no line of its own.
void frmRenameItems::ShowNames(bool isDone) {
  ++version_;
  isAtWork_ = !isDone;
  const std::size_t items = table_.Count();
  const bool hasEnd = Lines.size() == items + 1 && Lines.back().empty();
  std::string fault;
  if (!isDone) {
    fault = "The new names are being made...";
  } else if (!IsByLines && rules_.HasGivenUp()) {
    fault = "The regular expression tries too many ways. Make it simpler.";
  } else if (IsByLines && Lines.size() != items && !hasEnd) {
    fault = platform::Counted(services_.Numbers, CountedText::LinesForItems, Lines.size(),
                              {services_.Numbers.Grouped(items)});
  }
  ShowState(fault);
}

void frmRenameItems::ShowLines(bool on) {
  if (IsByLines == on) return;
  IsByLines = on;
  if (!on) return RulesTyped();
  if (!areLinesTyped_) TakeLinesFromRules();
  ShowNames(table_.NameBy(Lines, Slice()));
}

void frmRenameItems::TakeLinesFromRules() {
  std::string fault;
  ReadRules(fault);  // or those before go on
  table_.NameBy(rules_);
  Lines.clear();
  for (std::size_t row = 0; row < table_.Count(); ++row) Lines.push_back(table_[row].NewName);
  areLinesTyped_ = false;
  ++linesVersion_;
}

void frmRenameItems::LinesTyped(std::size_t first, std::size_t count,
                                const std::vector<std::string>& lines) {
  const auto from = Lines.begin() + static_cast<std::ptrdiff_t>(std::min(first, Lines.size()));
  const auto to = from + std::min(static_cast<std::ptrdiff_t>(count), Lines.end() - from);
  if (std::equal(from, to, lines.begin(), lines.end())) return;
  const auto behind = Lines.erase(from, to);
  Lines.insert(behind, lines.begin(), lines.end());
  areLinesTyped_ = true;
  ShowNames(table_.NameBy(Lines, Slice()));
}

void frmRenameItems::cmdFromRulesClick() {
  TakeLinesFromRules();
  ShowNames(table_.NameBy(Lines, Slice()));
}

void frmRenameItems::ShowState(const std::string& fault) {
  const std::size_t faults = table_.FaultCount(), changes = table_.ChangeCount();
  cmdFromRules.Enabled = areLinesTyped_;
  cmdNextFault.Enabled = fault.empty() && faults > 0;
  cmdRename.Enabled = fault.empty() && faults == 0 && changes > 0;
  if (!fault.empty()) {
    lblStatus.Caption = fault;
  } else if (faults > 0) {
    lblStatus.Caption = platform::Counted(services_.Numbers, CountedText::NamesRefused, faults);
  } else if (changes > 0) {
    lblStatus.Caption = platform::Counted(services_.Numbers, CountedText::NamesChange, changes,
                                          {services_.Numbers.Grouped(table_.Count())});
  } else {
    lblStatus.Caption = "No item gets another name so far.";
  }
  Touch();
}

void frmRenameItems::cmdRenameClick() {
  if (!cmdRename.Enabled) return;
  table_.LookAgain();
  ++version_;
  ShowState("");
  if (cmdRename.Enabled) Close(std::string(RenameAnswer));
}

}  // namespace tarnwell::fileops
