#include "core/View.h"

#include <utility>

#include "core/HostNumbers.h"
#include "core/modTools.h"
#include "platform/trap/Procedure.h"
#include "platform/types/Listening.h"
#include "platform/types/Query.h"

namespace ostrand {

namespace {

constexpr int kStampTop = 20;

}  // namespace

View::~View() { stopListening(mMessenger, *this); }

FrameForm View::frame(Form& form, const std::string& key, const std::string& stampTag) {
  return form.frame(frmViews.next(), key).title(lblTitle.next(), key).stamp(ctrDateLabels.next(), stampTag);
}

bool View::offerInterface(const Guid& id, void** out) noexcept {
  return offer<ITaviView>(id, this, out) || offer<ITaviDataUser>(id, this, out) || offer<ITaviComponent>(id, this, out) ||
         offer<ILocalizable>(id, this, out);
}

// --- life

void View::initialize() {
  Procedure proc(*this, "UserControl_Initialize");
  frmViews.each([&](int, Frame& frame) {
    proc.step([&] { frame.BackColor(Color::window()); });
    proc.step([&] { mViews.push_back(&frame); });
  });
  for (Control* control : controls())
    if (control->view()) mViews.push_back(control);
}

void View::resized() {
  Procedure proc(*this, "UserControl_Resize");
  for (Control* item : mViews) proc.step([&] { item->Move(0, 0, width(), height()); });
  ctrDateLabels.each(
      [&](int, CtrDateLabel& label) { proc.step([&] { label.Move(width() - label.Width(), kStampTop, label.Width(), label.Height()); }); });
}

void View::SetMessenger(const Ref<Messenger>& messenger) {
  Procedure proc(*this, "ITaviComponent_SetMessenger", messenger);
  proc.step([&] { changeMessenger(mMessenger, proc.pinnedMessenger(), *this); });
  const auto isTaken = [&] { return mMessenger == proc.pinnedMessenger(); };
  if (isTaken()) proc.step([&] { modView::setMessenger(*this, proc.pinnedMessenger()); });
  if (isTaken()) messengerTaken(proc);
}

void View::dropped(const std::string& text) { modTools::DropTrace(text); }

void View::Localize(const Ref<ITextTable>& textTable) {
  Procedure proc(*this, "ILocalizable_Localize");
  proc.step([&] { modView::Localize(*this, textTable); });
}

void View::PrepareToRelease() {
  Procedure proc(*this, "ITaviView_PrepareToRelease");
  proc.step([&] { clear(); });
}

void View::clear() {
  mViews.clear();
  for (Control* control : controls()) control->detach();
  stopListening(std::exchange(mMessenger, nullptr), *this);
}

// --- selection and focus

void View::SetSelectedView(const std::string& key) {
  Procedure proc(*this, "ITaviView_SetSelectedView");
  const std::string ownTag = tag().empty() ? std::string(mTreeName) : tag();
  proc.step([&] { mSelectedView = modView::selectView(proc, key, ownTag, std::vector(mViews)); });
}

void View::RequestFocus() {
  Procedure proc(*this, "ITaviView_RequestFocus");
  proc.step([&] {
    for (const auto& [key, control] : mFocusOn) {
      if (key != mSelectedView) continue;
      if (control->view())
        modView::callObject(*control, control->view(), "RequestFocus", "", [](ITaviView& nested) { nested.RequestFocus(); });
      else
        control->SetFocus();
      return;
    }
  });
}

void View::leaveByTab(std::string_view procedure, modView::TabPosition position) {
  Procedure proc(*this, procedure);
  proc.step([&] { modView::tabStep(desktop(), proc.messenger(), position); });
}

// --- documents

void View::SetErrorData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setErrorData");
  proc.step([&] { modView::setErrorData(*this, doc); });
}

void View::SetImportData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setImportData");
  proc.step([&] { modView::setImportData(*this, doc); });
}

void View::SetOfflineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOfflineData");
  proc.step([&] { modView::setOfflineData(*this, doc); });
}

void View::SetOnlineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOnlineData");
  proc.step([&] { modView::setOnlineData(*this, doc); });
}

// --- write buttons

void View::enableByLevel(Procedure& proc, CommandButton& button) {
  const int level = proc.value(0, [&] { return proc.messenger().GetUserLevel(); });
  proc.step([&] { button.Enabled(level >= kWritingLevel); });
}

void View::followMode(Procedure& proc, int mode, CommandButton& button) {
  switch (mode) {
    case Mode::kLocalAcceptance: proc.step([&] { button.Tag("accept"); }); break;
    case Mode::kDownload: proc.step([&] { button.Tag("download"); }); break;
    case Mode::kBusy: proc.step([&] { button.Enabled(false); }); break;
    case Mode::kFree: {
      const int level = proc.value(0, [&] { return proc.messenger().GetUserLevel(); });
      if (level >= kWritingLevel) proc.step([&] { button.Enabled(true); });
      break;
    }
    default: break;
  }
  captionFromTag(proc, button);
}

void View::setCaption(Procedure& proc, CommandButton& button, const std::string& tag) {
  proc.step([&] { button.Tag(tag); });
  captionFromTag(proc, button);
}

void View::captionFromTag(Procedure& proc, CommandButton& button) {
  // A text that cannot be had leaves the caption as it was.
  proc.step([&] {
    const Ref<ITextTable> texts = proc.messenger().GetTextTable();
    if (!texts) throwNothingThere("the text table");
    button.Caption(texts->GetText(button.Tag()));
  });
}

}  // namespace ostrand
