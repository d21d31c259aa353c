// A run of generated calls: the numbers from `first` on, until `calls` calls were made.
#pragma once

#include <iosfwd>

#include "misuse/findings.h"
#include "misuse/surroundings.h"

namespace misuse {

struct Campaign {
  std::uint64_t seed = 1;
  std::uint64_t first = 0;
  std::uint64_t calls = 1'000'000;
};

struct CampaignResult {
  Findings findings;
  std::uint64_t calls = 0;
  std::uint64_t next = 0;  // number that would come next
};

CampaignResult run(const Campaign& campaign);

/// The findings, one line each, with what repeats them.
std::string report(const Campaign& campaign, const CampaignResult& result);
/// The figures of a run for the program that adds several of them up.
void write_json(std::ostream& stream, const Campaign& campaign, const CampaignResult& result);

}  // namespace misuse
