// Port: folders of other machines, and how the desktop makes them folders of this one.
//
// Nothing here waits: what takes time is a task, and tells its outcome from the event loop, never
// during the call that starts it. A task that is destroyed gives up and tells nothing more; it may
// be destroyed while it tells something.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/Status.h"

namespace tarnwell::platform {

// A place by its address, "sftp://host/folder": percent-encoded, without a password.
struct OfferedPlace {
  std::string Name;  // for people
  std::string Address;
};

// What is mounted from elsewhere.
struct ConnectedPlace {
  std::string Id;      // one that no other place has, for as long as it is mounted
  std::string Name;    // for people
  std::string Source;  // its address, or what the system's table calls it: "host:/export"
  std::string Folder;  // full path of its top; empty where it cannot be seen as a folder
};

// Something that only the user knows. Either fields are to be filled in, or a choice is to be made.
struct PlaceQuestion {
  std::string Text;  // of one line or many; others may have written it
  std::vector<std::string> Choices{};
  bool WantsUser = false;
  bool WantsDomain = false;
  bool WantsPassword = false;
  bool CanBeAnonymous = false;
  bool CanKeep = false;  // there is a keyring
  std::string User{};    // offered
  std::string Domain{};
};

enum class PasswordKeeping { No, Session, Keyring };

struct PlaceAnswer {
  std::size_t Choice = 0;
  std::string User;
  std::string Domain;
  std::string Password;
  bool IsAnonymous = false;
  PasswordKeeping Keeping = PasswordKeeping::No;
};

struct PlaceOutcome {
  base::Status Status{};
  // The user took it back, by a question. There is nothing to tell then.
  bool IsCancelled = false;
  bool IsInUse = false;  // the reason why a place cannot be disconnected
  // Of a place that was connected: the one of the address, or else the usual one of the place.
  std::string Folder{};
};

// Hears of one task. Questions come one at a time.
class PlaceUser {
 public:
  virtual ~PlaceUser() = default;
  virtual void OnQuestion(const PlaceQuestion& question) = 0;
  // The other side waits no longer for the answer.
  virtual void OnQuestionGone() = 0;
  // Once, and last of all.
  virtual void OnDone(const PlaceOutcome& outcome) = 0;
};

class PlaceTask {
 public:
  virtual ~PlaceTask() = default;
};

// One that may ask. Each question wants one of these two, from the event loop or within it.
class AskingTask : public PlaceTask {
 public:
  virtual void Answer(const PlaceAnswer& answer) = 0;
  virtual void TakeBack() = 0;
};

// What the desktop can connect to, by the schemes of addresses; the status names what is missing
// where it is nothing at all.
struct NetworkKinds {
  std::vector<std::string> Schemes;
  base::Status Status;
};

class NetworkPlaces {
 public:
  virtual ~NetworkPlaces() = default;

  virtual std::unique_ptr<PlaceTask> FindKinds(
      std::function<void(const NetworkKinds& kinds)> told) = 0;
  // What machines on the network announce, by themselves and again and again; ends when it is
  // destroyed, or when all have been heard.
  virtual std::unique_ptr<PlaceTask> FindOffers(
      std::function<void(const std::vector<OfferedPlace>& found)> told) = 0;
  // Mounts a place; one that is mounted already is a success. The password, where there is one, is
  // the first answer to the question for it, and is not kept.
  virtual std::unique_ptr<AskingTask> Connect(const std::string& address,
                                              const std::string& password, PlaceUser& user) = 0;
  // A place that is in use stays, unless the user says otherwise by a question.
  virtual std::unique_ptr<AskingTask> Disconnect(const std::string& id, PlaceUser& user) = 0;

  // Asks no other machine.
  virtual std::vector<ConnectedPlace> Connected() const = 0;
  // Calls `changed` from the event loop after places came or went. An empty function stops that.
  virtual void OnChange(std::function<void()> changed) = 0;
};

}  // namespace tarnwell::platform
