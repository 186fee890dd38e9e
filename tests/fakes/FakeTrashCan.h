// The trash in memory.
#pragma once

#include <algorithm>
#include <utility>

#include "platform/TrashCan.h"

namespace tarnwell::fakes {

// Holds what a test puts into Items, and tells the view that lives of it when the test says so.
class FakeTrashCan : public platform::TrashCan {
 public:
  std::vector<platform::TrashedItem> Items;
  std::vector<platform::TrashTrouble> Troubles;
  std::string Drive;  // of the last view
  int Refreshed = 0;  // how often a view was asked to
  int Views = 0;      // that live

  // What the platform does once it has read everything.
  void Settle() {
    if (listener_ != nullptr) listener_->OnItems(Items);
    if (listener_ != nullptr && !Troubles.empty()) listener_->OnTroubles(Troubles);
    if (listener_ != nullptr) listener_->OnSettled();
  }
  // One came, or changed.
  void Tell(const platform::TrashedItem& item) {
    std::erase_if(Items, [&](const auto& each) { return each.Id == item.Id; });
    Items.push_back(item);
    if (listener_ != nullptr) listener_->OnItems({item});
  }
  void TakeOut(std::uint64_t id) {
    std::erase_if(Items, [&](const auto& each) { return each.Id == id; });
    if (listener_ != nullptr) listener_->OnGone({id});
  }

  std::unique_ptr<platform::TrashView> Follow(platform::TrashListener& listener,
                                              std::string drive) override {
    listener_ = &listener;
    Drive = std::move(drive);
    return std::make_unique<View>(*this, listener);
  }

 private:
  struct View : platform::TrashView {
    View(FakeTrashCan& can, platform::TrashListener& listener) : Can(can), Listener(listener) {
      ++Can.Views;
    }
    ~View() override {
      --Can.Views;
      if (Can.listener_ == &Listener) Can.listener_ = nullptr;
    }
    void Refresh() override { ++Can.Refreshed; }
    FakeTrashCan& Can;
    platform::TrashListener& Listener;
  };
  platform::TrashListener* listener_ = nullptr;
};

}  // namespace tarnwell::fakes
