// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <string>
#include <unordered_map>

#include "formats/Localisation.h"
#include "platform/Resources.h"

namespace bench {
namespace {

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

BENCHMARK(Translate);
BENCHMARK(TranslateByPlainMap);

}  // namespace
}  // namespace bench
