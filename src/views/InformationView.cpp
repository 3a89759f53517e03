#include "views/InformationView.h"

namespace ostrand {

using modView::TabPosition;

void InformationView::identify(FrameForm& form, const std::string& parameter) {
  form.row(lblIdentification.next(), parameter, cteIdentification.next(), "ctr_" + parameter);
}

void InformationView::identifyDate(FrameForm& form, const std::string& labelKey) {
  form.row(lblIdentification.next(), labelKey, dateEdit, "ctr_deviceDate");
}

void InformationView::transmit(FrameForm& form, const std::string& parameter, const std::string& labelKey) {
  form.row(lblTransmitter.next(), labelKey, cteTransmitter.next(), "ctr_" + parameter);
}

void InformationView::choose(FrameForm& form, CtrComboEdit& combo, const std::string& parameter) {
  form.row(lblTransmitter.next(), parameter, combo, "ctr_" + parameter);
}

void InformationView::focusOn(Control& firstOfTransmitter) {
  mFocusOn = {{"identification", &cteIdentification(0)}, {"transmitter", &firstOfTransmitter}};
}

void InformationView::connect() {
  exits(cteIdentification, "cteIdentification_LostFocus");
  exits(cteTransmitter, "cteTransmitter_LostFocus");
}

void InformationView::exits(const ControlArray<CtrTextEdit>& edits, const char* procedure) {
  edits(0).LostFocus.connect([this, procedure] { leaveByTab(procedure, TabPosition::First); });
  edits(edits.size() - 1).LostFocus.connect([this, procedure] { leaveByTab(procedure, TabPosition::Last); });
}

}  // namespace ostrand
