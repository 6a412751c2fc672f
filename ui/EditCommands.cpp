// SPDX-License-Identifier: MIT
// The commands that edit channels and modes, and undo
#include <algorithm>
#include <functional>

#include "formats/StepsText.h"
#include "model/ModeSample.h"
#include "model/Palette.h"
#include "ui/Commands.h"
#include "ui/Workbench.h"

namespace UX {
namespace {

using TCBase::EditResult;

constexpr std::size_t MostNameCharacters = 20;

/// An edit of the selected channel, if one is.
template <typename Function>
void EditChannel(Workbench& workbench, Function edit) {
  const auto channel = workbench.editor.SelectedChannel();
  if (channel) workbench.EditMode([&](TCBase::Mode& mode) { return edit(mode, *channel); });
}

template <typename Function>
void MoveSteps(Workbench& workbench, Function move) {
  auto channel = workbench.editor.SelectedChannel();
  if (!channel) return;
  workbench.EditMode([&](TCBase::Mode& mode) { return move(mode, *channel); });
  workbench.editor.FollowSteps(*channel);
}

using StepsEdit = std::function<EditResult(TCBase::Mode& mode, const std::vector<TCBase::Step>& steps)>;

/// The steps that the user types; nothing when cancelled. What the edit refuses stays in the dialog.
std::optional<std::vector<TCBase::Step>> AskSteps(Workbench& workbench, qor::English title,
                                                  const std::string& text, const StepsEdit& edit) {
  StepsRequest request{workbench.Text(title), text};
  request.fault = [&](const StepsRequest& typed) -> std::string {
    TCBase::Mode tried = workbench.document.Mode();
    const EditResult result = edit(tried, TCBase::ReadStepsText(typed.text).steps);
    return result.isRefused ? workbench.Text(result.status) : "";
  };
  if (!workbench.dialogs.EditSteps(request)) return std::nullopt;
  TCBase::StepsReading reading = TCBase::ReadStepsText(request.text);
  for (const qor::Sentence& remark : reading.remarks) workbench.Say(remark);
  return std::move(reading.steps);
}

/// A dark mode, for a new one to begin with.
TCBase::Mode DarkMode() {
  TCBase::Mode mode;
  for (std::size_t channel = 0; channel < TCBase::ChannelCount; ++channel) TCBase::ClearSteps(mode, channel);
  return mode;
}

bool AskModeName(Workbench& workbench, qor::English title, TCBase::Mode& mode) {
  ModeNameRequest request{workbench.Text(title), mode.name, mode.description};
  request.fault = [&workbench](const ModeNameRequest& typed) {
    const bool isNamed = typed.name.find_first_not_of(' ') != std::string::npos;
    return isNamed ? "" : workbench.Text(TR("A mode needs a name."));
  };
  if (!workbench.dialogs.EditModeName(request)) return false;
  mode.name = request.name;
  mode.description = request.description;
  return true;
}

/// A mode behind the current one, once the user has named it.
void Insert(Workbench& workbench, qor::English title, TCBase::Mode mode) {
  if (!AskModeName(workbench, title, mode)) return;
  workbench.editor.Reset();
  workbench.Edit([&](Content& content) {
    content.InsertMode(content.currentMode + 1, std::move(mode));
    return EditResult{true, {}};
  });
}

}  // namespace

void Undo(Workbench& workbench) {
  workbench.editor.Undo();
}

void Redo(Workbench& workbench) {
  workbench.editor.Redo();
}

void DeleteStep(Workbench& workbench) {
  workbench.editor.Key(ChartKey::Delete, workbench.Milliseconds());
}

void ToggleJump(Workbench& workbench) {
  workbench.editor.Key(ChartKey::ToggleJump, 0);
}

void CopySteps(Workbench& workbench) {
  EditChannel(workbench, [&](const TCBase::Mode& mode, std::size_t channel) {
    return TCBase::CopySteps(mode, channel, workbench.clipboard);
  });
}

void PasteSteps(Workbench& workbench) {
  EditChannel(workbench, [&](TCBase::Mode& mode, std::size_t channel) {
    return TCBase::PasteSteps(mode, channel, workbench.clipboard);
  });
}

void MoveStepsUp(Workbench& workbench) {
  MoveSteps(workbench, TCBase::MoveStepsUp);
}

void MoveStepsDown(Workbench& workbench) {
  MoveSteps(workbench, TCBase::MoveStepsDown);
}

void ClearSteps(Workbench& workbench) {
  EditChannel(workbench, TCBase::ClearSteps);
}

void AddStepsByText(Workbench& workbench) {
  const auto channel = workbench.editor.SelectedChannel();
  if (!channel) return;
  std::vector<TCBase::Step> added;
  const StepsEdit add = [&](TCBase::Mode& mode, const std::vector<TCBase::Step>& steps) {
    return TCBase::AddSteps(mode, *channel, steps, added);
  };
  const auto steps = AskSteps(workbench, TR("Manual steps add..."), "", add);
  if (!steps) return;
  workbench.EditMode([&](TCBase::Mode& mode) { return add(mode, *steps); });
  for (const TCBase::Step& step : added) workbench.Say({TR("Added new step {1}."), {TCBase::StepText(step)}});
}

void EditStepsByText(Workbench& workbench) {
  const auto channel = workbench.editor.SelectedChannel();
  if (!channel) return;
  const std::string text = TCBase::WriteStepsText(workbench.document.Mode().channels[*channel].steps);
  if (const qor::Sentence refusal = TCBase::RefusalToEdit(text)) {  // the dialog would cut it
    workbench.dialogs.Tell(workbench.Text(TR("Manual steps edit...")), workbench.Text(refusal));
    return;
  }
  const StepsEdit replace = [&](TCBase::Mode& mode, const std::vector<TCBase::Step>& steps) -> EditResult {
    if (TCBase::WriteStepsText(steps) == text) return {};  // else fractions of percents would go
    return TCBase::ReplaceSteps(mode, *channel, steps);
  };
  const auto steps = AskSteps(workbench, TR("Manual steps edit..."), text, replace);
  if (steps) workbench.EditMode([&](TCBase::Mode& mode) { return replace(mode, *steps); });
}

void RenameChannel(Workbench& workbench) {
  const auto selected = workbench.editor.SelectedChannel();
  if (!selected) return;
  const TCBase::Program::ChannelInfo& info = workbench.document.Program().channelInfos[*selected];
  ValueRequest request;
  request.title = workbench.Text(TR("Edit channel name"));
  request.label = workbench.Text(TR("Channel name (max 20 characters)"));
  request.value = info.name;
  request.mostCharacters = MostNameCharacters;
  request.secondLabel = workbench.Text(TR("Channel description"));
  request.secondValue = info.description;
  if (!workbench.dialogs.EditValue(request)) return;
  workbench.Edit([&](Content& content) {
    TCBase::Program::ChannelInfo& edited = content.program.channelInfos[*selected];
    edited.name = request.value;
    edited.description = request.secondValue;
    return EditResult{true, {}};
  });
}

void ChangeChannelColour(Workbench& workbench) {
  const auto channel = workbench.editor.SelectedChannel();
  if (!channel) return;
  workbench.Edit([&](Content& content) {
    std::uint32_t& colour = content.program.channelInfos[*channel].colour;
    const auto current = std::ranges::find(TCBase::ChannelPalette, colour);
    const bool hasNext =
        current != TCBase::ChannelPalette.end() && current + 1 != TCBase::ChannelPalette.end();
    colour = hasNext ? *(current + 1) : TCBase::ChannelPalette.front();
    return EditResult{true, {}};
  });
}

void OptimiseModeForTC421(Workbench& workbench) {
  workbench.EditMode(TCBase::OptimiseForTC421);
}

void AddStartSteps(Workbench& workbench) {
  workbench.EditMode(
      [](TCBase::Mode& mode) { return TCBase::AddEndpointStep(mode, TCBase::Endpoint::Start); });
}

void AddEndSteps(Workbench& workbench) {
  workbench.EditMode([](TCBase::Mode& mode) { return TCBase::AddEndpointStep(mode, TCBase::Endpoint::End); });
}

void AlignSteps(Workbench& workbench, int minutes) {
  workbench.EditMode([minutes](TCBase::Mode& mode) { return TCBase::AlignSteps(mode, minutes); });
}

void AddMode(Workbench& workbench) {
  Insert(workbench, TR("Add"), DarkMode());
}

void CopyMode(Workbench& workbench) {
  TCBase::Mode copy = workbench.document.Mode();
  for (TCBase::Channel& channel : copy.channels) TCBase::RenewIds(channel);
  Insert(workbench, TR("Copy"), std::move(copy));
}

void RenameMode(Workbench& workbench) {
  TCBase::Mode named = workbench.document.Mode();
  if (!AskModeName(workbench, TR("Rename"), named)) return;
  workbench.EditMode([&](TCBase::Mode& mode) {
    mode.name = named.name;
    mode.description = named.description;
    return EditResult{true, {}};
  });
}

void DeleteMode(Workbench& workbench) {
  if (workbench.document.Program().modes.size() < 2) {
    return workbench.Say(TR("A program needs at least one mode."));
  }
  workbench.editor.Reset();
  workbench.Edit([](Content& content) {
    content.RemoveMode();
    return EditResult{true, {}};
  });
}

void MoveModeUp(Workbench& workbench) {
  if (const std::size_t mode = workbench.document.CurrentMode(); mode > 0) MoveModeTo(workbench, mode - 1);
}

void MoveModeDown(Workbench& workbench) {
  MoveModeTo(workbench, workbench.document.CurrentMode() + 1);
}

void MoveModeTo(Workbench& workbench, std::size_t to) {
  if (to >= workbench.document.Program().modes.size()) return;
  workbench.Edit([to](Content& content) {
    content.MoveMode(to);
    return EditResult{true, {}};
  });
}

}  // namespace UX
