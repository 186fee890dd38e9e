// The form that renames many items at once: by rules, or as a list of lines.
//
// Shows what comes of it for each item while the user types, for very many of them in slices;
// renames nothing itself.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fileops/OperationDialog.h"
#include "fileops/RenameRules.h"
#include "fileops/RenameTable.h"
#include "forms/Controls.h"
#include "platform/Clock.h"
#include "platform/NumberForms.h"

namespace tarnwell::fileops {

// The Result of the form when the items are to be renamed.
inline constexpr std::string_view RenameAnswer = "rename";

// What can be put into the pattern, with what it is, for people.
struct PatternField {
  std::string_view Text;
  std::string_view Caption;
};
extern const std::array<PatternField, 14> PatternFields;

class frmRenameItems : public OperationDialog {
 public:
  struct Services {
    const platform::NumberForms& Numbers;
    const platform::Clock& Clock;
    platform::CompileRegex Regex;  // null where there are no regular expressions
  };

  // `table` and what the services refer to outlive the form.
  frmRenameItems(forms::FormHost& host, RenameTable& table, Services services);

  // By rules. Texts are set by the user through RulesTyped.
  forms::TextBox txtPattern;
  forms::TextBox txtStart;
  forms::TextBox txtStep;
  forms::TextBox txtDigits;
  forms::TextBox txtFind;
  forms::TextBox txtReplace;
  forms::CheckBox chkRegex;
  forms::CheckBox chkMatchCase;
  forms::CheckBox chkExtension;
  forms::ListBox lstCase;  // in the order of NameCase
  forms::ListBox lstExtensionCase;
  // As a list: names from the first item on, of any bytes.
  std::vector<std::string> Lines;
  forms::Button cmdFromRules;
  bool IsByLines = false;

  forms::Label lblStatus;
  forms::Button cmdNextFault;
  forms::Button cmdRename;
  forms::Button cmdCancel;

  const RenameTable& Table() const { return table_; }
  // Grows when new names or faults may be others.
  std::uint64_t TableVersion() const { return version_; }
  // Grows when Lines are others than the user has typed.
  std::uint64_t LinesVersion() const { return linesVersion_; }

  // Whether GoOn is to be called, once what came in meanwhile is handled.
  bool IsAtWork() const { return isAtWork_; }
  void GoOn() { ShowNames(table_.GoOn(Slice())); }

  void Load() override;

  // --- What the user does.

  // Any of the controls of the rules has another state.
  void RulesTyped();
  void ShowLines(bool on);
  // `count` of the Lines, from that one on, have become `lines`.
  void LinesTyped(std::size_t first, std::size_t count, const std::vector<std::string>& lines);
  // Gives up what was typed.
  void cmdFromRulesClick();
  // Closes the form, unless what is on disk by now stands against it.
  void cmdRenameClick();

 private:
  bool ReadRules(std::string& fault);
  void TakeLinesFromRules();
  GoesOn Slice() const;
  // Shows what has come of the names, or that more is to be done.
  void ShowNames(bool isDone);
  void ShowState(const std::string& fault);

  RenameTable& table_;
  const Services services_;
  NameRules rules_;
  std::uint64_t version_ = 0;
  std::uint64_t linesVersion_ = 0;
  bool areLinesTyped_ = false;
  bool isAtWork_ = false;
};

}  // namespace tarnwell::fileops
