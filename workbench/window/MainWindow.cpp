#include "workbench/window/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QPointer>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "host/transcript/ControlPath.h"
#include "platform/base/RuntimeError.h"
#include "workbench/window/WhyDisabled.h"
#include "workbench/window/WindowStyle.h"
#include "workbench/words/Spoken.h"

namespace ostrand {

MainWindow::MainWindow(Workbench& workbench)
    : mWorkbench(workbench),
      mTree(new PlantTree),
      mHeader(new HeaderBar),
      mPanel(new ViewPanel),
      mConversation(new ConversationPanel(workbench.log())),
      mStatus(new StatusLine),
      mTools(new QToolBar),
      mUser(workbench, *mStatus),
      mDeparture(workbench, *mPanel, mUser),
      mDataSets(workbench, *mPanel, mUser, mDeparture),
      mTranscripts(workbench, *mPanel, mUser, *this, [this] { showFront(); }),
      mTransfers(workbench, *mPanel, mUser, *this),
      mEdits(workbench, *mPanel, mUser, mDeparture, mTransfers, *this),
      mConnection(workbench, *mPanel, *this),
      mFileMenu(*this, *mTools, {mDataSets, mTranscripts}, workbench, *mPanel, mUser),
      mDeviceMenu(*this, *mTools, {mTransfers, mEdits, mConnection}, workbench),
      mSettingsMenu(*this, workbench, *mPanel, mUser) {
  mWorkbench.desktop().setWindow(this);
  mWorkbench.prompt().setWindow(this);
  layOut();
  connectPanel();
  connectWorkbench();
  mTree->setDevices(mWorkbench.devices());
  mTree->onChosen = [this](const PlantTree::Page& chosen) {
    if (show(chosen)) mPanel->setFocus(Qt::OtherFocusReason);
  };
  deviceChanged();
  applySettings();
  resize(1370, 920);
}

MainWindow::~MainWindow() {
  for (const auto& [signal, id] : mConnections) signal->disconnect(id);
  mWorkbench.desktop().onLastWaitEnded = nullptr;
  mWorkbench.desktop().setWindow(nullptr);
  mWorkbench.prompt().setWindow(nullptr);
  mStatus->setHost(nullptr);
  mPanel->setView(nullptr);
}

void MainWindow::layOut() {
  mTools->setMovable(false);
  mTools->setToolButtonStyle(Qt::ToolButtonTextOnly);
  mTools->setObjectName(QStringLiteral("tools"));
  addToolBar(mTools);
  setContextMenuPolicy(Qt::NoContextMenu);

  auto* const page = new QWidget;
  auto* const pageLayout = new QVBoxLayout(page);
  pageLayout->setContentsMargins(0, 0, 0, 0);
  pageLayout->setSpacing(0);
  pageLayout->addWidget(mHeader);
  for (const auto& device : mWorkbench.devices()) {
    mBanners.push_back(new OutputBanner(*device));
    pageLayout->addWidget(mBanners.back());
    mFocusWatches.push_back(std::make_unique<FocusWatch>(device->host(), [this] {
      // The view is still in the middle of losing the focus.
      const bool forward = !mWorkbench.desktop().keyDown(Desktop::Key::Shift);
      QTimer::singleShot(0, this, [this, forward] { leaveView(forward); });
    }));
  }
  pageLayout->addWidget(mPanel, 1);

  auto* const right = new QSplitter(Qt::Vertical);
  right->setChildrenCollapsible(false);
  right->setHandleWidth(1);
  right->addWidget(page);
  right->addWidget(mConversation);
  right->setStretchFactor(0, 1);
  right->setSizes({700, 180});

  auto* const whole = mColumns = new QSplitter(Qt::Horizontal);
  whole->setChildrenCollapsible(false);
  whole->setHandleWidth(1);
  whole->addWidget(mTree);
  whole->addWidget(right);
  whole->setStretchFactor(1, 1);
  whole->setSizes({300, 1070});

  auto* const centre = new QWidget;
  auto* const layout = new QVBoxLayout(centre);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(whole, 1);
  layout->addWidget(mStatus);
  setCentralWidget(centre);

  setTabOrder(mTree, mPanel);
  setTabOrder(mPanel, &mConversation->list());
  auto* const next = new QShortcut(QKeySequence(Qt::Key_F6), this);
  connect(next, &QShortcut::activated, this, [this] { nextArea(true); });
  auto* const before = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F6), this);
  connect(before, &QShortcut::activated, this, [this] { nextArea(false); });
}

void MainWindow::connectPanel() {
  mPanel->whyDisabled = [this](const Control& control) { return whyDisabled(control, mWorkbench.current(), mWorkbench.texts()); };
  mPanel->keptValue = [this](const EditControl& edit) { return mWorkbench.current().keptValue(edit, mWorkbench.texts()); };
  mPanel->onInput = [this](const Control& control, const UserInput& input) { return recorded(control, input); };
  mPanel->onRefused = [this](const RuntimeError& error) { mStatus->say(qt(error.description())); };
  mPanel->onUnhandled = [this](const RuntimeError& error) {
    mWorkbench.current().tap().note(ConversationLog::Kind::Error, "Unhandled " + std::to_string(error.number()) + " " + error.description());
    if (TranscriptRecorder* const recorder = this->recorder()) recorder->unhandled({error.number(), error.description()});
    mStatus->say(mWorkbench.texts().say("The view reported an error: %1").arg(qt(error.description())));
  };
  mPanel->onTabOut = [this](bool forward) { leaveView(forward); };
}

void MainWindow::leaveView(bool forward) {
  if (forward)
    mConversation->setFocus(Qt::TabFocusReason);
  else
    mTree->setFocus(Qt::BacktabFocusReason);
}

void MainWindow::connectWorkbench() {
  const auto listen = [this](Signal<>& signal, std::function<void()> listener) {
    mConnections.emplace_back(&signal, signal.connect(std::move(listener)));
  };
  listen(mWorkbench.deviceChanged, [this] { deviceChanged(); });
  listen(mWorkbench.valuesChanged, [this] { refreshLater(); });
  listen(mWorkbench.settingsChanged, [this] { applySettings(); });
  mWorkbench.desktop().onLastWaitEnded = [this] {
    if (std::exchange(mCloseAfterWait, false)) QTimer::singleShot(0, this, [this] { close(); });
  };
  mConversation->onSave = [this] { mTranscripts.save(); };
  mConversation->onRecord = [this](bool on) { mTranscripts.record(on); };
  mTranscripts.onRecording = [this] {
    mFileMenu.refresh();
    mConversation->setRecording(mTranscripts.isRecording());
  };
  mDeparture.save = [this](PlantDevice& device) { return mDataSets.save(device); };
  mEdits.onChanged = [this] { mDeviceMenu.refresh(); };
  mConnection.onMode = [this] {
    mHeader->refresh();
    mDeviceMenu.refresh();
  };
}

TranscriptRecorder* MainWindow::recorder() const {
  ViewSite* const front = host().views().front();
  return front ? mWorkbench.current().recordings().of(*front) : nullptr;
}

std::shared_ptr<void> MainWindow::recorded(const Control& control, const UserInput& input) {
  ViewSite* const front = host().views().front();
  if (!front || !front->view()) return nullptr;
  std::string line = input.command + " " + TranscriptRecorder::word(nameOfControl(front->view()->GetControls(), control));
  if (!input.arguments.empty()) line += " " + input.arguments;
  mWorkbench.current().tap().userDid(front->name(), line);
  TranscriptRecorder* const recorder = this->recorder();
  return recorder ? std::make_shared<TranscriptRecorder::Input>(recorder->input(line)) : nullptr;
}

// --- what is shown

void MainWindow::applySettings() {
  const Settings& settings = mWorkbench.settings();
  const Theme theme = this->theme();
  if (mAppliedTheme != settings.theme || mAppliedScale != settings.scale) {
    if (mAppliedScale > 0 && mAppliedScale != settings.scale) rescale(settings.scale / mAppliedScale);
    mAppliedTheme = settings.theme;
    mAppliedScale = settings.scale;
    applyTheme(theme);
  }
  mPanel->setTexts(host().user().textTable(), settings.language);
  speakAnew(*this, mWorkbench.texts());
  mTree->setTexts(mWorkbench.texts());
  mConversation->setTexts(mWorkbench.texts());
  mTree->setPriorities(settings.priorities);
  mHeader->setTexts(mWorkbench.texts());
  mHeader->setPriorities(settings.priorities);
  mStatus->setTexts(mWorkbench.texts());
  for (OutputBanner* const banner : mBanners) banner->setTexts(mWorkbench.texts());
  mFileMenu.refresh();
  mDeviceMenu.refresh();
  mSettingsMenu.refresh();
  mPanel->refresh();
}

void MainWindow::applyTheme(const Theme& theme) {
  theme.apply(*static_cast<QApplication*>(QApplication::instance()));
  setStyleSheet(windowStyle(theme));
  menuBar()->setFont(theme.font());
  mTools->setFont(theme.font());
  mTree->setFont(theme.font());
  mTree->setMinimumWidth(theme.px(200));
  for (QToolButton* const button : mTools->findChildren<QToolButton*>()) button->setFont(theme.font());
  mHeader->setTheme(theme);
  mPanel->setTheme(theme);
  mConversation->setTheme(theme);
  mStatus->setTheme(theme);
  // What was measured in another style is measured again.
  for (QWidget* const each : findChildren<QWidget*>()) {
    each->ensurePolished();
    each->updateGeometry();
  }
  mTree->doItemsLayout();
  // Not by the style sheet, whose padding counts only from the second style on.
  const int margin = theme.px(4);
  mTools->layout()->setContentsMargins(margin, margin, margin, margin);
}

// The window and its parts grow with the text, as far as the screen allows.
void MainWindow::rescale(double factor) {
  const auto scaled = [factor](int length) { return static_cast<int>(length * factor + 0.5); };
  QList<int> widths = mColumns->sizes();
  const QSize room = screen() ? screen()->availableSize() : QSize(scaled(width()), scaled(height()));
  resize(QSize(scaled(width()), scaled(height())).boundedTo(room));
  // On a small screen the view keeps the greater part.
  const int tree = std::min(scaled(widths[0]), width() / 3);
  widths[1] += widths[0] - tree;
  widths[0] = tree;
  mColumns->setSizes(widths);
}

void MainWindow::deviceChanged() {
  mHeader->setDevice(&mWorkbench.current(), mWorkbench.components(), mWorkbench.desktop());
  mStatus->setHost(&host());
  refreshLater();
}

// Many values change in one turn of the event loop; the window follows once.
void MainWindow::refreshLater() {
  if (std::exchange(mRefreshing, true)) return;
  QTimer::singleShot(0, this, [this] {
    mRefreshing = false;
    mTree->refreshDevices();
    mHeader->refresh();
    mStatus->refresh();
    for (OutputBanner* const banner : mBanners) banner->refresh();
    mDeviceMenu.refresh();
    DataSet* const dataSet = host().dataSet();
    const std::string file = dataSet ? dataSet->file().filename().string() : std::string();
    setWindowTitle(QStringLiteral("%1[*] – %2 – Ostrand").arg(qt(file), qt(mWorkbench.current().title())));
    setWindowModified(mWorkbench.current().hasPendingEdits());
  });
}

PlantTree::Page MainWindow::page() const {
  PlantDevice& device = mWorkbench.current();
  return {&device, device.branch(), device.frame()};
}

bool MainWindow::show(const PlantTree::Page& page) {
  // A view that asks before it is left lets events through: one choice at a time.
  if (mChoosing || !page.device) return false;
  mChoosing = true;
  PlantDevice& before = mWorkbench.current();
  bool shown = false;
  mUser.attempt(mWorkbench.texts().say("The page could not be opened"), [&] {
    mPanel->commit();
    shown = mDeparture.mayLeave(page) && mWorkbench.show(*page.device, page.branch, page.frame);
  });
  mChoosing = false;
  showFront();
  if (&before != &mWorkbench.current()) mDeparture.warnOfForcedOutput(before);
  return shown;
}

void MainWindow::showFront() {
  ViewSite* const front = host().views().front();
  mPanel->setView(front ? Ref<ITaviView>(front->view()) : nullptr);
  mTree->setShown(page());
  mFileMenu.refresh();
  mDeviceMenu.refresh();
  refreshLater();
}

// --- the user

void MainWindow::nextArea(bool forward) {
  const std::vector<QWidget*> areas{mTree, mPanel, mConversation};
  QWidget* const focused = QApplication::focusWidget();
  std::size_t at = forward ? areas.size() - 1 : 1;
  for (std::size_t i = 0; i < areas.size(); ++i)
    if (focused && (areas[i] == focused || areas[i]->isAncestorOf(focused))) at = i;
  const std::size_t next = (at + (forward ? 1 : areas.size() - 1)) % areas.size();
  if (areas[next] != mPanel || !mPanel->enter(true)) areas[next]->setFocus(Qt::ShortcutFocusReason);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // A view that waits must come back first: what it waits on lies below us.
  if (mWorkbench.desktop().waits() > 0) {
    mCloseAfterWait = true;
    event->ignore();
    return;
  }
  if (mChoosing || !mDeparture.mayClose([this] { QTimer::singleShot(0, this, [this] { close(); }); })) {
    event->ignore();
    return;
  }
  mTranscripts.record(false);
  event->accept();
}

}  // namespace ostrand
