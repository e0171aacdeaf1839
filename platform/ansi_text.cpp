// SPDX-License-Identifier: MIT
#include "platform/ansi_text.h"

#include <algorithm>
#include <mutex>

#include <unicode/utf16.h>

#include "platform/ascii_runs.h"
#include "platform/double_byte_table.h"
#include "platform/failure.h"
#include "platform/four_byte_forms.h"
#include "platform/utf8.h"

namespace lexmill::platform {
namespace {

constexpr int kDefaultPage = 936;
constexpr int kGb18030Page = 54936;
constexpr int kUtf8Page = 65001;

char16_t* WriteUtf16(char32_t codePoint, char16_t* out) {
  if (U_IS_BMP(codePoint)) {
    *out++ = static_cast<char16_t>(codePoint);
  } else {
    *out++ = U16_LEAD(codePoint);
    *out++ = U16_TRAIL(codePoint);
  }
  return out;
}

/// A page of one and two bytes a character, which may be carried on by four-byte forms.
class TablePage final : public CodePage {
 public:
  TablePage(const std::string& converter, bool isCarriedOn)
      : table_(converter), isCarriedOn_(isCarriedOn) {}

  void Decode(std::string_view bytes, std::u16string& text) const override {
    DecodeRuns(bytes, text, [this](std::string_view from, std::size_t& at, char16_t*& out) {
      TakeCharacter(from, at, out);
    });
  }

  bool Encode(std::u16string_view text, std::string& bytes) const override {
    return EncodeRuns(text, bytes, [this](std::u16string_view from, std::size_t& at, char*& out) {
      return TakeUnit(from, at, out);
    });
  }

  std::size_t CharacterLength(std::string_view bytes) const override {
    if (static_cast<unsigned char>(bytes.front()) < 0x80) {
      return 1;
    }
    std::array<char16_t, 2> units;
    char16_t* out = units.data();
    std::size_t length = 0;
    TakeCharacter(bytes, length, out);
    return length;
  }

 private:
  void TakeCharacter(std::string_view bytes, std::size_t& at, char16_t*& out) const {
    const char first = bytes[at];
    const char16_t pair = at + 1 < bytes.size() ? table_.Unit(first, bytes[at + 1]) : u'\0';
    if (pair != 0) {
      *out++ = pair;
      at += 2;
    } else if (const char16_t single = table_.Unit(first); single != 0) {
      *out++ = single;
      ++at;
    } else if (const auto codePoint = FourByteCharacter(bytes.substr(at)); !codePoint) {
      *out++ = SurvivingByte(first);
      ++at;
    } else {
      at += FourByteForms::kLength;
      out = WriteUtf16(*codePoint, out);
    }
  }

  /// The character of the four-byte form at the start of `bytes`, if there is one.
  std::optional<char32_t> FourByteCharacter(std::string_view bytes) const {
    return isCarriedOn_ ? Forms().Decode(bytes) : std::nullopt;
  }

  bool TakeUnit(std::u16string_view text, std::size_t& at, char*& out) const {
    const DoubleByteCode code = table_.Code(text[at]);
    if (code > 0xFF) {
      *out++ = static_cast<char>(code >> 8);
    }
    if (code != 0) {
      *out++ = static_cast<char>(code & 0xFF);
      ++at;
      return true;
    }
    char32_t codePoint = 0;
    U16_NEXT(text.data(), at, text.size(), codePoint);
    if (IsSurvivingByte(codePoint)) {
      *out++ = static_cast<char>(codePoint - kSurvivingByte);
      return true;
    }
    if (!isCarriedOn_ || !Forms().Encode(codePoint, out)) {
      return false;
    }
    out += FourByteForms::kLength;
    return true;
  }

  /// Most texts never need them, so they are built when the first one does.
  const FourByteForms& Forms() const {
    std::call_once(formsBuilt_, [this] { forms_ = std::make_unique<FourByteForms>(table_); });
    return *forms_;
  }

  DoubleByteTable table_;
  bool isCarriedOn_;
  mutable std::once_flag formsBuilt_;
  mutable std::unique_ptr<const FourByteForms> forms_;
};

class Utf8Page final : public CodePage {
 public:
  void Decode(std::string_view bytes, std::u16string& text) const override {
    DecodeUtf8(bytes, text);
  }

  bool Encode(std::u16string_view text, std::string& bytes) const override {
    return EncodeUtf8(text, bytes);
  }

  std::size_t CharacterLength(std::string_view bytes) const override {
    std::size_t length = 0;
    static_cast<void>(NextUtf8(bytes, length));
    return length;
  }
};

std::unique_ptr<const CodePage>& ChosenPage() {
  static std::unique_ptr<const CodePage> page;
  return page;
}

}  // namespace

std::unique_ptr<const CodePage> CodePage::Open(int number) {
  if (number == kUtf8Page) {
    return std::make_unique<Utf8Page>();
  }
  const bool isCarriedOn = number == kDefaultPage || number == kGb18030Page;
  return std::make_unique<TablePage>("windows-" + std::to_string(number), isCarriedOn);
}

const CodePage& AnsiCodePage() {
  if (const auto& page = ChosenPage()) {
    return *page;
  }
  static const auto defaultPage = CodePage::Open(kDefaultPage);
  return *defaultPage;
}

void SetAnsiCodePage(int number) {
  ChosenPage() = CodePage::Open(number);
}

bool IsAnsiCodePageChosen() {
  return ChosenPage() != nullptr;
}

std::u16string FromAnsi(std::string_view bytes) {
  std::u16string text;
  AnsiCodePage().Decode(bytes, text);
  return text;
}

std::string ToAnsi(std::u16string_view text) {
  std::string bytes;
  if (!AnsiCodePage().Encode(text, bytes)) {
    throw Failure(FailureNumber::InvalidCall, FailureOrigin::Runtime);
  }
  return bytes;
}

}  // namespace lexmill::platform
