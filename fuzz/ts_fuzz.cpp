// SPDX-License-Identifier: MIT
// The reader of TS files and what it makes of them.
#include "fuzz/catalog_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const lexmill::fuzz::Input input(data, size);
  return lexmill::fuzz::CheckCatalog(lexmill::CatalogFormat::Ts, input.Rest());
}
