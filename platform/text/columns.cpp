// SPDX-License-Identifier: MIT
#include "platform/text/columns.h"

#include <memory>

#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include "platform/text/library_status.h"

namespace lexmill::platform {
namespace {

using Breaks = std::unique_ptr<UBreakIterator, decltype(&ubrk_close)>;

Breaks OpenBreaks(std::u16string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  Breaks breaks(
      ubrk_open(UBRK_LINE, "", text.data(), static_cast<std::int32_t>(text.size()), &status),
      &ubrk_close);
  ThrowIfError(status);
  return breaks;
}

std::size_t ColumnsOf(UChar32 character) {
  const auto category = U_GET_GC_MASK(character);
  // Combining marks and format characters are drawn into the character before them.
  if ((category & (U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK)) != 0) {
    return 0;
  }
  const auto width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

}  // namespace

std::size_t Columns(std::u16string_view text) {
  std::size_t columns = 0;
  for (std::size_t at = 0; at < text.size();) {
    UChar32 character = 0;
    U16_NEXT(text.data(), at, text.size(), character);
    columns += character < 0x80 ? 1 : ColumnsOf(character);
  }
  return columns;
}

// Goes from one place where a line may be broken to the next, and breaks at the last one before
// which the line still fits.
std::vector<std::u16string_view> WrapLines(
    std::u16string_view text, std::size_t width,
    const std::function<std::size_t(std::u16string_view)>& columns) {
  std::vector<std::u16string_view> lines;
  const Breaks breaks = OpenBreaks(text);
  std::size_t begin = 0;
  std::size_t end = 0;  // of what is known to fit
  for (std::int32_t next = ubrk_next(breaks.get()); next != UBRK_DONE;
       next = ubrk_next(breaks.get())) {
    const auto place = static_cast<std::size_t>(next);
    if (end > begin && columns(text.substr(begin, place - begin)) > width) {
      lines.push_back(text.substr(begin, end - begin));
      begin = end;
    }
    end = place;
  }
  lines.push_back(text.substr(begin));
  return lines;
}

}  // namespace lexmill::platform
