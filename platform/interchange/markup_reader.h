// SPDX-License-Identifier: MIT
// platform/interchange: formats in which programs exchange data.
// The tags and texts of an XML file, each with its place in the file.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files/file_range.h"
#include "platform/text/ansi_text.h"

namespace lexmill::platform {

enum class MarkupKind {
  Start,  ///< a start tag, or an empty-element tag
  End,    ///< an end tag; of no length after an empty-element tag
  Text,   ///< a piece of text, references resolved, line ends as LF
  Other,  ///< a comment, an instruction, a reference to what the file doesn't define
};

/// A piece of an XML file; good until the function that sees it returns.
struct MarkupEvent {
  MarkupKind kind = MarkupKind::Other;
  /// Of an element, without its prefix; empty for one of another namespace than the first's.
  std::u16string_view name;
  std::u16string_view text;  ///< of a Text
  FileRange range;
};

/// Where and why a file isn't well-formed.
struct MarkupFault {
  std::int64_t line = 0;      ///< the first is 1
  std::u16string reason;      ///< a Chinese phrase, or the library's own words
  bool isOfEncoding = false;  ///< nothing could be read, the encoding being unknown
};

/// Reads one XML file from start to end. Entities outside the file are not read, and those that
/// multiply its size beyond reason or bring in elements make it faulty.
/// Stands for: the streaming parser of the XML library
class MarkupReader {
 public:
  using OnEvent = std::function<void(const MarkupEvent&)>;

  /// @throws Failure as OpenToRead
  explicit MarkupReader(std::u16string_view path);
  ~MarkupReader();
  MarkupReader(const MarkupReader&) = delete;
  MarkupReader& operator=(const MarkupReader&) = delete;

  /// Reads the file and reports its pieces in order. To be called once.
  /// @return what is wrong, after all that came before has been reported; none if nothing is or
  ///   Stop was called
  /// @throws Failure DeviceError if the host can't read; whatever `onEvent` throws
  [[nodiscard]] std::optional<MarkupFault> Read(const OnEvent& onEvent);

  /// Ends the reading after the present event.
  void Stop();

  // About the present event:

  /// The line that it begins in; the first is 1.
  [[nodiscard]] std::int64_t Line() const;
  /// The value of an attribute of a start tag; none if it isn't there. An attribute of another
  /// namespace is found only if that is XML's own, as "xml:lang".
  [[nodiscard]] std::optional<std::u16string> Attribute(std::u16string_view name) const;
  /// What the file has, as text.
  [[nodiscard]] std::u16string Written() const;

  /// The file's encoding; known from the first start tag on.
  [[nodiscard]] std::shared_ptr<const CodePage> Page() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace lexmill::platform
