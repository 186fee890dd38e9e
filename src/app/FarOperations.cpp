#include "app/FarOperations.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/ItemList.h"

namespace tarnwell::app {

ui::OperationSystem WithCareAfar(ui::OperationSystem system, const platform::FarCalls& calls) {
  system.Refusal = [calls, refusal = std::move(system.Refusal)](platform::FileFunction function,
                                                                const std::string& items) {
    std::vector<std::string> paths;
    for (const std::string_view path : base::ItemList(items)) paths.emplace_back(path);
    const auto sentence = std::make_shared<std::string>();
    const base::Status status =
        calls.RunAt(calls.PlaceOfItems(paths),
                    [sentence, refusal, function, items] { *sentence = refusal(function, items); });
    return status ? *sentence : status.Reason + ".";
  };
  system.Fingerprint = [calls, fingerprint = std::move(system.Fingerprint)](const std::string& path,
                                                                            bool isWhole) {
    return calls.Get<platform::ItemFingerprint>(
        path, [fingerprint, path, isWhole] { return fingerprint(path, isWhole); }, {},
        platform::LastLink::Itself);
  };
  system.IsFar = [calls](const std::string& path) { return calls.PlaceOf(path).has_value(); };
  return system;
}

}  // namespace tarnwell::app
