// A control as the library sees it: an automation object whose members are called by name.
#pragma once

#include <windows.h>
#include <ole2.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace galerie {

/// Belongs to its window, which outlives every call of the library.
class Control final : public IDispatch {
 public:
  using Arguments = std::vector<const VARIANT*>;  // in order
  using Getter = std::function<VARIANT(const Arguments&)>;
  using Setter = std::function<void(const VARIANT&)>;

  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  void add(const wchar_t* name, Getter getter, Setter setter = nullptr);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO*, UINT*) override;

 private:
  struct Member {
    const wchar_t* name;
    Getter getter;
    Setter setter;
  };
  std::vector<Member> members_;
};

VARIANT value(long number);
VARIANT value(std::wstring_view text);
VARIANT value(IDispatch* object);
VARIANT handle_value(HWND window);
long number_of(const VARIANT& value);
std::wstring text_of(const VARIANT& value);

}  // namespace galerie
