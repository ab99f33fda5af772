#include "desktop/qt_folder_dialog.h"

#include <QDir>
#include <QFileDialog>

#include "desktop/text.h"

namespace desktop {

std::optional<std::string> QtFolderDialog::Browse(const std::string& title) {
  const platform::StandingBox standing(Stands);
  QFileDialog dialog(owner_, ToQt(title), QDir::homePath());
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return FromQt(QDir::toNativeSeparators(dialog.selectedFiles().first()));
}

}  // namespace desktop
