#include "workbench/window/StatusLine.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "platform/base/NumberText.h"
#include "workbench/words/Spoken.h"

namespace ostrand {

namespace {

void put(QLabel& label, const QString& text) {
  if (label.text() != text) label.setText(text);
}

QLabel* chip() {
  auto* const made = new QLabel;
  made->setProperty("role", QStringLiteral("note"));
  return made;
}

}  // namespace

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent),
      mRequest(new QLabel),
      mProgress(new QProgressBar),
      mCancel(new QPushButton),
      mStatus(new QLabel),
      mMode(chip()),
      mLevel(chip()),
      mBusTime(chip()) {
  setObjectName(QStringLiteral("statusLine"));
  mProgress->setTextVisible(false);
  mProgress->setFixedWidth(140);
  speak(*mCancel, "text", "Cancel");
  speak(*mCancel, "toolTip", "Take back the requests that still wait; the one under way goes on");
  mCancel->setFocusPolicy(Qt::TabFocus);
  QObject::connect(mCancel, &QPushButton::clicked, this, [this] {
    if (mHost) mHost->communication().cancelWaiting();
    refresh();
  });
  // The places stay when there is nothing to show, so that nothing jumps.
  for (QWidget* const each : {static_cast<QWidget*>(mProgress), static_cast<QWidget*>(mCancel)}) {
    QSizePolicy policy = each->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    each->setSizePolicy(policy);
    each->hide();
  }

  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(12, 4, 12, 4);
  layout->setSpacing(12);
  layout->addWidget(mStatus, 1);
  layout->addWidget(mRequest);
  layout->addWidget(mProgress);
  layout->addWidget(mCancel);
  for (QLabel* const each : {mMode, mLevel, mBusTime}) layout->addWidget(each);
}

StatusLine::~StatusLine() { setHost(nullptr); }

void StatusLine::setTheme(const Theme& theme) {
  for (QLabel* const each : {mRequest, mStatus, mMode, mLevel, mBusTime}) each->setFont(theme.font(Theme::Text::Small));
  mProgress->setFixedWidth(theme.px(140));
  mProgress->setFixedHeight(theme.px(8));
}

void StatusLine::setTexts(const Texts& texts) {
  mTexts = texts;
  refresh();
}

void StatusLine::setHost(Host* host) {
  if (mHost) mHost->observers().remove(*this);
  mHost = host;
  mProgressKey.clear();
  if (mHost) {
    mHost->observers().add(*this);
    put(*mStatus, {});
    refresh();
  }
}

void StatusLine::say(const QString& text) { put(*mStatus, text); }

QString StatusLine::requestText() const { return mRequest->text(); }

QString StatusLine::statusText() const { return mStatus->text(); }

void StatusLine::refresh() {
  if (!mHost) return;
  Communication& communication = mHost->communication();
  // What the host reads for itself, again and again, would only make the line flicker.
  const Request* current = communication.underWay();
  if (current && (current->quiet || (current->asker.empty() && current->statusKey.empty()))) current = nullptr;
  const std::size_t waiting = communication.waiting();

  QString text;
  int done = mDone, total = mTotal;
  if (!mProgressKey.empty()) {
    text = mTexts(mProgressKey);
  } else if (current) {
    text = QStringLiteral("%1: %2").arg(mTexts.say(current->write ? "Sending" : "Reading"), mTexts(current->name));
    done = current->progressDone();
    total = current->progressTotal();
  }
  if (!text.isEmpty() && total > 0) text += QStringLiteral("  %1 / %2").arg(done).arg(total);
  if (waiting > 0) text += QStringLiteral("  +") + mTexts.say("%1 waiting").arg(waiting);
  put(*mRequest, text);
  const bool shown = !mProgressKey.empty() || current;
  mProgress->setVisible(shown);
  if (shown) {
    mProgress->setRange(0, total);  // 0 to 0 runs to and fro: nobody knows how long
    mProgress->setValue(done);
  }
  mCancel->setVisible(waiting > 0);

  const char* const mode = communication.isBusy() ? "Busy" : communication.isLocal() ? "Local acceptance" : "Download to device";
  put(*mMode, mTexts.say(mode));
  put(*mLevel, mTexts.say("Level %1").arg(mHost->user().session().level));
  const Device* const device = communication.device();
  put(*mBusTime, device ? mTexts.say("%1 ms per transaction").arg(qt(fixedText(device->busTimePerTransaction() * 1000.0, 0, '.'))) : QString());
}

void StatusLine::requestFinished(const Request& request, Outcome outcome) {
  if (!request.quiet && outcome != Outcome::Done) {
    const QString name = mTexts(request.name);
    switch (outcome) {
      case Outcome::NoAnswer: say(mTexts.say("%1: the device does not answer. Check cabling and supply, then read again.").arg(name)); break;
      case Outcome::Refused: say(mTexts.say("%1: the device refused it").arg(name)); break;
      case Outcome::Cancelled:
      case Outcome::Withdrawn: say(mTexts.say("%1: cancelled").arg(name)); break;
      case Outcome::Done: break;
    }
  }
  refresh();
}

void StatusLine::requestRefused(const Request& request, const std::string& reason) {
  say(mTexts.say("%1 was not sent: %2").arg(mTexts(request.name), qt(reason)));
}

void StatusLine::statusLine(const std::string&, const std::string& text, const std::string&) { say(mTexts(text)); }

void StatusLine::progress(const std::string& text, int done, int total) {
  mProgressKey = text;
  mDone = done;
  mTotal = total;
  refresh();
}

void StatusLine::viewEvent(const std::string&, const ViewEvent& event) {
  if (event.kind == ViewEvent::Kind::SetCommunicationMode) refresh();
}

}  // namespace ostrand
