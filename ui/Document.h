// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "QorLib/Translate.h"
#include "model/Editing.h"
#include "model/Program.h"

namespace UX {

/// What undo goes back to: all that edits change.
struct Snapshot {
  TCBase::Program program;
  std::size_t currentMode = 0;
  std::vector<bool> isUploaded;  // for each mode, whether an upload sends it

  /// Whether a user could tell them apart.
  bool operator==(const Snapshot&) const = default;
};

/// The open program, where it is kept, and which of its modes is shown. There is always a mode.
class Document {
 public:
  /// With the built-in program.
  explicit Document(const qor::Translate& translate);

  const TCBase::Program& Program() const { return content_.program; }
  TCBase::Program& Program() { return content_.program; }
  std::size_t CurrentMode() const { return content_.currentMode; }
  TCBase::Mode& Mode() { return content_.program.modes[content_.currentMode]; }
  const TCBase::Mode& Mode() const { return content_.program.modes[content_.currentMode]; }
  /// Shows another mode; one that is not there is passed over.
  void SetCurrentMode(std::size_t mode);

  bool IsUploaded(std::size_t mode) const { return content_.isUploaded[mode]; }
  void SetUploaded(std::size_t mode, bool isUploaded) { content_.isUploaded[mode] = isUploaded; }
  /// The modes that an upload sends, in their order.
  std::vector<std::size_t> UploadedModes() const;

  // The list of modes
  /// Puts the mode there, shows it and marks it for upload.
  void InsertMode(std::size_t at, TCBase::Mode mode);
  /// Removes the current mode; false when it is the only one.
  bool RemoveMode();
  /// Moves the current mode to a place of the list.
  void MoveMode(std::size_t to);

  const Snapshot& Content() const { return content_; }
  void SetContent(Snapshot content);

  /// In UTF-8; empty for a program that was never saved.
  const std::string& Path() const { return path_; }
  /// Whether the program differs from the file, or from the built-in one.
  bool IsModified() const { return content_.program != saved_; }

  void New(const qor::Translate& translate);
  /// Why the file could not be loaded, or nothing; the document is as it was then.
  qor::Sentence Load(const std::string& path);
  /// Why the file could not be written, or nothing; path and "modified" are as they were then.
  qor::Sentence Save(const std::string& path);
  /// Takes over what a crash left behind, as changes that nobody saved to `path`.
  void Recover(TCBase::Program program, const std::string& path);

  /// The title of the window: the path, or the words for a new program.
  std::string Title(const qor::Translate& translate) const;

  TCBase::StepClipboard clipboard;

 private:
  void Show(TCBase::Program program);

  Snapshot content_;
  TCBase::Program saved_;
  std::string path_;
};

}  // namespace UX
