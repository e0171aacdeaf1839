// SPDX-License-Identifier: MIT
#include "platform/host/standard_streams.h"

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <optional>
#include <streambuf>

#include "platform/host/win32/handle.h"
#include "platform/host/win32/wide.h"
#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

HANDLE StandardHandle(StandardStream stream) {
  switch (stream) {
    case StandardStream::Input:
      return GetStdHandle(STD_INPUT_HANDLE);
    case StandardStream::Output:
      return GetStdHandle(STD_OUTPUT_HANDLE);
    case StandardStream::Error:
      break;
  }
  return GetStdHandle(STD_ERROR_HANDLE);
}

/// Length of the UTF-8 text `bytes` without the character at its end that isn't whole.
std::size_t WholeLength(std::string_view bytes) {
  std::size_t first = bytes.size();
  while (first > 0 && (bytes[first - 1] & 0xC0) == 0x80) {
    --first;
  }
  if (first == 0 || (bytes[first - 1] & 0xC0) != 0xC0) {
    return bytes.size();
  }
  --first;
  const int lead = bytes[first] & 0xFF;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  return bytes.size() - first < length ? first : bytes.size();
}

/// Shows UTF-8 on a console, whatever page it has.
class ConsoleBuffer : public std::streambuf {
 public:
  explicit ConsoleBuffer(HANDLE console) : console_(console) {}

 protected:
  int_type overflow(int_type unit) override {
    if (!traits_type::eq_int_type(unit, traits_type::eof())) {
      pending_ += traits_type::to_char_type(unit);
    }
    return traits_type::not_eof(unit);
  }
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    pending_.append(bytes, static_cast<std::size_t>(count));
    if (pending_.size() > kMostPending) {
      sync();
    }
    return count;
  }
  int sync() override {
    const std::size_t length = WholeLength(pending_);
    const std::wstring text = system::Wide(FromUtf8(pending_.substr(0, length)));
    pending_.erase(0, length);
    return Write(text) ? 0 : -1;
  }

 private:
  static constexpr std::size_t kMostPending = std::size_t{16} << 10U;  // bytes

  /// Piece by piece, since one call takes 64 KB at most.
  bool Write(std::wstring_view text) {
    constexpr std::size_t kMostUnits = 8192;
    while (!text.empty()) {
      std::size_t length = std::min(text.size(), kMostUnits);
      length -= length < text.size() && IS_HIGH_SURROGATE(text[length - 1]) ? 1 : 0;
      DWORD written = 0;
      if (WriteConsoleW(console_, text.data(), static_cast<DWORD>(length), &written, nullptr) ==
          0) {
        return false;
      }
      text.remove_prefix(length);
    }
    return true;
  }

  HANDLE console_;
  std::string pending_;
};

/// A stream of the library that writes to a console, for the rest of the program. The console gets
/// the mode that it had back in the end, as it is shared with whoever started the program.
class ConsoleStream {
 public:
  ConsoleStream(std::ostream& stream, HANDLE console, DWORD mode)
      : stream_(stream),
        console_(console),
        formerMode_(mode),
        buffer_(console),
        former_(stream.rdbuf(&buffer_)) {
    SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
  }
  ~ConsoleStream() {
    stream_.flush();
    stream_.rdbuf(former_);
    SetConsoleMode(console_, formerMode_);
  }
  ConsoleStream(const ConsoleStream&) = delete;
  ConsoleStream& operator=(const ConsoleStream&) = delete;

 private:
  std::ostream& stream_;
  HANDLE console_;
  DWORD formerMode_;
  ConsoleBuffer buffer_;
  std::streambuf* former_;
};

void Prepare(std::ostream& stream, std::FILE* file, StandardStream which,
             std::optional<ConsoleStream>& console) {
  DWORD mode = 0;
  const HANDLE handle = StandardHandle(which);
  if (GetConsoleMode(handle, &mode) == 0) {
    // A stream that the program was started without has no number.
    if (const int number = _fileno(file); number >= 0) {
      _setmode(number, _O_BINARY);
    }
    return;
  }
  console.emplace(stream, handle, mode);
}

}  // namespace

std::vector<std::u16string> ProgramWords(int /*count*/, const char* const* /*words*/) {
  // What `main` is given has been through a code page.
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::u16string> result;
  for (int i = 0; words != nullptr && i < count; ++i) {
    result.push_back(system::TextOf(words[i]));
  }
  LocalFree(words);
  if (result.empty()) {
    result.emplace_back();
  }
  return result;
}

HostFile TakeStandardStream(StandardStream stream) {
  return HostFile(system::FromHandle(StandardHandle(stream)));
}

bool IsTerminal(StandardStream stream) {
  DWORD mode = 0;
  return GetConsoleMode(StandardHandle(stream), &mode) != 0;
}

void PrepareOutput() {
  static std::optional<ConsoleStream> output;
  static std::optional<ConsoleStream> error;
  Prepare(std::cout, stdout, StandardStream::Output, output);
  Prepare(std::cerr, stderr, StandardStream::Error, error);
}

}  // namespace lexmill::platform
