#include "desktop/window/main_window.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <QVBoxLayout>
#include <array>

#include "desktop/look/look.h"
#include "desktop/look/picture.h"
#include "desktop/look/scale.h"
#include "desktop/look/text.h"
#include "desktop/pages/info_page.h"
#include "desktop/pages/phasor_page.h"
#include "desktop/pages/recorder_page.h"
#include "desktop/pages/report_page.h"
#include "desktop/pages/setup_page.h"
#include "desktop/pages/values_page.h"
#include "desktop/pages/waveforms_page.h"
#include "desktop/widgets/announced.h"
#include "desktop/widgets/logo_view.h"
#include "desktop/window/file_drops.h"
#include "desktop/window/status_strip.h"
#include "desktop/window/tab_keys.h"

namespace desktop {

namespace {

constexpr int WrapTipsFrom = 60;
constexpr QSize UsualSize(1280, 860);

}  // namespace

MainWindow::MainWindow(const Forms& forms, platform::Guard& guard, RepaintQueue& repaints)
    : main_(forms.Main),
      history_(forms.History),
      debug_(forms.Debug),
      finder_(forms.Finder),
      question_(forms.Question),
      guard_(guard),
      binder_(guard, repaints),
      tabs_(new TabBar(this)),
      pages_(new QStackedWidget(this)) {
  setObjectName(QStringLiteral("Main"));
  setWindowTitle(QStringLiteral("Vornik"));
  resize(UsualSize);
  FillTabs();
  FillPages();
  auto* strip = new QHBoxLayout;
  strip->setContentsMargins(0, 0, 0, 0);
  strip->addWidget(tabs_, 0, Qt::AlignLeft);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  all->addLayout(strip);
  all->addWidget(pages_, 1);
  all->addWidget(new StatusStrip(main_.StatusBar1, binder_, this));
  ShowTab();
  main_.TabStrip1.SelectedTab.Observe([this] { ShowTab(); });
  main_.TabStrip1.Visible.Observe([this] {
    // The strip is hidden while its views are laid out: nothing is painted then, and the view and
    // its focus stay.
    setUpdatesEnabled(main_.TabStrip1.Visible);
    ShowTab();
    // A painting that came due meanwhile was passed over, and the toolkit still counts it as
    // coming.
    if (updatesEnabled()) QCoreApplication::postEvent(this, new QEvent(QEvent::UpdateRequest));
  });
  frame_ = new WindowFrame(main_.Window, *this, guard_);
  frame_->Sized = [this](QSize size) { FollowSize(size); };
  frame_->Unloaded = [this] {
    if (Unloaded) Unloaded();
  };
  FollowOtherWindows();
  // The logo of the printed page is on no page of the window.
  main_.Picture3.Image = LogoPicture();
  new TabKeys(*this, *tabs_, *pages_);
  (new FileDrops(*this))->Dropped = [this](const std::vector<std::string>& paths) {
    guard_([&] {
      if (FilesDropped) FilesDropped(paths);
    });
  };
  qApp->installEventFilter(this);
}

void MainWindow::FollowSize(QSize size) {
  const double scale = look::ScaleFor(size);
  if (scale == scale_ && scale == look::Scale()) return;
  scale_ = scale;
  look::SetScale(scale);
  look::ScaleTree(*this);
}

void MainWindow::FollowOtherWindows() {
  history_.Window.ShowModal = [this] {
    if (historyDialog_ == nullptr) {
      historyDialog_ = new HistoryDialog(history_, main_.TabStrip1, binder_, guard_, this);
    }
    historyDialog_->exec();
  };
  finder_.Window.ShowModal = [this] {
    if (finderDialog_ == nullptr) {
      finderDialog_ = new FinderDialog(finder_, main_.TabStrip1, binder_, guard_, this);
    }
    finderDialog_->exec();
  };
  debug_.Window.Visible.Observe([this] {
    const bool visible = debug_.Window.Visible;
    if (debugView_ == nullptr && visible) debugView_ = new DebugView(debug_, binder_, this);
    if (debugView_ != nullptr) debugView_->setVisible(visible);
  });
  // Nobody waits for this one: from its first opening on it follows its form by itself.
  question_.Window.Loaded.Observe([this] {
    if (questionDialog_ != nullptr) return;
    questionDialog_ = new EndQuestionDialog(question_, binder_, guard_, this);
  });
}

void MainWindow::FillTabs() {
  tabs_->setObjectName(QStringLiteral("TabStrip1"));
  for (const platform::Tab& tab : main_.TabStrip1.Tabs) {
    const int index = tabs_->Add(ToQt(tab.Caption));
    tabs_->setTabToolTip(index, ToQt(tab.TipHeading + "\n" + tab.TipText));
  }
  tabs_->Chosen = [this](int index) { Select(index + 1); };
}

void MainWindow::FillPages() {
  auto* waveforms = new WaveformsPage(main_, main_, main_, binder_, guard_, pages_);
  pages_->addWidget(new InfoPage(main_, main_, main_, binder_, pages_));
  pages_->addWidget(new ValuesPage(main_, main_, main_, main_, binder_, pages_));
  pages_->addWidget(new PhasorPage({main_, main_, main_, main_}, binder_, pages_));
  pages_->addWidget(waveforms);
  pages_->addWidget(new RecorderPage(main_, main_, main_, binder_, guard_, pages_));
  pages_->addWidget(new ReportPage(main_, main_, binder_, pages_));
  pages_->addWidget(new SetupPage(main_, main_, binder_, pages_));
  for (int i = 0; i < pages_->count(); ++i) {
    const platform::Tab& tab = main_.TabStrip1.Tabs[static_cast<std::size_t>(i)];
    Announce(*pages_->widget(i), QAccessible::Pane, PlainCaption(tab.Caption));
  }
  AddLogos(waveforms->Frame());
}

void MainWindow::AddLogos(QWidget& waveformsFrame) {
  // The places of the logos in the order of their numbers: the Waveforms view has its own in its
  // frame, the others stand on their pages.
  constexpr std::array<int, 6> Tabs = {4, 5, 6, 7, 2, 3};
  for (std::size_t i = 0; i < Tabs.size(); ++i) {
    const bool inFrame = i == 0;
    QWidget* parent = inFrame ? &waveformsFrame : pages_->widget(Tabs[i] - 1);
    auto* logo = new LogoView(main_.Picture1[i], LogoView::UsualWidth,
                              inFrame ? LogoView::From::Parent : LogoView::From::Window, parent);
    binder_.Bind(main_.Picture1[i], *logo, ArrayName("Picture1", i));
  }
}

void MainWindow::ShowTab() {
  if (!main_.TabStrip1.Visible) return;
  const int tab = main_.TabStrip1.SelectedTab.Get();
  tabs_->ShowSelected(tab - 1);
  // The last tab has no view of its own.
  if (tab < forms::tab::Exit) pages_->setCurrentIndex(tab - 1);
}

void MainWindow::Select(int tab) {
  guard_([&] { main_.TabStrip1.Choose(static_cast<std::int16_t>(tab)); });
  // The strip shows the tab that was pressed, which need not be selected now.
  ShowTab();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  // Long tool tips would run over the screen in one line, and an ID from the bus may look like
  // markup.
  if (event->type() == QEvent::ToolTip) {
    auto* widget = qobject_cast<QWidget*>(watched);
    const QString tip = widget != nullptr ? widget->toolTip() : QString();
    if (tip.size() >= WrapTipsFrom || Qt::mightBeRichText(tip)) {
      QToolTip::showText(
          static_cast<QHelpEvent*>(event)->globalPos(),
          QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(tip.toHtmlEscaped()),
          widget);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

void MainWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  look::PaintStrip(painter, QRect(0, 0, width(), pages_->y()), main_.TabStrip1);
}

}  // namespace desktop
