// SPDX-License-Identifier: MIT
#include "glossary/text_rules.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "platform/text/text.h"

namespace lexmill {
namespace {

constexpr std::u16string_view kLiteralTab = u"\\t";
constexpr std::u16string_view kLiteralTabPattern = uR"(^((?:\\\\|[^\\])+)(\\t(?:\\\\|[^\\])+)$)";

constexpr char16_t kAmpersand = u'&';
// Taken run by run, since unit by unit, as "(?:&&|[^&])*", would be felt.
constexpr std::u16string_view kBeforeBrackets = u"^([^&]*(?:&&[^&]*)*)";
// A character of two units goes as a whole: half of it could be written to no file.
constexpr std::u16string_view kBetweenBrackets =
    uR"(&(?:[\uD800-\uDBFF][\uDC00-\uDFFF]|[^ &\uD800-\uDBFF]))";
// A bracket that the user sets may reach into it, so that it stays as it always was.
constexpr std::u16string_view kAfterBrackets = u"((?:&&|[^&])*)$";
constexpr std::u16string_view kBothSides = u"$1$2";

constexpr std::u16string_view kBlanksOnBothSides = u"^( *)([^ ].*[^ ])( *)$";
constexpr std::u16string_view kLeadingBlanks = u"^( *)([^ ].*)$";
constexpr std::u16string_view kTrailingBlanks = u"^(.*[^ ])( *)$";

/// Takes away the punctuation that a string ends with: a run of one unit, at least as long as the
/// tell-tale.
struct PunctuationRule {
  std::u16string_view tellTale;
  bool OptionSet::*option;
  std::size_t longest;    ///< a longer run stays
  bool mayBeAll = false;  ///< also where the string is nothing else
};

/// In the order of precedence. The first two are for both sides, the others for reference targets.
constexpr std::array<PunctuationRule, 4> kPunctuationRules = {{
    {u":", &OptionSet::chkaBanMaoHao, 1},
    {u"...", &OptionSet::chkaBanSenHao, 3, true},
    {u"：", &OptionSet::chkrQuanMaoHao, 1},
    {u"…", &OptionSet::chkrQuanSenHao, 2},
}};
constexpr std::span kHalfWidthRules = std::span(kPunctuationRules).first<2>();

/// Position of the one ampersand in `text` that is not half of a pair; none if there are several,
/// or nothing comes after it.
std::optional<std::size_t> LoneAmpersand(std::u16string_view text) {
  std::optional<std::size_t> lone;
  for (std::size_t at = 0; (at = platform::Find(text, kAmpersand, at)) < text.size(); ++at) {
    if (text.substr(at).starts_with(u"&&")) {
      ++at;
    } else if (std::exchange(lone, at)) {
      return std::nullopt;
    }
  }
  return lone && *lone + 1 < text.size() ? lone : std::nullopt;
}

/// Sets `room` to `text` without the unit at `at`. @return `room`
std::u16string& WithoutUnit(std::u16string_view text, std::size_t at, std::u16string& room) {
  return room.assign(text, 0, at).append(text, at + 1);
}

/// The first unit of `text`, or the first two if they make up one character: half of it could be
/// written to no file.
std::u16string_view FirstCharacter(std::u16string_view text) {
  const bool isPair =
      text.size() > 1 && (text[0] & 0xFC00) == 0xD800 && (text[1] & 0xFC00) == 0xDC00;
  return text.substr(0, isPair ? 2 : 1);
}

bool IsTooLong(std::u16string_view source, const OptionSet& options) {
  return std::cmp_greater(source.size(), options.txtLenLimit);
}

std::span<const std::u16string_view> Match(platform::RegExp& expression,
                                           std::u16string_view pattern, std::u16string_view text) {
  expression.Pattern(pattern);
  return expression.Execute(text);
}

/// Length of the part of `text` before its one literal tab; none if it has not just one.
std::optional<std::size_t> LengthBeforeLiteralTab(std::u16string_view text,
                                                  platform::RegExp& expression) {
  if (!platform::Contains(text, kLiteralTab)) {
    return std::nullopt;
  }
  const auto groups = Match(expression, kLiteralTabPattern, text);
  return groups.empty() ? std::nullopt : std::optional(groups[1].size());
}

/// `text` without its final punctuation. A string belongs to the first rule whose mark it holds
/// anywhere, whether or not that rule is wanted or fits; none fits a string with a line end inside.
/// No rule fits a string that ends in no mark either, so most are never searched for one.
std::u16string_view WithoutPunctuation(std::u16string_view text,
                                       std::span<const PunctuationRule> rules,
                                       const OptionSet& options) {
  const auto endsAlike = [&](const PunctuationRule& rule) {
    return text.ends_with(rule.tellTale.back());
  };
  if (std::ranges::none_of(rules, endsAlike)) {
    return text;
  }
  const auto rule = std::ranges::find_if(rules, [&](const PunctuationRule& candidate) {
    return platform::Contains(text, candidate.tellTale);
  });
  if (rule == rules.end() || !text.ends_with(rule->tellTale) || !(options.*rule->option)) {
    return text;
  }
  const std::u16string_view rest =
      text.substr(0, text.find_last_not_of(rule->tellTale.front()) + 1);
  const bool isTooLong = text.size() - rest.size() > rule->longest;
  const bool hasLines = platform::Find(rest, u'\n') + 1 < rest.size();
  return isTooLong || hasLines || (rest.empty() && !rule->mayBeAll) ? text : rest;
}

}  // namespace

ReferenceRules::ReferenceRules(const OptionSet& options, platform::RegExp& expression)
    : options_(options), expression_(expression) {}

std::optional<PurifiedPair> ReferenceRules::PurifyReference(std::u16string_view source,
                                                            std::u16string_view target) {
  if (source == target || IsTooLong(source, options_)) {
    return std::nullopt;
  }
  return PurifiedPair{.source = PurifiedSource(source), .target = PurifiedTarget(target)};
}

std::u16string_view ReferenceRules::PurifiedSource(std::u16string_view text) {
  text = WithoutBlanks(SourceWithoutHotKey(WithoutLiteralTab(text)));
  return WithoutPunctuation(text, kHalfWidthRules, options_);
}

std::u16string_view ReferenceRules::PurifiedTarget(std::u16string_view text) {
  text = WithoutBlanks(TargetWithoutHotKey(WithoutLiteralTab(text)));
  return WithoutPunctuation(text, kPunctuationRules, options_);
}

std::u16string_view ReferenceRules::WithoutLiteralTab(std::u16string_view text) const {
  if (!options_.chkaMTab) {
    return text;
  }
  return text.substr(0, LengthBeforeLiteralTab(text, expression_).value_or(text.size()));
}

/// The ampersand goes, the character after it stays; it may be a blank.
std::u16string_view ReferenceRules::SourceWithoutHotKey(std::u16string_view source) {
  const auto lone = options_.chkaAndX ? LoneAmpersand(source) : std::nullopt;
  return lone ? WithoutUnit(source, *lone, source_) : source;
}

/// The hot key goes with its brackets; failing that, an ampersand before a full-width character.
std::u16string_view ReferenceRules::TargetWithoutHotKey(std::u16string_view target) {
  if (!options_.chkaAndX || !platform::Contains(target, kAmpersand)) {
    return target;
  }
  hotKeyPattern_.assign(kBeforeBrackets)
      .append(options_.txtrAndXBK1)
      .append(kBetweenBrackets)
      .append(options_.txtrAndXBK2)
      .append(kAfterBrackets);
  expression_.Pattern(hotKeyPattern_);
  if (expression_.ReplaceInto(target, kBothSides, target_)) {
    return target_;
  }
  constexpr char16_t kFirstOfFullWidth = 0x7F;
  const auto lone = options_.chkrAndXEER ? LoneAmpersand(target) : std::nullopt;
  const bool isHotKey = lone && target[*lone + 1] >= kFirstOfFullWidth;
  return isHotKey ? WithoutUnit(target, *lone, target_) : target;
}

std::u16string_view ReferenceRules::WithoutBlanks(std::u16string_view text) const {
  if (options_.chkaLTrimSpace) {
    text = platform::TrimLeft(text);
  }
  return options_.chkaRTrimSpace ? platform::TrimRight(text) : text;
}

constexpr std::array<UntranslatedRules::Step, 5> UntranslatedRules::kChain = {{
    {{u"\\t 后的快捷键", {{{u"chkaMTab", &OptionSet::chkaMTab}}}},
     &UntranslatedRules::SetLiteralTabAside},
    {{u"热键", {{{u"chkaAndX", &OptionSet::chkaAndX}}}}, &UntranslatedRules::SetHotKeyAside},
    {{u"前置、后置空格",
      {{{u"chkaLTrimSpace", &OptionSet::chkaLTrimSpace},
        {u"chkaRTrimSpace", &OptionSet::chkaRTrimSpace}}}},
     &UntranslatedRules::SetBlanksAside},
    {{u"末尾标点",
      {{{u"chkaBanMaoHao", &OptionSet::chkaBanMaoHao},
        {u"chkaBanSenHao", &OptionSet::chkaBanSenHao}}}},
     &UntranslatedRules::SetPunctuationAside},
    {{u"大小写", {{{u"chkaUpperCase", &OptionSet::chkaUpperCase}}}},
     &UntranslatedRules::SetUpperCase},
}};

UntranslatedRules::UntranslatedRules(const OptionSet& options, platform::RegExp& expression)
    : options_(options), expression_(expression) {}

std::optional<DecomposedString> UntranslatedRules::DecomposeUntranslated(
    std::u16string_view source, std::u16string_view target) {
  if (source != target || IsTooLong(source, options_)) {
    return std::nullopt;
  }
  return Decompose(target, [](const Step& /*step*/, const Work& /*work*/) {});
}

std::optional<DecomposedString> UntranslatedRules::WalkThrough(std::u16string_view source,
                                                               const OnRule& onRule) {
  if (IsTooLong(source, options_)) {
    return std::nullopt;
  }
  return Decompose(
      source, [&](const Step& step, const Work& work) { onRule(step.title, work.Pieces(source)); });
}

template <class AfterStep>
DecomposedString UntranslatedRules::Decompose(std::u16string_view source, AfterStep afterStep) {
  Work work{.text = source, .mainStart = 0, .mainEnd = source.size(), .hotKey = {}, .upper = {}};
  // Unrolled, since a call by pointer for each step would be felt.
  const auto applyAll = [&]<std::size_t... i>(std::index_sequence<i...> /*places*/) {
    (..., ((this->*kChain[i].apply)(work), afterStep(kChain[i], work)));
  };
  applyAll(std::make_index_sequence<kChain.size()>());
  return work.Pieces(source);
}

DecomposedString UntranslatedRules::Work::Pieces(std::u16string_view source) const {
  return {.so = source,
          .sh = text.substr(0, mainStart),
          .sm = upper ? *upper : Main(),
          .sk = hotKey,
          .st = text.substr(mainEnd)};
}

void UntranslatedRules::SetLiteralTabAside(Work& work) {
  if (options_.chkaMTab) {
    work.mainEnd = LengthBeforeLiteralTab(work.text, expression_).value_or(work.mainEnd);
  }
}

/// Takes the ampersand out of the main text, and makes the hot key in upper case between its
/// brackets. The character after the ampersand may not be a blank here.
void UntranslatedRules::SetHotKeyAside(Work& work) {
  const std::u16string_view main = work.Main();
  const auto lone = options_.chkaAndX ? LoneAmpersand(main) : std::nullopt;
  if (!lone || main[*lone + 1] == u' ') {
    return;
  }
  const std::u16string_view tail = work.text.substr(work.mainEnd);
  const std::u16string_view hotKey = FirstCharacter(main.substr(*lone + 1));
  WithoutUnit(main, *lone, text_);
  work.mainEnd = text_.size();
  work.text = text_.append(tail);
  hotKey_.assign(options_.txttAndXBK1).append(1, u'&');
  for (const char16_t unit : hotKey) {
    hotKey_.append(1, platform::UpperCase(unit));
  }
  work.hotKey = hotKey_.append(options_.txttAndXBK2);
}

/// Only a string with a blank at a wanted end can change, so that only it is matched.
void UntranslatedRules::SetBlanksAside(Work& work) {
  const bool leading = options_.chkaLTrimSpace;
  const bool trailing = options_.chkaRTrimSpace;
  const std::u16string_view main = work.Main();
  if (!(leading && main.starts_with(u' ')) && !(trailing && main.ends_with(u' '))) {
    return;
  }
  const std::u16string_view oneSide = leading ? kLeadingBlanks : kTrailingBlanks;
  const auto groups = Match(expression_, leading && trailing ? kBlanksOnBothSides : oneSide, main);
  if (groups.empty()) {
    return;
  }
  const std::size_t mainGroup = leading ? 2 : 1;
  work.mainStart = leading ? groups[1].size() : 0;
  work.mainEnd = work.mainStart + groups[mainGroup].size();
}

void UntranslatedRules::SetPunctuationAside(Work& work) {
  work.mainEnd = work.mainStart + WithoutPunctuation(work.Main(), kHalfWidthRules, options_).size();
}

void UntranslatedRules::SetUpperCase(Work& work) {
  if (!options_.chkaUpperCase) {
    return;
  }
  main_.assign(work.Main());
  std::ranges::transform(main_, main_.begin(),
                         [](char16_t unit) { return platform::UpperCase(unit); });
  work.upper = main_;
}

}  // namespace lexmill
