// SPDX-License-Identifier: MIT
#include "run/catalog_run.h"

#include <string>
#include <tuple>
#include <utility>

#include "foundation/entry_point.h"
#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/host/same_file.h"
#include "platform/text/ansi_text.h"
#include "run/catalog_notes.h"
#include "run/shared/option_set.h"
#include "run/shared/progress_tick.h"
#include "run/shared/run_state.h"
#include "window/frmMain.h"

namespace lexmill {
namespace {

using modMain::DictionaryFormat;
using platform::TextEncoding;

constexpr std::int32_t kOwnFailure = 1;
constexpr std::int16_t kReferenceRow = 0;
constexpr std::int16_t kToDoRow = 1;

// A catalog counts as a glossary in UTF-8, which is what a result has that takes after it; its
// stand-in is one in the code page, which has every character.
void KeepKindsOf(const std::u16string& catalog, const std::u16string& glossary) {
  DictionaryKind kind;
  kind.format = DictionaryFormat::PassoloGlossary;
  TheRun().dictionaries[glossary] = kind;
  kind.encoding = platform::IsAnsiCodePageChosen() ? TextEncoding::Ansi : TextEncoding::Utf8;
  kind.isCatalog = true;
  TheRun().dictionaries[catalog] = kind;
}

void NotePassedOver(const Catalog& catalog, const PassedOver& entries) {
  DroppedEntries& dropped = TheRun().counts.dropped[catalog.path];
  dropped.plural += entries.plural;
  dropped.inlined += entries.inlined;
  if (std::u16string sentence = UnusedSentence(catalog, entries); !sentence.empty()) {
    NoteHint(std::move(sentence));
  }
}

/// Writes the entries of a catalog, and lets the window's pending events run meanwhile.
class StandInWriter {
 public:
  /// @param row  the row of the window that shows the progress
  StandInWriter(std::u16string catalog, const std::u16string& path, std::int16_t row)
      : catalog_(std::move(catalog)),
        writer_(platform::FileSystemObject().CreateTextFile(path, true)) {
    progress_.StateLabel(frmMain::Instance().lblState(row));
    progress_.Start();
  }

  void Write(std::u16string_view source, std::u16string_view target) {
    constexpr std::int64_t kEntriesBetweenLooks = 256;
    if (count_++ % kEntriesBetweenLooks == 0) {
      progress_.ShowStarIfDue();
    }
    line_.assign(source).append(1, u'\t').append(target);
    RequireCharacters();
    writer_.WriteLine(line_);
  }

  void Close() { writer_.Close(); }

 private:
  // The system's own page has every character, one that was chosen may not.
  void RequireCharacters() {
    bytes_.clear();
    if (platform::IsAnsiCodePageChosen() && !platform::AnsiCodePage().Encode(line_, bytes_)) {
      throw platform::Failure(kOwnFailure,
                              u"“" + catalog_ + u"”里有所选的代码页没有的字符：" + line_);
    }
  }

  std::u16string catalog_;
  platform::TextWriter writer_;
  ProgressTick progress_;
  std::int64_t count_ = 0;
  std::u16string line_;
  std::string bytes_;
};

}  // namespace

CatalogRun::CatalogRun(std::u16string result) : result_(std::move(result)) {
  TheRun().standIns = {};
}

CatalogRun::~CatalogRun() {
  SettleCounts();
  for (const StandIn& standIn : standIns_) {
    if (!RunOptions().chkaKeepTmpFile) {
      DeleteFiles({standIn.glossary});
    }
  }
  TheRun().standIns = {};
}

std::u16string CatalogRun::DrawGlossary(const std::u16string& catalog) {
  standIns_.push_back({catalog, InWorkFolder(DrawName(u".glo", reservations_))});
  return standIns_.back().glossary;
}

// It may be reached by another name, too.
void CatalogRun::RefuseAsResult(const std::u16string& reference) const {
  if (result_ == reference || platform::IsSameFile(result_, reference)) {
    throw platform::Failure(kOwnFailure, u"“" + result_ + u"”是“参照字典”，不能写入译文");
  }
}

void CatalogRun::TakeUntranslated(const std::u16string& toDo,
                                  std::span<const std::u16string> references) {
  const auto format = DetectCatalog(toDo);
  if (!format) {
    return;
  }
  if (!CanBeFilled(*format)) {
    throw platform::Failure(kOwnFailure, u"“" + toDo + u"”只能作“参照字典”");
  }
  for (const std::u16string& reference : references) {
    RefuseAsResult(reference);
  }
  const CatalogOptions& options = TheRun().catalogOptions;
  toDo_ = OpenCatalog(toDo, *format, options);
  const std::u16string glossary = DrawGlossary(toDo);
  StandInWriter writer(toDo, glossary, kToDoRow);
  const EntryCounts others = ReadUntranslated(
      *toDo_, options, [&writer](std::u16string_view source, std::u16string_view target) {
        writer.Write(source, target);
      });
  writer.Close();
  TheRun().counts.alreadyTranslated += others.translated;
  NotePassedOver(*toDo_, others.passedOver);
  TheRun().standIns.toDo = glossary;
  KeepKindsOf(toDo, glossary);
  TheRun().standIns.result = DrawGlossary(result_);
}

void CatalogRun::TakeReference(const std::u16string& path) {
  if (const auto format = DetectCatalog(path)) {
    AddReference(OpenCatalog(path, *format, TheRun().catalogOptions));
  }
}

void CatalogRun::TakeTable(const std::u16string& path) {
  if (const auto table = OpenTable(path, TheRun().catalogOptions)) {
    AddReference(*table);
  }
}

void CatalogRun::AddReference(const Catalog& catalog) {
  RefuseAsResult(catalog.path);
  if (TheRun().standIns.references.contains(catalog.path)) {
    return;
  }
  const std::u16string glossary = DrawGlossary(catalog.path);
  StandInWriter writer(catalog.path, glossary, kReferenceRow);
  const PassedOver unused =
      ReadTranslated(catalog, [&writer](std::u16string_view source, std::u16string_view target,
                                        std::int64_t /*line*/) { writer.Write(source, target); });
  writer.Close();
  NotePassedOver(catalog, unused);
  TheRun().standIns.references[catalog.path] = glossary;
  KeepKindsOf(catalog.path, glossary);
}

void CatalogRun::SettleCounts() const {
  auto& dropped = TheRun().counts.dropped;
  for (const auto& [catalog, glossary] : standIns_) {
    if (const auto counted = dropped.extract(glossary)) {
      dropped[catalog].equalSides += counted.mapped().equalSides;
      dropped[catalog].tooLong += counted.mapped().tooLong;
    }
  }
}

void CatalogRun::WriteResult() {
  RunState& run = TheRun();
  if (!toDo_ || run.abandoned || !platform::FileSystemObject().FileExists(run.standIns.result)) {
    return;
  }
  DictionaryKind kind;
  kind.format = DictionaryFormat::PassoloGlossary;
  kind.encoding = run.resultEncoding;
  const Translations found = ReadFound(run.standIns.result, kind);
  run.counts.resultWritten = false;
  std::ignore = FillFrom(*toDo_, result_, run.catalogOptions, found);
  run.counts.resultWritten = true;
  if (run.catalogOptions.skipSeveral) {
    run.counts.leftOpen = run.counts.several;
    run.counts.filled -= run.counts.several;
  }
}

}  // namespace lexmill
