// What the generated calls have shown: figures per class, and every call that did what none may do.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace misuse {

struct Member;

struct Figures {
  std::uint64_t calls = 0, successes = 0, faults = 0, findings = 0;
  double slowest = 0;  // milliseconds
  std::wstring slowest_member;
  std::uint64_t slowest_number = 0;
};

/// How the calls of one member ended.
struct Outcomes {
  std::uint64_t successes = 0, faults = 0;
};

/// One kind of finding at one member; the first call that showed it repeats it.
struct Finding {
  std::wstring place;  // "ContratDoc.NbrCadFact"
  std::string what;
  std::uint64_t number = 0;
  std::uint64_t count = 0;
};

class Findings {
 public:
  explicit Findings(std::size_t classes) : figures_(classes) {}

  Figures& of(std::size_t class_index) { return figures_[class_index]; }
  [[nodiscard]] const std::vector<Figures>& figures() const { return figures_; }

  /// A call of the member has ended.
  void count(std::size_t class_index, const Member& member, bool succeeded);
  [[nodiscard]] Outcomes outcomes(const Member& member) const;

  void add(std::size_t class_index, const std::wstring& place, const std::string& what, std::uint64_t number);
  [[nodiscard]] std::vector<Finding> all() const;

 private:
  std::vector<Figures> figures_;
  std::unordered_map<const Member*, Outcomes> outcomes_;
  std::map<std::pair<std::wstring, std::string>, Finding> found_;
};

}  // namespace misuse
