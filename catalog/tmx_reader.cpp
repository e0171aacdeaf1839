// SPDX-License-Identifier: MIT
#include "catalog/tmx_reader.h"

#include <optional>
#include <string>

#include "catalog/language_tag.h"
#include "catalog/markup_capture.h"
#include "catalog/markup_head.h"

namespace lexmill {
namespace {

using platform::MarkupEvent;
using platform::MarkupKind;

class TmxParser {
 public:
  TmxParser(const CatalogHead& head, const platform::MarkupReader& reader, const OnEntry& onEntry)
      : head_(head), reader_(reader), onEntry_(onEntry), capture_(reader, false) {}

  void Take(const MarkupEvent& event) {
    if (capture_.IsOpen()) {
      capture_.Take(event);
      if (!capture_.IsOpen()) {
        KeepCaptured();
      }
    } else if (event.kind == MarkupKind::Start) {
      TakeStart(event);
    } else if (event.kind == MarkupKind::End && event.name == u"tu") {
      CompleteUnit();
    }
  }

 private:
  /// The text of a unit in one language.
  struct Variant {
    std::u16string text;
    bool isMixed = false;
  };

  void TakeStart(const MarkupEvent& event) {
    if (event.name == u"tu") {
      source_.reset();
      target_.reset();
      line_ = reader_.Line();
      context_ = reader_.Attribute(u"tuid").value_or(u"");
    } else if (event.name == u"tuv") {
      language_ = reader_.Attribute(u"xml:lang").value_or(reader_.Attribute(u"lang").value_or(u""));
    } else if (event.name == u"seg") {
      capture_.Begin(event);
    }
  }

  void KeepCaptured() {
    if (!source_ && IsLanguage(language_, head_.sourceLanguage)) {
      source_ = {capture_.Text(), capture_.IsMixed()};
    } else if (!target_ && IsLanguage(language_, head_.targetLanguage)) {
      target_ = {capture_.Text(), capture_.IsMixed()};
    }
  }

  void CompleteUnit() {
    if (!source_ || !target_) {
      return;
    }
    CatalogEntry entry;
    entry.context = context_;
    entry.source = source_->text;
    entry.target = target_->text;
    entry.kind = source_->isMixed || target_->isMixed ? EntryKind::Inline : EntryKind::Plain;
    entry.state = entry.target.empty() ? EntryState::Open : EntryState::Translated;
    entry.line = line_;
    onEntry_(entry);
  }

  const CatalogHead& head_;
  const platform::MarkupReader& reader_;
  const OnEntry& onEntry_;
  MarkupCapture capture_;
  std::u16string context_;
  std::u16string language_;
  std::optional<Variant> source_;
  std::optional<Variant> target_;
  std::int64_t line_ = 0;
};

}  // namespace

CatalogHead ReadTmxHead(std::u16string_view path) {
  CatalogHead head = ReadMarkupHead(path, {u"header", u"srclang", u""});
  if (head.sourceLanguage.empty() || head.sourceLanguage == u"*all*") {
    head.sourceLanguage = u"en";
  }
  head.targetLanguage = u"zh";
  return head;
}

void ReadTmx(std::u16string_view path, const CatalogHead& head, const OnEntry& onEntry) {
  platform::MarkupReader reader(path);
  TmxParser parser(head, reader, onEntry);
  ReadMarkupCatalog(path, reader, [&](const MarkupEvent& event) { parser.Take(event); });
}

}  // namespace lexmill
