// SPDX-License-Identifier: MIT
#include "run/purified_database.h"

#include <cstdint>

#include "foundation/entry_point.h"
#include "platform/files/file_system.h"

namespace lexmill::modMain {
namespace {

struct FixedText {
  std::int64_t offset;
  std::string_view text;
};

constexpr FixedText kHead{0, "** This file contains an SQLite 2.1 database **"};
// Where the format keeps the statement that made the first table of a database.
constexpr FixedText kFirstTable{1066, "CREATE TABLE R(r1 TEXT,r2 TEXT)"};

bool Holds(std::u16string_view path, const FixedText& wanted) {
  return platform::ReadBinary(path, wanted.offset, wanted.text.size()) == wanted.text;
}

}  // namespace

bool IsPurifiedDatabase(std::u16string_view path) {
  bool result = false;
  IgnoreFailures([&] { result = Holds(path, kHead) && Holds(path, kFirstTable); });
  return result;
}

}  // namespace lexmill::modMain
