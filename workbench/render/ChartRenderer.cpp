#include "workbench/render/ChartRenderer.h"

#include <QMenu>

#include "platform/base/File.h"
#include "platform/controls/Component.h"
#include "workbench/render/ChartExport.h"
#include "workbench/render/FormPage.h"
#include "workbench/render/ViewPanel.h"
#include "workbench/render/Words.h"

namespace ostrand {

namespace {

struct EntryWord {
  int entry;
  PanelWord word;
  bool endsGroup;
};
constexpr EntryWord kEntryWords[] = {
    {CtrGraphMenu::ZoomToSamples, PanelWord::ZoomToSamples, false},
    {CtrGraphMenu::UndoZoom, PanelWord::UndoZoom, false},
    {CtrGraphMenu::Maximize, PanelWord::Maximize, true},
    {CtrGraphMenu::Copy, PanelWord::CopyPicture, false},
    {CtrGraphMenu::SavePng, PanelWord::SavePng, false},
    {CtrGraphMenu::SavePdf, PanelWord::SavePdf, false},
    {CtrGraphMenu::SaveCsv, PanelWord::SaveCsv, true},
    {CtrGraphMenu::Print, PanelWord::Print, false},
};

}  // namespace

ChartRenderer::ChartRenderer(FormPage& page, Chart& chart)
    : ControlRenderer(page, chart), mModel(chart), mCanvas(new ChartCanvas(chart, &page)), mMenuOver(mCanvas) {
  listenTo(*mCanvas);
  mMenuListening = chart.menuOpens.connect([this](CtrGraphMenu& menu) { openMenu(menu); });
  mWindowListening = chart.maximizing.connect([this] { openWindow(); });
}

ChartRenderer::~ChartRenderer() {
  mModel.menuOpens.disconnect(mMenuListening);
  mModel.maximizing.disconnect(mWindowListening);
  delete mWindow;
}

void ChartRenderer::listenTo(ChartCanvas& canvas) {
  canvas.onSpot = [this](const ChartPlot::Spot& spot, bool twice) {
    act([=, this] { mModel.hotspot(spot.series, spot.point, twice); },
        {"hotspot", std::to_string(spot.series) + " " + std::to_string(spot.point) + (twice ? " double" : "")});
  };
  canvas.onZoom = [this](const Chart::Range& range) { act([=, this] { mModel.zoom(range); }); };
  canvas.onUndoZoom = [this] { act([this] { mModel.undoZoom(); }); };
  canvas.onMenu = [this, &canvas](const QPoint& global) {
    mMenuAt = global;
    mMenuOver = &canvas;
    act([this] { mModel.menu(); }, {"menu", {}});
  };
}

std::vector<QWidget*> ChartRenderer::widgets() const { return {mCanvas}; }

QWidget* ChartRenderer::focusWidget() const { return mCanvas; }

void ChartRenderer::restyle() {
  mCanvas->restyle(theme());
  if (mWindow) mWindow->restyle(theme());
}

void ChartRenderer::sync() {
  const QString undoZoom = word(PanelWord::UndoZoom, panel().language());
  mCanvas->setUndoText(undoZoom);
  if (mWindow) mWindow->canvas().setUndoText(undoZoom);
  if (const QString name = word(PanelWord::Chart, panel().language()); mCanvas->accessibleName() != name) mCanvas->setAccessibleName(name);
  setEnabled(*mCanvas, mModel.Enabled());
  mCanvas->follow();
}

Extent ChartRenderer::extent() const { return {.field = theme().px(360), .height = theme().px(260)}; }

QString ChartRenderer::explanation() const {
  const QString words = mCanvas->pointedAt();
  return words.isEmpty() ? ControlRenderer::explanation() : words;
}

bool ChartRenderer::key(QKeyEvent& event) { return mCanvas->key(event); }

// --- the menu

void ChartRenderer::openMenu(CtrGraphMenu& menu) {
  ChartCanvas* const over = mMenuOver ? mMenuOver.get() : mCanvas;  // the copy may be closed by now
  auto* const list = new QMenu(over);
  list->setAttribute(Qt::WA_DeleteOnClose);
  for (const EntryWord& each : kEntryWords) {
    QAction* const action =
        list->addAction(word(each.word, panel().language()), over, [this, over, &menu, each] { carryOut(menu, each.entry, *over); });
    action->setEnabled(menu.isOffered(each.entry));
    if (each.endsGroup) list->addSeparator();
  }
  list->popup(mMenuAt);
}

void ChartRenderer::carryOut(CtrGraphMenu& menu, int entry, ChartCanvas& over) {
  act([&] {
    menu.choose(entry);
    switch (entry) {
      case CtrGraphMenu::Copy: return copyChart(over);
      case CtrGraphMenu::SavePng: return save("PNG", "png", [&](const auto& file) { saveChartPng(over, file); });
      case CtrGraphMenu::SavePdf: return save("PDF", "pdf", [&](const auto& file) { saveChartPdf(mModel, file); });
      case CtrGraphMenu::SaveCsv:
        return save("CSV", "csv",
                    [&](const auto& file) { writeWholeFile(file, chartCsv(mModel, mModel.owner()->desktop().locale().decimalSeparator)); });
      case CtrGraphMenu::Print: return printChart(mModel, *over.window());
      default: return;
    }
  });
}

void ChartRenderer::save(const char* filter, const char* extension, const std::function<void(const std::filesystem::path&)>& write) {
  const std::string title = fromQt(word(PanelWord::Chart, panel().language()));
  const auto file = mModel.owner()->desktop().saveDialog({title, filter, extension, title + "." + extension});
  if (file) write(*file);
}

// --- the copy

void ChartRenderer::openWindow() {
  if (!mWindow) {
    mWindow = new ChartWindow(mModel, panel().window());
    listenTo(mWindow->canvas());
    mWindow->restyle(theme());
    mWindow->canvas().setUndoText(word(PanelWord::UndoZoom, panel().language()));
    mWindow->showMaximized();
  }
  mWindow->raise();
  mWindow->activateWindow();
}

}  // namespace ostrand
