#include "misuse/campaign.h"

#include <ostream>
#include <sstream>

#include "menus/component.h"
#include "misuse/generated_call.h"
#include "misuse/ledger.h"
#include "misuse/watch.h"

namespace misuse {
namespace {

/// The popup menu of the host, in the place of one that waits for the user: the object of the call in
/// progress.
class OddMenu final : public IClassFactory {
 public:
  OddMenu() {
    EXPECT_EQ(S_OK, CoRegisterClassObject(host::kPopupMenuClass, this, CLSCTX_INPROC_SERVER,
                                          REGCLS_MULTIPLEUSE, &registration_));
  }
  ~OddMenu() { CoRevokeClassObject(registration_); }
  OddMenu(const OddMenu&) = delete;
  OddMenu& operator=(const OddMenu&) = delete;

  GeneratedCall* call = nullptr;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** object) override {
    *object = nullptr;
    if (!call || iid != IID_IDispatch || call->dice().one_in(20)) return E_NOINTERFACE;
    *object = call->new_object();
    return *object ? S_OK : E_OUTOFMEMORY;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  DWORD registration_ = 0;
};

}  // namespace

CampaignResult run(const Campaign& campaign) {
  const Surroundings surroundings;
  OddMenu menu;
  // After what lives as long as the run: the platform looks for each block among all that it has seen.
  ledger::open();
  CampaignResult result{Findings(classes().size())};
  watch::start(campaign.seed);
  std::uint64_t number = campaign.first;
  // A single call that is repeated shows where it goes wrong.
  ledger::stop_at_wrong_frees(campaign.calls == 1);
  for (; result.calls < campaign.calls; ++number) {
    std::size_t left = 0;
    // What is allocated once only has been allocated when the same call is made again.
    for (int attempt = 0; attempt < 2; ++attempt) {
      const std::size_t before = ledger::living();
      {
        GeneratedCall call(surroundings, result.findings, campaign.seed, number);
        menu.call = &call;
        call.run();
        menu.call = nullptr;
        result.calls += call.calls();
        left = 0;
        if (ledger::living() > before) left = ledger::living() - before;
        if (attempt == 1 && left != 0) call.report("memory is left behind");
      }
      if (left == 0) break;
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
  // A run of some length that never succeeds, or never fails, at a class does not say anything of it.
  constexpr std::uint64_t kTelling = 100'000;
  for (std::size_t i = 0; i < classes().size() && campaign.calls >= kTelling; ++i) {
    const Figures& figures = result.findings.figures()[i];
    if (!classes()[i].members.empty() && (figures.successes == 0 || figures.faults == 0)) {
      text << "MISUSE finding: " << host::utf8(classes()[i].name) << ": " << figures.successes
           << " successes and " << figures.faults << " faults only\n";
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
           << ", \"slowest\": " << figures.slowest << "}";
  }
  stream << "\n]}\n";
}

}  // namespace misuse
