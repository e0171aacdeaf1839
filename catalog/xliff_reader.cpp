// SPDX-License-Identifier: MIT
#include "catalog/xliff_reader.h"

#include <string>
#include <vector>

#include "catalog/catalog_failure.h"
#include "catalog/markup_capture.h"
#include "catalog/markup_head.h"

namespace lexmill {
namespace {

using platform::MarkupEvent;
using platform::MarkupKind;

/// What a group says of the units in it.
struct UnitRules {
  bool isPlural = false;
  bool isTranslated = true;
};

class XliffParser {
 public:
  XliffParser(std::u16string_view path, const CatalogHead& head,
              const platform::MarkupReader& reader, const OnEntry& onEntry)
      : path_(path),
        head_(head),
        reader_(reader),
        onEntry_(onEntry),
        capture_(reader, false),
        indent_(reader) {}

  void Take(const MarkupEvent& event) {
    if (capture_.IsOpen()) {
      capture_.Take(event);
      if (!capture_.IsOpen()) {
        KeepCaptured();
      }
    } else if (event.kind == MarkupKind::Start) {
      TakeStart(event);
    } else if (event.kind == MarkupKind::End) {
      TakeEnd(event);
    }
    indent_.Take(event);
  }

 private:
  void TakeStart(const MarkupEvent& event);
  void TakeEnd(const MarkupEvent& event);
  void TakeVersion() const;
  void BeginUnit();
  void BeginCapture(const MarkupEvent& event);
  void KeepCaptured();
  void CompleteUnit();
  [[nodiscard]] bool IsToReview() const;
  [[nodiscard]] UnitRules RulesHere() const;

  std::u16string_view path_;
  const CatalogHead& head_;
  const platform::MarkupReader& reader_;
  const OnEntry& onEntry_;
  MarkupCapture capture_;
  MarkupIndent indent_;
  std::vector<UnitRules> groups_;  ///< those that are open
  bool isInUnit_ = false;
  int alternatives_ = 0;   ///< elements open within the unit that may hold other targets
  bool isTarget_ = false;  ///< which element is under capture
  CatalogEntry entry_;
  MarkupPlace place_;
  bool isApproved_ = true;
  std::u16string state_;
};

UnitRules XliffParser::RulesHere() const {
  UnitRules rules = groups_.empty() ? UnitRules() : groups_.back();
  const auto translate = reader_.Attribute(u"translate");
  rules.isTranslated = translate ? *translate != u"no" : rules.isTranslated;
  rules.isPlural = rules.isPlural || reader_.Attribute(u"restype") == u"x-gettext-plurals";
  return rules;
}

void XliffParser::TakeStart(const MarkupEvent& event) {
  if (event.name == u"xliff") {
    TakeVersion();
  } else if (event.name == u"group") {
    groups_.push_back(RulesHere());
  } else if (event.name == u"trans-unit") {
    BeginUnit();
  } else if (event.name == u"alt-trans") {
    ++alternatives_;
  } else if (isInUnit_ && alternatives_ == 0) {
    BeginCapture(event);
  }
}

void XliffParser::TakeVersion() const {
  if (!reader_.Attribute(u"version").value_or(u"1").starts_with(u"1")) {
    RefuseCatalog(path_, reader_.Line(), u"只支持 XLIFF 1.2 及更早的版本");
  }
}

void XliffParser::TakeEnd(const MarkupEvent& event) {
  if (event.name == u"group" && !groups_.empty()) {
    groups_.pop_back();
  } else if (event.name == u"alt-trans") {
    --alternatives_;
  } else if (event.name == u"seg-source" && isInUnit_ && alternatives_ == 0) {
    place_.afterSource = event.range.end;
  } else if (event.name == u"trans-unit") {
    CompleteUnit();
  }
}

void XliffParser::BeginUnit() {
  const UnitRules rules = RulesHere();
  isInUnit_ = true;
  entry_ = {};
  entry_.context = reader_.Attribute(u"resname").value_or(reader_.Attribute(u"id").value_or(u""));
  entry_.kind = !rules.isTranslated ? EntryKind::Fixed
                : rules.isPlural    ? EntryKind::Plural
                                    : EntryKind::Plain;
  entry_.line = reader_.Line();
  place_ = {};
  place_.language = MarkupPlace::Language::Xliff;
  place_.page = head_.page;
  isApproved_ = reader_.Attribute(u"approved") != u"no";
  state_.clear();
}

void XliffParser::BeginCapture(const MarkupEvent& event) {
  isTarget_ = event.name == u"target";
  if (isTarget_) {
    state_ = reader_.Attribute(u"state").value_or(u"");
    capture_.Begin(event);
  } else if (event.name == u"source") {
    place_.indent = indent_.Blanks();
    capture_.Begin(event);
  }
}

void XliffParser::KeepCaptured() {
  (isTarget_ ? entry_.target : entry_.source) = capture_.Text();
  (isTarget_ ? place_.target.emplace() : place_.source) = capture_.Element();
  place_.afterSource = isTarget_ ? place_.afterSource : capture_.Element().end;
  if (capture_.IsMixed() && entry_.kind == EntryKind::Plain) {
    entry_.kind = EntryKind::Inline;
  }
}

bool XliffParser::IsToReview() const {
  return state_.empty() ? !isApproved_ : state_.starts_with(u"needs-") || state_ == u"new";
}

void XliffParser::CompleteUnit() {
  isInUnit_ = false;
  if (entry_.source.empty() && entry_.kind == EntryKind::Plain) {
    entry_.kind = EntryKind::Fixed;
  }
  if (!entry_.target.empty()) {
    entry_.state = IsToReview() ? EntryState::Marked : EntryState::Translated;
  }
  place_.escapesQuotes = capture_.EscapesQuotes();
  entry_.place = place_;
  onEntry_(entry_);
}

}  // namespace

CatalogHead ReadXliffHead(std::u16string_view path) {
  return ReadMarkupHead(path, {u"file", u"source-language", u"target-language"});
}

void ReadXliff(std::u16string_view path, const CatalogHead& head, const OnEntry& onEntry) {
  platform::MarkupReader reader(path);
  XliffParser parser(path, head, reader, onEntry);
  ReadMarkupCatalog(path, reader, [&](const MarkupEvent& event) { parser.Take(event); });
}

}  // namespace lexmill
