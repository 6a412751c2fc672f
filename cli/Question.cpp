// SPDX-License-Identifier: MIT
#include "cli/Question.h"

#include <istream>
#include <ostream>

namespace cli {

bool IsConfirmed(const qor::Sentence& question, const Invocation& invocation) {
  Environment& environment = invocation.environment;
  environment.err << invocation.Text(question) << " [y/N] " << std::flush;
  std::string answer;
  if (!std::getline(environment.in, answer)) environment.err << '\n';
  std::erase_if(answer, [](char c) { return c == ' ' || c == '\r'; });
  for (char& c : answer) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
  return answer == "y" || answer == "yes";
}

}  // namespace cli
