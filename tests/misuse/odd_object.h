// Objects of a host that misbehaves: they know every name, and fail, answer Null or something else than what
// was asked, or turn against the library during the call.
#pragma once

#include <deque>

#include "misuse/dice.h"
#include "support/host.h"

namespace misuse {

using host::ComPtr;

/// What the objects ask of the call in progress.
class ObjectHost {
 public:
  virtual Dice& dice() = 0;
  /// A value that a well-meaning object has under that name, or any other one.
  virtual VARIANT plausible_value(std::wstring_view name) = 0;
  virtual VARIANT odd_value() = 0;
  /// Calls back into the library, or takes objects away from under it.
  virtual void disturb() = 0;
  /// Something that no caller may do to an object.
  virtual void report(const char* finding) = 0;

 protected:
  ~ObjectHost() = default;
};

/// Lives in its pool even when nobody holds it any more, so that a use after the last release is seen.
class OddObject final : public IDispatch {
 public:
  explicit OddObject(ObjectHost& host) : host_(&host) {}
  virtual ~OddObject() = default;

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
  bool alive(const char* use);
  HRESULT raise(EXCEPINFO* exception);

  ObjectHost* host_;
  long references_ = 1;
};

/// The objects of one call.
class ObjectPool {
 public:
  explicit ObjectPool(ObjectHost& host) : host_(host) {}

  /// A new object, held once for the caller; null when the call has enough of them.
  IDispatch* make();
  /// References that are still held when they all should be gone.
  [[nodiscard]] long outstanding() const;

 private:
  ObjectHost& host_;
  std::deque<OddObject> objects_;
};

}  // namespace misuse
