#include "plan.h"

namespace tour {

const QList<Plan>& Plans() {
  static const QList<Plan> plans = [] {
    const QList<Plan> sizes = {
        {"1024x768", {1024, 768}, 1, false},   {"1366x768", {1366, 768}, 1, false},
        {"1920x1080", {1920, 1080}, 1, false}, {"2560x1440", {2560, 1440}, 1, false},
        {"3840x2160", {3840, 2160}, 1, false}, {"3840x2160-scale2", {1920, 1080}, 2, false}};
    QList<Plan> all = sizes;
    for (Plan plan : sizes) {
      plan.Name += "-dark";
      plan.Dark = true;
      all << plan;
    }
    return all;
  }();
  return plans;
}

}  // namespace tour
