// SPDX-License-Identifier: MIT
#include "run/purified_database.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/cCaptureConsole.h"
#include "foundation/entry_point.h"
#include "glossary/working_scripts.h"
#include "pipeline/batch_script.h"
#include "platform/files/file_system.h"
#include "platform/host/application.h"
#include "platform/text/numbers.h"

namespace lexmill::modMain {
namespace {

struct FixedText {
  std::int64_t offset;
  std::u16string_view text;  ///< plain ASCII
};

constexpr FixedText kHead{0, u"** This file contains an SQLite 2.1 database **"};
// Where the format keeps the statement that made the first table of a database.
constexpr FixedText kFirstTable{1066, kCreateTableR};

bool Holds(std::u16string_view path, const FixedText& wanted) {
  const std::string bytes = platform::ReadBinary(path, wanted.offset, wanted.text.size());
  return std::ranges::equal(bytes, wanted.text);
}

}  // namespace

bool IsPurifiedDatabase(std::u16string_view path) {
  bool result = false;
  IgnoreFailures([&] { result = Holds(path, kHead) && Holds(path, kFirstTable); });
  return result;
}

std::int64_t RowsOfPurifiedDatabase(std::u16string_view path) {
  std::int64_t rows = 0;
  IgnoreFailures([&] {
    const std::u16string output = cCaptureConsole().ShellConsole(
        u"sqlite " + QuotedPath(path) + u" \"SELECT COUNT(*) FROM R;\"",
        platform::ApplicationFolder());
    rows = platform::ToInt32(output.substr(0, output.find_first_of(u"\r\n")));
  });
  return rows;
}

}  // namespace lexmill::modMain
