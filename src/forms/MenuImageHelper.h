// Gives the entries of a menu their pictures. Entries are named by their captions.
#pragma once

#include <string_view>

#include "forms/ImageList.h"
#include "forms/Menu.h"

namespace tarnwell::forms {

class MenuImageHelper {
 public:
  explicit MenuImageHelper(Menu& menu) : menu_(menu) {}

  // While detached, the window draws its menus without pictures.
  void Attach() { attached_ = true; }
  void Detach() { attached_ = false; }
  void DrawImages(bool draw) { draw_ = draw; }
  void TakeImages(const ImageList& images) { images_ = &images; }
  // `index` counts from 0. A caption that no entry has does nothing.
  void SetImage(std::string_view caption, int index) {
    if (MenuEntry* entry = menu_.FindByCaption(caption)) entry->Image = index;
  }

  // Key of the picture that the window draws beside the entry; empty for none.
  std::string_view ImageOf(const MenuEntry& entry) const {
    if (!attached_ || !draw_ || images_ == nullptr) return {};
    return images_->Key(entry.Image);
  }

 private:
  Menu& menu_;
  const ImageList* images_ = nullptr;
  bool attached_ = false;
  bool draw_ = false;
};

}  // namespace tarnwell::forms
