#include "platform/xml/Tree.h"

namespace ostrand {

pugi::xml_node Tree::parking() {
  if (!mParking) {
    mParking = document.append_child(pugi::node_element);
    mParking.set_name("#parked");  // no document can hold an element of this name
  }
  return mParking;
}

bool Tree::isParked(pugi::xml_node node) const { return mParking && (node == mParking || parkedTop(node)); }

pugi::xml_node Tree::parkedTop(pugi::xml_node node) const {
  if (!mParking) return {};
  while (node && node.parent() != mParking) node = node.parent();
  return node;
}

const NameIndex& Tree::ready(NameIndex& index) {
  if (!index.built()) index.build(document);
  return index;
}

}  // namespace ostrand
