#pragma once

#include <QLabel>
#include <QTextLayout>
#include <functional>

#include "desktop/widgets/whole_tip.h"

namespace desktop {

/// The one quiet line of a page that gives the reason where nothing else happens there. It wraps
/// within the room that the page gives it, also a word that is too long, and asks for none itself:
/// its coming and going moves nothing. Of a text that is too long for the room the end is left out,
/// and the whole stands in the tip.
class QuietLine : public QLabel {
  Q_OBJECT

 public:
  explicit QuietLine(QWidget* parent);

  /// Shows a text; the first one behind none is also told to a screen reader.
  void Say(const QString& words);

  std::function<void()> DoubleClicked;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// Breaks the text into lines; the result is how many of them have room.
  int LayOut(QTextLayout& layout) const;
  void TellWhole();

  WholeTip tip_;
};

}  // namespace desktop
