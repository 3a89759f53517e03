#pragma once

#include <string>

// Requests are composed as text. Three openings of one frame stand side by side in the system: the whole
// document, the same in two pieces, and the bare fragment that the host wraps.
namespace ostrand::Requests {

inline const std::string kHeader = "<?xml version=\"1.0\"?><dtm xmlns=\"x-schema:TAVCommunicationSchema.xml\">";
inline const std::string kFooter = "</dtm>";
inline const std::string kFragmentEnd = "</communicationRequest>";

inline std::string fragmentBegin(const std::string& name, const std::string& access) {
  return "<communicationRequest name=\"" + name + "\" access=\"" + access + "\">";
}

// For DTMGUIDownload and SendRequest.
inline std::string fragment(const std::string& name, const std::string& access, const std::string& items) {
  return fragmentBegin(name, access) + items + kFragmentEnd;
}

// For ReadRequest and SendRequestWithStatus.
inline std::string document(const std::string& name, const std::string& access, const std::string& items) {
  return kHeader + fragment(name, access, items) + kFooter;
}

// A value that is asked for: the empty element tells the expected type. The short form leaves it out.
inline std::string readItem(const std::string& name, const std::string& unit, const std::string& type) {
  return "<item name=\"" + name + "\" unit=\"" + unit + "\"><" + type + "/></item>";
}
inline std::string readItem(const std::string& name) { return "<item name=\"" + name + "\" unit=\"noUnit\"/>"; }

inline std::string writeInteger(const std::string& name, int value) {
  return "<item name=\"" + name + "\" unit=\"noUnit\"><integerVal>" + std::to_string(value) + "</integerVal></item>";
}

}  // namespace ostrand::Requests
