// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <fstream>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "../tc421/Frame.h"
#include "Options.h"
#include "Port.h"
#include "State.h"

namespace SimTC421 {

// A controller's life, until SIGINT or SIGTERM.
class Controller {
 public:
  explicit Controller(const Options& options);
  void Run();

 private:
  using Time = std::chrono::steady_clock::time_point;
  void Hear(const Datagram& datagram);
  std::string Judge(const Datagram& datagram);
  void Obey(const Datagram& datagram);
  void Record(const Datagram& datagram, const std::string& verdict);
  void KeepState(Kind kind, Bytes payload);
  void QueueAnswers(const Datagram& question, const Answering& answering);
  void QueueNonsense(Datagram datagram, Time due);
  void SendDueAnswers();
  std::string NameTowards(const Datagram& datagram) const;

  Options options;
  Port port;
  Time start = std::chrono::steady_clock::now();
  std::ofstream transcript;
  State state;
  int datagrams = 0;
  std::multimap<Time, Datagram> answers;  // by when they are due
  std::vector<Datagram> heldBack;         // until the next packet has been answered
  std::minstd_rand random;
};

}  // namespace SimTC421
