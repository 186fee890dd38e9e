// What a mount or an unmount of GIO's asks, and the answers.
#pragma once

#include <gio/gio.h>

#include <string>

#include "platform/NetworkPlaces.h"
#include "platform/linux/posix/GioObject.h"

namespace tarnwell::platform {

class MountQuestions {
 public:
  // The password, if there is one, is the first answer to the question for one.
  MountQuestions(PlaceUser& user, std::string password);
  MountQuestions(const MountQuestions&) = delete;
  MountQuestions& operator=(const MountQuestions&) = delete;
  // The question that waits is taken back.
  ~MountQuestions();

  GMountOperation* Operation() const { return operation_.get(); }
  void Answer(const PlaceAnswer& answer);
  void TakeBack();

  // The outcome of a call that failed.
  PlaceOutcome OutcomeOf(GioError& error) const;

 private:
  static void AskPassword(GMountOperation*, const char* text, const char* user, const char* domain,
                          GAskPasswordFlags flags, gpointer data);
  static void AskQuestion(GMountOperation*, const char* text, const char* const* choices,
                          gpointer data);
  static void ShowProcesses(GMountOperation*, const char* text, GArray* processes,
                            const char* const* choices, gpointer data);
  static void Aborted(GMountOperation*, gpointer data);
  bool AnswerByItself(const char* user, GAskPasswordFlags flags);
  void Ask(const PlaceQuestion& question);
  void Reply(GMountOperationResult result);

  PlaceUser& user_;
  GioObject<GMountOperation> operation_;
  std::string password_;
  bool isAsking_ = false;
  bool hasChoices_ = false;
  bool isTakenBack_ = false;
  std::string inUse_;  // what was said of those who use the place
};

}  // namespace tarnwell::platform
