#include "memory/figures.h"

#include <set>
#include <string>

#include "memory/catalogue.h"
#include "support/reliability.h"

namespace host {
namespace {

/// Writes the figures when every test of the program ran and passed.
class FiguresFile : public ::testing::Environment {
 public:
  void TearDown() override {
    if (whole_program_passed()) write_piece("20-memory", piece());
  }

 private:
  static ReliabilityPiece piece() {
    std::set<std::string> methods;
    std::size_t successes = 0, faults = 0;
    for (const CatalogueCall& call : all_calls()) {
      if (call.method != "(variables)") methods.insert(utf8(call.class_name) + "." + call.method);
      ++(SUCCEEDED(call.outcome) ? successes : faults);
    }
    const Figures& counted = figures();
    const auto row = [](const char* what, std::size_t number) {
      return std::vector<std::string>{what, std::to_string(number)};
    };
    return {
        "Memory",
        "Every method of every class is called from a catalogue of calls, with success and with a fault. "
        "Blocks are counted with an allocation spy (texts, arrays, task memory of the whole process) and in "
        "the DLL's import table (its C run-time); there its allocations are also refused one after the "
        "other, and its blocks placed on guard pages.",
        {"What", "Number"},
        {row("methods in the catalogue", methods.size()),
         row("calls in the catalogue that succeed", successes),
         row("calls in the catalogue that end in a fault", faults),
         row("calls made to count blocks, a thousand of each", counted.calls),
         row("blocks left behind by them", 0), row("calls with one allocation refused", counted.refused_once),
         row("calls with one allocation and all later ones refused", counted.refused_onwards),
         row("of these answered E_OUTOFMEMORY", counted.answered_no_memory),
         row("of these a fault that kept its number, without error text", counted.did_without),
         row("first uses of a DLL just loaded, and registrations, with refused allocations",
             counted.cold_refusals),
         row("calls made on guard pages", counted.guarded_calls),
         row("blocks placed on guard pages for them", counted.guarded_blocks),
         row("overruns and uses after free", 0)}};
  }
};

const ::testing::Environment* const written = ::testing::AddGlobalTestEnvironment(new FiguresFile);

}  // namespace

Figures& figures() {
  static Figures instance;
  return instance;
}

}  // namespace host
