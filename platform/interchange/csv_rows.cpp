// SPDX-License-Identifier: MIT
#include "platform/interchange/csv_rows.h"

#include <exception>
#include <utility>

#include <csv.h>

#include "platform/failure.h"
#include "platform/files/line_bytes.h"
#include "platform/files/opened_file.h"
#include "platform/files/text_stream.h"

namespace lexmill::platform {
namespace {

/// The library calls plain functions, through which nothing may be thrown.
class CsvReading {
 public:
  CsvReading(const CodePage& page, char separator, const OnCsvRow& onRow)
      : page_(page), onRow_(onRow) {
    if (csv_init(&parser_, 0) != 0) {
      throw Failure(FailureNumber::OutOfMemory, FailureOrigin::Runtime);
    }
    csv_set_delim(&parser_, static_cast<unsigned char>(separator));
    csv_set_space_func(&parser_, [](unsigned char) { return 0; });
  }
  ~CsvReading() { csv_free(&parser_); }
  CsvReading(const CsvReading&) = delete;
  CsvReading& operator=(const CsvReading&) = delete;

  /// @return false if no further line is wanted
  bool Feed(std::string_view line) {
    ++line_;
    if (rowStart_ == 0 && line.find_first_not_of("\r\n") != std::string_view::npos) {
      rowStart_ = line_;
    }
    if (csv_parse(&parser_, line.data(), line.size(), OnField, OnRow, this) != line.size()) {
      throw Failure(FailureNumber::OutOfMemory, FailureOrigin::Runtime);
    }
    Rethrow();
    return !isStopped_;
  }

  /// @return false if a quote is still open
  bool Finish() {
    csv_set_opts(&parser_, CSV_STRICT | CSV_STRICT_FINI);
    const bool isWhole = csv_fini(&parser_, OnField, OnRow, this) == 0;
    Rethrow();
    return isWhole;
  }

  [[nodiscard]] std::int64_t Line() const { return line_; }

 private:
  static void OnField(void* bytes, std::size_t length, void* data) {
    CsvReading& reading = *static_cast<CsvReading*>(data);
    reading.Keep([&] {
      const char* const first = bytes == nullptr ? "" : static_cast<const char*>(bytes);
      reading.page_.Decode({first, length}, reading.fields_.emplace_back());
    });
  }

  static void OnRow(int /*end*/, void* data) {
    CsvReading& reading = *static_cast<CsvReading*>(data);
    reading.Keep([&] {
      if (!reading.isStopped_) {
        const std::int64_t start = reading.rowStart_ == 0 ? reading.line_ : reading.rowStart_;
        reading.isStopped_ = !reading.onRow_(reading.fields_, start);
      }
      reading.rowStart_ = 0;
      reading.fields_.clear();
    });
  }

  template <class Step>
  void Keep(const Step& step) {
    if (thrown_) {
      return;
    }
    try {
      step();
    } catch (...) {
      thrown_ = std::current_exception();
    }
  }

  void Rethrow() {
    if (thrown_) {
      std::rethrow_exception(std::exchange(thrown_, nullptr));
    }
  }

  const CodePage& page_;
  const OnCsvRow& onRow_;
  csv_parser parser_{};
  std::vector<std::u16string> fields_;
  std::int64_t line_ = 0;
  std::int64_t rowStart_ = 0;  ///< 0 between two rows
  bool isStopped_ = false;
  std::exception_ptr thrown_;
};

}  // namespace

std::optional<std::int64_t> ReadCsvRows(std::u16string_view path, const CodePage& page,
                                        char separator, const OnCsvRow& onRow) {
  LineBytes lines(OpenToRead(path).file);
  lines.SkipMark(kUtf8Mark);
  CsvReading reading(page, separator, onRow);
  while (!lines.AtEnd()) {
    if (!reading.Feed(lines.Next())) {
      return std::nullopt;
    }
  }
  return reading.Finish() ? std::nullopt : std::optional(reading.Line());
}

}  // namespace lexmill::platform
