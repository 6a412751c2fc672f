// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "ui/win32/dialogs/DlgBase.h"

namespace UX {

struct AboutFacts {
  std::string version;     // "1.2.3"
  std::string translator;  // of the texts; empty when nobody is named
};

/// Says what the program is.
class DlgAbout : public DlgBase {
 public:
  DlgAbout(qor::Translate translate, AboutFacts facts)
      : DlgBase(std::move(translate)), facts_(std::move(facts)) {}

 protected:
  void Build(const qor::Translate& translate) override;

 private:
  AboutFacts facts_;
};

}  // namespace UX
