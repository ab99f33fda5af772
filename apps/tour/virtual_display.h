#pragma once

#include <QProcess>
#include <QString>

namespace tour {

/// A screen in memory that one walk has for itself, so that walks beside each other do not take the
/// mouse and the keys from one another.
class VirtualDisplay {
 public:
  VirtualDisplay();
  VirtualDisplay(const VirtualDisplay&) = delete;
  VirtualDisplay& operator=(const VirtualDisplay&) = delete;
  ~VirtualDisplay();

  /// Whether this computer has what it takes.
  static bool Possible();
  /// What a program finds it by; empty where it did not come up.
  const QString& Name() const { return name_; }

 private:
  QProcess server_;
  QString name_;
};

}  // namespace tour
