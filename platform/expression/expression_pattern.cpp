// SPDX-License-Identifier: MIT
#include "platform/expression/expression_pattern.h"

#include "platform/expression/expression_escape.h"
#include "platform/failure.h"

namespace lexmill::platform {
namespace {

[[noreturn]] void Refuse(FailureNumber number) {
  throw Failure(number, FailureOrigin::ScriptLibrary);
}

bool IsDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}

std::size_t DigitsFrom(std::u16string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && IsDigit(text[end])) {
    ++end;
  }
  return end - at;
}

/// Length of "{2}", "{2,}" or "{2,3}" at the start of `text`; 0 if it starts with none of them,
/// and the bracket is a literal.
std::size_t CountedQuantifierLength(std::u16string_view text) {
  const std::size_t lowest = DigitsFrom(text, 1);
  std::size_t at = 1 + lowest;
  if (lowest > 0 && at < text.size() && text[at] == u',') {
    ++at;
    at += DigitsFrom(text, at);
  }
  return lowest > 0 && at < text.size() && text[at] == u'}' ? at + 1 : 0;
}

/// One pass over a pattern, from left to right.
class Translation {
 public:
  explicit Translation(std::u16string_view pattern) : pattern_(pattern) {
    result_.reserve(pattern.size() * 2);
  }

  std::u16string Run() {
    while (at_ < pattern_.size()) {
      if (const std::size_t length = QuantifierLength(); length > 0) {
        Quantifier(length);
      } else {
        Term();
      }
    }
    if (open_ > 0) {
      Refuse(FailureNumber::ExpectedParenthesis);
    }
    return std::move(result_);
  }

 private:
  [[nodiscard]] std::u16string_view Rest() const { return pattern_.substr(at_); }

  [[nodiscard]] std::size_t QuantifierLength() const {
    switch (pattern_[at_]) {
      case u'*':
      case u'+':
      case u'?':
        return 1;
      case u'{':
        return CountedQuantifierLength(Rest());
      default:
        return 0;
    }
  }

  /// A quantifier with the "?" that makes it take as little as it can.
  void Quantifier(std::size_t length) {
    if (!quantifiable_) {
      Refuse(FailureNumber::UnexpectedQuantifier);
    }
    const bool lazy = Rest().substr(length).starts_with(u'?');
    Copy(lazy ? length + 1 : length, false);
  }

  void Term() {
    switch (pattern_[at_]) {
      case u'(':
        return OpenGroup();
      case u')':
        return CloseGroup();
      case u'[':
        return Set();
      case u'\\':
        return EscapedTerm();
      case u'|':
      case u'^':
      case u'$':
        return Copy(1, false);
      case u'.':
        return Copy(1, true);
      default:
        Literal(pattern_[at_++]);
        quantifiable_ = true;
    }
  }

  void OpenGroup() {
    const std::u16string_view kind = Rest().substr(1, 2);
    const bool hasKind = kind == u"?:" || kind == u"?=" || kind == u"?!";
    groups_ += hasKind ? 0 : 1;
    ++open_;
    Copy(hasKind ? 3 : 1, false);
  }

  void CloseGroup() {
    if (open_ == 0) {
      Refuse(FailureNumber::ExpressionSyntax);
    }
    --open_;
    Copy(1, true);
  }

  void EscapedTerm() {
    const std::u16string_view escaped = Rest().substr(1, 1);
    if (escaped == u"b" || escaped == u"B") {
      return Copy(2, false);
    }
    quantifiable_ = true;
    if (const std::size_t digits = ReferenceDigits(); digits > 0) {
      result_ += u"\\g{";
      result_ += pattern_.substr(at_ + 1, digits);
      result_ += u'}';
      at_ += 1 + digits;
      return;
    }
    const Escape escape = ReadEscape(pattern_, at_);
    escape.isSet ? NamedSet(escape.unit) : Literal(escape.unit);
  }

  /// Number of digits of the reference to a group that a backslash at hand begins: two or one if
  /// that many groups come before it, else 0, and the digits are an octal number.
  [[nodiscard]] std::size_t ReferenceDigits() const {
    const std::u16string_view digits = Rest().substr(1, DigitsFrom(Rest().substr(0, 3), 1));
    if (digits.empty() || digits[0] == u'0') {
      return 0;
    }
    const std::size_t first = digits[0] - std::size_t{u'0'};
    if (digits.size() == 2 && first * 10 + (digits[1] - std::size_t{u'0'}) <= groups_) {
      return 2;
    }
    return first <= groups_ ? 1 : 0;
  }

  /// A set in brackets. A "]" that comes first is a member.
  void Set() {
    const bool isNegated = Rest().starts_with(u"[^");
    Copy(isNegated ? 2 : 1, true);
    do {
      Member();
    } while (!Rest().starts_with(u']'));
    Copy(1, true);
  }

  /// One member or one range of a set. A hyphen at the end of the set, or after a named set, is a
  /// member of its own.
  void Member() {
    const Escape lowest = MemberUnit();
    if (lowest.isSet) {
      return NamedSet(lowest.unit);
    }
    Literal(lowest.unit);
    if (Rest().size() < 2 || Rest()[0] != u'-' || Rest()[1] == u']') {
      return;
    }
    ++at_;
    const Escape highest = MemberUnit();
    if (highest.isSet || highest.unit < lowest.unit) {
      Refuse(FailureNumber::InvalidRange);
    }
    result_ += u'-';
    Literal(highest.unit);
  }

  Escape MemberUnit() {
    if (at_ == pattern_.size()) {
      Refuse(FailureNumber::ExpectedBracket);
    }
    if (Rest().starts_with(u"\\b")) {
      at_ += 2;
      return {.unit = u'\b'};
    }
    return pattern_[at_] == u'\\' ? ReadEscape(pattern_, at_) : Escape{.unit = pattern_[at_++]};
  }

  void NamedSet(char16_t letter) {
    result_ += u'\\';
    result_ += letter;
  }

  /// Adds a unit that stands for itself, inside sets and outside. The last two would make a set of
  /// the library's own between brackets.
  void Literal(char16_t unit) {
    if (std::u16string_view(u"\\^$.|?*+()[]{}-:=").find(unit) != std::u16string_view::npos) {
      result_ += u'\\';
    }
    result_ += unit;
  }

  /// Takes over the next `length` units, which mean the same to the library.
  void Copy(std::size_t length, bool quantifiable) {
    result_ += Rest().substr(0, length);
    at_ += length;
    quantifiable_ = quantifiable;
  }

  std::u16string_view pattern_;
  std::size_t at_ = 0;
  std::u16string result_;
  std::size_t groups_ = 0;     ///< capturing groups opened so far
  std::size_t open_ = 0;       ///< groups not closed yet
  bool quantifiable_ = false;  ///< whether a quantifier may come next
};

}  // namespace

std::u16string LibraryPattern(std::u16string_view pattern) {
  return Translation(pattern).Run();
}

}  // namespace lexmill::platform
