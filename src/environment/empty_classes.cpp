// The classes that publish nothing: they can be created, and that is all.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

class Adresses final : public ClassObject<::_Adresses> {
 public:
};

class Preavis final : public ClassObject<::_Preavis> {
 public:
};

class TPF final : public ClassObject<::_TPF> {
 public:
};

class Garantie final : public ClassObject<::_Garantie> {
 public:
};

class cToolTip2 final : public ClassObject<::_cToolTip2> {
 public:
};

}  // namespace

IDispatch* create_Adresses() { return new (std::nothrow) Adresses; }
IDispatch* create_Preavis() { return new (std::nothrow) Preavis; }
IDispatch* create_TPF() { return new (std::nothrow) TPF; }
IDispatch* create_Garantie() { return new (std::nothrow) Garantie; }
IDispatch* create_cToolTip2() { return new (std::nothrow) cToolTip2; }

}  // namespace velmosav
