// Reading a JSON object field by field, with one French line for each field that is not as expected.
#pragma once

#include <filesystem>
#include <initializer_list>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "problems.h"

namespace facturation {

using Json = nlohmann::json;

/// The top-level object of a file; nothing, and one problem, when it cannot be read.
std::optional<Json> load_json(const std::filesystem::path& path, std::string_view file, Problems& problems);

enum class Need { Required, Optional };

struct Range {
  double low = std::numeric_limits<double>::lowest();
  double high = std::numeric_limits<double>::max();
};

class FieldReader {
 public:
  /// `subject` names the object for the user ("contrat CT004"), `prefix` stands before each field
  /// ("adresse.").
  FieldReader(const Json& object, std::string_view file, std::string subject, Problems& problems,
              std::string prefix = {});

  std::string text(const char* field, Need need);
  double number(const char* field, Need need, Range range, double absent = 0);
  int integer(const char* field, Need need, int low, int high, int absent = 0);
  std::string date(const char* field, Need need);
  bool flag(const char* field);
  /// The place of the field's text in the list.
  int choice(const char* field, Need need, std::initializer_list<const char*> names, int absent = 0);
  /// Null when absent or of another kind.
  const Json* object(const char* field, Need need);
  const Json* array(const char* field, Need need);

  [[nodiscard]] bool has(const char* field) const;
  void refuse(std::string_view field, std::string_view message);
  /// A reader of an object inside this one.
  FieldReader inside(const Json& object, std::string prefix) const;
  /// A problem for each field that nobody asked for; true when the object had no problem at all.
  bool finish();

  [[nodiscard]] const std::string& subject() const { return subject_; }

 private:
  const Json* find(const char* field, Need need, const char* missing);
  bool expect(bool right, const char* field, const char* expected, const Json& value);

  const Json& object_;
  std::string file_;
  std::string subject_;
  std::string prefix_;
  Problems& problems_;
  std::size_t problems_before_;
  std::set<std::string, std::less<>> asked_;
};

/// Names an element of a list: its code when it has one, otherwise its place.
std::string subject_of(const Json& element, const char* kind, std::size_t place);

}  // namespace facturation
