// SPDX-License-Identifier: MIT
// Code pages and UTF-8: every byte comes back, however the file is cut.
#include <array>
#include <memory>

#include "fuzz/fuzz_input.h"
#include "platform/text/ansi_text.h"
#include "platform/text/text_encoding.h"
#include "platform/text/utf8.h"

namespace lexmill::fuzz {
namespace {

using platform::CodePage;

constexpr int kDefaultPage = 936;
constexpr int kUtf8Page = 65001;
constexpr std::array kPages = {kDefaultPage, 950, 932, 949, 1252, kUtf8Page};

const CodePage& Page(int number) {
  static std::array<std::unique_ptr<const CodePage>, kPages.size()> pages;
  auto& page = pages.at(
      static_cast<std::size_t>(std::find(kPages.begin(), kPages.end(), number) - kPages.begin()));
  if (!page) {
    page = CodePage::Open(number);
  }
  return *page;
}

void CheckPage(int number, std::string_view bytes) {
  const CodePage& page = Page(number);
  std::u16string text, again;
  std::string back;
  page.Decode(bytes, text);
  const bool isEncoded = page.Encode(text, back);
  if (number == kDefaultPage || number == kUtf8Page) {
    Require(isEncoded && back == bytes, "bytes of the page come back as they were");
  } else if (isEncoded) {
    page.Decode(back, again);
    Require(again == text, "text of the page comes back as it was");
  }
  for (std::string_view rest = bytes; !rest.empty();) {
    const std::size_t length = page.CharacterLength(rest);
    Require(length > 0 && length <= rest.size(), "a character has a length within its text");
    rest.remove_prefix(length);
  }
}

void CheckUtf8(std::string_view bytes, std::size_t cut) {
  std::u16string text;
  std::string back;
  platform::DecodeUtf8(bytes, text);
  Require(platform::EncodeUtf8(text, back) && back == bytes, "UTF-8 comes back as it was");

  platform::Utf8Recognition whole, pieces;
  whole.Feed(bytes);
  pieces.Feed(bytes.substr(0, cut));
  pieces.Feed(bytes.substr(std::min(cut, bytes.size())));
  Require(whole.Result() == pieces.Result(), "a file is recognised however it is cut");
}

}  // namespace
}  // namespace lexmill::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lexmill::fuzz::Input input(data, size);
  const unsigned page = input.TakeByte();
  const std::size_t cut = input.TakeByte();
  lexmill::fuzz::CheckPage(lexmill::fuzz::kPages.at(page % lexmill::fuzz::kPages.size()),
                           input.Rest());
  lexmill::fuzz::CheckUtf8(input.Rest(), cut);
  return 0;
}
