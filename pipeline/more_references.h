// SPDX-License-Identifier: MIT
// pipeline: performs one run, one class for each pair of formats.
// The references that are asked after the first one.
#pragma once

#include <string>
#include <vector>

#include "glossary/record_scanner.h"
#include "pipeline/temporary_files.h"

namespace lexmill {

/// Purifies each of them that is a dictionary, by the stage for its format. The rows of the
/// progress panel stay as they are. Each stage shows its own failures.
void PurifyMoreReferences(RecordScanner& scanner, const std::vector<MoreReferenceFiles>& more);

/// Appends their ready dictionaries, which the batch has written, to that of the first reference,
/// in the order in which they are asked: without rows that an earlier one has, or, in a run that
/// asks no further for a string once it is known, without all rows of strings that an earlier one
/// has. Then removes them, unless the temporary files are to stay. Stars grow in row 3. Shows its
/// own failures and returns normally; the first ready dictionary is then as it was. Does nothing if
/// there are no further references.
void JoinReadyDictionaries(const std::u16string& ready,
                           const std::vector<MoreReferenceFiles>& more);

}  // namespace lexmill
