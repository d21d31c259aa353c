#include <VelmoSAV_DLL14.h>

#include <algorithm>
#include <fstream>
#include <filesystem>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/text.h"
#include "checks.h"
#include "registry.h"

namespace diagnostic {
namespace {

using velmosav::Bstr;
using velmosav::ComPtr;

constexpr wchar_t kDll[] = L"VelmoSAV_DLL14.dll";
constexpr wchar_t kProgIds[] = L"VelmoSAV_DLL14.";
constexpr wchar_t kNotRegistered[] = L"sans objet : la bibliothèque n'est pas inscrite";

struct Class {
  const wchar_t* name;
  CLSID clsid;
};

constexpr Class kEveryClass[] = {
#define AUTOMATION_CLASS(name) {L"" #name, __uuidof(::name)},
#include "classes.def"
#undef AUTOMATION_CLASS
};

bool on_64_bits() {
  BOOL answer = FALSE;
  return IsWow64Process(GetCurrentProcess(), &answer) && answer;
}

std::wstring advice() { return L"Inscrire : " + registration_command(beside_program(kDll)); }

/// The path that COM takes for a class; empty where its name or its identifier leads nowhere.
std::wstring server_of(const Class& entry) {
  const auto clsid = read_text(HKEY_CLASSES_ROOT, kProgIds + std::wstring(entry.name) + L"\\CLSID");
  if (!clsid || !same_path(*clsid, text_of(entry.clsid))) return L"";
  return without_quotes(read_text(HKEY_CLASSES_ROOT, server_key(entry.clsid)).value_or(L""));
}

/// The names, with commas; after three, how many more.
std::wstring listed(const std::vector<std::wstring>& names) {
  std::wstring text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i == 3) return text + L" et " + std::to_wstring(names.size() - i) + L" de plus";
    text += (i ? L", " : L"") + names[i];
  }
  return text;
}

/// The one path of all classes; empty, with the failure reported, where there is none.
std::wstring check_server(Report& report) {
  constexpr wchar_t kCheck[] = L"Inscription";
  std::vector<std::wstring> missing;
  std::vector<std::wstring> servers;
  for (const Class& entry : kEveryClass) {
    const std::wstring server = server_of(entry);
    if (server.empty()) {
      missing.push_back(entry.name);
    } else if (std::none_of(servers.begin(), servers.end(),
                            [&](const std::wstring& known) { return same_path(known, server); })) {
      servers.push_back(server);
    }
  }
  const std::wstring all = std::to_wstring(std::size(kEveryClass));
  if (servers.empty()) {
    report.failure(kCheck, L"aucune des " + all + L" classes n'est inscrite", advice());
    report.pointless(L"Chemin", kNotRegistered);
    return L"";
  }
  if (missing.empty()) {
    report.well(kCheck, all + L" classes sur " + all);
  } else {
    report.failure(kCheck, L"classes non inscrites : " + listed(missing), advice());
  }
  if (servers.size() > 1) {
    report.failure(L"Chemin", L"plusieurs : " + listed(servers),
                   L"Retirer chaque copie (regsvr32 /u), puis inscrire la bonne.");
    return servers.front();
  }
  report.well(L"Chemin", servers.front());
  return servers.front();
}

void check_scope(Report& report) {
  constexpr wchar_t kCheck[] = L"Portée";
  const std::wstring key = kClasses + server_key(kEveryClass[0].clsid);
  const bool machine = read_text(HKEY_LOCAL_MACHINE, key).has_value();
  const bool user = read_text(HKEY_CURRENT_USER, key).has_value();
  if (machine && user) {
    report.failure(kCheck, L"inscrite pour la machine et aussi pour l'utilisateur, qui l'emporte",
                   L"Désinstaller l'une des deux : deux versions peuvent diverger.");
  } else if (user) {
    report.well(kCheck, L"l'utilisateur seul");
  } else if (machine) {
    report.well(kCheck, L"la machine");
  } else {
    report.pointless(kCheck, kNotRegistered);
  }
}

/// The four numbers of the file's version resource; empty without one.
std::wstring version_of(const std::wstring& path) {
  DWORD ignored = 0;
  const DWORD size = GetFileVersionInfoSizeW(path.c_str(), &ignored);
  std::vector<BYTE> data(size);
  VS_FIXEDFILEINFO* info = nullptr;
  UINT length = 0;
  if (size == 0 || !GetFileVersionInfoW(path.c_str(), 0, size, data.data()) ||
      !VerQueryValueW(data.data(), L"\\", reinterpret_cast<void**>(&info), &length)) {
    return L"";
  }
  std::wstring text;
  for (const DWORD part : {info->dwFileVersionMS, info->dwFileVersionLS}) {
    text +=
        (text.empty() ? L"" : L".") + std::to_wstring(HIWORD(part)) + L"." + std::to_wstring(LOWORD(part));
  }
  return text;
}

/// The machine for which an image was made; 0 for what is no image.
WORD machine_of(const std::wstring& path) {
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  IMAGE_DOS_HEADER start{};
  DWORD signature = 0;
  IMAGE_FILE_HEADER header{};
  file.read(reinterpret_cast<char*>(&start), sizeof start);
  file.seekg(start.e_lfanew);
  file.read(reinterpret_cast<char*>(&signature), sizeof signature);
  file.read(reinterpret_cast<char*>(&header), sizeof header);
  if (!file || start.e_magic != IMAGE_DOS_SIGNATURE || signature != IMAGE_NT_SIGNATURE) return 0;
  return header.Machine;
}

bool is_file(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

/// Whether the registered file is there and is one that a 32-bit host can load.
void check_file(Report& report, const std::wstring& server) {
  constexpr wchar_t kFile[] = L"Fichier";
  constexpr wchar_t kBits[] = L"Architecture";
  constexpr wchar_t kLoading[] = L"Chargement";
  constexpr wchar_t kNoFile[] = L"sans objet : pas de fichier";
  if (!is_file(server)) {
    report.failure(kFile, L"absent : l'inscription est périmée", advice());
    report.pointless(kBits, kNoFile);
    report.pointless(kLoading, kNoFile);
    return;
  }
  const std::wstring version = version_of(server);
  report.well(kFile, version.empty() ? L"présent" : L"version " + version);

  const WORD machine = machine_of(server);
  if (machine == IMAGE_FILE_MACHINE_I386) {
    report.well(kBits, L"32 bits");
  } else {
    report.failure(kBits,
                   machine == 0 ? L"ce fichier n'est pas un programme" : L"ce fichier n'est pas en 32 bits",
                   L"Remettre le fichier d'origine. " + advice());
    report.pointless(kLoading, L"sans objet : mauvais fichier");
    return;
  }
  const HMODULE module = LoadLibraryExW(server.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (!module) {
    report.failure(kLoading, message_of(HRESULT_FROM_WIN32(GetLastError())),
                   L"Remettre le fichier d'origine, vérifier les droits de lecture.");
  } else if (!GetProcAddress(module, "DllGetClassObject")) {
    report.failure(kLoading, L"ce fichier n'offre aucune classe",
                   L"Remettre le fichier d'origine. " + advice());
  } else {
    report.well(kLoading, L"le fichier se charge");
  }
  if (module) FreeLibrary(module);
}

void check_threading(Report& report) {
  constexpr wchar_t kCheck[] = L"Modèle d'exécution";
  std::vector<std::wstring> wrong;
  for (const Class& entry : kEveryClass) {
    const std::wstring key = server_key(entry.clsid);
    const std::wstring model = read_text(HKEY_CLASSES_ROOT, key, L"ThreadingModel").value_or(L"");
    if (!same_path(model, L"Apartment")) wrong.push_back(entry.name);
  }
  if (wrong.empty()) {
    report.well(kCheck, L"Apartment");
  } else {
    report.failure(kCheck, L"autre que Apartment : " + listed(wrong), advice());
  }
}

/// A trailing resource number ("...dll\1") is no part of the file's name.
std::wstring file_of_type_library(const std::wstring& path) {
  const std::size_t mark = path.find_last_of(L'\\');
  const bool numbered =
      mark != std::wstring::npos && path.find_first_not_of(L"0123456789", mark + 1) == std::wstring::npos;
  return numbered ? path.substr(0, mark) : path;
}

void check_type_library(Report& report, const std::wstring& server) {
  constexpr wchar_t kCheck[] = L"Bibliothèque de types";
  Bstr registered;
  if (FAILED(QueryPathOfRegTypeLib(LIBID_VelmoSAV_DLL14, 1, 0, LOCALE_NEUTRAL, registered.receive()))) {
    report.failure(kCheck, L"non inscrite", server.empty() ? L"" : advice());
    return;
  }
  // The platform counts the end mark of the path.
  const std::wstring path = file_of_type_library(std::wstring(registered.get()));
  ComPtr<ITypeLib> library;
  const HRESULT code = LoadRegTypeLib(LIBID_VelmoSAV_DLL14, 1, 0, LOCALE_NEUTRAL, library.receive());
  if (FAILED(code)) {
    report.failure(kCheck, path + L" : " + message_of(code), advice());
  } else if (!server.empty() && !same_path(path, server)) {
    report.failure(kCheck, L"celle d'un autre fichier : " + path, advice());
  } else {
    report.well(kCheck, L"dans le même fichier, " + std::to_wstring(library->GetTypeInfoCount()) + L" types");
  }
}

}  // namespace

std::wstring registration_command(const std::wstring& dll) {
  const std::wstring program = on_64_bits() ? L"%SystemRoot%\\SysWOW64\\regsvr32" : L"regsvr32";
  return program + L" \"" + dll + L"\" (en administrateur)";
}

std::wstring beside_program(const std::wstring& name) {
  wchar_t program[MAX_PATH] = L"";
  const DWORD length = GetModuleFileNameW(nullptr, program, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return name;
  const std::filesystem::path path = std::filesystem::path(program).parent_path() / name;
  return is_file(path.wstring()) ? path.wstring() : name;
}

void check_registration(Report& report) {
  report.title(L"Bibliothèque VelmoSAV_DLL14");
  report.information(L"Windows",
                     on_64_bits() ? L"64 bits ; l'application, elle, doit être en 32 bits" : L"32 bits");
  const std::wstring server = check_server(report);
  check_scope(report);
  if (!server.empty()) {
    check_file(report, server);
    check_threading(report);
  }
  check_type_library(report, server);
}

}  // namespace diagnostic
