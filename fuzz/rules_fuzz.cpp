// SPDX-License-Identifier: MIT
// The text rules on any string and any options.
#include "foundation/entry_point.h"
#include "fuzz/fuzz_input.h"
#include "glossary/text_rules.h"
#include "platform/text/text.h"

namespace lexmill::fuzz {
namespace {

OptionSet Options(unsigned bits) {
  OptionSet options = FullPreset();
  bool* const boxes[] = {&options.chkaAndX,      &options.chkaBanMaoHao,  &options.chkaBanSenHao,
                         &options.chkaMTab,      &options.chkaLTrimSpace, &options.chkaRTrimSpace,
                         &options.chkaUpperCase, &options.chkrAndXEER,    &options.chkrQuanMaoHao,
                         &options.chkrQuanSenHao};
  for (bool* const box : boxes) {
    *box = bits % 2 == 1;
    bits /= 2;
  }
  return options;
}

/// True if `text` without one "&" before the character of `hotKey`, "(&X)", is `rest`.
bool IsWithoutHotKey(std::u16string_view text, std::u16string_view rest,
                     std::u16string_view hotKey) {
  const std::u16string_view key = hotKey.substr(2, hotKey.size() - 3);
  for (std::size_t at = 0; (at = text.find(u'&', at)) != std::u16string_view::npos; ++at) {
    const std::u16string without = std::u16string(text.substr(0, at)).append(text.substr(at + 1));
    const std::u16string_view after = text.substr(at + 1, key.size());
    if (without == rest && platform::UpperCase(after.front()) == key.front()) {
      return true;
    }
  }
  return false;
}

void CheckUntranslated(const OptionSet& options, std::u16string_view text) {
  platform::RegExp expression;
  UntranslatedRules rules(options, expression);
  const auto row = rules.DecomposeUntranslated(text, text);
  Require(row.has_value() && row->so == text, "an untranslated string is kept as it is");
  Require(row->sh.find_first_not_of(u' ') == std::u16string_view::npos, "a head is blank");
  const std::u16string whole = std::u16string(row->sh).append(row->sm).append(row->st);
  Require(whole.size() + (row->sk.empty() ? 0 : 1) == text.size(), "nothing is lost but the \"&\"");
  if (options.chkaUpperCase) {
    return;
  }
  Require(row->sk.empty() ? whole == text : IsWithoutHotKey(text, whole, row->sk),
          "put together again it is the string, the hot key moved");
}

void CheckReference(const OptionSet& options, std::u16string_view source,
                    std::u16string_view target) {
  platform::RegExp expression;
  ReferenceRules rules(options, expression);
  if (const auto pair = rules.PurifyReference(source, target)) {
    Require(pair->source.size() <= source.size() && pair->target.size() <= target.size(),
            "no rule makes a string longer");
  }
}

}  // namespace
}  // namespace lexmill::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lexmill::fuzz::Input input(data, size);
  const unsigned low = input.TakeByte();
  const auto options = lexmill::fuzz::Options(low + 256 * input.TakeByte());
  const auto source = lexmill::platform::FromUtf8(input.TakePiece());
  const auto target = lexmill::platform::FromUtf8(input.TakePiece());
  lexmill::IgnoreFailures([&] {
    lexmill::fuzz::CheckUntranslated(options, source);
    lexmill::fuzz::CheckReference(options, source, target);
  });
  return 0;
}
