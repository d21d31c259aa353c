// A late-bound call as a client makes it, argument by argument.
//
//   const Outcome outcome = Invocation(outil, L"DLL_GetAmountTTCByHT").pass(20.0).pass(100.0).run();
#pragma once

#include "support/arguments.h"

namespace host {

/// What came of a call.
struct Outcome {
  static constexpr UINT kNoArgument = 99;

  HRESULT code = S_OK;
  Variant result;
  HRESULT scode = S_OK;  // of the EXCEPINFO, as its texts
  std::wstring source;
  std::wstring description;
  UINT bad_argument = kNoArgument;  // place in rgvarg: the last argument is 0

  [[nodiscard]] double number() const;      // the result, which must be a Double
  [[nodiscard]] std::wstring text() const;  // the result, which must be a text
};

/// The arguments are borrowed: what they own or refer to lives until the call is over.
class Invocation {
 public:
  Invocation(IDispatch* object, const wchar_t* member);
  Invocation(IDispatch* object, DISPID member);

  Invocation& flags(WORD flags);
  /// The next argument in order.
  Invocation& pass(const VARIANT& argument);
  Invocation& pass(const Variant& argument) { return pass(argument.get()); }
  Invocation& pass(double number) { return pass(Variant(number).get()); }
  /// An argument by the name of its parameter, or by the parameter's number.
  Invocation& pass_named(const wchar_t* parameter, const VARIANT& argument);
  Invocation& pass_named(DISPID parameter, const VARIANT& argument);
  /// The client asks for no EXCEPINFO, no argument index or no result.
  Invocation& without_exception();
  Invocation& without_argument_index();
  Invocation& without_result();

  Outcome run();
  /// An argument passed in order, as it stands now.
  [[nodiscard]] const VARIANT& argument(std::size_t place) const { return positional_[place]; }

 private:
  IDispatch* object_;
  std::wstring member_;
  DISPID id_ = DISPID_UNKNOWN;
  WORD flags_ = DISPATCH_METHOD;
  std::vector<VARIANT> positional_, named_;
  std::vector<DISPID> names_;
  bool wants_exception_ = true, wants_index_ = true, wants_result_ = true;
};

}  // namespace host
