// The four functions that the DLL exports.
#include "automation/module.h"
#include "frame/class_factory.h"
#include "popup_menu_object.h"
#include "registration.h"

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
  static constexpr velmosav::ClassIdentity identity{popupmenu::kProgId, popupmenu::kClass, IID_IDispatch};
  static constexpr velmosav::CreatableClass creatable{identity, &popupmenu::create_popup_menu};
  if (!object) return E_POINTER;
  *object = nullptr;
  if (clsid != popupmenu::kClass) return CLASS_E_CLASSNOTAVAILABLE;
  return velmosav::create_class_factory(creatable, iid, object);
}

STDAPI DllCanUnloadNow() { return velmosav::module::can_unload() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return popupmenu::register_component(); }

STDAPI DllUnregisterServer() { return popupmenu::unregister_component(); }
