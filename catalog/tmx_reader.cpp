// SPDX-License-Identifier: MIT
#include "catalog/tmx_reader.h"

#include <optional>
#include <string>

#include "catalog/language_tag.h"
#include "catalog/markup_head.h"
#include "catalog/markup_walk.h"

namespace lexmill {
namespace {

using platform::MarkupEvent;

class TmxParser {
 public:
  TmxParser(const CatalogHead& head, MarkupWalk& walk, const OnEntry& onEntry)
      : head_(head), walk_(walk), onEntry_(onEntry) {}

  void TakeStart(const MarkupEvent& event) {
    const platform::MarkupReader& reader = walk_.Reader();
    if (event.name == u"tu") {
      source_.reset();
      target_.reset();
      line_ = reader.Line();
      context_ = reader.Attribute(u"tuid").value_or(u"");
    } else if (event.name == u"tuv") {
      language_ = reader.Attribute(u"xml:lang").value_or(reader.Attribute(u"lang").value_or(u""));
    } else if (event.name == u"seg") {
      walk_.Capture().Begin(event);
    }
  }

  void TakeEnd(const MarkupEvent& event) {
    if (event.name == u"tu") {
      CompleteUnit();
    }
  }

  void KeepCaptured() {
    const MarkupCapture& capture = walk_.Capture();
    if (!source_ && IsLanguage(language_, head_.sourceLanguage)) {
      source_ = {capture.Text(), capture.IsMixed()};
    } else if (!target_ && IsLanguage(language_, head_.targetLanguage)) {
      target_ = {capture.Text(), capture.IsMixed()};
    }
  }

 private:
  /// The text of a unit in one language.
  struct Variant {
    std::u16string text;
    bool isMixed = false;
  };

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
  MarkupWalk& walk_;
  const OnEntry& onEntry_;
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
  MarkupWalk walk(path, false);
  TmxParser parser(head, walk, onEntry);
  walk.Read(parser);
}

}  // namespace lexmill
