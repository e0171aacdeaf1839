// SPDX-License-Identifier: MIT
#include "catalog/markup_head.h"

#include "catalog/catalog_failure.h"

namespace lexmill {

using platform::MarkupEvent;
using platform::MarkupKind;

void ReadMarkupCatalog(std::u16string_view path, platform::MarkupReader& reader,
                       const platform::MarkupReader::OnEvent& onEvent) {
  if (const auto fault = reader.Read(onEvent)) {
    RefuseCatalog(path, fault->line, fault->reason);
  }
}

CatalogHead ReadMarkupHead(std::u16string_view path, const MarkupLanguages& languages) {
  CatalogHead head;
  platform::MarkupReader reader(path);
  ReadMarkupCatalog(path, reader, [&](const MarkupEvent& event) {
    if (event.kind == MarkupKind::Start && event.name == languages.element) {
      head.sourceLanguage = reader.Attribute(languages.source).value_or(u"");
      head.targetLanguage = reader.Attribute(languages.target).value_or(u"");
      reader.Stop();
    }
  });
  head.page = reader.Page();
  return head;
}

MarkupRoot ReadMarkupRoot(std::u16string_view path) {
  MarkupRoot root;
  platform::MarkupReader reader(path);
  root.fault = reader.Read([&](const MarkupEvent& event) {
    if (event.kind == MarkupKind::Start) {
      root.name = event.name;
      reader.Stop();
    }
  });
  return root;
}

}  // namespace lexmill
