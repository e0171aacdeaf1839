// SPDX-License-Identifier: MIT
#include "glossary/record_scanner.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/failure.h"
#include "platform/text/text.h"
#include "run/shared/run_state.h"

namespace lexmill {
namespace {

constexpr std::int32_t kWhole = 100;

platform::Failure InvalidPropertyValue() {
  return {platform::FailureNumber::InvalidPropertyValue, platform::FailureOrigin::Runtime};
}

}  // namespace

ScannerConnection RecordScanner::Connect(std::function<void()> onBegin,
                                         std::function<void()> onRecord,
                                         std::function<void()> onEnd) {
  return {ScanBegin.Connect(std::move(onBegin)), ScanRecord.Connect(std::move(onRecord)),
          ScanEnd.Connect(std::move(onEnd))};
}

void RecordScanner::ScanFile(std::u16string_view path) {
  scanFile_ = path;
}

void RecordScanner::FieldSeparator(std::u16string_view separator) {
  if (separator.size() != 1) {
    throw InvalidPropertyValue();
  }
  separator_ = separator.front();
}

void RecordScanner::ScanAction(std::int32_t action) {
  switch (action) {
    case kRun:
      return Run();
    case kReset:
      return Reset();
    default:
      throw InvalidPropertyValue();
  }
}

void RecordScanner::Run() {
  auto file = platform::FileSystemObject().OpenTextFile(scanFile_, KindOf(scanFile_).encoding);
  line_ = 0;
  bytesRead_ = 0;
  bytesInAll_ = std::max<std::int64_t>(file.Size(), 1);  // no share can be taken of an empty file
  ScanBegin.Raise();
  ScanRecords(file);
  if (TheRun().abandoned) {
    return;
  }
  bytesRead_ = bytesInAll_;
  ScanEnd.Raise();
}

void RecordScanner::ScanRecords(platform::TextReader& file) {
  // The record is the file's: it must not be seen when that is gone, not even after a failure.
  const std::unique_ptr<RecordScanner, void (*)(RecordScanner*)> atEnd(
      this, [](RecordScanner* scanner) { scanner->ForgetRecord(); });
  while (!TheRun().abandoned && !file.AtEndOfStream()) {
    ReadRecord(file);
    if (!record_.empty()) {
      ScanRecord.Raise();
    }
  }
}

void RecordScanner::ForgetRecord() {
  record_ = {};
  fields_.clear();
}

void RecordScanner::Reset() {
  scanFile_.clear();
  separator_ = u'\t';
  ForgetRecord();
}

void RecordScanner::ReadRecord(platform::TextReader& file) {
  record_ = file.ReadLine();
  ++line_;
  bytesRead_ = file.BytesRead();

  fields_.clear();
  for (std::size_t start = 0; start <= record_.size() && FieldCount() < kMostFields;) {
    const std::size_t end = platform::Find(record_, separator_, start);
    fields_.push_back(record_.substr(start, end - start));
    start = end + 1;
  }
}

std::int32_t RecordScanner::FieldCount() const {
  return static_cast<std::int32_t>(fields_.size());
}

std::int32_t RecordScanner::ProgressPercent() const {
  // A file that grows during the scan may have more bytes than it had at first.
  const std::int64_t read = std::min(bytesRead_, bytesInAll_);
  return static_cast<std::int32_t>(read * kWhole / bytesInAll_);
}

std::u16string_view RecordScanner::Field(std::int16_t n) const {
  if (n == 0) {
    return record_;
  }
  return n > 0 && n <= FieldCount() ? fields_[static_cast<std::size_t>(n) - 1]
                                    : std::u16string_view();
}

}  // namespace lexmill
