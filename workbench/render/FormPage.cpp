#include "workbench/render/FormPage.h"

#include <QApplication>
#include <QEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>

#include "platform/controls/Component.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Nested.h"
#include "workbench/render/LabelRenderer.h"
#include "workbench/render/ListViewRenderer.h"
#include "workbench/render/RendererTable.h"
#include "workbench/render/ViewPanel.h"

namespace ostrand {

namespace {

// Before the theme's scale.
constexpr int kMargin = 24;
constexpr int kAboveRule = 6;
constexpr int kBelowRule = 33;

}  // namespace

FormPage::FormPage(ViewPanel& panel, Component& component, Control* front, QWidget* parent)
    : QWidget(parent), mPanel(panel), mComponent(component), mFront(front), mForm(component.formOf(front)) {
  setAutoFillBackground(false);
  if (front && front->kind() == Control::Kind::Nested) {
    auto heading = std::make_unique<QLabel>(this);
    heading->setProperty("role", "title");
    mHeading = std::move(heading);
  }
  std::vector<Control*> members = component.controlsOf(front);
  std::erase_if(members, [](const Control* control) { return control->kind() == Control::Kind::Frame; });
  mItems.reserve(members.size());
  for (Control* control : members) add(*control);
  joinTables();
  restyle();
}

// Lists that stand side by side in one row of the form.
void FormPage::joinTables() {
  if (!mForm) return;
  for (const FormBlock& block : mForm->blocks)
    for (const FormRow& row : block.rows) {
      std::vector<ListViewRenderer*> tables;
      for (const FormCell& cell : row.cells)
        for (const Control* control : cell.controls)
          if (auto* const table = dynamic_cast<ListViewRenderer*>(rendererOf(*control)); table && control == cell.controls.front())
            tables.push_back(table);
      if (row.share > 0 && tables.size() > 1) ListViewRenderer::join(tables);
    }
}

FormPage::~FormPage() {
  // Widgets that die may still tell of it; nobody listens any more.
  mRetired = true;
  for (Item& item : mItems) item.renderer->control().changed.disconnect(item.listening);
  for (const auto& [widget, renderer] : mByWidget) const_cast<QObject*>(widget)->removeEventFilter(this);
}

void FormPage::add(Control& control) {
  Item& item = mItems.emplace_back();
  item.renderer = makeRenderer(*this, control);
  item.listening = control.changed.connect([this, &control] { changed(control); });
  std::vector<QWidget*> watched = item.renderer->widgets();
  watched.push_back(item.renderer->focusWidget());
  for (QWidget* widget : watched) {
    if (!widget || mByWidget.contains(widget)) continue;
    widget->hide();
    widget->installEventFilter(this);
    mByWidget[widget] = item.renderer.get();
  }
  if (QWidget* keys = item.renderer->focusWidget()) keys->setFocusPolicy(Qt::StrongFocus);
}

void FormPage::retire() {
  mRetired = true;
  for (const Item& item : mItems)
    if (const FormPage* inside = item.renderer->inside()) const_cast<FormPage*>(inside)->retire();
}

// --- following the model

void FormPage::changed(Control& control) {
  for (Item& item : mItems)
    if (&item.renderer->control() == &control) item.dirty = true;
  mPanel.schedule();
}

void FormPage::changedAll() {
  for (Item& item : mItems) {
    item.dirty = true;
    if (const FormPage* inside = item.renderer->inside()) const_cast<FormPage*>(inside)->changedAll();
  }
  mPanel.schedule();
}

bool FormPage::measure(Item& item) {
  Extent now = item.renderer->extent();
  now.field = std::max(now.field, item.extent.field);
  now.companion = std::max(now.companion, item.extent.companion);
  now.state = std::max(now.state, item.extent.state);
  now.tail = std::max(now.tail, item.extent.tail);
  const bool visible = item.renderer->control().Visible();
  const bool same = now == item.extent && visible == item.visible;
  item.extent = now;
  item.visible = visible;
  return !same;
}

void FormPage::follow() {
  if (mRetired) return;
  bool moved = false;
  for (Item& item : mItems) {
    if (!item.dirty && !item.renderer->inside()) continue;
    item.dirty = false;
    try {
      item.renderer->sync();
      moved |= measure(item);
    } catch (...) {
      // A control that cannot be read stays as it is on the screen; the rest goes on.
    }
  }
  if (auto* heading = static_cast<QLabel*>(mHeading.get())) {
    const QString text = mPanel.label(mFront->Tag());
    if (heading->text() != text) heading->setText(text), moved = true;
  }
  if (moved) layOut();
}

void FormPage::restyle() {
  if (mHeading) mHeading->setFont(mPanel.theme().font(Theme::Text::Title));
  for (Item& item : mItems) item.renderer->restyle();
  forgetWidths();
}

void FormPage::forgetWidths() {
  for (Item& item : mItems) item.extent = {};
  for (Item& item : mItems)
    if (const FormPage* inside = item.renderer->inside()) const_cast<FormPage*>(inside)->forgetWidths();
  changedAll();
}

// --- positions

FormPage::Item* FormPage::shown(const Control* control) {
  for (Item& item : mItems)
    if (&item.renderer->control() == control) return item.visible && !item.renderer->widgets().empty() ? &item : nullptr;
  return nullptr;
}

bool FormPage::isHeading(const Control& control) const { return mForm && mForm->title == &control; }

void FormPage::layOut() {
  const Theme& theme = mPanel.theme();
  FormLayout::Measures measures;
  measures.margin = theme.px(kMargin);
  measures.top = mHasTopMargin ? measures.margin : 0;
  measures.columnGap = theme.px(20);
  measures.companionGap = theme.px(8);
  measures.rowGap = theme.px(10);
  measures.fieldHeight = QFontMetrics(theme.font()).height() + theme.px(16);

  std::vector<FormLayout::Block> blocks(mForm ? mForm->blocks.size() : 0);
  std::vector<Standing> standing;
  for (std::size_t block = 0; block < blocks.size(); ++block) {
    const FormBlock& declared = mForm->blocks[block];
    blocks[block].share = declared.share;
    const auto stand = [&](const Control* control, int row, int column, int share) {
      Item* const item = shown(control);
      if (!item) return;
      standing.push_back({item, block, blocks[block].cells.size()});
      blocks[block].cells.push_back({.row = row,
                                     .column = column,
                                     .loose = control->kind() == Control::Kind::OptionButton,
                                     .share = share,
                                     .bare = item->renderer->inside() != nullptr,
                                     .extent = item->extent});
    };
    int number = 0;
    for (const FormRow& row : declared.rows) {
      stand(row.label, number, 0, 0);
      for (const FormCell& cell : row.cells)
        for (const Control* control : cell.controls) stand(control, number, cell.column, row.share);
      ++number;
    }
  }
  Item* const title = mForm ? shown(mForm->title) : nullptr;
  Item* const stamp = mForm ? shown(mForm->stamp) : nullptr;
  mLayout.measure(title ? title->extent : Extent(), stamp ? stamp->extent : Extent(), std::move(blocks), measures);
  takePositions(standing);
  if (title) title->position = &mLayout.title();
  if (stamp) stamp->position = &mLayout.stamp();
  QSize least = mLayout.minimum();
  if (mHeading) least = QSize(std::max(least.width(), mHeading->sizeHint().width() + 2 * measures.margin), least.height() + belowHeading());
  if (least != minimumSize()) {
    setMinimumSize(least);
    updateGeometry();
  }
  arrange();
  nameFields();
}

void FormPage::takePositions(const std::vector<Standing>& standing) {
  for (Item& item : mItems) item.position = nullptr;
  for (const Standing& each : standing) each.item->position = &mLayout.cells(each.block)[each.cell].position;
}

void FormPage::arrange() {
  const Theme& theme = mPanel.theme();
  const int margin = theme.px(kMargin);
  const int top = mHeading ? belowHeading() : 0;
  if (mHeading) {
    mHeading->setGeometry(margin, margin, width() - 2 * margin, mHeading->sizeHint().height());
    mHeading->show();
  }
  mLayout.arrange(QSize(std::max(width(), minimumWidth()), std::max(height(), minimumHeight()) - top), mPanel.visibleWidth());
  for (Item& item : mItems) {
    if (item.position) {
      Position at = *item.position;
      for (QRect* rect : {&at.field, &at.companion, &at.state}) rect->translate(0, top);
      item.renderer->arrange(at);
    }
    for (QWidget* widget : item.renderer->widgets())
      if (widget->isHidden() == (item.position != nullptr)) widget->setVisible(item.position != nullptr);
  }
  mRule = 0;
  if (!mHeading && mFront && mFront->kind() == Control::Kind::Frame) mRule = mLayout.headingBottom() + theme.px(kAboveRule);
  if (mHeading) mRule = mHeading->geometry().bottom() + 1 + theme.px(kAboveRule);
}

// As far down as the rows of a frame begin.
int FormPage::belowHeading() const {
  const Theme& theme = mPanel.theme();
  return theme.px(kMargin) + mHeading->sizeHint().height() + theme.px(kAboveRule) + theme.px(kBelowRule);
}

// Who does not see the screen hears the label of the field's row, and in a table the head of its column.
void FormPage::nameFields() {
  if (!mForm) return;
  const auto textOf = [this](const Control* control) {
    const Item* const item = shown(control);
    const auto* const label = item ? dynamic_cast<const LabelRenderer*>(item->renderer.get()) : nullptr;
    return label ? label->text() : QString();
  };
  for (const FormBlock& block : mForm->blocks)
    for (const FormRow& row : block.rows)
      for (const FormCell& cell : row.cells) {
        QStringList name{textOf(row.label), textOf(block.headOf(row, cell))};
        name.removeAll(QString());
        const QString spoken = name.join(QStringLiteral(", "));
        for (const Control* control : cell.controls) {
          const Item* const item = shown(control);
          QWidget* const keys = item ? item->renderer->focusWidget() : nullptr;
          if (keys && !spoken.isEmpty() && keys->accessibleName() != spoken) keys->setAccessibleName(spoken);
        }
      }
}

void FormPage::resizeEvent(QResizeEvent*) { arrange(); }

void FormPage::showEvent(QShowEvent*) { mPanel.schedule(); }

void FormPage::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Theme& theme = mPanel.theme();
  painter.fillRect(rect(), theme.surface);
  if (mRule == 0) return;
  painter.setPen(theme.line);
  painter.drawLine(theme.px(kMargin), mRule, width() - theme.px(kMargin), mRule);
}

// --- looking

std::vector<ControlRenderer*> FormPage::renderers() const {
  std::vector<ControlRenderer*> all;
  for (const Item& item : mItems) {
    all.push_back(item.renderer.get());
    if (const FormPage* inside = item.renderer->inside()) {
      const std::vector<ControlRenderer*> more = inside->renderers();
      all.insert(all.end(), more.begin(), more.end());
    }
  }
  return all;
}

ControlRenderer* FormPage::rendererOf(const Control& control) const {
  for (ControlRenderer* renderer : renderers())
    if (&renderer->control() == &control) return renderer;
  return nullptr;
}

// --- keys

bool FormPage::leaves(const QWidget& widget, int reason) const {
  switch (reason) {
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
    case Qt::ActiveWindowFocusReason: return false;
    default: break;
  }
  // An edit in place of a list, say, is a part of it.
  if (const QWidget* to = QApplication::focusWidget(); to && widget.isAncestorOf(to)) return false;
  // One that was disabled or hidden under the user's hands is not left by him.
  return widget.isEnabled() && widget.isVisible();
}

bool FormPage::eventFilter(QObject* watched, QEvent* event) {
  const auto found = mByWidget.find(watched);
  if (mRetired || found == mByWidget.end()) return QWidget::eventFilter(watched, event);
  ControlRenderer& renderer = *found->second;
  auto& widget = static_cast<QWidget&>(*watched);
  switch (event->type()) {
    case QEvent::ToolTip: {
      const QString text = renderer.explanation();
      if (text.isEmpty())
        QToolTip::hideText();
      else
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text, &widget);
      return true;
    }
    case QEvent::Wheel:
      // A wheel over a field scrolls the page, unless the user is in that field.
      if (&widget == renderer.focusWidget() && !widget.hasFocus() && !renderer.fills()) {
        event->ignore();
        return true;
      }
      break;
    case QEvent::ShortcutOverride: {
      const auto& key = static_cast<QKeyEvent&>(*event);
      if (key.matches(QKeySequence::Undo) || (key.key() == Qt::Key_Escape && renderer.hasTyping())) {
        event->accept();
        return true;
      }
      break;
    }
    case QEvent::KeyPress: {
      auto& key = static_cast<QKeyEvent&>(*event);
      const bool plain = !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
      const bool back = key.key() == Qt::Key_Backtab || (key.key() == Qt::Key_Tab && key.modifiers() & Qt::ShiftModifier);
      if (plain && (back || key.key() == Qt::Key_Tab)) {
        mPanel.tab(renderer.control(), !back);
        return true;
      }
      if (renderer.key(key)) return true;
      break;
    }
    case QEvent::FocusIn:
      if (&widget == renderer.focusWidget()) mPanel.focusCame(renderer.control());
      break;
    case QEvent::FocusOut:
      if (&widget == renderer.focusWidget() && leaves(widget, static_cast<QFocusEvent*>(event)->reason())) {
        renderer.commit();
        mPanel.focusWent(renderer.control());
      }
      break;
    default: break;
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace ostrand
