// SPDX-License-Identifier: MIT
#include "platform/text/named_page.h"

#include <algorithm>
#include <array>
#include <string>
#include <tuple>

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <unicode/utf16.h>

#include "platform/text/library_status.h"
#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

// Lets each byte that can't be decoded survive. A byte that was read with it and may begin a
// character of its own comes back by itself.
void LetBytesSurvive(const void* /*context*/, UConverterToUnicodeArgs* args, const char* bytes,
                     std::int32_t length, UConverterCallbackReason reason, UErrorCode* status) {
  if (reason > UCNV_IRREGULAR) {
    return;
  }
  *status = U_ZERO_ERROR;
  for (std::int32_t i = 0; i < length; ++i) {
    const char16_t unit = SurvivingByte(bytes[i]);
    ucnv_cbToUWriteUChars(args, &unit, 1, 0, status);
  }
}

/// A page as the machine's converter has it. For one thread.
class ConverterPage final : public CodePage {
 public:
  explicit ConverterPage(const std::string& name) : converter_(nullptr, &ucnv_close) {
    UErrorCode status = U_ZERO_ERROR;
    converter_.reset(ucnv_open(name.c_str(), &status));
    ThrowIfError(status);
    ucnv_setFallback(converter_.get(), false);
    ucnv_setToUCallBack(converter_.get(), LetBytesSurvive, nullptr, nullptr, nullptr, &status);
    ucnv_setFromUCallBack(converter_.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                          &status);
    ThrowIfError(status);
  }

  void Decode(std::string_view bytes, std::u16string& text) const override {
    ucnv_resetToUnicode(converter_.get());
    const char* in = bytes.data();
    const char* const inEnd = in + bytes.size();
    UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
    while (status == U_BUFFER_OVERFLOW_ERROR) {
      status = U_ZERO_ERROR;
      std::array<char16_t, kPiece> units;
      char16_t* out = units.data();
      ucnv_toUnicode(converter_.get(), &out, out + units.size(), &in, inEnd, nullptr, true,
                     &status);
      text.append(units.data(), out);
    }
    ThrowIfError(status);
  }

  bool Encode(std::u16string_view text, std::string& bytes) const override {
    const std::size_t before = bytes.size();
    while (!text.empty()) {
      const std::size_t length = FindSurvivor(text);
      if (!EncodeRun(text.substr(0, length), bytes)) {
        bytes.resize(before);
        return false;
      }
      text.remove_prefix(length);
      if (!text.empty()) {
        bytes += static_cast<char>(text.front() - kSurvivingByte);
        text.remove_prefix(1);
      }
    }
    return true;
  }

  std::size_t CharacterLength(std::string_view bytes) const override {
    ucnv_resetToUnicode(converter_.get());
    const char* in = bytes.data();
    UErrorCode status = U_ZERO_ERROR;
    std::ignore = ucnv_getNextUChar(converter_.get(), &in, in + bytes.size(), &status);
    return std::max<std::size_t>(1, static_cast<std::size_t>(in - bytes.data()));
  }

 private:
  static constexpr std::size_t kPiece = 512;

  // Position of the first unit that stands for a byte and is no half of a pair; the size if none.
  [[nodiscard]] static std::size_t FindSurvivor(std::u16string_view text) {
    std::size_t at = 0;
    while (at < text.size() && !IsSurvivingByte(text[at])) {
      at += U16_IS_LEAD(text[at]) && at + 1 < text.size() && U16_IS_TRAIL(text[at + 1]) ? 2 : 1;
    }
    return at;
  }

  bool EncodeRun(std::u16string_view text, std::string& bytes) const {
    ucnv_resetFromUnicode(converter_.get());
    const char16_t* in = text.data();
    const char16_t* const inEnd = in + text.size();
    UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
    while (status == U_BUFFER_OVERFLOW_ERROR) {
      status = U_ZERO_ERROR;
      std::array<char, kPiece> piece;
      char* out = piece.data();
      ucnv_fromUnicode(converter_.get(), &out, out + piece.size(), &in, inEnd, nullptr, true,
                       &status);
      bytes.append(piece.data(), out);
    }
    return U_SUCCESS(status);
  }

  std::unique_ptr<UConverter, decltype(&ucnv_close)> converter_;
};

}  // namespace

bool IsNameOfUtf8(std::u16string_view charset) {
  return ucnv_compareNames(ToUtf8(charset).c_str(), "UTF-8") == 0;
}

std::unique_ptr<const CodePage> OpenNamedPage(std::u16string_view charset) {
  constexpr int kUtf8Page = 65001;
  if (IsNameOfUtf8(charset)) {
    return CodePage::Open(kUtf8Page);
  }
  const std::string name = ToUtf8(charset);
  if (name.empty()) {
    throw Failure(FailureNumber::InvalidCall, FailureOrigin::Runtime);
  }
  return std::make_unique<ConverterPage>(name);
}

}  // namespace lexmill::platform
