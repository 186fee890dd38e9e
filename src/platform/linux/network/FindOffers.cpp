#include "platform/linux/network/FindOffers.h"

#include <gio/gio.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>

#include "platform/GuardedCall.h"
#include "platform/linux/network/AsyncCall.h"
#include "platform/linux/posix/GioObject.h"

namespace tarnwell::platform {
namespace {

constexpr const char* networkFolder = "network:///";
constexpr const char* offerAttributes =
    G_FILE_ATTRIBUTE_STANDARD_DISPLAY_NAME "," G_FILE_ATTRIBUTE_STANDARD_TARGET_URI;
constexpr guint lookSeconds = 5;
constexpr int mostOffers = 500;

// "smb:///" names no machine but a list of machines.
bool IsList(const std::string& address) {
  return address.ends_with(":///");
}

class OfferSearch;

// A look at one list. Lists that it names are looked at in their turn.
class OfferList : public std::enable_shared_from_this<OfferList> {
 public:
  OfferList(std::string address, OfferSearch& search, GCancellable* cancel)
      : search_(search),
        address_(std::move(address)),
        folder_(g_file_new_for_uri(address_.c_str())),
        cancel_(G_CANCELLABLE(g_object_ref(cancel))) {}

  void Look() {
    g_file_enumerate_children_async(
        folder_.get(), offerAttributes, G_FILE_QUERY_INFO_NONE, G_PRIORITY_LOW, cancel_.get(),
        &AsyncCall<OfferList>::Done,
        AsyncCall<OfferList>::For(shared_from_this(), &OfferList::Opened));
  }

 private:
  void Opened(GObject*, GAsyncResult* result);
  void Mounted(GObject*, GAsyncResult* result);
  void Read(GObject* source, GAsyncResult* result);

  OfferSearch& search_;
  std::string address_;
  GioObject<GFile> folder_;
  GioObject<GCancellable> cancel_;
  GioObject<GFileEnumerator> entries_;
  bool isMounted_ = false;
};

class OfferSearch : public PlaceTask {
 public:
  using Told = std::function<void(const std::vector<OfferedPlace>&)>;

  explicit OfferSearch(Told told) : told_(std::move(told)), cancel_(g_cancellable_new()) {
    Look(networkFolder);
    timer_ = g_timeout_add_seconds(lookSeconds, &OfferSearch::LookAgain, this);
  }
  OfferSearch(const OfferSearch&) = delete;
  OfferSearch& operator=(const OfferSearch&) = delete;
  ~OfferSearch() override {
    g_source_remove(timer_);
    g_cancellable_cancel(cancel_.get());
  }

  // All that a list holds.
  void Take(const std::string& list, std::vector<OfferedPlace> entries);

 private:
  void Look(const std::string& list) {
    auto& look = lists_[list];
    look = std::make_shared<OfferList>(list, *this, cancel_.get());
    look->Look();
  }
  static gboolean LookAgain(gpointer data) {
    auto* const self = static_cast<OfferSearch*>(data);
    GuardedCall([self] { self->Look(networkFolder); });
    return G_SOURCE_CONTINUE;
  }

  Told told_;
  GioObject<GCancellable> cancel_;
  guint timer_ = 0;
  std::map<std::string, std::shared_ptr<OfferList>> lists_;
  std::map<std::string, std::vector<OfferedPlace>> found_;  // by list
  std::vector<OfferedPlace> shown_;
};

void OfferList::Opened(GObject*, GAsyncResult* result) {
  GioError error;
  entries_.reset(g_file_enumerate_children_finish(folder_.get(), result, error.Place()));
  using Call = AsyncCall<OfferList>;
  if (entries_) {
    g_file_enumerator_next_files_async(entries_.get(), mostOffers, G_PRIORITY_LOW, cancel_.get(),
                                       &Call::Done,
                                       Call::For(shared_from_this(), &OfferList::Read));
    return;
  }
  const bool isUnmounted =
      g_error_matches(*error.Place(), G_IO_ERROR, G_IO_ERROR_NOT_MOUNTED) != FALSE;
  if (!isUnmounted || std::exchange(isMounted_, true)) return;
  g_file_mount_enclosing_volume(folder_.get(), G_MOUNT_MOUNT_NONE, nullptr, cancel_.get(),
                                &Call::Done, Call::For(shared_from_this(), &OfferList::Mounted));
}

void OfferList::Mounted(GObject*, GAsyncResult* result) {
  if (g_file_mount_enclosing_volume_finish(folder_.get(), result, nullptr) != FALSE) Look();
}

void OfferList::Read(GObject*, GAsyncResult* result) {
  GList* const infos = g_file_enumerator_next_files_finish(entries_.get(), result, nullptr);
  std::vector<OfferedPlace> found;
  for (GList* item = infos; item != nullptr; item = item->next) {
    auto* const info = static_cast<GFileInfo*>(item->data);
    found.push_back(
        {TextOf(g_file_info_get_display_name(info)),
         TextOf(g_file_info_get_attribute_string(info, G_FILE_ATTRIBUTE_STANDARD_TARGET_URI))});
  }
  g_list_free_full(infos, &g_object_unref);
  search_.Take(address_, std::move(found));
}

// Tells only of what is new, since it is looked for again and again.
void OfferSearch::Take(const std::string& list, std::vector<OfferedPlace> entries) {
  for (const OfferedPlace& each : entries) {
    if (list == networkFolder && IsList(each.Address)) Look(each.Address);
  }
  std::erase_if(entries, [](const OfferedPlace& each) {
    return each.Address.empty() || IsList(each.Address);
  });
  found_[list] = std::move(entries);
  std::vector<OfferedPlace> all;
  for (const auto& [from, places] : found_) all.insert(all.end(), places.begin(), places.end());
  const auto isSame = [](const OfferedPlace& left, const OfferedPlace& right) {
    return left.Name == right.Name && left.Address == right.Address;
  };
  if (std::ranges::equal(all, shown_, isSame)) return;
  shown_ = all;
  told_(all);
}

}  // namespace

std::unique_ptr<PlaceTask> FindOffers(
    std::function<void(const std::vector<OfferedPlace>& found)> told) {
  return std::make_unique<OfferSearch>(std::move(told));
}

}  // namespace tarnwell::platform
