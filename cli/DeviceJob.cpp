// SPDX-License-Identifier: MIT
#include "cli/DeviceJob.h"

#include <algorithm>
#include <ostream>

#include "QorLib/Format.h"
#include "cli/LogPrinter.h"

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

void PrintTable(const std::vector<DeviceOutcome>& outcomes, std::ostream& out) {
  std::size_t width = 0;
  for (const DeviceOutcome& outcome : outcomes) width = std::max(width, outcome.device.name.size());
  for (const DeviceOutcome& outcome : outcomes) {
    std::string name = Printable(outcome.device.name);
    name.resize(width, ' ');
    out << name << "  " << Printable(TextOf(outcome)) << '\n';
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
    if (invocation.environment.isInterrupted()) {
      if (!end.isInterrupted) invocation.printer.Complain(job.stopping);
      end.isInterrupted = true;
    }
    end.isStopped |= job.steer(worker.Control());
    // Again and again: a job that is just beginning drops what was posted before it.
    if (end.isInterrupted || end.isStopped) worker.Control().Post(TCBase::JobControl::Stop);
    invocation.environment.clock.Sleep(PollMilliseconds);
  }
  return end;
}

}  // namespace

const char* const AccessAdvice =
    "; on Linux, install the udev rule 70-halvex.rules and plug the controller in again";

TCBase::DeviceContext ContextOf(Invocation& invocation) {
  return {invocation.environment.clock, invocation.printer.Log(), invocation.environment.network};
}

ExitStatus Report(const std::vector<DeviceOutcome>& outcomes, bool isInterrupted, bool isStopped,
                  Invocation& invocation) {
  bool hasFailed = false;
  bool isDenied = false;
  for (const DeviceOutcome& outcome : outcomes) {
    if (outcome.IsDone() || (IsStop(outcome) && isStopped)) continue;
    hasFailed |= !IsStop(outcome) || !isInterrupted;
    isDenied |= outcome.isDenied;
    const bool needsRule = outcome.isDenied && outcome.device.kind != TCBase::DeviceKind::TC421Network;
    invocation.printer.Complain(
        qor::Format("{1}: {2}{3}", {outcome.device.name, TextOf(outcome), needsRule ? AccessAdvice : ""}));
  }
  if (outcomes.size() > 1) PrintTable(outcomes, invocation.environment.out);
  if (hasFailed) return isDenied ? NoAccess : DeviceFailed;
  return isInterrupted ? Interrupted : Done;
}

ExitStatus RunJob(const DeviceJob& job, Invocation& invocation) {
  invocation.environment.watchInterrupts();
  TCBase::Worker worker(ContextOf(invocation), TCBase::Worker::UsbWatch::Off);
  job.start(worker);
  const JobEnd end = WaitFor(worker, job, invocation);
  invocation.printer.ShowProgress("");
  return Report(worker.Outcomes(), end.isInterrupted, end.isStopped, invocation);
}

}  // namespace cli
