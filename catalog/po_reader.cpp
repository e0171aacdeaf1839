// SPDX-License-Identifier: MIT
#include "catalog/po_reader.h"

#include <memory>
#include <string>

#include "catalog/catalog_failure.h"
#include "catalog/po_parser.h"
#include "foundation/entry_point.h"
#include "platform/text/named_page.h"
#include "platform/text/text.h"

namespace lexmill {
namespace {

// The value of a field of a header entry, which is lines of the form "Name: value".
std::u16string Field(std::u16string_view header, std::u16string_view name) {
  for (const std::u16string_view line : platform::Split(header, u'\n')) {
    if (line.starts_with(name) && line.substr(name.size()).starts_with(u":")) {
      return std::u16string(platform::Trim(line.substr(name.size() + 1)));
    }
  }
  return {};
}

std::u16string CharsetOf(std::u16string_view header) {
  constexpr std::u16string_view kName = u"charset=";
  const std::u16string type = Field(header, u"Content-Type");
  const std::size_t at = type.find(kName);
  if (at == std::u16string::npos) {
    return {};
  }
  const std::size_t begin = at + kName.size();
  return type.substr(begin, type.find_first_of(u" \t;", begin) - begin);
}

std::shared_ptr<const platform::CodePage> OpenCharset(std::u16string_view path, std::int64_t line,
                                                      const std::u16string& charset) {
  std::shared_ptr<const platform::CodePage> page;
  const bool isOpen = charset.empty() || charset == kOpenCharset;
  IgnoreFailures([&] { page = platform::OpenNamedPage(isOpen ? u"UTF-8" : charset); });
  if (!page) {
    RefuseCatalog(path, line, u"未知的字符集 " + charset);
  }
  return page;
}

}  // namespace

CatalogHead ReadPoHead(std::u16string_view path) {
  const auto utf8 = platform::OpenNamedPage(u"UTF-8");
  std::u16string header;
  std::int64_t line = 0;
  const OnEntry onEntry = [&](const CatalogEntry& entry) {
    if (entry.source.empty() && entry.context.empty()) {
      header = entry.target;
      line = entry.line;
    }
  };
  PoParser parser(path, *utf8, onEntry);
  parser.ReadHeader();
  CatalogHead head;
  head.openCharset = parser.OpenCharset();
  head.sourceLanguage = u"en";
  head.targetLanguage = Field(header, u"Language");
  head.accelerator = Field(header, u"X-Accelerator-Marker");
  head.page = OpenCharset(path, line, CharsetOf(header));
  return head;
}

void ReadPo(std::u16string_view path, const CatalogHead& head, const OnEntry& onEntry) {
  PoParser parser(path, *head.page, onEntry);
  while (parser.ReadLine()) {
  }
}

}  // namespace lexmill
