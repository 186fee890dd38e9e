#include "platform/win32/shell/CutItems.h"

#include <shellapi.h>
#include <shlobj.h>

#include <cstring>

#include "base/ItemList.h"
#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {
namespace {

// The content of one format, which goes with the object.
class ClipboardPiece {
 public:
  ClipboardPiece(IDataObject& data, UINT format) {
    FORMATETC wanted{static_cast<CLIPFORMAT>(format), nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    if (SUCCEEDED(data.GetData(&wanted, &medium_))) size_ = GlobalSize(medium_.hGlobal);
  }
  ~ClipboardPiece() {
    if (size_ > 0) ReleaseStgMedium(&medium_);
  }
  ClipboardPiece(const ClipboardPiece&) = delete;
  ClipboardPiece& operator=(const ClipboardPiece&) = delete;

  // Null where there are fewer bytes than that.
  HGLOBAL Get(SIZE_T least) const { return size_ >= least ? medium_.hGlobal : nullptr; }

 private:
  STGMEDIUM medium_{};
  SIZE_T size_ = 0;
};

bool IsToBeMoved(IDataObject& data) {
  const ClipboardPiece effect(data, RegisterClipboardFormatW(CFSTR_PREFERREDDROPEFFECT));
  DWORD flags = 0;
  const HGLOBAL content = effect.Get(sizeof flags);
  if (content == nullptr) return false;
  std::memcpy(&flags, GlobalLock(content), sizeof flags);
  GlobalUnlock(content);
  return (flags & DROPEFFECT_MOVE) != 0;
}

}  // namespace

std::string ItemsCutHere() {
  DWORD process = 0;
  GetWindowThreadProcessId(GetClipboardOwner(), &process);
  ComPtr<IDataObject> data;
  if (process != GetCurrentProcessId() || FAILED(OleGetClipboard(data.GetAddressOf())) ||
      !IsToBeMoved(*data.Get())) {
    return {};
  }
  const ClipboardPiece files(*data.Get(), CF_HDROP);
  auto* const drop = static_cast<HDROP>(files.Get(sizeof(DROPFILES)));
  if (drop == nullptr) return {};
  std::string items;
  const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT at = 0; at < count; ++at) {
    std::wstring path(DragQueryFileW(drop, at, nullptr, 0), L'\0');
    DragQueryFileW(drop, at, path.data(), static_cast<UINT>(path.size() + 1));
    base::ItemList::Add(items, Narrow(path));
  }
  return items;
}

}  // namespace tarnwell::platform
