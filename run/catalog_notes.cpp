// SPDX-License-Identifier: MIT
#include "run/catalog_notes.h"

#include "platform/host/host_path.h"
#include "platform/text/text.h"

namespace lexmill {
namespace {

std::u16string Counted(std::int64_t count) {
  return platform::FromUtf8(std::to_string(count)) + u" 条";
}

std::u16string Named(const Catalog& catalog) {
  return u"“" + std::u16string(platform::FileName(catalog.path)) + u"”：";
}

// What was passed over; empty if nothing was.
std::u16string TextOf(const PassedOver& entries) {
  std::u16string text;
  if (entries.plural > 0) {
    text += u"跳过复数条目 " + Counted(entries.plural);
  }
  if (entries.inlined > 0) {
    text += (text.empty() ? u"" : u"，") + (u"跳过含行内元素的条目 " + Counted(entries.inlined));
  }
  return text;
}

}  // namespace

std::u16string FillSentence(const Catalog& catalog, const FillCounts& counts) {
  const std::u16string passedOver = TextOf(counts.passedOver);
  return Named(catalog) + u"译出 " + Counted(counts.filled) + u"，有多种译法 " +
         Counted(counts.several) + (passedOver.empty() ? u"" : u"，") + passedOver;
}

std::u16string UnusedSentence(const Catalog& catalog, const PassedOver& entries) {
  const std::u16string passedOver = TextOf(entries);
  return passedOver.empty() ? passedOver : Named(catalog) + passedOver;
}

}  // namespace lexmill
