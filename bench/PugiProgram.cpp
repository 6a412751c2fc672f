// SPDX-License-Identifier: MIT
#include "bench/PugiProgram.h"

#include <cstddef>

namespace bench {

using namespace TCBase;

namespace {

class StringWriter : public pugi::xml_writer {
 public:
  void write(const void* data, std::size_t size) override {
    text.append(static_cast<const char*>(data), size);
  }

  std::string text;
};

// Reading

Channel ReadChannel(const pugi::xml_node& source) {
  Channel channel;
  for (const pugi::xml_node step : source.children("step")) {
    channel.steps.push_back(MakeStep(step.attribute("hour").as_int(), step.attribute("minute").as_int(),
                                     static_cast<float>(step.attribute("value").as_int()),
                                     step.attribute("jump").as_int() != 0));
  }
  return channel;
}

Mode ReadMode(const pugi::xml_node& source) {
  Mode mode{source.attribute("name").as_string(), source.attribute("description").as_string(), {}};
  pugi::xml_node child = source.first_child();
  for (Channel& channel : mode.channels) {
    channel = ReadChannel(child);
    child = child.next_sibling();
  }
  return mode;
}

Program::ChannelInfo ReadChannelInfo(const pugi::xml_node& source) {
  const auto byte = [&source](const char* name) { return source.attribute(name).as_uint() & 0xFF; };
  return {source.attribute("name").as_string(), source.attribute("description").as_string(),
          0xFF000000u + (byte("r") << 16) + (byte("g") << 8) + byte("b")};
}

// Writing

void WriteStep(const Step& step, pugi::xml_node channel) {
  pugi::xml_node written = channel.append_child("step");
  written.append_attribute("hour") = step.hour;
  written.append_attribute("minute") = step.minute;
  written.append_attribute("value") = WholePercent(step.value);
  if (step.jump) written.append_attribute("jump") = 1;
}

void WriteMode(const Mode& mode, pugi::xml_node list) {
  pugi::xml_node written = list.append_child("mode");
  written.append_attribute("name") = mode.name.c_str();
  written.append_attribute("description") = mode.description.c_str();
  for (const Channel& channel : mode.channels) {
    pugi::xml_node writtenChannel = written.append_child("channel");
    for (const Step& step : channel.steps) WriteStep(step, writtenChannel);
  }
}

void WriteChannelInfo(const Program::ChannelInfo& info, pugi::xml_node list) {
  pugi::xml_node written = list.append_child("channel_info");
  written.append_attribute("name") = info.name.c_str();
  written.append_attribute("description") = info.description.c_str();
  written.append_attribute("r") = info.colour >> 16 & 0xFF;
  written.append_attribute("g") = info.colour >> 8 & 0xFF;
  written.append_attribute("b") = info.colour & 0xFF;
}

}  // namespace

Program ReadProgramByPugi(std::string_view bytes) {
  pugi::xml_document document;
  document.load_buffer(bytes.data(), bytes.size(), PugiOptions);
  Program program;
  const pugi::xml_node root = document.document_element();
  for (const pugi::xml_node mode : root.children("mode")) program.modes.push_back(ReadMode(mode));
  auto info = program.channelInfos.begin();
  for (const pugi::xml_node child : root.child("channel_info").children("channel_info")) {
    if (info != program.channelInfos.end()) *info++ = ReadChannelInfo(child);
  }
  return program;
}

std::string WriteProgramByPugi(const Program& program) {
  pugi::xml_document document;
  pugi::xml_node root = document.append_child("modelist");
  for (const Mode& mode : program.modes) WriteMode(mode, root);
  pugi::xml_node infos = root.append_child("channel_info");
  for (const Program::ChannelInfo& info : program.channelInfos) WriteChannelInfo(info, infos);
  return WriteByPugi(document);
}

std::string WriteByPugi(const pugi::xml_document& document) {
  StringWriter writer;
  document.save(writer, "  ", pugi::format_default | pugi::format_no_declaration);
  return std::move(writer.text);
}

}  // namespace bench
