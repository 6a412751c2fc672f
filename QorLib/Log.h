// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <initializer_list>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "QorLib/Sentence.h"

namespace qor {

/// The local time of day that stands before a trace line.
struct TimeOfDay {
  unsigned hour, minute, second, millisecond;
};

/// The one line sink of a program: jobs and devices write into it from any thread, the front end takes the
/// collected lines out. Two kinds of lines: messages to the user, and the trace of the communication with the
/// controllers, which is kept only while tracing is switched on.
class Log {
 public:
  enum class Kind { Message, Failure, Trace, TraceDump };
  struct Line {
    Kind kind;
    std::string text;  // without the line end; a dump stands as rows that end with a line feed each

    bool operator==(const Line&) const = default;
  };

  /// `timeOfDay` is asked at each trace line, on the thread that writes it.
  explicit Log(std::function<TimeOfDay()> timeOfDay);

  /// Set once, before other threads write. `onLine` is called after each line, on the writing thread and
  /// outside the sink's lock; it may take the lines.
  void OnLine(std::function<void()> onLine) { onLine_ = std::move(onLine); }
  void SetTranslation(Translate translate) { translate_ = std::move(translate); }
  void SetTracing(bool on) { isTracing_ = on; }
  /// Whether trace lines are kept: no need to put one together when they are not.
  bool IsTracing() const { return isTracing_; }

  /// Writes a message: `english` translated, then its placeholders replaced.
  void Message(English english, std::initializer_list<FormatArgument> arguments = {});
  void Message(const Sentence& sentence);
  /// Writes a message that something went wrong.
  void Failure(const Sentence& sentence);
  /// Writes a message that is no text of the program, such as the system's.
  void ForeignMessage(std::string text) { Write(Kind::Message, std::move(text)); }

  /// Writes a trace line: the local time as hour:minute:second:millisecond, the hour not filled with zeros, a
  /// blank and the text.
  void Trace(std::string_view text);
  /// The same with the rows of a hex dump, which carry no time; no line of others comes between.
  void Trace(std::string_view text, std::string_view dumped);

  /// Takes what has been collected.
  std::vector<Line> TakeLines();

 private:
  void Write(Kind kind, std::string text) { Write({{kind, std::move(text)}}); }
  void Write(std::vector<Line> lines);
  Line TraceLine(std::string_view text) const;

  std::function<TimeOfDay()> timeOfDay_;
  std::function<void()> onLine_;
  Translate translate_ = InEnglish;
  std::atomic<bool> isTracing_ = false;
  std::mutex mutex_;  // guards the member below
  std::vector<Line> lines_;
};

/// The lines as one text for a log pane, each ending in CR LF; the rows of a dump keep their line feeds.
std::string TextOf(const std::vector<Log::Line>& lines);

}  // namespace qor
