// SPDX-License-Identifier: MIT
#include "catalog/ts_reader.h"

#include <string>

#include "catalog/markup_capture.h"
#include "catalog/markup_head.h"

namespace lexmill {
namespace {

using platform::MarkupEvent;
using platform::MarkupKind;

class TsParser {
 public:
  TsParser(const CatalogHead& head, const platform::MarkupReader& reader, const OnEntry& onEntry)
      : head_(head), reader_(reader), onEntry_(onEntry), capture_(reader, true), indent_(reader) {}

  void Take(const MarkupEvent& event) {
    if (capture_.IsOpen()) {
      capture_.Take(event);
      if (!capture_.IsOpen()) {
        KeepCaptured();
      }
    } else if (event.kind == MarkupKind::Start) {
      TakeStart(event);
    } else if (event.kind == MarkupKind::End && event.name == u"message") {
      CompleteEntry();
    }
    indent_.Take(event);
  }

 private:
  void TakeStart(const MarkupEvent& event);
  void BeginMessage();
  void KeepCaptured();
  void CompleteEntry();

  const CatalogHead& head_;
  const platform::MarkupReader& reader_;
  const OnEntry& onEntry_;
  MarkupCapture capture_;
  MarkupIndent indent_;
  std::u16string captured_;  ///< the name of the element under capture
  std::u16string context_;
  CatalogEntry entry_;
  MarkupPlace place_;
  std::u16string type_;  ///< of the translation
};

void TsParser::TakeStart(const MarkupEvent& event) {
  if (event.name == u"message") {
    BeginMessage();
    return;
  }
  const bool isTarget = event.name == u"translation";
  if (isTarget) {
    type_ = reader_.Attribute(u"type").value_or(u"");
  }
  if (isTarget || event.name == u"source") {
    place_.indent = indent_.Blanks();
  }
  if (isTarget || event.name == u"source" || event.name == u"name" || event.name == u"comment" ||
      event.name == u"translatorcomment") {
    captured_ = event.name;
    capture_.Begin(event);
  }
}

void TsParser::BeginMessage() {
  entry_ = {};
  entry_.context = context_;
  entry_.kind = reader_.Attribute(u"numerus") == u"yes" ? EntryKind::Plural : EntryKind::Plain;
  entry_.line = reader_.Line();
  place_ = {};
  place_.language = MarkupPlace::Language::Ts;
  place_.page = head_.page;
  type_.clear();
}

void TsParser::KeepCaptured() {
  if (captured_ == u"name") {
    context_ = capture_.Text();
  } else if (captured_ == u"comment") {
    entry_.context += u" / " + capture_.Text();
  } else if (captured_ == u"translatorcomment") {
    place_.comment = capture_.Element();
  } else {
    const bool isSource = captured_ == u"source";
    (isSource ? entry_.source : entry_.target) = capture_.Text();
    (isSource ? place_.source : place_.target.emplace()) = capture_.Element();
    place_.afterSource = isSource ? capture_.Element().end : place_.afterSource;
    if (capture_.IsMixed() && entry_.kind == EntryKind::Plain) {
      entry_.kind = EntryKind::Inline;
    }
  }
}

void TsParser::CompleteEntry() {
  if (type_ == u"obsolete" || type_ == u"vanished" || entry_.source.empty()) {
    entry_.kind = EntryKind::Fixed;
  }
  if (!entry_.target.empty()) {
    entry_.state = type_ == u"unfinished" ? EntryState::Marked : EntryState::Translated;
  }
  place_.escapesQuotes = capture_.EscapesQuotes();
  entry_.place = place_;
  onEntry_(entry_);
}

}  // namespace

CatalogHead ReadTsHead(std::u16string_view path) {
  return ReadMarkupHead(path, {u"TS", u"sourcelanguage", u"language"});
}

void ReadTs(std::u16string_view path, const CatalogHead& head, const OnEntry& onEntry) {
  platform::MarkupReader reader(path);
  TsParser parser(head, reader, onEntry);
  ReadMarkupCatalog(path, reader, [&](const MarkupEvent& event) { parser.Take(event); });
}

}  // namespace lexmill
