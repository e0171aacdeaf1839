// SPDX-License-Identifier: MIT
#include "catalog/xliff_reader.h"

#include <string>
#include <vector>

#include "catalog/catalog_failure.h"
#include "catalog/markup_entry.h"
#include "catalog/markup_head.h"
#include "catalog/markup_walk.h"

namespace lexmill {
namespace {

using platform::MarkupEvent;

/// What a group says of the units in it.
struct UnitRules {
  bool isPlural = false;
  bool isTranslated = true;
};

class XliffParser {
 public:
  XliffParser(const CatalogHead& head, MarkupWalk& walk, const OnEntry& onEntry)
      : walk_(walk), onEntry_(onEntry), unit_(MarkupPlace::Language::Xliff, head, walk) {}

  void TakeStart(const MarkupEvent& event);
  void TakeEnd(const MarkupEvent& event);
  void KeepCaptured();

 private:
  void TakeVersion() const;
  void BeginUnit();
  void BeginCapture(const MarkupEvent& event);
  [[nodiscard]] bool IsToReview() const;
  [[nodiscard]] UnitRules RulesHere() const;
  /// True between the tags of a unit, but for those of other targets than its own.
  [[nodiscard]] bool IsInUnit() const { return unit_.IsOpen() && alternatives_ == 0; }

  MarkupWalk& walk_;
  const OnEntry& onEntry_;
  MarkupEntry unit_;
  std::vector<UnitRules> groups_;  ///< those that are open
  int alternatives_ = 0;           ///< elements open that may hold other targets
  bool isTarget_ = false;          ///< which element is under capture
  bool isApproved_ = true;
  std::u16string state_;
};

UnitRules XliffParser::RulesHere() const {
  UnitRules rules = groups_.empty() ? UnitRules() : groups_.back();
  const auto translate = walk_.Reader().Attribute(u"translate");
  rules.isTranslated = translate ? *translate != u"no" : rules.isTranslated;
  rules.isPlural = rules.isPlural || walk_.Reader().Attribute(u"restype") == u"x-gettext-plurals";
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
  } else if (IsInUnit()) {
    BeginCapture(event);
  }
}

void XliffParser::TakeVersion() const {
  if (!walk_.Reader().Attribute(u"version").value_or(u"1").starts_with(u"1")) {
    RefuseCatalog(walk_.Path(), walk_.Reader().Line(), u"只支持 XLIFF 1.2 及更早的版本");
  }
}

void XliffParser::TakeEnd(const MarkupEvent& event) {
  if (event.name == u"group" && !groups_.empty()) {
    groups_.pop_back();
  } else if (event.name == u"alt-trans") {
    --alternatives_;
  } else if (event.name == u"seg-source" && IsInUnit()) {
    unit_.Place().afterSource = event.range.end;
  } else if (event.name == u"trans-unit") {
    unit_.Complete(IsToReview(), onEntry_);
  }
}

void XliffParser::BeginUnit() {
  const platform::MarkupReader& reader = walk_.Reader();
  const UnitRules rules = RulesHere();
  unit_.Begin();
  CatalogEntry& entry = unit_.Entry();
  entry.context = reader.Attribute(u"resname").value_or(reader.Attribute(u"id").value_or(u""));
  entry.kind = !rules.isTranslated ? EntryKind::Fixed
               : rules.isPlural    ? EntryKind::Plural
                                   : EntryKind::Plain;
  isApproved_ = reader.Attribute(u"approved") != u"no";
  state_.clear();
}

void XliffParser::BeginCapture(const MarkupEvent& event) {
  isTarget_ = event.name == u"target";
  if (isTarget_) {
    state_ = walk_.Reader().Attribute(u"state").value_or(u"");
    walk_.Capture().Begin(event);
  } else if (event.name == u"source") {
    unit_.Place().indent = walk_.Indent();
    walk_.Capture().Begin(event);
  }
}

void XliffParser::KeepCaptured() {
  if (isTarget_) {
    unit_.TakeTarget();
  } else {
    unit_.TakeSource();
  }
}

bool XliffParser::IsToReview() const {
  return state_.empty() ? !isApproved_ : state_.starts_with(u"needs-") || state_ == u"new";
}

}  // namespace

CatalogHead ReadXliffHead(std::u16string_view path) {
  return ReadMarkupHead(path, {u"file", u"source-language", u"target-language"});
}

void ReadXliff(std::u16string_view path, const CatalogHead& head, const OnEntry& onEntry) {
  MarkupWalk walk(path, false);
  XliffParser parser(head, walk, onEntry);
  walk.Read(parser);
}

}  // namespace lexmill
