#include "workbench/render/ViewPanel.h"

#include <QApplication>
#include <QPainter>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <map>

#include "platform/controls/Component.h"
#include "platform/controls/EditControl.h"
#include "workbench/render/FormPage.h"
#include "workbench/render/Words.h"

namespace ostrand {

// One view on the screen: what is held of it, and a page for each of its items that was in front already.
struct ViewPanel::Shown {
  Ref<ITaviView> view;  // outlives the pages
  Component* component = nullptr;
  Signal<>::Id listening = 0;
  std::map<Control*, std::unique_ptr<FormPage>> pages;
  FormPage* current = nullptr;

  ~Shown() {
    if (component) component->changed.disconnect(listening);
    pages.clear();
  }
};

ViewPanel::ViewPanel(QWidget* parent) : QScrollArea(parent), mGround(new QWidget), mTheme(Theme::make(Theme::Kind::Light)) {
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  // All pages stand on one ground for good, of which one is shown: a widget that changes its parent is styled anew with all
  // that is in it.
  auto* const layout = new QVBoxLayout(mGround);
  layout->setContentsMargins(0, 0, 0, 0);
  setWidget(mGround);
  mGround->setAutoFillBackground(false);
}

ViewPanel::~ViewPanel() {
  if (mShown && mShown->current) mShown->current->retire();
}

// --- what is shown

void ViewPanel::setView(const Ref<ITaviView>& view) {
  if (view == mView) return;
  retire();
  mView = view;
  if (view) {
    mShown = std::make_unique<Shown>();
    mShown->view = view;
    const ControlCollection& controls = view->GetControls();
    mShown->component = controls.empty() ? nullptr : controls.front()->owner();
    if (mShown->component) mShown->listening = mShown->component->changed.connect([this] { schedule(); });
    follow();
  }
  viewport()->update();
}

void ViewPanel::retire() {
  if (!mShown) return;
  for (const auto& [front, page] : mShown->pages) page->retire();
  if (mShown->current) mShown->current->hide();
  mRetired.push_back(std::move(mShown));
  // Nothing is deleted under a handler that still runs.
  QTimer::singleShot(0, this, [this] { freeRetired(); });
}

void ViewPanel::freeRetired() {
  if (mActing > 0) return;  // who ends the last action calls again
  const auto gone = std::exchange(mRetired, {});
}

Component* ViewPanel::component() const { return mShown ? mShown->component : nullptr; }

FormPage* ViewPanel::page() const { return mShown ? mShown->current : nullptr; }

void ViewPanel::schedule() {
  if (mScheduled) return;
  mScheduled = true;
  QTimer::singleShot(0, this, [this] {
    if (mScheduled) follow();
  });
}

void ViewPanel::follow() {
  mScheduled = false;
  if (!component()) return;
  Control* const front = component()->front();
  std::unique_ptr<FormPage>& page = mShown->pages[front];
  if (!page) {
    page = std::make_unique<FormPage>(*this, *component(), front, mGround);
    page->hide();
    mGround->layout()->addWidget(page.get());
  }
  if (mShown->current != page.get()) {
    // Whoever has the focus on the page that goes applies what is typed in it, and the view may do anything then.
    Shown* const shown = mShown.get();
    if (QWidget* const focused = QApplication::focusWidget(); focused && shown->current && shown->current->isAncestorOf(focused)) {
      focused->clearFocus();
      if (mShown.get() != shown) return;
      if (component()->front() != front) return schedule();
    }
    if (shown->current) shown->current->hide();
    shown->current = page.get();
    page->follow();
    page->show();
  } else {
    page->follow();
  }
  takeModelFocus();
}

void ViewPanel::takeModelFocus() {
  if (!page()) return;
  Control* const focused = component()->focused();
  ControlRenderer* const renderer = focused ? page()->rendererOf(*focused) : nullptr;
  QWidget* const widget = renderer ? renderer->focusWidget() : nullptr;
  if (!widget || !widget->isEnabled() || widget->isHidden() || widget->hasFocus() || widget->isAncestorOf(QApplication::focusWidget())) return;
  if (QApplication::activePopupWidget() || window()->focusWidget() == widget) return;
  widget->setFocus(Qt::OtherFocusReason);
  ensureWidgetVisible(widget);
}

void ViewPanel::setTheme(const Theme& theme) {
  mTheme = theme;
  if (mShown)
    for (const auto& [front, page] : mShown->pages) page->restyle();
  refresh();
  viewport()->update();
}

void ViewPanel::setTexts(const Ref<ITextTable>& texts, const std::string& language) {
  mTexts = texts;
  mLanguage = language;
  if (!mShown) return;
  for (const auto& [front, page] : mShown->pages) page->forgetWidths();
}

void ViewPanel::commit() {
  if (!page()) return;
  for (ControlRenderer* renderer : page()->renderers()) {
    const Shown* const shown = mShown.get();
    renderer->commit();
    if (mShown.get() != shown || !page()) return;
  }
}

bool ViewPanel::hasTyping() const {
  if (!page()) return false;
  for (const ControlRenderer* renderer : page()->renderers())
    if (renderer->hasTyping()) return true;
  return false;
}

void ViewPanel::refresh() {
  if (page()) page()->changedAll();
  follow();
}

// --- looking

std::vector<Control*> ViewPanel::shownControls() const {
  std::vector<Control*> controls;
  if (page())
    for (const ControlRenderer* renderer : page()->renderers())
      if (renderer->control().Visible() && !renderer->widgets().empty()) controls.push_back(&renderer->control());
  return controls;
}

QWidget* ViewPanel::widgetOf(const Control& control) const {
  const ControlRenderer* const renderer = page() ? page()->rendererOf(control) : nullptr;
  if (!renderer || renderer->widgets().empty() || renderer->widgets().front()->isHidden()) return nullptr;
  return renderer->focusWidget() ? renderer->focusWidget() : renderer->widgets().front();
}

QString ViewPanel::explanation(const Control& control) const {
  const ControlRenderer* const renderer = page() ? page()->rendererOf(control) : nullptr;
  return renderer ? renderer->explanation() : QString();
}

QPixmap ViewPanel::picture() {
  refresh();
  if (!page()) return grab();
  mWhole = true;
  page()->arrange();
  const QPixmap taken = page()->grab();
  mWhole = false;
  page()->arrange();
  return taken;
}

QString ViewPanel::text(const std::string& key) const {
  try {
    return mTexts ? toQt(mTexts->GetText(key)) : toQt(key);
  } catch (const std::exception&) {
    return toQt(key);
  }
}

QString ViewPanel::label(const std::string& key) const {
  try {
    return mTexts ? toQt(mTexts->GetLabel(key)) : toQt(key);
  } catch (const std::exception&) {
    return toQt(key);
  }
}

QString ViewPanel::unitText(const std::string& unit) const {
  if (unit.empty() || unit == "noUnit") return {};
  try {
    return mTexts ? toQt(mTexts->GetSectionText(unit, "unit")) : toQt(unit);
  } catch (const std::exception&) {
    return toQt(unit);
  }
}

// --- the user

bool ViewPanel::act(Control& control, const std::function<void()>& action, const UserInput& input) {
  const QPointer<ViewPanel> self(this);
  const Shown* const shown = mShown.get();
  if (!shown) return false;
  const Ref<ITaviView> pin = shown->view;
  const std::shared_ptr<void> told = onInput && !input.command.empty() ? onInput(control, input) : nullptr;
  bool well = false;
  ++mActing;
  bool accepts = false;
  try {
    const auto* edit = dynamic_cast<const EditControl*>(&control);
    accepts = control.Visible() && control.Enabled() && !(edit && edit->ReadOnly());
    action();
    well = true;
  } catch (...) {
    const ErrorText error = currentError();
    const auto& tell = accepts ? onUnhandled : onRefused;
    if (self && tell) tell(RuntimeError(error.number, error.description));
  }
  if (!self) return false;
  if (--mActing == 0 && !mRetired.empty()) QTimer::singleShot(0, this, [this] { freeRetired(); });
  return well && mShown.get() == shown;
}

void ViewPanel::focusCame(Control& control) {
  Component* const owner = control.owner();
  if (!owner || owner->focused() == &control) return;
  act(control, [&] { owner->moveFocus(&control); });
}

void ViewPanel::focusWent(Control& control) {
  Component* const owner = control.owner();
  if (!owner || owner->focused() != &control) return;
  act(control, [&] { owner->moveFocus(nullptr); });
}

std::vector<ControlRenderer*> ViewPanel::tabOrder() const { return page() ? page()->renderers() : std::vector<ControlRenderer*>(); }

void ViewPanel::tab(Control& control, bool forward) {
  const QPointer<ViewPanel> self(this);
  const auto stillHere = [&, shown = mShown.get(), at = page()] {
    return self && mShown.get() == shown && page() == at && window()->focusWidget() && isAncestorOf(window()->focusWidget());
  };
  if (ControlRenderer* renderer = page() ? page()->rendererOf(control) : nullptr) renderer->commit();
  if (!stillHere()) return;
  // The control hears that it is left while the key is down; at the view's edge it sends the focus out.
  if (Component* const owner = control.owner()) {
    act(control,
        [&] {
          if (owner->focused() == &control)
            owner->moveFocus(nullptr);
          else
            control.LostFocus();
        },
        {"leave-field", forward ? "tab" : "tab shift"});
  }
  if (!stillHere()) return;
  std::vector<ControlRenderer*> order = tabOrder();
  if (!forward) std::reverse(order.begin(), order.end());
  auto next = std::find_if(order.begin(), order.end(), [&](const ControlRenderer* each) { return &each->control() == &control; });
  for (next = next == order.end() ? order.begin() : next + 1; next != order.end(); ++next) {
    QWidget* const widget = (*next)->focusWidget();
    if (!widget || widget->isHidden() || !widget->isEnabled() || !(*next)->control().TabStop()) continue;
    widget->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    if (self && widget->isVisible()) ensureWidgetVisible(widget);
    return;
  }
  if (onTabOut) onTabOut(forward);
  // Nobody took the focus: it is where it was.
  if (stillHere()) focusCame(control);
}

bool ViewPanel::enter(bool forward) {
  if (mScheduled) follow();
  if (!page()) return false;
  std::vector<ControlRenderer*> order = tabOrder();
  if (!forward) std::reverse(order.begin(), order.end());
  const auto take = [&](const ControlRenderer& renderer) {
    QWidget* const widget = renderer.focusWidget();
    if (!widget || widget->isHidden() || !widget->isEnabled() || !renderer.control().TabStop()) return false;
    widget->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    ensureWidgetVisible(widget);
    return true;
  };
  if (Control* const focused = component()->focused())
    for (const ControlRenderer* renderer : order)
      if (&renderer->control() == focused && take(*renderer)) return true;
  for (const ControlRenderer* renderer : order)
    if (take(*renderer)) return true;
  return false;
}

// Qt asks when the widget with the focus is disabled or hidden. The focus is not to jump to a neighbour then: a button that is
// disabled while the bus is busy has it again when it is enabled.
bool ViewPanel::focusNextPrevChild(bool next) {
  QWidget* const focused = QApplication::focusWidget();
  if (focused && isAncestorOf(focused)) return false;
  return QScrollArea::focusNextPrevChild(next);
}

int ViewPanel::visibleWidth() const { return mWhole && page() ? page()->width() : viewport()->width(); }

void ViewPanel::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  if (page()) page()->arrange();
}

void ViewPanel::paintEvent(QPaintEvent* event) {
  QScrollArea::paintEvent(event);
  QPainter painter(viewport());
  painter.fillRect(viewport()->rect(), mTheme.surface);
  if (page()) return;
  painter.setPen(mTheme.secondaryText);
  painter.setFont(mTheme.font());
  painter.drawText(viewport()->rect(), Qt::AlignCenter, word(PanelWord::NothingHere, mLanguage));
}

}  // namespace ostrand
