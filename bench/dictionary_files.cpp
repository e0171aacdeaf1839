// SPDX-License-Identifier: MIT
#include "bench/dictionary_files.h"

#include <functional>
#include <unordered_set>

#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"

namespace lexmill::bench {
namespace {

/// Fills `entry` with the next entry. @return false after the last
using EntrySource = std::function<bool(DictionaryEntry& entry)>;

EntrySource References(const DictionarySizes& sizes) {
  return [&sizes, i = std::uint64_t{0}](DictionaryEntry& entry) mutable {
    if (i == sizes.reference) {
      return false;
    }
    entry = ReferenceEntry(i++, sizes);
    return true;
  };
}

EntrySource Untranslated(const DictionarySizes& sizes) {
  return [&sizes, i = std::uint64_t{0}](DictionaryEntry& entry) mutable {
    if (i == sizes.untranslated) {
      return false;
    }
    entry = UntranslatedEntry(i++, sizes);
    return true;
  };
}

platform::TextWriter Create(const std::u16string& path,
                            platform::TextEncoding encoding = platform::TextEncoding::Ansi) {
  return platform::FileSystemObject().CreateTextFile(path, true, encoding);
}

void WriteGlossary(const std::u16string& path, const EntrySource& next) {
  auto file = Create(path);
  file.WriteLine(u"9 1\t4 2");
  for (DictionaryEntry entry; next(entry);) {
    file.WriteLine(entry.source + u'\t' + entry.target);
  }
  file.Close();
}

void WriteText(const std::u16string& path, const EntrySource& next) {
  auto file = Create(path);
  file.WriteLine(u"made-up strings");
  std::int32_t number = 0;
  for (DictionaryEntry entry; next(entry);) {
    file.WriteLine();
    file.WriteLine(platform::ToText(++number) + u':' + entry.source);
    file.WriteLine(entry.target);
  }
  file.Close();
}

// The one backslash of a made-up string is that of its TAB, which a catalogue writes in the same
// way.
std::u16string InQuotes(const std::u16string& text) {
  return u'"' + text + u'"';
}

void WriteCatalogue(const std::u16string& path, const EntrySource& next, bool withTargets) {
  auto file = Create(path, platform::TextEncoding::Utf8);
  file.Write(u"msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n");
  std::unordered_set<std::u16string> known;
  for (DictionaryEntry entry; next(entry);) {
    if (known.insert(entry.source).second) {
      file.Write(u"\nmsgid " + InQuotes(entry.source) + u"\nmsgstr " +
                 InQuotes(withTargets ? entry.target : u"") + u'\n');
    }
  }
  file.Close();
}

}  // namespace

void WriteDictionaries(const std::u16string& folder, const DictionarySizes& sizes) {
  WriteGlossary(folder + u"ref.glo", References(sizes));
  WriteGlossary(folder + u"todo.glo", Untranslated(sizes));
  WriteText(folder + u"ref.a.txt", References(sizes));
  WriteText(folder + u"todo.u.txt", Untranslated(sizes));
  WriteCatalogue(folder + u"ref.po", References(sizes), true);
  WriteCatalogue(folder + u"todo.pot", Untranslated(sizes), false);
  WriteCatalogue(
      folder + u"empty.po", [](DictionaryEntry&) { return false; }, false);
}

}  // namespace lexmill::bench
