// The message log: what windows, controls and lists were told and what they told, one a line.
//
// Words the lines, and counts what comes in masses; knows no widget and no disk. What comes often
// writes nothing for ever by itself: a list that shows the log's own folder is painted for each
// line. What is noted is read by others: no text that a user typed, no content and no name of a
// file may be in it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Clock.h"
#include "platform/LogFile.h"

namespace tarnwell::tools {

enum class Rate {
  Each,    // a line for each
  Often,   // the first has a line, and so has the number of more before the next line of Each
  Masses,  // the same, but before one that comes a second later at least
};

class MessageLog {
 public:
  MessageLog(platform::LogFile& file, const platform::Clock& clock) : file_(file), clock_(clock) {}
  MessageLog(const MessageLog&) = delete;
  MessageLog& operator=(const MessageLog&) = delete;
  ~MessageLog();

  // Local time, form, control and what happened, with tabs between them. UTF-8. May be called again
  // from within the file.
  void Note(std::string_view form, std::string_view control, std::string_view what,
            Rate rate = Rate::Each);

 private:
  struct Count {
    std::string Text;  // the line without its time
    Rate How = Rate::Often;
    std::int64_t First = 0;  // moments as the clock has them
    std::int64_t Last = 0;
    std::int64_t More = 0;
  };

  template <typename IsDue>
  void WriteCounts(std::int64_t now, IsDue isDue);

  platform::LogFile& file_;
  const platform::Clock& clock_;
  std::vector<Count> counts_;  // of lines that were written, and that more may follow
};

}  // namespace tarnwell::tools
