// An object of the host, scripted by a test: members by name, and the order in which they were used.
#pragma once

#include <functional>
#include <map>

#include "support/host.h"

namespace host {

/// Members answer through functions; an unknown name answers DISP_E_UNKNOWNNAME.
///
///   auto table = FakeObject::make();
///   table->on_get(L"FormatTVA", [](auto&) { return text_value(L"M"); });
class FakeObject final : public IDispatch {
 public:
  using Arguments = std::vector<VARIANT>;  // in order, dereferenced
  using Getter = std::function<Variant(const Arguments&)>;
  using Setter = std::function<void(const VARIANT&)>;
  /// Thrown by a member: the call answers DISP_E_EXCEPTION with these. The number is for a code of S_OK.
  struct Error {
    HRESULT code;
    std::wstring source;
    std::wstring description;
    WORD number = 0;
  };
  /// Thrown by a member: the call answers this code itself.
  struct Refusal {
    HRESULT code;
  };

  static ComPtr<FakeObject> make();

  void on_get(std::wstring name, Getter getter);
  void on_put(std::wstring name, Setter setter);
  /// A property that reads what was last put, starting with `initial`.
  void property(std::wstring name, Variant initial);
  /// The last value of such a property.
  [[nodiscard]] const VARIANT& value(const std::wstring& name) const;

  /// Uses so far: "get Width", "put Width", "call Name(2)".
  std::vector<std::wstring> log;
  [[nodiscard]] long references() const { return references_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) override;

 private:
  FakeObject() = default;
  virtual ~FakeObject() = default;

  struct Member {
    Getter getter;
    Setter setter;
    Variant stored;
  };
  Member& member(const std::wstring& name);

  std::vector<std::wstring> names_;
  std::map<std::wstring, Member> members_;
  long references_ = 1;
};

}  // namespace host
