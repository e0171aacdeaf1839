// SPDX-License-Identifier: MIT
#include "glossary/ready_dictionary.h"

namespace lexmill {

std::optional<ReadyRow> ReadReadyRow(const RecordScanner& scanner) {
  constexpr std::int32_t kColumns = 5;
  if (scanner.FieldCount() > kColumns) {
    return std::nullopt;
  }
  return ReadyRow{scanner.Field(1), scanner.Field(2), scanner.Field(3), scanner.Field(4),
                  scanner.Field(5)};
}

void RebuildTarget(const ReadyRow& row, bool withHotKey, std::u16string& text) {
  text += row.sh;
  text += row.r2;
  if (withHotKey) {
    text += row.sk;
  }
  text += row.st;
}

}  // namespace lexmill
