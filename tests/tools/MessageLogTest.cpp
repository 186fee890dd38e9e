#include "Test.h"
#include "fakes/FakePlatform.h"
#include "tools/MessageLog.h"

namespace tarnwell::tools {
namespace {

struct Lines : platform::LogFile {
  void Append(std::string_view line) override {
    Text += std::string(line) + "\n";
    if (const auto note = std::exchange(OnAppend, nullptr)) note();
  }
  std::string Text;
  std::function<void()> OnAppend;  // once
};

TEST(MessageLog, WritesALineForEachAndCountsWhatComesInMasses) {
  Lines file;
  fakes::FakeClock clock;
  const auto at = [&clock](int milliseconds) { clock.Time = milliseconds * 1'000'000LL; };
  {
    MessageLog log(file, clock);
    for (const int moment : {1001, 1002, 1003}) {
      at(moment);
      log.Note("a", "b", "Paint", Rate::Masses);
      log.Note("a", "b", "MouseMove", Rate::Often);
    }
    // What is written may itself be noted, and no name makes two lines or fields.
    file.OnAppend = [&log] { log.Note("a", "b", "again"); };
    at(1500);
    log.Note("a\n", "b\tc", "clicked");
    at(2001);
    log.Note("a", "b", "Paint", Rate::Masses);
    log.Note("a", "b", "hidden");
    log.Note("a", "b", "Paint", Rate::Masses);
    log.Note("a", "b", "Paint", Rate::Masses);
  }
  EXPECT_EQ(file.Text,
            "1970-01-01 00:00:01.001\ta\tb\tPaint\n"
            "1970-01-01 00:00:01.001\ta\tb\tMouseMove\n"
            "1970-01-01 00:00:01.500\ta\tb\tMouseMove (2 more, the last at 00:00:01.003)\n"
            "1970-01-01 00:00:01.500\ta\tb\tagain\n"
            "1970-01-01 00:00:01.500\ta \tb c\tclicked\n"
            "1970-01-01 00:00:02.001\ta\tb\tPaint (3 more, the last at 00:00:02.001)\n"
            "1970-01-01 00:00:02.001\ta\tb\thidden\n"
            "1970-01-01 00:00:02.001\ta\tb\tPaint\n"
            "1970-01-01 00:00:02.001\ta\tb\tPaint (1 more, the last at 00:00:02.001)\n");
}

}  // namespace
}  // namespace tarnwell::tools
