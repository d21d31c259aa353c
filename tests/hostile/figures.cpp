// The table of what the hostile texts have met.
#include <map>

#include "hostile/hostile_text.h"
#include "support/reliability.h"

namespace hostile {
namespace {

std::map<std::string, Count>& counts() {
  static std::map<std::string, Count> instance;
  return instance;
}

/// Written when every test of the program ran and passed.
class Table : public ::testing::Environment {
  void TearDown() override {
    if (!host::whole_program_passed()) return;
    host::ReliabilityPiece piece{
        "Hostile XML",
        "The four methods that read an XML invoice are given texts that nobody should write; each text goes "
        "to "
        "every one of them or, where it is cut, to one in turn. A text that is refused brings an empty "
        "result. "
        "Records, line number and the text itself are compared with what they were, a good text is read "
        "afterwards, and a file, a pipe and a port that the texts name must not be touched.",
        {"Texts", "Number", "Calls", "Refused", "Failed with a COM error", "Grown by the call's elements"},
        {}};
    for (const auto& [kind, count] : counts()) {
      piece.rows.push_back(
          {kind, std::to_string(count.texts), std::to_string(count.refused + count.failed + count.grown),
           std::to_string(count.refused), std::to_string(count.failed), std::to_string(count.grown)});
    }
    host::write_piece("70-xml", piece);
  }
};

const auto* const kTable = ::testing::AddGlobalTestEnvironment(new Table);

}  // namespace

Count& count_of(const std::string& kind) { return counts()[kind]; }

}  // namespace hostile
