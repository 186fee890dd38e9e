#include "ui/operation/RunQuestion.h"

#include <algorithm>
#include <string>

#include "platform/CountedTexts.h"
#include "ui/operation/QuestionWindow.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/ShowOver.h"

namespace tarnwell::ui {
namespace {

using platform::CountedText;
using platform::RunChoice;
using Role = QuestionWindow::Role;

constexpr std::size_t MostNamed = 8;

QString HeadingOf(const platform::RunQuestion& question, const platform::NumberForms& forms) {
  const std::size_t programs = question.Programs.size();
  if (programs == 1 && question.Files == 1 && !question.Command.empty()) {
    return QStringLiteral("Do you want to run what this file starts?");
  }
  if (programs == question.Files) {
    return ToQString(platform::Counted(forms, CountedText::RunAllQuestion, programs));
  }
  const std::string items = platform::Counted(forms, CountedText::Items, question.Files);
  return ToQString(platform::Counted(forms, CountedText::RunSomeQuestion, programs, {items}));
}

}  // namespace

RunChoice AskRun(const platform::RunQuestion& question, const OperationTools& tools) {
  QuestionWindow window(QStringLiteral("Run"), HeadingOf(question, tools.Forms),
                        tools.Icons.Own("warning"));
  const std::size_t count = question.Programs.size(), named = std::min(count, MostNamed);
  for (std::size_t at = 0; at < named; ++at) {
    window.AddPath(at == 0 ? QStringLiteral("Name:") : QString(),
                   std::string(tools.Syntax.LastComponent(question.Programs[at])));
  }
  if (count > named) {
    window.AddFact(QString(),
                   ToQString(platform::Counted(tools.Forms, CountedText::AndMore, count - named)));
  }
  window.AddPath(QStringLiteral("In:"), tools.Syntax.ParentOf(question.Programs.front()));
  if (!question.Command.empty()) window.AddPath(QStringLiteral("Command:"), question.Command);
  window.AddText(
      QStringLiteral("A program can read, change and delete all that you can. Run it only if you "
                     "know where it comes from."));
  auto answer = RunChoice::Cancel;
  const auto add = [&](const char* caption, Role role, RunChoice choice) {
    window.AddButton(QString::fromLatin1(caption), role, [&window, &answer, choice] {
      answer = choice;
      window.done(QDialog::Accepted);
    });
  };
  add("&Run", Role::Plain, RunChoice::Run);
  add("Run in &Terminal", Role::Plain, RunChoice::RunInTerminal);
  if (question.CanOpen) add("&Open", Role::Plain, RunChoice::Open);
  add("Ca&ncel", Role::DefaultCancel, RunChoice::Cancel);
  window.setWindowModality(Qt::ApplicationModal);
  ShowOver(window, WindowInUse());
  window.exec();
  return answer;
}

}  // namespace tarnwell::ui
