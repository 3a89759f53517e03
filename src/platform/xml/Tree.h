#pragma once

#include <pugixml.hpp>
#include <string>

#include "platform/base/Ref.h"
#include "platform/xml/NameIndex.h"

namespace ostrand {

// What the handles Document and Node keep alive: the parsed text, and the indexes over it. Only the handles
// change it, so the indexes hear of every change.
class Tree : public Counted {
 public:
  pugi::xml_document document;
  std::string text;  // parsed in place: names and values point into it

  // Detached nodes live below one hidden element: pugixml frees what it removes, and a component may hold
  // a node for longer than it is part of the document.
  pugi::xml_node parking();
  bool isParked(pugi::xml_node node) const;
  // The detached element in which a parked node stands, or nothing.
  pugi::xml_node parkedTop(pugi::xml_node node) const;
  bool hasParked() const { return static_cast<bool>(mParking); }

  NameIndex parameters{"data:dtm", "data:persistentData", "data:parameters", "data:parameter"};
  NameIndex parametersAnywhere{"data:parameter"};
  NameIndex mappings{"data:dtm", "data:mappedParams", "data:mappedParam"};
  NameIndex groups{"data:dtm", "data:requestGroups", "data:requestGroup"};
  NameIndex includedParams{"data:dtm", "data:requestGroups", "data:requestGroup", "data:includedParam"};
  NameIndex items{"comm:dtm", "comm:communicationResponse", "comm:item"};
  NameIndex itemsAnywhere{"comm:item"};

  const NameIndex& ready(NameIndex& index);
  template <class Do>
  void eachIndex(Do apply) {
    for (NameIndex* index : {&parameters, &parametersAnywhere, &mappings, &groups, &includedParams, &items, &itemsAnywhere}) apply(*index);
  }

 private:
  pugi::xml_node mParking;
};

}  // namespace ostrand
