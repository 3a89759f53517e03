#include "host/Messages.h"

#include "platform/base/RuntimeError.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

std::string attribute(const Node& node, const char* name) { return std::string(node.findAttribute(name).value_or("")); }

// A document in the schema of the communication, with one element below its root.
Node begin(const char* element) {
  const Document doc = Document::read("<comm:dtm xmlns:comm=\"" + std::string(kCommunicationSchema) + "\"/>");
  return doc.root().appendElement(element);
}

Document make(const std::string& name, const char* access, const std::vector<MessageItem>& items) {
  const Node request = begin("comm:communicationRequest");
  request.setAttribute("name", name);
  request.setAttribute("access", access);
  for (const MessageItem& each : items) {
    const Node item = request.appendElement("comm:item");
    item.setAttribute("name", each.name);
    item.setAttribute("unit", each.unit);
    const Node value = item.appendElement(("comm:" + each.element).c_str());
    if (!each.value.empty()) value.setText(each.value);
  }
  return Document(request.tree());
}

Node beginAnswer(const Document& request) {
  const Node asked = requestElement(request);
  const Node answer = begin("comm:communicationResponse");
  answer.setAttribute("name", asked ? attribute(asked, "name") : "");
  answer.setAttribute("access", asked ? attribute(asked, "access") : "read");
  answer.setAttribute("isFinal", "1");
  answer.setAttribute("responseStatus", "local");
  return answer;
}

}  // namespace

Document readRequestText(const std::string& xml, const std::string& name) {
  Document doc = Document::read(xml);
  // A fragment of a view bears no namespace; wrapped as text, it takes on that of the document around it.
  if (doc.root().name() == "communicationRequest")
    doc = Document::read("<?xml version=\"1.0\"?><dtm xmlns=\"" + std::string(kCommunicationSchema) + "\">" + doc.root().xml() + "</dtm>");
  const Node request = requestElement(doc);
  if (!request) throw RuntimeError(RuntimeError::BadArgument, "not a request: its root is \"" + std::string(doc.root().name()) + "\"");
  if (const auto access = request.findAttribute("access"); access != "read" && access != "write")
    throw RuntimeError(RuntimeError::BadArgument, "a request must have the access \"read\" or \"write\"");
  if (!name.empty()) request.setAttribute("name", name);
  if (attribute(request, "name").empty()) throw RuntimeError(RuntimeError::BadArgument, "a request without a name");
  return doc;
}

Document makeReadRequest(const std::string& name, const std::vector<MessageItem>& items) { return make(name, "read", items); }

Document makeWriteRequest(const std::string& name, const std::vector<MessageItem>& items) { return make(name, "write", items); }

Node requestElement(const Document& request) {
  const Node root = request ? request.root() : nullptr;
  return root && root.name() == "comm:dtm" ? root.child("comm:communicationRequest") : nullptr;
}

std::vector<MessageItem> itemsBelow(const Node& parent) {
  std::vector<MessageItem> items;
  for (Node item = parent ? parent.firstChild() : nullptr; item; item = item.nextSibling()) {
    if (item.name() != "comm:item" && item.name() != "item") continue;
    MessageItem& each = items.emplace_back();
    each.name = attribute(item, "name");
    each.unit = attribute(item, "unit");
    if (const Node value = item.firstChild()) {
      const std::string_view element = value.name();
      each.element = element.starts_with("comm:") ? element.substr(5) : element;
      each.value = value.text();
    }
  }
  return items;
}

std::vector<MessageItem> itemsOf(const Document& request) { return itemsBelow(requestElement(request)); }

std::vector<MessageItem> answeredItems(const Document& answer) { return itemsBelow(answer ? response(answer) : nullptr); }

Document makeLocalAnswer(const Document& request, const std::vector<MessageItem>& items) {
  const Node answer = beginAnswer(request);
  for (const MessageItem& each : items) {
    const Node item = answer.appendElement("comm:item");
    item.setAttribute("name", each.name);
    item.setAttribute("unit", each.unit);
    item.appendElement(("comm:" + each.element).c_str()).setText(each.value);
  }
  return Document(answer.tree());
}

Document makeErrorAnswer(const Document& request, const std::string& errorCode, const std::vector<std::string>& items) {
  const Node answer = beginAnswer(request);
  answer.setAttribute("errorCode", errorCode);
  for (const std::string& name : items) answer.appendElement("comm:item").setAttribute("name", name);
  return Document(answer.tree());
}

AnswerHead headOf(const Document& answer) {
  const Node response = answer ? ostrand::response(answer) : nullptr;
  AnswerHead head;
  if (!response) return head;
  head.valid = true;
  head.name = attribute(response, "name");
  head.write = response.findAttribute("access") == "write";
  head.isFinal = response.findAttribute("isFinal") == "1";
  head.local = response.findAttribute("responseStatus") == "local";
  head.errorCode = attribute(response, "errorCode");
  return head;
}

}  // namespace ostrand
