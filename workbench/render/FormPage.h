#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "workbench/render/ControlRenderer.h"
#include "workbench/render/FormLayout.h"

namespace ostrand {

class Component;
struct FormFrame;

// One frame of a component with its controls, or one nested panel, or all controls of a component without frames. It listens
// to their changes, and lays them out: rows and columns as the form declares them, as wide and high as the texts need.
// The component must outlive the page.
class FormPage : public QWidget {
 public:
  // `front` is the frame or nested panel; nullptr for a component without any.
  FormPage(ViewPanel& panel, Component& component, Control* front, QWidget* parent);
  ~FormPage() override;

  ViewPanel& panel() const { return mPanel; }
  Control* front() const { return mFront; }
  // The panel turns to something else for good: nothing goes to the model any more.
  void retire();

  // The control has changed, or its widget has to go back to the model's value.
  void changed(Control& control);
  void changedAll();
  // Brings all up to date that has changed.
  void follow();
  void restyle();
  // Whether the first row keeps a margin above it; not if the page stands below the heading of another.
  void setTopMargin(bool on) { mHasTopMargin = on; }
  // The texts have another language: what was made wide for the old ones becomes narrow again.
  void forgetWidths();

  // The panel shows another part of the page.
  void arrange();

  // All renderers in the controls' order, those of nested panels where they stand.
  std::vector<ControlRenderer*> renderers() const;
  ControlRenderer* rendererOf(const Control& control) const;
  // Whether the control is the heading of the page's frame.
  bool isHeading(const Control& control) const;
  QSize sizeHint() const override { return minimumSize(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Item {
    std::unique_ptr<ControlRenderer> renderer;
    Signal<>::Id listening = 0;
    bool dirty = true;
    Extent extent;  // with the widest contents so far
    bool visible = false;
    // Where the layout has it; nullptr if it is not to be seen.
    const Position* position = nullptr;
  };
  // A control that stands in a row of the form.
  struct Standing {
    Item* item;
    std::size_t block, cell;  // of the layout
  };

  void add(Control& control);
  void joinTables();
  bool measure(Item& item);
  Item* shown(const Control* control);
  void layOut();
  void takePositions(const std::vector<Standing>& standing);
  int belowHeading() const;
  void nameFields();
  bool leaves(const QWidget& widget, int reason) const;

  ViewPanel& mPanel;
  Component& mComponent;
  Control* mFront;
  std::unique_ptr<QWidget> mHeading;  // of a nested panel, which has none of its own
  const FormFrame* mForm;             // nullptr if nothing is declared
  std::vector<Item> mItems;
  std::map<const QObject*, ControlRenderer*> mByWidget;
  FormLayout mLayout;
  bool mRetired = false;
  bool mHasTopMargin = true;
  int mRule = 0;  // where the line below the heading is painted; 0: nowhere
};

}  // namespace ostrand
