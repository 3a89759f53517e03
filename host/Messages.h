#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/xml/Document.h"

// The communication documents that the host itself puts together or takes apart. A request document is
//
//   <dtm xmlns="x-schema:TAVCommunicationSchema.xml"><communicationRequest name="..." access="read|write">
//     <item name="..." unit="..."><floatVal>...</floatVal></item> ... </communicationRequest></dtm>

namespace ostrand {

// One value in a request. `element` is integerVal, floatVal or stringVal; `value` is empty in a read.
struct MessageItem {
  std::string name;
  std::string unit = "noUnit";
  std::string element = "stringVal";
  std::string value;
};

// A view's request, whole or as a bare communicationRequest element, as a whole document. A name that is not empty
// becomes the request's. RuntimeError 5 for a text that is no request.
Document readRequestText(const std::string& xml, const std::string& name);

Document makeReadRequest(const std::string& name, const std::vector<MessageItem>& items);
Document makeWriteRequest(const std::string& name, const std::vector<MessageItem>& items);

// The communicationRequest element; empty if there is none.
Node requestElement(const Document& request);
std::vector<MessageItem> itemsOf(const Document& request);
// Right below an element, as an editor gives them or as they stand in a message.
std::vector<MessageItem> itemsBelow(const Node& parent);
// Of an answer, in document order.
std::vector<MessageItem> answeredItems(const Document& answer);

// Answers that the host makes up. They are final, and their responseStatus is "local".
Document makeLocalAnswer(const Document& request, const std::vector<MessageItem>& items);
Document makeErrorAnswer(const Document& request, const std::string& errorCode, const std::vector<std::string>& items);

// What stands in an answer. Anything that is no answer gives one with `valid` off.
struct AnswerHead {
  bool valid = false;
  std::string name;
  bool write = false;
  bool isFinal = false;
  bool local = false;
  std::string errorCode;

  bool fromDevice() const { return valid && !local; }
  // It says nothing of the device, not even that it has heard.
  bool isCommunicationError() const { return errorCode == "communicationError" || errorCode == "errCommunicationError"; }
};
AnswerHead headOf(const Document& answer);

}  // namespace ostrand
