// The classes that only publish constants.
#include <new>

#include "object/class_object.h"

namespace velmosav {
namespace {

// Values that are made of others: whoever changes one of the lists sees here which go with it.
static_assert(initial<PlanningConstants>.m_PC_FirstModePl == initial<PlanningConstants>.m_PC_ModeDocument);
static_assert(initial<PlanningConstants>.m_PC_LastModePl == initial<PlanningConstants>.m_PC_ModeRessource);
static_assert(initial<ModuleScrollConstants>.m_LargeurMini ==
              2 * initial<ModuleScrollConstants>.m_MARGEHORIZ + 15);

class Planning final : public ClassObject<::_Planning> {
 public:
#include "object/constant_properties.h"
#include "constants/Planning.def"

 private:
  PlanningConstants constants_;
};

class IntervDoc final : public ClassObject<::_IntervDoc> {
 public:
#include "object/constant_properties.h"
#include "constants/IntervDoc.def"

 private:
  IntervDocConstants constants_;
};

class AchatVente final : public ClassObject<::_AchatVente> {
 public:
#include "object/constant_properties.h"
#include "constants/AchatVente.def"

 private:
  AchatVenteConstants constants_;
};

class FinancContrat final : public ClassObject<::_FinancContrat> {
 public:
#include "object/constant_properties.h"
#include "constants/FinancContrat.def"

 private:
  FinancContratConstants constants_;
};

class Article final : public ClassObject<::_Article> {
 public:
#include "object/constant_properties.h"
#include "constants/Article.def"

 private:
  ArticleConstants constants_;
};

class Statistique final : public ClassObject<::_Statistique> {
 public:
#include "object/constant_properties.h"
#include "constants/Statistique.def"

 private:
  StatistiqueConstants constants_;
};

class Preference final : public ClassObject<::_Preference> {
 public:
#include "object/constant_properties.h"
#include "constants/Preference.def"

 private:
  PreferenceConstants constants_;
};

class ModuleScroll final : public ClassObject<::_ModuleScroll> {
 public:
#include "object/constant_properties.h"
#include "constants/ModuleScroll.def"

 private:
  ModuleScrollConstants constants_;
};

class ApiImpr final : public ClassObject<::_ApiImpr> {
 public:
#include "object/constant_properties.h"
#include "constants/ApiImpr.def"

 private:
  ApiImprConstants constants_;
};

class SAVImpr final : public ClassObject<::_SAVImpr> {
 public:
#include "object/constant_properties.h"
#include "constants/SAVImpr.def"

 private:
  SAVImprConstants constants_;
};

class SAVApiListe final : public ClassObject<::_SAVApiListe> {
 public:
#include "object/constant_properties.h"
#include "constants/SAVApiListe.def"

 private:
  SAVApiListeConstants constants_;
};

class ApiSkin final : public ClassObject<::_ApiSkin> {
 public:
#include "object/constant_properties.h"
#include "constants/ApiSkin.def"

 private:
  ApiSkinConstants constants_;
};

}  // namespace

IDispatch* create_Planning() { return new (std::nothrow) Planning; }
IDispatch* create_IntervDoc() { return new (std::nothrow) IntervDoc; }
IDispatch* create_AchatVente() { return new (std::nothrow) AchatVente; }
IDispatch* create_FinancContrat() { return new (std::nothrow) FinancContrat; }
IDispatch* create_Article() { return new (std::nothrow) Article; }
IDispatch* create_Statistique() { return new (std::nothrow) Statistique; }
IDispatch* create_Preference() { return new (std::nothrow) Preference; }
IDispatch* create_ModuleScroll() { return new (std::nothrow) ModuleScroll; }
IDispatch* create_ApiImpr() { return new (std::nothrow) ApiImpr; }
IDispatch* create_SAVImpr() { return new (std::nothrow) SAVImpr; }
IDispatch* create_SAVApiListe() { return new (std::nothrow) SAVApiListe; }
IDispatch* create_ApiSkin() { return new (std::nothrow) ApiSkin; }

}  // namespace velmosav
