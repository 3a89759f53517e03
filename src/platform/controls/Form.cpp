#include "platform/controls/Form.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "platform/controls/CtrFocusTransfer.h"

namespace ostrand {

namespace {

constexpr int kMargin = 240;
constexpr int kLabelWidth = 3000;
constexpr int kFieldLeft = kMargin + kLabelWidth + 120;
constexpr int kFieldWidth = 2400;
constexpr int kFieldHeight = 315;
constexpr int kColumnStep = kFieldWidth + 120;
constexpr int kFirstRowOfFrame = 720;  // below the heading
constexpr int kFirstRowOfPanel = 120;
constexpr int kTitleTop = 120;
constexpr int kStampWidth = 2640;
constexpr int kButtonWidth = 1695;
constexpr int kGap = 120;

}  // namespace

// --- the panel

FormFrame& Form::open(Control* front) {
  mComponent.mFrames.emplace_back().front = front;
  return mComponent.mFrames.back();
}

void Form::add(Control& control, const std::string& tag) {
  control.mTag = tag;
  mComponent.mControls.push_back(&control);
}

void Form::position(Control& control, int left, int top, int width, int height) {
  control.mLeft = left;
  control.mTop = top;
  control.mWidth = width;
  control.mHeight = height;
}

void Form::makeNested(NestedControl& at, const std::string& tag) {
  at.make();
  at.nested()->nest(&mComponent, &at);
  at.nested()->Place(mComponent.desktop(), mComponent.parent(), tag);
}

Form::~Form() {
  for (const FormFrame& frame : mComponent.mFrames)
    if (frame.writes) surroundWriteControls(frame);
  for (Control* control : mComponent.mControls) control->mOwner = &mComponent;
}

void Form::surroundWriteControls(const FormFrame& frame) {
  ControlCollection& controls = mComponent.mControls;
  const auto makeTransfer = [&] {
    auto& all = mComponent.mFocusTransfers;
    all.push_back(std::make_unique<CtrFocusTransfer>("CtrFocusTransfer" + std::to_string(all.size() + 1)));
    all.back()->mFrame = frame.front;
    return all.back().get();
  };
  const auto stands = [&](const Control* control) { return control->frame() == frame.front && control != frame.title && control != frame.stamp; };
  controls.insert(std::find_if(controls.begin(), controls.end(), stands), makeTransfer());
  controls.insert(std::find_if(controls.rbegin(), controls.rend(), stands).base(), makeTransfer());
}

FrameForm Form::frame(Frame& frame, const std::string& key) {
  add(frame, key);
  position(frame, 0, 0, mComponent.width(), mComponent.height());
  if (!mComponent.mFront) mComponent.mFront = &frame;
  return FrameForm(*this, &frame);
}

FrameForm Form::rows() { return FrameForm(*this, nullptr); }

void Form::nested(NestedControl& at, const std::string& tag) {
  add(at, tag);
  position(at, 0, 0, mComponent.width(), mComponent.height());
  open(&at).blocks.front().rows.push_back({.cells = {{.controls = {&at}}}, .share = 1});
  if (!mComponent.mFront) mComponent.mFront = &at;
  makeNested(at, tag);
}

void Form::fill(Control& control, const std::string& tag) {
  add(control, tag);
  position(control, 0, 0, mComponent.width(), mComponent.height());
  open(nullptr).blocks.front().rows.push_back({.cells = {{.controls = {&control}}}, .share = 1});
}

void Form::hidden(Control& control, const std::string& tag) {
  add(control, tag);
  control.mVisible = false;
}

void Form::hidden(NestedControl& at, const std::string& tag) {
  hidden(static_cast<Control&>(at), tag);
  makeNested(at, tag);
}

// --- a frame

FrameForm::FrameForm(Form& form, Control* frame)
    : mForm(form),
      mFrame(frame),
      mIndex(form.mComponent.mFrames.size()),
      mFirstRow(frame ? kFirstRowOfFrame : kFirstRowOfPanel),
      mTop(mFirstRow),
      mWidth(form.mComponent.width()) {
  form.open(frame);
}

void FrameForm::add(Control& control, const std::string& tag) {
  mForm.add(control, tag);
  control.mFrame = mFrame;
}

FrameForm& FrameForm::title(Label& label, const std::string& key) {
  add(label, key);
  model().title = &label;
  Form::position(label, kMargin, kTitleTop, 5000, 360);
  return *this;
}

FrameForm& FrameForm::stamp(CtrDateLabel& label, const std::string& tag) {
  add(label, tag);
  model().stamp = &label;
  Form::position(label, width() - kStampWidth, 20, kStampWidth, kFieldHeight);
  return *this;
}

FrameForm& FrameForm::caption(CaptionedControl& control, const std::string& text) {
  mForm.caption(control, text);
  return *this;
}

void FrameForm::nextRow(int height) {
  if (mLast) mTop += height;
  mColumn = 0;
}

void FrameForm::addRow() {
  nextRow();
  block().rows.emplace_back();
}

FrameForm& FrameForm::labelled(Label& label, const std::string& key) {
  addRow();
  add(label, key);
  Form::position(label, mLeft + kMargin, mTop, kLabelWidth, kFieldHeight);
  block().rows.back().label = &label;
  mLast = &label;
  return *this;
}

FrameForm& FrameForm::row(Label& label, const std::string& key, Control& control, const std::string& tag) {
  return labelled(label, key).cell(control, tag);
}

FrameForm& FrameForm::row(Control& control, const std::string& tag) {
  addRow();
  return cell(control, tag);
}

FrameForm& FrameForm::button(CommandButton& button, const std::string& tag, const std::string& caption) {
  row(button, tag);
  Form::caption(button, caption);
  button.mWidth = kButtonWidth;
  model().writes = true;
  return *this;
}

FrameForm& FrameForm::heads(Heads labels) {
  addRow();
  return addHeads(labels);
}

FrameForm& FrameForm::heads(Label& corner, const std::string& key, Heads labels) { return labelled(corner, key).addHeads(labels); }

FrameForm& FrameForm::addHeads(Heads labels) {
  block().rows.back().heads = true;
  for (const auto& [label, key] : labels) cell(*label, key);
  return *this;
}

FrameForm& FrameForm::cell(Control& control, const std::string& tag) {
  add(control, tag);
  Form::position(control, mLeft + kFieldLeft + mColumn++ * kColumnStep, mTop, kFieldWidth, kFieldHeight);
  block().rows.back().cells.push_back({mColumn, {&control}});
  mLast = &control;
  return *this;
}

FrameForm& FrameForm::skip() {
  ++mColumn;
  return *this;
}

FrameForm& FrameForm::over(Control& control, const std::string& tag) {
  add(control, tag);
  Form::position(control, mLast->mLeft, mLast->mTop, mLast->mWidth, mLast->mHeight);
  control.mVisible = false;
  block().rows.back().cells.back().controls.push_back(&control);
  return *this;
}

FrameForm& FrameForm::over(CommandButton& button, const std::string& tag, const std::string& caption) {
  over(button, tag);
  Form::caption(button, caption);
  return *this;
}

FrameForm& FrameForm::hidden(Control& control, const std::string& tag) {
  add(control, tag);
  Form::position(control, mLeft + kFieldLeft, mTop, kFieldWidth, kFieldHeight);
  control.mVisible = false;
  block().rows.push_back({.cells = {{1, {&control}}}});
  return *this;
}

FrameForm& FrameForm::group(PictureBox& holder, std::initializer_list<std::pair<OptionButton*, const char*>> buttons) {
  nextRow();
  mLast = nullptr;  // the first button stands on the holder's own row
  add(holder, "");
  Form::position(holder, mLeft + kMargin, mTop, kLabelWidth + kFieldWidth, static_cast<int>(buttons.size()) * Form::kRowHeight);
  for (const auto& [button, tag] : buttons) row(*button, tag);
  groupButtons(buttons);
  return *this;
}

FrameForm& FrameForm::options(Label& label, const std::string& key, std::initializer_list<std::pair<OptionButton*, const char*>> buttons) {
  labelled(label, key);
  for (const auto& [button, tag] : buttons) cell(*button, tag);
  groupButtons(buttons);
  return *this;
}

void FrameForm::groupButtons(std::initializer_list<std::pair<OptionButton*, const char*>> buttons) {
  for (const auto& [button, tag] : buttons) {
    std::vector<OptionButton*> others;
    for (const auto& [other, ignored] : buttons)
      if (other != button) others.push_back(other);
    button->groupWith(std::move(others));
  }
}

void FrameForm::addWide(Control& control, const std::string& tag, int top, int height, int margin) {
  add(control, tag);
  Form::position(control, mLeft + margin, top, mWidth - 2 * margin, height);
  block().rows.push_back({.cells = {{.controls = {&control}}}, .share = 1});
  mLast = &control;
}

FrameForm& FrameForm::panel(NestedControl& at, const std::string& tag) {
  nextRow();
  addWide(at, tag, mTop, height() - mTop, 0);
  mForm.makeNested(at, tag);
  return *this;
}

FrameForm& FrameForm::fill(Control& control, const std::string& tag) {
  nextRow();
  addWide(control, tag, mTop, height() - mTop - kMargin, kMargin);
  return *this;
}

FrameForm& FrameForm::table(ListView& list, const std::string& tag, std::initializer_list<Column> columns, int shares) {
  const int share = (height() - mFirstRow) / shares;
  nextRow(share);
  addWide(list, tag, mTop, share - kGap, kMargin);
  for (const Column& column : columns) list.AddColumn(column.tag, column.width, column.content);
  return *this;
}

FrameForm& FrameForm::strip(std::initializer_list<std::pair<Control*, int>> controls) {
  nextRow();
  FormRow& row = block().rows.emplace_back();
  row.share = 1;
  int shares = 0, before = 0;
  for (const auto& [control, share] : controls) shares += share;
  const int room = mWidth - 2 * kMargin;
  for (const auto& [control, share] : controls) {
    const int left = room * before / shares, right = room * (before += share) / shares;
    add(*control, "");
    Form::position(*control, mLeft + kMargin + left, mTop, right - left, height() - mTop - kMargin);
    row.cells.push_back({static_cast<int>(row.cells.size()), {control}});
    mLast = control;
  }
  return *this;
}

FrameForm& FrameForm::split(std::initializer_list<int> shares) {
  model().blocks.assign(shares.size(), {});
  std::transform(shares.begin(), shares.end(), model().blocks.begin(), [](int share) { return FormBlock{share, {}}; });
  mWidth = width() * block().share / std::accumulate(shares.begin(), shares.end(), 0);
  return *this;
}

FrameForm& FrameForm::beside() {
  const int twipsToShare = mWidth / block().share;
  mLeft += mWidth;
  ++mBlock;
  mWidth = twipsToShare * block().share;
  mTop = mFirstRow;
  mColumn = 0;
  mLast = nullptr;
  return *this;
}

}  // namespace ostrand
