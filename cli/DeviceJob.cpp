// SPDX-License-Identifier: MIT
#include "cli/DeviceJob.h"

#include <algorithm>
#include <string_view>

#include "QorLib/Format.h"
#include "cli/DeviceArguments.h"
#include "cli/LogPrinter.h"
#include "cli/UdevRule.h"

namespace cli {
namespace {

using TCBase::DeviceOutcome;
using Stage = TCBase::DeviceOutcome::Stage;

constexpr std::uint32_t PollMilliseconds = 20;

std::string_view StageText(Stage stage) {
  switch (stage) {
    case Stage::Done: return "done";
    case Stage::NotReached: return "not reached";
    case Stage::NotConnected: return "could not be opened";
    case Stage::Failed: return "failed";  // the detail says what
    case Stage::Incomplete: return "incomplete";
    case Stage::Cancelled: return "stopped before the end";
  }
  return "";
}

std::string TextOf(const DeviceOutcome& outcome) {
  if (outcome.stage == Stage::Failed) return outcome.detail;
  return qor::Format(outcome.detail.empty() ? "{1}" : "{1}: {2}", {StageText(outcome.stage), outcome.detail});
}

/// How many columns a text takes: one for each character.
std::size_t Columns(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::ranges::count_if(utf8, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

void PrintTable(const std::vector<DeviceOutcome>& outcomes, LogPrinter& printer) {
  std::size_t width = 0;
  for (const DeviceOutcome& outcome : outcomes) width = std::max(width, Columns(ArgumentOf(outcome.device)));
  for (const DeviceOutcome& outcome : outcomes) {
    std::string line = ArgumentOf(outcome.device);
    line.append(width - Columns(line) + 2, ' ');
    printer.PrintResult(line + TextOf(outcome));
  }
}

bool IsStop(const DeviceOutcome& outcome) {
  return outcome.stage == Stage::Cancelled || outcome.stage == Stage::NotReached;
}

struct JobEnd {
  bool isInterrupted = false;
  bool isStopped = false;
};

JobEnd WaitFor(TCBase::Worker& worker, const DeviceJob& job, Invocation& invocation) {
  JobEnd end;
  while (worker.IsBusy()) {
    const bool isNews = !end.isInterrupted;
    if (invocation.environment.isInterrupted()) end.isInterrupted = true;
    end.isStopped |= job.steer(worker.Control());
    // Again and again: a job that is just beginning drops what was posted before it.
    if (end.isInterrupted || end.isStopped) worker.Control().Post(TCBase::JobControl::Stop);
    if (end.isInterrupted && isNews) invocation.printer.Complain(job.stopping);
    invocation.printer.Print();
    invocation.environment.clock.Sleep(PollMilliseconds);
  }
  return end;
}

ExitStatus Report(const std::vector<DeviceOutcome>& outcomes, const JobEnd& end, Invocation& invocation) {
  bool hasFailed = false;
  bool isDenied = false;
  for (const DeviceOutcome& outcome : outcomes) {
    if (outcome.IsDone() || (IsStop(outcome) && end.isStopped)) continue;
    hasFailed |= !IsStop(outcome) || !end.isInterrupted;
    isDenied |= outcome.denial != TCBase::Denial::None;
    const bool needsRule = outcome.denial == TCBase::Denial::NoPermission &&
                           outcome.device.kind != TCBase::DeviceKind::TC421Network;
    invocation.printer.Complain(qor::Format("{1}: {2}{3}", {ArgumentOf(outcome.device), TextOf(outcome),
                                                            needsRule ? AccessAdvice() : std::string()}));
  }
  if (outcomes.size() > 1) PrintTable(outcomes, invocation.printer);
  if (hasFailed) return isDenied ? NoAccess : DeviceFailed;
  return end.isInterrupted ? Interrupted : Done;
}

}  // namespace

TCBase::DeviceContext ContextOf(Invocation& invocation) {
  return {invocation.environment.clock, invocation.printer.Log(), invocation.environment.network,
          &invocation.environment.locks};
}

ExitStatus RunJob(const DeviceJob& job, Invocation& invocation) {
  return RunJob(job, invocation, [](TCBase::Worker& worker) { return worker.Outcomes(); });
}

ExitStatus RunJob(const DeviceJob& job, Invocation& invocation,
                  const std::function<std::vector<DeviceOutcome>(TCBase::Worker&)>& outcomes) {
  invocation.environment.watchInterrupts();
  TCBase::Worker worker(ContextOf(invocation), TCBase::Worker::UsbWatch::Off);
  job.start(worker);
  const JobEnd end = WaitFor(worker, job, invocation);
  invocation.printer.Print();
  invocation.printer.ShowProgress("");
  return Report(outcomes(worker), end, invocation);
}

}  // namespace cli
