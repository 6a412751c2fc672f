// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "QorLib/Log.h"
#include "chart/ChartGeometry.h"
#include "ui/Document.h"
#include "ui/View.h"
#include "worker/JobControl.h"

namespace UX {

/// What the chart's keys mean.
enum class ChartKey {
  Delete,
  Earlier,
  Later,
  Brighter,
  Darker,
  ToggleJump,
  PauseDemo,
  Cancel,
  PreviousStep,
  NextStep,
  PreviousChannel,
  NextChannel,
  Insert,
};

/// Turns what mouse and keys do on the chart into edits of the current mode, and while a demo runs into
/// moving the demo. Keeps which channel and step are selected and which step the pointer touches.
class ChartEditor {
 public:
  /// What it works with; all outlive it.
  struct Context {
    Document& document;
    qor::Log& log;
    TCBase::JobControl& control;
    View& view;
  };
  explicit ChartEditor(const Context& context) : context_(context) {}

  /// How the chart stands on the screen; points and edits by the mouse count in it.
  void SetGeometry(const ChartGeometry& geometry) { geometry_ = geometry; }
  /// Ends a press: what it began is over.
  void SetDemoRunning(bool isRunning);

  // The mouse. A pressed step follows the pointer once that has left a small square; letting go ends the
  // edit.
  void ButtonDown(Point point);
  void MouseMove(Point point);
  void MouseLeave();
  void ButtonUp();
  /// Selects what is there, for a menu about it.
  void SelectAt(Point point);

  /// `milliseconds` counts from anywhere. Whether the key meant something here.
  bool Key(ChartKey key, std::int64_t milliseconds);
  /// Ends a press, and the run of edits. To be called before anything else is done to the program.
  void EndRun();
  /// Undo and redo; the selection goes where its steps are then.
  void Undo();
  void Redo();

  std::optional<std::size_t> SelectedChannel() const { return channel_; }
  /// Nothing where the step is no longer there.
  std::optional<StepIndex> SelectedStep() const;
  std::optional<StepIndex> HoveredStep() const { return hovered_; }
  /// Selects a channel and none of its steps.
  void SelectChannel(std::optional<std::size_t> channel);
  /// The selected channel's steps are in another channel now, and the selection follows them.
  void FollowSteps(std::size_t channel) { channel_ = channel; }
  /// Advice on what can be done now, for a line of its own.
  std::vector<qor::Sentence> Hint() const;
  /// Whether the name of a channel stands there.
  bool IsName(Point point) const { return geometry_.NameAt(point).has_value(); }
  /// Nothing is selected or touched any more: another program, or another mode, is shown.
  void Reset();

 private:
  struct Press {
    Point at;
    std::optional<TCBase::Step> step = {};  // the selected step, as it was when it was pressed
    bool isMoving = false;
    bool hasHint = false;  // a hint came up that must stay
  };

  const TCBase::Mode& Mode() const { return context_.document.Mode(); }
  const TCBase::Step& Step(const StepIndex& index) const {
    return Mode().channels[index.channel].steps[index.step];
  }
  void Select(const StepIndex& index);
  void SetSelection(std::optional<std::size_t> channel, std::optional<std::uint32_t> stepId);
  void EndPress();
  void Hover(std::optional<StepIndex> index);
  void SeekDemo(Point point);
  void PressInLane(std::size_t channel, Point point);
  void AddStep(std::size_t channel, int second, float percent);
  void DragTo(Point point);
  void CancelDrag();
  void DeleteStep(const StepIndex& index, std::int64_t milliseconds);
  void MoveByKey(const StepIndex& index, int minutes, float percent, std::int64_t milliseconds);
  void ToggleJump();
  bool PauseDemo();
  void GoToStep(int offset);
  void GoToChannel(int offset);
  void InsertByKey();
  void ChangeStep(const EditRun& run, const StepIndex& index,
                  const std::function<void(TCBase::Step&)>& change);
  void GoBack(void (Document::*where)());

  Context context_;
  ChartGeometry geometry_{0, 0, ViewSpan()};
  bool isDemoRunning_ = false;
  std::optional<std::size_t> channel_;
  std::optional<std::uint32_t> stepId_;  // of a step of the selected channel; it may be gone
  std::optional<StepIndex> hovered_;
  std::optional<Press> press_;
  std::vector<qor::Sentence> hint_;  // about the selected step
};

}  // namespace UX
