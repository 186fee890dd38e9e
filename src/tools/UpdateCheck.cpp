#include "tools/UpdateCheck.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <exception>
#include <string_view>
#include <utility>

#include "base/Text.h"

namespace tarnwell::tools {
namespace {

constexpr std::size_t MostVersionBytes = 64 * 1024;
constexpr std::size_t MostNewsBytes = 1024 * 1024;
constexpr std::size_t VersionLimit = 31;  // characters from which on it is none

constexpr std::array<std::string_view, 2> NoDomains = {".example", ".invalid"};

// The host of an address, with its port if one is told.
std::string_view SiteName(std::string_view site) {
  const std::size_t scheme = site.find("://");
  if (scheme != std::string_view::npos) site.remove_prefix(scheme + 3);
  return site.substr(0, site.find('/'));
}

bool IsPlaceholder(std::string_view site) {
  const std::string_view host = SiteName(site);
  const std::string_view name = host.substr(0, host.find(':'));
  return name.empty() || std::ranges::any_of(NoDomains, [name](std::string_view domain) {
           return name.ends_with(domain);
         });
}

// Without what line ends and blanks leave at the ends of a line of text.
std::string Trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t first = std::min(text.find_first_not_of(blanks), text.size());
  return std::string(text.substr(first, text.find_last_not_of(blanks) + 1 - first));
}

// Each line feed becomes a carriage return and line feed.
std::string WithLineEnds(std::string_view text) {
  std::string lines;
  for (const char byte : text) {
    if (byte == '\n') lines += '\r';
    lines += byte;
  }
  return lines;
}

}  // namespace

UpdateCheck::UpdateCheck(workspace::Workspace& space, const UpdateServices& services,
                         const base::Version& version, std::string site)
    : space_(space),
      services_(services),
      version_(version.Number()),
      site_(std::move(site)),
      form_(services.Host,
            {.Update = services.OpenWebSite, .Pass = [this] {
               Tell(
                   "Don't want the update?\r\n\r\nNo problem! The next time a new update "
                   "becomes available, you will be reminded again.");
             }}) {
  if (!site_.ends_with('/')) site_ += '/';
}

void UpdateCheck::Tell(const std::string& text) {
  services_.Messenger.Message(text, forms::MessageKind::Ok);
}

bool UpdateCheck::GiveUp() {
  if (!isRunning_) return false;
  isGivenUp_ = true;
  services_.Web.GiveUp();
  return true;
}

void UpdateCheck::CheckForUpdate(bool asked) {
  isAsked_ = asked || (isRunning_ && isAsked_);
  if (!isRunning_ && !asked && IsPlaceholder(site_)) return;
  const forms::MousePointer screen = services_.Host.ScreenPointer();
  // The form's own is not seen over its controls.
  if (asked) services_.Host.SetScreenPointer(forms::MousePointer::Hourglass);
  if (isRunning_) return;
  workspace::MainForm& form = space_.Form;
  const forms::MousePointer pointer =
      std::exchange(form.MousePointer, forms::MousePointer::Hourglass);
  isRunning_ = true;
  isGivenUp_ = false;
  form.Touch();
  try {
    Look();
  } catch (const std::exception&) {
    // A check that fails is one that has found nothing.
  }
  isRunning_ = false;
  form.MousePointer = pointer;
  if (isAsked_) services_.Host.SetScreenPointer(screen);
  form.Touch();
}

void UpdateCheck::Look() {
  const std::string base = site_ + "tw_ver/";
  const std::string text = Trimmed(services_.Web.OpenUrl(base + "twver.txt", MostVersionBytes));
  if (isGivenUp_) return;
  if (text.empty() || base::CodePointCount(text) >= VersionLimit) {
    if (!isAsked_) return;
    Tell("Update information could not be obtained from the Tarnwell website (" +
         std::string(SiteName(site_)) + ").\r\n\r\nPlease try again later.");
    return;
  }
  double& told = space_.Settings.OnlineVersion;
  const double online = base::ReadVersion(text).Number();
  if (!isAsked_ && online == told) return;
  if (online <= version_) {
    if (isAsked_) Tell("Your version of Tarnwell is up to date.");
    return;
  }
  const double before = std::exchange(told, online);
  const std::string news = services_.Web.OpenUrl(base + "twnews.txt", MostNewsBytes);
  if (isGivenUp_) {
    told = before;  // the user is yet to be told
    return;
  }
  form_.txtNews.Text = WithLineEnds(news);
  services_.Host.Open(form_);
  form_.CentreOn(space_.Form);
  form_.TakesKeyboard = isAsked_;
  services_.Host.Show(form_, &space_.Form);
  form_.Touch();
}

}  // namespace tarnwell::tools
