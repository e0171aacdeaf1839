// SPDX-License-Identifier: MIT
#include "run/console_arguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

#include "platform/files/file_system.h"
#include "platform/files/platform_settings.h"
#include "platform/host/application.h"
#include "platform/host/host_path.h"
#include "platform/host/same_file.h"
#include "platform/text/text.h"
#include "run/catalog_arguments.h"

namespace lexmill {
namespace {

std::u16string AbsolutePath(std::string_view word) {
  return platform::AbsolutePath(platform::FromUtf8(word));
}

constexpr std::string_view kHelp =
    "\n"
    "Makes the translated dictionary FINAL from the untranslated dictionary TODO and the\n"
    "reference dictionary REFER (a dictionary or a purified database).\n"
    "\n"
    "  --settings FILE.ini    read the options from FILE.ini, not from Lexmill.ini beside\n"
    "                         the programs\n"
    "  --preset full|minimal  then set all rules on without a length limit, or all off\n"
    "  --set NAME=VALUE       then set one option by its name: 0 or 1 for a check box such\n"
    "                         as chkaUpperCase, a text for a box such as txtLenLimit\n"
    "  --refer MORE           also ask MORE, a dictionary or a purified database, after REFER;\n"
    "                         may be given several times\n"
    "  --first-reference-only ask no reference for a string that one before it knows\n"
    "  --encoding auto|utf-8|936\n"
    "                         go by each dictionary's content for its encoding, or take all\n"
    "                         for UTF-8 or code page 936, whatever the key CodePage says\n"
    "  --work-dir DIR         put temporary files and the language table into DIR, not\n"
    "                         beside the programs\n"
    "  --report FILE          write what was filled and with what to FILE: a JSON object if the\n"
    "                         name ends in .json, else a table; - is standard output\n"
    "  --fail-below PERCENT   exit code 3 if less of the untranslated strings was filled\n"
    "  --explain STRING       make no FINAL, but show what the rules make of STRING, and which\n"
    "                         translations REFER and each MORE have for it in which lines, or\n"
    "                         else the nearest entries; exit code 3 if none knows it\n"
    "  --                     what follows are paths\n"
    "  --help, --version      show this, or the version\n"
    "\n"
    "Prints the times of the four stages, and how many strings were filled. Exit code: 0 done,\n"
    "1 a failure was shown on standard error, 2 wrong arguments, 3 less was filled than\n"
    "--fail-below asks for, or the string of --explain is unknown.\n";

std::string Version() {
  return "lexmill-run " + std::to_string(platform::kMajorVersion) + "." +
         std::to_string(platform::kMinorVersion) + "\n";
}

// Reads the words one by one; `reason_` is filled by the first that is wrong.
class Reader {
 public:
  explicit Reader(std::span<const std::string> words) : words_(words) {}

  std::variant<ConsoleArguments, WrongArguments, WantedText> Read() {
    while (next_ < words_.size() && reason_.empty() && wanted_.empty()) {
      ReadWord(words_[next_++]);
    }
    if (!wanted_.empty()) {
      return WantedText{wanted_};
    }
    CheckPaths();
    if (!reason_.empty()) {
      return WrongArguments{reason_};
    }
    KeepPaths();
    if (const auto dictionary = ReplacedByReport()) {
      return WrongArguments{"--report would replace " + platform::ToUtf8(*dictionary)};
    }
    return arguments_;
  }

 private:
  void CheckPaths() {
    const std::size_t count = paths_.size();
    if (!reason_.empty()) {
      return;
    }
    if (arguments_.task == ConsoleTask::Convert && count < 2) {
      reason_ = "--convert wants one or more catalogs and a dictionary";
    } else if (arguments_.task == ConsoleTask::Fill && count != 3) {
      reason_ = "--fill wants three paths: CATALOG, RESULT, OUT";
    } else if (arguments_.task == ConsoleTask::Explain && count != 1) {
      reason_ = "--explain wants a string and a reference: STRING REFER";
    } else if (arguments_.task == ConsoleTask::Run && count != 3) {
      reason_ = "three dictionaries are wanted: TODO, REFER, FINAL";
    }
  }

  void KeepPaths() {
    auto& references = arguments_.references;
    if (arguments_.task == ConsoleTask::Run) {
      arguments_.toDo = paths_[0];
      references.insert(references.begin(), paths_[1]);
      arguments_.result = paths_[2];
    } else if (arguments_.task == ConsoleTask::Explain) {
      references.insert(references.begin(), paths_[0]);
    } else {
      arguments_.paths = paths_;
    }
  }

  // The dictionary of the run in whose place the report would be written.
  [[nodiscard]] std::optional<std::u16string> ReplacedByReport() const {
    std::vector<std::u16string> dictionaries = arguments_.references;
    dictionaries.insert(dictionaries.end(), {arguments_.toDo, arguments_.result});
    const auto replaced = std::ranges::find_if(dictionaries, [&](const std::u16string& path) {
      return !path.empty() &&
             (path == arguments_.report || platform::IsSameFile(path, arguments_.report));
    });
    return replaced == dictionaries.end() ? std::nullopt : std::optional(*replaced);
  }

  void ReadWord(std::string_view word) {
    if (onlyPaths_ || !word.starts_with("--")) {
      paths_.push_back(AbsolutePath(word));
    } else if (word == "--") {
      onlyPaths_ = true;
    } else if (word == "--settings") {
      arguments_.settings = AbsolutePath(Value(word));
    } else if (word == "--preset") {
      ReadPreset(Value(word));
    } else if (word == "--set") {
      ReadOption(Value(word));
    } else if (word == "--refer") {
      arguments_.references.push_back(AbsolutePath(Value(word)));
    } else if (word == "--first-reference-only") {
      arguments_.firstReferenceOnly = true;
    } else if (word == "--encoding") {
      ReadEncoding(Value(word));
    } else if (word == "--work-dir") {
      ReadWorkFolder(Value(word));
    } else if (word == "--report") {
      ReadReport(Value(word));
    } else if (word == "--fail-below") {
      ReadShare(Value(word));
    } else if (word == "--convert") {
      arguments_.task = ConsoleTask::Convert;
    } else if (word == "--fill") {
      arguments_.task = ConsoleTask::Fill;
    } else if (word == "--explain") {
      arguments_.task = ConsoleTask::Explain;
      arguments_.explained = platform::FromUtf8(Value(word));
    } else if (IsCatalogOption(word)) {
      reason_ = SetCatalogOption(word, WantsValue(word) ? Value(word) : "", arguments_.catalogs);
    } else if (word == "--help") {
      wanted_.assign(kConsoleUsage).append(kHelp).append(kCatalogHelp);
    } else if (word == "--version") {
      wanted_ = Version();
    } else {
      reason_ = "unknown option: " + std::string(word);
    }
  }

  std::string_view Value(std::string_view option) {
    if (next_ == words_.size()) {
      reason_ = std::string(option) + " wants a value";
      return {};
    }
    return words_[next_++];
  }

  void ReadPreset(std::string_view name) {
    if (name == "full") {
      arguments_.preset = Preset::Full;
    } else if (name == "minimal") {
      arguments_.preset = Preset::Minimal;
    } else if (reason_.empty()) {
      reason_ = "--preset wants full or minimal, not " + std::string(name);
    }
  }

  void ReadEncoding(std::string_view name) {
    constexpr std::array<std::pair<std::string_view, std::u16string_view>, 3> kPages = {
        {{"auto", platform::kNoChosenPage}, {"utf-8", u"65001"}, {"936", u"936"}}};
    const auto* const page =
        std::ranges::find(kPages, name, [](const auto& known) { return known.first; });
    if (page != kPages.end()) {
      arguments_.codePage = page->second;
    } else if (reason_.empty()) {
      reason_ = "--encoding wants auto, utf-8 or 936, not " + std::string(name);
    }
  }

  void ReadWorkFolder(std::string_view path) {
    arguments_.workFolder = AbsolutePath(path);
    if (reason_.empty() && !platform::FileSystemObject().FolderExists(arguments_.workFolder)) {
      reason_ = "no such folder: " + std::string(path);
    }
  }

  void ReadReport(std::string_view file) {
    arguments_.report = file == "-" ? platform::FromUtf8(file) : AbsolutePath(file);
  }

  void ReadShare(std::string_view percent) {
    constexpr double kWhole = 100;
    double share = -1;
    const char* const end = percent.data() + percent.size();
    const auto [read, error] = std::from_chars(percent.data(), end, share);
    if (error == std::errc() && read == end && share >= 0 && share <= kWhole) {
      arguments_.failBelow = share;
    } else if (reason_.empty()) {
      reason_ = "--fail-below wants a number from 0 to 100, not " + std::string(percent);
    }
  }

  void ReadOption(std::string_view setting) {
    const std::size_t sign = setting.find('=');
    if (sign == std::string_view::npos) {
      reason_ = reason_.empty() ? "--set wants NAME=VALUE" : reason_;
      return;
    }
    arguments_.options.emplace_back(platform::FromUtf8(setting.substr(0, sign)),
                                    platform::FromUtf8(setting.substr(sign + 1)));
  }

  std::span<const std::string> words_;
  std::size_t next_ = 0;
  bool onlyPaths_ = false;
  std::vector<std::u16string> paths_;
  ConsoleArguments arguments_;
  std::string reason_;
  std::string wanted_;
};

}  // namespace

std::variant<ConsoleArguments, WrongArguments, WantedText> ReadConsoleArguments(
    std::span<const std::string> words) {
  return Reader(words).Read();
}

}  // namespace lexmill
