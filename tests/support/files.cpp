// SPDX-License-Identifier: MIT
#include "tests/support/files.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/host/host_path.h"
#include "platform/text/text.h"

namespace lexmill::test {
namespace {

using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

Converter OpenConverter(const char* name) {
  UErrorCode status = U_ZERO_ERROR;
  Converter converter(ucnv_open(name, &status), &ucnv_close);
  EXPECT_TRUE(U_SUCCESS(status)) << u_errorName(status);
  return converter;
}

std::string Convert(const char* to, const char* from, std::string_view bytes) {
  UErrorCode status = U_ZERO_ERROR;
  std::string result(bytes.size() * 4 + 16, '\0');
  const auto length = ucnv_convert(to, from, result.data(), static_cast<int32_t>(result.size()),
                                   bytes.data(), static_cast<int32_t>(bytes.size()), &status);
  EXPECT_TRUE(U_SUCCESS(status)) << u_errorName(status);
  result.resize(static_cast<std::size_t>(length));
  return result;
}

}  // namespace

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::u16string TemporaryFolder::File(std::string_view name) const {
  return platform::HostPath::FromNative(path_ / platform::FromUtf8(name)).Text();
}

std::string TemporaryFolder::Listing() const {
  const std::string suffix = ProgramFile("");
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(path_)) {
    std::string name = platform::ToUtf8(entry.path().filename().u16string());
    if (name.ends_with(suffix)) {
      name.resize(name.size() - suffix.size());
    }
    names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end());
  std::string result;
  for (const auto& name : names) {
    result += (result.empty() ? "" : " ") + name;
  }
  return result;
}

std::string SystemPath(std::string_view path) {
  return platform::ToUtf8(
      std::filesystem::path(platform::FromUtf8(path)).make_preferred().u16string());
}

void WriteBytes(std::u16string_view path, std::string_view bytes) {
  std::ofstream stream(platform::HostPath(path).Native(), std::ios::binary | std::ios::trunc);
  stream << bytes;
  EXPECT_TRUE(stream.good()) << platform::ToUtf8(path);
}

std::string ReadBytes(std::u16string_view path) {
  std::ifstream stream(platform::HostPath(path).Native(), std::ios::binary);
  EXPECT_TRUE(stream.is_open()) << platform::ToUtf8(path);
  std::ostringstream bytes;
  bytes << stream.rdbuf();
  return std::move(bytes).str();
}

std::string Ansi(std::string_view text) {
  std::string lines;
  for (const char c : text) {
    lines += c == '\n' ? "\r\n" : std::string(1, c);
  }
  return Convert("windows-936-2000", "UTF-8", lines);
}

std::string FromAnsiBytes(std::string_view bytes) {
  const Converter converter = OpenConverter("windows-936-2000");
  UErrorCode status = U_ZERO_ERROR;
  ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_ESCAPE, UCNV_ESCAPE_C, nullptr, nullptr,
                      &status);
  std::u16string text(bytes.size() * 4 + 16, u'\0');
  const auto length = ucnv_toUChars(converter.get(), text.data(), static_cast<int32_t>(text.size()),
                                    bytes.data(), static_cast<int32_t>(bytes.size()), &status);
  EXPECT_TRUE(U_SUCCESS(status)) << u_errorName(status);
  text.resize(static_cast<std::size_t>(length));
  std::string result = platform::ToUtf8(text);
  for (std::size_t at = 0; (at = result.find("\r\n", at)) != std::string::npos;) {
    result.erase(at, 1);
  }
  return result;
}

}  // namespace lexmill::test
