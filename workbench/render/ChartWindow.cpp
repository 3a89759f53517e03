#include "workbench/render/ChartWindow.h"

#include <QKeyEvent>
#include <QTimer>

#include "workbench/render/ControlRenderer.h"

namespace ostrand {

ChartWindow::ChartWindow(Chart& model, QWidget* owner) : QWidget(owner, Qt::Window), mModel(model), mCanvas(new ChartCanvas(model, this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  mCanvas->setFocusPolicy(Qt::StrongFocus);
  setFocusProxy(mCanvas);
  mListening = model.changed.connect([this] { schedule(); });
  resize(960, 640);
}

ChartWindow::~ChartWindow() { mModel.changed.disconnect(mListening); }

void ChartWindow::restyle(const Theme& theme) {
  mCanvas->restyle(theme);
  schedule();
}

void ChartWindow::schedule() {
  if (std::exchange(mScheduled, true)) return;
  QTimer::singleShot(0, this, [this] {
    mScheduled = false;
    follow();
  });
}

void ChartWindow::follow() {
  setWindowTitle(toQt(mModel.y().label) + QStringLiteral(" – ") + toQt(mModel.x().label));
  mCanvas->follow();
}

void ChartWindow::resizeEvent(QResizeEvent*) { mCanvas->setGeometry(rect()); }

void ChartWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) close();
}

}  // namespace ostrand
