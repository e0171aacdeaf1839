// SPDX-License-Identifier: MIT
// glossary: the stages for glossaries, and what all stages share.
// The text rules: what a decorated string is stripped of, on either side. Glossaries and texts go
// through the same chains.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "glossary/decomposed_string.h"
#include "platform/expression/regular_expression.h"
#include "run/shared/option_set.h"

namespace lexmill {

/// A reference entry after the rules: the bare words of both sides.
struct PurifiedPair {
  std::u16string_view source;
  std::u16string_view target;

  bool operator==(const PurifiedPair&) const = default;
};

/// The rule chain of the reference side. Holds buffers, so that a string that no rule touches costs
/// no copy.
class ReferenceRules {
 public:
  /// @param options, expression  kept by reference for the life of this object; `expression` serves
  ///   all rules, its pattern being set anew for each
  ReferenceRules(const OptionSet& options, platform::RegExp& expression);

  /// Strips an entry down to its bare words.
  /// @return the two strings, their views alive until the next call or the end of the arguments;
  ///   none if source and target are equal or the source is longer than txtLenLimit units
  /// @throws platform::Failure of the expression engine for a bad fragment in txtrAndXBK1 or
  ///   txtrAndXBK2, when a target first needs it
  [[nodiscard]] std::optional<PurifiedPair> PurifyReference(std::u16string_view source,
                                                            std::u16string_view target);

 private:
  [[nodiscard]] std::u16string_view PurifiedSource(std::u16string_view text);
  [[nodiscard]] std::u16string_view PurifiedTarget(std::u16string_view text);
  [[nodiscard]] std::u16string_view WithoutLiteralTab(std::u16string_view text) const;
  [[nodiscard]] std::u16string_view SourceWithoutHotKey(std::u16string_view source);
  [[nodiscard]] std::u16string_view TargetWithoutHotKey(std::u16string_view target);
  [[nodiscard]] std::u16string_view WithoutBlanks(std::u16string_view text) const;

  const OptionSet& options_;
  platform::RegExp& expression_;
  std::u16string source_;         ///< a source that lost its ampersand
  std::u16string target_;         ///< a target that lost its hot key
  std::u16string hotKeyPattern_;  ///< of targets, made of the two bracket fragments
};

/// An option that turns a rule on.
struct RuleOption {
  std::u16string_view name;  ///< of its control
  bool OptionSet::*value = nullptr;
};

/// A rule of the untranslated side as users know it.
struct RuleTitle {
  std::u16string_view text;           ///< Chinese
  std::array<RuleOption, 2> options;  ///< the second may be none
};

/// Sees a rule and what the rules have made of a string up to and with it.
using OnRule = std::function<void(const RuleTitle& rule, const DecomposedString& pieces)>;

/// The rule chain of the untranslated side. Holds buffers as ReferenceRules does.
class UntranslatedRules {
 public:
  /// @param options, expression  as for ReferenceRules
  UntranslatedRules(const OptionSet& options, platform::RegExp& expression);

  /// Takes an untranslated string apart so that its translation can be dressed the same way.
  /// @return the five pieces, `so` being `target`, their views alive as for PurifyReference;
  ///   none if the two differ (the string is translated) or `source` is longer than txtLenLimit
  ///   units
  [[nodiscard]] std::optional<DecomposedString> DecomposeUntranslated(std::u16string_view source,
                                                                      std::u16string_view target);

  /// Does so with an untranslated string and reports each rule, also one that is off, once it has
  /// been applied.
  [[nodiscard]] std::optional<DecomposedString> WalkThrough(std::u16string_view source,
                                                            const OnRule& onRule);

 private:
  /// A string under work. What the rules take away at either end stays beside the main text, so
  /// that to take away is to move a border.
  struct Work {
    std::u16string_view text;  ///< head, main text and tail
    std::size_t mainStart;
    std::size_t mainEnd;
    std::u16string_view hotKey;                ///< in its brackets
    std::optional<std::u16string_view> upper;  ///< the main text in upper case, if wanted

    [[nodiscard]] std::u16string_view Main() const {
      return text.substr(mainStart, mainEnd - mainStart);
    }
    /// The pieces as they are, `source` being the whole.
    [[nodiscard]] DecomposedString Pieces(std::u16string_view source) const;
  };

  /// A rule with its place in the chain.
  struct Step {
    RuleTitle title;
    void (UntranslatedRules::*apply)(Work& work);
  };
  static const std::array<Step, 5> kChain;

  template <class AfterStep>
  [[nodiscard]] DecomposedString Decompose(std::u16string_view source, AfterStep afterStep);
  void SetLiteralTabAside(Work& work);
  void SetHotKeyAside(Work& work);
  void SetBlanksAside(Work& work);
  void SetPunctuationAside(Work& work);
  void SetUpperCase(Work& work);

  const OptionSet& options_;
  platform::RegExp& expression_;
  std::u16string text_;    ///< a string that lost its ampersand
  std::u16string hotKey_;  ///< the hot key in its brackets
  std::u16string main_;    ///< the main text in upper case
};

}  // namespace lexmill
