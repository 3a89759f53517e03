#pragma once

#include <initializer_list>
#include <string>

#include "core/View.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrDateEdit.h"
#include "platform/controls/CtrTextEdit.h"

namespace ostrand {

// What the five information views share: a frame of identification texts with the device's date, and a frame
// of transmitter data. Beyond the binding by tags they have no logic.
class InformationView : public View {
 protected:
  InformationView(std::string_view objectName, std::string dateEditName) : View(objectName, "information"), dateEdit(std::move(dateEditName)) {}

  // A row whose label is named after the parameter, in the frame of the identification or the transmitter.
  void identify(FrameForm& form, const std::string& parameter);
  void identifyDate(FrameForm& form, const std::string& labelKey);
  void transmit(FrameForm& form, const std::string& parameter) { transmit(form, parameter, parameter); }
  void transmit(FrameForm& form, const std::string& parameter, const std::string& labelKey);
  void choose(FrameForm& form, CtrComboEdit& combo, const std::string& parameter);
  // The focus targets; at the end of a declaration.
  void focusOn(Control& firstOfTransmitter);
  void connect() override;

  ControlArray<Label> lblIdentification{"lblIdentification"};
  ControlArray<CtrTextEdit> cteIdentification{"cteIdentification"};
  CtrDateEdit dateEdit;
  ControlArray<Label> lblTransmitter{"lblTransmitter"};
  ControlArray<CtrTextEdit> cteTransmitter{"cteTransmitter"};

 private:
  void exits(const ControlArray<CtrTextEdit>& edits, const char* procedure);
};

}  // namespace ostrand
