#include "program.h"

#include "campaign.h"
#include "console.h"
#include "dates.h"
#include "options.h"
#include "summary.h"

namespace facturation {
namespace {

std::string plural(std::size_t count, const std::string& one, const std::string& many) {
  return std::to_string(count) + " " + (count > 1 ? many : one);
}

void report(const Campaign& campaign, const InvoiceWriter& writer, const Options& options,
            const std::string& date) {
  if (!campaign.contract_lines().empty())
    print("Échéanciers\n\n" + contracts_text(campaign.contract_lines()) + "\n");
  if (!campaign.time_lines().empty()) print("Temps passés\n\n" + times_text(campaign.time_lines()) + "\n");
  if (writer.invoices().empty()) {
    print("Aucune facture à la date du " + date + ".\n");
  } else {
    print("Facturation du " + date + "\n\n" + table_text(writer.invoices()) + "\nFactures écrites dans " +
          to_utf8(options.sortie.wstring()) + "\n");
  }
  if (campaign.unticked())
    print(plural(campaign.unticked(), "ligne due laissée de côté", "lignes dues laissées de côté") +
          " (contrat suspendu, ou intervention entièrement prise en charge)\n");
}

int invoice(const Options& options) {
  Progress* shown_progress = nullptr;
  Problems problems([&](const std::string& line) {
    if (shown_progress) shown_progress->wipe();
    print_error(line);
  });
  if (!session_is_day_first()) {
    print_error("Les réglages régionaux de cette session ne lisent pas les dates jour en premier.\n");
    return kNothingDone;
  }
  const std::optional<Input> input = read_input(options.donnees, problems);
  if (!input) return kNothingDone;
  const std::size_t documents = input->contrats.size() + input->interventions.size();
  if (documents == 0) {
    print_error("Aucun contrat ni aucune intervention à traiter.\n");
    return kNothingDone;
  }
  const std::string date = options.date.value_or(input->date_facturation);
  if (date.empty()) {
    problems.add(kContratsFile, "", "dateFacturation", "date manquante, et pas d'option --date");
    return kNothingDone;
  }

  const Apartment apartment;
  Library library;
  std::filesystem::create_directories(options.sortie);
  const ComPtr<VatTable> table = VatTable::make(input->tva);
  std::optional<Preview> preview;
  if (!options.feuille_de_style.empty()) preview.emplace(options.feuille_de_style);
  InvoiceWriter writer(library, *table.get(), problems, options.sortie, date, preview ? &*preview : nullptr);
  Progress progress(2 * documents * static_cast<std::size_t>(options.repeter));
  shown_progress = &progress;
  Campaign campaign(*input, library, *table.get(), problems, progress, writer, *parse_day(date));
  campaign.run(options.repeter);
  progress.wipe();
  report(campaign, writer, options, date);
  if (campaign.built() == 0) return kNothingDone;
  return problems.count() ? kSomeRefused : kDone;
}

}  // namespace

int run(const std::vector<std::wstring>& arguments) {
  const Utf8Console console;
  std::string error;
  const std::optional<Options> options = parse_options(arguments, error);
  if (!options) {
    print_error(error + "\nL'option --aide affiche le mode d'emploi.\n");
    return kNothingDone;
  }
  if (options->aide) {
    print(kUsage);
    return kDone;
  }
  try {
    return invoice(*options);
  } catch (const std::filesystem::filesystem_error& failure) {
    print_error("Dossier inaccessible : " + to_utf8(failure.path1().wstring()) + "\n");
  } catch (const std::bad_alloc&) {
    print_error("Mémoire insuffisante.\n");
  } catch (const std::exception& failure) {
    print_error(std::string("Échec : ") + failure.what() + "\n");
  }
  return kNothingDone;
}

}  // namespace facturation
