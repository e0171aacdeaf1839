// SPDX-License-Identifier: MIT
#include "tests/sqlite/file_checker.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <tuple>

namespace lexmill::test {
namespace {

using Page = std::uint32_t;

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream{std::string(text)};
  for (std::string part; std::getline(stream, part, separator);) {
    parts.push_back(part.substr(0, part.find(' ')));
  }
  return parts;
}

/// The names between the brackets of a statement.
std::vector<std::string> NamesIn(const std::string& sql) {
  const std::size_t open = sql.find('(') + 1;
  return Split(std::string_view(sql).substr(open, sql.rfind(')') - open), ',');
}

std::string RowKeyOf(std::int32_t rowId) {
  const std::uint32_t number = static_cast<std::uint32_t>(rowId) + 0x80000000U;
  std::string key;
  for (const unsigned shift : {24U, 16U, 8U, 0U}) {
    key += static_cast<char>(number >> shift);
  }
  return key;
}

class Checker {
 public:
  explicit Checker(std::string_view bytes) : bytes_(bytes) {}

  FileContent Run() {
    content_.pages = static_cast<Page>(bytes_.size() / 1024);
    Expect(bytes_.size() % 1024 == 0, "size", 0);
    Expect(bytes_.substr(0, 48) ==
               std::string_view("** This file contains an SQLite 2.1 database **\0", 48),
           "magic", 1);
    isBig_ = bytes_.substr(48, 4) == "\xDA\xE3\x75\x28";
    std::ignore = Use(1);
    CheckFreeList();
    CheckObjects(ReadTable(2));
    for (Page page = 1; page <= content_.pages; ++page) {
      Expect(used_.contains(page), "page without a user", page);
    }
    return content_;
  }

 private:
  using Entries = std::vector<std::pair<std::string, std::string>>;  // key and data, in order

  void Expect(bool isRight, const std::string& what, Page page) {
    if (!isRight && content_.findings.size() < 2000) {
      content_.findings += what + " (page " + std::to_string(page) + ")\n";
    }
  }

  [[nodiscard]] std::uint32_t Number(std::size_t at, std::size_t size) const {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size && at + i < bytes_.size(); ++i) {
      const auto byte = static_cast<unsigned char>(bytes_[at + (isBig_ ? i : size - 1 - i)]);
      number = number * 256 + byte;
    }
    return number;
  }

  [[nodiscard]] bool Use(Page page) {
    const bool isGood = page >= 1 && page <= content_.pages && used_.insert(page).second;
    Expect(isGood, "page used twice or not there", page);
    return isGood;
  }

  void CheckFreeList() {
    for (Page trunk = Number(52, 4); trunk != 0 && Use(trunk);) {
      const std::size_t at = (trunk - 1) * std::size_t{1024};
      const std::uint32_t leaves = Number(at + 4, 4);
      Expect(leaves <= 254, "leaves of a trunk", trunk);
      for (std::uint32_t i = 0; i < std::min(leaves, 254U); ++i) {
        std::ignore = Use(Number(at + 8 + i * std::size_t{4}, 4));
      }
      content_.freePages += leaves + 1;
      trunk = Number(at, 4);
    }
    Expect(content_.freePages == Number(56, 4), "number of free pages", 1);
  }

  Entries ReadTree(Page root) {
    Entries entries;
    leafDepth_.reset();
    Walk(root, true, 0, entries);
    for (std::size_t i = 1; i < entries.size(); ++i) {
      Expect(entries[i - 1].first < entries[i].first, "keys in order", root);
    }
    return entries;
  }

  void Walk(Page page, bool isRoot, int depth, Entries& entries) {
    if (!Use(page) || depth > 40) {
      return;
    }
    const std::size_t base = (page - 1) * std::size_t{1024};
    const Page right = Number(base, 4);
    if (right == 0) {
      Expect(leafDepth_.value_or(depth) == depth, "depth of a leaf", page);
      leafDepth_ = depth;
    }
    std::size_t covered = 0;
    int cells = 0;
    for (std::size_t at = Number(base + 4, 2); at != 0 && cells < 64; ++cells) {
      Expect(at % 4 == 0 && at >= 8 && at <= 1012, "place of a cell", page);
      const Page left = Number(base + at, 4);
      Expect((left == 0) == (right == 0), "left child", page);
      if (left != 0) {
        Walk(left, false, depth + 1, entries);
      }
      covered += ReadCell(base + at, page, entries);
      at = Number(base + at + 6, 2);
    }
    Expect(isRoot || cells > 0, "empty page", page);
    CheckFreeBlocks(page, covered);
    if (right != 0) {
      Walk(right, false, depth + 1, entries);
    }
  }

  std::size_t ReadCell(std::size_t at, Page page, Entries& entries) {
    const std::size_t keySize = Number(at + 4, 2) + Number(at + 8, 1) * std::size_t{65536};
    const std::size_t size = keySize + Number(at + 10, 2) + Number(at + 9, 1) * std::size_t{65536};
    std::string payload(bytes_.substr(at + 12, std::min<std::size_t>(size, 236)));
    Page overflow = size > 236 ? Number(at + 248, 4) : 0;
    while (overflow != 0 && Use(overflow)) {
      const std::size_t from = (overflow - 1) * std::size_t{1024};
      payload += bytes_.substr(from + 4, std::min<std::size_t>(1020, size - payload.size()));
      overflow = Number(from, 4);
    }
    Expect(payload.size() == size, "length of an entry", page);
    entries.emplace_back(payload.substr(0, keySize), payload.substr(std::min(keySize, size)));
    return size > 236 ? 252 : (12 + size + 3) / 4 * 4;
  }

  void CheckFreeBlocks(Page page, std::size_t covered) {
    const std::size_t base = (page - 1) * std::size_t{1024};
    const std::size_t first = Number(base + 6, 2);
    for (std::size_t at = first, before = 0; at != 0; at = Number(base + at + 2, 2)) {
      Expect(at > before, "order of free blocks", page);
      if (at <= before) {
        return;
      }
      covered += Number(base + at, 2);
      before = at;
    }
    Expect(covered == 1016 || (covered == 0 && first == 0), "cover of a page", page);
  }

  std::map<std::int32_t, FileRow> ReadTable(Page root) {
    std::map<std::int32_t, FileRow> rows;
    for (const auto& [key, data] : ReadTree(root)) {
      Expect(key.size() == 4, "length of a row's key", root);
      std::uint32_t number = 0;
      for (const char byte : key) {
        number = number * 256 + static_cast<unsigned char>(byte);
      }
      rows[static_cast<std::int32_t>(number - 0x80000000U)] = ReadRecord(data, root);
    }
    return rows;
  }

  FileRow ReadRecord(const std::string& data, Page page) {
    const std::size_t width = data.size() < 256 ? 1 : data.size() < 65536 ? 2 : 3;
    const auto offset = [&data, width](std::size_t index) {
      std::size_t value = 0;
      for (std::size_t i = width; i-- > 0;) {
        value = value * 256 + static_cast<unsigned char>(data.at(index * width + i));
      }
      return value;
    };
    FileRow row;
    for (std::size_t i = 0; i + 1 < offset(0) / width; ++i) {
      const std::string value = data.substr(offset(i), offset(i + 1) - offset(i));
      Expect(value.find('\0') == (value.empty() ? value.npos : value.size() - 1), "end of a value",
             page);
      row.push_back(value.empty() ? FileValue() : value.substr(0, value.size() - 1));
    }
    Expect(offset(row.size()) == data.size(), "length of a record", page);
    return row;
  }

  void CheckObjects(const std::map<std::int32_t, FileRow>& objects) {
    std::map<std::string, std::vector<std::string>> columns;
    for (const auto& [rowId, object] : objects) {
      if (object.at(0) == "table") {
        columns[*object.at(1)] = NamesIn(*object.at(4));
        content_.tables[*object.at(1)] = ReadTable(RootOf(object));
      }
    }
    for (const auto& [rowId, object] : objects) {
      if (object.at(0) == "index") {
        CheckIndex(object, columns[*object.at(2)]);
      }
    }
  }

  static Page RootOf(const FileRow& object) {
    return static_cast<Page>(std::stoul(object.at(3).value_or("0")));
  }

  void CheckIndex(const FileRow& object, const std::vector<std::string>& columns) {
    std::set<std::string> expected;
    for (const auto& [rowId, row] : content_.tables[*object.at(2)]) {
      std::string key;
      for (const std::string& name : NamesIn(*object.at(4))) {
        const FileValue& value =
            row.at(static_cast<std::size_t>(std::ranges::find(columns, name) - columns.begin()));
        key += value ? "c" + *value : "a";
        key += '\0';
      }
      expected.insert(key + RowKeyOf(rowId));
    }
    std::set<std::string> found;
    for (const auto& [key, data] : ReadTree(RootOf(object))) {
      Expect(data.empty(), "data of an index entry", RootOf(object));
      found.insert(key);
    }
    Expect(found == expected, "entries of index " + *object.at(1), RootOf(object));
  }

  std::string_view bytes_;
  bool isBig_ = false;
  FileContent content_;
  std::set<Page> used_;
  std::optional<int> leafDepth_;
};

}  // namespace

FileContent CheckFile(std::string_view bytes) {
  return Checker(bytes).Run();
}

}  // namespace lexmill::test
