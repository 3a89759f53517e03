#pragma once

#include <QScrollArea>
#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/base/RuntimeError.h"
#include "platform/types/ITaviView.h"
#include "platform/types/ITextTable.h"
#include "workbench/render/KeptValue.h"
#include "workbench/render/Theme.h"
#include "workbench/render/UserInput.h"

namespace ostrand {

class Component;
class Control;
class ControlRenderer;
class EditControl;
class FormPage;

// Shows one view: the frame or nested panel that the view has in front, and follows it when the view brings another one there.
// What changes in the model is painted once per turn of the event loop. What the user does goes through the action operations
// of the controls and nothing else.
//
// A panel lives as long as its window; views come and go in it. The view that is shown is held until it is replaced, so it may
// be released at any time, also in the middle of a handler; nothing of it is touched after setView(nullptr).
class ViewPanel : public QScrollArea {
 public:
  explicit ViewPanel(QWidget* parent = nullptr);
  ~ViewPanel() override;

  // nullptr shows nothing. What is typed and not applied in the view before is dropped.
  void setView(const Ref<ITaviView>& view);
  const Ref<ITaviView>& view() const { return mView; }
  void setTheme(const Theme& theme);
  const Theme& theme() const { return mTheme; }
  // The user's language: texts of units, errors and headings, and the code ("fi") for the panel's own words. To be called
  // after each change of the language; the view's own texts come by its Localize.
  void setTexts(const Ref<ITextTable>& texts, const std::string& language);
  const Ref<ITextTable>& texts() const { return mTexts; }
  const std::string& language() const { return mLanguage; }

  // Why the user cannot use a control now; an empty text if nobody knows. Asked when the control changes, and by refresh().
  std::function<QString(const Control&)> whyDisabled;
  // What the data set keeps for the device beside what an edit shows. Asked when the control changes, and by refresh().
  std::function<KeptValue(const EditControl&)> keptValue;
  // For who records the user: told before each of his actions. What it gives is held until the action has been carried out.
  std::function<std::shared_ptr<void>(const Control&, const UserInput&)> onInput;
  // An action that the control did not accept; nothing has happened.
  std::function<void(const RuntimeError&)> onRefused;
  // An error that left a handler of the view. The action has happened, up to there.
  std::function<void(const RuntimeError&)> onUnhandled;
  // The tab key went over the last control (or backwards over the first) and the view did not ask the host to move the focus.
  std::function<void(bool forward)> onTabOut;

  // Applies what is typed and not yet applied: to be called before anything that is not the leaving of a field by mouse or tab
  // key and that reads or changes values (a shortcut that saves, a menu that changes units or language).
  void commit();
  bool hasTyping() const;
  // Brings the screen up to date now and not in the next turn of the event loop, and asks again why things are disabled.
  void refresh();
  // The focus enters by the keyboard: to the view's focused control if it has one, else to the first or the last of the tab order.
  // False if there is no control that could take it.
  bool enter(bool forward = true);

  // The controls on the screen in their declared order, those in nested panels too.
  std::vector<Control*> shownControls() const;
  // What stands for a control on the screen and takes its keys; nullptr if it is not shown.
  QWidget* widgetOf(const Control& control) const;
  // What the tooltip of a control on the screen tells, as rich text; empty if there is nothing to tell.
  QString explanation(const Control& control) const;
  // The panel's content at its full size, also what is scrolled away.
  QPixmap picture();

  // --- for the renderers

  // Carries out an action of the user on a control, and tells its errors. While it runs, the view and the widgets stay, even
  // if the panel shows something else meanwhile. True if it went well and `control` is still shown.
  bool act(Control& control, const std::function<void()>& action, const UserInput& input = {});
  // Qt's focus has come to a control, or left it.
  void focusCame(Control& control);
  void focusWent(Control& control);
  // The tab key in a control.
  void tab(Control& control, bool forward);
  // The text of a key of the text table; the key itself without a table.
  QString text(const std::string& key) const;
  QString label(const std::string& key) const;
  // A unit as the user reads it; empty for "noUnit".
  QString unitText(const std::string& unit) const;
  // Of the page, as much as the user sees of it.
  int visibleWidth() const;
  // Something has changed: paints in the next turn of the event loop.
  void schedule();

 protected:
  bool focusNextPrevChild(bool next) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Shown;

  Component* component() const;
  FormPage* page() const;
  void follow();
  void retire();
  void freeRetired();
  void takeModelFocus();
  std::vector<ControlRenderer*> tabOrder() const;

  QWidget* mGround;
  Ref<ITaviView> mView;
  Ref<ITextTable> mTexts;
  std::string mLanguage = "en";
  Theme mTheme;
  std::unique_ptr<Shown> mShown;
  std::vector<std::unique_ptr<Shown>> mRetired;
  int mActing = 0;
  bool mScheduled = false;
  bool mWhole = false;  // all of the page is seen: in a picture
};

}  // namespace ostrand
