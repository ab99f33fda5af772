#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QString>
#include <QStyle>
#include <QVBoxLayout>
#include <optional>

namespace desktop {

/// A window that tells or asks something: a sign at the left, words beside it, and the answers
/// below them. It is as large as its words need in the present factor; a word that is wider than a
/// box may be, such as a path, goes over several lines. Ctrl+C copies the words.
class MessageDialog : public QDialog {
  Q_OBJECT
  Q_PROPERTY(QString text READ Text)

 public:
  MessageDialog(std::optional<QStyle::StandardPixmap> sign, QWidget* parent);

  /// A further text below the others.
  QLabel* AddWords(const QString& words = {});
  /// A further answer at the right of the others; what its press does is up to who adds it.
  QPushButton* AddAnswer(const QString& caption = {});
  /// The first of its texts.
  QString Text() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QVBoxLayout* words_;
  QHBoxLayout* answers_;
};

}  // namespace desktop
