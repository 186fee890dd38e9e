// One request at work, as the user sees it: passes its progress on, and asks its questions in
// windows that leave all others usable.
#pragma once

#include <QPointer>
#include <QTimer>
#include <memory>
#include <optional>

#include "platform/OperationEngine.h"
#include "ui/operation/InputWatch.h"
#include "ui/operation/OperationTools.h"
#include "ui/operation/OperationWork.h"
#include "ui/operation/QuestionWindow.h"

namespace tarnwell::ui {

class QtOperationRun : public platform::OperationRun, private OperationWork::Watcher {
 public:
  // The work is started by the caller.
  QtOperationRun(std::shared_ptr<OperationWork> work, const OperationTools& tools,
                 const InputWatch& input, platform::OperationListener& listener);
  ~QtOperationRun() override;

  void Pause(bool on) override { work_->Mailbox().Pause(on); }
  void Cancel() override;
  void Leave() override;
  void ShowQuestion() override;

 private:
  void Look() override;
  void Tick();
  void Offer();
  bool MayComeUp() const;
  void TakeAnswer(const OperationAnswer& answer);
  void CloseQuestion();
  void ForgetQuestion();
  void SetAsking(bool on);
  void End();

  const std::shared_ptr<OperationWork> work_;
  const OperationTools tools_;
  const InputWatch& input_;
  platform::OperationListener& listener_;
  QTimer tick_;
  std::uint64_t inputs_;   // at the start, or when the last question was answered
  bool isAsking_ = false;  // as told to the listener
  int offers_ = 0;         // how often the question at hand may still be tried to be shown
  std::optional<OperationQuestion> question_;  // that at hand
  QPointer<QuestionWindow> window_;            // of it, while it is shown
};

}  // namespace tarnwell::ui
