#include "platform/xml/Tree.h"

namespace ostrand {

pugi::xml_node Tree::parking() {
  if (!mParking) {
    mParking = document.append_child(pugi::node_element);
    mParking.set_name("#parked");  // no document can hold an element of this name
  }
  return mParking;
}

bool Tree::isParked(pugi::xml_node node) const {
  if (!mParking) return false;
  while (node && node != mParking) node = node.parent();
  return static_cast<bool>(node);
}

const NameIndex& Tree::ready(NameIndex& index) {
  if (!index.built()) index.build(document);
  return index;
}

}  // namespace ostrand
