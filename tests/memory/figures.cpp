#include "memory/figures.h"

#include <cstdio>
#include <cstdlib>
#include <set>

#include "memory/catalogue.h"

namespace host {
namespace {

/// Writes the figures when every test of the program ran and passed.
class FiguresFile : public ::testing::Environment {
 public:
  void TearDown() override {
    const auto& run = *::testing::UnitTest::GetInstance();
    if (run.test_to_run_count() != run.total_test_count() || !run.Passed()) return;
    const char* const folder = std::getenv("SAV_RELIABILITY");
    std::FILE* const file =
        std::fopen(((folder ? std::string(folder) + "/" : "") + "20-memory.json").c_str(), "wb");
    ASSERT_NE(nullptr, file);
    write(file);
    std::fclose(file);
  }

 private:
  static void write(std::FILE* file) {
    std::set<std::string> methods;
    std::size_t successes = 0, faults = 0;
    for (const CatalogueCall& call : all_calls()) {
      if (call.method != "(variables)") methods.insert(utf8(call.class_name) + "." + call.method);
      ++(SUCCEEDED(call.outcome) ? successes : faults);
    }
    const Figures& counted = figures();
    std::fputs(
        "{\"title\": \"Memory\",\n"
        " \"text\": \"Every method of every class is called from a catalogue of calls, with success and with "
        "a "
        "fault. Blocks are counted with an allocation spy (texts, arrays, task memory of the whole process) "
        "and in "
        "the DLL's import table (its C run-time); there its allocations are also refused one after the "
        "other, and "
        "its blocks placed on guard pages.\",\n"
        " \"columns\": [\"What\", \"Number\"],\n \"rows\": [",
        file);
    row(file, "methods in the catalogue", methods.size(), true);
    row(file, "calls in the catalogue that succeed", successes);
    row(file, "calls in the catalogue that end in a fault", faults);
    row(file, "calls made to count blocks, a thousand of each", counted.calls);
    row(file, "blocks left behind by them", 0);
    row(file, "calls with one allocation refused", counted.refused_once);
    row(file, "calls with one allocation and all later ones refused", counted.refused_onwards);
    row(file, "of these answered E_OUTOFMEMORY", counted.answered_no_memory);
    row(file, "of these a fault that kept its number, without error text", counted.did_without);
    row(file, "first uses of a DLL just loaded, and registrations, with refused allocations",
        counted.cold_refusals);
    row(file, "calls made on guard pages", counted.guarded_calls);
    row(file, "blocks placed on guard pages for them", counted.guarded_blocks);
    row(file, "overruns and uses after free", 0);
    std::fputs("]}\n", file);
  }

  static void row(std::FILE* file, const char* what, std::size_t number, bool first = false) {
    std::fprintf(file, "%s\n  [\"%s\", \"%zu\"]", first ? "" : ",", what, number);
  }
};

const ::testing::Environment* const written = ::testing::AddGlobalTestEnvironment(new FiguresFile);

}  // namespace

Figures& figures() {
  static Figures instance;
  return instance;
}

}  // namespace host
