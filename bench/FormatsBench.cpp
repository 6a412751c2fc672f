// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <pugixml.hpp>
#include <string>
#include <unordered_map>

#include "bench/PlainMode.h"
#include "bench/PugiProgram.h"
#include "bench/Samples.h"
#include "formats/Localisation.h"
#include "formats/RawFile.h"
#include "platform/Resources.h"

namespace bench {
namespace {

constexpr int RawSteps = 300;  // of each channel

void ExportRaw(benchmark::State& state) {
  const TCBase::Mode mode = RandomMode(RawSteps);
  for (auto _ : state) benchmark::DoNotOptimize(TCBase::ExportRAW(mode));
}

void ExportRawByDefinition(benchmark::State& state) {
  const TCBase::Mode mode = RandomMode(RawSteps);
  for (auto _ : state) benchmark::DoNotOptimize(ExportRawPlainly(mode));
  if (ExportRawPlainly(mode) != TCBase::ExportRAW(mode)) state.SkipWithError("the bytes differ");
}

// Each run looks all texts of the table up once.

std::vector<std::string_view> AllTexts() {
  const TCBase::StringTable table(platform::StringTableResources()[0]);
  std::vector<std::string_view> texts;
  for (std::size_t entry = 0; entry < table.Size(); ++entry) texts.push_back(table.English(entry));
  return texts;
}

void Translate(benchmark::State& state) {
  const std::vector<std::string_view> keys = AllTexts();
  TCBase::Localisation texts;
  texts.SetLanguage("de");
  for (auto _ : state) {
    for (const std::string_view key : keys) benchmark::DoNotOptimize(texts.Translate(key));
  }
}

void TranslateByPlainMap(benchmark::State& state) {
  const std::vector<std::string_view> keys = AllTexts();
  TCBase::Localisation german;
  german.SetLanguage("de");
  std::unordered_map<std::string_view, std::string> texts;
  for (const std::string_view key : keys) texts.emplace(key, german.Translate(key));
  for (auto _ : state) {
    for (const std::string_view key : keys) benchmark::DoNotOptimize(texts.find(key)->second);
  }
}

void LoadStringTable(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(TCBase::StringTable(platform::StringTableResources()[0]));
}

void LoadAllOfStringTable(benchmark::State& state) {
  for (auto _ : state) {
    TCBase::StringTable table(platform::StringTableResources()[0]);
    for (std::size_t entry = 0; entry < table.Size(); ++entry) benchmark::DoNotOptimize(table.Text(entry, 0));
  }
}

void LoadStringTableByPugi(benchmark::State& state) {
  const std::string_view bytes = platform::StringTableResources()[0];
  for (auto _ : state) {
    pugi::xml_document document;
    document.load_buffer(bytes.data(), bytes.size(), PugiOptions);
    benchmark::DoNotOptimize(document);
  }
}

BENCHMARK(ExportRaw)->Unit(benchmark::kMillisecond);
BENCHMARK(ExportRawByDefinition)->Unit(benchmark::kMillisecond);
BENCHMARK(Translate);
BENCHMARK(TranslateByPlainMap);
BENCHMARK(LoadStringTable);
BENCHMARK(LoadAllOfStringTable);
BENCHMARK(LoadStringTableByPugi);

}  // namespace
}  // namespace bench
