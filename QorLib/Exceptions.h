// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "QorLib/Sentence.h"

namespace qor {

/// Memory ran out.
class xout_of_memory : public std::runtime_error {
 public:
  xout_of_memory() : std::runtime_error("Out of memory.") {}
};

namespace win {

/// A call to the system failed. `what()` is a text of several lines for a message box: the code in decimal
/// and hexadecimal, and the system's description of it.
class xsystem : public std::runtime_error {
 public:
  /// `description` is the system's own text for the code, in UTF-8; empty when there is none.
  xsystem(std::uint32_t code, const std::string& description);

  std::uint32_t Code() const { return code_; }
  /// The system's text alone, for messages of one line; never empty.
  const std::string& Description() const { return description_; }
  /// The same as a reason.
  Sentence Reason() const { return Verbatim(description_); }

 private:
  std::uint32_t code_;
  std::string description_;
};

class xaccess_denied : public xsystem {
  using xsystem::xsystem;
};
class xwrite_protected : public xsystem {
  using xsystem::xsystem;
};
class xsharing_violation : public xsystem {
  using xsystem::xsystem;
};
class xdisk_full : public xsystem {
  using xsystem::xsystem;
};
class xwrite_fault : public xsystem {
  using xsystem::xsystem;
};
class xread_fault : public xsystem {
  using xsystem::xsystem;
};

}  // namespace win
}  // namespace qor
