#pragma once

#include <libxml/xpath.h>

#include <memory>
#include <string>

#include "platform/controls/Component.h"
#include "platform/xml/Document.h"

namespace ostrand::bench {

// The classic way from a document to the controls: one path for each control, and one more for each further
// question about it. What the controls then do with what was found is the same as in our own walk.
class Paths {
 public:
  virtual ~Paths() = default;
  // The first element that the path selects, or nothing.
  virtual Node first(const std::string& path) = 0;
};

class PugixmlPaths final : public Paths {
 public:
  explicit PugixmlPaths(const std::string& text);
  Node first(const std::string& path) override;

 private:
  Ref<Tree> mTree{new Tree};
};

class LibxmlPaths final : public Paths {
 public:
  explicit LibxmlPaths(const std::string& text);
  ~LibxmlPaths() override;
  LibxmlPaths(const LibxmlPaths&) = delete;
  LibxmlPaths& operator=(const LibxmlPaths&) = delete;

  // The controls take our nodes: from here on what a path finds is handed on as the element in the same place
  // of `twin`, which was read from the same text.
  void pairWith(const Document& twin);
  Node first(const std::string& path) override;

 private:
  xmlDocPtr mDocument;
  xmlXPathContextPtr mContext;
  Document mTwin;
};

void classicOfflineData(Component& view, Paths& paths);
void classicOnlineData(Component& view, Paths& paths);

}  // namespace ostrand::bench
