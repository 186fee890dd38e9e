// An engine whose runs do what a test says, when it says so.
#pragma once

#include <map>

#include "base/ItemList.h"
#include "platform/OperationEngine.h"

namespace tarnwell::fakes {

class FakeOperationEngine : public platform::OperationEngine {
 public:
  struct State {
    platform::OperationRequest Request;
    platform::OperationListener* Listener;
    std::string Calls;  // a letter for each: p, P (paused off), c, l, q
  };

  std::vector<platform::OperationRequest> Requests;
  std::map<std::size_t, State> Runs;  // those at work, by position in Requests
  std::string Refused;                // what Refusal gives
  bool Fails = false;                 // nothing can be started
  std::function<void()> OnSettle;     // what comes in its time

  // All at work are done, in their order, and what is started by that.
  void DoneAll() {
    while (!Runs.empty()) Done(Runs.begin()->first);
  }
  void Done(std::size_t run, platform::OperationResult result = {}) {
    Runs.at(run).Listener->OnDone(std::move(result));
  }
  platform::OperationListener& operator[](std::size_t run) { return *Runs.at(run).Listener; }
  std::string Calls(std::size_t run) const { return Runs.at(run).Calls; }

  std::unique_ptr<platform::OperationRun> Start(const platform::OperationRequest& request,
                                                platform::OperationListener& listener) override {
    if (Fails) throw std::runtime_error("no thread");
    Runs.insert({Requests.size(), {request, &listener, ""}});
    Requests.push_back(request);
    return std::make_unique<Run>(*this, Requests.size() - 1);
  }
  void Settle(const std::function<bool()>& isDone) override {
    if (!isDone() && OnSettle) OnSettle();
  }
  std::string Refusal(platform::FileFunction, const std::string&) const override { return Refused; }
  // The drive letters.
  std::vector<std::string> VolumesOf(const platform::OperationRequest& request) const override {
    std::vector<std::string> volumes;
    for (const std::string* const list : {&request.Items, &request.Destination}) {
      for (const std::string_view path : base::ItemList(*list))
        volumes.emplace_back(path.substr(0, 1));
    }
    return volumes;
  }
  platform::ItemFingerprint Fingerprint(const std::string& path, bool isWhole) const override {
    return {.Size = path.size(), .Below = isWhole ? 1U : 0U};
  }

 private:
  struct Run : platform::OperationRun {
    Run(FakeOperationEngine& owner, std::size_t number) : Owner(owner), Number(number) {}
    ~Run() override { Owner.Runs.erase(Number); }
    void Note(char call) const { Owner.Runs.at(Number).Calls += call; }
    void Pause(bool on) override { Note(on ? 'p' : 'P'); }
    void Cancel() override { Note('c'); }
    void Leave() override { Note('l'); }
    void ShowQuestion() override { Note('q'); }
    FakeOperationEngine& Owner;
    std::size_t Number;
  };
};

}  // namespace tarnwell::fakes
