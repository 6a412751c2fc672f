// SPDX-License-Identifier: MIT
#include "Files.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

namespace SimUsb {

Handle::Handle(Handle&& other) noexcept : descriptor(std::exchange(other.descriptor, -1)) {}

Handle& Handle::operator=(Handle&& other) noexcept {
  std::swap(descriptor, other.descriptor);
  return *this;
}

Handle::~Handle() {
  if (descriptor >= 0) ::close(descriptor);
}

Handle OpenFile(const std::filesystem::path& path, int flags) {
  Handle handle(::open(path.c_str(), flags | O_CLOEXEC, 0666));
  if (handle.Get() < 0) throw std::system_error(errno, std::generic_category(), path.string());
  return handle;
}

void WriteAttribute(const std::filesystem::path& path, std::string_view value) {
  const Handle file = OpenFile(path, O_WRONLY);
  if (::write(file.Get(), value.data(), value.size()) < 0) {
    throw std::system_error(errno, std::generic_category(), path.string());
  }
}

std::string ReadAttribute(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string value{std::istreambuf_iterator<char>(file), {}};
  while (!value.empty() && value.back() == '\n') value.pop_back();
  return value;
}

std::string ReadUevent(const std::filesystem::path& path, std::string_view key) {
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(key) && line.size() > key.size() && line[key.size()] == '=') {
      return line.substr(key.size() + 1);
    }
  }
  return {};
}

}  // namespace SimUsb
