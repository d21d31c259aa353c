// The public variables of each class, with the values they have when an instance is created.
//
// A class that creates private instances of others reads theirs from `initial`: no host can reach such an
// instance, so its variables never change.
#pragma once

#include "constants/stored_constant.h"

namespace velmosav {

struct InterventionConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/Intervention.def"
};

struct PeriodiciteConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/Periodicite.def"
};

struct PlanningConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/Planning.def"
};

struct IntervDocConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/IntervDoc.def"
};

struct AchatVenteConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/AchatVente.def"
};

struct FinancContratConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/FinancContrat.def"
};

struct ContratDocConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/ContratDoc.def"
};

struct TvaRepartConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/TvaRepart.def"
};

struct ArticleConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/Article.def"
};

struct GeneralConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/General.def"
};

struct StatistiqueConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/Statistique.def"
};

struct PreferenceConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/Preference.def"
};

struct ModuleScrollConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/ModuleScroll.def"
};

struct ApiImprConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/ApiImpr.def"
};

struct SAVImprConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/SAVImpr.def"
};

struct SAVApiListeConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/SAVApiListe.def"
};

struct ClsDLLTradConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/ClsDLLTrad.def"
};

struct ApiSkinConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/ApiSkin.def"
};

struct ReconductionConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/Reconduction.def"
};

struct InvoiceXMLLibConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/InvoiceXMLLib.def"
};

struct ApiGeneralConstants {
#define CONSTANT(dispid, type, name, value, help) Stored##type m_##name{INITIAL_##type(value)};
#include "constants/ApiGeneral.def"
};

/// The variables of a private instance.
template <class Constants>
inline constexpr Constants initial{};

}  // namespace velmosav
