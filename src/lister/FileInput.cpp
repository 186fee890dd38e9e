#include "lister/FileInput.h"

namespace tarnwell::lister {

bool FileInput::IsSelected(RowId) const {
  return false;
}
std::vector<RowRange> FileInput::SelectedRanges() const {
  return {};
}
RowId FileInput::NextSelected(std::int32_t&) const {
  return NoRow;
}
void FileInput::Arrow(int, bool, int) {}
bool FileInput::KeyDown(int, int) {
  return false;
}
void FileInput::TypeText(std::string_view) {}
void FileInput::MouseDown(const RowPointer&) {}
void FileInput::MouseMoved(const RowPointer&) {}
void FileInput::MouseUp(const RowPointer&) {}
RowId FileInput::Clicked() const {
  return files_.Current;
}

}  // namespace tarnwell::lister
