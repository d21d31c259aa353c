// The rows of the reliability report: which method failed how, and what that left.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace atomicity {

/// An entry of methods.def.
struct Method {
  const wchar_t* class_name;
  const wchar_t* name;
  const char* leaves;  // null: everything is unchanged
};
const std::vector<Method>& methods();
/// The entry; null when the list has none.
const Method* method_named(std::wstring_view class_name, std::wstring_view name);

/// Notes a fault that was made to happen: what it left follows from `changed` and the method's entry.
void report(std::wstring_view class_name, std::wstring_view method, const std::string& fault,
            const std::string& code, bool changed);
/// Whether any fault of a method was reported; with `changed`, one that left traces.
bool was_reported(const Method& method, bool changed);

/// Writes the rows, in the order of methods.def, as piece 30-atomicity.
void write_report();

}  // namespace atomicity
