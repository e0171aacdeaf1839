// SPDX-License-Identifier: MIT
#include "run/reference_entries.h"

#include <limits>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

#include "catalog/catalog.h"
#include "catalog/catalog_dictionary.h"
#include "foundation/cCaptureConsole.h"
#include "glossary/glossary_entry.h"
#include "glossary/record_scanner.h"
#include "glossary/stage_steps.h"
#include "pipeline/batch_script.h"
#include "pipeline/temporary_files.h"
#include "platform/expression/regular_expression.h"
#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "run/catalog_notes.h"
#include "run/dictionary_encoding.h"
#include "run/dictionary_format.h"
#include "run/shared/option_set.h"
#include "run/shared/progress_tick.h"
#include "text/text_entry.h"
#include "window/frmMain.h"

namespace lexmill {
namespace {

using modMain::DictionaryFormat;

/// The pairs of a purified database as a file, for as long as this object lives.
class DatabaseListing {
 public:
  explicit DatabaseListing(const std::u16string& database) {
    DrawNames(files_);
    BuildListingScript(database, files_);
    std::ignore =
        cCaptureConsole().ShellConsole(files_.sBatFile, WorkFolder(), false, true, true, true);
    if (!TheRun().abandoned && !platform::FileSystemObject().FileExists(Path())) {
      DeleteAllFiles(files_);
      throw platform::Failure(1, u"净化数据库读不出来", database);
    }
  }
  DatabaseListing(const DatabaseListing&) = delete;
  DatabaseListing& operator=(const DatabaseListing&) = delete;
  ~DatabaseListing() { DeleteAllFiles(files_); }

  [[nodiscard]] std::u16string Path() const { return InWorkFolder(files_.sListFile); }

 private:
  ListingFiles files_;
};

// The catalog that `path` is; none for a dictionary, whose kind is then known.
std::optional<Catalog> CatalogAt(const std::u16string& path) {
  const CatalogOptions& options = TheRun().catalogOptions;
  if (const auto format = DetectCatalog(path)) {
    return OpenCatalog(path, *format, options);
  }
  KeepEncoding(path);
  DictionaryKind& kind = TheRun().dictionaries[path];
  kind.format = modMain::DetectDictionaryFormat(path);
  if (kind.format != DictionaryFormat::Unknown) {
    return std::nullopt;
  }
  auto table = OpenTable(path, options);
  if (!table) {
    modMain::RefuseUnknownFormat(path);
  }
  return table;
}

OptionSet WithoutLimit(OptionSet options) {
  options.txtLenLimit = std::numeric_limits<std::int32_t>::max();
  return options;
}

class Reading {
 public:
  explicit Reading(const OnReferenceEntry& onEntry) : onEntry_(onEntry) {
    progress_.StateLabel(frmMain::Instance().lblState(0));
    progress_.Start();
  }

  void ReadDatabase(const std::u16string& path) {
    const DatabaseListing listing(path);
    if (TheRun().abandoned) {
      return;
    }
    Scan(listing.Path(), [this](const RecordScanner& scanner) {
      if (const auto pair = ReadGlossaryEntry(scanner)) {
        onEntry_({.source = pair->source,
                  .target = pair->target,
                  .bare = {.source = pair->source, .target = pair->target}});
      }
    });
  }

  void ReadDictionary(const std::u16string& path) {
    if (const auto catalog = CatalogAt(path)) {
      const PassedOver unused =
          ReadTranslated(*catalog, [this](std::u16string_view source, std::u16string_view target,
                                          std::int64_t line) { Report(source, target, line); });
      if (std::u16string sentence = UnusedSentence(*catalog, unused); !sentence.empty()) {
        NoteHint(std::move(sentence));
      }
    } else if (KindOf(path).format == DictionaryFormat::DianjingText) {
      ReadText(path);
    } else {
      ReadGlossary(path);
    }
  }

 private:
  void Scan(const std::u16string& path, const std::function<void(const RecordScanner&)>& onRecord) {
    RecordScanner scanner;
    const auto ignore = [] {};
    const ScannerConnection connection = scanner.Connect(
        ignore,
        [&] {
          ShowScanProgress(progress_, scanner);
          onRecord(scanner);
        },
        ignore);
    ScanTabSeparated(scanner, path);
  }

  void ReadGlossary(const std::u16string& path) {
    Scan(path, [this](const RecordScanner& scanner) {
      if (const auto entry = ReadGlossaryEntry(scanner)) {
        Report(entry->source, entry->target, scanner.LineNumber());
      } else {
        ReportUnused(scanner.Field(1), scanner.Field(2), scanner.LineNumber(),
                     EntryUse::MoreColumns);
      }
    });
  }

  void ReadText(const std::u16string& path) {
    auto input = platform::FileSystemObject().OpenTextFile(path, KindOf(path).encoding);
    ForEachEntry(input, progress_, [this](const TextEntry& entry) {
      Report(entry.source, entry.target, entry.line);
    });
  }

  void Report(std::u16string_view source, std::u16string_view target, std::int64_t line) {
    if (const auto bare = rules_.PurifyReference(source, target)) {
      onEntry_({.line = line, .source = source, .target = target, .bare = *bare});
    } else {
      ReportUnused(source, target, line,
                   source == target ? EntryUse::EqualSides : EntryUse::TooLong);
    }
  }

  void ReportUnused(std::u16string_view source, std::u16string_view target, std::int64_t line,
                    EntryUse use) {
    const auto bare = rulesOfAnyLength_.PurifyReference(source, {});
    onEntry_({.line = line,
              .source = source,
              .target = target,
              .use = use,
              .bare = bare.value_or(PurifiedPair())});
  }

  const OnReferenceEntry& onEntry_;
  ProgressTick progress_;
  platform::RegExp expression_;
  ReferenceRules rules_{RunOptions(), expression_};
  OptionSet anyLength_ = WithoutLimit(RunOptions());
  ReferenceRules rulesOfAnyLength_{anyLength_, expression_};
};

}  // namespace

void ForEachReferenceEntry(const Reference& reference, const OnReferenceEntry& onEntry) {
  Reading reading(onEntry);
  if (reference.isDatabase) {
    reading.ReadDatabase(reference.path);
  } else {
    reading.ReadDictionary(reference.path);
  }
}

}  // namespace lexmill
