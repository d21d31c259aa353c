// The tests of this folder; with --calls, a run of generated calls of any length:
//
//   test_misuse --calls N [--seed S] [--first NUMBER] [--report FILE]
//
// One call of a run is repeated by its seed and number: --calls 1 --seed S --first NUMBER.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>

#include "misuse/campaign.h"

namespace {

int run_campaign(int argc, char** argv) {
  misuse::Campaign campaign;
  std::string report_file;
  for (int i = 1; i + 1 < argc; i += 2) {
    const std::string option = argv[i];
    if (option == "--calls") {
      campaign.calls = std::strtoull(argv[i + 1], nullptr, 10);
    } else if (option == "--seed") {
      campaign.seed = std::strtoull(argv[i + 1], nullptr, 10);
    } else if (option == "--first") {
      campaign.first = std::strtoull(argv[i + 1], nullptr, 10);
    } else if (option == "--report") {
      report_file = argv[i + 1];
    } else {
      std::cerr << "unknown option " << option << '\n';
      return 2;
    }
  }
  const misuse::CampaignResult result = misuse::run(campaign);
  const std::string found = misuse::report(campaign, result);
  std::cout << found << result.calls << " calls, seed " << campaign.seed << ", numbers " << campaign.first
            << " to " << result.next - 1 << std::endl;
  if (!report_file.empty()) {
    std::ofstream file(report_file);
    misuse::write_json(file, campaign, result);
  }
  return found.empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  SetConsoleOutputCP(CP_UTF8);
  ::testing::InitGoogleTest(&argc, argv);
  if (FAILED(CoInitialize(nullptr))) return 2;
  const int result = argc > 1 ? run_campaign(argc, argv) : RUN_ALL_TESTS();
  CoUninitialize();
  return result;
}
