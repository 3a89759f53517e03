#pragma once

#include <initializer_list>
#include <string>

#include "platform/controls/Component.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/CtrDateLabel.h"
#include "platform/controls/Nested.h"
#include "platform/controls/PlainControls.h"

namespace ostrand {

class FrameForm;

// Declares the form of a component: what stands where, under which tag. The order of the declarations is
// the order of GetControls and of the tab key. Rows are 400 twips apart and place themselves.
class Form {
 public:
  explicit Form(Component& component) : mComponent(component) {}
  // Closes the form: from here on the controls belong to the component.
  ~Form();

  // A full-size frame with its key.
  FrameForm frame(Frame& frame, const std::string& key);
  // A component that stands on the panel by itself and is selected under its tag.
  void nested(NestedPlace& place, const std::string& tag);
  // A control at a place of its own on the panel, in twips.
  void free(Control& control, const std::string& tag, int left, int top, int width, int height);
  // A control that fills the panel.
  void fill(Control& control, const std::string& tag);

  static constexpr int kRowHeight = 400;

 private:
  friend class FrameForm;
  void add(Control& control, const std::string& tag);
  void caption(Control& control, const std::string& text);
  static void place(Control& control, int left, int top, int width, int height);
  static void placeAs(Control& control, const Control& other);
  static void hide(Control& control);

  Component& mComponent;
};

class FrameForm {
 public:
  // The heading, with a key of the text table; the stamp in the top right corner, with "date_" + group.
  FrameForm& title(Label& label, const std::string& key);
  FrameForm& stamp(CtrDateLabel& label, const std::string& tag);

  // One row: a label and what stands beside it.
  FrameForm& row(Label& label, const std::string& key, Control& control, const std::string& tag);
  // A row of a button alone; its caption until the view is localized.
  FrameForm& button(CommandButton& button, const std::string& tag, const std::string& caption);
  // A row of one control without a label.
  FrameForm& row(Control& control, const std::string& tag);
  // A row of labels: the heads of a table's columns, from the second column on.
  FrameForm& heads(std::initializer_list<std::pair<Label*, const char*>> labels);
  // One more column of the last row.
  FrameForm& cell(Control& control, const std::string& tag);
  // On the same place as the last control, hidden at first.
  FrameForm& over(CommandButton& button, const std::string& tag, const std::string& caption);
  // A control that is never shown.
  FrameForm& hidden(Control& control, const std::string& tag);
  // Radio buttons, one to a row, of which one is on; they stand on `holder`.
  FrameForm& group(PictureBox& holder, std::initializer_list<std::pair<OptionButton*, const char*>> buttons);
  // A nested panel that takes the rest of the frame.
  FrameForm& panel(NestedPlace& place, const std::string& tag);
  FrameForm& fill(Control& control, const std::string& tag);
  // A list with its columns (tag, width), as high as an equal share of the frame.
  FrameForm& table(ListView& list, const std::string& tag, std::initializer_list<std::pair<const char*, int>> columns, int shares);

 private:
  friend class Form;
  FrameForm(Form& form, Frame& frame) : mForm(form), mFrame(frame) {}
  void add(Control& control, const std::string& tag);
  FrameForm& nextRow();

  Form& mForm;
  Frame& mFrame;
  static constexpr int kFirstRow = 720;
  int mTop = kFirstRow;
  int mColumn = 0;
  Control* mLast = nullptr;
};

}  // namespace ostrand
