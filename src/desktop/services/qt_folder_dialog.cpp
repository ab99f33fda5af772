#include "desktop/services/qt_folder_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include "desktop/look/text.h"
#include "system/places.h"

namespace desktop {

std::optional<std::string> QtFolderDialog::Browse(const std::string& title,
                                                  const std::string& present) {
  const platform::StandingBox standing(Stands);
  const QString folder = ToQt(host::NativePlace(present));
  const bool there = !folder.isEmpty() && QFileInfo(folder).isDir();
  QFileDialog dialog(owner_, ToQt(title), there ? folder : QDir::homePath());
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return FromQt(QDir::toNativeSeparators(dialog.selectedFiles().first()));
}

}  // namespace desktop
