// SPDX-License-Identifier: MIT
// bench: dictionaries of any size, and measurements of the run and its parts.
// The made-up dictionaries as files of every format that a run or a peer reads.
#pragma once

#include <string>

#include "bench/dictionary.h"

namespace lexmill::bench {

/// Writes the pair of dictionaries into `folder`, which ends with a separator: `ref` and `todo`
/// as glossaries (.glo) and texts (.a.txt, .u.txt) in the system's code page, and as message
/// catalogues in UTF-8: `ref.po`, `todo.pot`, and `empty.po`, the catalogue to be updated. A
/// catalogue holds a source once only.
/// @throws platform::Failure if a file can't be written
void WriteDictionaries(const std::u16string& folder, const DictionarySizes& sizes);

}  // namespace lexmill::bench
