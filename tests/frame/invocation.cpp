#include "frame/invocation.h"

#include <algorithm>

namespace host {
namespace {

/// The text of an EXCEPINFO, which the client frees.
std::wstring taken(BSTR text) {
  const Bstr owner = Bstr::attach(text);
  return std::wstring(owner.view());
}

}  // namespace

double Outcome::number() const {
  EXPECT_EQ(S_OK, code);
  EXPECT_EQ(VT_R8, result.get().vt);
  return result.get().dblVal;
}

std::wstring Outcome::text() const {
  EXPECT_EQ(S_OK, code);
  EXPECT_EQ(VT_BSTR, result.get().vt);
  return result.get().vt == VT_BSTR ? host::get(result.get().bstrVal) : L"";
}

Invocation::Invocation(IDispatch* object, const wchar_t* member) : object_(object), member_(member) {
  auto* name = const_cast<wchar_t*>(member);
  EXPECT_EQ(S_OK, object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id_)) << utf8(member);
}

Invocation::Invocation(IDispatch* object, DISPID member) : object_(object), id_(member) {}

Invocation& Invocation::flags(WORD flags) {
  flags_ = flags;
  return *this;
}

Invocation& Invocation::pass(const VARIANT& argument) {
  positional_.push_back(argument);
  return *this;
}

Invocation& Invocation::pass_named(const wchar_t* parameter, const VARIANT& argument) {
  wchar_t* names[] = {member_.data(), const_cast<wchar_t*>(parameter)};
  DISPID ids[2] = {};
  EXPECT_EQ(S_OK, object_->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids)) << utf8(parameter);
  return pass_named(ids[1], argument);
}

Invocation& Invocation::pass_named(DISPID parameter, const VARIANT& argument) {
  named_.push_back(argument);
  names_.push_back(parameter);
  return *this;
}

Invocation& Invocation::without_exception() {
  wants_exception_ = false;
  return *this;
}

Invocation& Invocation::without_argument_index() {
  wants_index_ = false;
  return *this;
}

Invocation& Invocation::without_result() {
  wants_result_ = false;
  return *this;
}

Outcome Invocation::run() {
  // Named arguments first, then the others, last first.
  std::vector<VARIANT> arguments = named_;
  arguments.insert(arguments.end(), positional_.rbegin(), positional_.rend());
  DISPPARAMS parameters{arguments.data(), names_.data(), static_cast<UINT>(arguments.size()),
                        static_cast<UINT>(names_.size())};
  Outcome outcome;
  EXCEPINFO exception{};
  outcome.code = object_->Invoke(id_, IID_NULL, LOCALE_USER_DEFAULT, flags_, &parameters,
                                 wants_result_ ? outcome.result.receive() : nullptr,
                                 wants_exception_ ? &exception : nullptr,
                                 wants_index_ ? &outcome.bad_argument : nullptr);
  std::copy(arguments.rbegin(), arguments.rbegin() + static_cast<std::ptrdiff_t>(positional_.size()),
            positional_.begin());
  outcome.scode = exception.scode;
  outcome.source = taken(exception.bstrSource);
  outcome.description = taken(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  return outcome;
}

}  // namespace host
