// The French label of a recurrence rule.
#include <string>
#include <vector>

#include "automation/number_text.h"
#include "dates/recurrence.h"

namespace velmosav {
namespace {

constexpr std::wstring_view kOrdinals = L"&Premier;&Deuxième;&Troisième;&Quatrième;De&rnier;#F";
constexpr std::wstring_view kMonths =
    L"&Janvier;&Février;&Mars;&Avril;Ma&i;J&uin;Jui&llet;A&oût;&Septembre;O&ctobre;&Novembre;&Décembre;#F";

/// The items of a list text that have a key: their keys side by side, their names.
struct ListItems {
  std::wstring keys;
  std::vector<std::wstring> names;
};

ListItems read_list(std::wstring_view list, bool remove_mark) {
  ListItems items;
  for (std::size_t end = list.find(L';'); end != std::wstring_view::npos; end = list.find(L';')) {
    const std::wstring_view item = trim(list.substr(0, end));
    list = trim(list.substr(end + 1));
    if (item == L"#F") continue;
    const std::size_t mark = item.find(L'&');
    const std::size_t letter = mark == std::wstring_view::npos ? 0 : mark + 1;
    if (letter >= item.size()) continue;  // no key selects it
    items.keys.push_back(item[letter]);
    std::wstring name(item);
    if (remove_mark && mark != std::wstring_view::npos) name.erase(mark, 1);
    items.names.push_back(std::move(name));
  }
  items.keys = upper(items.keys).view();
  return items;
}

/// "N " when N is more than 1.
std::wstring interval(short every) {
  if (every <= 1) return {};
  return std::wstring(whole_number_text(every).view()) + L" ";
}

struct RuleNames {
  Bstr ordinal, days, months;
};

std::wstring monthly_tail(const Type_Periodicite& rule, std::wstring_view months) {
  if (rule.TousLes >= 1) return L", tous les " + interval(rule.TousLes) + L"mois";
  if (is_blank(view(rule.Mois))) return {};
  const std::wstring_view link = view(rule.Mois).size() == 1 ? L" " : L", les mois de ";
  return std::wstring(link).append(months);
}

std::wstring monthly_label(const Type_Periodicite& rule, const RuleNames& names) {
  std::wstring label = L"Le ";
  if (rule.Chaque < 1) {
    label.append(names.ordinal.view()).append(L" ").append(names.days.view());
  } else {
    label.append(whole_number_text(rule.Chaque).view());
  }
  return label + monthly_tail(rule, names.months.view());
}

std::wstring yearly_label(const Type_Periodicite& rule, const RuleNames& names) {
  std::wstring label;
  if (rule.Chaque < 1) {
    label.append(L"Le ").append(names.ordinal.view()).append(L" ").append(names.days.view()).append(L" de ");
  } else {
    label.append(L"Chaque ").append(whole_number_text(rule.Chaque).view()).append(L" ");
  }
  return label.append(names.months.view()) + L", toutes les " + interval(rule.TousLes) + L"années";
}

}  // namespace

Bstr selected_names(std::wstring_view keys, std::wstring_view list, bool remove_mark) {
  const ListItems items = read_list(list, remove_mark);
  const Bstr wanted = upper(keys);
  std::wstring result;
  for (const wchar_t key : wanted.view()) {
    const std::size_t place = items.keys.find(key);
    if (place == std::wstring::npos) continue;
    if (!is_blank(result)) result.append(L", ");
    result.append(items.names[place]);
  }
  return Bstr(result);
}

Bstr rule_label(const PeriodiciteConstants& constants, const Type_Periodicite& rule) {
  const std::wstring_view kind = view(rule.Periodicite);
  const RuleNames names{selected_names(view(rule.Le), kOrdinals, true),
                        selected_names(view(rule.Jour), constants.m_c_sWeekDayfmt, true),
                        selected_names(view(rule.Mois), kMonths, true)};
  if (kind == constants.m_c_sPeriod_Quotid.view())
    return Bstr(L"Tous les " + interval(rule.TousLes) + L"jours");
  if (kind == constants.m_c_sPeriod_Hebdo.view()) {
    // A number stands between two blanks here, unlike in the other kinds.
    const std::wstring every = rule.TousLes > 1 ? L" " + interval(rule.TousLes) : std::wstring();
    return Bstr(std::wstring(names.days.view()) + L", toutes les " + every + L"semaines");
  }
  if (kind == constants.m_c_sPeriod_Mens.view()) return Bstr(monthly_label(rule, names));
  if (kind == constants.m_c_sPeriod_Annuel.view()) return Bstr(yearly_label(rule, names));
  return Bstr(L"");
}

}  // namespace velmosav
