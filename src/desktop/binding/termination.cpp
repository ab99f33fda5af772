#include "desktop/binding/termination.h"

#include <QtGlobal>
#include <optional>
#include <utility>

#ifdef Q_OS_UNIX
#include <QSocketNotifier>

#include "system/posix/termination_signals.h"
#endif

namespace desktop {

#ifdef Q_OS_UNIX

class Termination::Watch {
 public:
  explicit Watch(std::function<void()> requested) : requested_(std::move(requested)) {
    if (signals_.Descriptor() < 0) return;
    notifier_.emplace(signals_.Descriptor(), QSocketNotifier::Read);
    QObject::connect(&*notifier_, &QSocketNotifier::activated, &*notifier_, [this] {
      if (signals_.Take()) requested_();
    });
  }

 private:
  std::function<void()> requested_;
  host::TerminationSignals signals_;
  std::optional<QSocketNotifier> notifier_;
};

#else

// Elsewhere a request to terminate closes the window.
class Termination::Watch {
 public:
  explicit Watch(const std::function<void()>&) {}
};

#endif

Termination::Termination(std::function<void()> requested)
    : watch_(std::make_unique<Watch>(std::move(requested))) {}

Termination::~Termination() = default;

}  // namespace desktop
