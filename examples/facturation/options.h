// The command line.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace facturation {

struct Options {
  std::filesystem::path donnees;
  std::filesystem::path sortie;
  std::optional<std::string> date;
  int repeter = 1;
  /// Where the style sheet of the pages is; empty when none are wanted.
  std::filesystem::path feuille_de_style;
  bool aide = false;
};

/// Reads the arguments that follow the program's name; a French sentence in `error` when they are wrong.
std::optional<Options> parse_options(const std::vector<std::wstring>& arguments, std::string& error);

/// How the program is called.
extern const char* const kUsage;

}  // namespace facturation
