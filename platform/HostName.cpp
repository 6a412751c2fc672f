// SPDX-License-Identifier: MIT
#include "platform/HostName.h"

#include <future>
#include <system_error>
#include <thread>

namespace platform {

std::string LookUpWithin(std::uint32_t milliseconds, std::function<std::string()> lookUp) {
  // Not std::async, whose future waits for the end.
  std::packaged_task<std::string()> task(std::move(lookUp));
  std::future<std::string> name = task.get_future();
  try {
    std::thread(std::move(task)).detach();
  } catch (const std::system_error&) {
    return {};  // no thread to be had: no name
  }
  if (name.wait_for(std::chrono::milliseconds(milliseconds)) != std::future_status::ready) return {};
  return name.get();
}

}  // namespace platform
