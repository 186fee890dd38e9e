#include "ui/forms/OperationDialogs.h"

#include "ui/forms/FieldsWindow.h"

namespace tarnwell::ui {
namespace {

// Characters that the toolkit counts as two are one code point.
int PlaceOf(const QString& text, std::size_t codePoints) {
  const std::u32string all = text.toStdU32String();
  return static_cast<int>(QString::fromStdU32String(all.substr(0, codePoints)).size());
}

template <typename Form>
std::unique_ptr<FieldsWindow> Make(Form& form) {
  return std::make_unique<FieldsWindow>(form, [&form] { form.cmdCancelClick(); });
}

}  // namespace

std::unique_ptr<FormWindow> WindowOf(fileops::popNewFolder& form) {
  auto window = Make(form);
  window->AddBox(form.Label1, form.txtDest, true);
  window->AddBox(form.Label2, form.txtNewFolderName, false);
  window->AddButton(form.cmdCopy, [&form] { form.cmdCopyClick(); });
  window->AddButton(form.cmdCancel, [&form] { form.cmdCancelClick(); });
  return window;
}

std::unique_ptr<FormWindow> WindowOf(fileops::popCopyMove& form) {
  auto window = Make(form);
  window->AddBox(form.Label1, form.txtSource, true);
  window->AddBox(form.Label2, form.txtDest, false);
  window->AddButton(form.cmdCopy, [&form] { form.cmdCopyClick(); });
  window->AddButton(form.cmdMove, [&form] { form.cmdMoveClick(); });
  window->AddButton(form.cmdCancel, [&form] { form.cmdCancelClick(); });
  return window;
}

std::unique_ptr<FormWindow> WindowOf(fileops::popDelete& form) {
  auto window = Make(form);
  window->AddBox(form.Label1, form.txtSource, true);
  window->AddCheck(form.chkSendToRecycleBin, form.Label2);
  window->AddButton(form.cmdDelete, [&form] { form.cmdDeleteClick(); });
  window->AddButton(form.cmdCancel, [&form] { form.cmdCancelClick(); });
  return window;
}

std::unique_ptr<FormWindow> WindowOf(fileops::popRename& form) {
  auto window = Make(form);
  window->AddBox(form.Label1, form.txtSource, true);
  QLineEdit& name = window->AddBox(form.Label2, form.txtDest, false);
  window->AddButton(form.cmdRename, [&form] { form.cmdRenameClick(); });
  window->AddButton(form.cmdCancel, [&form] { form.cmdCancelClick(); });
  window->OnShown = [&form, &name] {
    const int start = PlaceOf(name.text(), form.SelStart);
    const int end = PlaceOf(name.text(), form.SelStart + form.SelLength);
    name.setSelection(start, end - start);
    if (end == start) name.setCursorPosition(start);
  };
  return window;
}

}  // namespace tarnwell::ui
