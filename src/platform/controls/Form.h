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

// Declares the form of a component: what stands where, under which tag. The order of the declarations is the order of
// GetControls and of the tab key. Rows are 400 twips apart and arrange themselves. What was declared is kept (FormModel.h).
class Form {
 public:
  explicit Form(Component& component) : mComponent(component) {}
  // Closes the form: from here on the controls belong to the component. A frame with a button that writes has got its pair of
  // CtrFocusTransfer by then.
  ~Form();

  // A full-size frame with its key.
  FrameForm frame(Frame& frame, const std::string& key);
  // The rows of a component without frames.
  FrameForm rows();
  // A component that stands on the panel by itself and is selected under its tag.
  void nested(NestedControl& control, const std::string& tag);
  // A control that fills the panel.
  void fill(Control& control, const std::string& tag);
  // A control that is never shown.
  void hidden(Control& control, const std::string& tag);
  void hidden(NestedControl& control, const std::string& tag);

  static constexpr int kRowHeight = 400;

 private:
  friend class FrameForm;
  FormFrame& open(Control* front);
  void add(Control& control, const std::string& tag);
  void makeNested(NestedControl& at, const std::string& tag);
  void surroundWriteControls(const FormFrame& frame);
  static void caption(Control& control, const std::string& text) { control.design("Caption", text); }
  static void position(Control& control, int left, int top, int width, int height);

  Component& mComponent;
};

class FrameForm {
 public:
  // The heading, with a key of the text table; the stamp in the top right corner, with "date_" + group.
  FrameForm& title(Label& label, const std::string& key);
  FrameForm& stamp(CtrDateLabel& label, const std::string& tag);

  // What a control shows until the view is localized.
  FrameForm& caption(CaptionedControl& control, const std::string& text);

  // A row that begins with a label; its cells follow.
  FrameForm& labelled(Label& label, const std::string& key);
  // One row: a label and what stands beside it.
  FrameForm& row(Label& label, const std::string& key, Control& control, const std::string& tag);
  // A row of a button that writes to the device, alone; its caption until the view is localized.
  FrameForm& button(CommandButton& button, const std::string& tag, const std::string& caption);
  // A row of one control without a label.
  FrameForm& row(Control& control, const std::string& tag);
  // A row of labels: the heads of a table's columns, from the second column on; `corner` is the first column's.
  using Heads = std::initializer_list<std::pair<Label*, const char*>>;
  FrameForm& heads(Heads labels);
  FrameForm& heads(Label& corner, const std::string& key, Heads labels);
  // One more column of the last row; one that stays empty.
  FrameForm& cell(Control& control, const std::string& tag);
  FrameForm& skip();
  // On the spot of the last control, hidden at first.
  FrameForm& over(Control& control, const std::string& tag);
  FrameForm& over(CommandButton& button, const std::string& tag, const std::string& caption);
  // A control that is hidden at first and takes no row until it is shown.
  FrameForm& hidden(Control& control, const std::string& tag);
  // Radio buttons, one to a row, of which one is on; they stand on `holder`.
  FrameForm& group(PictureBox& holder, std::initializer_list<std::pair<OptionButton*, const char*>> buttons);
  // Radio buttons in one row, of which one is on.
  FrameForm& options(Label& label, const std::string& key, std::initializer_list<std::pair<OptionButton*, const char*>> buttons);
  // A nested panel that takes the rest of the frame.
  FrameForm& panel(NestedControl& control, const std::string& tag);
  FrameForm& fill(Control& control, const std::string& tag);
  // A list with its columns, as high as an equal share of the frame.
  struct Column {
    const char* tag;
    int width;
    ListView::Content content = ListView::Content::Text;
  };
  FrameForm& table(ListView& list, const std::string& tag, std::initializer_list<Column> columns, int shares);
  // Controls side by side without a gap, by their shares of the width, that take the rest of the block: tables whose rows belong
  // together.
  FrameForm& strip(std::initializer_list<std::pair<Control*, int>> controls);
  // The frame in blocks side by side, by their shares of its width: to be said before any row. Rows go to the first block, and
  // from each `beside` on to the next.
  FrameForm& split(std::initializer_list<int> shares);
  FrameForm& beside();

 private:
  friend class Form;
  FrameForm(Form& form, Control* frame);
  FormFrame& model() const { return mForm.mComponent.mFrames[mIndex]; }
  FormBlock& block() const { return model().blocks.at(mBlock); }
  void add(Control& control, const std::string& tag);
  void addRow();
  // A row of its own for what takes the width of the block.
  void addWide(Control& control, const std::string& tag, int top, int height, int margin);
  FrameForm& addHeads(Heads labels);
  static void groupButtons(std::initializer_list<std::pair<OptionButton*, const char*>> buttons);
  void nextRow(int height = Form::kRowHeight);
  int width() const { return mForm.mComponent.width(); }
  int height() const { return mForm.mComponent.height(); }

  Form& mForm;
  Control* mFrame;
  std::size_t mIndex;
  std::size_t mBlock = 0;
  int mFirstRow;
  int mTop;
  int mColumn = 0;
  int mLeft = 0;  // of the block
  int mWidth;
  Control* mLast = nullptr;
};

}  // namespace ostrand
