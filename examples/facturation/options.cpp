#include "options.h"

#include <windows.h>

#include <cwchar>

#include "console.h"
#include "dates.h"

namespace facturation {
namespace {

constexpr int kMaxRepeats = 100000;

std::filesystem::path program_folder() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return std::filesystem::path(path).parent_path();
    }
    path.resize(path.size() * 2);
  }
}

std::optional<int> positive_number(const std::wstring& text) {
  wchar_t* end = nullptr;
  const long value = std::wcstol(text.c_str(), &end, 10);
  if (end == text.c_str() || *end || value < 1 || value > kMaxRepeats) return std::nullopt;
  return static_cast<int>(value);
}

// The folder's own name is needed to stand beside it: "donnees/" and "." have none.
std::filesystem::path beside(const std::filesystem::path& folder) {
  std::filesystem::path full = std::filesystem::absolute(folder).lexically_normal();
  if (!full.has_filename()) full = full.parent_path();
  return full.parent_path() / L"factures";
}

}  // namespace

const char* const kUsage =
    R"(Usage : facturation [options] [DOSSIER]

Établit les factures XML des échéances de contrats et des interventions dues.

DOSSIER contient contrats.json, interventions.json (facultatif) et tva.json ;
par défaut, le dossier « donnees » placé près du programme.

  --date JJ/MM/AAAA   date de facturation (par défaut, celle de contrats.json)
  --sortie DOSSIER    dossier des factures (par défaut, « factures » à côté des données)
  --apercu            écrit aussi chaque facture en page HTML, près de son XML
  --repeter N         traite N fois les données, chaque fois pour d'autres clients
  --aide              affiche cette aide

Code de retour : 0 tout est traité ; 1 des données ont été refusées ;
2 rien n'a pu être fait, ou ligne de commande incorrecte.
)";

std::optional<Options> parse_options(const std::vector<std::wstring>& arguments, std::string& error) {
  Options options;
  const auto refuse = [&error](std::string message) {
    error = std::move(message);
    return std::nullopt;
  };
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::wstring& argument = arguments[i];
    const std::string shown = to_utf8(argument);
    if (argument == L"--aide") {
      options.aide = true;
      return options;
    }
    if (argument == L"--apercu") {
      options.feuille_de_style = program_folder() / L"facture.xsl";
    } else if (argument == L"--date" || argument == L"--sortie" || argument == L"--repeter") {
      if (++i == arguments.size()) return refuse("option " + shown + " : valeur manquante");
      const std::wstring& value = arguments[i];
      const std::string shown_value = "« " + to_utf8(value) + " »";
      if (argument == L"--date") {
        options.date = to_utf8(value);
        if (!parse_day(*options.date))
          return refuse("option --date : " + shown_value + " n'est pas une date (JJ/MM/AAAA attendu)");
      } else if (argument == L"--sortie") {
        if (value.empty()) return refuse("option --sortie : dossier manquant");
        options.sortie = value;
      } else {
        const std::optional<int> count = positive_number(value);
        if (!count)
          return refuse("option --repeter : " + shown_value + " n'est pas un nombre de 1 à " +
                        std::to_string(kMaxRepeats));
        options.repeter = *count;
      }
    } else if (argument.starts_with(L"-")) {
      return refuse("option inconnue : " + shown);
    } else if (!options.donnees.empty()) {
      return refuse("un seul dossier de données est attendu : « " + shown + " » est en trop");
    } else {
      options.donnees = argument;
    }
  }
  if (options.donnees.empty()) options.donnees = program_folder() / L"donnees";
  if (options.sortie.empty()) options.sortie = beside(options.donnees);
  return options;
}

}  // namespace facturation
