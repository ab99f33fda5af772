#pragma once

#include <QLayout>
#include <QWidget>

#include "desktop/binding/binder.h"
#include "desktop/widgets/card.h"
#include "forms/recorder_controls.h"
#include "forms/shared_controls.h"
#include "forms/values_controls.h"
#include "platform/loop/guard.h"

namespace desktop {

/// The Recorder view: what is recorded and where to, the trigger settings, and the quick view of
/// the finished recording. What comes and goes keeps its room, so that nothing jumps.
class RecorderPage : public QWidget {
  Q_OBJECT

 public:
  /// The names of the curves are those of the values on the Values view, with their units.
  RecorderPage(forms::RecorderControls& recorder, forms::SharedControls& shared,
               forms::ValuesControls& values, Binder& binder, platform::Guard& guard,
               QWidget* parent);

 private:
  Card* RecordingCard();
  Card* TriggerCard();
  Card* PauseCard();
  Card* RunCard();
  QLayout* RunSide();
  QWidget* Formats(QWidget* parent);
  QWidget* Files(QWidget* parent);
  QWidget* Told(QWidget* parent);
  QLayout* Progress(QWidget* parent);
  QLabel* StoredOnly(QWidget* parent);
  QWidget* Foot();
  ClickLabel* Caption(std::size_t row, QWidget* parent, QWidget* field = nullptr);
  TextField* Field(std::size_t index, QWidget* parent, const QString& accessibleName);

  forms::RecorderControls& recorder_;
  forms::SharedControls& shared_;
  Binder& binder_;
};

}  // namespace desktop
