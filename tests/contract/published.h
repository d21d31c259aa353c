// What a host binds to, written out as the documentation of the library states it.
//
// These tables are kept by hand and share nothing with the lists that the library is built from: a member
// that moves, or a value that changes, shows here.
#pragma once

#include <optional>
#include <ostream>
#include <span>
#include <variant>
#include <vector>

namespace contract {

// The types of a class's public variables, each with the value at creation.
struct Byte {
  unsigned char value;
};
struct Integer {
  short value;
};
struct Long {
  long value;
};
struct Boolean {
  bool value;
};
struct Text {
  const wchar_t* value;
};
using Value = std::variant<Byte, Integer, Long, Boolean, Text>;

struct Constant {
  const wchar_t* name;
  Value initial;
};

/// Whether an argument may be left out, and what then stands for it.
struct Presence {
  bool optional = false;
  std::optional<int> standard;  // 0 also stands for the empty text
};
inline constexpr Presence required{};
inline constexpr Presence optional{true, std::nullopt};
constexpr Presence defaults_to(int number) { return {true, number}; }
constexpr Presence defaults_to(bool value) { return {true, value ? -1 : 0}; }
inline constexpr Presence defaults_to_empty{true, 0};

/// Types are named as in `type_text`: "I2", "BSTR", "Type_Bon*" (by reference), "array of VARIANT*".
struct Parameter {
  const wchar_t* name;
  const char* type;
  Presence presence = required;
};

struct Method {
  const wchar_t* name;
  std::vector<Parameter> parameters;
  const char* result = nullptr;
};

/// A class and the members of its interface, in their order: variables, then methods.
struct Class {
  const wchar_t* name;
  std::span<const Constant> constants;
  std::span<const Method> methods;
};

struct Field {
  const wchar_t* name;
  const char* type;
  std::size_t header_offset;  // as a C++ host sees it
  std::size_t header_size;
};

struct Record {
  const wchar_t* name;
  std::size_t header_size;
  std::vector<Field> fields;
};

struct Enumerator {
  const wchar_t* name;
  long value;
  long header_value;
};

struct Enumeration {
  const wchar_t* name;
  std::size_t header_size;
  std::vector<Enumerator> values;
};

/// The 31 classes, in the order of the catalogue.
const std::vector<Class>& classes();
const std::vector<Record>& records();
const std::vector<Enumeration>& enumerations();

std::ostream& operator<<(std::ostream& stream, const Class& entry);
std::ostream& operator<<(std::ostream& stream, const Record& record);
std::ostream& operator<<(std::ostream& stream, const Enumeration& enumeration);

}  // namespace contract
