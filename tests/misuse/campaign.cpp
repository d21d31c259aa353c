#include "misuse/campaign.h"

#include <ostream>
#include <sstream>

#include "misuse/ledger.h"
#include "misuse/odd_classes.h"
#include "misuse/watch.h"

namespace misuse {
namespace {

constexpr int kAttempts = 3;

}  // namespace

CampaignResult run(const Campaign& campaign) {
  const Surroundings surroundings;
  OddClasses others;
  // After what lives as long as the run: the platform looks for each block among all that it has seen.
  ledger::open();
  CampaignResult result{Findings(classes().size())};
  watch::start(campaign.seed);
  std::uint64_t number = campaign.first;
  // A single call that is repeated shows where it goes wrong.
  ledger::stop_at_wrong_frees(campaign.calls == 1);
  for (; result.calls < campaign.calls; ++number) {
    // What is allocated once only has been allocated when the same call is made again; and a call that is
    // slow each time does not wait for others that use the machine.
    bool slow = true, leaks = true;
    for (int attempt = 0; attempt < kAttempts && (slow || leaks); ++attempt) {
      const std::size_t before = ledger::living();
      GeneratedCall call(surroundings, result.findings, campaign.seed, number);
      others.call = &call;
      call.run();
      others.call = nullptr;
      result.calls += call.calls();
      slow = slow && call.was_slow();
      leaks = ledger::living() > before;
      if (attempt > 0 && leaks) call.report("memory is left behind");
      if (attempt == kAttempts - 1 && slow) call.report("takes more than a second each time");
    }
  }
  ledger::stop_at_wrong_frees(false);
  result.next = number;
  return result;
}

std::string report(const Campaign& campaign, const CampaignResult& result) {
  std::ostringstream text;
  for (const Finding& finding : result.findings.all()) {
    text << "MISUSE finding: " << host::utf8(finding.place) << ": " << finding.what << " (" << finding.count
         << " times; seed " << campaign.seed << " number " << finding.number << ")\n";
  }
  // A run of some length that never succeeds, or never fails, at a method does not say anything of it.
  constexpr std::uint64_t kTelling = 400'000;
  for (const Class& one : classes()) {
    for (const Member& member : one.members) {
      if (campaign.calls < kTelling || member.kind != INVOKE_FUNC) continue;
      const Outcomes outcomes = result.findings.outcomes(member);
      if (outcomes.successes == 0 || outcomes.faults == 0) {
        text << "MISUSE finding: " << host::utf8(one.name + L'.' + member.name) << ": " << outcomes.successes
             << " successes and " << outcomes.faults << " faults only\n";
      }
    }
  }
  return text.str();
}

void write_json(std::ostream& stream, const Campaign& campaign, const CampaignResult& result) {
  stream << "{\"seed\": " << campaign.seed << ", \"next\": " << result.next << ", \"classes\": [";
  for (std::size_t i = 0; i < classes().size(); ++i) {
    const Figures& figures = result.findings.figures()[i];
    stream << (i ? ",\n" : "\n") << "  {\"name\": \"" << host::utf8(classes()[i].name)
           << "\", \"calls\": " << figures.calls << ", \"successes\": " << figures.successes
           << ", \"faults\": " << figures.faults << ", \"findings\": " << figures.findings
           << ", \"slowest\": " << figures.slowest << ", \"slowest_member\": \""
           << host::utf8(figures.slowest_member) << "\", \"slowest_number\": " << figures.slowest_number
           << "}";
  }
  stream << "\n]}\n";
}

}  // namespace misuse
