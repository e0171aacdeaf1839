// SPDX-License-Identifier: MIT
#include "platform/interchange/markup_encoding.h"

#include <array>
#include <string>
#include <utility>

#include "platform/failure.h"
#include "platform/text/named_page.h"

namespace lexmill::platform {
namespace {

constexpr int kNoCharacter = -1;
constexpr int kFirstOfTwo = -2;

// The one character that `bytes` are, or kNoCharacter.
int CharacterOf(const CodePage& page, std::string_view bytes) {
  std::u16string text;
  page.Decode(bytes, text);
  const bool isOne = text.size() == 1 && (text[0] < 0xD800 || text[0] > 0xDFFF);
  return isOne ? text[0] : kNoCharacter;
}

int CharacterOfTwo(void* page, const char* bytes) {
  return CharacterOf(*static_cast<const CodePage*>(page), {bytes, 2});
}

bool BeginsTwo(const CodePage& page, char first) {
  for (int second = 0x30; second <= 0xFF; ++second) {
    const std::array<char, 2> bytes{first, static_cast<char>(second)};
    if (CharacterOf(page, {bytes.data(), bytes.size()}) != kNoCharacter) {
      return true;
    }
  }
  return false;
}

/// A page without the characters that the library could not read again: those of more than two
/// bytes.
class ReadablePage final : public CodePage {
 public:
  explicit ReadablePage(std::shared_ptr<const CodePage> page) : page_(std::move(page)) {}

  void Decode(std::string_view bytes, std::u16string& text) const override {
    page_->Decode(bytes, text);
  }

  // Unit by unit: the library reads no character of two units from such a page either.
  bool Encode(std::u16string_view text, std::string& bytes) const override {
    constexpr std::size_t kMostBytes = 2;
    const std::size_t before = bytes.size();
    for (std::size_t at = 0; at < text.size(); ++at) {
      const std::size_t begin = bytes.size();
      if (!page_->Encode(text.substr(at, 1), bytes) || bytes.size() - begin > kMostBytes) {
        bytes.resize(before);
        return false;
      }
    }
    return true;
  }

  std::size_t CharacterLength(std::string_view bytes) const override {
    return page_->CharacterLength(bytes);
  }

 private:
  std::shared_ptr<const CodePage> page_;
};

}  // namespace

std::shared_ptr<const CodePage> PageOfMarkup(std::string_view start, std::u16string_view declared) {
  using namespace std::string_view_literals;
  if (start == "\xFF\xFE"sv || start == "<\0"sv) {
    return OpenNamedPage(u"UTF-16LE");
  }
  if (start == "\xFE\xFF"sv || start == "\0<"sv) {
    return OpenNamedPage(u"UTF-16BE");
  }
  const std::u16string_view name = declared.empty() ? u"UTF-8" : declared;
  auto page = OpenPageOrNone(name);
  if (page == nullptr || IsNameOfUtf8(name)) {
    return page;
  }
  return std::make_shared<const ReadablePage>(std::move(page));
}

std::shared_ptr<const CodePage> OpenPageOrNone(std::u16string_view name) {
  try {
    return OpenNamedPage(name);
  } catch (const Failure&) {
    return nullptr;
  }
}

bool DescribePage(const CodePage& page, XML_Encoding& description) {
  bool isWithAscii = true;
  for (int byte = 0; byte < 0x100; ++byte) {
    const char first = static_cast<char>(byte);
    int& meaning = description.map[byte];
    meaning = CharacterOf(page, {&first, 1});
    isWithAscii = isWithAscii && (byte >= 0x80 || meaning == byte);
    if (meaning == kNoCharacter && BeginsTwo(page, first)) {
      meaning = kFirstOfTwo;
    }
  }
  // The library only passes it on.
  description.data = const_cast<CodePage*>(&page);
  description.convert = CharacterOfTwo;
  description.release = nullptr;
  return isWithAscii;
}

}  // namespace lexmill::platform
