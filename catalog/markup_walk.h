// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// The way through an XML catalog, the same for each format.
#pragma once

#include <string>
#include <string_view>

#include "catalog/markup_capture.h"
#include "catalog/markup_head.h"
#include "platform/interchange/markup_reader.h"

namespace lexmill {

/// A class that makes entries of the elements of one format.
template <class P>
concept MarkupParser = requires(P parser, const platform::MarkupEvent& event) {
  parser.TakeStart(event);
  parser.TakeEnd(event);
  parser.KeepCaptured();
};

/// A catalog under way, and what has been seen of it.
class MarkupWalk {
 public:
  /// @param escapesQuotes  how quotes are written in a catalog that has none so far
  /// @throws platform::Failure if the file can't be read
  MarkupWalk(std::u16string_view path, bool escapesQuotes)
      : path_(path), reader_(path), capture_(reader_, escapesQuotes) {}

  /// Reads the catalog to its end. Events go to the capture while that is open, and to KeepCaptured
  /// of the parser when it ends; the tags between go to TakeStart and TakeEnd.
  /// @throws as ReadMarkupCatalog
  void Read(MarkupParser auto& parser) {
    ReadMarkupCatalog(path_, reader_, [&](const platform::MarkupEvent& event) {
      if (capture_.IsOpen()) {
        capture_.Take(event);
        if (!capture_.IsOpen()) {
          parser.KeepCaptured();
        }
      } else if (event.kind == platform::MarkupKind::Start) {
        parser.TakeStart(event);
      } else if (event.kind == platform::MarkupKind::End) {
        parser.TakeEnd(event);
      }
      TakeIndent(event);
    });
  }

  [[nodiscard]] std::u16string_view Path() const { return path_; }
  [[nodiscard]] const platform::MarkupReader& Reader() const { return reader_; }
  /// The element under capture, or the last one.
  [[nodiscard]] MarkupCapture& Capture() { return capture_; }
  [[nodiscard]] const MarkupCapture& Capture() const { return capture_; }
  /// The line end and blanks in front of the tag that is the present event, as written.
  [[nodiscard]] const std::u16string& Indent() const { return indent_; }

 private:
  void TakeIndent(const platform::MarkupEvent& event);

  std::u16string path_;
  platform::MarkupReader reader_;
  MarkupCapture capture_;
  std::u16string indent_;
};

}  // namespace lexmill
