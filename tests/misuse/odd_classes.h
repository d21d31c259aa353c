// Classes of the host's other components: while a call is in progress their objects are its odd ones.
#pragma once

#include <string>

#include "misuse/generated_call.h"

namespace misuse {

/// One such class, in the place of any that is registered.
class OddClass final : public IClassFactory {
 public:
  OddClass(const CLSID& clsid, GeneratedCall* const& call);
  ~OddClass() { CoRevokeClassObject(place_); }
  OddClass(const OddClass&) = delete;
  OddClass& operator=(const OddClass&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  GeneratedCall* const& call_;
  DWORD place_ = 0;
};

/// The popup menu, which would wait for the user, and the link of a host's translation.
class OddClasses {
 public:
  OddClasses();
  ~OddClasses();
  OddClasses(const OddClasses&) = delete;
  OddClasses& operator=(const OddClasses&) = delete;

  /// The call in progress.
  GeneratedCall* call = nullptr;

 private:
  CLSID link_id_;
  OddClass menu_, link_;
};

}  // namespace misuse
