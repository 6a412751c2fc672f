// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "QorLib/Translate.h"
#include "model/Editing.h"
#include "ui/Content.h"
#include "ui/UndoHistory.h"
#include "ui/View.h"

namespace UX {

/// A change of the content: what it did, or why not.
using ContentEdit = std::function<TCBase::EditResult(Content&)>;

/// Changes that undo takes back together: those that follow each other under one name. Without a name a
/// change stands by itself.
struct EditRun {
  std::string name;
  /// When the change comes, in milliseconds: a run of such ends when a second passes without another. Others
  /// last until EndRun.
  std::optional<std::int64_t> at = {};
  /// Done to the content at the run's end, as its last change; that of the last change counts.
  std::function<void(Content&)> finish = {};
};

/// The open program, where it is kept, and what undo goes back to. Whatever shows it is told of each change
/// through the view.
class Document {
 public:
  /// With the built-in program. The view outlives the document.
  Document(const qor::Translate& translate, View& view);

  const TCBase::Program& Program() const { return content_.program; }
  const TCBase::Mode& Mode() const { return content_.Mode(); }
  std::size_t CurrentMode() const { return content_.currentMode; }
  bool IsUploaded(std::size_t mode) const { return content_.isUploaded[mode]; }
  /// The modes that an upload sends, in their order.
  std::vector<std::size_t> UploadedModes() const;

  /// Shows another mode, which is no edit; one that is not there is passed over.
  void ShowMode(std::size_t mode);

  /// The one way to change the program. Ends a run of another name.
  TCBase::EditResult Change(const EditRun& run, const ContentEdit& edit);
  /// Ends the run: what comes then is an entry of its own.
  void EndRun();
  /// Ends a run that has paused for a second.
  void EndPausedRun(std::int64_t milliseconds);
  /// Puts back what was there before the run.
  void CancelRun();
  bool IsInRun(std::string_view name) const { return run_ && run_->run.name == name; }
  /// Goes back, or forth again, by one entry.
  void Undo();
  void Redo();

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

 private:
  struct OpenRun {
    EditRun run;
    Content before;
  };

  void Open(TCBase::Program program, const std::string& path);
  void PutBack(std::optional<Content> content);

  View& view_;
  Content content_;
  UndoHistory history_;
  std::optional<OpenRun> run_;
  TCBase::Program saved_;
  std::string path_;
};

}  // namespace UX
