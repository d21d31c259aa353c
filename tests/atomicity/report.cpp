#include "atomicity/report.h"

#include <algorithm>

#include "support/host.h"
#include "support/reliability.h"

namespace atomicity {
namespace {

struct Row {
  const Method* method;
  std::string fault, code;
  bool changed;
};

std::vector<Row>& rows() {
  static std::vector<Row> kept;
  return kept;
}

}  // namespace

const std::vector<Method>& methods() {
  static const std::vector<Method> list = {
#define UNCHANGED(class_name, method) {L## #class_name, L## #method, nullptr},
#define STEPS(class_name, method, remains) {L## #class_name, L## #method, remains},
#include "atomicity/methods.def"
  };
  return list;
}

const Method* method_named(std::wstring_view class_name, std::wstring_view name) {
  for (const Method& method : methods()) {
    if (method.class_name == class_name && method.name == name) return &method;
  }
  return nullptr;
}

void report(std::wstring_view class_name, std::wstring_view name, const std::string& fault,
            const std::string& code, bool changed) {
  const Method* method = method_named(class_name, name);
  ASSERT_NE(nullptr, method) << host::utf8(name);
  rows().push_back({method, fault, code, changed});
}

bool was_reported(const Method& method, bool changed) {
  return std::any_of(rows().begin(), rows().end(),
                     [&](const Row& row) { return row.method == &method && (row.changed || !changed); });
}

void write_report() {
  std::stable_sort(rows().begin(), rows().end(),
                   [](const Row& left, const Row& right) { return left.method < right.method; });
  host::ReliabilityPiece piece{
      "Atomicity",
      "What a fault leaves of the host's records, grids, variables and objects. Each row was made to happen "
      "and everything compared before and after, by test_atomicity. A result is always empty after a fault. "
      "A late-bound call may also fail behind the method, where a typed variable cannot hold what the "
      "method made of it: that variable stays as it was, and what the method did remains.",
      {"Class", "Method", "Fault", "Code", "What it leaves"},
      {}};
  for (const Row& row : rows()) {
    piece.rows.push_back({host::utf8(row.method->class_name), host::utf8(row.method->name), row.fault,
                          row.code, row.changed ? row.method->leaves : "everything unchanged"});
  }
  host::write_piece("30-atomicity", piece);
}

}  // namespace atomicity
