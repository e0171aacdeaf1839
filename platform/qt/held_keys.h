// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// Keys that are held down.
#pragma once

#include <QKeyEvent>
#include <QObject>

namespace lexmill::platform::qt {

/// Marks as repeated what a key that is held down sends. The toolkit does so only if a display
/// server's release and the press that follows it have come in together; what distinguishes them
/// from a user's own is that both have the same time. A filter for the application's events.
class HeldKeys final : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// True for a press that the toolkit takes for a user's own and that is none.
  [[nodiscard]] bool IsMissed(const QKeyEvent& press) const;

  int released_ = 0;  ///< the key that went up last, and when
  quint64 releaseTime_ = 0;
};

}  // namespace lexmill::platform::qt
