// SPDX-License-Identifier: MIT
// platform/files: text files, read and written line by line.
// Stands for: the text stream of Scripting.FileSystemObject, which makes the streams.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files/line_bytes.h"
#include "platform/host/replacement_file.h"
#include "platform/text/text_encoding.h"

namespace lexmill::platform {

/// The mark at the start of a file in Utf8WithMark.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// Reads a text file line by line. LF ends a line and a CR directly before it goes too; a lone CR
/// is text. A last line without an end counts. Buffered; closed by its destructor.
class TextReader {
 public:
  /// The next line without its end. The view lives until the next call on this object.
  /// @throws Failure InputPastEnd at the end of the file, DeviceError if the host can't read
  [[nodiscard]] std::u16string_view ReadLine();

  /// True if no line is left. @throws Failure DeviceError if the host can't read
  [[nodiscard]] bool AtEndOfStream();

  /// Passes over lines without `character`, an ASCII one, from now on, without the cost of decoding
  /// them; the next line may still be one. For the owner who is looking for others.
  void PassOverLinesWithout(char character) { wanted_ = character; }

  /// Bytes of the file taken by the lines read so far, a mark included.
  [[nodiscard]] std::int64_t BytesRead() const { return bytesRead_; }
  /// Size of the file in bytes when it was opened; 0 for a pipe or a device.
  [[nodiscard]] std::int64_t Size() const { return size_; }

  /// Closes now instead of at the end of this object's life. Closing twice is harmless.
  void Close();

 private:
  friend class FileSystemObject;
  TextReader(HostFile file, std::int64_t size, TextEncoding encoding);

  LineBytes source_;
  std::int64_t size_;
  TextEncoding encoding_;
  std::optional<char> wanted_;            ///< what a line has to hold to be given
  std::optional<std::string_view> line_;  ///< the next one, if it has been looked at
  std::int64_t bytesRead_ = 0;
  std::u16string text_;  ///< the line that was given last
};

/// Writes a text file. Buffered: a line costs no system call. The file takes the place of an older
/// one of its name in one step when it is closed or destroyed; after a failed write the older one
/// stays.
class TextWriter {
 public:
  TextWriter(TextWriter&&) noexcept;
  TextWriter& operator=(TextWriter&&) noexcept;
  /// Closes as Close does, but drops a failure.
  ~TextWriter();

  /// Writes `text` as it is.
  /// @throws Failure of this call or an earlier one: InvalidCall if the encoding lacks a character
  ///   (nothing of that call is written, nor of any after it), DiskFull or DeviceError if the host
  ///   can't write
  void Write(std::u16string_view text);
  /// Writes `text` and CR LF. @throws as Write
  void WriteLine(std::u16string_view text = {});
  /// Completes the file and puts it in its place. Closing twice is harmless.
  /// @throws Failure as Write, PermissionDenied, or FileAlreadyOpen if the file can't take its
  /// place
  void Close();
  /// Drops what has been written: an older file of the name stays as it is. Nothing can be written
  /// from now on. A file that is closed stays.
  void Discard();

 private:
  friend class FileSystemObject;
  struct State;
  TextWriter(ReplacementFile file, std::u16string path, TextEncoding encoding);
  std::unique_ptr<State> state_;
};

}  // namespace lexmill::platform
