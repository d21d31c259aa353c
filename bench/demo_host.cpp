// The demonstration host (examples/facturation) from its data files to its invoice files, beside the DOM work
// that these invoices need.
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "dom.h"
#include "facturation/console.h"
#include "facturation/program.h"
#include "facturation/schedule.h"
#include "works.h"

namespace bench {
namespace {

constexpr int kCustomers = 1000;
constexpr int kInstalments = 10;
constexpr const char* kDay = "31/12/2026";
/// Customers under one VAT code take turns with customers under two.
constexpr int kKinds = 2;

std::string number_of(int customer) { return std::to_string(10000 + customer); }

/// A contract billed each month, ten times until the invoicing day.
std::string contract_json(int customer) {
  const std::string number = number_of(customer);
  const char* const vat = customer % kKinds == 0 ? R"("codeTva": 1)" : R"("repartitionTva": "1@40@2@60@")";
  return R"({"code": "CT)" + number + R"(", "libelle": "Entretien de la chaufferie collective",
  "client": "CL)" +
         number + R"(", "nomClient": "Copropriété )" + number + R"(", "vendeur": "VD01",
  "modeReglement": "VIR30", "compte": "706100", "libelleFacture": "Entretien de la chaufferie, forfait P2",
  "dateDebut": "01/03/2026", "duree": 10, "uniteDuree": "mois", "facturation": "mensuelle",
  "terme": "debut", "tarif": "HT", "montantEcheance": 412.5, )" +
         vat + R"(,
  "adresse": {"numero": 1, "nom": "Résidence )" +
         number + R"(", "interlocuteur": "Mme Hélène Garnier",
    "adresse": "14 rue des Tilleuls", "complement": "Bâtiment B", "codePostal": "69003", "ville": "Lyon",
    "telephone": "04 78 00 11 22", "email": "syndic@exemple.example"}})";
}

constexpr const char* kVatJson = R"({
  "formatTVA": "1 Taux normal;2 Taux intermédiaire;99 Plusieurs codes;#F",
  "formatTVANonMulti": "1 Taux normal;2 Taux intermédiaire;#F",
  "codes": [
    {"code": 1, "libelle": "Taux normal", "taux": 20, "compte": "445711", "compteEnc": "445741"},
    {"code": 2, "libelle": "Taux intermédiaire", "taux": 10, "compte": "445712", "compteEnc": "445742"}]})";

std::string read_file(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void expect(bool right, const char* what) {
  if (!right) must(E_FAIL, what);
}

/// What the program prints goes nowhere while this lives.
class Silence {
 public:
  Silence()
      : nowhere_(CreateFileW(L"NUL", GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr)),
        output_(GetStdHandle(STD_OUTPUT_HANDLE)) {
    SetStdHandle(STD_OUTPUT_HANDLE, nowhere_);
  }
  ~Silence() {
    SetStdHandle(STD_OUTPUT_HANDLE, output_);
    CloseHandle(nowhere_);
  }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

 private:
  HANDLE nowhere_;
  HANDLE output_;
};

/// The program with its data: customers with one contract each, all of whose instalments are due.
class DemoHost {
 public:
  explicit DemoHost(int customers)
      : customers_(customers),
        folder_(
            std::filesystem::temp_directory_path() /
            ("velmosav-bench-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(customers))) {
    std::filesystem::create_directories(data());
    std::ofstream(data() / "tva.json", std::ios::binary) << kVatJson;
    std::ofstream contracts(data() / "contrats.json", std::ios::binary);
    contracts << R"({"dateFacturation": ")" << kDay << R"(", "racinesComptes": "704;706", "contrats": [)";
    for (int customer = 0; customer < customers; ++customer)
      contracts << (customer ? ",\n" : "\n") << contract_json(customer);
    contracts << "]}";
  }
  DemoHost(const DemoHost&) = delete;
  DemoHost& operator=(const DemoHost&) = delete;
  ~DemoHost() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  [[nodiscard]] std::filesystem::path data() const { return folder_ / "donnees"; }
  [[nodiscard]] std::filesystem::path invoices() const { return folder_ / "factures"; }

  /// The whole program; the invoices of the run before are not there any more.
  [[nodiscard]] Operation operation() const {
    return {[this] {
              const Silence silence;
              expect(facturation::run({data().wstring(), L"--sortie", invoices().wstring()}) ==
                         facturation::kDone,
                     "facturation");
            },
            [this] { std::filesystem::remove_all(invoices()); }};
  }

  /// The texts of an invoice: its header, then what each instalment makes of it. Compared with the file.
  [[nodiscard]] std::vector<host::Text> texts_of(int customer) const {
    facturation::Problems problems([](const std::string& line) { std::fputs(line.c_str(), stderr); });
    const auto input = facturation::read_input(data(), problems);
    expect(input.has_value(), "read_input");
    facturation::Library library;
    const auto table = facturation::VatTable::make(input->tva);
    long key = customer * kInstalments + 1;
    const auto document = facturation::build_contract(input->contrats.at(static_cast<std::size_t>(customer)),
                                                      library, *table.get(), key);
    const std::string code = "FA2026-000" + std::to_string(customer + 1);
    const facturation::Text label("Facturation du " + std::string(kDay) + "\r\n" +
                                  document->input.nom_client);
    facturation::Text xml =
        library.head(document->record, label, facturation::Text(code), facturation::Text(kDay));
    std::vector<host::Text> texts;
    texts.emplace_back(xml.view());
    short line = 0;
    for (short i = 0; i < kInstalments; ++i) {
      xml = library.add(document->record, i, xml, table->pointer(), line);
      texts.emplace_back(xml.view());
    }
    const std::string written =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n" + facturation::to_utf8(xml.view()) + "\r\n";
    expect(read_file(invoices() / (code + ".xml")) == written, "texts of the invoice");
    return texts;
  }

  [[nodiscard]] int customers() const { return customers_; }

 private:
  int customers_;
  std::filesystem::path folder_;
};

/// An invoice made with nothing but the DOM, call by call as the library is called: the header in an empty
/// document; for each instalment a document that loads the text before, the selection of its top element, the
/// new rows. Each text is written out, and is the library's.
class DomInvoice {
 public:
  DomInvoice(const BareDom& dom, std::vector<host::Text> texts) : dom_(&dom), texts_(std::move(texts)) {
    std::size_t known = 0;
    for (const host::Text& text : texts_) {
      steps_.push_back(dom_->load(text).elements_from(known));
      known += steps_.back().size();
    }
    for (std::size_t step = 0; step < steps_.size(); ++step) {
      // The outer blanks that the DOM writes are taken off by the library.
      expect(trimmed(make(step)) == texts_[step].str(), "text made by the DOM");
    }
  }

  void work() const {
    for (std::size_t step = 0; step < steps_.size(); ++step) const host::Text written = make(step);
  }

 private:
  [[nodiscard]] host::Text make(std::size_t step) const {
    const LoadedInvoice invoice = step == 0 ? dom_->create() : dom_->load(texts_[step - 1]);
    for (const Element& element : steps_[step]) invoice.append(element);
    return invoice.serialise();
  }

  static std::wstring trimmed(const host::Text& text) {
    const std::wstring all = text.str();
    return all.substr(0, all.find_last_not_of(L' ') + 1);
  }

  const BareDom* dom_;
  std::vector<host::Text> texts_;
  std::vector<std::vector<Element>> steps_;
};

}  // namespace

void measure_demo_host(Bench& bench) {
  if (!bench.wants("demo-host")) return;
  const DemoHost demo(kCustomers);
  const Operation program = demo.operation();
  program.prepare();
  program.run();
  const BareDom dom;
  std::vector<DomInvoice> kinds;
  for (int kind = 0; kind < kKinds; ++kind) kinds.emplace_back(dom, demo.texts_of(kind));
  bench.compare("demo-host", program, {[&] {
                  for (int customer = 0; customer < demo.customers(); ++customer)
                    kinds[static_cast<std::size_t>(customer % kKinds)].work();
                }});
}

}  // namespace bench
