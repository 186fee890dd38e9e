// One task with a place on the network: carries its questions to the user and the answers back.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "forms/Form.h"
#include "forms/FormHost.h"
#include "platform/NetworkPlaces.h"
#include "tools/popPlaceQuestion.h"

namespace tarnwell::tools {

// Why it came to nothing, as a sentence: the desktop's own do not all end as sentences do.
std::string ReasonOf(const platform::PlaceOutcome& outcome);

class PlaceConversation : private platform::PlaceUser {
 public:
  using Begin = std::function<std::unique_ptr<platform::AskingTask>(platform::PlaceUser& user)>;
  using Done = std::function<void(const platform::PlaceOutcome& outcome)>;

  // Questions stand over `owner`.
  PlaceConversation(forms::FormHost& host, forms::Form& owner) : owner_(owner), question_(host) {}

  // In place of one that runs.
  void Start(const Begin& begin, Done done);
  bool IsRunning() const { return task_ != nullptr; }
  // Nothing more is told, and no question stays.
  void GiveUp();

 private:
  void OnQuestion(const platform::PlaceQuestion& question) override;
  void OnQuestionGone() override { question_.Close(); }
  void OnDone(const platform::PlaceOutcome& outcome) override;

  forms::Form& owner_;
  popPlaceQuestion question_;
  std::unique_ptr<platform::AskingTask> task_;
  // The question to which a user was given, and who. Asked again, that was not accepted.
  std::string answered_;
  std::string givenUser_;
  Done done_;
};

}  // namespace tarnwell::tools
