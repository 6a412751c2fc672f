// SPDX-License-Identifier: MIT
#include "device/TC420/Mock.h"

namespace TC420 {

bool Mock::Write(const std::string& image) {
  written_.push_back(image);
  return true;
}

bool Mock::Read(std::string&) {
  return true;
}

}  // namespace TC420
