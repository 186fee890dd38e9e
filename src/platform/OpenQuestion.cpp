#include "platform/OpenQuestion.h"

#include "platform/CountedTexts.h"

namespace tarnwell::platform {
namespace {

constexpr std::size_t mostUnasked = 30;

}  // namespace

bool AskAboutMany(std::size_t count, Dialogs& dialogs, const NumberForms& forms) {
  return count <= mostUnasked ||
         dialogs.AskYesNo("Open", Counted(forms, CountedText::OpenQuestion, count));
}

}  // namespace tarnwell::platform
