#include "lister/FolderInput.h"

namespace tarnwell::lister {

bool FolderInput::IsSelected(RowId row) const {
  return tree_.Has(row) && row == tree_.Current();
}
RowId FolderInput::NextSelected(std::int32_t& position) const {
  return position++ == 0 && tree_.Has(tree_.Current()) ? tree_.Current() : NoRow;
}
void FolderInput::Arrow(int, bool, int) {
  control_.MoveCurrent(tree_.Current());
}
bool FolderInput::KeyDown(int, int) {
  return false;
}
void FolderInput::TypeText(std::string_view) {}
void FolderInput::MouseDown(const RowPointer&) {}
void FolderInput::MouseMoved(const RowPointer&) {}
void FolderInput::MouseUp(const RowPointer&) {}
RowId FolderInput::Clicked() const {
  return tree_.Current();
}

}  // namespace tarnwell::lister
