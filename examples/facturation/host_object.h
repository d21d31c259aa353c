// Base of the objects that this host lends to the library, which calls their members by name.
#pragma once

#include <windows.h>
#include <ole2.h>

#include <atomic>
#include <span>

namespace facturation {

class HostObject : public IDispatch {
 public:
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO*, UINT*) override;

 protected:
  /// A member's identifier is its place in the list, from 1.
  explicit HostObject(std::span<const wchar_t* const> members) : members_(members) {}
  virtual ~HostObject() = default;

  /// Answers a member; `result` is empty on entry.
  virtual HRESULT answer(DISPID member, std::span<VARIANTARG> arguments, VARIANT& result) = 0;

 private:
  std::span<const wchar_t* const> members_;
  std::atomic<ULONG> references_{1};
};

/// A result of type text.
HRESULT answer_text(const wchar_t* text, VARIANT& result);

}  // namespace facturation
