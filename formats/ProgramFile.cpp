// SPDX-License-Identifier: MIT
#include "formats/ProgramFile.h"

#include "QorLib/Format.h"
#include "QorLib/xml/document.h"
#include "QorLib/xml/tree_builder.h"
#include "formats/FileBytes.h"

namespace TCBase {
namespace {

using qor::xml::element;

// Writing

void WriteStep(const Step& step, element channel) {
  element written = channel.CreateChild("step");
  written.SetAttribute("hour", std::to_string(step.hour));
  written.SetAttribute("minute", std::to_string(step.minute));
  written.SetAttribute("value", std::to_string(WholePercent(step.value)));
  if (step.jump) written.SetAttribute("jump", "1");
}

void WriteMode(const Mode& mode, element modeList) {
  element written = modeList.CreateChild("mode");
  written.SetAttribute("name", mode.name);
  written.SetAttribute("description", mode.description);
  for (const Channel& channel : mode.channels) {
    element writtenChannel = written.CreateChild("channel");
    for (const Step& step : channel.steps) WriteStep(step, writtenChannel);
  }
}

void WriteChannelInfo(const Program::ChannelInfo& info, element list) {
  element written = list.CreateChild("channel_info");
  written.SetAttribute("name", info.name);
  written.SetAttribute("description", info.description);
  written.SetAttribute("r", std::to_string(info.colour >> 16 & 0xFF));
  written.SetAttribute("g", std::to_string(info.colour >> 8 & 0xFF));
  written.SetAttribute("b", std::to_string(info.colour & 0xFF));
}

// Reading

// One pass over the attributes: looking each one up would take most of the time of reading a file.
Step ReadStep(const element& source) {
  Step step = MakeStep(0, 0, 0);
  source.ForEachAttribute([&step](std::string_view name, std::string_view value) {
    if (name == "hour") {
      step.hour = qor::ParseInteger(value);
    } else if (name == "minute") {
      step.minute = qor::ParseInteger(value);
    } else if (name == "value") {
      step.value = static_cast<float>(qor::ParseInteger(value));
    } else if (name == "jump") {
      step.jump = qor::ParseInteger(value) != 0;
    }
  });
  return step;
}

Channel ReadChannel(const element& source) {
  Channel channel;
  channel.steps.reserve(source.ChildCount());
  for (element child = source.FirstChild(); child; child = child.NextSibling()) {
    if (child.Name() == "step") channel.steps.push_back(ReadStep(child));
  }
  return channel;
}

Mode ReadMode(const element& source) {
  Mode mode{std::string(source.Attribute("name")), std::string(source.Attribute("description")), {}};
  element child = source.FirstChild();
  for (Channel& channel : mode.channels) {
    channel = ReadChannel(child);
    child = child.NextSibling();
  }
  return mode;
}

Program::ChannelInfo ReadChannelInfo(const element& source) {
  const auto byte = [&source](std::string_view name) {
    return static_cast<std::uint32_t>(source.IntAttribute(name)) & 0xFF;
  };
  return {std::string(source.Attribute("name")), std::string(source.Attribute("description")),
          0xFF000000u + (byte("r") << 16) + (byte("g") << 8) + byte("b")};
}

/// Collects a program from the children of a file's root, as they come by.
class ProgramReader {
 public:
  explicit ProgramReader(const Program& previous) { program_.channelInfos = previous.channelInfos; }

  void Read(const element& child, const qor::xml::document& source) {
    if (child.Name() == "mode") {
      if (child.ChildCount() == ChannelCount) {
        program_.modes.push_back(ReadMode(child));
      } else if (!firstDropped_) {
        firstDropped_ = DropMessage(child, source);
      }
    } else if (child.Name() == "channel_info" && !hasChannelInfos_) {
      hasChannelInfos_ = true;
      ReadChannelInfos(child);
    }
  }

  /// Why there is no program to take, or nothing.
  std::optional<qor::xml::error> Failure(const element& root, const qor::xml::document& source) const {
    if (!program_.modes.empty()) return std::nullopt;
    if (firstDropped_) return firstDropped_;
    return qor::xml::error{source.PositionOf(root), TR("there is no mode in the file")};
  }

  Program Take() { return std::move(program_); }

 private:
  static qor::xml::error DropMessage(const element& mode, const qor::xml::document& source) {
    return {
        source.PositionOf(mode),
        {TR("there is no mode with {1} channels; the one here has {2}"), {ChannelCount, mode.ChildCount()}}};
  }

  void ReadChannelInfos(const element& list) {
    auto target = program_.channelInfos.begin();
    for (element child = list.FirstChild(); child; child = child.NextSibling()) {
      if (child.Name() != "channel_info") continue;
      if (target == program_.channelInfos.end()) return;
      *target++ = ReadChannelInfo(child);
    }
  }

  Program program_;
  bool hasChannelInfos_ = false;
  std::optional<qor::xml::error> firstDropped_;
};

}  // namespace

std::string WriteProgram(const Program& program) {
  qor::xml::document document("modelist");
  element root = document.Root();
  for (const Mode& mode : program.modes) WriteMode(mode, root);
  element infos = root.CreateChild("channel_info");
  for (const Program::ChannelInfo& info : program.channelInfos) WriteChannelInfo(info, infos);
  return document.Write();
}

std::optional<qor::xml::error> ReadProgram(std::string bytes, Program& program) {
  qor::xml::document document;
  ProgramReader reader(program);
  auto failed = qor::xml::ParseByChild(std::move(bytes), document,
                                       [&](const element& child) { reader.Read(child, document); });
  if (!failed) failed = reader.Failure(document.Root(), document);
  if (!failed) program = reader.Take();
  return failed;
}

qor::Sentence SaveProgram(const Program& program, const std::string& path) {
  return Attempt([&] { ReplaceFileBytes(path, WriteProgram(program)); });
}

qor::Sentence LoadProgram(const std::string& path, Program& program) {
  std::optional<qor::xml::error> fault;
  const qor::Sentence failure =
      Attempt([&] { fault = ReadProgram(ReadFileBytes(path, qor::xml::reader::MaxBytes), program); });
  return fault ? fault->Told() : failure;
}

}  // namespace TCBase
