// SPDX-License-Identifier: MIT
// UTF-8 follows from rules, every other page from a table of the machine's converters. One page
// serves the whole process: it is named before the first text is decoded, and the default is built
// only if none was named, since building a table takes some milliseconds.
#include "platform/text/ansi_text.h"

#include "platform/failure.h"
#include "platform/text/table_page.h"
#include "platform/text/utf8.h"

namespace lexmill::platform {
namespace {

constexpr int kDefaultPage = 936;
constexpr int kGb18030Page = 54936;
constexpr int kUtf8Page = 65001;

class Utf8Page final : public CodePage {
 public:
  void Decode(std::string_view bytes, std::u16string& text) const override {
    DecodeUtf8(bytes, text);
  }

  bool Encode(std::u16string_view text, std::string& bytes) const override {
    return EncodeUtf8(text, bytes);
  }

  // A byte that is no UTF-8 is passed over alone.
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
  // The converters know the pages by their numbers under these names. Page 936 has no character
  // beyond its table; those of GB18030 extend it, and a file of pure page 936 keeps its bytes.
  const bool hasFourByteForms = number == kDefaultPage || number == kGb18030Page;
  return std::make_unique<TablePage>("windows-" + std::to_string(number), hasFourByteForms);
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

bool IsAnsiCodePageUtf8() {
  return dynamic_cast<const Utf8Page*>(ChosenPage().get()) != nullptr;
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
