// Any text as a document: it is read or refused; then some nodes are moved about, and every lookup must go
// on to say what its path says. Run it on a copy of the seeds:
//   cp -r fuzz/seeds/document corpus && build-fuzz/fuzz_document -max_total_time=120 corpus

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdio>
#include <cstdlib>

#include "platform/base/RuntimeError.h"
#include "platform/xml/Vocabulary.h"

namespace {

using namespace ostrand;

void require(bool holds, const char* what, const Document& doc) {
  if (holds) return;
  std::fprintf(stderr, "%s\n%s\n", what, doc.xml().c_str());
  std::abort();
}

void compare(const Document& doc, const std::string& name) {
  const auto agrees = [&](Node (*find)(const Document&, std::string_view), const std::string& path) {
    Node byPath;
    bool refused = false;
    try {
      byPath = doc.select(path + "[@name=\"" + name + "\"]");
    } catch (const RuntimeError&) {
      refused = true;
    }
    try {
      require(find(doc, name) == byPath && !refused, path.c_str(), doc);
    } catch (const RuntimeError&) {
      require(refused, path.c_str(), doc);
    }
  };
  agrees(parameter, "./data:dtm/data:persistentData/data:parameters/data:parameter");
  agrees(parameterAnywhere, "//data:parameter");
  agrees(mapping, "./data:dtm/data:mappedParams/data:mappedParam");
  agrees(group, "./data:dtm/data:requestGroups/data:requestGroup");
  agrees(item, "comm:dtm/comm:communicationResponse/comm:item");
  agrees(itemAnywhere, "//comm:item");
  require(response(doc) == doc.select("comm:dtm/comm:communicationResponse"), "response", doc);
  require(responseAnywhere(doc) == doc.select("//comm:communicationResponse"), "responseAnywhere", doc);
  try {
    homeGroup(doc, name);
  } catch (const RuntimeError&) {
  }
}

void change(FuzzedDataProvider& choice, const Document& doc, std::vector<Node>& held) {
  const std::vector<Node> all = doc.selectAll("//*");
  const auto any = [&] { return all[choice.ConsumeIntegralInRange<std::size_t>(0, all.size() - 1)]; };
  if (all.empty()) return;
  const Node node = any();
  switch (choice.ConsumeIntegralInRange(0, 6)) {
    case 0: held.push_back(node.clone()); break;
    case 1:
      node.remove();
      held.push_back(node);
      break;
    case 2: node.setAttribute("name", choice.ConsumeRandomLengthString(4)); break;
    case 3: node.setText(choice.ConsumeRandomLengthString(4)); break;
    case 4: node.appendElement("data:parameter").setAttribute("name", "a"); break;
    case 5:
      if (!held.empty()) node.append(held.back());
      break;
    case 6: node.insertBefore(any(), node.firstChild()); break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider choice(data, size);
  const auto changes = choice.ConsumeIntegralInRange(0, 7);
  const std::string name = choice.PickValueInArray<std::string>({"a", "b", "", "it's", "\""});
  const std::size_t forChanges = static_cast<std::size_t>(changes) * 8;
  const std::size_t left = choice.remaining_bytes();
  Document doc;
  try {
    doc = Document::read(choice.ConsumeBytesAsString(left - std::min(left, forChanges)));
  } catch (const RuntimeError&) {
    return 0;
  }
  const std::string written = doc.xml();
  require(Document::read(written).xml() == written, "does not read as it was written", doc);
  require(Document::read(doc.xml(true)).root().xml() == Document::read(Document::read(doc.xml(true)).xml(true)).root().xml(), "indented", doc);
  compare(doc, name);
  std::vector<Node> held;
  for (int i = 0; i < changes; ++i) {
    try {
      change(choice, doc, held);
    } catch (const RuntimeError&) {
    }
    compare(doc, name);
  }
  for (const Node& node : held) node.text();
  return 0;
}
