#pragma once

#include <QPointer>

#include "platform/controls/CtrGraphMenu.h"
#include "workbench/render/ChartWindow.h"
#include "workbench/render/ControlRenderer.h"

namespace ostrand {

// A chart on a page, its menu, and its copy in a window of its own.
class ChartRenderer : public ControlRenderer {
 public:
  ChartRenderer(FormPage& page, Chart& chart);
  ~ChartRenderer() override;

  std::vector<QWidget*> widgets() const override;
  QWidget* focusWidget() const override;
  void restyle() override;
  void sync() override;
  Extent extent() const override;
  QString explanation() const override;
  bool key(QKeyEvent& event) override;
  bool fills() const override { return true; }

 private:
  void listenTo(ChartCanvas& canvas);
  void openMenu(CtrGraphMenu& menu);
  void carryOut(CtrGraphMenu& menu, int entry, ChartCanvas& over);
  void save(const char* filter, const char* extension, const std::function<void(const std::filesystem::path&)>& write);
  void openWindow();

  Chart& mModel;
  ChartCanvas* mCanvas;
  QPointer<ChartWindow> mWindow;
  // Where the menu opens next, and over which picture.
  QPoint mMenuAt;
  QPointer<ChartCanvas> mMenuOver;
  Signal<CtrGraphMenu&>::Id mMenuListening;
  Signal<>::Id mWindowListening;
};

}  // namespace ostrand
