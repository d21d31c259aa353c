#include "frame/class_factory.h"

#include <atomic>
#include <new>

#include "automation/com_ptr.h"
#include "automation/module.h"

namespace velmosav {
namespace {

class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const CreatableClass& creatable) noexcept : creatable_(creatable) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return references_.fetch_add(1) + 1; }

  ULONG STDMETHODCALLTYPE Release() noexcept override {
    const ULONG left = references_.fetch_sub(1) - 1;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    const auto created = ComPtr<IDispatch>::attach(creatable_.create());
    return created ? created->QueryInterface(iid, object) : E_OUTOFMEMORY;
  }

  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override {
    if (lock) {
      module::lock();
    } else {
      module::unlock();
    }
    return S_OK;
  }

 private:
  virtual ~ClassFactory() = default;

  const CreatableClass& creatable_;
  std::atomic<ULONG> references_{1};
  module::Reference module_reference_;
};

}  // namespace

HRESULT create_class_factory(const CreatableClass& creatable, REFIID iid, void** factory) noexcept {
  const auto created = ComPtr<IClassFactory>::attach(new (std::nothrow) ClassFactory(creatable));
  return created ? created->QueryInterface(iid, factory) : E_OUTOFMEMORY;
}

}  // namespace velmosav
