// SPDX-License-Identifier: MIT
#include "cli/DeviceJob.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>

#include "cli/DeviceArguments.h"
#include "cli/LogPrinter.h"
#include "cli/UdevRule.h"
#include "worker/JobStop.h"
#include "worker/Stopwatch.h"

namespace cli {
namespace {

using TCBase::DeviceOutcome;

constexpr std::uint32_t PollMilliseconds = 20;

/// How many columns a text takes: one for each character.
std::size_t Columns(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::ranges::count_if(utf8, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

void PrintTable(const std::vector<DeviceOutcome>& outcomes, Invocation& invocation) {
  std::size_t width = 0;
  for (const DeviceOutcome& outcome : outcomes) width = std::max(width, Columns(ArgumentOf(outcome.device)));
  for (const DeviceOutcome& outcome : outcomes) {
    std::string line = ArgumentOf(outcome.device);
    line.append(width - Columns(line) + 2, ' ');
    invocation.printer.PrintResult(line + invocation.Text(SentenceOf(outcome)));
  }
}

/// "tc421: Mode 2 of 3, step 17 of 48", where a person looks on. A demo shows its own line.
void ShowProgress(TCBase::Worker& worker, Invocation& invocation) {
  if (!invocation.environment.terminal.isError || invocation.options.quiet) return;
  if (worker.Control().demoState != TCBase::JobControl::NoDemo) return;
  std::string line;
  if (const auto job = worker.RunningJob()) {
    for (const DeviceOutcome& device : job->devices) {
      if (device.stage != DeviceOutcome::Stage::Working || device.detail.reasons.empty()) continue;
      if (job->devices.size() > 1) line = ArgumentOf(device.device) + ": ";
      qor::Sentence mode = device.detail;
      mode.reasons.clear();
      line += invocation.Text(mode) + ", " + invocation.Text(device.detail.reasons.front());
    }
  }
  invocation.printer.ShowProgress(line);
}

struct JobEnd {
  bool isInterrupted = false;
  bool isStopped = false;
};

JobEnd WaitFor(TCBase::Worker& worker, const DeviceJob& job, Invocation& invocation) {
  JobEnd end;
  TCBase::JobStop stop(worker);
  while (worker.IsBusy()) {
    const bool isNews = !end.isInterrupted;
    if (invocation.environment.isInterrupted()) end.isInterrupted = true;
    end.isStopped |= job.steer(worker.Control());
    if (end.isInterrupted || end.isStopped) stop.Ask();
    if (end.isInterrupted && isNews) {
      invocation.printer.Complain(job.stopping ? job.stopping
                                               : qor::Sentence(TR("stopping after the device in hand")));
    }
    invocation.printer.Print();
    ShowProgress(worker, invocation);
    invocation.environment.clock.Sleep(PollMilliseconds);
  }
  return end;
}

/// The log has told already what went wrong.
ExitStatus Report(const std::vector<DeviceOutcome>& outcomes, const JobEnd& end, Invocation& invocation) {
  bool hasFailed = false;
  bool isDenied = false;
  bool needsRule = false;
  for (const DeviceOutcome& outcome : outcomes) {
    if (outcome.IsDone() || (outcome.IsStop() && end.isStopped)) continue;
    hasFailed |= !outcome.IsStop() || !end.isInterrupted;
    isDenied |= outcome.denial != TCBase::Denial::None;
    needsRule |= outcome.denial == TCBase::Denial::NoPermission &&
                 outcome.device.kind != TCBase::DeviceKind::TC421Network;
  }
  if (needsRule) invocation.printer.Complain(AccessAdvice(LookAround(invocation)));
  if (outcomes.size() > 1) PrintTable(outcomes, invocation);
  if (hasFailed) return isDenied ? NoAccess : DeviceFailed;
  return end.isInterrupted ? Interrupted : Done;
}

}  // namespace

TCBase::DeviceContext ContextOf(Invocation& invocation, int waitSeconds) {
  Environment& environment = invocation.environment;
  const auto waited = std::make_shared<std::optional<TCBase::Stopwatch>>();
  return {environment.clock, invocation.printer.Log(), environment.network, &environment.locks,
          [=, &environment, &log = invocation.printer.Log()] {
            if (waitSeconds == 0 || environment.isInterrupted()) return false;
            if (!waited->has_value()) {
              waited->emplace(environment.clock);
              log.Message(TR("In use by another program, waiting for up to {1} seconds"), {waitSeconds});
            }
            return (*waited)->Elapsed() < waitSeconds;
          }};
}

ExitStatus RunJob(const DeviceJob& job, Invocation& invocation) {
  return RunJob(job, invocation, [](TCBase::Worker& worker) {
    const std::vector<TCBase::JobOutcomes> ended = worker.TakeEndedJobs();
    return ended.empty() ? std::vector<DeviceOutcome>() : ended.front().devices;
  });
}

ExitStatus RunJob(const DeviceJob& job, Invocation& invocation,
                  const std::function<std::vector<DeviceOutcome>(TCBase::Worker&)>& outcomes) {
  invocation.environment.watchInterrupts();
  TCBase::Worker worker(ContextOf(invocation, job.waitSeconds), TCBase::Worker::UsbWatch::Off);
  job.start(worker);
  const JobEnd end = WaitFor(worker, job, invocation);
  invocation.printer.Print();
  invocation.printer.ShowProgress("");
  return Report(outcomes(worker), end, invocation);
}

}  // namespace cli
