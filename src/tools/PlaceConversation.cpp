#include "tools/PlaceConversation.h"

#include <utility>

#include "base/Text.h"

namespace tarnwell::tools {

// One of several lines ends in a list.
std::string ReasonOf(const platform::PlaceOutcome& outcome) {
  const std::string reason(base::Trim(outcome.Status.Reason));
  const bool isWhole =
      reason.find_last_of(".!?") == reason.size() - 1 || reason.find('\n') != std::string::npos;
  return isWhole ? reason : reason + ".";
}

void PlaceConversation::Start(const Begin& begin, Done done) {
  GiveUp();
  done_ = std::move(done);
  answered_.clear();
  task_ = begin(*this);
}

void PlaceConversation::GiveUp() {
  task_.reset();
  done_ = nullptr;
  question_.Close();
}

void PlaceConversation::OnQuestion(const platform::PlaceQuestion& question) {
  platform::PlaceQuestion asked = question;
  const bool wantsName = question.Choices.empty();
  if (wantsName && question.Text == answered_) {
    asked.Text += "\nThe last answer was not accepted.";
    if (asked.User.empty()) asked.User = givenUser_;
  }
  question_.Ask(asked, owner_,
                [this, wantsName, text = question.Text](const platform::PlaceAnswer* answer) {
                  if (task_ == nullptr) return;
                  if (answer != nullptr && wantsName) {
                    answered_ = text;
                    givenUser_ = answer->User;
                  }
                  if (answer == nullptr) {
                    task_->TakeBack();
                  } else {
                    task_->Answer(*answer);
                  }
                });
}

// What follows may start the next one, or end this; the task has what is told.
void PlaceConversation::OnDone(const platform::PlaceOutcome& outcome) {
  const std::unique_ptr<platform::AskingTask> ended = std::move(task_);
  const Done done = std::move(done_);
  GiveUp();
  if (done) done(outcome);
}

}  // namespace tarnwell::tools
