// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace SimUsb {

// An open file descriptor, closed with the object.
class Handle {
 public:
  Handle() = default;
  explicit Handle(int opened) : descriptor(opened) {}
  Handle(Handle&& other) noexcept;
  Handle& operator=(Handle&& other) noexcept;
  ~Handle();
  int Get() const { return descriptor; }

 private:
  int descriptor = -1;
};

// Throws std::system_error that names the path.
Handle OpenFile(const std::filesystem::path& path, int flags);

// Writes a whole attribute of sysfs or configfs in one call; throws like OpenFile.
void WriteAttribute(const std::filesystem::path& path, std::string_view value);

// The attribute without the line feed at its end; empty when it cannot be read.
std::string ReadAttribute(const std::filesystem::path& path);

// The value of KEY=value in a sysfs uevent file; empty when it is not there.
std::string ReadUevent(const std::filesystem::path& path, std::string_view key);

}  // namespace SimUsb
