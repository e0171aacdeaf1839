// SPDX-License-Identifier: MIT
// The reader of TMX files: it ends, and what it gives is a pair.
#include "fuzz/catalog_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const lexmill::fuzz::Input input(data, size);
  return lexmill::fuzz::CheckReference(lexmill::CatalogFormat::Tmx, input.Rest());
}
