#include "json_input.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>

#include "dates.h"

namespace facturation {
namespace {

const char* kind_of(const Json& value) {
  switch (value.type()) {
    case Json::value_t::string:
      return "texte";
    case Json::value_t::boolean:
      return "booléen";
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned:
    case Json::value_t::number_float:
      return "nombre";
    case Json::value_t::array:
      return "liste";
    case Json::value_t::object:
      return "objet";
    default:
      return "valeur nulle";
  }
}

std::string place_in(const std::string& content, std::size_t byte) {
  const std::size_t end = std::min(byte ? byte - 1 : 0, content.size());
  const auto begin = content.begin();
  const auto stop = begin + static_cast<std::ptrdiff_t>(end);
  const auto line = std::count(begin, stop, '\n') + 1;
  const std::size_t line_start = end ? content.rfind('\n', end - 1) : std::string::npos;
  const std::size_t column = line_start == std::string::npos ? end + 1 : end - line_start;
  return "ligne " + std::to_string(line) + ", colonne " + std::to_string(column);
}

// XML cannot carry them.
bool has_control_character(const std::string& text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 && c != '\t' && c != '\r' && c != '\n';
  });
}

std::string plain(double value) {
  std::string text = Json(value).dump();
  if (text.ends_with(".0")) text.resize(text.size() - 2);
  std::replace(text.begin(), text.end(), '.', ',');
  return text;
}

}  // namespace

std::optional<Json> load_json(const std::filesystem::path& path, std::string_view file, Problems& problems) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) {
    problems.add(file, "fichier absent ou illisible");
    return std::nullopt;
  }
  const std::string content{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  try {
    Json document = Json::parse(content);
    if (document.is_object()) return document;
    problems.add(file, std::string("objet attendu en tête de fichier, trouvé : ") + kind_of(document));
  } catch (const Json::parse_error& error) {
    problems.add(file, "JSON mal formé, " + place_in(content, error.byte));
  } catch (const Json::exception&) {
    problems.add(file, "JSON mal formé : nombre hors limites");
  }
  return std::nullopt;
}

FieldReader::FieldReader(const Json& object, std::string_view file, std::string subject, Problems& problems,
                         std::string prefix)
    : object_(object),
      file_(file),
      subject_(std::move(subject)),
      prefix_(std::move(prefix)),
      problems_(problems),
      problems_before_(problems.count()) {}

bool FieldReader::has(const char* field) const {
  const auto found = object_.find(field);
  return found != object_.end() && !found->is_null();
}

void FieldReader::refuse(std::string_view field, std::string_view message) {
  problems_.add(file_, subject_, prefix_ + std::string(field), message);
}

FieldReader FieldReader::inside(const Json& object, std::string prefix) const {
  return FieldReader(object, file_, subject_, problems_, prefix_ + prefix);
}

const Json* FieldReader::find(const char* field, Need need, const char* missing) {
  asked_.insert(field);
  if (has(field)) return &object_.at(field);
  if (need == Need::Required) refuse(field, missing);
  return nullptr;
}

bool FieldReader::expect(bool right, const char* field, const char* expected, const Json& value) {
  if (!right) refuse(field, std::string(expected) + ", trouvé : " + kind_of(value));
  return right;
}

std::string FieldReader::text(const char* field, Need need) {
  constexpr const char* kMissing = "texte manquant";
  const Json* value = find(field, need, kMissing);
  if (!value || !expect(value->is_string(), field, "texte attendu", *value)) return {};
  const auto& text = value->get_ref<const std::string&>();
  const bool blank = text.find_first_not_of(' ') == std::string::npos;
  if (blank && need == Need::Required) refuse(field, kMissing);
  if (has_control_character(text)) refuse(field, "caractère de commande interdit");
  return text;
}

double FieldReader::number(const char* field, Need need, Range range, double absent) {
  const Json* value = find(field, need, "nombre manquant");
  if (!value || !expect(value->is_number(), field, "nombre attendu", *value)) return absent;
  const auto number = value->get<double>();
  if (number >= range.low && number <= range.high) return number;
  refuse(field, plain(number) + " n'est pas compris entre " + plain(range.low) + " et " + plain(range.high));
  return absent;
}

int FieldReader::integer(const char* field, Need need, int low, int high, int absent) {
  const Json* value = find(field, need, "nombre manquant");
  if (!value || !expect(value->is_number(), field, "nombre entier attendu", *value)) return absent;
  const auto number = value->get<double>();
  if (number == std::floor(number) && number >= low && number <= high) return static_cast<int>(number);
  refuse(field, plain(number) + " n'est pas un nombre entier de " + std::to_string(low) + " à " +
                    std::to_string(high));
  return absent;
}

std::string FieldReader::date(const char* field, Need need) {
  constexpr const char* kMissing = "date manquante";
  const Json* value = find(field, need, kMissing);
  if (!value || !expect(value->is_string(), field, "date attendue", *value)) return {};
  const auto& text = value->get_ref<const std::string&>();
  if (text.find_first_not_of(' ') == std::string::npos) {
    if (need == Need::Required) refuse(field, kMissing);
    return {};
  }
  if (!parse_day(text)) {
    refuse(field, "« " + text + " » n'est pas une date (JJ/MM/AAAA attendu)");
  } else if (!survives_two_digits(text)) {
    refuse(field, "« " + text + " » : une année sur deux chiffres serait relue dans un autre siècle");
  } else {
    return text;
  }
  return {};
}

bool FieldReader::flag(const char* field) {
  const Json* value = find(field, Need::Optional, "");
  return value && expect(value->is_boolean(), field, "true ou false attendu", *value) && value->get<bool>();
}

int FieldReader::choice(const char* field, Need need, std::initializer_list<const char*> names, int absent) {
  const Json* value = find(field, need, "texte manquant");
  if (!value || !expect(value->is_string(), field, "texte attendu", *value)) return absent;
  const auto& text = value->get_ref<const std::string&>();
  int place = 0;
  std::string known;
  for (const char* name : names) {
    if (text == name) return place;
    known += (place++ ? ", " : "") + std::string(name);
  }
  refuse(field, "« " + text + " » inconnu (" + known + ")");
  return absent;
}

const Json* FieldReader::object(const char* field, Need need) {
  const Json* value = find(field, need, "objet manquant");
  return value && expect(value->is_object(), field, "objet attendu", *value) ? value : nullptr;
}

const Json* FieldReader::array(const char* field, Need need) {
  const Json* value = find(field, need, "liste manquante");
  return value && expect(value->is_array(), field, "liste attendue", *value) ? value : nullptr;
}

bool FieldReader::finish() {
  for (const auto& [key, value] : object_.items()) {
    if (!asked_.contains(key)) refuse(key, "champ inconnu");
  }
  return problems_.count() == problems_before_;
}

std::string subject_of(const Json& element, const char* kind, std::size_t place) {
  if (element.is_object()) {
    const auto code = element.find("code");
    if (code != element.end() && code->is_string() && !code->get_ref<const std::string&>().empty())
      return std::string(kind) + " " + code->get_ref<const std::string&>();
    if (code != element.end() && code->is_number_integer()) return std::string(kind) + " " + code->dump();
  }
  return std::string(kind) + " n° " + std::to_string(place + 1);
}

}  // namespace facturation
