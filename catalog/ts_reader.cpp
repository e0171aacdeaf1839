// SPDX-License-Identifier: MIT
#include "catalog/ts_reader.h"

#include <string>

#include "catalog/markup_entry.h"
#include "catalog/markup_head.h"
#include "catalog/markup_walk.h"

namespace lexmill {
namespace {

using platform::MarkupEvent;

class TsParser {
 public:
  TsParser(const CatalogHead& head, MarkupWalk& walk, const OnEntry& onEntry)
      : walk_(walk), onEntry_(onEntry), message_(MarkupPlace::Language::Ts, head, walk) {}

  void TakeStart(const MarkupEvent& event);
  void TakeEnd(const MarkupEvent& event);
  void KeepCaptured();

 private:
  void BeginMessage();
  void CompleteMessage();

  MarkupWalk& walk_;
  const OnEntry& onEntry_;
  MarkupEntry message_;
  std::u16string captured_;  ///< the name of the element under capture
  std::u16string context_;
  std::u16string type_;  ///< of the translation
};

void TsParser::TakeStart(const MarkupEvent& event) {
  if (event.name == u"message") {
    BeginMessage();
    return;
  }
  const bool isTarget = event.name == u"translation";
  if (isTarget) {
    type_ = walk_.Reader().Attribute(u"type").value_or(u"");
  }
  if (isTarget || event.name == u"source") {
    message_.Place().indent = walk_.Indent();
  }
  if (isTarget || event.name == u"source" || event.name == u"name" || event.name == u"comment" ||
      event.name == u"translatorcomment") {
    captured_ = event.name;
    walk_.Capture().Begin(event);
  }
}

void TsParser::TakeEnd(const MarkupEvent& event) {
  if (event.name == u"message") {
    CompleteMessage();
  }
}

void TsParser::BeginMessage() {
  message_.Begin();
  message_.Entry().context = context_;
  if (walk_.Reader().Attribute(u"numerus") == u"yes") {
    message_.Entry().kind = EntryKind::Plural;
  }
  type_.clear();
}

void TsParser::KeepCaptured() {
  if (captured_ == u"name") {
    context_ = walk_.Capture().Text();
  } else if (captured_ == u"comment") {
    message_.Entry().context += u" / " + walk_.Capture().Text();
  } else if (captured_ == u"translatorcomment") {
    message_.Place().comment = walk_.Capture().Element();
  } else if (captured_ == u"source") {
    message_.TakeSource();
  } else {
    message_.TakeTarget();
  }
}

void TsParser::CompleteMessage() {
  if (type_ == u"obsolete" || type_ == u"vanished") {
    message_.Entry().kind = EntryKind::Fixed;
  }
  message_.Complete(type_ == u"unfinished", onEntry_);
}

}  // namespace

CatalogHead ReadTsHead(std::u16string_view path) {
  return ReadMarkupHead(path, {u"TS", u"sourcelanguage", u"language"});
}

void ReadTs(std::u16string_view path, const CatalogHead& head, const OnEntry& onEntry) {
  MarkupWalk walk(path, true);
  TsParser parser(head, walk, onEntry);
  walk.Read(parser);
}

}  // namespace lexmill
