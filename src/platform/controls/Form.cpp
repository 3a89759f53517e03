#include "platform/controls/Form.h"

#include <vector>

namespace ostrand {

namespace {

constexpr int kMargin = 240;
constexpr int kLabelWidth = 3000;
constexpr int kFieldLeft = kMargin + kLabelWidth + 120;
constexpr int kFieldWidth = 2400;
constexpr int kFieldHeight = 315;
constexpr int kColumnStep = kFieldWidth + 120;
constexpr int kTitleTop = 120;
constexpr int kStampWidth = 2640;
constexpr int kButtonWidth = 1695;
constexpr int kGap = 120;

}  // namespace

void Form::add(Control& control, const std::string& tag) {
  control.mTag = tag;
  mComponent.mControls.push_back(&control);
}

void Form::caption(Control& control, const std::string& text) { control.design("Caption", text); }

void Form::place(Control& control, int left, int top, int width, int height) {
  control.mLeft = left;
  control.mTop = top;
  control.mWidth = width;
  control.mHeight = height;
}

void Form::placeAs(Control& control, const Control& other) { place(control, other.mLeft, other.mTop, other.mWidth, other.mHeight); }

void Form::hide(Control& control) { control.mVisible = false; }

Form::~Form() {
  for (Control* control : mComponent.mControls) control->mOwner = &mComponent;
}

FrameForm Form::frame(Frame& frame, const std::string& key) {
  add(frame, key);
  place(frame, 0, 0, mComponent.width(), mComponent.height());
  if (!mComponent.mFront) mComponent.mFront = &frame;
  return FrameForm(*this, frame);
}

void Form::nested(NestedPlace& at, const std::string& tag) {
  fill(at, tag);
  if (!mComponent.mFront) mComponent.mFront = &at;
  at.make();
  at.nested()->setOuter(&mComponent);
  at.nested()->Place(mComponent.desktop(), mComponent.parent(), tag);
}

void Form::free(Control& control, const std::string& tag, int left, int top, int width, int height) {
  add(control, tag);
  place(control, left, top, width, height);
}

void Form::fill(Control& control, const std::string& tag) {
  add(control, tag);
  place(control, 0, 0, mComponent.width(), mComponent.height());
}

void FrameForm::add(Control& control, const std::string& tag) {
  mForm.add(control, tag);
  control.mFrame = &mFrame;
}

FrameForm& FrameForm::title(Label& label, const std::string& key) {
  add(label, key);
  Form::place(label, kMargin, kTitleTop, 5000, 360);
  return *this;
}

FrameForm& FrameForm::stamp(CtrDateLabel& label, const std::string& tag) {
  add(label, tag);
  Form::place(label, mForm.mComponent.width() - kStampWidth, 20, kStampWidth, kFieldHeight);
  return *this;
}

FrameForm& FrameForm::nextRow() {
  if (mLast) mTop += Form::kRowHeight;
  mColumn = 0;
  return *this;
}

FrameForm& FrameForm::row(Label& label, const std::string& key, Control& control, const std::string& tag) {
  nextRow();
  add(label, key);
  Form::place(label, kMargin, mTop, kLabelWidth, kFieldHeight);
  return cell(control, tag);
}

FrameForm& FrameForm::row(Control& control, const std::string& tag) {
  nextRow();
  return cell(control, tag);
}

FrameForm& FrameForm::button(CommandButton& button, const std::string& tag, const std::string& caption) {
  row(button, tag);
  mForm.caption(button, caption);
  Form::place(button, kFieldLeft, mTop, kButtonWidth, kFieldHeight);
  return *this;
}

FrameForm& FrameForm::heads(std::initializer_list<std::pair<Label*, const char*>> labels) {
  nextRow();
  for (const auto& [label, key] : labels) cell(*label, key);
  return *this;
}

FrameForm& FrameForm::cell(Control& control, const std::string& tag) {
  add(control, tag);
  Form::place(control, kFieldLeft + mColumn++ * kColumnStep, mTop, kFieldWidth, kFieldHeight);
  mLast = &control;
  return *this;
}

FrameForm& FrameForm::over(CommandButton& button, const std::string& tag, const std::string& caption) {
  add(button, tag);
  mForm.caption(button, caption);
  Form::placeAs(button, *mLast);
  Form::hide(button);
  return *this;
}

FrameForm& FrameForm::hidden(Control& control, const std::string& tag) {
  add(control, tag);
  Form::place(control, kFieldLeft, mTop, kFieldWidth, kFieldHeight);
  Form::hide(control);
  return *this;
}

FrameForm& FrameForm::group(PictureBox& holder, std::initializer_list<std::pair<OptionButton*, const char*>> buttons) {
  nextRow();
  mLast = nullptr;  // the first button stands on the holder's own row
  add(holder, "");
  Form::place(holder, kMargin, mTop, kLabelWidth + kFieldWidth, static_cast<int>(buttons.size()) * Form::kRowHeight);
  for (const auto& [button, tag] : buttons) {
    row(*button, tag);
    std::vector<OptionButton*> others;
    for (const auto& [other, ignored] : buttons)
      if (other != button) others.push_back(other);
    button->groupWith(std::move(others));
  }
  return *this;
}

FrameForm& FrameForm::panel(NestedPlace& at, const std::string& tag) {
  nextRow();
  add(at, tag);
  Form::place(at, 0, mTop, mForm.mComponent.width(), mForm.mComponent.height() - mTop);
  at.make();
  at.nested()->setOuter(&mForm.mComponent);
  at.nested()->Place(mForm.mComponent.desktop(), mForm.mComponent.parent(), tag);
  mLast = &at;
  return *this;
}

FrameForm& FrameForm::table(ListView& list, const std::string& tag, std::initializer_list<std::pair<const char*, int>> columns, int shares) {
  const int height = (mForm.mComponent.height() - kFirstRow) / shares;
  if (mLast) mTop += height;
  mColumn = 0;
  add(list, tag);
  Form::place(list, kMargin, mTop, mForm.mComponent.width() - 2 * kMargin, height - kGap);
  for (const auto& [columnTag, width] : columns) list.AddColumn(columnTag, width);
  mLast = &list;
  return *this;
}

FrameForm& FrameForm::fill(Control& control, const std::string& tag) {
  nextRow();
  add(control, tag);
  Form::place(control, kMargin, mTop, mForm.mComponent.width() - 2 * kMargin, mForm.mComponent.height() - mTop - kMargin);
  mLast = &control;
  return *this;
}

}  // namespace ostrand
