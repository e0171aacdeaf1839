// SPDX-License-Identifier: MIT

// A journal is a head and then page images: a page's number, its old content and a check. What is
// written is version 3, with the number of images left open: they go on to the end of the file.
// What is read may come from any program of this format, of version 1, 2 or 3; a file of another
// kind is refused and never ignored, as the database may need it.
//
// The check is the seed in the head plus the page's number. It shows where a dying process stopped
// writing: images count up to the first that isn't whole. More isn't needed, since the journal goes
// to the host before the database is touched, so an image that isn't whole is of a page that didn't
// change. For the same reason playing back may be cut short and begun again.

#include "platform/sqlite/file/journal.h"

#include <algorithm>
#include <array>
#include <random>
#include <utility>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/file/page_io.h"
#include "platform/sqlite/file/temporary_file.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr std::string_view kMagic = "\xD9\xD5\x05\xF9\x20\xA1\x63";
constexpr char kVersion1 = '\xD4';
constexpr char kVersion2 = '\xD5';
constexpr char kVersion3 = '\xD6';
constexpr std::size_t kShortHead = 12;
constexpr std::size_t kLongHead = 20;
constexpr std::uint32_t kUncounted =
    0xFFFFFFFF;  ///< as many images as the file's size has room for
constexpr std::size_t kPendingSize = 64 * 1024;
constexpr auto kSize = static_cast<std::int64_t>(kPageSize);

/// A journal's integers are big-endian whatever the database's are.
constexpr ByteOrder kOrder = ByteOrder::Big;

void AppendNumber(std::string& bytes, std::uint32_t number) {
  std::array<char, 4> field{};
  Put32(field.data(), number, kOrder);
  bytes.append(field.data(), field.size());
}

/// How a journal's images are laid out.
struct Layout {
  ByteOrder order = kOrder;
  bool hasChecksums = false;
  std::uint32_t seed = 0;
  PageNumber pageCount = 0;
  std::size_t headSize = kShortHead;
  std::uint32_t images = kUncounted;

  [[nodiscard]] std::size_t ImageSize() const { return 4 + kPageSize + (hasChecksums ? 4 : 0); }
};

using Head = std::array<char, kLongHead>;

std::size_t ReadHead(const HostFile& journal, Head& head) {
  const auto got = journal.ReadAt(head, 0);
  if (!got) {
    throw TransferError(got.Error());
  }
  return *got;
}

Layout LayoutOf(const HostFile& journal, ByteOrder databaseOrder) {
  Head head{};
  ReadHead(journal, head);
  const char version = head[kMagic.size()];
  Layout layout;
  if (version == kVersion3) {
    layout.hasChecksums = true;
    layout.headSize = kLongHead;
    layout.images = Get32(&head[8], kOrder);
    layout.seed = Get32(&head[12], kOrder);
    layout.pageCount = Get32(&head[16], kOrder);
  } else {
    layout.order = version == kVersion1 ? databaseOrder : kOrder;
    layout.pageCount = Get32(&head[8], layout.order);
  }
  return layout;
}

/// Hands over the images of a journal up to the first that isn't whole.
void ForEachImage(const HostFile& journal, const Layout& layout, const RestorePage& restore) {
  const std::size_t imageSize = layout.ImageSize();
  std::string run(imageSize * 64, '\0');
  auto at = static_cast<std::int64_t>(layout.headSize);
  std::uint32_t left = layout.images;
  while (true) {
    const auto got = journal.ReadAt(run, at);
    if (!got) {
      throw TransferError(got.Error());
    }
    const std::size_t images = std::min<std::size_t>(*got / imageSize, left);
    for (const char* image = run.data(); image != run.data() + images * imageSize;
         image += imageSize) {
      const PageNumber page = Get32(image, layout.order);
      const char* bytes = image + 4;
      if (page == 0 ||
          (layout.hasChecksums && Get32(bytes + kPageSize, kOrder) != layout.seed + page)) {
        return;
      }
      restore(page, bytes);
    }
    if (*got < run.size() || images < run.size() / imageSize) {
      return;
    }
    left -= layout.images == kUncounted ? 0 : static_cast<std::uint32_t>(images);
    at += static_cast<std::int64_t>(run.size());
  }
}

std::int64_t PagesOf(const HostFile& database) {
  return SizeOf(database) / kSize;
}

}  // namespace

Journal::Journal(HostFile file, PageNumber pageCount)
    : file_(std::move(file)), pageCount_(pageCount), seed_(std::random_device{}()) {
  PutHead();
}

Journal::Journal(std::string database, PageNumber pageCount)
    : database_(std::move(database)), pageCount_(pageCount), seed_(0) {
  PutHead();
}

void Journal::PutHead() {
  pending_ = kMagic;
  pending_ += kVersion3;
  AppendNumber(pending_, kUncounted);
  AppendNumber(pending_, seed_);
  AppendNumber(pending_, pageCount_);
}

void Journal::Append(PageNumber page, const char* bytes) {
  AppendNumber(pending_, page);
  pending_.append(bytes, kPageSize);
  AppendNumber(pending_, seed_ + page);
  if (pending_.size() >= kPendingSize) {
    Flush();
  }
}

void Journal::Flush() {
  if (pending_.empty()) {
    return;
  }
  if (!file_.IsOpen()) {
    file_ = OpenTemporary(database_);
  }
  // Handed to the host before the database is touched, which is all that a killed process needs.
  // Not forced to the disk: a power cut may tear a work database, and those are made again by every
  // run, while waiting for the disk would cost more than all the rest of a run.
  ThrowUnless(file_.WriteAt(pending_, size_));
  size_ += static_cast<std::int64_t>(pending_.size());
  pending_.clear();
}

void Journal::OpenAgain(const HostPath& path) {
  if (auto file = HostFile::Open(path, OpenMode::Read)) {
    file_ = *std::move(file);
  }
}

void Journal::Replay(const RestorePage& restore) {
  Flush();
  ForEachImage(file_, LayoutOf(file_, kOrder), restore);
}

JournalKind KindOf(const HostFile& journal, const HostFile& database) {
  Head head{};
  const std::size_t size = ReadHead(journal, head);
  if (size < kShortHead) {
    return JournalKind::Nothing;
  }
  const char version = head[kMagic.size()];
  if (std::string_view(head.data(), kMagic.size()) != kMagic || version < kVersion1 ||
      version > kVersion3) {
    return JournalKind::Foreign;
  }
  if (version == kVersion3 && size < kLongHead) {
    return JournalKind::Nothing;
  }
  // A writer that has only added pages left no image, but a database that is to be cut.
  const Layout layout = LayoutOf(journal, ByteOrder::Little);
  const bool hasImage =
      SizeOf(journal) >= static_cast<std::int64_t>(layout.headSize + layout.ImageSize());
  return hasImage || PagesOf(database) > layout.pageCount ? JournalKind::Journal
                                                          : JournalKind::Nothing;
}

void PlayBack(const HostFile& journal, HostFile& database, ByteOrder order) {
  const Layout layout = LayoutOf(journal, order);
  // A database never shrinks, so a journal that names more pages than it has belongs to another.
  const std::int64_t pages = std::min<std::int64_t>(layout.pageCount, PagesOf(database));
  ThrowUnless(database.Truncate(pages * kSize));
  ForEachImage(journal, layout, [&database, pages](PageNumber page, const char* bytes) {
    if (page <= pages) {
      ThrowUnless(database.WriteAt({bytes, kPageSize}, (std::int64_t{page} - 1) * kSize));
    }
  });
}

}  // namespace lexmill::platform::sqlite
