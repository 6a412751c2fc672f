// SPDX-License-Identifier: MIT
#include "ui/Document.h"

#include <utility>

#include "formats/FileFormats.h"
#include "formats/ProgramFile.h"
#include "model/Presets.h"

namespace UX {
namespace {

constexpr std::string_view WindowTitle = "Orvanta 24";
constexpr std::int64_t RunPauseMilliseconds = 1000;

/// A program that can be edited has a mode; a file may lack one.
TCBase::Program Editable(TCBase::Program program) {
  if (program.modes.empty()) program.modes.emplace_back();
  return program;
}

}  // namespace

Document::Document(const qor::Translate& translate, View& view) : view_(view) {
  New(translate);
}

std::vector<std::size_t> Document::UploadedModes() const {
  std::vector<std::size_t> modes;
  for (std::size_t i = 0; i < content_.isUploaded.size(); ++i) {
    if (content_.isUploaded[i]) modes.push_back(i);
  }
  return modes;
}

void Document::ShowMode(std::size_t mode) {
  EndRun();
  if (mode < content_.program.modes.size()) content_.currentMode = mode;
  view_.Refresh();
}

// Edits

TCBase::EditResult Document::Change(const EditRun& run, const ContentEdit& edit) {
  const bool goesOn = !run.name.empty() && IsInRun(run.name);
  Content before;
  if (!goesOn) {
    EndRun();
    before = content_;
  }
  TCBase::EditResult result = edit(content_);
  view_.Refresh();
  if (!result.isChanged) return result;
  if (goesOn) {
    run_->run = run;
  } else {
    run_ = {run, std::move(before)};
  }
  if (run.name.empty()) EndRun();
  return result;
}

void Document::EndRun() {
  if (!run_) return;
  auto [run, before] = *std::exchange(run_, std::nullopt);
  if (run.finish) run.finish(content_);
  if (before != content_) history_.Push(std::move(before));
  view_.Refresh();
}

void Document::EndPausedRun(std::int64_t milliseconds) {
  if (run_ && run_->run.at && milliseconds - *run_->run.at >= RunPauseMilliseconds) EndRun();
}

void Document::CancelRun() {
  if (run_) PutBack(std::exchange(run_, std::nullopt)->before);
}

void Document::Undo() {
  EndRun();
  PutBack(history_.Undo(content_));
}

void Document::Redo() {
  EndRun();
  PutBack(history_.Redo(content_));
}

void Document::PutBack(std::optional<Content> content) {
  if (!content) return;
  content_ = std::move(*content);
  view_.Refresh();
}

// The file

void Document::Open(TCBase::Program program, const std::string& path) {
  content_ = {Editable(std::move(program)), 0, {}};
  content_.isUploaded.assign(content_.program.modes.size(), true);
  history_ = {};
  run_.reset();
  saved_ = content_.program;
  path_ = path;
  view_.Refresh();
}

void Document::New(const qor::Translate& translate) {
  Open(TCBase::NewProgram(translate), {});
}

qor::Sentence Document::Load(const std::string& path) {
  TCBase::Program program;
  const TCBase::ImportResult result = TCBase::ReadWholeProgram(path, program);
  if (!result.isImported) return result.message;
  Open(std::move(program), path);
  return {};
}

qor::Sentence Document::Save(const std::string& path) {
  EndRun();
  if (qor::Sentence failure = TCBase::WriteWholeProgram(content_.program, path)) return failure;
  saved_ = content_.program;
  path_ = path;
  view_.Refresh();
  return {};
}

void Document::Recover(TCBase::Program program, const std::string& path) {
  TCBase::Program original;
  if (path.empty() || TCBase::LoadProgram(path, original)) original = {};
  Open(std::move(program), path);
  saved_ = std::move(original);
}

std::string Document::Title(const qor::Translate& translate) const {
  return std::string(WindowTitle) + " - " + (path_.empty() ? translate(TR("New program")) : path_);
}

}  // namespace UX
