#include "ui/operation/OperationQuestions.h"

#include <utility>

#include "lister/rows/CellText.h"
#include "platform/CountedTexts.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

using platform::LossAnswer;
using platform::LossChoice;
using platform::MissingFolderChoice;
using platform::NoTrashAnswer;
using platform::NoTrashChoice;
using platform::OperationStep;
using platform::TroubleChoice;
using Role = QuestionWindow::Role;

struct StepWords {
  OperationStep Step;
  const char* Words;
};

constexpr StepWords Steps[] = {
    {OperationStep::Find, "This item cannot be reached."},
    {OperationStep::Place, "This folder cannot go there."},
    {OperationStep::Read, "This item cannot be read."},
    {OperationStep::Write, "This item cannot be written."},
    {OperationStep::MakeFolder, "This folder cannot be made."},
    {OperationStep::Move, "This item cannot be moved or renamed."},
    {OperationStep::Flush, "It is not sure that this copy is on the disk."},
    {OperationStep::Delete, "This item cannot be deleted."},
    {OperationStep::Trash, "This item cannot be moved to the trash."},
    {OperationStep::RenameTogether, "This item cannot be renamed, so no item has another name."},
    {OperationStep::RenameInPart,
     "This item cannot be renamed, and not all others could get their old names back."},
};

QString WordsOf(OperationStep step) {
  for (const StepWords& each : Steps) {
    if (each.Step == step) return QString::fromLatin1(each.Words);
  }
  return QStringLiteral("Something went wrong with this item.");
}

// By remark.
constexpr const char* Remarks[platform::OperationRemarkCount] = {
    "Changed while being copied; the copy holds what could be read:",
    "Left where it is, as another operation is still making it:",
    "Left as it is, since it has changed or another one is in its place:",
    "No longer there:",
    "Left where it is, as its drive has no trash:",
    "Could not get the old name back, and is now called:",
};

void AddItem(QuestionWindow& window, const std::string& path, const OperationTools& tools) {
  window.AddPath(QStringLiteral("Item:"), lister::NameText(tools.Syntax, path));
  window.AddPath(QStringLiteral("Folder:"), tools.Syntax.ParentOf(path));
}

}  // namespace

std::unique_ptr<QuestionWindow> WindowOf(const platform::OperationTrouble& trouble,
                                         const OperationTools& tools, TakeAnswer take) {
  auto window = std::make_unique<QuestionWindow>(QStringLiteral("File Operation Problem"),
                                                 WordsOf(trouble.Step), tools.Icons.Own("warning"));
  AddItem(*window, trouble.Path, tools);
  window->AddFact(QStringLiteral("Reason:"), ToShownQString(trouble.Reason.Reason));
  const auto add = [&](const char* caption, Role role, TroubleChoice choice) {
    window->AddButton(QString::fromLatin1(caption), role, [take, choice] { take(choice); });
  };
  // Trying again changes nothing by itself; what is skipped would be missed unnoticed. A folder
  // goes into itself at no time, and what the disk has lost it is not asked for again.
  const bool mayHelp = trouble.Step != OperationStep::Place && trouble.Step != OperationStep::Flush;
  if (trouble.Step == OperationStep::RenameInPart) {
    add("&Close", Role::DefaultCancel, TroubleChoice::Cancel);
    return window;
  }
  if (mayHelp) add("&Retry", Role::Default, TroubleChoice::Retry);
  if (trouble.Step != OperationStep::RenameTogether) {
    add("&Skip", mayHelp ? Role::Plain : Role::Default, TroubleChoice::Skip);
    add("Skip &All", Role::Plain, TroubleChoice::SkipAll);
  }
  add("Ca&ncel", Role::Cancel, TroubleChoice::Cancel);
  return window;
}

std::unique_ptr<QuestionWindow> WindowOf(const NoTrashQuestion& question,
                                         const OperationTools& tools, TakeAnswer take) {
  auto window = std::make_unique<QuestionWindow>(
      QStringLiteral("No Trash"), QStringLiteral("The drive of this item has no trash."),
      tools.Icons.Own("warning"));
  AddItem(*window, question.Path, tools);
  window->AddText(QStringLiteral("What is deleted for good cannot be brought back."));
  const QCheckBox& check =
      window->AddCheck(QStringLiteral("Do the same with a&ll other items that have no trash"));
  const auto add = [&](const char* caption, Role role, NoTrashChoice choice) {
    window->AddButton(QString::fromLatin1(caption), role, [take, choice, &check] {
      take(NoTrashAnswer{choice, check.isChecked()});
    });
  };
  add("&Delete for Good", Role::Plain, NoTrashChoice::DeleteForGood);
  add("&Skip", Role::Default, NoTrashChoice::Skip);
  add("Ca&ncel", Role::Cancel, NoTrashChoice::Cancel);
  return window;
}

std::unique_ptr<QuestionWindow> WindowOf(const LossQuestion& question, const OperationTools& tools,
                                         TakeAnswer take) {
  auto window = std::make_unique<QuestionWindow>(
      QStringLiteral("Something Would Be Lost"),
      QStringLiteral("The drive there cannot keep all that belongs to this item."),
      tools.Icons.Own("warning"));
  AddItem(*window, question.Path, tools);
  window->AddText(
      QStringLiteral("Moved there, it keeps its content, but loses its access list or "
                     "its attributes: colour, comment and the like."));
  const QCheckBox& check =
      window->AddCheck(QStringLiteral("Do the same with a&ll other items like this"));
  const auto add = [&](const char* caption, Role role, LossChoice choice) {
    window->AddButton(QString::fromLatin1(caption), role, [take, choice, &check] {
      take(LossAnswer{choice, check.isChecked()});
    });
  };
  add("&Move Anyway", Role::Plain, LossChoice::MoveAnyway);
  add("&Skip", Role::Default, LossChoice::Skip);
  add("Ca&ncel", Role::Cancel, LossChoice::Cancel);
  return window;
}

std::unique_ptr<QuestionWindow> WindowOf(const MissingFolderQuestion& question,
                                         const OperationTools& tools, TakeAnswer take) {
  auto window = std::make_unique<QuestionWindow>(
      QStringLiteral("Missing Folder"), QStringLiteral("This folder does not exist. Make it?"),
      tools.Icons.Own("question"));
  window->AddPath(QStringLiteral("Folder:"), lister::NameText(tools.Syntax, question.Path));
  window->AddPath(QStringLiteral("In:"), tools.Syntax.ParentOf(question.Path));
  const auto add = [&](const char* caption, Role role, MissingFolderChoice choice) {
    window->AddButton(QString::fromLatin1(caption), role, [take, choice] { take(choice); });
  };
  add("&Make Folder", Role::Default, MissingFolderChoice::Make);
  add("Ca&ncel", Role::Cancel, MissingFolderChoice::Cancel);
  return window;
}

std::unique_ptr<QuestionWindow> WindowOf(const OperationRemarks& remarks,
                                         const OperationTools& tools, std::function<void()> seen) {
  auto window = std::make_unique<QuestionWindow>(
      QStringLiteral("To Be Noted"),
      QStringLiteral("The operation is over. Not all went as usual."), tools.Icons.Own("warning"));
  if (!remarks.Failure.empty()) {
    window->AddFact(QStringLiteral("Given up:"), ToShownQString(remarks.Failure));
  }
  for (std::size_t remark = 0; remark < remarks.Lists.size(); ++remark) {
    const OperationRemarks::List& list = remarks.Lists.at(remark);
    if (list.Count == 0) continue;
    QStringList lines;
    for (const std::string& path : list.Paths) lines << ToShownQString(path);
    const std::size_t more = list.Count - list.Paths.size();
    if (more > 0)
      lines << ToQString(platform::Counted(tools.Forms, platform::CountedText::AndMoreItems, more));
    window->AddList(QString::fromLatin1(Remarks[remark]), lines);
  }
  window->AddButton(QStringLiteral("&OK"), Role::DefaultCancel, std::move(seen));
  return window;
}

}  // namespace tarnwell::ui
