// SPDX-License-Identifier: MIT
// platform/text: a code page of one and two bytes a character, converted by tables.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/text/ansi_text.h"
#include "platform/text/double_byte_table.h"
#include "platform/text/four_byte_forms.h"

namespace lexmill::platform {

/// Holds exact mappings only, so what it decodes always becomes the same bytes again.
class TablePage final : public CodePage {
 public:
  /// @param converter    name of the machine's converter to take the characters from
  /// @param hasFourByteForms  whether GB18030's four-byte forms stand for the characters that the
  /// table lacks
  /// @throws Failure InvalidCall if there is no such converter, or its page is of another kind
  TablePage(const std::string& converter, bool hasFourByteForms);

  void Decode(std::string_view bytes, std::u16string& text) const override;
  [[nodiscard]] bool Encode(std::u16string_view text, std::string& bytes) const override;
  [[nodiscard]] std::size_t CharacterLength(std::string_view bytes) const override;

 private:
  void TakeCharacter(std::string_view bytes, std::size_t& at, char16_t*& out) const;
  bool TakeUnit(std::u16string_view text, std::size_t& at, char*& out) const;
  [[nodiscard]] std::optional<char32_t> FourByteCharacter(std::string_view bytes) const;
  [[nodiscard]] const FourByteForms& Forms() const;

  DoubleByteTable table_;
  bool hasFourByteForms_;
  mutable std::unique_ptr<const FourByteForms> forms_;  ///< none until a text needs them
};

}  // namespace lexmill::platform
