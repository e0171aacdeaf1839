// SPDX-License-Identifier: MIT
#include "catalog/markup_capture.h"

#include <optional>

#include "platform/text/numbers.h"

namespace lexmill {
namespace {

using platform::MarkupEvent;
using platform::MarkupKind;

// The unit that an element such as <byte value="x1f"/> stands for, which has a character that XML
// can't write.
std::optional<char16_t> ByteOf(const MarkupEvent& event, const platform::MarkupReader& reader) {
  const auto value = event.name == u"byte" ? reader.Attribute(u"value") : std::nullopt;
  if (!value || value->empty()) {
    return std::nullopt;
  }
  const bool isHexadecimal = value->front() == u'x';
  unsigned number = 0;
  for (const char16_t digit : std::u16string_view(*value).substr(isHexadecimal ? 1 : 0)) {
    const std::size_t known = std::u16string_view(u"0123456789abcdefABCDEF").find(digit);
    const auto figure = static_cast<unsigned>(known > 15 ? known - 6 : known);
    if (known == std::u16string_view::npos || number > 0xFFF || (!isHexadecimal && figure > 9)) {
      return std::nullopt;
    }
    number = number * (isHexadecimal ? 16 : 10) + figure;
  }
  return static_cast<char16_t>(number);
}

}  // namespace

void MarkupCapture::Begin(const MarkupEvent& event) {
  element_ = {reader_.Written(), event.range, platform::PlaceAt(event.range.end), 0};
  text_.clear();
  isMixed_ = false;
  depth_ = 1;
}

void MarkupCapture::Take(const MarkupEvent& event) {
  switch (event.kind) {
    case MarkupKind::Start:
      return TakeStart(event);
    case MarkupKind::End:
      return TakeEnd(event);
    case MarkupKind::Text:
      text_ += event.text;
      if (event.text == u"\"" || event.text == u"'") {
        escapesQuotes_ = reader_.Written().starts_with(u"&");
      } else if (event.text.find(u'"') != std::u16string_view::npos) {
        escapesQuotes_ = false;
      }
      return;
    default:
      isMixed_ = true;
  }
}

void MarkupCapture::TakeStart(const MarkupEvent& event) {
  ++depth_;
  if (const auto unit = ByteOf(event, reader_)) {
    text_ += *unit;
  } else {
    isMixed_ = true;
  }
}

void MarkupCapture::TakeEnd(const MarkupEvent& event) {
  if (--depth_ == 0) {
    element_.content.end = event.range.begin;
    element_.end = event.range.end;
  }
}

}  // namespace lexmill
