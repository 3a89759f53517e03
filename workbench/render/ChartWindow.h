#pragma once

#include <QWidget>

#include "workbench/render/ChartCanvas.h"

namespace ostrand {

// The maximised copy of a chart: a window of its own that follows the model until it is closed.
class ChartWindow : public QWidget {
 public:
  ChartWindow(Chart& model, QWidget* owner);
  ~ChartWindow() override;

  ChartCanvas& canvas() { return *mCanvas; }
  void restyle(const Theme& theme);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void schedule();
  void follow();

  Chart& mModel;
  Signal<>::Id mListening;
  ChartCanvas* mCanvas;
  bool mScheduled = false;
};

}  // namespace ostrand
