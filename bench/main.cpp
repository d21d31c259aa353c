// bench.exe [--rounds N] [--only PART] [--check] [--document FILE] [--json FILE]
#include <objbase.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>

#include "report.h"
#include "works.h"

namespace {

constexpr int kRounds = 7;
constexpr int kFewestRounds = 5;

bool write(const char* path, const std::string& text) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << text;
  file.close();
  if (!file) std::fprintf(stderr, "bench: %s cannot be written\n", path);
  return static_cast<bool>(file);
}

}  // namespace

int main(int count, char** words) {
  int rounds = kRounds;
  std::string only;
  bool checked = false;
  const char* document_path = nullptr;
  const char* json_path = nullptr;
  for (int i = 1; i < count; ++i) {
    const std::string_view word = words[i];
    if (word == "--check") {
      checked = true;
    } else if (i + 1 < count && word == "--rounds") {
      rounds = std::atoi(words[++i]);
    } else if (i + 1 < count && word == "--only") {
      only = words[++i];
    } else if (i + 1 < count && word == "--document") {
      document_path = words[++i];
    } else if (i + 1 < count && word == "--json") {
      json_path = words[++i];
    } else {
      std::fprintf(stderr, "bench: unknown option %s\n", words[i]);
      return 2;
    }
  }
  if (rounds < kFewestRounds) rounds = kFewestRounds;
  bench::must(CoInitialize(nullptr), "CoInitialize");
  bench::Bench bench(rounds, only);
  bench::measure_binding(bench);
  bench::measure_dates(bench);
  bench::measure_grouping(bench);
  bench::measure_contracts(bench);
  bench::measure_amounts(bench);
  bench::measure_code_lists(bench);
  bench::measure_invoices(bench);
  bench::measure_demo_host(bench);
  const std::string text = document(bench);
  std::fputs(text.c_str(), stdout);
  if (document_path && !write(document_path, text)) return 2;
  if (json_path && !write(json_path, json(bench))) return 2;
  return checked && !check(bench) ? 1 : 0;
}
