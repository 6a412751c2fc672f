// SPDX-License-Identifier: MIT
#include "ui/Document.h"

#include <algorithm>

#include "formats/FileFormats.h"
#include "formats/ProgramFile.h"
#include "model/Presets.h"

namespace UX {
namespace {

constexpr std::string_view WindowTitle = "Orvanta 24";

/// A program that can be edited has a mode; a file may lack one.
TCBase::Program Editable(TCBase::Program program) {
  if (program.modes.empty()) program.modes.emplace_back();
  return program;
}

}  // namespace

Document::Document(const qor::Translate& translate) {
  New(translate);
}

void Document::SetCurrentMode(std::size_t mode) {
  if (mode < content_.program.modes.size()) content_.currentMode = mode;
}

std::vector<std::size_t> Document::UploadedModes() const {
  std::vector<std::size_t> modes;
  for (std::size_t i = 0; i < content_.isUploaded.size(); ++i) {
    if (content_.isUploaded[i]) modes.push_back(i);
  }
  return modes;
}

void Document::InsertMode(std::size_t at, TCBase::Mode mode) {
  const std::size_t place = std::min(at, content_.program.modes.size());
  const auto offset = static_cast<std::ptrdiff_t>(place);
  content_.program.modes.insert(content_.program.modes.begin() + offset, std::move(mode));
  content_.isUploaded.insert(content_.isUploaded.begin() + offset, true);
  content_.currentMode = place;
}

bool Document::RemoveMode() {
  auto& modes = content_.program.modes;
  if (modes.size() < 2) return false;
  const auto offset = static_cast<std::ptrdiff_t>(content_.currentMode);
  modes.erase(modes.begin() + offset);
  content_.isUploaded.erase(content_.isUploaded.begin() + offset);
  content_.currentMode = std::min(content_.currentMode, modes.size() - 1);
  return true;
}

void Document::MoveMode(std::size_t to) {
  if (to >= content_.program.modes.size()) return;
  const auto move = [from = content_.currentMode, to](auto begin) {
    const auto at = [begin](std::size_t index) { return begin + static_cast<std::ptrdiff_t>(index); };
    if (from < to) {
      std::rotate(at(from), at(from + 1), at(to + 1));
    } else {
      std::rotate(at(to), at(from), at(from + 1));
    }
  };
  move(content_.program.modes.begin());
  move(content_.isUploaded.begin());
  content_.currentMode = to;
}

void Document::SetContent(Snapshot content) {
  content_ = std::move(content);
}

void Document::Show(TCBase::Program program) {
  content_ = {std::move(program), 0, {}};
  content_.isUploaded.assign(content_.program.modes.size(), true);
}

void Document::New(const qor::Translate& translate) {
  Show(TCBase::NewProgram(translate));
  saved_ = content_.program;
  path_.clear();
}

qor::Sentence Document::Load(const std::string& path) {
  TCBase::Program program;
  const TCBase::ImportResult result = TCBase::ReadWholeProgram(path, program);
  if (!result.isImported) return result.message;
  Show(Editable(std::move(program)));
  saved_ = content_.program;
  path_ = path;
  return {};
}

qor::Sentence Document::Save(const std::string& path) {
  if (qor::Sentence failure = TCBase::WriteWholeProgram(content_.program, path)) return failure;
  saved_ = content_.program;
  path_ = path;
  return {};
}

void Document::Recover(TCBase::Program program, const std::string& path) {
  TCBase::Program original;
  if (path.empty() || TCBase::LoadProgram(path, original)) original = {};
  Show(Editable(std::move(program)));
  saved_ = std::move(original);
  path_ = path;
}

std::string Document::Title(const qor::Translate& translate) const {
  return std::string(WindowTitle) + " - " + (path_.empty() ? translate("New program") : path_);
}

}  // namespace UX
