#pragma once

#include <string>

#include "platform/base/Ref.h"
#include "platform/types/IAddressService.h"
#include "platform/types/IObject.h"
#include "platform/types/ITextTable.h"
#include "platform/types/IUnitConverter.h"
#include "platform/types/MessengerEvents.h"
#include "platform/xml/Document.h"

namespace ostrand {

// The host's service object: all that a view asks of the host goes through it, on the user-interface
// thread. Every operation returns at once and may throw RuntimeError; answers of the device come later
// through the view's SetOnlineData or SetErrorData.
class Messenger : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("6f0a41d2-5d0e-4a52-9f3c-0d6c1c9b1a06");

  // Requests. `name` is what the answer's name attribute bears.
  virtual void SendRequest(const std::string& xml, const std::string& name) = 0;
  virtual void ReadRequest(const std::string& xml, int zero) = 0;
  // Shows `statusKey` while the request runs; false means refused, and the caller restores its controls.
  virtual bool SendRequestWithStatus(const std::string& xml, const std::string& statusKey, int first, int second) = 0;
  virtual int GetCommunicationMode() = 0;

  // Values.
  virtual void SetParameterStatus(const std::string& name, const std::string& word) = 0;
  // One changed value, told during ViewGetChanges: texts in document form, in the data set's unit.
  virtual int AddChange(const std::string& name, const std::string& caption, const std::string& oldText, const std::string& newText,
                        const std::string& unit, const std::string& type, const std::string& contextTag) = 0;
  virtual void ForwardValue(const std::string& tag, const std::string& value) = 0;

  // Services; the converter and the tree document may be absent.
  virtual Ref<IAddressService> GetAddressService() = 0;
  virtual Ref<IUnitConverter> GetUnitConverter() = 0;
  virtual Ref<ITextTable> GetTextTable() = 0;
  virtual Document GetTreeDocument() = 0;
  virtual int GetUserLevel() = 0;
  virtual bool GetMaximizeAllowed() = 0;

  // The user. Titles and messages are keys of the text table, or texts that are shown as they stand.
  virtual int AskUser(const std::string& title, const std::string& message) = 0;
  virtual void ShowMessage(const std::string& title, const std::string& message) = 0;
  virtual void SetStatusLine(const std::string& text, const std::string& code) = 0;
  virtual void SetProgress(const std::string& text, int first, int second) = 0;
  virtual void FocusOut() = 0;

  // The error channel and the log (category: a character code, "C" "D" "E" "F" or "M").
  virtual void ReportError(const std::string& prefix, int number, const std::string& description) = 0;
  virtual void Log(int category, const std::string& text) = 0;

  // Listeners are called in the order in which they subscribed. A listener unsubscribes before it ends.
  virtual void Subscribe(MessengerEvents& listener) = 0;
  virtual void Unsubscribe(MessengerEvents& listener) = 0;
};

}  // namespace ostrand
