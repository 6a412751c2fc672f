// SPDX-License-Identifier: MIT
// What the program says of itself in several places, held against the table of its commands.
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "cli/Commands.h"
#include "cli/UdevRule.h"
#include "tests/cli/CliFixture.h"

namespace {

using Words = std::set<std::string>;

/// All that the pattern's first group matches.
Words All(const std::string& text, const std::string& pattern) {
  Words words;
  const std::regex searched(pattern);
  for (std::sregex_iterator match(text.begin(), text.end(), searched), end; match != end; ++match)
    words.insert((*match)[1]);
  return words;
}

std::string SourceFile(const std::string& name) {
  return test::Contents(std::string(HALVEX_SOURCES) + "/" + name);
}

Words CommandNames() {
  Words names;
  for (const cli::Command& command : cli::Commands()) names.insert(command.name);
  return names;
}

/// The manual page as it is read, its commands' paragraphs behind their names.
std::string ManualPage() {
  std::string page = SourceFile("docs/halvex.1");
  page = std::regex_replace(page, std::regex(R"(\\f[BIR])"), "");
  page = std::regex_replace(page, std::regex(R"(\\-)"), "-");
  return std::regex_replace(page, std::regex("[\"\r]"), "");
}

std::string Paragraph(const std::string& page, const std::string& command) {
  const std::regex start("\n\\.TP\n\\.B[RI]? " + command + "( |\n)");
  std::smatch match;
  if (!std::regex_search(page, match, start)) return {};
  const auto at = static_cast<std::size_t>(match.position()) + 1;
  // The keys of a demo are paragraphs of their own, further in.
  const std::size_t next = std::min(page.find("\n.TP\n.B", page.find('\n', at + 5)), page.find("\n.SH", at));
  return page.substr(at, next - at);
}

class Help : public test::Cli {
 protected:
  /// The options of a command as its help lists them, each by its first name.
  Words OptionsOf(const std::string& command) {
    EXPECT_EQ(Run({command, "--help"}), cli::Done);
    return All(out.substr(0, out.find("Options of every command:")), "\n  (-{1,2}[a-z0-9-]+)[ ,\n]");
  }
};

}  // namespace

TEST_F(Help, ListsEveryCommand) {
  ASSERT_EQ(Run({"--help"}), cli::Done);
  EXPECT_EQ(All(out.substr(0, out.find("Options:")), "\n  ([a-z-]+) "), CommandNames());
  const std::string help = out;
  EXPECT_EQ(Run({}), cli::Done);
  EXPECT_EQ(out, help);
  for (const cli::Command& command : cli::Commands()) {
    ASSERT_EQ(Run({"help", command.name}), cli::Done);
    EXPECT_LE(test::LongestLine(out), 80U) << out;
    EXPECT_EQ(out.find("Group"), std::string::npos);
  }
  EXPECT_LE(test::LongestLine(help), 80U);
}

TEST_F(Help, AgreesWithTheManualPage) {
  const std::string page = ManualPage();
  const std::string commands = page.substr(page.find(".SH COMMANDS"));
  ASSERT_EQ(Run({"--help"}), cli::Done);
  Words known = All(out, "(--[a-z0-9-]+)");
  for (const cli::Command& command : cli::Commands()) {
    const std::string paragraph = Paragraph(commands, command.name);
    EXPECT_FALSE(paragraph.empty()) << command.name;
    Words options = OptionsOf(command.name);
    for (const std::string& option : options)
      EXPECT_TRUE(All(paragraph, "(" + option + ")[^a-z0-9-]").size() == 1) << command.name << " " << option;
    known.merge(All(out, "(--[a-z0-9-]+)"));
  }
  for (const std::string& option : All(page, "(--[a-z][a-z0-9-]*)"))
    EXPECT_TRUE(known.contains(option) || option == "--reload") << option << " is no option";
}

TEST_F(Help, IsWhatShellsComplete) {
  for (const std::string shell : {"bash", "zsh", "fish"}) {
    ASSERT_EQ(Run({"completion", shell}), cli::Done);
    const std::string script = out;
    for (const cli::Command& command : cli::Commands()) {
      const std::string name = command.name;
      std::string options;  // what the script has for the command
      if (shell == "fish") {
        for (const std::string& line : All(script, "\n(.*from " + name + "'.*)")) options += line + "\n";
      } else {
        const std::size_t start = script.find("\n" + std::string(shell == "zsh" ? 4 : 2, ' ') + name + ")\n");
        ASSERT_NE(start, std::string::npos) << shell << " " << name;
        options = script.substr(start, script.find(";;", start) - start);
      }
      for (const std::string& option : OptionsOf(name)) {
        const std::string written = shell != "fish"            ? option
                                    : option.starts_with("--") ? "-l " + option.substr(2)
                                                               : "-s " + option.substr(1);
        EXPECT_EQ(All(options, "[^a-z-](" + written + ")[^a-z0-9-]").size(), 1U)
            << shell << " " << name << " " << option;
      }
    }
  }
  EXPECT_EQ(Run({"completion", "tcsh"}), cli::WrongUsage);
}

TEST_F(Help, IsWhatTheReadMeShows) {
  Words shown = All(SourceFile("README.md"), "\n    (?:scripts/simulate )?halvex ([a-z][a-z-]*)");
  shown.merge(All(SourceFile("README.md"), "`halvex ([a-z][a-z-]*)"));
  EXPECT_GT(shown.size(), 10U);
  const Words known = CommandNames();
  for (const std::string& command : shown) EXPECT_TRUE(known.contains(command)) << command;
}

TEST_F(Help, PrintsTheRuleThatThePackageInstalls) {
  ASSERT_EQ(Run({"udev-rule"}), cli::Done);
  EXPECT_EQ(out, SourceFile("packaging/linux/71-halvex.rules"));
  ASSERT_EQ(Run({"udev-rule", "--group", "plugdev"}), cli::Done);
  EXPECT_EQ(All(out, R"((GROUP="plugdev", MODE="0660")\n)").size(), 1U);
  for (const char* name : {"", "a b", "x\", RUN+=\"y", "-x"})
    EXPECT_EQ(Run({"udev-rule", "--group", name}), cli::WrongUsage) << name;
}
