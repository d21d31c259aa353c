#include "misuse/odd_texts.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "misuse/interface_table.h"
#include "support/temporary_file.h"

namespace misuse {
namespace {

using Words = std::vector<std::wstring>;

constexpr std::size_t kLongest = 4000;

const Words kDates{L"01/01/2026", L"31/12/26",   L"29/02/2024", L"30/02/2025", L"1/3/30",     L"15/06/2045",
                   L"01/01/100",  L"31/12/9999", L"01/01/0099", L"00/00/00",   L"01/13/2026", L"12:30",
                   L"2026-03-01", L"31/01/2026", L"28/02/2026", L"01/07/2026", L"1 mars 2026"};
const Words kUnits{L"J", L"H", L"M", L"A", L"S", L"h", L"MN", L"Mois", L"Jour", L"d", L"ww", L"yyyy"};
const Words kTariffs{L"HT", L"TTC", L"H", L"T", L"ht", L"DEV"};
const Words kRecurrences{L"Q", L"H", L"M", L"A", L"m"};
const Words kKeys{L"LU",  L"MA",  L"DI",      L"L",       L"1",       L"JAN,", L"FEV,MAR",
                  L"01,", L"12,", L"PREMIER", L"DERNIER", L"DEUXIEM", L"D",    L"JA,FE,MA"};
const Words kFormats{
    L"N;7.2;0,100B", L"N;3.0",   L"N;99.99;-5,5", L"&Lundi;&Mardi;#F", L"A;B;C#F", L"#,0.00;;#", L"N", L";",
    L"N;;",          L"N;7.2;,", L"dd/mm/yy",     L"N;7.2;100,0;B",    L"&a&b",    L"N;-1.300"};
const Words kDurations{L"12:30", L"1:05", L"0:00", L"100:59",   L":",       L"1:",
                       L"-2:15", L"2,5",  L"2.5",  L"1j 02:00", L"99999:99"};
const Words kCodes{L"A,B,C", L"G",   L"CT001", L",", L"A,,B", L"*",  L"411,401", L"4",   L"411000", L"6-7",
                   L"1",     L"2,5", L"100",   L"0", L"99",   L"-1", L"32768",   L"C;D", L"41*"};
const Words kShares{L"1@100.00@",
                    L"1@40@3@60@",
                    L"0@100@",
                    L"1@",
                    L"@",
                    L"99@50@1@",
                    L"100@1@",
                    L"-1@5@",
                    L"1@1e308@2@1e308@",
                    L"1@a@",
                    L"2@33,33@3@33,33@4@0@",
                    L"5@20@5@20@"};
const Words kOdd{L" ",
                 L"    ",
                 L"\t\r\n",
                 L"'",
                 L"\"",
                 L"'; DROP TABLE CTT; --",
                 L"%s%n%d",
                 L"<a>&amp;</a>",
                 L"]]>",
                 L"\x01\x02\x1f",
                 L"\xd800",
                 L"\xdc00\xd800",
                 L"\xffff\xfffe",
                 L"\x202e\x05d0\x0661",
                 L"e\x0301\x0300\x0327",
                 L"\x0130ıßŉ",
                 L"1e308",
                 L"-1e-308",
                 L"1e999",
                 L"NaN",
                 L"inf",
                 L"0x10",
                 L"1 234,56",
                 L"1\x00a0\x32\x33\x34,5",
                 L"1,2,3",
                 L"+-1",
                 L"Vrai",
                 L"{00000000-0000-0000-0000-000000000000}",
                 std::wstring(L"a\0b\0", 4),
                 std::wstring(3, L'\0'),
                 L"<!DOCTYPE a [<!ENTITY b \"c\">]><a>&b;</a>",
                 L"<a xmlns='urn:b'><b/></a>",
                 L"<a><b></a>",
                 L"<?xml version=\"1.0\" encoding=\"utf-7\"?><a/>",
                 L"é"};

struct Hint {
  const wchar_t* part;
  const Words* words;
};
const Hint kHints[]{{L"Date", &kDates},      {L"sStart", &kDates},
                    {L"sEnd", &kDates},      {L"DerRec", &kDates},
                    {L"Unit", &kUnits},      {L"Tarif", &kTariffs},
                    {L"Repart", &kShares},   {L"Duree", &kDurations},
                    {L"Heure", &kDurations}, {L"Format", &kFormats},
                    {L"fmt", &kFormats},     {L"Fmt", &kFormats},
                    {L"Posit", &kFormats},   {L"Periodicite", &kRecurrences},
                    {L"Jour", &kKeys},       {L"Mois", &kKeys},
                    {L"Key", &kKeys},        {L"Le", &kKeys},
                    {L"Code", &kCodes},      {L"Rac", &kCodes},
                    {L"Cpt", &kCodes},       {L"TVA", &kCodes},
                    {L"Valeur", &kCodes}};

/// Every text constant of every class, as an instance has them at creation.
Words harvested_constants() {
  Words found;
  for (const Class& owner : classes()) {
    const auto object = host::create_dispatch(owner.name);
    for (const Member& member : owner.members) {
      if (member.kind != INVOKE_PROPERTYGET || !member.result || member.result->type != VT_BSTR) continue;
      Variant value;
      EXPECT_EQ(S_OK, host::get_property(object.get(), member.name.c_str(), value.receive()));
      found.push_back(host::get(value.get().bstrVal));
    }
  }
  std::sort(found.begin(), found.end());
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

/// The library's own invoice with nothing but its header.
std::wstring empty_invoice() {
  const auto library = host::create<_InvoiceXMLLib>(L"InvoiceXMLLib");
  Type_Bon order{};
  Type_AdresseTiers address{};
  host::Text invoice;
  EXPECT_EQ(S_OK, library->SetHeadInvoiceXML_ByInt(&order, host::Text(L"Facture"), &address, host::Text(L""),
                                                   host::Text(L"F1"), host::Text(L"01/01/2026"), &invoice));
  return invoice.str();
}

/// A file of several chunks.
std::wstring long_file() {
  std::wstring name = host::make_temporary_file();
  std::ofstream file(std::filesystem::path(name), std::ios::binary);
  file << std::string(120'001, 'x');
  return name;
}

BSTR allocated(std::wstring_view text) {
  return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

BSTR random_text(Dice& dice) {
  std::wstring text(dice.below(40), L' ');
  const std::size_t range = dice.coin() ? 0x80 : 0x10000;
  for (wchar_t& letter : text) letter = static_cast<wchar_t>(dice.below(range));
  return allocated(text);
}

BSTR long_text(Dice& dice, const std::wstring& piece) {
  std::wstring text;
  const std::size_t length = 1 + dice.below(kLongest);
  while (text.size() < length) text += piece.empty() ? L"x" : piece;
  return allocated(text);
}

/// One character more, fewer or other.
BSTR altered(Dice& dice, std::wstring text) {
  const std::size_t place = dice.below(text.size() + 1);
  const auto letter = static_cast<wchar_t>(dice.coin() ? L"09 ,.;:/@-&#"[dice.below(12)] : dice.below(0x250));
  if (dice.coin() || place == text.size()) {
    text.insert(place, 1, letter);
  } else if (dice.coin()) {
    text.erase(place, 1);
  } else {
    text[place] = letter;
  }
  return allocated(text);
}

}  // namespace

OddTexts::OddTexts()
    : constants_(harvested_constants()),
      invoices_{empty_invoice(), L"<a/>", L"<Facture><Corps/></Facture>"},
      files_{long_file(), L"Z:\\dev\\null", L"C:\\", L"C:\\nowhere\\a", L"?*|", L"a:b:c", L"\\\\.\\nothing"},
      hosts_{host_name()} {}

std::wstring OddTexts::host_name() { return L"VelmoSAVTest" + std::to_wstring(GetCurrentProcessId()); }

OddTexts::~OddTexts() { DeleteFileW(files_[0].c_str()); }

const OddTexts::Words& OddTexts::plausible(std::wstring_view name) const {
  if (name == L"sXml") return invoices_;
  if (name == L"FicTemp") return files_;
  if (name == L"NomExe") return hosts_;
  for (const Hint& hint : kHints) {
    if (name.find(hint.part) != std::wstring_view::npos) return *hint.words;
  }
  return constants_;
}

const OddTexts::Words& OddTexts::any(Dice& dice) const {
  static const Words* const lists[]{&kDates, &kUnits,  &kTariffs,   &kRecurrences, &kKeys, &kFormats,
                                    &kCodes, &kShares, &kDurations, &kOdd,         &kOdd};
  return dice.one_in(4) ? constants_ : *dice.of(lists);
}

BSTR OddTexts::text(Dice& dice, std::wstring_view name) const {
  switch (dice.below(24)) {
    case 0:
    case 1:
      return nullptr;
    case 2:
    case 3:
      return allocated(L"");
    case 4:
    case 5:
    case 6:
    case 7:
      return allocated(dice.of(any(dice)));
    case 8:
      return random_text(dice);
    case 9:
    case 10:
      return altered(dice, dice.of(plausible(name)));
    case 11:
      return dice.one_in(3) ? long_text(dice, dice.of(any(dice))) : allocated(dice.of(kOdd));
    case 12:
      // A text need not be a whole number of characters.
      return dice.one_in(4) ? SysAllocStringByteLen("abcdefg", 1 + 2 * static_cast<UINT>(dice.below(4)))
                            : allocated(dice.of(any(dice)));
    default:
      return allocated(dice.of(plausible(name)));
  }
}

}  // namespace misuse
