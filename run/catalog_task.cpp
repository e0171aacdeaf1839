// SPDX-License-Identifier: MIT
#include "run/catalog_task.h"

#include <cstdint>
#include <tuple>
#include <vector>

#include "catalog/catalog.h"
#include "catalog/catalog_dictionary.h"
#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/host/application.h"
#include "platform/host/same_file.h"
#include "platform/text/language_id.h"
#include "platform/text/text.h"
#include "run/catalog_notes.h"
#include "run/dictionary_encoding.h"
#include "run/dictionary_format.h"
#include "run/file_inspection.h"
#include "run/shared/run_state.h"
#include "window/resources/language_table.h"

namespace lexmill {
namespace {

constexpr std::int32_t kOwnFailure = 1;

[[noreturn]] void Refuse(const std::u16string& path, std::u16string_view reason) {
  throw platform::Failure(kOwnFailure, u"“" + path + u"”" + std::u16string(reason));
}

Catalog OpenAny(const std::u16string& path) {
  const CatalogOptions& options = TheRun().catalogOptions;
  if (const auto format = DetectCatalog(path)) {
    return OpenCatalog(path, *format, options);
  }
  std::ignore = platform::FileSystemObject().FileSize(path);  // a missing file is told as such
  auto table = OpenTable(path, options);
  if (!table && InspectFile(path).isUtf16) {
    Refuse(path, u"是 UTF-16，请另存为 UTF-8");
  }
  if (!table) {
    Refuse(path, u"不是 PO、TS、XLIFF、TMX、CSV 或 TSV 文件");
  }
  return *table;
}

std::u16string Number(std::int64_t number) {
  return platform::FromUtf8(std::to_string(number));
}

void RefuseToReplace(const std::u16string& path, const std::u16string& input) {
  if (path == input || platform::IsSameFile(path, input)) {
    Refuse(path, u"是要读的文件，不能写入");
  }
}

// The name of a language in a head line; empty if the language table lacks it.
std::u16string HeadName(const std::u16string& tag) {
  const auto id = platform::LanguageIdOf(tag);
  if (!id) {
    return {};
  }
  const std::u16string name = Number(id->primary) + u" " + Number(id->sublanguage);
  const std::u16string_view table = platform::LoadStringResource(kLanguageTableId);
  return platform::Contains(table, u"\n" + name + u"=") ? name : std::u16string();
}

/// A dictionary that is written entry by entry.
class DictionaryWriter {
 public:
  DictionaryWriter(const std::u16string& path, const CatalogHead& head)
      : writer_(platform::FileSystemObject().CreateTextFile(path, true,
                                                            platform::TextEncoding::Utf8WithMark)),
        isText_(platform::LowerCase(path).ends_with(u".txt")) {
    const std::u16string source = HeadName(head.sourceLanguage);
    const std::u16string target = HeadName(head.targetLanguage);
    if (!isText_ && !source.empty() && !target.empty()) {
      WritePair(source, target);
    }
  }

  // What isn't complete must not take the place of an older file.
  ~DictionaryWriter() {
    if (!isComplete_) {
      writer_.Discard();
    }
  }
  DictionaryWriter(const DictionaryWriter&) = delete;
  DictionaryWriter& operator=(const DictionaryWriter&) = delete;

  void Write(std::u16string_view source, std::u16string_view target) {
    if (!isText_) {
      WritePair(source, target);
      return;
    }
    writer_.WriteLine(Number(++count_) + u":" + std::u16string(source));
    writer_.WriteLine(target);
    writer_.WriteLine();
  }

  void Close() {
    writer_.Close();
    isComplete_ = true;
  }

 private:
  void WritePair(std::u16string_view source, std::u16string_view target) {
    writer_.WriteLine(std::u16string(source) + u"\t" + std::u16string(target));
  }

  platform::TextWriter writer_;
  bool isText_;
  std::int64_t count_ = 0;
  bool isComplete_ = false;
};

}  // namespace

void ConvertCatalogs(std::span<const std::u16string> paths) {
  const auto files = paths.first(paths.size() - 1);
  std::vector<Catalog> catalogs;
  for (const std::u16string& path : files) {
    catalogs.push_back(OpenAny(path));
    RefuseToReplace(paths.back(), path);
  }
  if (DetectCatalog(paths.back())) {  // the dictionary's name was forgotten
    Refuse(paths.back(), u"是语言文件，不能换成字典");
  }
  DictionaryWriter writer(paths.back(), catalogs.front().head);
  for (const Catalog& catalog : catalogs) {
    ReadAll(catalog, TheRun().catalogOptions,
            [&](std::u16string_view source, std::u16string_view target) {
              writer.Write(source, target);
            });
  }
  writer.Close();
}

std::u16string FillCatalogFrom(std::span<const std::u16string> paths) {
  const std::u16string& path = paths[0];
  const std::u16string& dictionary = paths[1];
  RefuseToReplace(paths[2], dictionary);
  const Catalog catalog = OpenAny(path);
  if (!CanBeFilled(catalog.format)) {
    Refuse(path, u"只能作“参照字典”");
  }
  DictionaryKind kind = RecogniseEncoding(dictionary);
  TheRun().dictionaries[dictionary] = kind;
  std::u16string pair;
  kind.format = modMain::DetectDictionaryFormat(dictionary, pair);
  if (kind.format == modMain::DictionaryFormat::Unknown) {
    Refuse(dictionary, u"不是 PASSOLO 字典或点睛文本");
  }
  const Translations translations = ReadTranslations(dictionary, kind);
  return FillSentence(catalog, FillFrom(catalog, paths[2], TheRun().catalogOptions, translations));
}

}  // namespace lexmill
