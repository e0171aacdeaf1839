// SPDX-License-Identifier: MIT
#include "run/explanation.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

#include "glossary/ready_dictionary.h"
#include "glossary/text_rules.h"
#include "platform/expression/regular_expression.h"
#include "platform/host/host_path.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "run/reference_list.h"
#include "run/reference_search.h"
#include "run/shared/option_set.h"
#include "run/shared/run_state.h"

namespace lexmill {
namespace {

std::u16string Quoted(std::u16string_view text) {
  return u"“" + std::u16string(text) + u"”";
}

std::u16string OnOneLine(std::u16string_view text) {
  std::u16string line = platform::ReplaceAll(text, u"\t", u"\\t");
  line = platform::ReplaceAll(line, u"\n", u"\\n");
  return platform::ReplaceAll(line, u"\r", u"\\r");
}

std::u16string Joined(const auto& items, auto textOf) {
  std::u16string text;
  for (const auto& item : items) {
    text.append(text.empty() ? u"" : u"、").append(textOf(item));
  }
  return text;
}

bool IsOn(const RuleTitle& rule) {
  return std::ranges::any_of(rule.options, [](const RuleOption& option) {
    return option.value != nullptr && RunOptions().*option.value;
  });
}

// The rule with its options and their values.
std::u16string Named(const RuleTitle& rule) {
  std::u16string text = u"  " + std::u16string(rule.text) + u" (";
  for (const auto& [name, value] : rule.options) {
    if (value != nullptr) {
      text.append(text.ends_with(u'(') ? u"" : u" ").append(name);
      text.append(RunOptions().*value ? u"=1" : u"=0");
    }
  }
  return text + u"): ";
}

/// Says what becomes of one string.
class Explanation {
 public:
  Explanation(std::u16string_view string, const ExplanationLine& takeLine)
      : string_(OnOneLine(string)), takeLine_(takeLine) {}

  // Returns true if a reference knows the string.
  bool Say() {
    takeLine_(u"未译字串: " + Quoted(string_));
    const auto pieces = SayRules();
    if (!pieces) {
      return false;
    }
    SayPieces(*pieces);
    bool isKnown = false;
    for (const Reference& reference : ReferencesOfRun()) {
      if (isKnown && TheRun().firstReferenceOnly) {
        takeLine_(TitleOf(reference) + u"已译出，不再查");
      } else if (!TheRun().abandoned) {
        isKnown = SayReference(reference, *pieces) || isKnown;
      }
    }
    return isKnown;
  }

 private:
  std::optional<DecomposedString> SayRules() {
    const std::u16string length =
        u"  字串长度限制 (txtLenLimit=" + platform::ToText(RunOptions().txtLenLimit) + u"): " +
        platform::ToText(static_cast<std::int64_t>(string_.size())) + u" 个字符";
    takeLine_(length);
    std::u16string before = string_;
    const auto pieces =
        rules_.WalkThrough(string_, [&](const RuleTitle& rule, const DecomposedString& after) {
          const std::u16string text = after.sm == before ? u"不变" : Quoted(after.sm);
          takeLine_(Named(rule) + (IsOn(rule) ? text : u"关"));
          before = after.sm;
        });
    if (!pieces) {
      takeLine_(u"字串太长，不查");
    }
    return pieces;
  }

  void SayPieces(const DecomposedString& pieces) {
    std::u16string text = u"查找: " + Quoted(pieces.sm);
    if (!pieces.sh.empty()) {
      text += u"；译文前加 " + Quoted(pieces.sh);
    }
    const std::u16string hotKey(RunOptions().chkNotAddANDX ? std::u16string_view() : pieces.sk);
    if (const std::u16string tail = hotKey + std::u16string(pieces.st); !tail.empty()) {
      text += u"；译文后加 " + Quoted(tail);
    }
    takeLine_(text);
  }

  static std::u16string TitleOf(const Reference& reference) {
    return (reference.isDatabase ? u"净化数据库 " : u"参照字典 ") +
           Quoted(platform::FileName(reference.path)) + u": ";
  }

  bool SayReference(const Reference& reference, const DecomposedString& pieces) {
    const SearchResult result = SearchReference(reference, pieces.sm);
    const bool isKnown = !result.translations.empty();
    takeLine_(TitleOf(reference) + (isKnown ? u"有" : u"没有"));
    for (const FoundTranslation& translation : result.translations) {
      takeLine_(u"  译文 " + Quoted(Dressed(translation.bare, pieces)) + u": " +
                Joined(translation.entries, PlaceOf));
    }
    if (!isKnown) {
      SayNearest(result);
    }
    SayUnused(result);
    return isKnown;
  }

  static std::u16string Dressed(std::u16string_view translation, const DecomposedString& pieces) {
    std::u16string target;
    RebuildTarget({pieces.so, pieces.sh, translation, pieces.sk, pieces.st},
                  !RunOptions().chkNotAddANDX, target);
    return target;
  }

  static std::u16string InLine(std::int64_t line) {
    return u"第 " + platform::ToText(line) + u" 行";
  }

  static std::u16string PairOf(const FoundEntry& entry) {
    return Quoted(entry.source) + u" → " + Quoted(entry.target);
  }

  static std::u16string PlaceOf(const FoundEntry& entry) {
    return entry.line == 0 ? PairOf(entry) : InLine(entry.line);
  }

  void SayNearest(const SearchResult& result) {
    for (const auto& [entry, differences] : result.nearest) {
      const std::u16string line = entry.line == 0 ? u"" : InLine(entry.line) + u" ";
      takeLine_(u"  相近: " + line + PairOf(entry) + u"，" + NamesOf(differences) + u"不同");
    }
    if (result.furtherNear > 0) {
      takeLine_(u"  还有 " + platform::ToText(result.furtherNear) + u" 条相近的");
    }
    if (result.nearest.empty()) {
      takeLine_(u"  没有相近的字串");
    }
  }

  static std::u16string NamesOf(const Differences& differences) {
    const std::array<std::pair<bool, std::u16string_view>, 3> kNames = {
        {{differences.letterCase, u"大小写"},
         {differences.ending, u"结尾"},
         {differences.hotKey, u"热键"}}};
    std::u16string names;
    for (const auto& [differs, name] : kNames) {
      if (differs) {
        names.append(names.empty() ? u"" : u"、").append(name);
      }
    }
    return names;
  }

  void SayUnused(const SearchResult& result) {
    static const std::map<EntryUse, std::u16string_view> kReasons = {
        {EntryUse::EqualSides, u"两边相同，没有译文"},
        {EntryUse::MoreColumns, u"不止两列"},
        {EntryUse::TooLong, u"太长"}};
    for (const auto& [use, lines] : result.unused) {
      takeLine_(u"  不用: " + Joined(lines, InLine) + u"，" + std::u16string(kReasons.at(use)));
    }
  }

  std::u16string string_;
  const ExplanationLine& takeLine_;
  platform::RegExp expression_;
  UntranslatedRules rules_{RunOptions(), expression_};
};

}  // namespace

bool ExplainString(std::u16string_view string, const ExplanationLine& takeLine) {
  return Explanation(string, takeLine).Say();
}

}  // namespace lexmill
