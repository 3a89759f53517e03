#include "benchmarks/Classic.h"

#include <libxml/parser.h>
#include <libxml/xpathInternals.h>

#include <stdexcept>

#include "core/modTools.h"

namespace ostrand::bench {

namespace {

using Kind = Control::Kind;

const xmlChar* asXml(const char* text) { return reinterpret_cast<const xmlChar*>(text); }

std::string named(const char* path, std::string_view name) { return std::string(path) + "[@name=\"" + std::string(name) + "\"]"; }

std::string attributeOf(const Node& node, const char* name) { return std::string(node ? node.findAttribute(name).value_or("") : ""); }

Node mappingOf(Paths& paths, std::string_view name) { return paths.first(named("/data:dtm/data:mappedParams/data:mappedParam", name)); }

// A mapping may be named by a tail of the parameter's name, which begins at a capital or a digit.
Node findMapping(Paths& paths, std::string_view name) {
  if (Node own = mappingOf(paths, name)) return own;
  for (std::size_t i = name.size(); i-- > 0;) {
    if (name[i] >= 'a' && name[i] <= 'z' && i > 0) continue;
    std::string tail(name.substr(i));
    if (tail[0] >= 'A' && tail[0] <= 'Z') tail[0] = static_cast<char>(tail[0] - 'A' + 'a');
    if (Node found = mappingOf(paths, tail)) return found;
  }
  return {};
}

}  // namespace

PugixmlPaths::PugixmlPaths(const std::string& text) {
  if (!mTree->document.load_buffer(text.data(), text.size())) throw std::runtime_error("pugixml cannot read the text");
}

Node PugixmlPaths::first(const std::string& path) { return {mTree, mTree->document.select_node(path.c_str()).node()}; }

LibxmlPaths::LibxmlPaths(const std::string& text)
    : mDocument(xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, XML_PARSE_HUGE | XML_PARSE_NOBLANKS)),
      mContext(mDocument ? xmlXPathNewContext(mDocument) : nullptr) {
  if (!mContext) throw std::runtime_error("libxml2 cannot read the text");
  xmlXPathRegisterNs(mContext, asXml("data"), asXml("x-schema:TAVPersistentDataSchema.xml"));
  xmlXPathRegisterNs(mContext, asXml("comm"), asXml("x-schema:TAVCommunicationSchema.xml"));
}

LibxmlPaths::~LibxmlPaths() {
  xmlXPathFreeContext(mContext);
  xmlFreeDoc(mDocument);
}

namespace {

void pair(xmlNodePtr theirs, const Node& ours) {
  theirs->_private = ours.raw().internal_object();
  Node child = ours.firstChild();
  for (xmlNodePtr at = xmlFirstElementChild(theirs); at; at = xmlNextElementSibling(at), child = child.nextSibling()) pair(at, child);
}

}  // namespace

void LibxmlPaths::pairWith(const Document& twin) {
  mTwin = twin;
  pair(xmlDocGetRootElement(mDocument), twin.root());
}

Node LibxmlPaths::first(const std::string& path) {
  const xmlXPathObjectPtr result = xmlXPathEvalExpression(asXml(path.c_str()), mContext);
  if (!result) throw std::runtime_error("libxml2 cannot read the path " + path);
  const bool found = result->nodesetval && result->nodesetval->nodeNr > 0;
  void* const twin = found ? result->nodesetval->nodeTab[0]->_private : nullptr;
  xmlXPathFreeObject(result);
  return {mTwin.tree(), pugi::xml_node(static_cast<pugi::xml_node_struct*>(twin))};
}

void classicOfflineData(Component& view, Paths& paths) {
  for (Control* control : view.controls()) {
    const Kind kind = control->kind();
    if (kind == Kind::DateLabel) {
      const Node group = paths.first(named("/data:dtm/data:requestGroups/data:requestGroup", control->Tag().substr(5)));
      if (group) control->set("Caption", {}, modTools::LocalizeDatafileDate(attributeOf(group, "lastUpdate"), view.desktop()));
    } else if (const std::string_view name = control->parameterName(); !name.empty()) {
      if (kind == Kind::ComboEdit) control->SetMappings(findMapping(paths, name));
      const Node parameter = paths.first(named("/data:dtm/data:persistentData/data:parameters/data:parameter", name));
      const Node included = paths.first(named("/data:dtm/data:requestGroups/data:requestGroup/data:includedParam", name));
      control->ContextTag(included ? attributeOf(included.parent(), "name") : "");
      control->setOfflineData(parameter);
    }
  }
}

void classicOnlineData(Component& view, Paths& paths) {
  const Node answer = paths.first("/comm:dtm/comm:communicationResponse");
  const std::string answerName = attributeOf(answer, "name");
  for (Control* control : view.controls()) {
    const Kind kind = control->kind();
    if (kind == Kind::DateLabel) {
      if (control->Tag().substr(5) == answerName) control->set("Caption", {}, modTools::presentDateAndTime(view.desktop()));
    } else if (const std::string_view name = control->parameterName(); !name.empty()) {
      const Node item = paths.first(named("/comm:dtm/comm:communicationResponse/comm:item", name));
      if (kind == Kind::TextEdit && attributeOf(answer, "responseStatus") == "local")
        control->setLocalData(item);
      else
        control->SetOnlineData(item);
    }
  }
}

}  // namespace ostrand::bench
