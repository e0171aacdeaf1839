// SPDX-License-Identifier: MIT
// platform/qt: the desktop on the screen; the only folder that knows the toolkit.
// Files that the toolkit's dialog passes over.
#pragma once

#include <string>

#include <QFileDialog>
#include <QLabel>
#include <QListWidget>

namespace lexmill::platform::qt {

/// A dialog for a file to open that also lists, below the others, files whose names are no UTF-8,
/// as archives of other systems bring them. They show as the code page reads them.
class OpenDialog final : public QFileDialog {
 public:
  explicit OpenDialog(QWidget* parent);

  /// The path that the user has chosen from that list; empty if it is none of them.
  [[nodiscard]] std::u16string ForeignChoice() const;

  /// Ends the dialog; a choice from the list needs no more than that.
  void accept() override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void ListNames();
  void TakeChoice();

  QLabel* title_;
  QListWidget* names_;
};

}  // namespace lexmill::platform::qt
