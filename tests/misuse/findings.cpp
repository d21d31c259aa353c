#include "misuse/findings.h"

namespace misuse {

void Findings::add(std::size_t class_index, const std::wstring& place, const std::string& what,
                   std::uint64_t number) {
  ++figures_[class_index].findings;
  const auto [entry, added] = found_.try_emplace({place, what}, Finding{place, what, number, 0});
  ++entry->second.count;
}

void Findings::count(std::size_t class_index, const Member& member, bool succeeded) {
  Figures& figures = figures_[class_index];
  Outcomes& outcomes = outcomes_[&member];
  ++(succeeded ? figures.successes : figures.faults);
  ++(succeeded ? outcomes.successes : outcomes.faults);
}

Outcomes Findings::outcomes(const Member& member) const {
  const auto found = outcomes_.find(&member);
  return found == outcomes_.end() ? Outcomes{} : found->second;
}

std::vector<Finding> Findings::all() const {
  std::vector<Finding> list;
  for (const auto& entry : found_) list.push_back(entry.second);
  return list;
}

}  // namespace misuse
