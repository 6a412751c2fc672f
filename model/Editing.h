// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "QorLib/Sentence.h"
#include "model/Mode.h"

/// What the user's commands do to the steps of a mode. Channels count from 0 here; a channel or step that
/// does not exist changes nothing and says nothing.
namespace TCBase {

struct EditResult {
  bool isChanged = false;
  qor::Sentence status;    // for the status line; empty where a command has nothing to say
  bool isRefused = false;  // a limit stands in the way; the status says which
};

/// Puts a fading step into each channel at that second of the day (0 to 86399), at the value that the channel
/// has there, so that a fading light stays as it is; where a jump is being held, the light fades from here
/// on. A step that is there already stays; where all channels have one, nothing changes. Refused from 48
/// steps on.
EditResult AddStepToAllChannels(Mode& mode, std::int64_t second);

enum class Endpoint { Start, End };  // 00:00 and 23:59
EditResult AddEndpointStep(Mode& mode, Endpoint endpoint);

/// Moves all steps onto multiples of `minutes`, those of a channel at least so far apart; nothing for less
/// than 1. What is pushed past midnight comes round to the morning.
EditResult AlignSteps(Mode& mode, int minutes);

/// Refused when the channel would keep fewer than 2 steps.
EditResult DeleteStep(Mode& mode, std::size_t channel, std::size_t step);

/// Half-hour steps without jumps, less those that change nothing: the form in which a mode plays best on a
/// TC421.
EditResult OptimiseForTC421(Mode& mode);

/// The application's own clipboard: a channel's steps, once any have been copied.
using StepClipboard = std::optional<std::vector<Step>>;

EditResult CopySteps(const Mode& mode, std::size_t channel, StepClipboard& clipboard);
/// Replaces the channel's steps. Says nothing when the clipboard was never filled. Refused as ReplaceSteps
/// is.
EditResult PasteSteps(Mode& mode, std::size_t channel, const StepClipboard& clipboard);

/// Swap the channel's steps with those of the channel above or below; `channel`, the selection, moves with
/// them.
EditResult MoveStepsUp(Mode& mode, std::size_t& channel);
EditResult MoveStepsDown(Mode& mode, std::size_t& channel);

/// Leaves the channel dark: 08:00 and 22:00 at 0 %.
EditResult ClearSteps(Mode& mode, std::size_t channel);

/// Puts the steps into the channel; at a minute that holds one already the new one takes its place, and of
/// several new ones the last. `added` gets those that were not there, by time. Refused where the mode would
/// come to have more than 48 steps.
EditResult AddSteps(Mode& mode, std::size_t channel, const std::vector<Step>& steps,
                    std::vector<Step>& added);

/// Puts the steps in the place of the channel's: sorted, the first of each minute. Steps that were there,
/// equal in all, keep their ids. Refused for fewer than 2 steps, and as AddSteps is.
EditResult ReplaceSteps(Mode& mode, std::size_t channel, const std::vector<Step>& steps);

/// The same for all channels at once.
EditResult ReplaceAllSteps(Mode& mode, const std::array<std::vector<Step>, ChannelCount>& steps);

/// Gives the channel's steps new ids: they are copies of others.
void RenewIds(Channel& channel);

}  // namespace TCBase
