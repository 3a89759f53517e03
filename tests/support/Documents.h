#pragma once

#include <string>

#include "platform/xml/Document.h"

namespace ostrand::test {

// A data:parameter by itself; `rest` are further attributes.
inline Node parameterNode(const std::string& attributes) { return Document::read("<data:parameter " + attributes + "/>").root(); }

// A comm:item by itself.
inline Node itemNode(const std::string& name, const char* element, const std::string& value, const std::string& attributes = {}) {
  return Document::read("<comm:item name=\"" + name + "\" " + attributes + "><comm:" + element + ">" + value + "</comm:" + element + "></comm:item>")
      .root();
}

inline Node mappingNode(const std::string& entries) {
  return Document::read("<data:mappedParam name=\"any\">" + entries + "</data:mappedParam>").root();
}

inline std::string choice(const std::string& value, const std::string& key) {
  return "<data:mappedItem value=\"" + value + "\" key=\"" + key + "\"/>";
}

// A data set of these parts.
inline Document dataSet(const std::string& parameters, const std::string& mappings = {}, const std::string& groups = {},
                        const std::string& category = "HART") {
  return Document::read("<data:dtm><typeInfo:internalInfo busCategory=\"" + category + "\"/><data:persistentData><data:parameters>" + parameters +
                        "</data:parameters></data:persistentData><data:mappedParams>" + mappings + "</data:mappedParams><data:requestGroups>" +
                        groups + "</data:requestGroups></data:dtm>");
}

inline std::string parameterXml(const std::string& name, const std::string& value, const std::string& rest = "type=\"stringVal\"") {
  return "<data:parameter name=\"" + name + "\" value=\"" + value + "\" " + rest + "/>";
}

// An answer: attributes of the response, and its items.
inline Document answer(const std::string& attributes, const std::string& items = {}) {
  return Document::read("<comm:dtm><comm:communicationResponse " + attributes + ">" + items + "</comm:communicationResponse></comm:dtm>");
}

inline std::string itemXml(const std::string& name, const std::string& value, const std::string& element = "stringVal") {
  return "<comm:item name=\"" + name + "\"><comm:" + element + ">" + value + "</comm:" + element + "></comm:item>";
}

}  // namespace ostrand::test
