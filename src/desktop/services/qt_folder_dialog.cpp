#include "desktop/services/qt_folder_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QListView>
#include <QToolButton>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/widgets/window_fit.h"
#include "system/places.h"

namespace desktop {

namespace {

/// In pixels of the smallest window.
constexpr QSize UsualSize(760, 480);
constexpr int PlacesWidth = 180;

/// What the toolkit sizes goes back to the design, from which it is scaled as on the pages.
void TakeToDesign(QFileDialog& dialog) {
  for (auto* button : dialog.findChildren<QToolButton*>()) {
    button->setFixedSize(look::FieldHeight, look::FieldHeight);
  }
  auto* places = dialog.findChild<QListView*>(QStringLiteral("sidebar"));
  if (places != nullptr) places->setMinimumWidth(PlacesWidth);
}

}  // namespace

std::optional<std::string> QtFolderDialog::Browse(const std::string& title,
                                                  const std::string& present) {
  const platform::StandingBox standing(Stands);
  const QString folder = ToQt(host::NativePlace(present));
  const bool there = !folder.isEmpty() && QFileInfo(folder).isDir();
  QFileDialog dialog(owner_, ToQt(title), there ? folder : QDir::homePath());
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  TakeToDesign(dialog);
  new WindowFit(dialog, UsualSize);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return FromQt(QDir::toNativeSeparators(dialog.selectedFiles().first()));
}

}  // namespace desktop
