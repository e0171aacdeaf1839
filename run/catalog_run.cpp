// SPDX-License-Identifier: MIT
#include "run/catalog_run.h"

#include <string>
#include <utility>

#include "foundation/entry_point.h"
#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/host/same_file.h"
#include "platform/text/ansi_text.h"
#include "run/catalog_notes.h"
#include "run/shared/option_set.h"
#include "run/shared/run_state.h"

namespace lexmill {
namespace {

using modMain::DictionaryFormat;
using platform::TextEncoding;

constexpr std::int32_t kOwnFailure = 1;

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

void AddPassedOver(const std::u16string& path, const EntryCounts& counts) {
  DroppedEntries& dropped = TheRun().counts.dropped[path];
  dropped.plural += counts.plural;
  dropped.inlined += counts.inlined;
}

OnPair WriterOf(platform::TextWriter& writer) {
  return [&writer, line = std::u16string()](std::u16string_view source,
                                            std::u16string_view target) mutable {
    line.assign(source).append(1, u'\t').append(target);
    writer.WriteLine(line);
  };
}

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
  auto writer = platform::FileSystemObject().CreateTextFile(glossary, true);
  const EntryCounts others = ReadUntranslated(*toDo_, options, WriterOf(writer));
  writer.Close();
  TheRun().counts.alreadyTranslated += others.translated;
  AddPassedOver(toDo, others);
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
  auto writer = platform::FileSystemObject().CreateTextFile(glossary, true);
  const EntryCounts unused = ReadTranslated(
      catalog, [write = WriterOf(writer)](std::u16string_view source, std::u16string_view target,
                                          std::int64_t /*line*/) { write(source, target); });
  writer.Close();
  AddPassedOver(catalog.path, unused);
  TheRun().standIns.references[catalog.path] = glossary;
  KeepKindsOf(catalog.path, glossary);
  if (const std::u16string sentence = UnusedSentence(catalog, unused); !sentence.empty()) {
    NoteHint(sentence);
  }
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
  const FillCounts counts = FillFrom(*toDo_, result_, run.catalogOptions, found);
  run.counts.resultWritten = true;
  if (run.catalogOptions.skipSeveral) {
    run.counts.leftOpen = run.counts.several;
    run.counts.filled -= run.counts.several;
  }
  NoteHint(FillSentence(*toDo_, counts));
}

}  // namespace lexmill
