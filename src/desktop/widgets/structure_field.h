#pragma once

#include <QString>
#include <QTextEdit>

#include "desktop/look/scale.h"

namespace desktop {

/// The field that tells a frame by its structure: lines that differ from the rows set off from the
/// others, headings, and titles with their values beside them. All of it can be selected and
/// copied, as plain text.
class StructureField : public QTextEdit, public look::Scalable {
  Q_OBJECT

 public:
  explicit StructureField(QWidget* parent);

  void ShowText(const QString& text);
  void TakeScale() override;

 protected:
  QMimeData* createMimeDataFromSelection() const override;

 private:
  void Write();

  QString text_;
};

}  // namespace desktop
