#include "platform/ReleasedSkins.h"

#include <algorithm>
#include <array>

namespace tarnwell::platform {
namespace {

// By sha256sum data/skins/*. When a skin changes, its new line comes on top, and the old ones stay.
constexpr std::array<std::string_view, 4> ReleasedDigests = {
    "9e867eb99374ae1b7446c52bb7f3ce07eb187b6d4b7e6a027ab33319208cfe31",  // Earl Grey, 1.0
    "5b511bfae94b1a535e77e70fb418da877cf1ae81495886861a3d4e1f2bb1c642",  // Grasshopper, 1.0
    "fa76c2a1346b1e1f76e6ca70cfcce66f126c2809d6945ec01be88cbfcd885234",  // Roxy, 1.0
    "b9fc40347e9d49d92a5bb1f5939696ad3557ae50e3d2b3be6c1732cc3dd33341",  // Traditional, 1.0
};

}  // namespace

bool IsReleasedSkin(std::string_view digest) {
  return std::ranges::find(ReleasedDigests, digest) != ReleasedDigests.end();
}

}  // namespace tarnwell::platform
