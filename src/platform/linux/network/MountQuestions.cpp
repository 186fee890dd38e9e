#include "platform/linux/network/MountQuestions.h"

#include <cerrno>
#include <fstream>
#include <utility>

#include "platform/GuardedCall.h"

namespace tarnwell::platform {
namespace {

std::string ProgramOf(GPid process) {
  std::string name;
  std::ifstream comm("/proc/" + std::to_string(process) + "/comm");
  std::getline(comm, name);
  return name.empty() ? "process " + std::to_string(process) : name;
}

std::vector<std::string> AllOf(const char* const* texts) {
  std::vector<std::string> all;
  for (; texts != nullptr && *texts != nullptr; ++texts) all.emplace_back(*texts);
  return all;
}

constexpr GPasswordSave keepings[] = {G_PASSWORD_SAVE_NEVER, G_PASSWORD_SAVE_FOR_SESSION,
                                      G_PASSWORD_SAVE_PERMANENTLY};  // by PasswordKeeping

}  // namespace

MountQuestions::MountQuestions(PlaceUser& user, std::string password)
    : user_(user), operation_(g_mount_operation_new()), password_(std::move(password)) {
  GMountOperation* const operation = operation_.get();
  g_signal_connect(operation, "ask-password", G_CALLBACK(&MountQuestions::AskPassword), this);
  g_signal_connect(operation, "ask-question", G_CALLBACK(&MountQuestions::AskQuestion), this);
  g_signal_connect(operation, "show-processes", G_CALLBACK(&MountQuestions::ShowProcesses), this);
  g_signal_connect(operation, "aborted", G_CALLBACK(&MountQuestions::Aborted), this);
}

MountQuestions::~MountQuestions() {
  g_signal_handlers_disconnect_by_data(operation_.get(), this);
  if (isAsking_) g_mount_operation_reply(operation_.get(), G_MOUNT_OPERATION_ABORTED);
}

// Each question ends its signal here: what GLib does by itself behind that is to answer that nobody
// was there to ask.
void MountQuestions::AskPassword(GMountOperation* operation, const char* text, const char* user,
                                 const char* domain, GAskPasswordFlags flags, gpointer data) {
  g_signal_stop_emission_by_name(operation, "ask-password");
  auto* const self = static_cast<MountQuestions*>(data);
  if (self->AnswerByItself(user, flags)) return;
  self->hasChoices_ = false;
  self->Ask({.Text = TextOf(text),
             .WantsUser = (flags & G_ASK_PASSWORD_NEED_USERNAME) != 0,
             .WantsDomain = (flags & G_ASK_PASSWORD_NEED_DOMAIN) != 0,
             .WantsPassword = (flags & G_ASK_PASSWORD_NEED_PASSWORD) != 0,
             .CanBeAnonymous = (flags & G_ASK_PASSWORD_ANONYMOUS_SUPPORTED) != 0,
             .CanKeep = (flags & G_ASK_PASSWORD_SAVING_SUPPORTED) != 0,
             .User = TextOf(user),
             .Domain = TextOf(domain)});
}

void MountQuestions::AskQuestion(GMountOperation* operation, const char* text,
                                 const char* const* choices, gpointer data) {
  g_signal_stop_emission_by_name(operation, "ask-question");
  auto* const self = static_cast<MountQuestions*>(data);
  self->hasChoices_ = true;
  PlaceQuestion question;
  question.Text = TextOf(text);
  question.Choices = AllOf(choices);
  self->Ask(question);
}

// Comes again whenever there are others of them.
void MountQuestions::ShowProcesses(GMountOperation* operation, const char* text, GArray* processes,
                                   const char* const* choices, gpointer data) {
  g_signal_stop_emission_by_name(operation, "show-processes");
  auto* const self = static_cast<MountQuestions*>(data);
  self->hasChoices_ = true;
  PlaceQuestion question;
  question.Text = TextOf(text);
  for (guint i = 0; i < processes->len; ++i) {
    question.Text += "\n" + ProgramOf(g_array_index(processes, GPid, i));
  }
  question.Choices = AllOf(choices);
  self->inUse_ = question.Text;
  self->Ask(question);
}

void MountQuestions::Aborted(GMountOperation*, gpointer data) {
  auto* const self = static_cast<MountQuestions*>(data);
  if (!std::exchange(self->isAsking_, false)) return;
  GuardedCall([self] { self->user_.OnQuestionGone(); });
}

bool MountQuestions::AnswerByItself(const char* user, GAskPasswordFlags flags) {
  const bool wantsPassword = (flags & G_ASK_PASSWORD_NEED_PASSWORD) != 0;
  const bool wantsUser = (flags & G_ASK_PASSWORD_NEED_USERNAME) != 0;
  if (password_.empty() || !wantsPassword || (wantsUser && TextOf(user).empty())) return false;
  if (wantsUser) g_mount_operation_set_username(Operation(), user);
  g_mount_operation_set_password(Operation(), password_.c_str());
  g_mount_operation_set_password_save(Operation(), G_PASSWORD_SAVE_NEVER);
  password_.clear();  // a second question says that it was wrong
  g_mount_operation_reply(Operation(), G_MOUNT_OPERATION_HANDLED);
  return true;
}

// The user may end all of this by the call.
void MountQuestions::Ask(const PlaceQuestion& question) {
  isAsking_ = true;
  GuardedCall([&] { user_.OnQuestion(question); });
}

void MountQuestions::Answer(const PlaceAnswer& answer) {
  GMountOperation* const operation = Operation();
  if (hasChoices_) {
    g_mount_operation_set_choice(operation, static_cast<int>(answer.Choice));
  } else {
    g_mount_operation_set_anonymous(operation, answer.IsAnonymous ? TRUE : FALSE);
    g_mount_operation_set_username(operation, answer.User.c_str());
    g_mount_operation_set_domain(operation, answer.Domain.c_str());
    g_mount_operation_set_password(operation, answer.Password.c_str());
    g_mount_operation_set_password_save(operation,
                                        keepings[static_cast<std::size_t>(answer.Keeping)]);
  }
  Reply(G_MOUNT_OPERATION_HANDLED);
}

void MountQuestions::TakeBack() {
  isTakenBack_ = true;
  Reply(G_MOUNT_OPERATION_ABORTED);
}

void MountQuestions::Reply(GMountOperationResult result) {
  if (std::exchange(isAsking_, false)) g_mount_operation_reply(Operation(), result);
}

PlaceOutcome MountQuestions::OutcomeOf(GioError& error) const {
  PlaceOutcome outcome;
  outcome.Status = error.Status();
  const GError* const told = *error.Place();
  outcome.IsInUse = g_error_matches(told, G_IO_ERROR, G_IO_ERROR_BUSY) != FALSE;
  // Not all that mounts says that it ends for this alone.
  outcome.IsCancelled = isTakenBack_ ||
                        g_error_matches(told, G_IO_ERROR, G_IO_ERROR_FAILED_HANDLED) != FALSE ||
                        g_error_matches(told, G_IO_ERROR, G_IO_ERROR_CANCELLED) != FALSE;
  if (outcome.IsCancelled && !inUse_.empty()) {
    outcome = {.Status = {EBUSY, inUse_}, .IsInUse = true};
  }
  return outcome;
}

}  // namespace tarnwell::platform
