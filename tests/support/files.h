// SPDX-License-Identifier: MIT
// tests/support: a small world for tests.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace lexmill::test {

/// A fresh folder that goes with this object.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  /// The path of `name` in the folder as the system holds paths.
  [[nodiscard]] std::u16string File(std::string_view name) const;
  /// Names of all that lies in the folder, programs as ProgramFile takes them, sorted, joined by
  /// blanks.
  [[nodiscard]] std::string Listing() const;

 private:
  std::filesystem::path path_;
};

/// While it lives, a test that runs as the superuser has no more rights than an ordinary user.
/// Make it before the folder that the test works in.
class OrdinaryUser {
 public:
  OrdinaryUser();
  ~OrdinaryUser();
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  bool wasSuperuser_;
};

/// The file name of one of our programs: "batch" or "batch.exe".
[[nodiscard]] std::string ProgramFile(std::string_view program);
/// Lets `program` of the folder `from` be in the folder `to`, too.
void LendProgram(const std::filesystem::path& from, std::string_view program,
                 const std::filesystem::path& to);

/// `path`, given with "/", with the separators that this system writes.
[[nodiscard]] std::string SystemPath(std::string_view path);

/// Writes `bytes` as they are.
void WriteBytes(std::u16string_view path, std::string_view bytes);
/// The bytes of a file; a test failure and "" if it can't be read.
[[nodiscard]] std::string ReadBytes(std::u16string_view path);

/// `text`, UTF-8 with LF, as a file of the system holds it: code page 936 and CR LF. Only
/// characters of code page 936; converted by ICU's own table, not by the code under test.
[[nodiscard]] std::string Ansi(std::string_view text);
/// The reverse of Ansi; "\\xHH" for a byte that is no text.
[[nodiscard]] std::string FromAnsiBytes(std::string_view bytes);

}  // namespace lexmill::test
