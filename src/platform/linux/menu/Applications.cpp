#include "platform/linux/menu/Applications.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <iterator>
#include <utility>

namespace tarnwell::platform {
namespace {

constexpr std::size_t mostItems = 100;
constexpr std::chrono::milliseconds longEnough(100);

std::string TypeOf(const std::string& path) {
  const GioObject<GFile> file(g_file_new_for_path(path.c_str()));
  const GioObject<GFileInfo> info(g_file_query_info(file.get(),
                                                    G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE,
                                                    G_FILE_QUERY_INFO_NONE, nullptr, nullptr));
  const char* const type = info ? g_file_info_get_content_type(info.get()) : nullptr;
  return type != nullptr ? type : "";
}

ApplicationList TakeList(GList* applications) {
  ApplicationList list;
  for (GList* item = applications; item != nullptr; item = item->next) {
    list.emplace_back(static_cast<GAppInfo*>(item->data));
  }
  g_list_free(applications);
  return list;
}

bool Holds(const ApplicationList& list, GAppInfo* application) {
  return std::ranges::any_of(list, [application](const GioObject<GAppInfo>& each) {
    return g_app_info_equal(each.get(), application) != FALSE;
  });
}

}  // namespace

std::vector<std::string> TypesOf(const std::vector<std::string>& paths) {
  std::vector<std::string> types;
  const auto end = std::chrono::steady_clock::now() + longEnough;
  for (std::size_t at = 0; at < paths.size() && at < mostItems; ++at) {
    std::string type = TypeOf(paths[at]);
    if (!type.empty() && std::ranges::count(types, type) == 0) types.push_back(std::move(type));
    if (std::chrono::steady_clock::now() > end) break;
  }
  return types;
}

ApplicationList ApplicationsFor(const std::vector<std::string>& types) {
  ApplicationList common;
  if (types.empty()) return common;
  GioObject<GAppInfo> usual(g_app_info_get_default_for_type(types.front().c_str(), FALSE));
  if (usual) common.push_back(std::move(usual));
  for (GioObject<GAppInfo>& each : TakeList(g_app_info_get_all_for_type(types.front().c_str()))) {
    if (!Holds(common, each.get())) common.push_back(std::move(each));
  }
  for (std::size_t at = 1; at < types.size() && !common.empty(); ++at) {
    const ApplicationList others = TakeList(g_app_info_get_all_for_type(types[at].c_str()));
    std::erase_if(
        common, [&others](const GioObject<GAppInfo>& each) { return !Holds(others, each.get()); });
  }
  return common;
}

ApplicationList ApplicationsAfter(const ApplicationList& first) {
  ApplicationList others = TakeList(g_app_info_get_all());
  std::erase_if(others, [&first](const GioObject<GAppInfo>& each) {
    return g_app_info_should_show(each.get()) == FALSE || Holds(first, each.get());
  });
  std::ranges::sort(others, [](const GioObject<GAppInfo>& one, const GioObject<GAppInfo>& other) {
    return g_utf8_collate(NameOf(one.get()).c_str(), NameOf(other.get()).c_str()) < 0;
  });
  ApplicationList list;
  for (const GioObject<GAppInfo>& each : first) {
    list.emplace_back(static_cast<GAppInfo*>(g_object_ref(each.get())));
  }
  std::ranges::move(others, std::back_inserter(list));
  return list;
}

base::Status UseAlways(GAppInfo* application, const std::string& type) {
  GioError error;
  const gboolean done =
      g_app_info_set_as_default_for_type(application, type.c_str(), error.Place());
  return done != FALSE ? base::Status() : error.Status();
}

std::string TypeName(const std::string& type) {
  const GioText name(g_content_type_get_description(type.c_str()));
  return TextOf(name.get());
}

std::string IdOf(GAppInfo* application) {
  return TextOf(g_app_info_get_id(application));
}

std::string NameOf(GAppInfo* application) {
  return TextOf(g_app_info_get_display_name(application));
}

std::string PictureOf(GAppInfo* application) {
  GIcon* const icon = g_app_info_get_icon(application);
  if (icon == nullptr) return {};
  if (G_IS_THEMED_ICON(icon) != FALSE) {
    const char* const* const names = g_themed_icon_get_names(G_THEMED_ICON(icon));
    return TextOf(names != nullptr ? names[0] : nullptr);
  }
  if (G_IS_FILE_ICON(icon) == FALSE) return {};
  const GioText path(g_file_get_path(g_file_icon_get_file(G_FILE_ICON(icon))));
  return TextOf(path.get());
}

}  // namespace tarnwell::platform
