// SPDX-License-Identifier: MIT
// A Reader takes a statement apart from left to right, in one pass and without a copy: every part
// is a view into the statement, but for texts in which an apostrophe is doubled. After something
// that doesn't fit it has failed, and all that follows fails as well, so that the forms below read
// like the statements and ask once, at their end.
//
// Exactly one spelling is known. That costs nothing: a script has the one that a stage writes, and
// whatever else comes is still understood, only slower (WithPlainSpelling, libsqlite3).
#include "platform/sqlite/sql/plain_statement.h"

#include <algorithm>

#include "platform/sqlite/sql/sql_token.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr auto kNone = std::string_view::npos;

/// What lies between two apostrophes.
struct Quoted {
  std::string_view inside;
  bool holdsDoubled = false;  ///< doubled apostrophes, still so
};

/// Goes over a text from left to right; after the first thing that isn't there nothing else is.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  [[nodiscard]] bool Failed() const { return at_ == kNone; }
  /// Bytes read so far; 0 after a failure.
  [[nodiscard]] std::size_t Length() const { return Failed() ? 0 : at_; }

  /// Steps over `expected` if it comes next; else stays where it is.
  [[nodiscard]] bool Accept(std::string_view expected) {
    if (Failed() || !text_.substr(at_).starts_with(expected)) {
      return false;
    }
    at_ += expected.size();
    return true;
  }

  void Expect(std::string_view expected) {
    if (!Accept(expected)) {
      at_ = kNone;
    }
  }

  std::string_view ReadName() {
    const std::string_view name = Failed() ? std::string_view() : LeadingWord(text_.substr(at_));
    const bool isName = !name.empty() && (name[0] < '0' || name[0] > '9');
    at_ = isName ? at_ + name.size() : kNone;
    return name;
  }

  JoinColumn ReadColumn() {
    const std::size_t from = Length();
    JoinColumn result;
    result.table = ReadName();
    Expect(".");
    result.column = ReadName();
    result.written = text_.substr(from, Length() - std::min(from, Length()));
    return result;
  }

  Quoted ReadString() {
    Expect("'");
    Quoted result;
    if (Failed()) {
      return result;
    }
    const std::size_t from = at_;
    while ((at_ = text_.find('\'', at_)) != kNone) {  // none: the string isn't closed, a failure
      ++at_;
      if (at_ == text_.size() || text_[at_] != '\'') {
        result.inside = text_.substr(from, at_ - 1 - from);
        break;
      }
      result.holdsDoubled = true;
      ++at_;
    }
    return result;
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

/// Appends `inside` to `out`, which has room for it, with each doubled apostrophe as one.
std::string_view AppendSingle(std::string_view inside, std::string& out) {
  const std::size_t start = out.size();
  for (std::size_t at; (at = inside.find('\'')) != kNone; inside.remove_prefix(at + 2)) {
    out.append(inside.substr(0, at + 1));
  }
  out.append(inside);
  return std::string_view(out).substr(start);
}

/// `text` without the semicolon and the blanks that may end it.
std::string_view WithoutEnd(std::string_view text) {
  text = TrimBlanksAtEnd(text);
  if (text.ends_with(';')) {
    text.remove_suffix(1);
  }
  return text;
}

}  // namespace

std::size_t PlainInsert::Read(std::string_view text) {
  values_.clear();
  doubled_.clear();
  std::size_t doubledBytes = 0;
  Reader reader(text);
  reader.Expect("INSERT INTO ");
  table_ = reader.ReadName();
  reader.Expect(" VALUES (");
  do {
    if (reader.Accept("NULL")) {
      values_.emplace_back();
      continue;
    }
    const Quoted quoted = reader.ReadString();
    if (quoted.holdsDoubled) {
      doubled_.push_back(values_.size());
      doubledBytes += quoted.inside.size();
    }
    values_.emplace_back(quoted.inside);
  } while (reader.Accept(","));
  reader.Expect(");");
  if (reader.Failed()) {
    return 0;
  }
  single_.clear();
  single_.reserve(doubledBytes);  // so that the views into it stay
  for (const std::size_t index : doubled_) {
    values_[index] = AppendSingle(*values_[index], single_);
  }
  return reader.Length();
}

std::size_t PlainUpdate::Read(std::string_view text) {
  Reader reader(text);
  reader.Expect("UPDATE ");
  table_ = reader.ReadName();
  reader.Expect(" SET ");
  valueColumn_ = reader.ReadName();
  reader.Expect("=");
  const Quoted value = reader.ReadString();
  reader.Expect(" WHERE ");
  keyColumn_ = reader.ReadName();
  reader.Expect("=");
  const Quoted key = reader.ReadString();
  reader.Expect(";");
  if (reader.Failed()) {
    return 0;
  }
  single_.clear();
  single_.reserve(value.inside.size() + key.inside.size());
  value_ = value.holdsDoubled ? AppendSingle(value.inside, single_) : value.inside;
  key_ = key.holdsDoubled ? AppendSingle(key.inside, single_) : key.inside;
  return reader.Length();
}

std::optional<PlainListing> ReadPlainListing(std::string_view text) {
  text = WithoutEnd(text);
  PlainListing result;
  Reader reader(text);
  reader.Expect("SELECT ");
  do {
    result.columns.push_back(reader.ReadName());
  } while (reader.Accept(","));
  reader.Expect(" FROM ");
  result.table = reader.ReadName();
  if (reader.Failed() || reader.Length() != text.size()) {
    return std::nullopt;
  }
  return result;
}

std::optional<PlainJoin> ReadPlainJoin(std::string_view text) {
  text = WithoutEnd(text);
  PlainJoin result;
  Reader reader(text);
  reader.Expect("SELECT DISTINCT ");
  do {
    result.columns.push_back(reader.ReadColumn());
  } while (reader.Accept(","));
  reader.Expect(" FROM ");
  const std::string_view outer = reader.ReadName();
  reader.Expect(" INNER JOIN ");
  const std::string_view inner = reader.ReadName();
  reader.Expect(" ON ");
  result.isUpper = reader.Accept("Upper(");
  result.outer = reader.ReadColumn();
  reader.Expect(result.isUpper ? ")=" : "=");
  result.inner = reader.ReadColumn();
  const bool isOfThese = std::ranges::all_of(result.columns, [&](const JoinColumn& column) {
    return column.table == outer || column.table == inner;
  });
  if (reader.Failed() || reader.Length() != text.size() || !isOfThese ||
      result.outer.table != outer || result.inner.table != inner) {
    return std::nullopt;
  }
  return result;
}

}  // namespace lexmill::platform::sqlite
