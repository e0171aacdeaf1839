// SPDX-License-Identifier: MIT
#include "bench/dictionary.h"

#include <span>
#include <string_view>

#include "bench/vocabulary.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"

namespace lexmill::bench {
namespace {

enum class Role : std::uint64_t { Phrase = 1, Reference, Untranslated, Explanation };

/// A well-mixed number for each thing that can be chosen (the finalizer of SplitMix64).
constexpr std::uint64_t Mix(std::uint64_t value) {
  value += 0x9E3779B97F4A7C15;
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EB;
  return value ^ (value >> 31);
}

/// A row of choices that follow from a role and a number.
class Choices {
 public:
  Choices(Role role, std::uint64_t number)
      : state_(Mix(Mix(number) + static_cast<std::uint64_t>(role))) {}

  /// A number from 0 to `count` - 1.
  std::uint64_t Below(std::uint64_t count) {
    state_ = Mix(state_);
    return (state_ >> 16) % count;
  }

  bool Percent(std::uint64_t share) { return Below(100) < share; }

  const Word& Of(std::span<const Word> words) { return words[Below(words.size())]; }

 private:
  std::uint64_t state_;
};

void AddNumber(DictionaryEntry& entry, std::uint64_t number) {
  const std::u16string digits = platform::ToText(static_cast<std::int32_t>(number));
  entry.source += u' ' + digits;
  entry.target += u' ' + digits;
}

DictionaryEntry Command(Choices& choices) {
  const Word& verb = choices.Of(kVerbs);
  const Word& adjective = choices.Of(kAdjectives);
  const Word& noun = choices.Of(kNouns);
  DictionaryEntry entry;
  entry.source.append(verb.source).append(u" ").append(adjective.source).append(u" ");
  entry.source.append(noun.source);
  entry.target.append(verb.target).append(adjective.target).append(noun.target);
  return entry;
}

DictionaryEntry CommandAtPlace(Choices& choices) {
  DictionaryEntry entry = Command(choices);
  const Word& place = choices.Of(kPlaces);
  const Word& noun = choices.Of(kNouns);
  entry.source.append(u" ").append(place.source).append(u" the ").append(noun.source);
  entry.target.append(u"（").append(noun.target).append(place.target).append(u"）");
  return entry;
}

DictionaryEntry Message(Choices& choices) {
  const Word& noun = choices.Of(kNouns);
  const Word& adjective = choices.Of(kAdjectives);
  const DictionaryEntry advice = CommandAtPlace(choices);
  DictionaryEntry entry;
  entry.source.append(u"The ").append(noun.source).append(u" can't be used because it is ");
  entry.source.append(adjective.source)
      .append(u". ")
      .append(advice.source)
      .append(u", then try again");
  entry.target.append(u"无法使用")
      .append(noun.target)
      .append(u"，因为它是")
      .append(adjective.target);
  entry.target.append(u"的。请先").append(advice.target).append(u"，然后重试");
  return entry;
}

/// Phrase `number`, bare. The fewer words a phrase has, the more numbers share it.
DictionaryEntry Phrase(std::uint64_t number) {
  Choices choices(Role::Phrase, number);
  const std::uint64_t kind = choices.Below(100);
  if (kind < 2) {
    const Word& verb = choices.Of(kVerbs);
    return {std::u16string(verb.source), std::u16string(verb.target)};
  }
  if (kind < 40) {
    DictionaryEntry entry = Command(choices);
    if (choices.Percent(80)) {
      AddNumber(entry, choices.Below(500));
    }
    return entry;
  }
  return kind < 85 ? CommandAtPlace(choices) : Message(choices);
}

/// Makes a phrase a sentence with an explanation, of which the translation says more.
void AddExplanation(DictionaryEntry& entry, std::uint64_t number) {
  Choices choices(Role::Explanation, number);
  const DictionaryEntry advice = Command(choices);
  entry.source.append(u" - ").append(advice.source);
  entry.target.append(u"——").append(advice.target);
  entry.target.append(u"，或者").append(CommandAtPlace(choices).target);
  if (choices.Percent(25)) {
    entry.target.append(u"，或者").append(CommandAtPlace(choices).target);
  }
  if (choices.Percent(20)) {
    entry.target.append(u"（详见\U00020BB7野氏《䶮》）");  // a pair, and a character beyond GBK
  }
}

/// Phrase `number` as the dictionaries of these sizes have it.
DictionaryEntry Phrase(std::uint64_t number, const DictionarySizes& sizes) {
  DictionaryEntry entry = Phrase(number);
  if (sizes.hasLongStrings) {
    AddExplanation(entry, number);
  }
  return entry;
}

/// A hot key: the letter is marked in the source and follows in brackets in the target.
void AddHotKey(DictionaryEntry& entry, Choices& choices) {
  std::size_t at = choices.Below(entry.source.size());
  if (entry.source[at] == u' ') {
    at = 0;
  }
  entry.source.insert(at, 1, u'&');
  const std::u16string_view open = choices.Percent(95) ? u"(&" : u"[&";
  entry.target.append(open).append(1, platform::UpperCase(entry.source[at + 1]));
  entry.target += open.front() == u'(' ? u')' : u']';
}

void AddPunctuation(DictionaryEntry& entry, Choices& choices) {
  const std::uint64_t kind = choices.Below(100);
  if (kind < 15) {
    entry.source += u"...";
    entry.target += choices.Percent(80) ? u"..." : u"……";
  } else if (kind < 27) {
    entry.source += u':';
    entry.target += choices.Percent(50) ? u':' : u'：';
  }
}

void AddShortcut(DictionaryEntry& entry, Choices& choices) {
  std::u16string shortcut = u"\\tCtrl+";
  shortcut += static_cast<char16_t>(u'A' + choices.Below(26));
  entry.source += shortcut;
  entry.target += shortcut;
}

void AddBlanks(DictionaryEntry& entry, Choices& choices) {
  if (choices.Percent(3)) {
    entry.source.insert(0, 2, u' ');
    entry.target.insert(0, 2, u' ');
  }
  if (choices.Percent(3)) {
    entry.source += u' ';
    entry.target += u' ';
  }
}

void Decorate(DictionaryEntry& entry, Choices& choices) {
  if (choices.Percent(35)) {
    AddHotKey(entry, choices);
  }
  AddPunctuation(entry, choices);
  if (choices.Percent(5)) {
    AddShortcut(entry, choices);
  }
  AddBlanks(entry, choices);
}

/// The phrase of an untranslated string: one of the reference, or one after its last.
std::uint64_t PhraseNumber(std::uint64_t i, const DictionarySizes& sizes, Choices& choices) {
  return choices.Percent(sizes.knownPercent) ? choices.Below(sizes.reference) : sizes.reference + i;
}

}  // namespace

DictionaryEntry ReferenceEntry(std::uint64_t i, const DictionarySizes& sizes) {
  Choices choices(Role::Reference, i);
  DictionaryEntry entry = Phrase(i, sizes);
  if (choices.Percent(2)) {
    entry.target += u"项";  // a second translation of a phrase that comes up again
  }
  Decorate(entry, choices);
  if (choices.Percent(3)) {
    entry.target = entry.source;
  }
  return entry;
}

DictionaryEntry UntranslatedEntry(std::uint64_t i, const DictionarySizes& sizes) {
  Choices choices(Role::Untranslated, i);
  DictionaryEntry entry = Phrase(PhraseNumber(i, sizes, choices), sizes);
  Decorate(entry, choices);
  if (choices.Percent(5)) {
    entry.source = platform::LowerCase(entry.source);
  }
  entry.target = entry.source;
  return entry;
}

}  // namespace lexmill::bench
