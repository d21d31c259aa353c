// The four functions that the DLL exports.
#include "automation/module.h"
#include "frame/class_factory.h"
#include "frame/registration.h"

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  const velmosav::CreatableClass* creatable = velmosav::find_class(clsid);
  if (!creatable) return CLASS_E_CLASSNOTAVAILABLE;
  return velmosav::create_class_factory(*creatable, iid, object);
}

STDAPI DllCanUnloadNow() { return velmosav::module::can_unload() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return velmosav::register_library(); }

STDAPI DllUnregisterServer() { return velmosav::unregister_library(); }
