// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdint>

#include "QorLib/xml/document.h"
#include "bench/PugiProgram.h"
#include "bench/Samples.h"
#include "formats/ProgramFile.h"

namespace bench {
namespace {

using TCBase::Program;

const Program& Sample() {
  static const Program program = TenMegabyteProgram();
  return program;
}

const std::string& SampleBytes() {
  static const std::string bytes = TCBase::WriteProgram(Sample());
  return bytes;
}

Program ReadBack(const std::string& bytes) {
  Program program;
  TCBase::ReadProgram(bytes, program);
  return program;
}

/// The argument of each benchmark here: whether the work finds memory that the process holds already, or
/// takes it fresh from the system, as a program does that opens or saves its first file.
enum Memory : std::int64_t { AtHand = 0, Fresh = 1 };

/// Runs `work` for as long as the library asks, and counts `bytes` at each run. As pugixml does, each reading
/// begins with a copy of the bytes; each ends when the tree is gone.
template <typename Work>
void Measure(benchmark::State& state, std::size_t bytes, Work work) {
  for (auto _ : state) {
    if (state.range(0) == Fresh) {
      state.PauseTiming();
      malloc_trim(0);
      state.ResumeTiming();
    }
    work();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

// Trees

std::size_t CountElements(const qor::xml::element& parent) {
  std::size_t count = 1;
  for (qor::xml::element child = parent.FirstChild(); child; child = child.NextSibling()) {
    count += CountElements(child);
  }
  return count;
}

std::size_t CountElements(const pugi::xml_node& parent) {
  std::size_t count = 0;
  for (const pugi::xml_node child : parent.children()) {
    if (child.type() == pugi::node_element) count += 1 + CountElements(child);
  }
  return count;
}

void Load(pugi::xml_document& document, const std::string& bytes) {
  document.load_buffer(bytes.data(), bytes.size(), PugiOptions);
}

void ParseDocument(benchmark::State& state) {
  const std::string& bytes = SampleBytes();
  Measure(state, bytes.size(), [&bytes] {
    qor::xml::document document;
    document.Parse(bytes);
  });
}

void ParseDocumentByPugi(benchmark::State& state) {
  const std::string& bytes = SampleBytes();
  Measure(state, bytes.size(), [&bytes] {
    pugi::xml_document document;
    Load(document, bytes);
  });
  qor::xml::document ours;
  pugi::xml_document theirs;
  ours.Parse(bytes);
  Load(theirs, bytes);
  if (CountElements(ours.Root()) != CountElements(theirs)) state.SkipWithError("the two trees differ");
}

void WriteDocument(benchmark::State& state) {
  qor::xml::document document;
  document.Parse(SampleBytes());
  Measure(state, SampleBytes().size(), [&document] { benchmark::DoNotOptimize(document.Write()); });
  if (document.Write() != SampleBytes()) state.SkipWithError("the bytes differ from those that were read");
}

void WriteDocumentByPugi(benchmark::State& state) {
  pugi::xml_document document;
  Load(document, SampleBytes());
  Measure(state, SampleBytes().size(), [&document] { benchmark::DoNotOptimize(WriteByPugi(document)); });
  if (ReadBack(WriteByPugi(document)) != Sample()) state.SkipWithError("the program read back differs");
}

// Programs

void ReadProgram(benchmark::State& state) {
  const std::string& bytes = SampleBytes();
  Measure(state, bytes.size(), [&bytes] {
    Program program;
    TCBase::ReadProgram(bytes, program);
  });
  if (ReadBack(bytes) != Sample()) state.SkipWithError("the program differs from the one that was written");
}

void ReadProgramPugi(benchmark::State& state) {
  const std::string& bytes = SampleBytes();
  Measure(state, bytes.size(), [&bytes] { benchmark::DoNotOptimize(ReadProgramByPugi(bytes)); });
  if (ReadProgramByPugi(bytes) != Sample()) state.SkipWithError("the two programs differ");
}

void WriteProgram(benchmark::State& state) {
  const Program& program = Sample();
  Measure(state, SampleBytes().size(),
          [&program] { benchmark::DoNotOptimize(TCBase::WriteProgram(program)); });
}

void WriteProgramPugi(benchmark::State& state) {
  const Program& program = Sample();
  Measure(state, SampleBytes().size(), [&program] { benchmark::DoNotOptimize(WriteProgramByPugi(program)); });
  if (ReadBack(WriteProgramByPugi(program)) != program) state.SkipWithError("the program read back differs");
}

void InBothMemories(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgName("fresh")->Arg(AtHand)->Arg(Fresh)->Unit(benchmark::kMillisecond);
}

BENCHMARK(ParseDocument)->Apply(InBothMemories);
BENCHMARK(ParseDocumentByPugi)->Apply(InBothMemories);
BENCHMARK(WriteDocument)->Apply(InBothMemories);
BENCHMARK(WriteDocumentByPugi)->Apply(InBothMemories);
BENCHMARK(ReadProgram)->Apply(InBothMemories);
BENCHMARK(ReadProgramPugi)->Name("ReadProgramByPugi")->Apply(InBothMemories);
BENCHMARK(WriteProgram)->Apply(InBothMemories);
BENCHMARK(WriteProgramPugi)->Name("WriteProgramByPugi")->Apply(InBothMemories);

}  // namespace
}  // namespace bench
