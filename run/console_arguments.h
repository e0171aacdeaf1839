// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// The command line of lexmill-run.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "run/shared/catalog_options.h"

namespace lexmill {

enum class Preset { Full, Minimal };

/// What lexmill-run does.
enum class ConsoleTask {
  Run,
  Convert,  ///< catalogs to a dictionary
  Fill,     ///< a catalog from a dictionary
  Explain,  ///< what a run does with one string
};

/// What a command line of lexmill-run asks for. Paths are absolute.
struct ConsoleArguments {
  ConsoleTask task = ConsoleTask::Run;
  std::vector<std::u16string> paths;  ///< of another task than a run, as many as it takes
  CatalogOptions catalogs;
  std::u16string explained;  ///< the string to explain
  std::u16string toDo;
  std::vector<std::u16string> references;  ///< REFER, then those asked after it
  bool firstReferenceOnly = false;
  std::u16string result;
  std::u16string settings;    ///< empty for the settings file of the program's folder
  std::u16string workFolder;  ///< empty for that of the settings, or the program's
  std::u16string codePage;    ///< as PassOnCodePage takes it; empty for that of the settings
  std::optional<Preset> preset;
  std::u16string report;            ///< empty for none, "-" for standard output
  std::optional<double> failBelow;  ///< percent
  std::vector<std::pair<std::u16string, std::u16string>> options;  ///< control name and value
};

/// What is wrong with a command line: a sentence in UTF-8.
struct WrongArguments {
  std::string reason;
};

/// What a command line asks to be shown instead of a run: UTF-8, each line ended by LF.
struct WantedText {
  std::string text;
};

/// How lexmill-run is called: UTF-8, each line ended by LF.
inline constexpr std::string_view kConsoleUsage =
    "Usage: lexmill-run TODO REFER FINAL [--settings FILE.ini] [--preset full|minimal]\n"
    "                   [--set NAME=VALUE]... [--encoding auto|utf-8|936] [--work-dir DIR]\n"
    "                   [--report FILE] [--fail-below PERCENT]\n"
    "                   [--refer MORE]... [--first-reference-only]\n"
    "       lexmill-run --convert FILE... OUT | --fill CATALOG RESULT OUT\n"
    "       lexmill-run --explain STRING REFER [OPTION]...\n"
    "       lexmill-run --help | --version\n";

/// Reads the words after the program's name. Relative paths are taken from the current directory.
/// The first of "--help" and "--version" that is where an option may be counts alone.
[[nodiscard]] std::variant<ConsoleArguments, WrongArguments, WantedText> ReadConsoleArguments(
    std::span<const std::string> words);

}  // namespace lexmill
