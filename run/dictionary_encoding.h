// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// Which encoding a dictionary is in.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/text/text_encoding.h"
#include "run/shared/dictionary_kind.h"

namespace lexmill {

/// What the bytes of a dictionary say of its encoding, the format being left open: UTF-8 if it is
/// strictly valid UTF-8 and begins with a mark or holds a sequence of three or more bytes or ten of
/// two, else the code page. If a page has been chosen, always that; but under UTF-8 a mark is still
/// told from text. A file that can't be read counts as one in the code page. Lets pending window
/// events run while it reads a large file.
[[nodiscard]] DictionaryKind RecogniseEncoding(std::u16string_view path);

/// Keeps in the run's state what RecogniseEncoding and InspectFile say of a dictionary, unless its
/// kind is there already.
void KeepEncoding(const std::u16string& path);

/// The encoding of the result: that of the untranslated dictionary or, if that is plain ASCII, of
/// the first reference that isn't. A purified database is in the code page.
/// @param toDo, references  paths of dictionaries whose kinds the run's state holds
[[nodiscard]] platform::TextEncoding ResultEncoding(std::u16string_view toDo,
                                                    std::span<const std::u16string> references);

}  // namespace lexmill
